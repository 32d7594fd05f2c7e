// SPDX-License-Identifier: MIT
#include "data/Numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CommaLocale.h"
#include "platform/Errors.h"

namespace velquist::data {
namespace {

using namespace std::string_view_literals;
using velquist::samples::CommaLocale;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Case {
  std::string_view text;
  double number;
};

constexpr Case kNumbers[] = {
    {"0", 0},
    {"1", 1},
    {"1.5", 1.5},
    {"-1.5", -1.5},
    {"+1.5", 1.5},
    {".5", .5},
    {"-.5", -.5},
    {"+.5", .5},
    {"5.", 5},
    {"007", 7},
    {"1e3", 1000},
    {"1E3", 1000},
    {"1e+3", 1000},
    {"1.5e-3", .0015},
    {"5.e2", 500},
    {"   12", 12},
    {"\t12", 12},
    {" \t -12", -12},
    {"12 lbs", 12},
    {"12lbs", 12},
    {"12 34", 12},
    {"31/9", 31},
    {"1,5", 1},
    {"1.2.3", 1.2},
    {"1..2", 1},
    {"1e", 1},
    {"1e+", 1},
    {"1e-", 1},
    {"1ex", 1},
    {"1e3.5", 1000},
    {"0x1F", 0},
    {"1-2", 1},
    {"1+2", 1},
    {"3.444", 3.444},
    {"123456789.123456789", 123456789.123456789},
};

constexpr std::string_view kNoNumbers[] = {
    "",    " ",   "\t",   "abc",      ".",      "..5",   "-",   "+",    "--5",     "+-5",  "-+5",
    "- 5", "+ 5", "-x",   ",5",       "e5",     ".e5",   "-.",  "-.e5", "inf",     "-inf", "INF",
    "nan", "NaN", "-nan", "infinity", "nan(1)", "\"5\"", "\n5", "\r5",  "\u00A05", "$5",   "/5"};

TEST(LeadingNumber, ReadsSignDigitsPointAndExponentUpToTheFirstOtherCharacter)
{
  for (const auto& [text, number] : kNumbers) EXPECT_EQ(LeadingNumber(text), number) << text;
}

TEST(LeadingNumber, OfATextWithoutNumberIsZeroWithoutSign)
{
  for (const auto text : kNoNumbers) {
    EXPECT_EQ(LeadingNumber(text), 0.0) << text;
    EXPECT_FALSE(std::signbit(LeadingNumber(text))) << text;
  }
}

TEST(LeadingNumber, DoesNotFollowTheLocale)
{
  const CommaLocale comma;
  for (const auto& [text, number] : kNumbers) EXPECT_EQ(LeadingNumber(text), number) << text;
  EXPECT_EQ(LeadingNumber("1.500"), 1.5);
  EXPECT_EQ(LeadingNumber("1,500"), 1.0);
}

TEST(LeadingNumber, EndsAtTheEndOfTheTextAndAtANulCharacter)
{
  EXPECT_EQ(LeadingNumber("12345"sv.substr(0, 3)), 123);
  EXPECT_EQ(LeadingNumber("1e55"sv.substr(0, 2)), 1);
  EXPECT_EQ(LeadingNumber("12\0"
                          "34"sv),
            12);
  EXPECT_EQ(LeadingNumber("\0"
                          "12"sv),
            0);
}

TEST(LeadingNumber, BeyondTheRangeOfADoubleIsInfinityOrZero)
{
  const std::string zeros(400, '0');
  EXPECT_EQ(LeadingNumber("1e400"), kInfinity);
  EXPECT_EQ(LeadingNumber("-1E+400 psi"), -kInfinity);
  EXPECT_EQ(LeadingNumber("1" + zeros), kInfinity);
  EXPECT_EQ(LeadingNumber("1" + zeros + ".5"), kInfinity);
  EXPECT_EQ(LeadingNumber("1" + zeros + "e-5"), kInfinity);
  EXPECT_EQ(LeadingNumber("1e99999999999999999999"), kInfinity);
  EXPECT_EQ(LeadingNumber("1e-400"), 0.0);
  EXPECT_EQ(LeadingNumber("0." + zeros + "1"), 0.0);
  EXPECT_EQ(LeadingNumber("." + zeros + "1e5"), 0.0);
  EXPECT_EQ(LeadingNumber("1e-99999999999999999999"), 0.0);
  EXPECT_EQ(LeadingNumber("0e99999999999999999999"), 0.0);
  EXPECT_EQ(LeadingNumber("1" + zeros + "e-400"), 1.0);
  EXPECT_EQ(LeadingNumber("0." + zeros + "1e401"), 1.0);
}

TEST(LeadingNumber, IsTheNearestDoubleForTenThousandRandomNumbers)
{
  std::mt19937 random(21);
  for (int i = 0; i < 10'000; ++i) {
    std::string text = i % 2 == 0 ? "" : "-";
    const auto digits = [&] { return std::to_string(random()); };
    text += digits() + "." + digits();
    if (i % 3 == 0) text += "e" + std::to_string(static_cast<int>(random() % 60) - 30);
    ASSERT_EQ(LeadingNumber(text), std::strtod(text.c_str(), nullptr)) << text;
    ASSERT_EQ(LeadingNumber(text + " rest"), LeadingNumber(text)) << text;
  }
}

TEST(WholeNumbers, RoundToTheNearestWithTiesToEven)
{
  constexpr std::pair<double, int> kCases[] = {{0, 0},      {.5, 0},    {1.5, 2},   {2.5, 2},
                                               {-.5, 0},    {-1.5, -2}, {-2.5, -2}, {2.4999, 2},
                                               {2.5001, 3}, {6.5, 6},   {7.5, 8},   {-7.5, -8}};
  for (const auto& [value, whole] : kCases) {
    EXPECT_EQ(ToInt16(value), whole) << value;
    EXPECT_EQ(ToInt32(value), whole) << value;
  }
}

TEST(WholeNumbers, ThrowBeyondTheirRange)
{
  EXPECT_EQ(ToInt16(32767.5 - 1e-9), 32767);
  EXPECT_EQ(ToInt16(-32768.5), -32768);
  EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
  EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const double value :
       {32767.5, 32768.0, -32768.6, -32769.0, 1e300, kInfinity, -kInfinity, nan})
    EXPECT_THROW((void)ToInt16(value), BoundsError) << value;
  for (const double value : {2147483647.5, -2147483649.0, 1e300, kInfinity, -kInfinity, nan})
    EXPECT_THROW((void)ToInt32(value), BoundsError) << value;
}

TEST(SplitLines, TakesEveryKindOfLineEnd)
{
  const std::vector<std::string_view> two = {"a", "b"};
  for (const auto text :
       {"a\r\nb\r\n", "a\nb\n", "a\rb\r", "a\r\nb", "a\nb", "a\rb", "a\rb\n", "a\nb\r\n"})
    EXPECT_EQ(SplitLines(text), two) << text;
}

TEST(SplitLines, CountsEmptyLinesButNoneBehindTheLastEnd)
{
  EXPECT_TRUE(SplitLines("").empty());
  EXPECT_EQ(SplitLines("\n").size(), 1U);
  EXPECT_EQ(SplitLines("\r\n").size(), 1U);
  EXPECT_EQ(SplitLines("\r\r\n").size(), 2U);
  EXPECT_EQ(SplitLines("\n\r").size(), 2U);
  EXPECT_EQ(SplitLines("\r\n\r\n\r\n").size(), 3U);
  const std::vector<std::string_view> gap = {"a", "", "b"};
  EXPECT_EQ(SplitLines("a\r\n\r\nb"), gap);
  EXPECT_EQ(SplitLines("a\n\nb\n"), gap);
  EXPECT_EQ(SplitLines("a\r\rb"), gap);
}

TEST(SplitFields, CutsAtCommasWithoutTrimming)
{
  std::array<std::string, 3> fields;
  SplitFields(" a , b\t,c ", fields);
  EXPECT_EQ(fields, (std::array<std::string, 3>{" a ", " b\t", "c "}));
  SplitFields(",,", fields);
  EXPECT_EQ(fields, (std::array<std::string, 3>{"", "", ""}));
}

TEST(SplitFields, RepeatsTheLastFieldAndLeavesOutFurtherOnes)
{
  std::array<std::string, 3> fields;
  SplitFields("31/9", fields);
  EXPECT_EQ(fields, (std::array<std::string, 3>{"31/9", "31/9", "31/9"}));
  SplitFields("a,b", fields);
  EXPECT_EQ(fields, (std::array<std::string, 3>{"a", "b", "b"}));
  SplitFields("a,", fields);
  EXPECT_EQ(fields, (std::array<std::string, 3>{"a", "", ""}));
  SplitFields("", fields);
  EXPECT_EQ(fields, (std::array<std::string, 3>{"", "", ""}));
  SplitFields("a,b,c,d,e", fields);
  EXPECT_EQ(fields, (std::array<std::string, 3>{"a", "b", "c"}));
  SplitFields("a,b,c,", fields);
  EXPECT_EQ(fields, (std::array<std::string, 3>{"a", "b", "c"}));
}

}  // namespace
}  // namespace velquist::data
