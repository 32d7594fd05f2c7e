// SPDX-License-Identifier: MIT
#pragma once

// wx/weakref.h needs it and does not include it.
#include <type_traits>

#include <wx/weakref.h>
#include <wx/window.h>

#include <string>
#include <string_view>

#include "platform/Dialogs.h"
#include "platform/System.h"
#include "platform_wx/FrmHelp.h"

namespace velquist::platform {

/// The program's boxes on the screen.
class WxDialogs final : public Dialogs {
 public:
  explicit WxDialogs(const Resources& resources) : resources_(resources) {}

  /// The window that boxes stand before; none before it is made and after it has gone.
  void SetOwner(wxWindow* owner) { owner_ = owner; }

  Answer ShowMessage(std::string_view text, Icon icon, Buttons buttons) override;
  std::optional<std::string> AskOpenFile(const OpenRequest& request) override;
  std::optional<std::string> AskSaveFile(const SaveRequest& request) override;
  std::optional<int> AskModYear(ModYearForm form, std::string_view message) override;
  void ShowInstallDelete(InstallDeleteForm& form) override;
  /// The window stays beside the main one; asked for again, it comes to the front.
  void ShowHelp() override;

 private:
  const Resources& resources_;
  wxWeakRef<wxWindow> owner_;
  wxWeakRef<FrmHelp> help_;
};

}  // namespace velquist::platform
