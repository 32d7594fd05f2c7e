// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

#include "cli/NewFiles.h"
#include "cli/Options.h"
#include "library/Tables.h"
#include "library/Walk.h"
#include "platform/HostFileSystem.h"

namespace velquist::cli {

inline constexpr int kDone = 0;
inline constexpr int kFound = 1;  ///< differences or problems
inline constexpr int kTrouble = 2;

/// Where the program stands.
struct Console {
  std::ostream& out;
  std::ostream& err;
  bool shows_progress = false;                     ///< on `err`
  std::function<bool()> interrupted;               ///< the user wants it to end
  std::function<std::string()> program_directory;  ///< where none is given
};

/// One run of a command: what it uses, and what it tells.
class Session {
 public:
  Session(const Console& console, Options options);

  [[nodiscard]] const cli::Options& Options() const noexcept { return options_; }
  [[nodiscard]] const platform::FileSystem& DataFiles() const noexcept { return data_files_; }
  [[nodiscard]] const std::string& ProgramDirectory() const noexcept { return program_directory_; }
  [[nodiscard]] library::Tables& Tables() noexcept { return tables_; }
  [[nodiscard]] std::ostream& Out() noexcept { return console_.out; }

  /// Trouble: the run goes on and ends with kTrouble.
  void Tell(std::string_view path, std::string_view reason);
  /// Says on a terminal, now and then, how many of something were done.
  void ShowProgress(std::size_t count, std::string_view of_what);
  /// True from when the user wanted to end, which is trouble.
  [[nodiscard]] bool Interrupted();
  /// kTrouble where there was any, else `status`.
  [[nodiscard]] int Status(int status);

  /// Everything below the paths given; what cannot be walked is told.
  [[nodiscard]] library::Walk WalkPaths();
  /// Writes a file as NewFiles says, over one that exists when the user wants that; gives the path.
  std::string WriteNew(const std::string& path, std::span<const std::byte> bytes)
  {
    return new_files_.Write(path, bytes, options_.force);
  }

 private:
  void ClearProgress();

  const Console& console_;
  cli::Options options_;
  platform::HostFileSystem data_files_;
  std::string program_directory_;
  library::Tables tables_;
  NewFiles new_files_;
  std::chrono::steady_clock::time_point shown_at_;
  bool progress_stands_ = false;
  bool was_interrupted_ = false;
  bool trouble_ = false;
};

}  // namespace velquist::cli
