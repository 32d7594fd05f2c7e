// SPDX-License-Identifier: MIT
// Saving when something goes wrong at each of its steps, and what saving keeps of the old file.
#ifndef _WIN32

#include "platform/AtomicFile.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/Errors.h"
#include "platform/FileReason.h"
#include "platform/HostFileSystem.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;
using namespace velquist::samples;

constexpr uid_t kNobody = 65534;
constexpr std::string_view kShown = "the shown path";

std::string Expected(std::errc reason)
{
  return std::string(kShown) + " | " + ReasonOf(std::make_error_code(reason));
}

/// Saves `bytes` and returns the error's "PATH | REASON", or that there was none.
std::string Save(const fs::path& target, std::string_view bytes)
{
  try {
    WriteAtomically(target, AsBytes(bytes), kShown);
  } catch (const FileError& error) {
    return error.Path() + " | " + error.Reason();
  }
  return "no error";
}

/// What `action` returns in a child process, whose user, limits and mounts it may change.
std::string InChild(const std::function<std::string()>& action)
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
void GiveAway(const fs::path& path)
{
  if (::geteuid() == 0 && ::chown(path.c_str(), kNobody, kNobody) != 0)
    throw std::system_error(errno, std::generic_category());
}

/// Saves as a user whom permissions bind.
std::string SaveUnprivileged(const fs::path& target, std::string_view bytes)
{
  return InChild([&]() -> std::string {
    if (::geteuid() == 0 && (::setegid(kNobody) != 0 || ::seteuid(kNobody) != 0))
      return "cannot change the user";
    return Save(target, bytes);
  });
}

std::uint32_t ModeOf(const fs::path& path)
{
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  return status.st_mode & 07777U;
}

class AtomicWrite : public testing::Test {
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

// --- Success -----------------------------------------------------------------------------------

TEST_F(AtomicWrite, ReplacesTheFileAndLeavesNoTemporaryFile)
{
  for (const std::string_view bytes : {"new", "", "and longer than before", "x"}) {
    EXPECT_EQ(Save(target, bytes), "no error");
    EXPECT_EQ(ContentOf(target), bytes);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.lo1"});
  }
}

TEST_F(AtomicWrite, DoesNotUseATemporaryNameThatIsTaken)
{
  const auto taken = ".velquist-" + std::to_string(::getpid()) + "-0";
  WriteFile(folder / taken, "somebody else's");
  EXPECT_EQ(Save(target, "new"), "no error");
  EXPECT_EQ(ContentOf(target), "new");
  EXPECT_EQ(ContentOf(folder / taken), "somebody else's");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{taken, "a.lo1"}));
}

TEST_F(AtomicWrite, KeepsThePermissionsOfTheOldFile)
{
  for (const mode_t mode : {0600U, 0640U, 0644U, 0664U, 0666U, 0755U, 0200U}) {
    ASSERT_EQ(::chmod(target.c_str(), mode), 0);
    EXPECT_EQ(Save(target, "new"), "no error");
    EXPECT_EQ(ModeOf(target), mode);
  }
}

TEST_F(AtomicWrite, KeepsTheOwnerOfTheOldFile)
{
  GiveAway(target);
  struct stat before {};
  struct stat after {};
  ASSERT_EQ(::stat(target.c_str(), &before), 0);
  EXPECT_EQ(Save(target, "new"), "no error");
  ASSERT_EQ(::stat(target.c_str(), &after), 0);
  EXPECT_EQ(after.st_uid, before.st_uid);
  EXPECT_EQ(after.st_gid, before.st_gid);
  EXPECT_NE(after.st_ino, before.st_ino) << "a new file took the old one's place";
}

TEST_F(AtomicWrite, GivesANewFileTheUsualPermissions)
{
  const auto before = ::umask(027);
  EXPECT_EQ(Save(folder / "new.lo1", "new"), "no error");
  ::umask(before);
  EXPECT_EQ(ModeOf(folder / "new.lo1"), 0640U);
}

TEST_F(AtomicWrite, OfAFileNameAloneWritesToTheCurrentFolder)
{
  const auto before = fs::current_path();
  fs::current_path(folder.Path());
  const auto error = Save("a.lo1", "new");
  fs::current_path(before);
  EXPECT_EQ(error, "no error");
  EXPECT_EQ(ContentOf(target), "new");
}

// --- Links -------------------------------------------------------------------------------------

TEST_F(AtomicWrite, WritesWhereALinkLeadsAndTheLinkStays)
{
  fs::create_directory(folder / "links");
  fs::create_symlink("../a.lo1", folder / "links/relative");
  fs::create_symlink(target, folder / "links/absolute");
  fs::create_symlink("absolute", folder / "links/chain");
  for (const auto* link : {"relative", "absolute", "chain"}) {
    const auto goal = fs::read_symlink(folder / "links" / link);
    EXPECT_EQ(Save(folder / "links" / link, link), "no error");
    EXPECT_TRUE(fs::is_symlink(folder / "links" / link));
    EXPECT_EQ(fs::read_symlink(folder / "links" / link), goal);
    EXPECT_FALSE(fs::is_symlink(target));
    EXPECT_EQ(ContentOf(target), link);
  }
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.lo1", "links"}));
  EXPECT_EQ(TemporaryFolder::NamesIn(folder / "links"),
            (std::vector<std::string>{"absolute", "chain", "relative"}));
}

TEST_F(AtomicWrite, MakesTheFileThatABrokenLinkLeadsTo)
{
  fs::create_directory(folder / "real");
  fs::create_symlink("real/b.lo1", folder / "link.lo1");
  EXPECT_EQ(Save(folder / "link.lo1", "new"), "no error");
  EXPECT_TRUE(fs::is_symlink(folder / "link.lo1"));
  EXPECT_EQ(ContentOf(folder / "real/b.lo1"), "new");
}

TEST_F(AtomicWrite, FailsForALinkIntoAMissingFolder)
{
  fs::create_symlink("missing/b.lo1", folder / "link.lo1");
  EXPECT_EQ(Save(folder / "link.lo1", "new"), Expected(std::errc::no_such_file_or_directory));
  EXPECT_TRUE(fs::is_symlink(folder / "link.lo1"));
}

TEST_F(AtomicWrite, FailsForALinkToAReadOnlyFile)
{
  ASSERT_EQ(::chmod(target.c_str(), 0444), 0);
  fs::create_symlink("a.lo1", folder / "link.lo1");
  EXPECT_EQ(Save(folder / "link.lo1", "new"), Expected(std::errc::permission_denied));
  EXPECT_TRUE(fs::is_symlink(folder / "link.lo1"));
  EXPECT_EQ(ContentOf(target), "old bytes");
}

// --- Failures ----------------------------------------------------------------------------------

TEST_F(AtomicWrite, FailsForAFileItsOwnerMadeReadOnlyWhoeverTheUserIs)
{
  for (const mode_t mode : {0444U, 0400U, 0466U, 0555U}) {
    ASSERT_EQ(::chmod(target.c_str(), mode), 0);
    EXPECT_EQ(Save(target, "new"), Expected(std::errc::permission_denied));
    EXPECT_EQ(ModeOf(target), mode);
    ExpectUntouched();
  }
}

TEST_F(AtomicWrite, FailsForAFileThatTheUserMayNotWrite)
{
  if (::geteuid() != 0) GTEST_SKIP() << "needs a file of another user";
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0777), 0);
  ASSERT_EQ(::chmod(target.c_str(), 0644), 0);
  EXPECT_EQ(SaveUnprivileged(target, "new"), Expected(std::errc::permission_denied));
  ExpectUntouched();
}

TEST_F(AtomicWrite, FailsInAReadOnlyFolder)
{
  GiveAway(target);
  GiveAway(folder.Path());
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0555), 0);
  EXPECT_EQ(SaveUnprivileged(target, "new"), Expected(std::errc::permission_denied));
  EXPECT_EQ(SaveUnprivileged(folder / "b.lo1", "new"), Expected(std::errc::permission_denied));
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
  ExpectUntouched();
  EXPECT_EQ(SaveUnprivileged(target, "new"), "no error") << "it was the folder alone";
}

TEST_F(AtomicWrite, FailsInAFolderThatTheUserMayNotEnter)
{
  GiveAway(target);
  GiveAway(folder.Path());
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0600), 0);
  EXPECT_EQ(SaveUnprivileged(target, "new"), Expected(std::errc::permission_denied));
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
  ExpectUntouched();
}

TEST_F(AtomicWrite, FailsWhenTheNewFileCannotTakeTheOldOnesPlace)
{
  if (::geteuid() != 0) GTEST_SKIP() << "needs a file of another user";
  // In a folder with the sticky bit everybody may add files and nobody replace another's.
  ASSERT_EQ(::chmod(folder.Path().c_str(), 01777), 0);
  ASSERT_EQ(::chmod(target.c_str(), 0666), 0);
  EXPECT_EQ(SaveUnprivileged(target, "new"), Expected(std::errc::operation_not_permitted));
  ExpectUntouched();
}

TEST_F(AtomicWrite, FailsInAMissingFolderAndMakesNone)
{
  EXPECT_EQ(Save(folder / "missing/a.lo1", "new"), Expected(std::errc::no_such_file_or_directory));
  ExpectUntouched();
}

TEST_F(AtomicWrite, FailsWhereAFolderIsAFile)
{
  EXPECT_EQ(Save(target / "b.lo1", "new"), Expected(std::errc::not_a_directory));
  ExpectUntouched();
}

TEST_F(AtomicWrite, FailsForAFolder)
{
  fs::create_directory(folder / "b.lo1");
  EXPECT_EQ(Save(folder / "b.lo1", "new"), Expected(std::errc::is_a_directory));
  EXPECT_TRUE(fs::is_directory(folder / "b.lo1"));
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.lo1", "b.lo1"}));
}

TEST_F(AtomicWrite, FailsForANameTheSystemDoesNotTake)
{
  EXPECT_EQ(Save(folder / std::string(300, 'x'), "new"), Expected(std::errc::filename_too_long));
  ExpectUntouched();
}

TEST_F(AtomicWrite, FailsWhenTheFileGrowsTooLargeForTheUser)
{
  const auto save_limited = [&](std::string_view bytes) {
    return InChild([&] {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit = {100, 100};
      ::setrlimit(RLIMIT_FSIZE, &limit);
      return Save(target, bytes);
    });
  };
  EXPECT_EQ(save_limited(std::string(101, 'n')), Expected(std::errc::file_too_large));
  ExpectUntouched();
  EXPECT_EQ(save_limited(std::string(100, 'n')), "no error");
  EXPECT_EQ(ContentOf(target), std::string(100, 'n'));
}

TEST_F(AtomicWrite, FailsOnAFullDisk)
{
  // In a name space of its own the child may mount a disk of 64 KiB over the folder.
  const auto told = InChild([&]() -> std::string {
    if (::unshare(CLONE_NEWNS) != 0 ||
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) ||
        ::mount("none", folder.Path().c_str(), "tmpfs", 0, "size=64k") != 0)
      return "cannot mount";
    const std::string old(40'000, 'o');
    WriteFile(target, old);
    const auto error = Save(target, std::string(30'000, 'n'));
    const bool whole = ContentOf(target) == old;
    const auto names = folder.Names();
    return error + (whole ? ", old file whole" : ", old file lost") +
           ", files: " + std::to_string(names.size());
  });
  if (told == "cannot mount") GTEST_SKIP() << "mounting is not permitted here";
  EXPECT_EQ(told, Expected(std::errc::no_space_on_device) + ", old file whole, files: 1");
}

TEST_F(AtomicWrite, ThatFailsOnATailLeavesTheWholeOldFile)
{
  WriteFile(target, std::string(272, 'o'));
  const auto told = InChild([&]() -> std::string {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {268, 268};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    HostFileSystem files;
    try {
      files.WriteOver(target.string(), AsBytes(std::string(264, 'n')));
    } catch (const FileError& error) {
      return error.Reason();
    }
    return "no error";
  });
  EXPECT_EQ(told, std::make_error_code(std::errc::file_too_large).message());
  EXPECT_EQ(ContentOf(target), std::string(272, 'o'));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.lo1"});
}

TEST_F(AtomicWrite, OfAFileThatCannotBeReadFailsRatherThanLosingItsTail)
{
  GiveAway(target);
  GiveAway(folder.Path());
  ASSERT_EQ(::chmod(target.c_str(), 0200), 0);
  const auto told = InChild([&]() -> std::string {
    if (::geteuid() == 0 && (::setegid(kNobody) != 0 || ::seteuid(kNobody) != 0))
      return "cannot change the user";
    HostFileSystem files;
    try {
      files.WriteOver(target.string(), AsBytes("new"));
    } catch (const FileError& error) {
      return error.Reason();
    }
    return "no error";
  });
  EXPECT_EQ(told, ReasonOf(std::make_error_code(std::errc::permission_denied)));
  ASSERT_EQ(::chmod(target.c_str(), 0644), 0);
  ExpectUntouched();
}

}  // namespace
}  // namespace velquist::platform

#endif
