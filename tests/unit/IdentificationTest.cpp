// SPDX-License-Identifier: MIT
#include "setup/Identification.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Errors.h"

namespace velquist::setup {
namespace {

using enum data::ModYear;

const std::vector<std::string_view> kShared = {"bb", "br", "co", "ea", "fe", "lo", "mu"};
const std::vector<std::string_view> kOf1966 = {"bb", "bc", "bd", "be", "br", "bs", "co", "eb",
                                               "ea", "fe", "ff", "mu", "lo", "lp", "lq", "mc"};
const std::vector<std::string_view> kOfGT = {"ga", "gb", "gc", "gd", "ge", "gf", "gg", "gh", "gi"};

TEST(ChassisCodes, StandInTheOrderOfEachYearsCarList)
{
  for (const auto year : data::kModYears) {
    const auto& expected = year == k1966 ? kOf1966 : year == kGT ? kOfGT : kShared;
    const auto codes = ChassisCodeTable(year);
    EXPECT_EQ(std::vector<std::string_view>(codes.begin(), codes.end()), expected)
        << data::ModYearText(year);
    for (std::size_t i = 0; i < expected.size(); ++i)
      EXPECT_EQ(ChassisIndexOf(year, expected[i]), static_cast<int>(i));
  }
  EXPECT_TRUE(ChassisCodeTable(data::ModYear{-1}).empty());
  EXPECT_TRUE(ChassisCodeTable(data::ModYear{5}).empty());
}

TEST(ChassisCodes, AreExact)
{
  for (const auto* code : {"", "l", "LO", "Lo", "lo1", "zz", "ga"})
    EXPECT_EQ(ChassisIndexOf(k1967, code), std::nullopt) << code;
  EXPECT_EQ(ChassisIndexOf(kGT, "lo"), std::nullopt);
  EXPECT_EQ(ChassisIndexOf(k1967, "lp"), std::nullopt);
}

TEST(ChassisCodes, AreTheTwoCharactersBeforeTheLastOfAFileName)
{
  EXPECT_EQ(ChassisCodeOf("monza.lp1"), "lp");
  EXPECT_EQ(ChassisCodeOf("monzalp1"), "lp");
  EXPECT_EQ(ChassisCodeOf("lp1"), "lp");
  EXPECT_EQ(ChassisCodeOf("p1"), "p");
  EXPECT_EQ(ChassisCodeOf("1"), "");
  EXPECT_EQ(ChassisCodeOf(""), "");
}

TEST(FormulaIndex, IsTheLastDigitLessOne)
{
  EXPECT_EQ(FormulaIndexOf("monza.lp1"), 0);
  EXPECT_EQ(FormulaIndexOf("monza.lp2"), 1);
  EXPECT_EQ(FormulaIndexOf("monza.lp3"), 2);
  for (const auto* name : {"", "monza.lp0", "monza.lp4", "monza.lp", "1 "})
    EXPECT_EQ(FormulaIndexOf(name), std::nullopt) << name;
}

TEST(Extension, IsChassisCodeAndFormulaDigit)
{
  EXPECT_EQ(ExtensionOf(k1966, 13, 0), "lp1");
  EXPECT_EQ(ExtensionOf(k1966, 11, 1), "mu2");
  EXPECT_EQ(ExtensionOf(k1967, 5, 2), "lo3");
  EXPECT_EQ(ExtensionOf(kGT, 8, 0), "gi1");
  for (const int chassis : {-1, 7, 16}) {
    EXPECT_THROW((void)ExtensionOf(k1967, chassis, 0), BoundsError) << chassis;
  }
  EXPECT_THROW((void)ExtensionOf(kGT, 9, 0), BoundsError);
  EXPECT_THROW((void)ExtensionOf(data::ModYear{5}, 0, 0), BoundsError);
}

TEST(ModMarkers, AreTriedFrom1965ToGT)
{
  const auto markers = ModMarkers();
  const std::vector<std::pair<data::ModYear, std::string_view>> expected = {{k1965, "\\gpla65.ini"},
                                                                            {k1966, "\\gpla66.ini"},
                                                                            {k1967, "\\gpl_ai.ini"},
                                                                            {k1969, "\\gpla69.ini"},
                                                                            {kGT, "\\gplaGT.ini"}};
  ASSERT_EQ(markers.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(markers[i].ModYearIndex, expected[i].first);
    EXPECT_EQ(markers[i].file, expected[i].second);
  }
}

}  // namespace
}  // namespace velquist::setup
