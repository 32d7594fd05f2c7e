// SPDX-License-Identifier: MIT
// Temporary files that a killed program leaves go away at a later save in their directory.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/AtomicFile.h"
#include "platform/Errors.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;
using namespace velquist::samples;
using namespace std::chrono_literals;

constexpr unsigned long kGone = 99'999;

class Leftovers : public ::testing::Test {
 protected:
  Leftovers()
  {
    calls.is_running = [](unsigned long process) { return process != kGone; };
  }

  void Put(const std::string& name, std::chrono::seconds age = 2min) const
  {
    WriteFile(folder / name, "left");
    fs::last_write_time(folder / name, fs::file_time_type::clock::now() - age);
  }

  /// What the directory holds beside the saved file after a save.
  [[nodiscard]] std::vector<std::string> AfterASave() const
  {
    WriteAtomically(folder / "a.lo1", AsBytes("new"), "the shown path", calls);
    auto names = folder.Names();
    std::erase(names, "a.lo1");
    return names;
  }

  TemporaryFolder folder;
  SaveCalls calls = SystemSaveCalls();
};

using Names = std::vector<std::string>;

TEST_F(Leftovers, OfAnEndedProgramAreRemoved)
{
  for (const auto* name : {".velquist-99999-0", ".velquist-99999-7", ".velquist-99999-99"})
    Put(name);
  EXPECT_EQ(AfterASave(), Names{});
}

TEST_F(Leftovers, OfARunningProgramStay)
{
  Put(".velquist-77777-0");
  EXPECT_EQ(AfterASave(), Names{".velquist-77777-0"});
}

TEST_F(Leftovers, OfTheLastMinuteStay)
{
  Put(".velquist-99999-0", 40s);
  Put(".velquist-99999-1", -2min);
  EXPECT_EQ(AfterASave(), (Names{".velquist-99999-0", ".velquist-99999-1"}));
}

TEST_F(Leftovers, AreOnlyWhatIsNamedExactlyLikeThem)
{
  Names others = {".velquist-99999",       ".velquist-99999-",
                  ".velquist-99999-0.lo1", ".velquist-99999-0-0",
                  ".velquist--0",          ".velquist-99999-x",
                  ".velquist-099999-0",    ".velquist-99999-00",
                  ".velquist-99999-100",   ".velquist- 99999-0",
                  ".velquist-+99999-0",    "velquist-99999-0",
                  "x.velquist-99999-0",    ".velquist-99999999999999999999999-0",
                  ".velquist-99999-0 ~",   ".velquist-0-0"};
  for (const auto& name : others) Put(name);
  std::ranges::sort(others);
  EXPECT_EQ(AfterASave(), others);
}

TEST_F(Leftovers, AreNeverDirectories)
{
  fs::create_directory(folder / ".velquist-99999-0");
  // Windows lets no one set the time of a directory; there it is one that was made just now.
  std::error_code refused;
  fs::last_write_time(folder / ".velquist-99999-0", fs::file_time_type::clock::now() - 2min,
                      refused);
  EXPECT_EQ(AfterASave(), Names{".velquist-99999-0"});
}

TEST_F(Leftovers, ThatCannotBeRemovedDoNotMatter)
{
  Put(".velquist-99999-0");
  calls.remove = [](const fs::path&) { return std::make_error_code(std::errc::io_error); };
  EXPECT_EQ(AfterASave(), Names{".velquist-99999-0"});
  EXPECT_EQ(ContentOf(folder / "a.lo1"), "new");
}

#ifndef _WIN32

TEST_F(Leftovers, AreNeverLinksOrWhatTheyLeadTo)
{
  Put("old.lo1");
  fs::create_symlink("old.lo1", folder / ".velquist-99999-0");
  EXPECT_EQ(AfterASave(), (Names{".velquist-99999-0", "old.lo1"}));
}

TEST_F(Leftovers, OfAProcessThatReallyEndedAreToldFromThisOnes)
{
  const auto is_running = SystemSaveCalls().is_running;
  EXPECT_TRUE(is_running(ProcessNumber()));
  EXPECT_TRUE(is_running(1)) << "another user's";
  const pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  ASSERT_EQ(::waitpid(child, nullptr, 0), child);
  EXPECT_FALSE(is_running(static_cast<unsigned long>(child)));
}

#endif

}  // namespace
}  // namespace velquist::platform
