// SPDX-License-Identifier: MIT
#include "platform/LetterCase.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <utility>

namespace velquist::platform {
namespace {

TEST(FoldCase, MakesAsciiCapitalsSmallAndLeavesTheRest)
{
  EXPECT_EQ(FoldCase(""), "");
  EXPECT_EQ(FoldCase("PLAYERS Players players"), "players players players");
  EXPECT_EQ(FoldCase("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), "abcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(FoldCase("@[\\]^_`{|}~ 0123456789.-"), "@[\\]^_`{|}~ 0123456789.-");
}

TEST(FoldCase, MakesLatinGreekAndCyrillicCapitalsSmall)
{
  constexpr std::pair<std::string_view, std::string_view> kNames[] = {
      {"NÜRBURG", "nürburg"},
      {"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ", "àáâãäåæçèéêëìíîï"},
      {"ÐÑÒÓÔÕÖØÙÚÛÜÝÞ", "ðñòóôõöøùúûüýþ"},
      {"ŸVES", "ÿves"},
      {"ĀČĐĘĞĮ", "āčđęğį"},
      {"ŁÓDŹ", "łódź"},
      {"ŽIŽKA", "žižka"},
      {"ŃŇŐŘŚŠŢŤŮŲŶ", "ńňőřśšţťůųŷ"},
      {"ȘȚ", "șț"},
      {"ΑΒΓΔΩ", "αβγδω"},
      {"ΆΈΉΊΌΎΏ", "άέήίόύώ"},
      {"МОНАКО ЁЯ", "монако ёя"},
      {"ЂЋЏ", "ђћџ"},
      {"ҐҖӀӁӐ", "ґҗӀӂӑ"},
  };
  for (const auto& [capitals, small] : kNames) {
    EXPECT_EQ(FoldCase(capitals), small);
    EXPECT_EQ(FoldCase(small), small);
  }
}

TEST(FoldCase, LeavesSignsBetweenTheLetters)
{
  for (const std::string_view text : {"×÷ß", "ıİĸŉ", "ſ", "€ 東京 🏁", "ƀ"})
    EXPECT_EQ(FoldCase(text), text);
}

TEST(FoldCase, LeavesBytesThatAreNotUtf8)
{
  for (const std::string_view text : {"\xC3", "x\xC3", "\xC3\x41", "\x84", "\xFF\xFE", "\xC1\x81",
                                      "\xC0\x80", "\xED\xA0\x80", "\xE2\x82", "\xF0\x9F"}) {
    const auto folded = FoldCase(text);
    ASSERT_EQ(folded.size(), text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (static_cast<unsigned char>(text[i]) >= 0x80) {
        EXPECT_EQ(folded[i], text[i]);
      }
    }
  }
}

TEST(FoldCase, KeepsTheLengthAndIsDoneAfterOnce)
{
  std::mt19937 random(5);
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (auto n = random() % 12; n > 0; --n) {
      const auto letter = random() % 0x7FF;
      if (letter < 0x80) {
        text += static_cast<char>(letter);
      } else {
        text += static_cast<char>(0xC0U | letter >> 6);
        text += static_cast<char>(0x80U | (letter & 0x3FU));
      }
    }
    const auto once = FoldCase(text);
    ASSERT_EQ(once.size(), text.size());
    ASSERT_EQ(FoldCase(once), once);
  }
}

}  // namespace
}  // namespace velquist::platform
