// SPDX-License-Identifier: MIT
#pragma once

// wx/weakref.h needs it and does not include it.
#include <type_traits>

#include <wx/weakref.h>
#include <wx/window.h>

#include <optional>
#include <string>
#include <string_view>

#include "app/Dialogs.h"
#include "platform/System.h"
#include "platform_wx/WxDialogs.h"
#include "ui/FrmHelp.h"

namespace velquist::ui {

/// The system's boxes and the program's own forms on the screen.
class ProgramDialogs final : public app::Dialogs {
 public:
  /// `resources` hold the manual.
  explicit ProgramDialogs(const platform::Resources& resources) : resources_(resources) {}

  /// The window that they stand before; none before it is made and after it has gone.
  void SetOwner(wxWindow* owner);

  platform::Answer ShowMessage(std::string_view text, platform::Icon icon,
                               platform::Buttons buttons) override;
  std::optional<std::string> AskOpenFile(const platform::OpenRequest& request) override;
  std::optional<std::string> AskSaveFile(const platform::SaveRequest& request) override;
  std::optional<int> AskModYear(app::ModYearForm form, std::string_view message) override;
  void ShowInstallDelete(app::InstallDeleteForm& form) override;
  /// The window stays beside the main one; asked for again, it comes to the front.
  void ShowHelp() override;

 private:
  const platform::Resources& resources_;
  platform::WxDialogs boxes_;
  wxWeakRef<wxWindow> owner_;
  wxWeakRef<FrmHelp> help_;
};

}  // namespace velquist::ui
