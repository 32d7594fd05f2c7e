// SPDX-License-Identifier: MIT
#include "setup/SetupRecord.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <limits>

#include "SetupSamples.h"
#include "platform/Errors.h"

namespace velquist::setup {
namespace {

using namespace velquist::samples;

// --- RebuildRatioNumbers -----------------------------------------------------------------------

TEST(RebuildRatioNumbers, TakesTheRatioOfEveryGearId)
{
  auto data = SampleData();
  for (std::size_t pair = 0; pair < 7; ++pair) {
    data.Current(pair) = 99.0F;
    data.Current(7 + pair) = static_cast<float>(12 * pair);
  }
  RebuildRatioNumbers(SampleGears(), data);
  for (std::size_t pair = 0; pair < 7; ++pair) {
    const int row = 12 * static_cast<int>(pair);
    EXPECT_EQ(data.Current(pair), static_cast<float>(SampleThousandths(row) / 1000.0)) << pair;
    EXPECT_EQ(data.Current(7 + pair), static_cast<float>(row)) << "IDs stay";
  }
}

TEST(RebuildRatioNumbers, RoundsTheIdHalfToEvenAndTheRatioOnceToASingle)
{
  data::GearData gears = SampleGears();
  gears.SetRow(6, {"", "", " 1.23456789012 to 1"});
  auto data = SampleData();
  data.Current(7) = 6.5F;
  data.Current(8) = 7.5F;
  RebuildRatioNumbers(gears, data);
  EXPECT_EQ(data.Current(0), static_cast<float>(1.23456789012));
  EXPECT_EQ(data.Current(1), 0.9F);
}

TEST(RebuildRatioNumbers, ChangesNothingWhenAnIdHasNoRow)
{
  for (std::size_t pair = 0; pair < 7; ++pair) {
    for (const float id :
         {90.0F, 89.51F, -1.0F, -0.51F, 1.0e20F, std::numeric_limits<float>::quiet_NaN()}) {
      auto data = SampleData();
      for (std::size_t other = 0; other < 7; ++other) data.Current(other) = 99.0F;
      data.Current(7 + pair) = id;
      EXPECT_THROW(RebuildRatioNumbers(SampleGears(), data), BoundsError) << pair << ' ' << id;
      for (std::size_t other = 0; other < 7; ++other) EXPECT_EQ(data.Current(other), 99.0F);
    }
  }
}

// --- ReverseSides ------------------------------------------------------------------------------

TEST(ReverseSides, SwapsLeftAndRightOfTheWheelGroupsAlone)
{
  auto data = NumberedData();
  data.Current(50) = 1.0F;
  ReverseSides(data);
  for (const auto& fact : kFacts) {
    const int expected = fact.slot >= 24 ? fact.slot : fact.slot ^ 1;
    EXPECT_EQ(data.Current(fact.row), static_cast<float>(expected) + 0.5F) << fact.slot;
  }
  EXPECT_EQ(data.Current(50), 1.0F);
}

TEST(ReverseSides, TwiceGivesBackTheStartingValues)
{
  auto data = NumberedData();
  data.Current(16) = std::bit_cast<float>(0x7FA12345U);
  const auto before = data;
  ReverseSides(data);
  ReverseSides(data);
  for (const auto& fact : kFacts)
    EXPECT_EQ(BitsOf(data.Current(fact.row)), BitsOf(before.Value(fact.row, data::kCurrent)));
}

TEST(ReverseSides, OfEqualSidesChangesNothing)
{
  auto data = NumberedData();
  for (std::size_t slot = 0; slot < 24; slot += 2)
    data.Current(kFacts[slot].row) = data.Current(kFacts[slot + 1].row);
  const auto before = data.SetupDataValues;
  ReverseSides(data);
  EXPECT_EQ(data.SetupDataValues, before);
}

}  // namespace
}  // namespace velquist::setup
