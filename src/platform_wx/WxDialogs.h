// SPDX-License-Identifier: MIT
#pragma once

// wx/weakref.h needs it and does not include it.
#include <type_traits>

#include <wx/weakref.h>
#include <wx/window.h>

#include <string>
#include <string_view>

#include "platform/Dialogs.h"

namespace velquist::platform {

/// Boxes on the screen.
class WxDialogs final : public Dialogs {
 public:
  /// The window that boxes stand before; none before it is made and after it has gone.
  void SetOwner(wxWindow* owner) { owner_ = owner; }

  Answer ShowMessage(std::string_view text, Icon icon, Buttons buttons) override;
  std::optional<std::string> AskOpenFile(const OpenRequest& request) override;
  std::optional<std::string> AskSaveFile(const SaveRequest& request) override;

 private:
  wxWeakRef<wxWindow> owner_;
};

}  // namespace velquist::platform
