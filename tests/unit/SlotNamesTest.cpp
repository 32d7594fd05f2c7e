// SPDX-License-Identifier: MIT
#include "setup/SlotNames.h"

#include <gtest/gtest.h>

#include <set>

namespace velquist::setup {
namespace {

TEST(SlotNames, NameEverySlotDifferently)
{
  std::set<std::string_view> names;
  for (int slot = 0; slot < kSlots; ++slot) names.insert(SlotName(slot));
  EXPECT_EQ(names.size(), static_cast<std::size_t>(kSlots));
  EXPECT_FALSE(names.contains(""));
}

TEST(SlotNames, SayWheelAxleAndGear)
{
  EXPECT_EQ(SlotName(kTirePressure), "left front tire pressure");
  EXPECT_EQ(SlotName(kWheelRate + 3), "right rear wheel rate");
  EXPECT_EQ(SlotName(kRollBar + 1), "rear roll bar stiffness");
  EXPECT_EQ(SlotName(kFirstRatio), "1st gear ratio");
  EXPECT_EQ(SlotName(kFirstRatio + 6), "final drive ratio");
  EXPECT_EQ(SlotName(kFirstGear + 5), "6th gear");
  EXPECT_EQ(SlotName(kFinalDrive), "final drive");
  EXPECT_EQ(SlotName(kCoastAngle), "coast angle");
  EXPECT_EQ(SlotName(kPowerAngle), "power angle");
  EXPECT_EQ(SlotName(kClutches), "clutches");
}

}  // namespace
}  // namespace velquist::setup
