// SPDX-License-Identifier: MIT
#include "cli/Session.h"

#include <ostream>
#include <system_error>
#include <utility>

#include "platform/AtomicFile.h"
#include "platform/Errors.h"
#include "platform/SystemFiles.h"

namespace velquist::cli {

Session::Session(const Console& console, cli::Options options)
    : console_(console),
      options_(std::move(options)),
      program_directory_(options_.program_directory ? *options_.program_directory
                                                    : console_.program_directory()),
      tables_(data_files_, program_directory_),
      shown_at_(std::chrono::steady_clock::now())
{
}

void Session::Tell(std::string_view path, std::string_view reason)
{
  ClearProgress();
  console_.err << "velquist-cli: " << path << ": " << reason << '\n';
  trouble_ = true;
}

void Session::ShowProgress(std::size_t count, std::string_view of_what)
{
  constexpr auto kBetween = std::chrono::milliseconds(100);
  if (!console_.shows_progress) return;
  const auto now = std::chrono::steady_clock::now();
  if (now - shown_at_ < kBetween) return;
  shown_at_ = now;
  progress_stands_ = true;
  console_.err << '\r' << count << ' ' << of_what << std::flush;
}

void Session::ClearProgress()
{
  constexpr std::size_t kLongestProgress = 60;
  if (!std::exchange(progress_stands_, false)) return;
  console_.err << '\r' << std::string(kLongestProgress, ' ') << '\r' << std::flush;
}

bool Session::Interrupted()
{
  if (!was_interrupted_ && console_.interrupted()) {
    ClearProgress();
    console_.err << "velquist-cli: interrupted\n";
    was_interrupted_ = trouble_ = true;
  }
  return was_interrupted_;
}

int Session::Status(int status)
{
  ClearProgress();
  return trouble_ ? kTrouble : status;
}

library::Walk Session::WalkPaths()
{
  return {options_.paths,
          [this](std::string_view path, std::string_view reason) { Tell(path, reason); }};
}

}  // namespace velquist::cli
