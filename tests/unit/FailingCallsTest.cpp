// SPDX-License-Identifier: MIT
// The system's calls of a save: their order, and each of them failing in each way that can be
// expected.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "FailingCalls.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"
#include "platform/AtomicFile.h"
#include "platform/Errors.h"
#include "platform/FileHead.h"
#include "platform/FileReason.h"
#include "platform/SystemFiles.h"

#ifndef _WIN32
#include <sys/stat.h>
#include <sys/xattr.h>

#include "AccessListSample.h"
#endif

namespace velquist::testing {
namespace {

namespace fs = std::filesystem;
using namespace velquist::samples;
using Names = std::vector<std::string>;

#ifdef _WIN32
constexpr std::string_view kWrite = "_write";
#else
constexpr std::string_view kWrite = "write";
#endif

/// With files that have no name until they are whole, and without.
class SystemCallsOfASave : public ::testing::TestWithParam<bool> {
 protected:
  SystemCallsOfASave() { WriteFile(target, "old bytes"); }

  void SetUp() override
  {
    if (!GetParam()) return;
    SystemCalls calls;
    (void)Save(calls, folder / "tried.lo1");
    fs::remove(folder / "tried.lo1");
    if (std::ranges::find(calls.names, "linkat") == calls.names.end())
      GTEST_SKIP() << "no files without a name here";
  }

  /// Saves and returns the reason of the error, or that there was none.
  static std::string Save(SystemCalls& calls, const fs::path& path)
  {
    calls.has_nameless = GetParam();
    try {
      platform::WriteAtomically(path, AsBytes("new bytes"), "the shown path");
    } catch (const FileError& error) {
      return error.Reason();
    }
    return "no error";
  }

  /// Gives the target an access list; false where there are none.
  bool GiveAccessList() const
  {
#ifdef _WIN32
    return false;
#else
    const auto list = AccessList();
    return ::setxattr(target.c_str(), kAccess, list.data(), list.size(), 0) == 0;
#endif
  }

  /// What the folder holds. Wine leaves files that the system made itself while one took another's
  /// place.
  [[nodiscard]] Names Left() const
  {
    auto names = folder.Names();
    std::erase_if(names, [](const auto& name) { return name.starts_with("rf"); });
    return names;
  }

  TemporaryFolder folder;
  fs::path target = folder / "a.lo1";
};

INSTANTIATE_TEST_SUITE_P(WithAndWithoutFilesWithoutAName, SystemCallsOfASave, ::testing::Bool(),
                         [](const auto& test) { return test.param ? "Nameless" : "Named"; });

TEST_P(SystemCallsOfASave, ComeInAnOrderThatNeverLeavesHalfAFile)
{
  SystemCalls calls;
  EXPECT_EQ(Save(calls, target), "no error");
#ifdef _WIN32
  EXPECT_EQ(calls.names,
            (Names{"_wopen", "_write", "SetFileSecurityW", "SetFileInformationByHandle", "_commit",
                   "_close", "ReplaceFileW"}));
#else
  EXPECT_EQ(calls.names,
            GetParam()
                ? (Names{"open nameless", "write", "fchown", "fchmod", "fsync", "linkat", "close",
                         "rename", "open directory", "fsync directory", "close directory"})
                : (Names{"open nameless", "open new", "write", "fchown", "fchmod", "fsync", "close",
                         "rename", "open directory", "fsync directory", "close directory"}));
#endif
}

TEST_P(SystemCallsOfASave, OfANewFileTakeNothingOver)
{
  SystemCalls calls;
  EXPECT_EQ(Save(calls, folder / "new.lo1"), "no error");
#ifdef _WIN32
  EXPECT_EQ(calls.names, (Names{"_wopen", "_write", "_commit", "_close", "MoveFileExW through"}));
#else
  EXPECT_EQ(calls.names,
            GetParam() ? (Names{"open nameless", "write", "fsync", "linkat", "close", "rename",
                                "open directory", "fsync directory", "close directory"})
                       : (Names{"open nameless", "open new", "write", "fsync", "close", "rename",
                                "open directory", "fsync directory", "close directory"}));
#endif
}

TEST_P(SystemCallsOfASave, WriteOnWhereFewBytesAreTakenAtATime)
{
  SystemCalls calls;
  calls.at_once = 2;
  EXPECT_EQ(Save(calls, target), "no error");
  EXPECT_EQ(ContentOf(target), "new bytes");
  EXPECT_EQ(std::ranges::count(calls.names, kWrite), 5);
}

TEST_P(SystemCallsOfASave, ThatFailAreToldAndLeaveTheOldFileWhole)
{
  for (const auto& [name, errors, outcome] : FailingCalls()) {
    if (name.empty() || name.ends_with("read") || name == "fremovexattr" ||
        (name == "fsetxattr" && !GiveAccessList()) || (name == "linkat" && !GetParam()) ||
        (name == "open new" && GetParam()) || name == "MoveFileExW through")
      continue;
    for (const int error : errors) {
      SCOPED_TRACE(std::string(name) + " " + ReasonWhy(name, error).message());
      WriteFile(target, "old bytes");
      GiveAccessList();
      SystemCalls calls;
      calls.failing_name = name;
      calls.failing_times = 1;
      calls.error = error;
      const auto told = Save(calls, target);
      EXPECT_EQ(calls.failing_times, 0U) << "there was no such call";
      const bool is_told = outcome != Outcome::kSaved;
      EXPECT_EQ(told, is_told ? platform::ReasonOf(ReasonWhy(name, error)) : "no error");
      EXPECT_EQ(ContentOf(target), outcome == Outcome::kNotSaved ? "old bytes" : "new bytes");
      EXPECT_EQ(Left(), Names{"a.lo1"});
    }
  }
}

#ifndef _WIN32

TEST_P(SystemCallsOfASave, GiveANewFileTheUsualRights)
{
  const auto before = ::umask(0);
  SystemCalls calls;
  EXPECT_EQ(Save(calls, folder / "new.lo1"), "no error");
  ::umask(before);
  EXPECT_EQ(fs::status(folder / "new.lo1").permissions(), fs::perms(0666));
}

TEST_P(SystemCallsOfASave, AreMadeAgainWhenASignalBreaksThemOff)
{
  Names all;
  {
    SystemCalls calls;
    ASSERT_EQ(Save(calls, target), "no error");
    all = calls.names;
  }
  for (const auto& name : all) {
    SCOPED_TRACE(name);
    WriteFile(target, "old bytes");
    SystemCalls calls;
    calls.failing_name = name;
    calls.failing_times = name.starts_with("close") ? 1 : 3;
    calls.error = EINTR;
    EXPECT_EQ(Save(calls, target), "no error");
    EXPECT_EQ(ContentOf(target), "new bytes");
    EXPECT_EQ(Left(), Names{"a.lo1"});
    EXPECT_EQ(calls.failing_times, 0U);
  }
}

class SystemCallsOfReading : public ::testing::Test {
 protected:
  SystemCallsOfReading() { WriteFile(file, "some bytes"); }

  const TemporaryFolder folder;
  const fs::path file = folder / "a.lo1";
};

TEST_F(SystemCallsOfReading, ReadOnWhereFewBytesComeAtATimeOrASignalBreaksOff)
{
  SystemCalls calls;
  calls.at_once = 3;
  std::vector<std::byte> bytes;
  EXPECT_FALSE(platform::ReadFile(file, bytes));
  EXPECT_EQ(AsText(bytes), "some bytes");
  for (const auto* name : {"open to read", "read", "close to read"}) {
    calls.failing_name = name;
    calls.failing_times = 2;
    calls.error = EINTR;
    EXPECT_FALSE(platform::ReadFile(file, bytes)) << name;
    EXPECT_EQ(AsText(bytes), "some bytes");
  }
}

TEST_F(SystemCallsOfReading, TellWhyAFileCannotBeRead)
{
  SystemCalls calls;
  std::vector<std::byte> bytes;
  for (const auto* name : {"open to read", "read"}) {
    for (const int error : {EIO, ENOMEM, EMFILE}) {
      calls.failing_name = name;
      calls.error = error;
      EXPECT_EQ(platform::ReadFile(file, bytes), ReasonWhy(name, error)) << name;
    }
  }
}

TEST_F(SystemCallsOfReading, TellOfAFileThatEndsBeforeItsLength)
{
  SystemCalls calls;
  calls.at_once = 0;  // as if another program had cut it short meanwhile
  std::vector<std::byte> bytes;
  errno = 0;
  EXPECT_EQ(platform::ReadFile(file, bytes), std::make_error_code(std::errc::io_error));
  platform::FileHead head;
  EXPECT_FALSE(platform::ReadHead(file, 100, head));
  EXPECT_TRUE(head.bytes.empty());
  EXPECT_EQ(head.stamp.size, 10U);
}

TEST_F(SystemCallsOfReading, ReadAHeadOnWhereFewBytesComeAtATimeOrASignalBreaksOff)
{
  SystemCalls calls;
  calls.at_once = 3;
  platform::FileHead head;
  EXPECT_FALSE(platform::ReadHead(file, 8, head));
  EXPECT_EQ(AsText(head.bytes), "some byt");
  for (const auto* name : {"open to read", "read"}) {
    calls.failing_name = name;
    calls.failing_times = 2;
    calls.error = EINTR;
    EXPECT_FALSE(platform::ReadHead(file, 100, head)) << name;
    EXPECT_EQ(AsText(head.bytes), "some bytes");
    calls.failing_times = 1;
    calls.error = EIO;
    EXPECT_EQ(platform::ReadHead(file, 100, head), ReasonWhy(name, EIO)) << name;
  }
}

TEST(SystemCallsOfListing, LookAtEntriesOfWhichTheFileSystemTellsNoKind)
{
  const TemporaryFolder folder;
  fs::create_directory(folder / "directory");
  fs::create_directory_symlink("directory", folder / "link");
  fs::create_symlink("nowhere", folder / "broken");
  WriteFile(folder / "file", "");
  SystemCalls calls;
  for (const bool tells_kinds : {true, false}) {
    calls.tells_kinds = tells_kinds;
    Names names;
    EXPECT_FALSE(platform::ListNames(folder.Path(), platform::Listed::kDirectories,
                                     [&](std::string_view name) {
                                       names.emplace_back(name);
                                       return true;
                                     }));
    std::ranges::sort(names);
    EXPECT_EQ(names, (Names{"directory", "link"}));
  }
}

#endif

}  // namespace
}  // namespace velquist::testing
