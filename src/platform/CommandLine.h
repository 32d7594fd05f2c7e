// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velquist::platform {

/// A place on the screen, pixels from its top left corner.
struct ScreenPlace {
  int left = 0;
  int top = 0;
  friend bool operator==(const ScreenPlace&, const ScreenPlace&) = default;
};

/// What the program was started with: the path of one setup file or nothing and, in front of it,
/// the options --program-directory=DIRECTORY and --window-at=LEFT,TOP in any order.
struct CommandLine {
  std::string text;  ///< the path as it was given, blanks included
  std::optional<std::string> program_directory;
  std::optional<ScreenPlace> window_at;
};

/// For systems that pass single words: the words of the path are joined with blanks.
[[nodiscard]] CommandLine FromWords(const std::vector<std::string>& words);

/// For systems that pass one text: `text` is what stands behind the program's name. A pair of
/// quotes around the path is taken off.
[[nodiscard]] CommandLine FromWholeText(std::string_view text);

/// A path relative to the directory that the program was started in, made whole; others as they
/// are.
[[nodiscard]] std::string WholePath(std::string text);

/// The command line of this process, its path made whole.
[[nodiscard]] CommandLine ReadCommandLine(int argc, char** argv);

}  // namespace velquist::platform
