// SPDX-License-Identifier: MIT
#include "ui/FrmCompare.h"

#include <wx/dataobj.h>
#include <wx/utils.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "platform_wx/NativeLook.h"
#include "platform_wx/Spoken.h"
#include "platform_wx/WxText.h"
#include "ui/Clipboard.h"
#include "ui/ForText.h"
#include "ui/MarkColour.h"

namespace velquist::ui {
namespace {

constexpr int kCompareWidth = 620;
constexpr int kCompareHeight = 520;
constexpr int kLeastCompareHeight = 260;

}  // namespace

FrmCompare::FrmCompare(const Setting& setting)
    : SideWindow(setting, &app::MainForm::compare, "Velquist Comparison", "FrmCompare"),
      lines_(new ComparisonLines)
{
  auto* const panel = new wxPanel(this);
  auto* const reference = MakeReferenceRow(panel);
  MakeTable(panel);
  summary_ = new wxStaticText(panel, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxST_NO_AUTORESIZE, "Summary");
  auto* const buttons = MakeButtons(panel);

  auto* const rows = new wxBoxSizer(wxVERTICAL);
  const auto wide = wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap));
  rows->Add(reference, wide);
  rows->Add(table_, wxSizerFlags(wide).Proportion(1).Border(wxLEFT | wxRIGHT, FromDIP(kGap)));
  rows->Add(summary_, wide);
  rows->Add(buttons, wxSizerFlags(wide).Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kGap)));
  panel->SetSizer(rows);

  // Room for the buttons and some rows; at first for many, as far as the main window allows.
  const wxSize least(rows->GetMinSize().x, ForText(*this, kLeastCompareHeight));
  const wxSize usual = ForText(*this, wxSize(kCompareWidth, kCompareHeight));
  const int height = std::clamp(GetParent()->GetSize().y * 3 / 5, least.y, usual.y);
  // The step buttons of the wheels stay in sight.
  TakeSize(wxSize(std::max(least.x, usual.x), height), least, Side::kRight);
  BindEvents();
  table_->SetFocus();
}

wxSizer* FrmCompare::MakeReferenceRow(wxPanel* panel)
{
  auto* const label = new wxStaticText(panel, wxID_ANY, "&Reference:");
  reference_ = new wxChoice(panel, wxID_ANY, wxDefaultPosition, wxSize(ForText(*this, 200), -1), 0,
                            nullptr, 0, wxDefaultValidator, "Reference");
  const wxString tip = "The setup that the current one is compared with";
  reference_->SetToolTip(tip);
  platform::SetSpoken(*reference_, "Reference", tip);
  platform::SetMnemonicTarget(*label, *reference_);
  file_ = MakeButton(panel, "ReferenceFile", "Setup &File...", "Compare with another setup file");
  differences_only_ = new wxCheckBox(panel, wxID_ANY, "&Differences only", wxDefaultPosition,
                                     wxDefaultSize, 0, wxDefaultValidator, "DifferencesOnly");
  differences_only_->SetValue(true);
  differences_only_->SetToolTip("Leave out what is the same in both");

  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  const auto middle = wxSizerFlags().CentreVertical();
  row->Add(label, middle);
  row->Add(reference_, wxSizerFlags(middle).Proportion(1).Border(wxLEFT, FromDIP(kGap)));
  row->Add(file_, wxSizerFlags(middle).Border(wxLEFT, FromDIP(kGap)));
  row->Add(differences_only_, wxSizerFlags(middle).Border(wxLEFT, FromDIP(2 * kGap)));
  return row;
}

void FrmCompare::MakeTable(wxPanel* panel)
{
  table_ = new wxDataViewCtrl(panel, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                              wxDV_MULTIPLE | wxDV_ROW_LINES, wxDefaultValidator, "Comparison");
  table_->AssociateModel(lines_.get());
  TellRowsApart(*table_);
  const auto add = [this](const char* title, unsigned column, int width, wxAlignment alignment) {
    auto* const made = table_->AppendTextColumn(title, column, wxDATAVIEW_CELL_INERT,
                                                ForText(*this, width), alignment);
    made->SetResizeable(true);
  };
  add("Parameter", ComparisonLines::kParameter, 250, wxALIGN_LEFT);
  add("Reference", ComparisonLines::kReference, 110, wxALIGN_RIGHT);
  add("Now", ComparisonLines::kNow, 110, wxALIGN_RIGHT);
  add("Difference", ComparisonLines::kAdded, 90, wxALIGN_RIGHT);
  platform::SetSpoken(*table_, "Comparison with the reference", {});
}

wxSizer* FrmCompare::MakeButtons(wxPanel* panel)
{
  take_selected_ = MakeButton(panel, "TakeSelected", "Take &Selected",
                              "Take the reference's values of the selected rows (Delete)");
  take_group_ = MakeButton(panel, "TakeGroup", "Take &Group",
                           "Take the reference's values of the selected rows' whole groups");
  take_all_ = MakeButton(panel, "TakeAll", "Take &All", "Take all values of the reference");
  copy_ = MakeButton(panel, "Copy", "&Copy", "Copy the rows shown as a table (Ctrl+C)");
  auto* const close = MakeButton(panel, "CloseButton", "C&lose", "Close this window (Escape)");
  close->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); });

  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  const auto beside = wxSizerFlags().Border(wxRIGHT, FromDIP(kGap));
  row->Add(take_selected_, beside);
  row->Add(take_group_, beside);
  row->Add(take_all_, beside);
  row->AddStretchSpacer();
  row->Add(copy_, beside);
  row->Add(close);
  return row;
}

void FrmCompare::BindEvents()
{
  reference_->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
    constexpr std::array<std::string_view, 2> kItems = {"MnuReferenceLoaded",
                                                        "MnuReferenceDefault"};
    const auto chosen = static_cast<std::size_t>(event.GetSelection());
    if (chosen < kItems.size()) Choose(kItems.at(chosen));
  });
  file_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Choose("MnuReferenceFile"); });
  differences_only_->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { BringInLine(); });
  table_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) { EnableButtons(); });
  table_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED,
               [this](wxDataViewEvent&) { Take(SelectedSlots(false)); });
  take_selected_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Take(SelectedSlots(false)); });
  take_group_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Take(SelectedSlots(true)); });
  take_all_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    std::vector<int> slots;
    for (const auto& row : lines_->Rows())
      if (row.differs) slots.push_back(row.slot);
    Take(slots);
  });
  copy_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Copy(); });
  Bind(wxEVT_CHAR_HOOK, &FrmCompare::OnKey, this);
}

void FrmCompare::OnKey(wxKeyEvent& event)
{
  const int key = event.GetKeyCode();
  const int with = event.GetModifiers();
  if (key == 'C' && with == wxMOD_CONTROL)
    Copy();
  else if (key == 'A' && with == wxMOD_CONTROL && TableHasFocus())
    table_->SelectAll();
  else if (key == WXK_DELETE && with == wxMOD_NONE && TableHasFocus())
    Take(SelectedSlots(false));
  else
    event.Skip();
}

void FrmCompare::BringInLine()
{
  ShowReference();
  ShowRows();
  ShowSummary();
  EnableButtons();
}

/// The file is in the list while it is the reference.
void FrmCompare::ShowReference()
{
  const auto& reference = Program().Car().ComparedWith();
  wxArrayString items;
  items.Add("Setup as loaded");
  items.Add("Default setup");
  if (reference.source == edit::ReferenceSource::kFile)
    items.Add(platform::FromText(app::ReferenceName(Program())));
  if (reference_->GetStrings() != items) {
    platform::SetItems(*reference_, items);
    reference_->GetParent()->Layout();  // as high as its items
  }
  const int source = static_cast<int>(reference.source);
  if (reference_->GetSelection() != source) reference_->SetSelection(source);
}

void FrmCompare::ShowRows()
{
  std::vector<ComparisonLines::Mark> marks;
  for (const auto line : SelectedLines()) marks.push_back(lines_->MarkOf(line));
  const auto which =
      differences_only_->GetValue() ? app::ComparedRows::kDifferences : app::ComparedRows::kAll;
  if (lines_->Show(app::ComparisonTable(Program(), which))) Select(marks);
}

void FrmCompare::ShowSummary()
{
  const int count = Program().Form().DifferenceCount();
  const wxString name = platform::FromText(app::ReferenceName(Program()));
  const wxString text = count == 0   ? "Nothing differs from " + name
                        : count == 1 ? "1 value differs from " + name
                                     : wxString::Format("%d values differ from ", count) + name;
  if (summary_->GetLabelText() != text) summary_->SetLabelText(text);
}

void FrmCompare::EnableButtons()
{
  auto* const focused = wxWindow::FindFocus();
  take_selected_->Enable(!SelectedSlots(false).empty());
  take_group_->Enable(!SelectedSlots(true).empty());
  take_all_->Enable(Program().Form().DifferenceCount() > 0);
  copy_->Enable(!lines_->Rows().empty());
  // A button that cannot be pressed any more must not keep the focus.
  if (focused != nullptr && IsDescendant(focused) && !focused->IsEnabled()) table_->SetFocus();
}

void FrmCompare::Choose(std::string_view item)
{
  const wxBusyCursor busy;  // a setup is read; a box on the screen suspends it
  GiveEvent([&] { Program().Click(item); });
  ShowReference();  // which is as it was where the user has thought better of it
}

std::vector<unsigned> FrmCompare::SelectedLines() const
{
  wxDataViewItemArray items;
  table_->GetSelections(items);
  std::vector<unsigned> lines;
  for (const auto& item : items) lines.push_back(lines_->GetRow(item));
  std::ranges::sort(lines);
  return lines;
}

void FrmCompare::Select(const std::vector<ComparisonLines::Mark>& marks)
{
  table_->UnselectAll();
  if (lines_->GetCount() == 0) return;
  for (const auto& mark : marks) table_->Select(lines_->GetItem(lines_->Find(mark)));
  if (!marks.empty()) {
    const auto first = lines_->GetItem(lines_->Find(marks.front()));
    table_->SetCurrentItem(first);
    table_->EnsureVisible(first);
  }
}

std::vector<int> FrmCompare::SelectedSlots(bool whole_groups) const
{
  std::vector<int> slots;
  for (const auto line : SelectedLines()) {
    const auto more =
        whole_groups ? lines_->DifferingSlotsOfGroup(line) : lines_->DifferingSlots(line);
    slots.insert(slots.end(), more.begin(), more.end());
  }
  std::ranges::sort(slots);
  slots.erase(std::unique(slots.begin(), slots.end()), slots.end());
  return slots;
}

void FrmCompare::Take(const std::vector<int>& slots)
{
  if (!slots.empty()) GiveEvent([&] { Program().TakeFromReference(slots); });
}

bool FrmCompare::TableHasFocus() const
{
  auto* const focused = wxWindow::FindFocus();
  return focused != nullptr && (focused == table_ || table_->IsDescendant(focused));
}

void FrmCompare::Copy()
{
  const auto name = app::ReferenceName(Program());
  const auto& rows = lines_->Rows();
  auto copied = std::make_unique<wxDataObjectComposite>();
  copied->Add(new wxTextDataObject(platform::FromText(app::ComparisonText(rows, name))), true);
  copied->Add(new wxHTMLDataObject(platform::FromText(app::ComparisonHtml(rows, name))));
  ui::Copy(std::move(copied));
}

}  // namespace velquist::ui
