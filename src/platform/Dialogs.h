// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velquist::platform {

enum class Icon { kInformation, kExclamation, kQuestion, kCritical };
/// Enter means OK, Yes and No in this order; Escape and closing a question mean No.
enum class Buttons { kOk, kYesNo, kNoYes };
enum class Answer { kOk, kYes, kNo };

/// What an open dialog shows. Both open dialogs require an existing file and hide the read-only
/// box.
struct OpenRequest {
  std::string filter;      ///< "Name|*.a;*.b|Name|*.c"
  int filter_index = 1;    ///< preselected filter, counted from 1
  std::string start;       ///< start name (directory and pattern), or empty
  std::string directory;   ///< initial directory when `start` is empty
  std::string title = {};  ///< of the dialog
  /// The game's program is looked for: where the game runs in a Wine prefix, those that exist are
  /// offered, the first instead of `directory`, and hidden directories are shown.
  bool of_game = false;
};

/// What the save dialog shows. It asks before a file is replaced; the one that will be written is
/// WithExtension(chosen name, extension).
struct SaveRequest {
  std::string filter;
  std::string start;       ///< start name (directory and pattern)
  std::string extension;   ///< without dot
  std::string title = {};  ///< of the dialog
};

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

/// What the program may ask and tell. The front end shows boxes; tests script the answers.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  virtual Answer ShowMessage(std::string_view text, Icon icon, Buttons buttons) = 0;

  /// The chosen path, or nothing when the dialog was cancelled.
  virtual std::optional<std::string> AskOpenFile(const OpenRequest& request) = 0;
  virtual std::optional<std::string> AskSaveFile(const SaveRequest& request) = 0;

  /// The pressed button, 0 to 3, or nothing when the form was closed without one.
  virtual std::optional<int> AskModYear(ModYearForm form, std::string_view message) = 0;

  /// Shows the form until its CancelButton is pressed.
  virtual void ShowInstallDelete(InstallDeleteForm& form) = 0;

  /// Shows the help window with the manual.
  virtual void ShowHelp() = 0;
};

}  // namespace velquist::platform
