// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

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

/// Of a message box.
inline constexpr char kMessageTitle[] = "Velquist";

/// Boxes that tell and ask.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  virtual Answer ShowMessage(std::string_view text, Icon icon, Buttons buttons) = 0;

  /// The chosen path, or nothing when the dialog was cancelled.
  virtual std::optional<std::string> AskOpenFile(const OpenRequest& request) = 0;
  virtual std::optional<std::string> AskSaveFile(const SaveRequest& request) = 0;
};

}  // namespace velquist::platform
