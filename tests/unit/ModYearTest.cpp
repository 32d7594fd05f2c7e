// SPDX-License-Identifier: MIT
#include "data/ModYear.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>

namespace velquist::data {
namespace {

struct Year {
  int number;
  ModYear year;
  std::string_view text;
};

constexpr std::array<Year, 5> kYears = {{
    {0, ModYear::k1967, "1967"},
    {1, ModYear::k1965, "1965"},
    {2, ModYear::k1966, "1966"},
    {3, ModYear::k1969, "1969"},
    {4, ModYear::kGT, "GT"},
}};

constexpr int kOutside[] = {-32768, -1, 5, 32767};

TEST(ModYear, EveryYearHasItsFixedNumberPlaceAndText)
{
  ASSERT_EQ(kModYears.size(), kYears.size());
  for (const auto& [number, year, text] : kYears) {
    EXPECT_EQ(kModYears[static_cast<std::size_t>(number)], year) << text;
    EXPECT_EQ(NumberOf(year), number);
    EXPECT_EQ(ModYearOfNumber(number), year) << text;
    EXPECT_EQ(ModYearText(year), text);
    EXPECT_EQ(ModYearOfText(text), year) << text;
  }
}

TEST(ModYear, OtherNumbersAreNoYearButStayWhatTheyAre)
{
  for (const int number : kOutside) {
    EXPECT_EQ(ModYearOfNumber(number), std::nullopt) << number;
    EXPECT_EQ(NumberOf(static_cast<ModYear>(number)), number);
    EXPECT_EQ(ModYearText(static_cast<ModYear>(number)), "") << number;
  }
  // What a narrower number would make a year of.
  for (const int number : {65536, 65540, -65536}) EXPECT_EQ(ModYearOfNumber(number), std::nullopt);
}

TEST(ModYear, OtherTextsAreNoYear)
{
  for (const auto* text : {"", "1968", "gt", "1967 ", "67"})
    EXPECT_EQ(ModYearOfText(text), std::nullopt) << text;
}

TEST(ModYear, IsNoNumberAndNoNumberIsOne)
{
  EXPECT_FALSE((std::is_convertible_v<ModYear, int>));
  EXPECT_FALSE((std::is_convertible_v<int, ModYear>));
  EXPECT_EQ(sizeof(ModYear), sizeof(std::int16_t));
}

}  // namespace
}  // namespace velquist::data
