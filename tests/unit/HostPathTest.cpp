// SPDX-License-Identifier: MIT
// Which file of the disk a path text means, also where names differ in letter case alone; and what
// the program asks about files beside their bytes.
#include "platform/HostPath.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/Errors.h"
#include "platform/HostFileSystem.h"
#include "platform/SystemFiles.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;
using namespace velquist::samples;
using Names = std::vector<std::string>;

class FilesByName : public ::testing::Test {
 protected:
  [[nodiscard]] std::string At(std::string_view path) const
  {
    return folder.Text() + std::string(path);
  }
  void Put(std::string_view path, std::string_view content) const
  {
    const auto file = folder / path;
    fs::create_directories(file.parent_path());
    WriteFile(file, content);
  }
  [[nodiscard]] std::string Read(std::string_view path) const
  {
    return AsText(files.ReadWhole(At(path)));
  }

  TemporaryFolder folder;
  HostFileSystem files;
};

TEST_F(FilesByName, WithANulAreRefusedInEveryFunction)
{
  Put("Players/a.lo1", "a");
  for (const auto* cut : {"\\Players", "\\Players\\a.lo1", "\\Players\\*"}) {
    const auto path = At(cut) + std::string(1, '\0') + "b";
    EXPECT_THROW((void)files.Exists(path), FileError);
    EXPECT_THROW((void)files.ReadWhole(path), FileError);
    EXPECT_THROW(files.WriteOver(path, AsBytes("x")), FileError);
    EXPECT_THROW(files.WriteText(path, "x"), FileError);
    EXPECT_THROW((void)files.ListSubdirectories(path, 9), FileError);
    EXPECT_THROW((void)files.Stamp(path), FileError);
    EXPECT_THROW((void)files.NameOnDisk(path), FileError);
    EXPECT_THROW((void)files.HostText(path), FileError);
    EXPECT_THROW((void)HostPath(path), FileError);
  }
  EXPECT_EQ(Read("\\Players\\a.lo1"), "a");
}

TEST_F(FilesByName, AreListedWithoutRegardToCase)
{
  for (const auto* name : {"zandvoort", "Monza", "_old", "ACBB", "spa", "Ålesund", "monaco", "10"})
    fs::create_directories(folder / name);
  const Names sorted = {"10", "ACBB", "monaco", "Monza", "spa", "zandvoort", "_old", "Ålesund"};
  EXPECT_EQ(files.ListSubdirectories(At("\\"), 100), sorted);
  EXPECT_EQ(files.ListSubdirectories(At(""), 3), (Names{"10", "ACBB", "monaco"}));
}

TEST_F(FilesByName, ChangeTheirStampWhenTheyAreChanged)
{
  EXPECT_EQ(files.Stamp(At("\\a.lo1")), std::nullopt);
  Put("a.lo1", "123");
  EXPECT_EQ(files.Stamp(At("")), std::nullopt) << "a directory";
  const auto before = files.Stamp(At("\\A.LO1"));
  ASSERT_TRUE(before);
  EXPECT_EQ(before->size, 3U);
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  const auto age = now - std::chrono::nanoseconds(before->modified);
  EXPECT_LT(age, std::chrono::minutes(5));
  EXPECT_GT(age, -std::chrono::minutes(5));
  EXPECT_EQ(files.Stamp(At("\\a.lo1")), before);

  fs::last_write_time(folder / "a.lo1",
                      fs::last_write_time(folder / "a.lo1") + std::chrono::seconds(2));
  EXPECT_NE(files.Stamp(At("\\a.lo1")), before) << "same size, other time";
  const auto later = files.Stamp(At("\\a.lo1"));
  WriteFile(folder / "a.lo1", "1234");
  fs::last_write_time(folder / "a.lo1", fs::last_write_time(folder / "a.lo1"));
  EXPECT_NE(files.Stamp(At("\\a.lo1")), later);
}

TEST_F(FilesByName, TellHowTheDiskSpellsThem)
{
  Put("Players/Me/Fast Lap.LO1", "");
  EXPECT_EQ(files.NameOnDisk(At("\\players\\me\\fast lap.lo1")), "Fast Lap.LO1");
  EXPECT_EQ(files.NameOnDisk(At("\\players\\ME")), "Me");
  EXPECT_EQ(files.NameOnDisk(At("\\players\\me\\slow.lo1")), std::nullopt);
  EXPECT_EQ(files.NameOnDisk(At("\\nowhere\\slow.lo1")), std::nullopt);
  EXPECT_EQ(files.HostText(At("\\players\\me\\FAST LAP.lo1")),
            TemporaryFolder::InUtf8((folder / "Players/Me/Fast Lap.LO1").make_preferred()));
}

TEST_F(FilesByName, ThatAreNotThereAreSpelledAsAsked)
{
  Put("Players/Me/a", "");
  EXPECT_TRUE(files.HostText(At("\\Players\\Me\\New Lap.lo1")).ends_with("New Lap.lo1"));
}

#ifndef _WIN32

TEST_F(FilesByName, OfTwinDirectoriesAreTheGamesOwnWhateverIsAsked)
{
  Put("players/Me/a", "small");
  Put("Players/Me/a", "game");
  Put("PLAYERS/Me/a", "capitals");
  Put("Players/Me/SETUPS/monza/x.lo1", "capitals");
  Put("Players/Me/Setups/monza/x.lo1", "game");
  Put("Players/Me/setups/monza/x.lo1", "small");
  for (const auto* players : {"\\players", "\\Players", "\\PLAYERS", "/plAYers"}) {
    EXPECT_EQ(Read(std::string(players) + "\\me\\a"), "game");
    EXPECT_EQ(Read(std::string(players) + "\\Me\\a"), "game");
    for (const auto* setups : {"\\setups", "\\Setups", "\\SETUPS"})
      EXPECT_EQ(Read(std::string(players) + "\\Me" + setups + "\\monza\\x.lo1"), "game");
    files.WriteText(At(std::string(players) + "\\me\\new.txt"), players);
    EXPECT_EQ(ContentOf(folder / "Players/Me/new.txt"), players);
    EXPECT_EQ(files.NameOnDisk(At(players)), "Players");
  }
  EXPECT_EQ(TemporaryFolder::NamesIn(folder / "players/Me"), Names{"a"});
  EXPECT_EQ(TemporaryFolder::NamesIn(folder / "PLAYERS/Me"), Names{"a"});
}

TEST_F(FilesByName, OfTwinDirectoriesOfNoGameNameAreTheFirstInByteOrder)
{
  for (const auto* track : {"monza", "Monza", "MONZA"})
    Put(std::string("Players/Me/Setups/") + track + "/x.lo1", track);
  for (const auto* track : {"monza", "Monza", "MONZA", "mONZA"}) {
    EXPECT_EQ(Read(std::string("\\Players\\Me\\Setups\\") + track + "\\x.lo1"), "MONZA");
    files.WriteText(At(std::string("\\players\\me\\setups\\") + track + "\\y.lo1"), track);
    EXPECT_EQ(ContentOf(folder / "Players/Me/Setups/MONZA/y.lo1"), track);
  }
  EXPECT_EQ(files.ListSubdirectories(At("\\Players\\Me\\Setups"), 9), Names{"MONZA"});
}

TEST_F(FilesByName, BelowEitherTwinAreFound)
{
  Put("Players/Jim/Setups/monza/a.lo1", "of Jim");
  Put("players/Ann/setups/spa/b.lo1", "of Ann");
  Put("players/JIM/setups/silver/c.lo1", "of JIM");
  fs::create_directories(folder / "Players/Ann");
  EXPECT_EQ(files.ListSubdirectories(At("\\PLAYERS"), 9), (Names{"Ann", "Jim"}));
  EXPECT_EQ(files.ListSubdirectories(At("\\Players\\Jim\\Setups\\"), 9),
            (Names{"monza", "silver"}));
  EXPECT_EQ(files.ListSubdirectories(At("\\Players\\Ann\\Setups\\"), 9), Names{"spa"});
  EXPECT_EQ(Read("\\Players\\ANN\\Setups\\Spa\\b.lo1"), "of Ann");
  EXPECT_EQ(Read("\\Players\\Jim\\Setups\\silver\\c.lo1"), "of JIM");
  EXPECT_TRUE(files.Exists(At("\\Players\\Jim\\Setups\\silver\\*.lo1")));
  files.WriteOver(At("\\Players\\Jim\\Setups\\silver\\c.lo1"), AsBytes("by JIM"));
  EXPECT_EQ(ContentOf(folder / "players/JIM/setups/silver/c.lo1"), "by JIM");
}

TEST_F(FilesByName, BelowATwinThatIsNoDirectoryAreFound)
{
  Put("Players/Me/Monza", "a file");
  Put("Players/Me/monza/x.lo1", "below");
  EXPECT_EQ(Read("\\Players\\Me\\Monza"), "a file");
  EXPECT_EQ(Read("\\Players\\Me\\Monza\\x.lo1"), "below");
  EXPECT_TRUE(files.Exists(At("\\Players\\Me\\Monza\\")));
}

TEST_F(FilesByName, InTwoInstallationsThatDifferInCaseAloneAreToldApart)
{
  Put("gpl/Players/Me/a", "one");
  Put("GPL/Players/Me/a", "two");
  EXPECT_EQ(Read("\\gpl\\players\\me\\A"), "one");
  EXPECT_EQ(Read("\\GPL\\players\\me\\A"), "two");
  EXPECT_EQ(Read("\\Gpl\\players\\me\\A"), "two") << "the first in byte order";
}

TEST_F(FilesByName, OfWindows1252AreFoundByTheirLetters)
{
  fs::create_directories(folder.Path() / "Players/J\xF6rg");
  WriteFile(folder.Path() / "Players/J\xF6rg/\x80.lo1", "euro");
  EXPECT_EQ(Read("\\players\\JÖRG\\€.LO1"), "euro");
  EXPECT_EQ(Read("\\players\\J\xD6RG\\\x80.LO1"), "euro");
}

TEST(HostPath, KeepsTheSpellingOfWhatDoesNotExist)
{
  EXPECT_EQ(HostPath("/Nowhere At All\\Some File.LO1"), fs::path("/Nowhere At All/Some File.LO1"));
  EXPECT_EQ(HostPath("\\"), fs::path("/"));
  EXPECT_EQ(HostPath(""), fs::path());
  EXPECT_EQ(PathText(fs::path("/a/b c")), "/a/b c");
}

#else

TEST(HostPath, OfALongTextHasThePrefixThatTheTextLacks)
{
  const std::string part(250, 'x');
  EXPECT_EQ(HostPath("C:\\a/b").native(), L"C:\\a/b");
  for (const std::string start : {"C:\\", "\\\\server\\share\\"}) {
    const auto host = HostPath(start + part + "/a/../b");
    EXPECT_TRUE(host.native().starts_with(L"\\\\?\\")) << start;
    EXPECT_EQ(PathText(host), start + part + "\\b");
    EXPECT_EQ(HostPath(PathText(host)), host);
    EXPECT_EQ(Lengthened(host), host);
  }
  EXPECT_EQ(PathText(fs::path(L"\\\\?\\Volume{1}\\a")), "\\\\?\\Volume{1}\\a");
  EXPECT_EQ(PathText(fs::path(L"\\\\?\\")), "\\\\?\\");
}

TEST(PathText, TakesWhatIsNotUtf16)
{
  EXPECT_EQ(PathText(fs::path(std::wstring(L"a\xD800z"))), "a\xEF\xBF\xBDz");
  EXPECT_EQ(PathText(fs::path()), "");
}

#endif

}  // namespace
}  // namespace velquist::platform
