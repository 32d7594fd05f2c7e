// SPDX-License-Identifier: MIT
#include "ui/FrmLibrary.h"

#include <wx/wupdlock.h>

#include <algorithm>
#include <array>

#include "platform_wx/NativeLook.h"
#include "platform_wx/Spoken.h"
#include "platform_wx/WxText.h"
#include "ui/ForText.h"
#include "ui/MarkColour.h"

namespace velquist::ui {
namespace {

constexpr int kLibraryWidth = 1180;
constexpr int kLibraryHeight = 780;
constexpr int kLeastLibraryWidth = 560;
constexpr int kLeastLibraryHeight = 400;
constexpr int kLeastPane = 80;
constexpr double kShareOfTable = 0.62;

constexpr char kHint[] =
    "Down: table   Enter: open   Ctrl+R: reference   Ctrl+E: export   Ctrl+B: folder   "
    "Ctrl+F: filter   F5: scan   Escape: close";

/// In two lines where `width` is too narrow for one.
wxString HintFor(const wxWindow& label, int width)
{
  wxString text = kHint;
  if (label.GetTextExtent(text).x > width) text.Replace("   Ctrl+B", "\nCtrl+B");
  return text;
}

/// Of plain columns, in the order of the library's numbers.
constexpr std::array<int, app::kPlainColumns> kWidths = {150, 90, 110, 150, 90, 190, 75, 130, 400};
constexpr int kValueWidth = 110;

}  // namespace

FrmLibrary::FrmLibrary(const Setting& setting)
    : SideWindow(setting, &app::MainForm::library, "Velquist Library", "FrmLibrary"),
      library_(setting.window),
      previews_(setting.window),
      lines_(new LibraryLines(library_.Table())),
      differences_(new ComparisonLines)
{
  SetExtraStyle(GetExtraStyle() | wxWS_EX_PROCESS_IDLE);
  auto* const panel = new wxPanel(this);
  auto* const filter = MakeFilterRow(panel);
  auto* const tables = MakeTables(panel);
  auto* const progress = MakeProgressRow(panel);
  auto* const buttons = MakeButtons(panel);
  auto* const hint = new wxStaticText(panel, wxID_ANY, kHint, wxDefaultPosition, wxDefaultSize,
                                      wxST_NO_AUTORESIZE, "Hint");

  auto* const rows = new wxBoxSizer(wxVERTICAL);
  const auto wide = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(kGap));
  rows->Add(filter, wide);
  rows->Add(tables, wxSizerFlags(wide).Proportion(1));
  rows->Add(progress, wide);
  rows->Add(buttons, wide);
  rows->Add(hint, wxSizerFlags(wide).Border(wxALL, FromDIP(kGap)));
  panel->SetSizer(rows);
  panel->Bind(wxEVT_SIZE, [panel, hint](wxSizeEvent& event) {
    const auto text = HintFor(*hint, panel->GetClientSize().x - 2 * panel->FromDIP(kGap));
    if (text != hint->GetLabel()) {
      hint->SetLabel(text);
      hint->InvalidateBestSize();
    }
    event.Skip();  // and all is placed anew
  });

  wxSize client = ForText(*this, wxSize(kLibraryWidth, kLibraryHeight));
  client.IncTo(OfDesktop(kUsualPercent));
  TakeSize(client, ForText(*this, wxSize(kLeastLibraryWidth, kLeastLibraryHeight)));
  Layout();
  panel->Layout();
  panes_->SetSashPosition(static_cast<int>(panes_->GetSize().y * kShareOfTable));
  MakeColumns();
  ShowOrder();
  BindEvents();
  filter_->SetFocus();
}

wxSizer* FrmLibrary::MakeFilterRow(wxPanel* panel)
{
  auto* const label = new wxStaticText(panel, wxID_ANY, "&Filter:");
  filter_ = new wxTextCtrl(panel, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                           wxTE_PROCESS_ENTER, wxDefaultValidator, "Filter");
  const wxString filter_tip =
      "Shows the setups that have all these words, such as monza or year:1967";
  filter_->SetHint("Words such as monza or year:1967");
  filter_->SetToolTip(filter_tip);
  platform::SetSpoken(*filter_, "Filter", filter_tip);
  platform::SetMnemonicTarget(*label, *filter_);

  auto* const order_label = new wxStaticText(panel, wxID_ANY, "Sort &by:");
  order_ = new wxChoice(panel, wxID_ANY, wxDefaultPosition, wxSize(ForText(*this, 150), -1), 0,
                        nullptr, 0, wxDefaultValidator, "SortBy");
  order_->SetToolTip("The column that the setups are sorted by");
  platform::SetSpoken(*order_, "Sort by", order_->GetToolTipText());
  platform::SetMnemonicTarget(*order_label, *order_);
  descending_ = new wxCheckBox(panel, wxID_ANY, "&Descending", wxDefaultPosition, wxDefaultSize, 0,
                               wxDefaultValidator, "Descending");
  descending_->SetToolTip("The last of the column first");
  auto* const columns =
      MakeButton(panel, "Columns", "Colum&ns...", "Choose values that are shown as columns");
  columns->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ChooseColumns(); });

  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  const auto middle = wxSizerFlags().CentreVertical();
  const auto beside = wxSizerFlags(middle).Border(wxLEFT, FromDIP(kGap));
  row->Add(label, middle);
  row->Add(filter_, wxSizerFlags(beside).Proportion(1));
  row->Add(order_label, beside);
  row->Add(order_, beside);
  row->Add(descending_, beside);
  row->Add(columns, beside);
  return row;
}

wxWindow* FrmLibrary::MakeTables(wxPanel* panel)
{
  // Large enough from the start for what stands in it.
  panes_ = new wxSplitterWindow(panel, wxID_ANY, wxDefaultPosition,
                                FromDIP(wxSize(kLeastLibraryWidth, kLeastLibraryHeight)),
                                wxSP_LIVE_UPDATE | wxSP_NOBORDER, "Panes");
  table_ = new wxDataViewCtrl(panes_, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                              wxDV_SINGLE | wxDV_ROW_LINES, wxDefaultValidator, "Setups");
  table_->AssociateModel(lines_.get());
  TellRowsApart(*table_);
  platform::SetSpoken(*table_, "Setups of all installations", kHint);

  auto* const lower = new wxPanel(panes_);
  difference_count_ =
      new wxStaticText(lower, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                       wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE, "DifferenceCount");
  preview_ = new wxDataViewCtrl(lower, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                wxDV_SINGLE | wxDV_ROW_LINES, wxDefaultValidator, "Differences");
  preview_->AssociateModel(differences_.get());
  TellRowsApart(*preview_);
  const auto add = [this](const char* title, unsigned column, int width, wxAlignment alignment) {
    preview_
        ->AppendTextColumn(title, column, wxDATAVIEW_CELL_INERT, ForText(*this, width), alignment)
        ->SetResizeable(true);
  };
  constexpr int kNumber = 130;
  constexpr int kLeastParameter = 200;
  constexpr int kFrame = 30;
  add("Parameter", ComparisonLines::kParameter, kLeastParameter, wxALIGN_LEFT);
  add("Chosen Setup", ComparisonLines::kReference, kNumber, wxALIGN_RIGHT);
  add("Now", ComparisonLines::kNow, kNumber, wxALIGN_RIGHT);
  add("Difference", ComparisonLines::kAdded, kNumber, wxALIGN_RIGHT);
  // Numbers stand together at the right.
  preview_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    const int left = preview_->GetSize().x - ForText(*this, 3 * kNumber + kFrame);
    preview_->GetColumn(0)->SetWidth(std::max(ForText(*this, kLeastParameter), left));
  });
  platform::SetSpoken(*preview_, "What differs from the chosen setup", {});
  auto* const rows = new wxBoxSizer(wxVERTICAL);
  rows->Add(difference_count_, wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM, FromDIP(kGap / 2)));
  rows->Add(preview_, wxSizerFlags().Expand().Proportion(1));
  lower->SetSizer(rows);

  panes_->SetMinimumPaneSize(ForText(*this, kLeastPane));
  panes_->SetSashGravity(kShareOfTable);
  panes_->SplitHorizontally(table_, lower);
  return panes_;
}

wxSizer* FrmLibrary::MakeProgressRow(wxPanel* panel)
{
  progress_ = new wxStaticText(panel, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                               wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE, "Progress");
  stop_ = MakeButton(panel, "Stop", "&Scan Again", "Look for setups again (F5)");
  stop_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { StopOrScan(); });
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(progress_, wxSizerFlags().CentreVertical().Proportion(1));
  row->Add(stop_, wxSizerFlags().Border(wxLEFT, FromDIP(kGap)));
  return row;
}

wxSizer* FrmLibrary::MakeButtons(wxPanel* panel)
{
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  const auto beside = wxSizerFlags().Border(wxRIGHT, FromDIP(kGap));
  const auto add = [&](const char* name, const char* caption, const char* tip,
                       void (FrmLibrary::*pressed)()) {
    auto* const button = MakeButton(panel, name, caption, tip);
    button->Bind(wxEVT_BUTTON, [this, pressed](wxCommandEvent&) { (this->*pressed)(); });
    row->Add(button, beside);
    commands_.push_back(button);
  };
  add("Open", "&Open", "Open the chosen setup (Enter)", &FrmLibrary::Open);
  add("Reference", "Make &Reference", "Compare with the chosen setup (Ctrl+R)",
      &FrmLibrary::CompareWith);
  add("Export", "&Export Text", "Write the chosen setup as readable text beside it (Ctrl+E)",
      &FrmLibrary::Export);
  add("Show", "Sho&w in Folder", "Show the chosen setup in the file manager (Ctrl+B)",
      &FrmLibrary::ShowInFolder);
  row->AddStretchSpacer();
  auto* const close = MakeButton(panel, "CloseButton", "C&lose", "Close this window (Escape)");
  close->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); });
  row->Add(close);
  return row;
}

/// Those of the library, in its order.
void FrmLibrary::MakeColumns()
{
  columns_ = library_.Table().Columns();
  const wxWindowUpdateLocker still(table_);
  table_->ClearColumns();
  for (const int column : columns_) {
    const bool is_value = column >= app::kFirstValueColumn;
    const int width = is_value ? kValueWidth : kWidths.at(static_cast<std::size_t>(column));
    table_
        ->AppendTextColumn(TitleOf(column), static_cast<unsigned>(column), wxDATAVIEW_CELL_INERT,
                           ForText(*this, width), is_value ? wxALIGN_RIGHT : wxALIGN_LEFT,
                           wxDATAVIEW_COL_RESIZABLE)
        ->GetRenderer()
        ->EnableEllipsize(wxELLIPSIZE_END);
  }
}

void FrmLibrary::BindEvents()
{
  filter_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
    library_.Table().SetFilter(platform::ToText(filter_->GetValue()));
    ShowRows();
  });
  filter_->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { Open(); });
  order_->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ChooseOrder(); });
  descending_->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { ChooseOrder(); });
  table_->Bind(wxEVT_DATAVIEW_COLUMN_HEADER_CLICK, [this](wxDataViewEvent& event) {
    if (event.GetDataViewColumn() == nullptr) return;
    library_.Table().Heading_Click(static_cast<int>(event.GetDataViewColumn()->GetModelColumn()));
    ShowRows();
    ShowOrder();
    table_->SetFocus();
  });
  table_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) { TakeSelection(); });
  table_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) { Open(); });
  Bind(wxEVT_CHAR_HOOK, &FrmLibrary::OnKey, this);
  Bind(wxEVT_IDLE, &FrmLibrary::OnIdle, this);
  Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
    event.Skip();
    if (event.IsShown())
      Scan();
    else
      library_.Stop();
  });
  Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
    event.Skip();
    if (event.GetActive() && IsShown() && !library_.IsScanning() && !library_.IsStopped()) Scan();
  });
}

void FrmLibrary::OnKey(wxKeyEvent& event)
{
  const int key = event.GetKeyCode();
  const int with = event.GetModifiers();
  if (key == WXK_ESCAPE && with == wxMOD_NONE && library_.IsScanning())
    StopOrScan();
  else if (key == 'F' && with == wxMOD_CONTROL)
    GoToFilter();
  else if (key == 'R' && with == wxMOD_CONTROL)
    CompareWith();
  else if (key == 'E' && with == wxMOD_CONTROL)
    Export();
  else if (key == 'B' && with == wxMOD_CONTROL)
    ShowInFolder();
  else if (key == WXK_F5 && with == wxMOD_NONE)
    Scan();
  else if (key == WXK_DOWN && with == wxMOD_NONE && filter_->HasFocus())
    GoToTable();
  else if ((key == WXK_RETURN || key == WXK_NUMPAD_ENTER) && with == wxMOD_NONE &&
           table_->HasFocus())
    Open();
  else
    event.Skip();
}

}  // namespace velquist::ui
