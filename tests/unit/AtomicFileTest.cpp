// SPDX-License-Identifier: MIT
// Saving that succeeds: what it keeps of the old file, and where links lead it.
#ifndef _WIN32

#include "platform/AtomicFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "AtomicFileFixture.h"

namespace velquist::platform {
namespace {

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
  for (const mode_t mode : {0600U, 0640U, 0644U, 0664U, 0666U, 0755U, 0200U, 04755U, 02755U}) {
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

}  // namespace
}  // namespace velquist::platform

#endif
