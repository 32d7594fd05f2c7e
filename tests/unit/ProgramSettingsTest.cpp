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

}  // namespace
}  // namespace velquist::install
