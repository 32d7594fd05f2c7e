// SPDX-License-Identifier: MIT
#include "charts/PictureRecorder.h"

#include <gtest/gtest.h>

#include <string>

namespace velquist::charts {
namespace {

/// Arial's own unit: so many make the height of a letter.
constexpr double kUnits = 2048;

double UnitsOf(const std::string& text)
{
  PictureRecorder picture;
  picture.SetLetterHeight(kUnits);
  return picture.Extent(text).width;
}

TEST(PictureRecorder, TextsAreAsWideAsInArial)
{
  EXPECT_EQ(UnitsOf("0123456789"), 10 * 1139);
  EXPECT_EQ(UnitsOf("Wheel"), 1933 + 1139 + 1139 + 1139 + 455);
  std::string all;
  for (char c = ' '; c <= '~'; ++c) all += c;
  EXPECT_EQ(UnitsOf(all), 102524);  // as that font's table of advance widths adds up to
}

TEST(PictureRecorder, LettersBeyondAsciiAreAsWideAsMostAndSymbolsAsHigh)
{
  EXPECT_EQ(UnitsOf("\xC3\xBC"), 1139);
  EXPECT_EQ(UnitsOf("\xE2\x97\x84"), kUnits);
  EXPECT_EQ(UnitsOf("\n"), 0);
}

}  // namespace
}  // namespace velquist::charts
