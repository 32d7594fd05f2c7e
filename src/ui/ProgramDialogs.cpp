// SPDX-License-Identifier: MIT
#include "ui/ProgramDialogs.h"

#include "ui/FrmInstallDelete.h"
#include "ui/FrmModYear.h"

namespace velquist::ui {

void ProgramDialogs::SetOwner(wxWindow* owner)
{
  owner_ = owner;
  boxes_.SetOwner(owner);
}

platform::Answer ProgramDialogs::ShowMessage(std::string_view text, platform::Icon icon,
                                             platform::Buttons buttons)
{
  return boxes_.ShowMessage(text, icon, buttons);
}

std::optional<std::string> ProgramDialogs::AskOpenFile(const platform::OpenRequest& request)
{
  return boxes_.AskOpenFile(request);
}

std::optional<std::string> ProgramDialogs::AskSaveFile(const platform::SaveRequest& request)
{
  return boxes_.AskSaveFile(request);
}

std::optional<int> ProgramDialogs::AskModYear(app::ModYearForm form, std::string_view message)
{
  FrmModYear dialog(owner_, form, message);
  return dialog.Ask();
}

void ProgramDialogs::ShowInstallDelete(app::InstallDeleteForm& form)
{
  FrmInstallDelete dialog(owner_, form);
  dialog.ShowModal();
}

void ProgramDialogs::ShowHelp()
{
  if (help_) {
    help_->Iconize(false);
    help_->Raise();
    return;
  }
  help_ = new FrmHelp(owner_, resources_.Help());
  help_->Show();
}

}  // namespace velquist::ui
