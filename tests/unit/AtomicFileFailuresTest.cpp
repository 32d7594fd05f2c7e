// SPDX-License-Identifier: MIT
// Saving that fails: with the reason, and the old file is whole.
#ifndef _WIN32

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "AtomicFileFixture.h"
#include "platform/HostFileSystem.h"

namespace velquist::platform {
namespace {

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
    if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) ||
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
