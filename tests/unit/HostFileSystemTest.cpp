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

#include "HostFilesFixture.h"

namespace velquist::platform {
namespace {

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
  std::string big;
  big.resize(10'000'000);
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

}  // namespace
}  // namespace velquist::platform
