// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dialog.h>

#include <optional>
#include <string_view>

#include "app/Dialogs.h"

namespace velquist::ui {

/// Asks for one of the mod years that a file may belong to. Its buttons are `Command1(0)` to
/// `Command1(3)`.
class FrmModYear final : public wxDialog {
 public:
  FrmModYear(wxWindow* parent, app::ModYearForm form, std::string_view message);

  /// The pressed button, 0 to 3, or nothing when the form was closed without one.
  [[nodiscard]] std::optional<int> Ask();

 private:
  std::optional<int> pressed_;
};

}  // namespace velquist::ui
