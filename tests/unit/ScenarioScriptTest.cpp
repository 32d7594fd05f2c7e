// SPDX-License-Identifier: MIT
// The scenario language: words, numbers and setup files; the runner's command line.
#include "runner/Script.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "runner/Runner.h"
#include "runner/SetupFile.h"
#include "runner/Texts.h"

namespace velquist::runner {
namespace {

const Places kPlaces{"/t", "/t/program", "/t/GPL"};

std::vector<std::string> WordsOf(std::string_view script)
{
  std::vector<std::string> words;
  for (const auto& statement : ReadScript(script, kPlaces))
    for (const auto& word : statement.words) words.push_back(word.text);
  return words;
}

using Texts = std::vector<std::string>;

TEST(ScenarioWords, BlanksSeparateAndQuotesHold)
{
  EXPECT_EQ(WordsOf("click  CmdInc(4)\t\"a b\" \"\""), (Texts{"click", "CmdInc(4)", "a b", ""}));
}

TEST(ScenarioWords, OnlyQuotedOnesHaveEscapes)
{
  EXPECT_EQ(WordsOf(R"("\"\\\r\n\t\x41\xfF" a\b\\)"), (Texts{"\"\\\r\n\tA\xff", "a\\b\\\\"}));
}

TEST(ScenarioWords, QuotedOnesAreMarkedAsNoKeywords)
{
  const auto words = ReadScript("cancel \"cancel\"", kPlaces).at(0).words;
  EXPECT_FALSE(words.at(0).quoted);
  EXPECT_TRUE(words.at(1).quoted);
}

TEST(ScenarioWords, PlacesAreReplacedAnywhereButNotWhenEscaped)
{
  EXPECT_EQ(WordsOf(R"(x=$G/a$P "$T b" "\x24T" $Q $)"),
            (Texts{"x=/t/GPL/a/t/program", "/t b", "$T", "$Q", "$"}));
}

TEST(ScenarioWords, BlankLinesAndCommentsAreSkippedAndLinesCounted)
{
  const auto statements =
      ReadScript("\xef\xbb\xbf# one\r\n\r\n  # \"three\r\nstart #4\r\n", kPlaces);
  ASSERT_EQ(statements.size(), 1U);
  EXPECT_EQ(statements[0].line, 4);
  EXPECT_EQ(statements[0].words.at(1).text, "#4");
}

TEST(ScenarioWords, ALineGoesOnBehindASingleUnquotedBackslash)
{
  const auto statements = ReadScript("setup x \\\n  short\\\n \"a\"\nstart\n", kPlaces);
  ASSERT_EQ(statements.size(), 2U);
  EXPECT_EQ(statements[0].words.size(), 4U);
  EXPECT_EQ(statements[1].line, 4);
  EXPECT_EQ(WordsOf("a\\\\\nb"), (Texts{"a\\\\", "b"}));
}

TEST(ScenarioWords, WhatIsNotWrittenInTheLanguageIsReportedWithItsLine)
{
  for (const std::string line :
       {"\"open", "\"open\\\"", "a\"b\"", "\"a\"b", "\"\\q\"", "\"\\x4\"", "\"\\xg0\"", "a \\"}) {
    SCOPED_TRACE(line);
    try {
      (void)ReadScript("start\n" + line, kPlaces);
      FAIL() << "was read";
    } catch (const ScriptError& error) {
      EXPECT_EQ(error.Line(), 2);
    }
  }
}

TEST(ScenarioTexts, QuotedTextReadsBackAsItWas)
{
  const std::string text = "\x01 \"C:\\x\"\r\n\t\x7f\xc3\xa4 # ";
  EXPECT_EQ(WordsOf(Quoted(text)), Texts{text});
}

TEST(ScenarioTexts, NumbersAreReadToTheNearestSingle)
{
  EXPECT_EQ(ParseSingle("0.1"), 0.1F);
  EXPECT_EQ(ParseSingle("-2.5e3"), -2500.0F);
  EXPECT_EQ(ParseSingle("1e60"), std::numeric_limits<float>::infinity());
  EXPECT_EQ(ParseSingle("1e-60"), 0.0F);
  EXPECT_EQ(Hex8(ParseSingle("-inf").value()), "ff800000");
  EXPECT_EQ(Hex8(ParseSingle("nan").value()), "7fc00000");
  for (const auto* const wrong : {"", "x", "1,5", "1 ", "+"}) EXPECT_FALSE(ParseSingle(wrong));
}

TEST(ScenarioTexts, DecimalsHaveNoExponentAndNoNegativeZero)
{
  EXPECT_EQ(Decimal(1e20), "100000000000000000000");
  EXPECT_EQ(Decimal(-0.0), "0");
  EXPECT_EQ(Decimal(12.25), "12.25");
  EXPECT_EQ(Shortest(0.1), "0.1");
}

TEST(ScenarioTexts, SeparatorsChangeOnlyInPathsBelowTheBase)
{
  EXPECT_EQ(WithSeparators("a/b C:/t\\x\\y.ini: \\n \"C:\\t/z\"\\", "C:\\t", '/'),
            "a/b C:/t/x/y.ini: \\n \"C:/t/z\"\\");
}

TEST(ScenarioSetup, ShortFileHoldsWhatIsGivenAndZerosElsewhere)
{
  SetupFile setup;
  setup.slots[0] = SlotBits(0, "22.5");
  setup.slots[8] = SlotBits(8, "-3");
  setup.slots[51] = SlotBits(51, "5");
  std::vector<std::byte> expected(264);
  const auto put = [&expected](std::size_t at, std::string_view hex) {
    const auto bytes = ParseHex(hex).value();
    std::ranges::copy(bytes, expected.begin() + static_cast<std::ptrdiff_t>(at));
  };
  put(0, "50475453 03");
  put(8, "f900");
  put(92, "0000b441");
  put(124, "fdffffff");
  put(244, "05000000");
  put(260, "01202020");
  EXPECT_EQ(MakeSetupFile(setup), expected);
}

TEST(ScenarioSetup, LongFileHasNoWingsUnlessGiven)
{
  SetupFile setup;
  setup.long_layout = true;
  setup.symmetric = false;
  setup.slots[34] = SlotBits(34, "12");
  const auto bytes = MakeSetupFile(setup);
  ASSERT_EQ(bytes.size(), 272U);
  EXPECT_EQ(HexBytes(std::span(bytes).subspan(4, 6)), "04 00 00 00 01 01");
  EXPECT_EQ(HexBytes(std::span(bytes).subspan(260)), "00 00 00 80 bf 00 00 40 41 20 20 20");
}

TEST(ScenarioSetup, WholeSlotsTakeNoFractions)
{
  EXPECT_FALSE(SlotBits(8, "1.5"));
  EXPECT_FALSE(SlotBits(42, "nan"));
  EXPECT_FALSE(SlotBits(32, "4294967296"));
  EXPECT_TRUE(SlotBits(50, "1.5"));
}

TEST(ScenarioCommandLine, OptionsAndPathsStandInAnyOrder)
{
  const auto line = ReadCommandLine({"a.scn", "--ui", "--program-files", "d", "--keep", "b"}, "p");
  EXPECT_TRUE(line.window && line.options.keep);
  EXPECT_EQ(line.options.program_files, "d");
  EXPECT_EQ(line.paths, (std::vector<std::filesystem::path>{"a.scn", "b"}));
  EXPECT_EQ(ReadCommandLine({"a"}, "p").options.program_files, "p");
  EXPECT_THROW((void)ReadCommandLine({}, "p"), std::invalid_argument);
  EXPECT_THROW((void)ReadCommandLine({"--other", "a"}, "p"), std::invalid_argument);
  EXPECT_THROW((void)ReadCommandLine({"a", "--program-files"}, "p"), std::invalid_argument);
}

}  // namespace
}  // namespace velquist::runner
