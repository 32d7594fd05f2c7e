// SPDX-License-Identifier: MIT
#include "ui/FrmModYear.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <array>

#include "platform_wx/ProgramIcons.h"
#include "platform_wx/WxText.h"
#include "ui/ForText.h"

namespace velquist::ui {
namespace {

constexpr std::array kYears{"196&5", "196&6", "196&7", "196&9"};
constexpr int kMessageWidth = 420;

const char* NameOf(app::ModYearForm form)
{
  return form == app::ModYearForm::kFrmModYear1 ? "FrmModYear1" : "FrmModYear2";
}

}  // namespace

FrmModYear::FrmModYear(wxWindow* parent, app::ModYearForm form, std::string_view message)
    : wxDialog(parent, wxID_ANY, app::kModYearTitle, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE, NameOf(form))
{
  SetIcons(platform::ProgramIcons());
  const int gap = FromDIP(12);
  auto* const label = new wxStaticText(this, wxID_ANY, platform::FromPlainText(message),
                                       wxDefaultPosition, wxDefaultSize, 0, "Label1");
  label->Wrap(ForText(*this, kMessageWidth));
  label->SetMinSize(label->GetBestSize() + FromDIP(wxSize(8, 0)));

  auto* const frame =
      new wxStaticBox(this, wxID_ANY, "Mod Year", wxDefaultPosition, wxDefaultSize, 0, "Frame1");
  auto* const buttons = new wxStaticBoxSizer(frame, wxHORIZONTAL);
  for (std::size_t i = 0; i < kYears.size(); ++i) {
    auto* const button = new wxButton(frame, wxID_ANY, kYears[i], wxDefaultPosition, wxDefaultSize,
                                      0, wxDefaultValidator, wxString::Format("Command1(%zu)", i));
    button->Bind(wxEVT_BUTTON, [this, i](wxCommandEvent&) {
      pressed_ = static_cast<int>(i);
      EndModal(wxID_OK);
    });
    buttons->Add(button, wxSizerFlags(1).Border(wxALL, FromDIP(6)));
  }

  auto* const all = new wxBoxSizer(wxVERTICAL);
  all->Add(label, wxSizerFlags().Border(wxALL, gap));
  all->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  SetSizerAndFit(all);
  CentreOnParent();

  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_ESCAPE)
      EndModal(wxID_CANCEL);
    else
      event.Skip();
  });
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { EndModal(wxID_CANCEL); });
}

std::optional<int> FrmModYear::Ask()
{
  pressed_.reset();
  ShowModal();
  return pressed_;
}

}  // namespace velquist::ui
