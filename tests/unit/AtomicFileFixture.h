// SPDX-License-Identifier: MIT
// What the tests of saving share: a file to save over, and saving as another user or in a process
// of its own.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/AtomicFile.h"
#include "platform/Errors.h"
#include "platform/FileReason.h"

namespace velquist::platform {

namespace fs = std::filesystem;
using namespace velquist::samples;

inline constexpr uid_t kNobody = 65534;
inline constexpr std::string_view kShown = "the shown path";

inline std::string Expected(std::errc reason)
{
  return std::string(kShown) + " | " + ReasonOf(std::make_error_code(reason));
}

/// Saves `bytes` and returns the error's "PATH | REASON", or that there was none.
inline std::string Save(const fs::path& target, std::string_view bytes)
{
  try {
    WriteAtomically(target, AsBytes(bytes), kShown);
  } catch (const FileError& error) {
    return error.Path() + " | " + error.Reason();
  }
  return "no error";
}

/// What `action` returns in a child process, whose user, limits and mounts it may change.
inline std::string InChild(const std::function<std::string()>& action)
{
  std::array<int, 2> pipe{};
  if (::pipe(pipe.data()) != 0) throw std::system_error(errno, std::generic_category());
  const pid_t child = ::fork();
  if (child == 0) {
    const auto text = action();
    const bool told =
        ::write(pipe[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::_exit(told ? 0 : 1);
  }
  ::close(pipe[1]);
  std::string text;
  std::array<char, 4096> part{};
  for (ssize_t n = 0; (n = ::read(pipe[0], part.data(), part.size())) > 0;)
    text.append(part.data(), static_cast<std::size_t>(n));
  ::close(pipe[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? text : "child failed";
}

/// Makes `path` belong to the unprivileged user when the tests run as root.
inline void GiveAway(const fs::path& path)
{
  if (::geteuid() == 0 && ::chown(path.c_str(), kNobody, kNobody) != 0)
    throw std::system_error(errno, std::generic_category());
}

/// Saves as a user whom permissions bind.
inline std::string SaveUnprivileged(const fs::path& target, std::string_view bytes)
{
  return InChild([&]() -> std::string {
    if (::geteuid() == 0 && (::setegid(kNobody) != 0 || ::seteuid(kNobody) != 0))
      return "cannot change the user";
    return Save(target, bytes);
  });
}

inline std::uint32_t ModeOf(const fs::path& path)
{
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  return status.st_mode & 07777U;
}

class AtomicWrite : public ::testing::Test {
 protected:
  AtomicWrite() { WriteFile(target, "old bytes"); }

  /// The old file is whole and nothing else is there.
  void ExpectUntouched() const
  {
    EXPECT_EQ(ContentOf(target), "old bytes");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.lo1"});
  }

  TemporaryFolder folder;
  fs::path target = folder / "a.lo1";
};

}  // namespace velquist::platform
