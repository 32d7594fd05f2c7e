// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Dialogs.h"

namespace velquist::app {

// Titles of the forms.
inline constexpr char kModYearTitle[] = "Mod Year Selection";
inline constexpr char kInstallDeleteTitle[] = "Delete GPL Installation";
inline constexpr char kHelpTitle[] = "Velquist Help";

/// The two mod year questions; each offers the buttons "1965", "1966", "1967" and "1969".
enum class ModYearForm { kFrmModYear1, kFrmModYear2 };

/// What the form for deleting installations shows and does.
class InstallDeleteForm {
 public:
  virtual ~InstallDeleteForm() = default;

  [[nodiscard]] virtual const std::vector<std::string>& Items() const = 0;
  [[nodiscard]] virtual int Selection() const = 0;
  virtual void Combo1_Click(int position) = 0;
  virtual void DeleteButton_Click() = 0;
  /// True when the program has ended meanwhile and the form must close.
  [[nodiscard]] virtual bool MustClose() const = 0;
};

/// What the program may ask and tell, its own forms with it. The front end shows boxes; tests
/// script the answers.
class Dialogs : public platform::Dialogs {
 public:
  /// The pressed button, 0 to 3, or nothing when the form was closed without one.
  virtual std::optional<int> AskModYear(ModYearForm form, std::string_view message) = 0;

  /// Shows the form until its CancelButton is pressed.
  virtual void ShowInstallDelete(InstallDeleteForm& form) = 0;

  /// Shows the help window with the manual.
  virtual void ShowHelp() = 0;
};

}  // namespace velquist::app
