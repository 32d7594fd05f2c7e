// SPDX-License-Identifier: MIT
// The steps of a save: their order, and each of them failing in each way that can be expected.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/AtomicFile.h"
#include "platform/Errors.h"
#include "platform/FileReason.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;
using namespace velquist::samples;
using Steps = std::vector<std::string>;

constexpr std::string_view kShown = "the shown path";

#ifdef _WIN32
constexpr std::array kErrors = {ENOSPC, EIO, EROFS, ENOENT, EACCES, ENOMEM};
#else
constexpr std::array kErrors = {ENOSPC, EIO, EROFS, EDQUOT, ENOENT, EACCES, ENOMEM};
#endif

/// The system's calls, each written down; the one that is named fails so many times.
class WatchedCalls {
 public:
  std::string failing;
  int error = 0;
  int times = 1'000'000;
  bool nameless = true;        ///< the system has files without a name
  std::size_t at_once = 1000;  ///< bytes that one call writes at most
  Steps steps;

  [[nodiscard]] SaveCalls Calls()
  {
    const auto system = SystemSaveCalls();
    SaveCalls calls = system;
    calls.open_nameless = [this, system](const fs::path& directory, int& file) {
      if (!nameless) return std::make_error_code(std::errc::operation_not_supported);
      return Do("open_nameless", [&] { return system.open_nameless(directory, file); });
    };
    calls.write = [this, system](int file, std::span<const std::byte> bytes, std::size_t& written) {
      return Do("write", [&] {
        return system.write(file, bytes.first(std::min(bytes.size(), at_once)), written);
      });
    };
    Watch("open_new", calls.open_new);
    Watch("keep_owner", calls.keep_owner);
    Watch("keep_rights", calls.keep_rights);
    Watch("keep_access_list", calls.keep_access_list);
    Watch("keep_attributes", calls.keep_attributes);
    Watch("flush", calls.flush);
    Watch("give_name", calls.give_name);
    Watch("rename", calls.rename);
    Watch("flush_directory", calls.flush_directory);
    Watch("remove", calls.remove);
    calls.close = [this, system](int file) {
      steps.emplace_back("close");
      const auto closed = system.close(file);
      return failing == "close" ? std::error_code(error, std::generic_category()) : closed;
    };
    return calls;
  }

 private:
  template <class Call>
  std::error_code Do(std::string_view name, const Call& call)
  {
    steps.emplace_back(name);
    if (failing != name || times == 0) return call();
    --times;
    return {error, std::generic_category()};
  }

  template <class... Arguments>
  void Watch(std::string_view name, std::function<std::error_code(Arguments...)>& watched)
  {
    watched = [this, name, call = watched](Arguments... arguments) {
      return Do(name, [&] { return call(arguments...); });
    };
  }
};

class SaveSteps : public ::testing::TestWithParam<bool> {
 protected:
  SaveSteps()
  {
    WriteFile(target, "old bytes");
    calls.nameless = GetParam();
    if (!GetParam()) return;
    int file = -1;
    const auto system = SystemSaveCalls();
    supported = !system.open_nameless(folder.Path(), file);
    if (supported) (void)system.close(file);
  }
  void SetUp() override
  {
    if (!supported) GTEST_SKIP() << "this file system has no files without a name";
  }

  /// Saves and returns the reason of the error, or that there was none.
  std::string Save(const fs::path& path, std::string_view bytes = "new bytes")
  {
    try {
      WriteAtomically(path, AsBytes(bytes), kShown, calls.Calls());
    } catch (const FileError& error) {
      EXPECT_EQ(error.Path(), kShown);
      return error.Reason();
    }
    return "no error";
  }

  TemporaryFolder folder;
  fs::path target = folder / "a.lo1";
  WatchedCalls calls;
  bool supported = true;
};

INSTANTIATE_TEST_SUITE_P(WithAndWithoutFilesWithoutAName, SaveSteps, ::testing::Bool(),
                         [](const auto& test) { return test.param ? "Nameless" : "Named"; });

TEST_P(SaveSteps, ComeInAnOrderThatNeverLeavesHalfAFile)
{
  EXPECT_EQ(Save(target), "no error");
  EXPECT_EQ(
      calls.steps,
      GetParam()
          ? (Steps{"open_nameless", "write", "keep_owner", "keep_rights", "keep_access_list",
                   "keep_attributes", "flush", "give_name", "close", "rename", "flush_directory"})
          : (Steps{"open_new", "write", "keep_owner", "keep_rights", "keep_access_list",
                   "keep_attributes", "flush", "close", "rename", "flush_directory"}));
}

TEST_P(SaveSteps, WriteOnWhereTheSystemTakesAFewBytesAtATime)
{
  calls.at_once = 2;
  EXPECT_EQ(Save(target, "seven b"), "no error");
  EXPECT_EQ(ContentOf(target), "seven b");
  EXPECT_EQ(std::ranges::count(calls.steps, "write"), 4);
}

TEST_P(SaveSteps, ThatFailAreToldAndLeaveTheOldFileAlone)
{
  const Steps told = {"write", "keep_owner",      "keep_rights", "keep_access_list",
                      "flush", "keep_attributes", "close",       "rename"};
  for (const auto& step : told) {
    for (const int error : kErrors) {
      SCOPED_TRACE(step + " " + std::to_string(error));
      calls.failing = step;
      calls.error = error;
      calls.times = 1'000'000;
      for (const auto* name : {"a.lo1", "new.lo1"})
        EXPECT_EQ(Save(folder / name), ReasonOf({error, std::generic_category()}));
      EXPECT_EQ(ContentOf(target), "old bytes");
      EXPECT_EQ(folder.Names(), Steps{"a.lo1"});
    }
  }
}

TEST_P(SaveSteps, ThatFailHalfWayThroughTheBytesLeaveTheOldFileAlone)
{
  calls.at_once = 4;
  auto watched = calls.Calls();
  int left = 1;
  watched.write = [&, write = watched.write](int file, std::span<const std::byte> bytes,
                                             std::size_t& written) {
    return left-- > 0 ? write(file, bytes, written)
                      : std::make_error_code(std::errc::no_space_on_device);
  };
  EXPECT_THROW(WriteAtomically(target, AsBytes("new bytes"), kShown, watched), FileError);
  EXPECT_EQ(ContentOf(target), "old bytes");
  EXPECT_EQ(folder.Names(), Steps{"a.lo1"});
}

TEST_P(SaveSteps, ThatWriteNothingEndInAnError)
{
  auto watched = calls.Calls();
  watched.write = [](int, std::span<const std::byte>, std::size_t& written) {
    written = 0;
    return std::error_code{};
  };
  EXPECT_THROW(WriteAtomically(target, AsBytes("new bytes"), kShown, watched), FileError);
  EXPECT_EQ(ContentOf(target), "old bytes");
  EXPECT_EQ(folder.Names(), Steps{"a.lo1"});
}

TEST_P(SaveSteps, ThatASignalBreaksOffAreTakenAgain)
{
  for (const auto* step :
       {"open_nameless", "open_new", "write", "keep_owner", "keep_rights", "keep_access_list",
        "keep_attributes", "flush", "give_name", "close", "rename", "flush_directory"}) {
    SCOPED_TRACE(step);
    WriteFile(target, "old bytes");
    calls.failing = step;
    calls.error = EINTR;
    calls.times = 3;
    EXPECT_EQ(Save(target), "no error");
    EXPECT_EQ(ContentOf(target), "new bytes");
    EXPECT_EQ(folder.Names(), Steps{"a.lo1"});
  }
}

TEST_P(SaveSteps, AreToldWhenTheDirectoryCannotBeFlushedThoughTheNewFileStands)
{
  calls.failing = "flush_directory";
  calls.error = EIO;
  EXPECT_THROW(WriteAtomically(target, AsBytes("new bytes"), kShown, calls.Calls()),
               NotFlushedError);
  EXPECT_EQ(ContentOf(target), "new bytes");
  EXPECT_EQ(Save(target), ReasonOf({EIO, std::generic_category()}));
  EXPECT_EQ(ContentOf(target), "new bytes");
  EXPECT_EQ(folder.Names(), Steps{"a.lo1"});
}

TEST_P(SaveSteps, ThatNeedAFileWithoutANameHaveAnotherWay)
{
  for (const auto* step : {"open_nameless", "give_name"}) {
    for (const int error : {EOPNOTSUPP, EISDIR, EINVAL, ENOENT, EPERM, EIO, EEXIST}) {
      SCOPED_TRACE(step + std::to_string(error));
      WriteFile(target, "old bytes");
      calls.failing = step;
      calls.error = error;
      EXPECT_EQ(Save(target), "no error");
      EXPECT_EQ(ContentOf(target), "new bytes");
      EXPECT_EQ(folder.Names(), Steps{"a.lo1"});
    }
  }
}

TEST_P(SaveSteps, GiveUpTheSearchForAFreeName)
{
  calls.nameless = false;
  calls.failing = "open_new";
  calls.error = EEXIST;
  EXPECT_EQ(Save(target), ReasonOf({EEXIST, std::generic_category()}));
  EXPECT_EQ(ContentOf(target), "old bytes");
  EXPECT_LE(calls.steps.size(), 1000U);
}

TEST_P(SaveSteps, ThatCannotOpenAFileAreTold)
{
  calls.nameless = false;
  calls.failing = "open_new";
  for (const int error : kErrors) {
    calls.error = error;
    EXPECT_EQ(Save(target), ReasonOf({error, std::generic_category()}));
    EXPECT_EQ(ContentOf(target), "old bytes");
    EXPECT_EQ(folder.Names(), Steps{"a.lo1"});
  }
}

#ifndef _WIN32

TEST_P(SaveSteps, CloseEveryFileTheyOpened)
{
  const auto open = [] {
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator("/proc/self/fd")) ++files;
    return files;
  };
  const auto before = open();
  for (const auto* step : {"", "write", "flush", "give_name", "close", "rename"}) {
    calls.failing = step;
    calls.error = EIO;
    (void)Save(target);
    EXPECT_EQ(open(), before) << step;
  }
}

#endif

}  // namespace
}  // namespace velquist::platform
