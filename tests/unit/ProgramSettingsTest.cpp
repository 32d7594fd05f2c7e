// SPDX-License-Identifier: MIT
#include "install/ProgramSettings.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace velquist::install {
namespace {

ProgramSettings Sample()
{
  return {.installation = "C:\\Games\\GPL",
          .player_index = 2,
          .ModYearIndex = 4,
          .format_flag = 1,
          .chassis_index = 8,
          .formula_index = 0,
          .track_index = 11,
          .units = 1,
          .installations = {"C:\\Games\\GPL", "D:\\GPL"}};
}

constexpr std::string_view kSampleText =
    "\"C:\\Games\\GPL\"\r\n2\r\n4\r\n1\r\n8\r\n0\r\n11\r\n1\r\n\"C:"
    "\\Games\\GPL\"\r\n\"D:"
    "\\GPL\"\r\n";

/// A settings text with `value` in place of header line `line`, counted from 1.
std::string WithLine(int line, const std::string& value)
{
  std::string text;
  for (int each = 1; each <= 8; ++each)
    text += (each == line ? value : each == 1 ? "\"C:\\GPL\"" : "0") + "\r\n";
  return text + "\"C:\\GPL\"\r\n";
}

TEST(ProgramSettings, AreWrittenOneValueALineQuotedStringsAndPlainNumbers)
{
  EXPECT_EQ(ProgramSettingsText(Sample()), kSampleText);
  EXPECT_EQ(ProgramSettingsText({}), "\"\"\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
}

TEST(ProgramSettings, AreReadInTheOrderTheyAreWritten)
{
  EXPECT_EQ(ParseProgramSettings(kSampleText), Sample());
}

TEST(ProgramSettings, OfAnyContentSurviveWritingAndReading)
{
  constexpr auto kLeast = std::numeric_limits<std::int16_t>::min();
  constexpr auto kMost = std::numeric_limits<std::int16_t>::max();
  auto settings = Sample();
  settings.player_index = kLeast;
  settings.track_index = kMost;
  settings.chassis_index = -1;
  settings.installation = "/home/jürgen/a, b/with \"quotes\" inside";
  settings.installations = {settings.installation, " blanks ", "tab\there", "0", ",", "\"x"};
  EXPECT_EQ(ParseProgramSettings(ProgramSettingsText(settings)), settings);
}

TEST(ProgramSettings, MayStandAtAnyLineEndAndBehindCommas)
{
  for (const std::string_view separator : {"\r\n", "\n", "\r", ",", " , ", " \r\n", "\t\n "}) {
    SCOPED_TRACE(separator);
    std::string text;
    for (const char* value : {"\"C:\\Games\\GPL\"", "2", "4", "1", "8", "0", "11", "1",
                              "\"C:\\Games\\GPL\"", "\"D:\\GPL\""})
      text.append(value).append(separator);
    EXPECT_EQ(ParseProgramSettings(text), Sample());
  }
}

TEST(ProgramSettings, NeedNoLineEndBehindTheLastValue)
{
  EXPECT_EQ(ParseProgramSettings(kSampleText.substr(0, kSampleText.size() - 2)), Sample());
}

TEST(ProgramSettings, StringsNeedNoQuotes)
{
  const auto settings =
      ParseProgramSettings("C:\\GPL\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\nD:\\GPL two\r\n");
  EXPECT_EQ(settings.installation, "C:\\GPL");
  EXPECT_EQ(settings.installations, std::vector<std::string>{"D:\\GPL two"});
}

TEST(ProgramSettings, EmptyInstallationsAreDropped)
{
  const auto settings = ParseProgramSettings(
      "\"a\"\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n\"\"\r"
      "\n\"a\"\r\n\r\n\"\"\r\n\"b\"\r\n \r\n");
  EXPECT_EQ(settings.installations, (std::vector<std::string>{"a", "b"}));
}

TEST(ProgramSettings, WithoutAllEightHeaderValuesAreRefused)
{
  const std::string_view header = "\"a\"\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0";
  EXPECT_NO_THROW((void)ParseProgramSettings(header));
  for (std::size_t length = 0; length < header.size(); ++length) {
    SCOPED_TRACE(length);
    EXPECT_THROW((void)ParseProgramSettings(header.substr(0, length)), SettingsError);
  }
}

TEST(ProgramSettings, NumbersMustBeWholeAndFitInto16Bits)
{
  for (int line = 2; line <= 8; ++line) {
    SCOPED_TRACE(line);
    for (const char* good : {"0", "32767", "-32768", " 7 ", "007", "\"7\""})
      EXPECT_NO_THROW((void)ParseProgramSettings(WithLine(line, good))) << good;
    for (const char* bad : {"", " ", "x", "7x", "x7", "7 8", "1.5", "1e2", "0x7", "32768", "-32769",
                            "99999999999999999999", "--1", "\"\"", "\"C:\\GPL\""})
      EXPECT_THROW((void)ParseProgramSettings(WithLine(line, bad)), SettingsError) << bad;
  }
}

TEST(ProgramSettings, AQuoteThatIsNeverClosedTakesTheRestOfTheFile)
{
  EXPECT_THROW((void)ParseProgramSettings("\"a\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"),
               SettingsError);
  const auto settings = ParseProgramSettings("a,0,0,0,0,0,0,0,\"b\r\nc");
  EXPECT_EQ(settings.installations, std::vector<std::string>{"b\r\nc"});
}

TEST(ProgramSettings, WithControlCharactersAreRefused)
{
  for (int c = 0; c < 0x20; ++c) {
    if (c == '\t' || c == '\r' || c == '\n') continue;
    SCOPED_TRACE(c);
    std::string text(kSampleText);
    text.insert(5, 1, static_cast<char>(c));
    EXPECT_THROW((void)ParseProgramSettings(text), SettingsError);
    EXPECT_THROW((void)ParseProgramSettings(std::string(kSampleText) + static_cast<char>(c)),
                 SettingsError);
  }
  EXPECT_THROW((void)ParseProgramSettings(std::string(kSampleText) + '\x7F'), SettingsError);
  const std::string wide = WithLine(1, "a");
  std::string of_two_bytes;
  for (const char c : wide) of_two_bytes.append(1, c).append(1, '\0');
  EXPECT_THROW((void)ParseProgramSettings(of_two_bytes), SettingsError);
}

TEST(ProgramSettings, OfAnOldWindowsAreRead)
{
  const auto old = ParseProgramSettings(WithLine(1, "\"C:\\J\xF6rg\\\x80 GPL\""));
  EXPECT_EQ(old.installation, "C:\\Jörg\\€ GPL");
  const auto text = ProgramSettingsText(old);
  EXPECT_NE(text.find("\"C:\\Jörg\\€ GPL\"\r\n"), std::string::npos);
  EXPECT_EQ(ParseProgramSettings(text), old);
}

TEST(ProgramSettings, MayBeginWithAByteOrderMark)
{
  EXPECT_EQ(ParseProgramSettings("\xEF\xBB\xBF" + std::string(kSampleText)), Sample());
  EXPECT_EQ(ParseProgramSettings("\xEF\xBB\xBF" + WithLine(1, "Jörg")).installation, "Jörg");
}

TEST(ProgramSettings, AreWrittenAsUtf8WhateverADirectoryIsNamed)
{
  auto settings = Sample();
  settings.installation = "/home/j\xF6rg/GPL";
  settings.installations = {"/home/jörg/GPL", "/home/j\xF6rg/GPL"};
  const auto again = ParseProgramSettings(ProgramSettingsText(settings));
  EXPECT_EQ(again.installation, "/home/jörg/GPL");
  EXPECT_EQ(again.installations, (std::vector<std::string>{"/home/jörg/GPL", "/home/jörg/GPL"}));
}

TEST(ProgramSettings, CannotKeepEveryNameOfADirectory)
{
  for (const char* good :
       {"C:\\GPL", "/home/j\xF6rg/GPL", "/a \"b\" c", "two\nlines", "a,b", "/GPL\""})
    EXPECT_TRUE(CanBeKept(good)) << good;
  for (const char* bad : {"/GPL\x01", "/GPL\x7F", "/a\",b", "/a\"\nb", ""})
    EXPECT_FALSE(CanBeKept(bad)) << bad;
}

TEST(MergedInstallations, KeepWhatTheFileGained)
{
  using List = std::vector<std::string>;
  EXPECT_EQ(MergeInstallations({"a", "b"}, {"a", "b"}, {"a", "b"}), (List{"a", "b"}));
  EXPECT_EQ(MergeInstallations({"a"}, {"a"}, {"new", "a", "newer"}), (List{"a", "new", "newer"}));
  EXPECT_EQ(MergeInstallations({"a"}, {"a", "mine"}, {"a", "theirs"}),
            (List{"a", "mine", "theirs"}));
  EXPECT_EQ(MergeInstallations({"a"}, {"a", "both"}, {"a", "both"}), (List{"a", "both"}));
  EXPECT_EQ(MergeInstallations({}, {"first run"}, {"theirs", "theirs"}),
            (List{"first run", "theirs"}));
}

TEST(MergedInstallations, LackWhatThisWindowDeleted)
{
  using List = std::vector<std::string>;
  EXPECT_EQ(MergeInstallations({"a", "b"}, {"a"}, {"a", "b"}), List{"a"});
  EXPECT_EQ(MergeInstallations({"a", "b"}, {"b"}, {"a", "b", "c"}), (List{"b", "c"}));
  EXPECT_EQ(MergeInstallations({"a"}, {"a"}, {}), List{"a"});
  EXPECT_EQ(MergeInstallations({"a"}, {"A"}, {"a", "A"}), List{"A"}) << "spelled exactly";
}

}  // namespace
}  // namespace velquist::install
