// SPDX-License-Identifier: MIT
// The file system where names are out of the ordinary, and with links, pipes and devices.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "HostFilesFixture.h"
#include "platform/HostPath.h"
#include "platform/SystemFiles.h"

namespace velquist::platform {
namespace {

TEST_F(HostFiles, AFolderBeyondTheClassicLimitIsLikeAnyOther)
{
  const std::string part(100, 'd');
  const auto deep = At("\\" + part + "\\" + part + "\\" + part);
  for (const auto* name : {"Anna", "Bert"}) ASSERT_FALSE(MakeDirectories(HostPath(deep) / name));
  files.WriteText(deep + "\\long.lo1", "0123456789");
  files.WriteOver(deep + "\\long.lo1", AsBytes("abc"));
  EXPECT_EQ(AsText(files.ReadWhole(deep + "\\long.lo1")), "abc3456789");

  auto names = files.ListSubdirectories(deep, 9);
  std::ranges::sort(names);
  EXPECT_EQ(names, (std::vector<std::string>{"Anna", "Bert"}));
  for (const auto* there : {"", "\\", "\\Anna", "\\Anna\\", "\\long.lo1", "\\*.lo?"})
    EXPECT_TRUE(files.Exists(deep + there)) << there;
  for (const auto* missing : {"\\Carl", "\\long.lo1\\", "\\long.lo", "\\*.lp?", "\\Anna\\*"})
    EXPECT_FALSE(files.Exists(deep + missing)) << missing;

  std::vector<std::string> all;
  EXPECT_FALSE(ListNames(HostPath(deep), Listed::kAll, [&](std::string_view name) {
    all.emplace_back(name);
    return true;
  }));
  std::ranges::sort(all);
  EXPECT_EQ(all, (std::vector<std::string>{"Anna", "Bert", "long.lo1"})) << "nothing left behind";

  EXPECT_EQ(ErrorOf([&] { (void)files.ReadWhole(deep + "\\none"); }),
            Expected(deep + "\\none", std::errc::no_such_file_or_directory));
  EXPECT_EQ(ErrorOf([&] { files.WriteText(deep + "\\Anna", "x"); }),
            Expected(deep + "\\Anna", std::errc::is_a_directory));
  EXPECT_EQ(MakeDirectories(HostPath(deep + "\\long.lo1\\below")),
            std::make_error_code(std::errc::not_a_directory));
}

TEST_F(HostFiles, ANameThatIsNotUtf8IsMerelyNotThere)
{
  for (const std::string name :
       {"\\n\xFCrburg.LO1", "\\\xC9t\xE9\\GPL", "\\\xF0\x9F", "\\\xED\xA0\x80"}) {
    EXPECT_FALSE(files.Exists(At(name)));
    EXPECT_TRUE(files.ListSubdirectories(At(name), 9).empty());
    EXPECT_EQ(ErrorOf([&] { (void)files.ReadWhole(At(name)); }),
              Expected(At(name), std::errc::no_such_file_or_directory));
  }
  EXPECT_FALSE(files.Exists(At("\\*\xFC*")));
}

#ifndef _WIN32

TEST_F(HostFiles, AFileOfTheExactSpellingWinsOverAnotherCase)
{
  for (const auto* name : {"x.lo1", "X.LO1", "X.lo1"}) WriteFile(folder / name, name);
  for (const auto* name : {"x.lo1", "X.LO1", "X.lo1"})
    EXPECT_EQ(AsText(files.ReadWhole(At("\\") + name)), name);
}

TEST_F(HostFiles, WildcardsInANameAreOrdinaryCharactersWhenWriting)
{
  WriteFile(folder / "what1.lo1", "one");
  const std::string name = "\\what?.lo1";
  files.WriteOver(At(name), AsBytes("two"));
  EXPECT_EQ(ContentOf(folder / "what?.lo1"), "two");
  EXPECT_EQ(ContentOf(folder / "what1.lo1"), "one");
  EXPECT_EQ(AsText(files.ReadWhole(At(name))), "two");
}

TEST_F(HostFiles, NamesThatAreNotUtf8AreReached)
{
  WriteFile(folder / "n\xFCrburg.LO1", "latin");
  EXPECT_EQ(AsText(files.ReadWhole(At("\\N\xFCRBURG.lo1"))), "latin");
  fs::create_directory(folder / "Players/\xE9t\xE9");
  const auto names = files.ListSubdirectories(At("\\players"), 9);
  EXPECT_NE(std::ranges::find(names, "\xE9t\xE9"), names.end());
}

TEST_F(HostFiles, LinksToFoldersAreFollowedAndListed)
{
  fs::create_directory_symlink("Me", folder / "Players/You");
  EXPECT_TRUE(files.Exists(At("\\players\\YOU\\setups\\monza\\FAST LAP.LO1")));
  EXPECT_EQ(files.ListSubdirectories(At("\\players"), 9).size(), 2U);
  fs::create_directory_symlink("Nobody", folder / "Players/Broken");
  EXPECT_FALSE(files.Exists(At("\\players\\broken")));
  EXPECT_EQ(files.ListSubdirectories(At("\\players"), 9).size(), 2U);
}

TEST_F(HostFiles, LinksInACircleFail)
{
  fs::create_symlink("b.lo1", folder / "a.lo1");
  fs::create_symlink("a.lo1", folder / "b.lo1");
  const auto path = At("\\A.lo1");
  EXPECT_FALSE(files.Exists(path));
  const auto expected = Expected(path, std::errc::too_many_symbolic_link_levels);
  EXPECT_EQ(ErrorOf([&] { (void)files.ReadWhole(path); }), expected);
  EXPECT_EQ(ErrorOf([&] { files.WriteOver(path, AsBytes("x")); }), expected);
  EXPECT_TRUE(fs::is_symlink(folder / "a.lo1"));
}

TEST_F(HostFiles, APipeOrDeviceIsNeitherReadNorReplaced)
{
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0666), 0);
  for (const auto& path : {At("\\PIPE"), std::string("/dev/null"), std::string("/dev/full")}) {
    const auto expected = Expected(path, std::errc::invalid_argument);
    EXPECT_EQ(ErrorOf([&] { (void)files.ReadWhole(path); }), expected);
    EXPECT_EQ(ErrorOf([&] { files.WriteOver(path, AsBytes("x")); }), expected);
    EXPECT_EQ(ErrorOf([&] { files.WriteText(path, "x"); }), expected);
  }
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(HostFiles, APathRelativeToTheCurrentFolderIsFound)
{
  const auto before = fs::current_path();
  fs::current_path(folder.Path());
  EXPECT_TRUE(files.Exists("players\\ME"));
  EXPECT_TRUE(files.Exists("PLAYERS"));
  EXPECT_TRUE(files.Exists("play*"));
  files.WriteText("note.txt", "here");
  EXPECT_EQ(AsText(files.ReadWhole(".\\NOTE.TXT")), "here");
  EXPECT_EQ(AsText(files.ReadWhole("players\\..\\Note.txt")), "here");
  fs::current_path(before);
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"Players", "note.txt"}));
}

#endif

}  // namespace
}  // namespace velquist::platform
