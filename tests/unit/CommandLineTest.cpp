// SPDX-License-Identifier: MIT
#include "platform/CommandLine.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "TemporaryFolder.h"
#include "platform/HostFileSystem.h"

namespace velquist::platform {
namespace {

TEST(CommandLineWords, NoneGiveAnEmptyPath)
{
  const auto line = FromWords({});
  EXPECT_EQ(line.text, "");
  EXPECT_EQ(line.program_directory, std::nullopt);
}

TEST(CommandLineWords, AreOnePathWithItsBlanks)
{
  EXPECT_EQ(FromWords({"/home/tobin/GPL/Players/Tobin Ferrant/Setups/monza/low drag.lo1"}).text,
            "/home/tobin/GPL/Players/Tobin Ferrant/Setups/monza/low drag.lo1");
  EXPECT_EQ(FromWords({"/GPL/Players/Tobin", "Ferrant/Setups/monza/low", "drag.lo1"}).text,
            "/GPL/Players/Tobin Ferrant/Setups/monza/low drag.lo1");
}

TEST(CommandLineWords, LoseThePairOfQuotesAroundThePath)
{
  EXPECT_EQ(FromWords({"\"/GPL/a", "b.lo1\""}).text, "/GPL/a b.lo1");
}

TEST(CommandLineWords, CanBeginWithTheProgramDirectory)
{
  const auto line = FromWords({"--program-directory=/opt/my files", "/GPL/a.lo1"});
  EXPECT_EQ(line.program_directory, "/opt/my files");
  EXPECT_EQ(line.text, "/GPL/a.lo1");
}

TEST(CommandLineWords, CanBeginWithTheWindowsPlace)
{
  const auto line = FromWords({"--window-at=-30,40", "--program-directory=/opt", "/GPL/a.lo1"});
  EXPECT_EQ(line.window_at, (ScreenPlace{-30, 40}));
  EXPECT_EQ(line.program_directory, "/opt");
  EXPECT_EQ(line.text, "/GPL/a.lo1");
}

TEST(CommandLineWords, LeaveTheWindowsPlaceOpenWhereItIsNone)
{
  for (const char* const wrong : {"", "30", "30,", "30,4x", "a,4", "99999999999,4"}) {
    const auto line = FromWords({std::string("--window-at=") + wrong, "/GPL/a.lo1"});
    EXPECT_EQ(line.window_at, std::nullopt) << wrong;
    EXPECT_EQ(line.text, "/GPL/a.lo1");
  }
}

TEST(CommandLineWords, HoldTheProgramDirectoryAtTheBeginningAlone)
{
  const auto line = FromWords({"/GPL/a.lo1", "--program-directory=/opt"});
  EXPECT_EQ(line.program_directory, std::nullopt);
  EXPECT_EQ(line.text, "/GPL/a.lo1 --program-directory=/opt");
}

#ifndef _WIN32
TEST(CommandLineWords, AreThoseBehindTheProgramsName)
{
  char program[] = "velquist";
  char option[] = "--program-directory=/v";
  char path[] = "/GPL/a.lo1";
  char* words[] = {program, option, path, nullptr};
  const auto line = ReadCommandLine(3, words);
  EXPECT_EQ(line.program_directory, "/v");
  EXPECT_EQ(line.text, "/GPL/a.lo1");
  EXPECT_EQ(ReadCommandLine(1, words).text, "");
}
#endif

TEST(CommandLineText, IsThePathWithOrWithoutQuotes)
{
  EXPECT_EQ(FromWholeText("").text, "");
  EXPECT_EQ(FromWholeText("  \t ").text, "");
  EXPECT_EQ(FromWholeText("C:\\GPL\\a b.lo1").text, "C:\\GPL\\a b.lo1");
  EXPECT_EQ(FromWholeText("  \"C:\\GPL\\a b.lo1\"  ").text, "C:\\GPL\\a b.lo1");
}

TEST(CommandLineText, CanBeginWithTheProgramDirectory)
{
  const auto plain = FromWholeText("--program-directory=C:\\Velquist C:\\GPL\\a b.lo1");
  EXPECT_EQ(plain.program_directory, "C:\\Velquist");
  EXPECT_EQ(plain.text, "C:\\GPL\\a b.lo1");
  const auto quoted = FromWholeText("\"--program-directory=C:\\My Files\" \"C:\\GPL\\a b.lo1\"");
  EXPECT_EQ(quoted.program_directory, "C:\\My Files");
  EXPECT_EQ(quoted.text, "C:\\GPL\\a b.lo1");
  const auto both = FromWholeText("--program-directory=C:\\V --window-at=3,4 C:\\a b.lo1");
  EXPECT_EQ(both.program_directory, "C:\\V");
  EXPECT_EQ(both.window_at, (ScreenPlace{3, 4}));
  EXPECT_EQ(both.text, "C:\\a b.lo1");
  const auto inside = FromWholeText("--program-directory=\"C:\\My Files\"");
  EXPECT_EQ(inside.program_directory, "C:\\My Files");
  EXPECT_EQ(inside.text, "");
}

TEST(CommandLinePath, IsMadeWholeFromTheCurrentDirectory)
{
  const samples::TemporaryFolder folder;
  const auto before = std::filesystem::current_path();
  std::filesystem::create_directories(folder / "GPL/Players/Jim/Setups/spa");
  std::filesystem::current_path(folder / "GPL/Players/Jim");
  const auto whole = [&](const char* path) { return PathText((folder / path).lexically_normal()); };
  EXPECT_EQ(WholePath("Setups/spa/fast.lo1"), whole("GPL/Players/Jim/Setups/spa/fast.lo1"));
  EXPECT_EQ(WholePath("./low drag.lo1"), whole("GPL/Players/Jim/low drag.lo1"));
  EXPECT_EQ(WholePath("../Tom/fast.lo1"), whole("GPL/Players/Tom/fast.lo1"));
  EXPECT_EQ(WholePath("Setups\\spa\\fast.lo1"), whole("GPL/Players/Jim/Setups/spa/fast.lo1"));
  const auto given = folder.Text() + "/Players/../fast.lo1";
  EXPECT_EQ(WholePath(given), given) << "a whole path stays as it was given";
  EXPECT_EQ(WholePath(""), "");
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace velquist::platform
