// SPDX-License-Identifier: MIT
#include "edit/Drivetrain.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "edit/Display.h"
#include "platform/Errors.h"
#include "setup/SlotTable.h"

namespace velquist::edit {
namespace {

using Items = std::vector<std::string>;

class Drivetrain : public ::testing::Test {
 protected:
  Drivetrain()
  {
    values.SetupDataValues.assign(53, {});
    for (int row = 0; row < data::kGearRows; ++row)
      gears.SetRow(row, {std::to_string(row), "g" + std::to_string(row), "0"});
  }

  void Row(int slot, float minimum, float value, float maximum)
  {
    auto& row = values.SetupDataValues.at(setup::RowOf(slot));
    row[data::kCurrent] = value;
    row[data::kMinimum] = minimum;
    row[data::kMaximum] = maximum;
    row[data::kStep] = 3;  // plays no part in a list
  }
  struct Built {
    std::vector<std::string> items;
    int selection = 0;
  };
  [[nodiscard]] Built Build(int list) const
  {
    return {ItemsOfList(list, values, gears), SelectionInList(list, values)};
  }

  data::SetupData values;
  data::GearData gears;
};

TEST_F(Drivetrain, FinalDrivesAreTheDisplayTextsOfTheirRows)
{
  Row(48, 74, 78, 89);
  const auto built = Build(kFinalDriveList);
  EXPECT_EQ(built.items, (Items{"g74", "g75", "g76", "g77", "g78", "g79", "g80", "g81", "g82",
                                "g83", "g84", "g85", "g86", "g87", "g88", "g89"}));
  EXPECT_EQ(built.selection, 4);
}

TEST_F(Drivetrain, AnglesGoInStepsOfFive)
{
  const Items angles = {" 30", " 35", " 40", " 45", " 50", " 55",
                        " 60", " 65", " 70", " 75", " 80", " 85"};
  Row(50, 30, 60, 85);
  Row(49, 30, 45, 85);
  EXPECT_EQ(Build(kPowerAngleList).items, angles);
  EXPECT_EQ(Build(kPowerAngleList).selection, 6);
  EXPECT_EQ(Build(kCoastAngleList).items, angles);
  EXPECT_EQ(Build(kCoastAngleList).selection, 3);
}

TEST_F(Drivetrain, AngleListsEndAtOrBelowTheMaximum)
{
  Row(50, 31, 31, 44);
  EXPECT_EQ(Build(kPowerAngleList).items, (Items{" 31", " 36", " 41"}));
}

TEST_F(Drivetrain, AnAngleBetweenTwoItemsSelectsTheNearer)
{
  const auto selection = [&](float angle) {
    Row(50, 30, angle, 85);
    return Build(kPowerAngleList).selection;
  };
  EXPECT_EQ(selection(47), 3);
  EXPECT_EQ(selection(48), 4);
  EXPECT_EQ(selection(30), 0);
  EXPECT_EQ(selection(32), 0);
  EXPECT_EQ(selection(33), 1);
  EXPECT_EQ(selection(85), 11);
  // The angle is a whole number first: 32.5 is 32 and 33.5 is 34.
  EXPECT_EQ(selection(32.5F), 0);
  EXPECT_EQ(selection(33.5F), 1);
  EXPECT_EQ(selection(37.5F), 2);
}

TEST_F(Drivetrain, ClutchesGoInStepsOfOne)
{
  Row(51, 1, 3, 5);
  EXPECT_EQ(Build(kClutchesList).items, (Items{" 1", " 2", " 3", " 4", " 5"}));
  EXPECT_EQ(Build(kClutchesList).selection, 2);
}

TEST_F(Drivetrain, ItemsHaveABlankInTheSignsPlace)
{
  Row(49, -10, -5, 10);
  EXPECT_EQ(Build(kCoastAngleList).items, (Items{"-10", "-5", " 0", " 5", " 10"}));
  EXPECT_EQ(Build(kCoastAngleList).selection, 1);
}

TEST_F(Drivetrain, WholeNumbersAreRoundedWithTiesToEven)
{
  Row(51, 2.5F, 3.5F, 6.5F);
  EXPECT_EQ(Build(kClutchesList).items, (Items{" 2", " 3", " 4", " 5", " 6"}));
  EXPECT_EQ(Build(kClutchesList).selection, 2);
  Row(51, 1.5F, 2.5F, 3.5F);
  EXPECT_EQ(Build(kClutchesList).items, (Items{" 2", " 3", " 4"}));
  EXPECT_EQ(Build(kClutchesList).selection, 0);
  Row(48, 10.5F, 11.5F, 12.4F);
  EXPECT_EQ(Build(kFinalDriveList).items, (Items{"g10", "g11", "g12"}));
  EXPECT_EQ(Build(kFinalDriveList).selection, 2);
}

TEST_F(Drivetrain, AValueOutsideTheLimitsSelectsNothingThatIsThere)
{
  Row(51, 1, 7, 5);
  EXPECT_EQ(Build(kClutchesList).selection, 6);
  Row(51, 3, 1, 5);
  EXPECT_EQ(Build(kClutchesList).selection, -2);
}

TEST_F(Drivetrain, AMinimumBeyondTheMaximumLeavesTheListEmpty)
{
  Row(51, 5, 5, 4);
  EXPECT_TRUE(Build(kClutchesList).items.empty());
}

TEST_F(Drivetrain, WhatIsNotInTheTablesIsRefused)
{
  Row(48, 80, 80, 90);
  EXPECT_THROW((void)Build(kFinalDriveList), BoundsError);
  Row(48, -1, 80, 89);
  EXPECT_THROW((void)Build(kFinalDriveList), BoundsError);
  Row(51, 1, 40000, 5);
  EXPECT_THROW((void)Build(kClutchesList), BoundsError);
  values.SetupDataValues.resize(46);
  EXPECT_THROW((void)Build(kClutchesList), BoundsError);
}

TEST_F(Drivetrain, LockingPercentFollowsClutchesAndAngle)
{
  EXPECT_DOUBLE_EQ(LockingPercent(5, 0), 30);
  EXPECT_DOUBLE_EQ(LockingPercent(0, 0), 5);
  EXPECT_NEAR(LockingPercent(2, 45), 10.6066, 0.0001);
  EXPECT_NEAR(LockingPercent(3, 60), 10.0, 0.0001);
  // The degree is 0.0174532925 radians, not the nearest double.
  EXPECT_NEAR(LockingPercent(5, 90), 5.38469e-8, 1e-12);
  EXPECT_EQ(FormatNumber(LockingPercent(2, 45), 0), "11");
  EXPECT_EQ(FormatNumber(LockingPercent(3, 60), 0), "10");
  EXPECT_EQ(FormatNumber(LockingPercent(2, 60), 0), "8");
  EXPECT_EQ(FormatNumber(LockingPercent(5, 85), 0), "3");
}

TEST_F(Drivetrain, GearRowsAreRoundedWithTiesToEven)
{
  const auto row = [&](float value) {
    Row(42, 0, value, 89);
    return GearRowOf(values, 42);
  };
  EXPECT_EQ(row(0), 0);
  EXPECT_EQ(row(89), 89);
  EXPECT_EQ(row(2.5F), 2);
  EXPECT_EQ(row(3.5F), 4);
  EXPECT_EQ(row(-0.5F), 0);
  EXPECT_EQ(row(89.4F), 89);
  EXPECT_THROW((void)row(89.5F), BoundsError);
  EXPECT_THROW((void)row(90), BoundsError);
  EXPECT_THROW((void)row(-1), BoundsError);
}

TEST_F(Drivetrain, OverallRatioIsGearTimesFinalDrive)
{
  gears.SetRow(10, {"10", "35/14", "2.500"});
  gears.SetRow(11, {"11", "20/29", "0.690"});
  gears.SetRow(12, {"12", "31/9", "3.444"});
  gears.SetRow(13, {"13", "1/8", "0.125"});
  gears.SetRow(14, {"14", "none", "none"});
  EXPECT_EQ(OverallRatioText(gears, 10, 12), "8.61");
  EXPECT_EQ(OverallRatioText(gears, 12, 12), "11.86");
  EXPECT_EQ(OverallRatioText(gears, 11, 11), ".48");
  EXPECT_EQ(OverallRatioText(gears, 13, 10), ".31");
  EXPECT_EQ(OverallRatioText(gears, 14, 12), ".00");
  EXPECT_THROW((void)OverallRatioText(gears, 90, 12), BoundsError);
  EXPECT_THROW((void)OverallRatioText(gears, 10, -1), BoundsError);
}

}  // namespace
}  // namespace velquist::edit
