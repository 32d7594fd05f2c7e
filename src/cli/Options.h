// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "edit/Display.h"
#include "library/Identity.h"
#include "setup/Layouts.h"

namespace velquist::cli {

enum class Command { kShow, kCompare, kList, kCheck, kExport, kConvert, kGearing, kSheet };

enum class Form { kPlain, kJson, kCsv };

/// What the program was told to do.
struct Options {
  Command command = Command::kShow;
  std::vector<std::string> paths;  ///< one at least
  Form form = Form::kPlain;
  library::Hints hints;
  int units = edit::kEnglish;
  std::optional<std::string> program_directory;
  std::optional<std::string> to;                 ///< directory or file that is written
  std::optional<std::string> reference;          ///< setup that a sheet tells the differences from
  setup::Layout layout = setup::Layout::kShort;  ///< that is wanted
  bool force = false;                            ///< write over what exists
};

/// What is said instead of doing anything.
struct Answer {
  std::string text;
  bool is_help = false;  ///< that was asked for; else what is wrong with the words
};

/// Reads the words behind the program's name. Nothing but an answer, when there is one, counts.
[[nodiscard]] std::optional<Answer> ReadOptions(const std::vector<std::string>& words,
                                                Options& options);

}  // namespace velquist::cli
