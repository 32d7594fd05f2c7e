// SPDX-License-Identifier: MIT
#include "edit/Display.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

#include <gtest/gtest.h>

#include "platform/Errors.h"

namespace velquist::edit {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Quantity {
  const char* name;
  int first;  ///< slot
  int last;
  float metric;
  int decimals;
  int fine_decimals;
};

constexpr Quantity kQuantities[] = {
    {"tire pressure", 0, 3, 6.8947F, 0, 1},
    {"wheel rate", 4, 7, 1.7513F, 0, 0},
    {"bump", 8, 11, 1.0F, 0, 0},
    {"rebound", 12, 15, 1.0F, 0, 0},
    {"camber", 16, 19, 1.0F, 2, 2},
    {"bump rubber", 20, 23, 2.54F, 2, 2},
    {"toe in", 24, 25, 2.54F, 3, 3},
    {"roll bar stiffness", 26, 27, 1.7513F, 0, 0},
    {"static ride height", 28, 29, 2.54F, 2, 2},
    {"fuel level", 30, 30, 3.7854F, 0, 0},
    {"steering ratio", 31, 31, 1.0F, 0, 0},
    {"front brake bias", 32, 32, 1.0F, 0, 0},
    {"wings", 33, 34, 1.0F, 0, 2},
};

struct Caption {
  std::size_t row;
  const char* english;
  const char* metric;
};

constexpr Caption kCaptions[] = {
    {0, "Tire Pressure, psi", "Tire Pressure, kPa"},
    {1, "Wheel Rate, lbs/in", "Wheel Rate, N/cm"},
    {2, "Bump", "Bump"},
    {3, "Rebound", "Rebound"},
    {4, "Camber, deg", "Camber, deg"},
    {5, "Bump Rubber, in", "Bump Rubber, cm"},
    {6, "Tire Pressure, psi", "Tire Pressure, kPa"},
    {7, "Wheel Rate, lbs/in", "Wheel Rate, N/cm"},
    {8, "Bump", "Bump"},
    {9, "Rebound", "Rebound"},
    {10, "Camber, deg", "Camber, deg"},
    {11, "Bump Rubber, in", "Bump Rubber, cm"},
    {12, "Toe In, in", "Toe In, cm"},
    {13, "Roll Bar Stiffness, lbs/in", "Roll Bar Stiffness, N/cm"},
    {14, "Static Ride Height,in", "Static Ride Height, cm"},
    {15, "Toe In, in", "Toe In, cm"},
    {16, "Roll Bar Stiffness, lbs/in", "Roll Bar Stiffness, N/cm"},
    {17, "Static Ride Height, in", "Static Ride Height, cm"},
    {18, "Fuel Level, gals", "Fuel Level, ltrs"},
};

TEST(Display, EverySlotHasItsFactors)
{
  int slots = 0;
  for (const auto& quantity : kQuantities)
    for (int slot = quantity.first; slot <= quantity.last; ++slot, ++slots) {
      SCOPED_TRACE(quantity.name);
      const auto s = static_cast<std::size_t>(slot);
      EXPECT_EQ(DisplayFactor.at(s), 1.0F);
      EXPECT_EQ(DisplayFactor.at(35 + s), quantity.metric);
    }
  EXPECT_EQ(slots, 35);
  EXPECT_EQ(DisplayFactor.size(), 70U);
}

TEST(Display, EverySlotHasItsDecimals)
{
  for (const auto& quantity : kQuantities)
    for (int slot = quantity.first; slot <= quantity.last; ++slot) {
      SCOPED_TRACE(quantity.name);
      const auto s = static_cast<std::size_t>(slot);
      EXPECT_EQ(DisplayDecimals.at(s), quantity.decimals);
      EXPECT_EQ(DisplayDecimals.at(35 + s), quantity.fine_decimals);
    }
  EXPECT_EQ(DisplayDecimals.size(), 70U);
}

TEST(Display, EveryRowHasItsCaptions)
{
  for (const auto& caption : kCaptions) {
    EXPECT_EQ(UnitCaptions.at(caption.row), caption.english);
    EXPECT_EQ(UnitCaptions.at(19 + caption.row), caption.metric);
  }
  EXPECT_EQ(UnitCaptions.size(), 2 * std::size(kCaptions));
}

TEST(Display, NumbersHaveExactlyTheirDecimals)
{
  EXPECT_EQ(FormatNumber(26.4, 0), "26");
  EXPECT_EQ(FormatNumber(26.4, 1), "26.4");
  EXPECT_EQ(FormatNumber(26.0, 1), "26.0");
  EXPECT_EQ(FormatNumber(0.1, 3), "0.100");
  EXPECT_EQ(FormatNumber(-0.75, 2), "-0.75");
  EXPECT_EQ(FormatNumber(0.004, 2), "0.00");
  EXPECT_EQ(FormatNumber(0, 0), "0");
  EXPECT_EQ(FormatNumber(0, 3), "0.000");
  EXPECT_EQ(FormatNumber(9.999, 2), "10.00");
  EXPECT_EQ(FormatNumber(99.96, 1), "100.0");
}

TEST(Display, TiesAreRoundedAwayFromZero)
{
  EXPECT_EQ(FormatNumber(0.5, 0), "1");
  EXPECT_EQ(FormatNumber(1.5, 0), "2");
  EXPECT_EQ(FormatNumber(2.5, 0), "3");
  EXPECT_EQ(FormatNumber(-0.5, 0), "-1");
  EXPECT_EQ(FormatNumber(-2.5, 0), "-3");
  EXPECT_EQ(FormatNumber(26.25, 1), "26.3");
  EXPECT_EQ(FormatNumber(0.125, 2), "0.13");
  EXPECT_EQ(FormatNumber(-0.125, 2), "-0.13");
  EXPECT_EQ(FormatNumber(0.0625, 3), "0.063");
  // The nearest double to 0.49999999999999999 is no tie.
  EXPECT_EQ(FormatNumber(std::nextafter(0.5, 0.0), 0), "0");
}

TEST(Display, SinglesAreRoundedByTheirExactValue)
{
  // The singles nearest to 2.675 and 1.005 lie below them, the one nearest to 0.0005 above.
  EXPECT_EQ(FormatNumber(2.675F, 2), "2.67");
  EXPECT_EQ(FormatNumber(1.005F, 2), "1.00");
  EXPECT_EQ(FormatNumber(0.0005F, 3), "0.001");
}

TEST(Display, ThousandsAreGrouped)
{
  EXPECT_EQ(FormatNumber(999, 0), "999");
  EXPECT_EQ(FormatNumber(999.5, 0), "1,000");
  EXPECT_EQ(FormatNumber(1050.8, 0), "1,051");
  EXPECT_EQ(FormatNumber(-1234.5, 2), "-1,234.50");
  EXPECT_EQ(FormatNumber(-123.5, 2), "-123.50");
  EXPECT_EQ(FormatNumber(123456, 0), "123,456");
  EXPECT_EQ(FormatNumber(1234567.125, 3), "1,234,567.125");
}

TEST(Display, ZeroHasNoMinusSign)
{
  EXPECT_EQ(FormatNumber(-0.0, 0), "0");
  EXPECT_EQ(FormatNumber(-0.0, 2), "0.00");
  EXPECT_EQ(FormatNumber(-0.4, 0), "0");
  EXPECT_EQ(FormatNumber(-0.004, 2), "0.00");
  EXPECT_EQ(FormatNumber(-0.0004, 3), "0.000");
  EXPECT_EQ(FormatNumber(-0.006, 2), "-0.01");
}

TEST(Display, HugeNumbersKeepAllDigits)
{
  EXPECT_EQ(FormatNumber(16777216, 1), "16,777,216.0");
  EXPECT_EQ(FormatNumber(1e15, 2), "1,000,000,000,000,000.00");
  EXPECT_EQ(FormatNumber(std::ldexp(1.0, 70), 0), "1,180,591,620,717,411,303,424");
  EXPECT_EQ(FormatNumber(std::numeric_limits<float>::max(), 0),
            "340,282,346,638,528,859,811,704,183,484,516,925,440");
  // 309 digits and the commas between them.
  EXPECT_EQ(FormatNumber(std::numeric_limits<double>::max(), 0).size(), 309U + 102U);
}

TEST(Display, EveryPowerOfTwoKeepsAllDigits)
{
  for (int power = 0; power < std::numeric_limits<double>::max_exponent; ++power) {
    const double number = std::ldexp(1.0, power);
    auto text = FormatNumber(number, 0);
    std::erase(text, ',');
    std::array<char, 400> expected{};
    std::snprintf(expected.data(), expected.size(), "%.0f", number);
    EXPECT_EQ(text, expected.data());
  }
}

TEST(Display, WhatIsNoNumberIsShownAsSuch)
{
  EXPECT_EQ(FormatNumber(std::nan(""), 2), "nan");
  EXPECT_EQ(FormatNumber(-std::nan(""), 0), "nan");
  EXPECT_EQ(FormatNumber(kInfinity, 2), "inf");
  EXPECT_EQ(FormatNumber(-kInfinity, 0), "-inf");
  EXPECT_EQ(FormatRatio(std::nan("")), "nan");
  EXPECT_EQ(FormatRatio(kInfinity), "inf");
}

TEST(Display, RatiosHaveTwoDecimalsAndNoForcedZero)
{
  EXPECT_EQ(FormatRatio(8.61), "8.61");
  EXPECT_EQ(FormatRatio(12), "12.00");
  EXPECT_EQ(FormatRatio(0.75), ".75");
  EXPECT_EQ(FormatRatio(0), ".00");
  EXPECT_EQ(FormatRatio(0.004), ".00");
  EXPECT_EQ(FormatRatio(0.999), "1.00");
  EXPECT_EQ(FormatRatio(0.125), ".13");
  EXPECT_EQ(FormatRatio(-0.25), "-.25");
  EXPECT_EQ(FormatRatio(-0.001), ".00");
  EXPECT_EQ(FormatRatio(123.456), "123.46");
  EXPECT_EQ(FormatRatio(12345.5), "12345.50");
}

TEST(Display, ValuesAreShownInTheChosenUnits)
{
  EXPECT_EQ(DisplayText(0, 26.4F, kEnglish, 0), "26");
  EXPECT_EQ(DisplayText(0, 26.4F, kEnglish, 1), "26.4");
  EXPECT_EQ(DisplayText(0, 26.4F, kMetric, 0), "182");
  EXPECT_EQ(DisplayText(0, 26.4F, kMetric, 1), "182.0");
  EXPECT_EQ(DisplayText(4, 600, kMetric, 0), "1,051");
  EXPECT_EQ(DisplayText(4, 600, kEnglish, 1), "600");
  EXPECT_EQ(DisplayText(11, 3, kMetric, 1), "3");
  EXPECT_EQ(DisplayText(16, -1.25F, kMetric, 0), "-1.25");
  EXPECT_EQ(DisplayText(20, 1, kMetric, 0), "2.54");
  EXPECT_EQ(DisplayText(24, 0.1F, kEnglish, 0), "0.100");
  EXPECT_EQ(DisplayText(24, 0.1F, kMetric, 1), "0.254");
  EXPECT_EQ(DisplayText(26, 140, kMetric, 0), "245");
  EXPECT_EQ(DisplayText(29, 3.5F, kMetric, 0), "8.89");
  EXPECT_EQ(DisplayText(30, 10, kEnglish, 0), "10");
  EXPECT_EQ(DisplayText(30, 10, kMetric, 0), "38");
  EXPECT_EQ(DisplayText(31, 15, kMetric, 1), "15");
  EXPECT_EQ(DisplayText(32, 54, kMetric, 1), "54");
}

TEST(Display, ProductsAreRoundedToSingleBeforeTheyAreShown)
{
  // The double product lies just below the tie in the first two, just above it in the others; the
  // single does not.
  EXPECT_EQ(DisplayText(28, 3.25F, kMetric, 0), "8.26");
  EXPECT_EQ(DisplayText(0, 129.44F, kMetric, 1), "892.5");
  EXPECT_EQ(DisplayText(24, 0.275F, kMetric, 0), "0.698");
  EXPECT_EQ(DisplayText(0, 157.36F, kMetric, 1), "1,084.9");
}

TEST(Display, WingsBelowZeroAreNone)
{
  for (const int wing : {33, 34})
    for (const int units : {kEnglish, kMetric}) {
      EXPECT_EQ(DisplayText(wing, -1, units, 0), "None");
      EXPECT_EQ(DisplayText(wing, -0.001F, units, 1), "None");
      EXPECT_EQ(DisplayText(wing, 0, units, 0), "0");
      EXPECT_EQ(DisplayText(wing, -0.0F, units, 0), "0");
      EXPECT_EQ(DisplayText(wing, 0, units, 1), "0.00");
      EXPECT_EQ(DisplayText(wing, 4.25F, units, 0), "4");
      EXPECT_EQ(DisplayText(wing, 4.25F, units, 1), "4.25");
    }
  EXPECT_EQ(DisplayText(32, -1, kEnglish, 0), "-1");
}

TEST(Display, SlotsWithoutValueLabelAreRefused)
{
  EXPECT_THROW((void)DisplayText(-1, 0, kEnglish, 0), BoundsError);
  EXPECT_THROW((void)DisplayText(35, 0, kEnglish, 0), BoundsError);
  EXPECT_THROW((void)DisplayText(42, 0, kEnglish, 0), BoundsError);
}

}  // namespace
}  // namespace velquist::edit
