// SPDX-License-Identifier: MIT
#include "ui/FrmColumns.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "platform_wx/NativeLook.h"
#include "platform_wx/Spoken.h"
#include "ui/ForText.h"

namespace velquist::ui {

FrmColumns::FrmColumns(wxWindow* parent, const wxArrayString& names,
                       const std::vector<int>& checked)
    : wxDialog(parent, wxID_ANY, "Columns", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "FrmColumns")
{
  auto* const label = new wxStaticText(this, wxID_ANY, "&Values to show as columns:");
  list_ = new wxCheckListBox(this, wxID_ANY, wxDefaultPosition, ForText(*this, wxSize(320, 360)),
                             names, 0, wxDefaultValidator, "Values");
  for (const int place : checked) list_->Check(static_cast<unsigned>(place));
  if (!names.empty()) list_->SetSelection(checked.empty() ? 0 : checked.front());
  platform::SetSpoken(*list_, "Values to show as columns", "Space chooses one");
  platform::SetMnemonicTarget(*label, *list_);

  // The toolkit takes no notice of the first one.
  list_->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    const int chosen = list_->GetSelection();
    if (event.GetKeyCode() != WXK_SPACE || chosen == wxNOT_FOUND) return event.Skip();
    list_->Check(static_cast<unsigned>(chosen), !list_->IsChecked(static_cast<unsigned>(chosen)));
  });
  auto* const none = new wxButton(this, wxID_ANY, "&None", wxDefaultPosition, wxDefaultSize, 0,
                                  wxDefaultValidator, "None");
  none->SetToolTip("Show no values");
  none->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    for (unsigned place = 0; place < list_->GetCount(); ++place) list_->Check(place, false);
  });
  auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->Add(none);
  buttons->AddStretchSpacer();
  buttons->Add(CreateButtonSizer(wxOK | wxCANCEL));

  auto* const rows = new wxBoxSizer(wxVERTICAL);
  const auto wide = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(kGap));
  rows->Add(label, wide);
  rows->Add(list_, wxSizerFlags(wide).Proportion(1));
  rows->Add(buttons, wxSizerFlags(wide).Border(wxALL, FromDIP(kGap)));
  SetSizerAndFit(rows);
  CentreOnParent();
  list_->SetFocus();
}

std::vector<int> FrmColumns::Checked() const
{
  wxArrayInt checked;
  list_->GetCheckedItems(checked);
  return {checked.begin(), checked.end()};
}

}  // namespace velquist::ui
