// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/System.h"
#include "runner/Driver.h"

namespace velquist::runner {

/// Exit codes of the runner.
inline constexpr int kAllPassed = 0;
inline constexpr int kSomeFailed = 1;
inline constexpr int kNotRead = 2;  ///< a script could not be read, or a wrong command line

enum class Outcome { kPassed, kFailed, kUnreadable };

/// Plays scripts, each in a world of its own.
class Runner {
 public:
  struct Options {
    bool keep = false;                    ///< the directories of passed scripts stay too
    std::filesystem::path program_files;  ///< what ships beside the program
  };

  using MakeDriver = std::function<std::unique_ptr<Driver>()>;

  /// Dumps go to `out`, everything else to `log`.
  Runner(Options options, MakeDriver make_driver, platform::Resources& resources, std::ostream& out,
         std::ostream& log);

  /// `name` is how messages call the script.
  [[nodiscard]] Outcome PlayScript(std::string_view script, const std::string& name);
  /// Plays a script file, or all *.scn files below a directory, and counts.
  void PlayPath(const std::filesystem::path& path);

  /// Prints the closing line; the exit code for all that was counted.
  [[nodiscard]] int Finish();

 private:
  void PlayFile(const std::filesystem::path& path);
  void Count(Outcome outcome);

  Options options_;
  MakeDriver make_driver_;
  platform::Resources& resources_;
  std::ostream& out_;
  std::ostream& log_;
  int passed_ = 0;
  int failed_ = 0;
  bool unreadable_ = false;
};

/// What the command line of the runner says.
struct CommandLine {
  bool window = false;  ///< --ui
  Runner::Options options;
  std::vector<std::filesystem::path> paths;
};

/// Throws std::invalid_argument with a reason. Arguments are UTF-8, without the program's name.
[[nodiscard]] CommandLine ReadCommandLine(const std::vector<std::string>& arguments,
                                          const std::filesystem::path& program_files);

}  // namespace velquist::runner
