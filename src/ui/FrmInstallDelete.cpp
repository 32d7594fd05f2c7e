// SPDX-License-Identifier: MIT
#include "ui/FrmInstallDelete.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "platform_wx/NativeLook.h"
#include "platform_wx/ProgramIcons.h"
#include "platform_wx/Spoken.h"
#include "platform_wx/WxText.h"
#include "ui/ForText.h"

namespace velquist::ui {
namespace {

constexpr int kListWidth = 420;

}  // namespace

FrmInstallDelete::FrmInstallDelete(wxWindow* parent, app::InstallDeleteForm& form)
    : wxDialog(parent, wxID_ANY, app::kInstallDeleteTitle, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "FrmInstallDelete"),
      form_(form)
{
  SetIcons(platform::ProgramIcons());
  const int gap = FromDIP(12);
  auto* const label = new wxStaticText(this, wxID_ANY, "&Installation to take off the list:");
  list_ = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxSize(ForText(*this, kListWidth), -1), 0,
                       nullptr, 0, wxDefaultValidator, "Combo1");
  platform::SetMnemonicTarget(*label, *list_);
  platform::SetSpoken(*list_, "Installation to take off the list", {});
  auto* const remark = new wxStaticText(this, wxID_ANY, "Nothing is deleted from your disk.");
  auto* const remove = new wxButton(this, wxID_ANY, "&Delete", wxDefaultPosition, wxDefaultSize, 0,
                                    wxDefaultValidator, "DeleteButton");
  auto* const leave = new wxButton(this, wxID_CANCEL, "&Close", wxDefaultPosition, wxDefaultSize, 0,
                                   wxDefaultValidator, "CancelButton");
  remove->SetToolTip("Takes the chosen installation off the list");

  list_->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
    form_.Combo1_Click(event.GetInt());
    ShowForm();
  });
  remove->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    form_.DeleteButton_Click();
    ShowForm();
  });
  leave->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { EndModal(wxID_CANCEL); });
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { EndModal(wxID_CANCEL); });

  auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->AddStretchSpacer();
  buttons->Add(remove, wxSizerFlags().Border(wxRIGHT, FromDIP(6)));
  buttons->Add(leave);
  auto* const all = new wxBoxSizer(wxVERTICAL);
  all->Add(label, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  all->Add(list_, wxSizerFlags().Expand().Border(wxALL, gap));
  all->Add(remark, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  all->AddStretchSpacer();
  all->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  SetSizerAndFit(all);
  CentreOnParent();
  ShowForm();
}

void FrmInstallDelete::ShowForm()
{
  wxArrayString items;
  for (const auto& item : form_.Items()) items.Add(platform::FromText(item));
  if (items != list_->GetStrings()) platform::SetItems(*list_, items);
  if (list_->GetSelection() != form_.Selection()) list_->SetSelection(form_.Selection());
  if (IsModal() && form_.MustClose()) EndModal(wxID_CANCEL);
}

}  // namespace velquist::ui
