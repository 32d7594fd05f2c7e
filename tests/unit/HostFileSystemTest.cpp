// SPDX-License-Identifier: MIT
#include "platform/HostFileSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "TemporaryFolder.h"
#include "platform/Errors.h"
#include "platform/SystemFiles.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;
using namespace velquist::samples;

/// The error that `action` ends with: "PATH | REASON", or that there was none.
template <class Action>
std::string ErrorOf(const Action& action)
{
  try {
    action();
  } catch (const FileError& error) {
    EXPECT_EQ(error.what(), error.Path() + ": " + error.Reason());
    return error.Path() + " | " + error.Reason();
  }
  return "no error";
}

std::string Expected(std::string_view path, std::errc reason)
{
  return std::string(path) + " | " + std::make_error_code(reason).message();
}

class HostFiles : public testing::Test {
 protected:
  HostFiles()
  {
    fs::create_directories(folder / "Players/Me/Setups/Monza");
    WriteFile(folder / "Players/Me/Setups/Monza/Fast Lap.LO1", "PGTS fast");
  }

  [[nodiscard]] std::string At(std::string_view path) const
  {
    return folder.Text() + std::string(path);
  }

  TemporaryFolder folder;
  HostFileSystem files;
};

// --- Finding -----------------------------------------------------------------------------------

TEST_F(HostFiles, BothSeparatorsLeadToTheFile)
{
  for (const auto* path :
       {"/Players/Me/Setups/Monza/Fast Lap.LO1", "\\Players\\Me\\Setups\\Monza\\Fast Lap.LO1",
        "\\Players/Me\\Setups/Monza\\Fast Lap.LO1",
        "\\\\Players\\\\Me//Setups/Monza\\Fast Lap.LO1"}) {
    EXPECT_TRUE(files.Exists(At(path))) << path;
    EXPECT_EQ(AsText(files.ReadWhole(At(path))), "PGTS fast") << path;
  }
}

TEST_F(HostFiles, EveryPartIsFoundInAnyLetterCase)
{
  for (const auto* path :
       {"\\players\\ME\\setups\\monza\\fast lap.lo1", "\\PLAYERS\\me\\SETUPS\\MONZA\\FAST LAP.LO1",
        "/players/Me/Setups/Monza/Fast Lap.LO1", "/Players/Me/Setups/Monza/fast lap.LO1"}) {
    EXPECT_TRUE(files.Exists(At(path))) << path;
    EXPECT_EQ(AsText(files.ReadWhole(At(path))), "PGTS fast") << path;
  }
  EXPECT_TRUE(files.Exists(At("\\players\\ME")));
  EXPECT_TRUE(files.Exists(At("\\players\\ME\\")));
}

TEST_F(HostFiles, WritingInAnotherLetterCaseWritesTheExistingFile)
{
  files.WriteOver(At("\\players\\me\\setups\\MONZA\\FAST LAP.lo1"), AsBytes("PGTS slow"));
  EXPECT_EQ(TemporaryFolder::NamesIn(folder / "Players/Me/Setups/Monza"),
            std::vector<std::string>{"Fast Lap.LO1"});
  EXPECT_EQ(ContentOf(folder / "Players/Me/Setups/Monza/Fast Lap.LO1"), "PGTS slow");
}

TEST_F(HostFiles, ANewFileKeepsItsSpellingInTheExistingFolder)
{
  files.WriteOver(At("\\PLAYERS\\ME\\SETUPS\\monza\\New Lap.lo1"), AsBytes("PGTS"));
  EXPECT_EQ(TemporaryFolder::NamesIn(folder / "Players/Me/Setups/Monza"),
            (std::vector<std::string>{"Fast Lap.LO1", "New Lap.lo1"}));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"Players"});
}

TEST_F(HostFiles, NamesOutsideAsciiAreFoundInAnyLetterCase)
{
  fs::create_directories(folder / "Players/Jörg Ångström");
  WriteFile(folder / "Players/Jörg Ångström/Nürburg.LO1", "ring");
  WriteFile(folder / "Players/Łódź.txt", "polish");
  WriteFile(folder / "Players/東京 🏁.txt", "flag");
  EXPECT_EQ(AsText(files.ReadWhole(At("\\players\\JÖRG ÅNGSTRÖM\\NÜRBURG.lo1"))), "ring");
  EXPECT_EQ(AsText(files.ReadWhole(At("\\players\\ŁÓDŹ.TXT"))), "polish");
  EXPECT_EQ(AsText(files.ReadWhole(At("\\players\\東京 🏁.TXT"))), "flag");
  files.WriteText(At("\\players\\jörg ångström\\Größe.txt"), "größer");
  EXPECT_EQ(ContentOf(folder / "Players/Jörg Ångström/Größe.txt"), "größer");
}

TEST_F(HostFiles, WhatIsNotThereDoesNotExist)
{
  for (const auto* path : {"\\Player", "\\Players\\Mee", "\\Players\\Me\\x", "\\Players2\\Me",
                           "\\Players\\Me\\Setups\\Monza\\Fast Lap.LO1\\x",
                           "\\Players\\Me\\Setups\\Monza\\Fast Lap.LO1\\"})
    EXPECT_FALSE(files.Exists(At(path))) << path;
  EXPECT_FALSE(files.Exists(""));
}

TEST_F(HostFiles, AWildcardInTheLastPartMatchesAnyName)
{
  const auto monza = At("\\players\\me\\setups\\monza\\");
  for (const auto* pattern : {"*", "*.*", "*.lo1", "*.LO?", "fast*", "F*L?1", "????????.lo1", "**1",
                              "*fast lap.lo1*", "?*"})
    EXPECT_TRUE(files.Exists(monza + pattern)) << pattern;
  for (const auto* pattern : {"*.lp1", "x*", "?", "???????.lo1", "*.lo", "*x*", "*?.lo1.*"})
    EXPECT_FALSE(files.Exists(monza + pattern)) << pattern;
  EXPECT_TRUE(files.Exists(At("\\play*"))) << "folders match too";
  EXPECT_TRUE(files.Exists(At("\\*.*"))) << "also without a dot";
  EXPECT_FALSE(files.Exists(At("\\missing\\*")));
  EXPECT_FALSE(files.Exists(At("\\players\\me\\setups\\monza\\fast lap.lo1\\*")));
  fs::create_directory(folder / "Empty");
  EXPECT_FALSE(files.Exists(At("\\empty\\*")));
}

// --- Reading -----------------------------------------------------------------------------------

TEST_F(HostFiles, EveryByteIsRead)
{
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  WriteFile(folder / "all", all);
  EXPECT_EQ(AsText(files.ReadWhole(At("\\ALL"))), all);
  WriteFile(folder / "empty", "");
  EXPECT_TRUE(files.ReadWhole(At("\\empty")).empty());
}

TEST_F(HostFiles, TenMegabytesAreReadAndWritten)
{
  std::string big(10'000'000, '\0');
  for (std::size_t i = 0; i < big.size(); ++i) big[i] = static_cast<char>(i * 7 + i / 1000);
  files.WriteOver(At("\\big"), AsBytes(big));
  EXPECT_EQ(ContentOf(folder / "big"), big);
  EXPECT_EQ(AsText(files.ReadWhole(At("\\big"))), big);
  files.WriteOver(At("\\big"), AsBytes("small"));
  EXPECT_EQ(ContentOf(folder / "big"), "small" + big.substr(5));
}

TEST_F(HostFiles, AFileThatCannotBeReadIsNamedWithTheReason)
{
  const auto missing = At("\\players\\missing.lo1");
  EXPECT_EQ(ErrorOf([&] { (void)files.ReadWhole(missing); }),
            Expected(missing, std::errc::no_such_file_or_directory));
  const auto nowhere = At("\\nowhere\\missing.lo1");
  EXPECT_EQ(ErrorOf([&] { (void)files.ReadWhole(nowhere); }),
            Expected(nowhere, std::errc::no_such_file_or_directory));
  const auto directory = At("\\players\\me");
  EXPECT_EQ(ErrorOf([&] { (void)files.ReadWhole(directory); }),
            Expected(directory, std::errc::is_a_directory));
}

// --- Writing -----------------------------------------------------------------------------------

TEST_F(HostFiles, WriteOverLeavesTheTailOfALongerFile)
{
  const std::string old(272, 'x');
  for (const std::size_t length : {0U, 1U, 264U, 271U, 272U, 273U, 1000U}) {
    WriteFile(folder / "a.lo1", old);
    const std::string fresh(length, 'y');
    files.WriteOver(At("\\a.lo1"), AsBytes(fresh));
    EXPECT_EQ(ContentOf(folder / "a.lo1"), fresh + old.substr(std::min<std::size_t>(length, 272)));
  }
}

TEST_F(HostFiles, WriteTextReplacesTheWholeFile)
{
  WriteFile(folder / "a.txt", "something longer");
  files.WriteText(At("\\A.TXT"), "short\r\n");
  EXPECT_EQ(ContentOf(folder / "a.txt"), "short\r\n");
  files.WriteText(At("\\A.TXT"), "");
  EXPECT_EQ(ContentOf(folder / "a.txt"), "");
}

TEST_F(HostFiles, WritingLeavesNothingElseBehind)
{
  files.WriteOver(At("\\new.lo1"), AsBytes("1"));
  files.WriteOver(At("\\new.lo1"), AsBytes("22"));
  files.WriteText(At("\\new.txt"), "3");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"Players", "new.lo1", "new.txt"}));
  EXPECT_EQ(ContentOf(folder / "new.lo1"), "22");
}

TEST_F(HostFiles, AFailedWriteIsNamedWithTheReason)
{
  const auto vanished = At("\\vanished\\a.lo1");
  EXPECT_EQ(ErrorOf([&] { files.WriteOver(vanished, AsBytes("x")); }),
            Expected(vanished, std::errc::no_such_file_or_directory));
  EXPECT_EQ(ErrorOf([&] { files.WriteText(vanished, "x"); }),
            Expected(vanished, std::errc::no_such_file_or_directory));
  const auto directory = At("\\players\\me");
  EXPECT_EQ(ErrorOf([&] { files.WriteOver(directory, AsBytes("x")); }),
            Expected(directory, std::errc::is_a_directory));
  EXPECT_EQ(ErrorOf([&] { files.WriteText(directory, "x"); }),
            Expected(directory, std::errc::is_a_directory));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"Players"});
}

TEST_F(HostFiles, AFolderThatVanishesBetweenTwoSavesFailsTheSecond)
{
  const auto path = At("\\Players\\Me\\Setups\\Monza\\Fast Lap.LO1");
  EXPECT_EQ(ErrorOf([&] { files.WriteOver(path, AsBytes("1")); }), "no error");
  fs::remove_all(folder / "Players/Me");
  EXPECT_EQ(ErrorOf([&] { files.WriteOver(path, AsBytes("2")); }),
            Expected(path, std::errc::no_such_file_or_directory));
}

// --- Listing -----------------------------------------------------------------------------------

TEST_F(HostFiles, ListsFoldersAloneAndAtMostSoMany)
{
  for (const auto* name : {"a", "B", "ç"})
    fs::create_directory(folder / ("Players/" + std::string(name)));
  WriteFile(folder / "Players/file", "");
  const auto names = files.ListSubdirectories(At("\\PLAYERS"), 100);
  EXPECT_EQ(names, (std::vector<std::string>{"a", "B", "Me", "ç"}));
  EXPECT_EQ(files.ListSubdirectories(At("\\PLAYERS\\"), 100), names);
  EXPECT_EQ(files.ListSubdirectories(At("\\players"), 4).size(), 4U);
  EXPECT_EQ(files.ListSubdirectories(At("\\players"), 3).size(), 3U);
  EXPECT_TRUE(files.ListSubdirectories(At("\\players"), 0).empty());
}

TEST_F(HostFiles, AFolderThatCannotBeListedHasNone)
{
  EXPECT_TRUE(files.ListSubdirectories(At("\\missing"), 100).empty());
  EXPECT_TRUE(
      files.ListSubdirectories(At("\\Players\\Me\\Setups\\Monza\\Fast Lap.LO1"), 9).empty());
  EXPECT_TRUE(files.ListSubdirectories(At("\\Players\\Me\\Setups\\Monza"), 9).empty());
}

// --- Names out of the ordinary ------------------------------------------------------------------

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

#ifdef _WIN32

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

#else

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

TEST(HostPath, KeepsTheSpellingOfWhatDoesNotExist)
{
  EXPECT_EQ(HostPath("/Nowhere At All\\Some File.LO1"), fs::path("/Nowhere At All/Some File.LO1"));
  EXPECT_EQ(HostPath("\\"), fs::path("/"));
  EXPECT_EQ(HostPath(""), fs::path());
  EXPECT_EQ(PathText(fs::path("/a/b c")), "/a/b c");
}

#endif

}  // namespace
}  // namespace velquist::platform
