// SPDX-License-Identifier: MIT
#include "ui/FrmHelp.h"

#include <wx/sizer.h>

#include <algorithm>

#include "app/Dialogs.h"
#include "platform_wx/NativeLook.h"
#include "platform_wx/ProgramIcons.h"
#include "platform_wx/Spoken.h"
#include "platform_wx/WxText.h"
#include "ui/FitToDesktop.h"
#include "ui/ForText.h"
#include "ui/ManualStyle.h"

namespace velquist::ui {
namespace {

// Client area and text box as designed; a resize keeps the proportions.
constexpr int kHelpWidth = 820;
constexpr int kHelpHeight = 620;
constexpr int kLeastHelpWidth = 200;
constexpr int kLeastHelpHeight = 120;
constexpr int kTextLeft = 10;
constexpr int kTextTop = 10;
constexpr int kTextWidth = kHelpWidth - 2 * kTextLeft;
constexpr int kTextHeight = kHelpHeight - 2 * kTextTop;

int Scaled(int design, int now, int designed_whole)
{
  return design * now / designed_whole;
}

}  // namespace

FrmHelp::FrmHelp(wxWindow* parent, std::string_view manual)
    : wxFrame(parent, wxID_ANY, app::kHelpTitle, wxDefaultPosition, wxDefaultSize,
              wxDEFAULT_FRAME_STYLE, "FrmHelp")
{
  SetIcons(platform::ProgramIcons());
  panel_ = new wxPanel(this);
  text_ = new wxTextCtrl(panel_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                         wxTE_MULTILINE | wxTE_READONLY | wxTE_RICH2 | wxTE_NOHIDESEL,
                         wxDefaultValidator, "Text1");
  platform::SetSpoken(*text_, "User manual", {});
  text_->Hide();
  text_->ChangeValue(platform::FromText(manual));
  StyleManual(*text_);
  text_->Show();
  text_->SetInsertionPoint(0);
  text_->ShowPosition(0);
  searched_ = text_->GetValue().Lower();

  MakeSearchBar();
  BindKeys();
  panel_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    PlaceControls();
    event.Skip();
  });
  // Smaller than this the toolkit has no room for the scroll bar.
  SetMinClientSize(FromDIP(wxSize(kLeastHelpWidth, kLeastHelpHeight)));
  platform::SetFirstClientSize(*this, ForText(*this, wxSize(kHelpWidth, kHelpHeight)));
  FitToDesktop(*this);
  ShowSearchBar(false);
  if (parent != nullptr)
    CentreOnParent();
  else
    CentreOnScreen();
}

void FrmHelp::MakeSearchBar()
{
  bar_ = new wxPanel(panel_);
  auto* const label = new wxStaticText(bar_, wxID_ANY, "F&ind:");
  wanted_ =
      new wxTextCtrl(bar_, wxID_ANY, wxString(), wxDefaultPosition, wxSize(ForText(*this, 220), -1),
                     wxTE_PROCESS_ENTER, wxDefaultValidator, "FindText");
  platform::SetMnemonicTarget(*label, *wanted_);
  platform::SetSpoken(*wanted_, "Find", {});
  auto* const next = new wxButton(bar_, wxID_ANY, "&Next", wxDefaultPosition, wxDefaultSize, 0,
                                  wxDefaultValidator, "FindNext");
  next->SetToolTip("Goes to the next place (Enter or F3)");
  auto* const previous = new wxButton(bar_, wxID_ANY, "&Previous", wxDefaultPosition, wxDefaultSize,
                                      0, wxDefaultValidator, "FindPrevious");
  previous->SetToolTip("Goes to the place before (Shift+F3)");
  result_ = new wxStaticText(bar_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                             wxST_NO_AUTORESIZE, "FindResult");

  wanted_->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { FindNext(true); });
  next->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { FindNext(true); });
  previous->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { FindNext(false); });

  const auto beside = wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(8));
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(label, beside);
  row->Add(wanted_, beside);
  row->Add(next, beside);
  row->Add(previous, beside);
  row->Add(result_, wxSizerFlags(beside).Proportion(1));
  bar_->SetSizerAndFit(row);
}

void FrmHelp::BindKeys()
{
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if (key == WXK_ESCAPE) {
      if (bar_->IsShown())
        ShowSearchBar(false);
      else
        Close();
    } else if (key == 'F' && event.GetModifiers() == wxMOD_CONTROL) {
      ShowSearchBar(true);
    } else if (key == WXK_F3) {
      if (!bar_->IsShown()) ShowSearchBar(true);
      if (!wanted_->IsEmpty()) FindNext(!event.ShiftDown());
    } else {
      event.Skip();
    }
  });
}

void FrmHelp::ShowSearchBar(bool shown)
{
  bar_->Show(shown);
  PlaceControls();
  if (shown) {
    wanted_->SetFocus();
    wanted_->SelectAll();
  } else {
    text_->SetFocus();
  }
}

void FrmHelp::FindNext(bool forward)
{
  const wxString wanted = wanted_->GetValue().Lower();
  if (wanted.empty()) return;
  long from = 0;
  long to = 0;
  text_->GetSelection(&from, &to);
  // The field that is searched for takes the selection from what was found when it is opened anew.
  const bool dropped = from == to && found_ != kNowhere && (from == found_ || from == found_end_);
  const auto start = static_cast<std::size_t>(dropped ? found_ : from);
  const auto again = from == to && !dropped ? start : start + 1;
  std::size_t found = wxString::npos;
  if (forward) {
    found = searched_.find(wanted, again);
    if (found == wxString::npos) found = searched_.find(wanted);
  } else {
    if (start > 0) found = searched_.rfind(wanted, start - 1);
    if (found == wxString::npos) found = searched_.rfind(wanted);
  }
  if (found == wxString::npos) {
    result_->SetLabel("Not found");
    return;
  }
  result_->SetLabel(wxString());
  const auto begin = static_cast<long>(found);
  found_ = begin;
  found_end_ = begin + static_cast<long>(wanted.length());
  text_->SetSelection(found_, found_end_);
  text_->ShowPosition(begin);
}

void FrmHelp::PlaceControls()
{
  const wxSize client = panel_->GetClientSize();
  const wxSize design = FromDIP(wxSize(kHelpWidth, kHelpHeight));
  const wxPoint corner = FromDIP(wxPoint(kTextLeft, kTextTop));
  const wxSize extent = FromDIP(wxSize(kTextWidth, kTextHeight));
  wxRect text(Scaled(corner.x, client.x, design.x), Scaled(corner.y, client.y, design.y),
              Scaled(extent.x, client.x, design.x), Scaled(extent.y, client.y, design.y));
  if (bar_->IsShown()) {
    const int height = bar_->GetBestSize().y;
    bar_->SetSize(0, client.y - height - text.y, client.x, height);
    text.height -= height + text.y;
  }
  text_->SetSize(text.x, text.y, std::max(text.width, 1), std::max(text.height, 1));
}

}  // namespace velquist::ui
