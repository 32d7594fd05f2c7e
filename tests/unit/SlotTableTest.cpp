// SPDX-License-Identifier: MIT
#include "setup/SlotTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "SetupSamples.h"
#include "platform/Errors.h"

namespace velquist::setup {
namespace {

using namespace velquist::samples;

TEST(SlotTable, EverySlotHasItsRowOffsetAndStorage)
{
  ASSERT_EQ(kSlots, 52);
  ASSERT_EQ(SlotRow.size(), kFacts.size());
  ASSERT_EQ(SlotOffset.size(), kFacts.size());
  for (std::size_t slot = 0; slot < kFacts.size(); ++slot) {
    SCOPED_TRACE(slot);
    EXPECT_EQ(kFacts[slot].slot, static_cast<int>(slot));
    EXPECT_EQ(static_cast<std::size_t>(SlotRow[slot]), kFacts[slot].row);
    EXPECT_EQ(static_cast<std::size_t>(SlotOffset[slot]), kFacts[slot].offset);
    EXPECT_EQ(IsWholeSlot(static_cast<int>(slot)), kFacts[slot].whole);
  }
}

TEST(SlotTable, RowsFollowTheFieldsInTheFile)
{
  std::vector<std::pair<std::size_t, int>> by_offset;
  for (std::size_t slot = 0; slot < kFacts.size(); ++slot)
    by_offset.emplace_back(SlotOffset[slot], SlotRow[slot]);
  std::ranges::sort(by_offset);
  int expected = 0;
  for (const auto& [offset, row] : by_offset) {
    if (expected == 50) ++expected;  // the symmetry byte, at offset 260
    EXPECT_EQ(row, expected++) << "offset " << offset;
  }
  EXPECT_EQ(expected, 53);
}

TEST(SlotTable, NoTwoFieldsOverlap)
{
  std::set<int> taken = {260};
  for (const auto offset : SlotOffset)
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(taken.insert(offset + i).second) << offset + i;
  EXPECT_EQ(taken.size(), 52U * 4 + 1);
}

TEST(SlotTable, ARatioNumberAndItsGearIdLieSevenSlotsApart)
{
  EXPECT_EQ(kFirstGear - kFirstRatio, kGearPairs);
  for (int pair = 0; pair < kGearPairs; ++pair) {
    EXPECT_FALSE(IsWholeSlot(kFirstRatio + pair));
    EXPECT_TRUE(IsWholeSlot(kFirstGear + pair));
    EXPECT_EQ(RowOf(kFirstGear + pair), RowOf(kFirstRatio + pair) + 7);
  }
  EXPECT_EQ(kFirstGear + 6, kFinalDrive);
}

TEST(SlotTable, NamesStandForTheirSlots)
{
  EXPECT_EQ(kTirePressure, 0);
  EXPECT_EQ(kWheelRate, 4);
  EXPECT_EQ(kBump, 8);
  EXPECT_EQ(kRebound, 12);
  EXPECT_EQ(kCamber, 16);
  EXPECT_EQ(kBumpRubber, 20);
  EXPECT_EQ(kToeIn, 24);
  EXPECT_EQ(kRollBar, 26);
  EXPECT_EQ(kRideHeight, 28);
  EXPECT_EQ(kFuel, 30);
  EXPECT_EQ(kSteeringRatio, 31);
  EXPECT_EQ(kBrakeBias, 32);
  EXPECT_EQ(kFrontWing, 33);
  EXPECT_EQ(kRearWing, 34);
  EXPECT_EQ(kFirstRatio, 35);
  EXPECT_EQ(kFirstGear, 42);
  EXPECT_EQ(kFinalDrive, 48);
  EXPECT_EQ(kCoastAngle, 49);
  EXPECT_EQ(kPowerAngle, 50);
  EXPECT_EQ(kClutches, 51);
}

TEST(SlotTable, ASlotBeyondTheTableThrows)
{
  EXPECT_EQ(RowOf(0), 16U);
  EXPECT_EQ(RowOf(51), 46U);
  for (const int slot : {-1, 52, -32768, 32767, 1 << 30}) {
    EXPECT_THROW((void)RowOf(slot), BoundsError) << slot;
  }
}

}  // namespace
}  // namespace velquist::setup
