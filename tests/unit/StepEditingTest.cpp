// SPDX-License-Identifier: MIT
#include "edit/StepEditing.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Errors.h"
#include "setup/SlotTable.h"

namespace velquist::edit {
namespace {

using data::Column;

constexpr auto kUp = Direction::kIncrease;
constexpr auto kDown = Direction::kDecrease;
constexpr float kWeight = 0.6F;

using Slots = std::vector<int>;

/// Every slot from 0 to 100 in steps of 10, fine steps of 1, standing at 50.
class StepEditing : public ::testing::Test {
 protected:
  StepEditing()
  {
    values.SetupDataValues.assign(53, {50, 0, 100, 10, 1});
    // What the row of no slot holds must not matter.
    values.SetupDataValues[50] = {-7, -7, -7, -7, -7};
  }

  float& Of(int slot, Column column = data::kCurrent)
  {
    return values.SetupDataValues.at(setup::RowOf(slot)).at(column);
  }
  void Range(int slot, float minimum, float maximum)
  {
    Of(slot, data::kMinimum) = minimum;
    Of(slot, data::kMaximum) = maximum;
  }
  /// Presses once; the slots to be shown again.
  Slots Press(int slot, Direction direction)
  {
    const auto shown = Step(values, slot, direction, options, kWeight);
    return {shown.begin(), shown.end()};
  }
  /// All current values but those of `changed` are still 50.
  void ExpectOthersUnchanged(const Slots& changed)
  {
    for (int slot = 0; slot < setup::kSlots; ++slot) {
      if (std::ranges::find(changed, slot) == changed.end()) {
        EXPECT_EQ(Of(slot), 50.0F) << slot;
      }
    }
  }

  data::SetupData values;
  EditOptions options;
};

const Slots kCornerSlots = {0,  1,  2,  3,  8,  9,  10, 11, 12, 13,
                            14, 15, 16, 17, 18, 19, 20, 21, 22, 23};
const Slots kSingleSlots = {24, 25, 28, 29, 30, 31, 32};
const Slots kOtherSlots = {-1, 35, 36, 37, 38, 39, 40, 41, 48, 49, 50, 51, 52, 1000};

int Partner(int slot)
{
  return slot % 2 == 0 ? slot + 1 : slot - 1;
}

TEST_F(StepEditing, CornerValuesMoveWithTheirPartner)
{
  for (const int slot : kCornerSlots) {
    SCOPED_TRACE(slot);
    const int partner = Partner(slot);
    Of(partner) = 7;
    EXPECT_EQ(Press(slot, kUp), (Slots{slot, partner}));
    EXPECT_EQ(Of(slot), 60.0F);
    EXPECT_EQ(Of(partner), 60.0F);
    Of(partner) = 7;
    EXPECT_EQ(Press(slot, kDown), (Slots{slot, partner}));
    EXPECT_EQ(Of(slot), 50.0F);
    EXPECT_EQ(Of(partner), 50.0F);
    ExpectOthersUnchanged({});
  }
}

TEST_F(StepEditing, AsymmetricCornerValuesMoveAlone)
{
  options.asymmetric = true;
  for (const int slot : kCornerSlots) {
    SCOPED_TRACE(slot);
    EXPECT_EQ(Press(slot, kUp), Slots{slot});
    EXPECT_EQ(Of(slot), 60.0F);
    ExpectOthersUnchanged({slot});
    EXPECT_EQ(Press(slot, kDown), Slots{slot});
    ExpectOthersUnchanged({});
  }
}

TEST_F(StepEditing, WheelRatesWithoutProportionalSpringsAreCornerValues)
{
  for (const int slot : {4, 5, 6, 7}) {
    SCOPED_TRACE(slot);
    options.asymmetric = false;
    EXPECT_EQ(Press(slot, kUp), (Slots{slot, Partner(slot)}));
    EXPECT_EQ(Of(Partner(slot)), 60.0F);
    EXPECT_EQ(Press(slot, kDown), (Slots{slot, Partner(slot)}));
    ExpectOthersUnchanged({});
    options.asymmetric = true;
    EXPECT_EQ(Press(slot, kUp), Slots{slot});
    EXPECT_EQ(Of(Partner(slot)), 50.0F);
    EXPECT_EQ(Press(slot, kDown), Slots{slot});
    ExpectOthersUnchanged({});
  }
}

TEST_F(StepEditing, SingleValuesMoveAlone)
{
  for (const bool asymmetric : {false, true})
    for (const int slot : kSingleSlots) {
      SCOPED_TRACE(slot);
      options.asymmetric = asymmetric;
      EXPECT_EQ(Press(slot, kUp), Slots{slot});
      EXPECT_EQ(Of(slot), 60.0F);
      ExpectOthersUnchanged({slot});
      EXPECT_EQ(Press(slot, kDown), Slots{slot});
      ExpectOthersUnchanged({});
    }
}

TEST_F(StepEditing, WingsMoveAlone)
{
  for (const int slot : {33, 34}) {
    SCOPED_TRACE(slot);
    Range(slot, 0, 16);
    Of(slot, data::kStep) = 1;
    Of(slot) = -1;
    EXPECT_EQ(Press(slot, kDown), Slots{slot});
    EXPECT_EQ(Of(slot), -1.0F);
    EXPECT_EQ(Press(slot, kUp), Slots{slot});
    EXPECT_EQ(Of(slot), 0.0F);
    EXPECT_EQ(Press(slot, kDown), Slots{slot});
    EXPECT_EQ(Of(slot), 0.0F);
    Of(slot) = 50;
    ExpectOthersUnchanged({});
  }
}

TEST_F(StepEditing, RollBarsWithoutConstantTotalMoveAlone)
{
  for (const bool asymmetric : {false, true})
    for (const int slot : {26, 27}) {
      SCOPED_TRACE(slot);
      options.asymmetric = asymmetric;
      EXPECT_EQ(Press(slot, kUp), Slots{slot});
      EXPECT_EQ(Of(slot), 60.0F);
      ExpectOthersUnchanged({slot});
      EXPECT_EQ(Press(slot, kDown), Slots{slot});
      ExpectOthersUnchanged({});
    }
}

TEST_F(StepEditing, GearsMoveAloneByTheNormalStep)
{
  for (const bool fine : {false, true})
    for (int slot = 42; slot <= 47; ++slot) {
      SCOPED_TRACE(slot);
      options.fine = fine;
      EXPECT_EQ(Press(slot, kUp), Slots{slot});
      EXPECT_EQ(Of(slot), 60.0F);
      ExpectOthersUnchanged({slot});
      EXPECT_EQ(Press(slot, kDown), Slots{slot});
      ExpectOthersUnchanged({});
    }
}

TEST_F(StepEditing, OtherSlotsDoNothing)
{
  for (const int slot : kOtherSlots)
    for (const auto direction : {kUp, kDown}) {
      SCOPED_TRACE(slot);
      EXPECT_EQ(Press(slot, direction), Slots{});
      ExpectOthersUnchanged({});
    }
}

TEST_F(StepEditing, FineStepsAreUsedByAllButTheGears)
{
  options.fine = true;
  options.asymmetric = true;
  for (int slot = 0; slot <= 34; ++slot) {
    SCOPED_TRACE(slot);
    Press(slot, kUp);
    EXPECT_EQ(Of(slot), 51.0F);
    Press(slot, kDown);
    EXPECT_EQ(Of(slot), 50.0F);
  }
}

TEST_F(StepEditing, LimitsAreIncluded)
{
  options.asymmetric = true;
  for (int slot = 0; slot <= 47; ++slot) {
    if (slot >= 35 && slot <= 41) continue;
    SCOPED_TRACE(slot);
    Of(slot) = 90;
    Press(slot, kUp);
    EXPECT_EQ(Of(slot), 100.0F);
    Press(slot, kUp);
    EXPECT_EQ(Of(slot), 100.0F);
    Of(slot) = 10;
    Press(slot, kDown);
    EXPECT_EQ(Of(slot), 0.0F);
    Press(slot, kDown);
    EXPECT_EQ(Of(slot), 0.0F);
  }
}

TEST_F(StepEditing, AStepThatWouldPassTheLimitIsRefusedWhole)
{
  Of(24) = 90.5F;
  EXPECT_EQ(Press(24, kUp), Slots{24});
  EXPECT_EQ(Of(24), 90.5F);
  Of(24) = 9.5F;
  EXPECT_EQ(Press(24, kDown), Slots{24});
  EXPECT_EQ(Of(24), 9.5F);
}

TEST_F(StepEditing, ValuesOutsideTheLimitsMoveBackTowardsThem)
{
  Of(24) = 150;
  Press(24, kUp);
  EXPECT_EQ(Of(24), 150.0F);
  Press(24, kDown);
  EXPECT_EQ(Of(24), 140.0F);
  Of(24) = -150;
  Press(24, kDown);
  EXPECT_EQ(Of(24), -150.0F);
  Press(24, kUp);
  EXPECT_EQ(Of(24), -140.0F);
}

TEST_F(StepEditing, EachSlotHasLimitsAndStepsOfItsOwn)
{
  for (int slot = 0; slot <= 34; ++slot) {
    Of(slot, data::kStep) = 1 + static_cast<float>(slot) / 8;
    Of(slot, data::kMaximum) = 51 + static_cast<float>(slot) / 8;
    Of(slot, data::kMinimum) = 49 - static_cast<float>(slot) / 8;
  }
  options.asymmetric = true;
  for (int slot = 0; slot <= 34; ++slot) {
    SCOPED_TRACE(slot);
    for (int times = 0; times < 2; ++times) {
      Press(slot, kUp);
      EXPECT_EQ(Of(slot), Of(slot, data::kMaximum));
    }
    Of(slot) = 50;
    for (int times = 0; times < 2; ++times) {
      Press(slot, kDown);
      EXPECT_EQ(Of(slot), Of(slot, data::kMinimum));
    }
    Of(slot) = 50;
  }
}

TEST_F(StepEditing, RefusedPressStillMakesBothSidesEqual)
{
  for (const int slot : {0, 5, 9, 14, 17, 22}) {
    SCOPED_TRACE(slot);
    Of(slot) = 100;
    EXPECT_EQ(Press(slot, kUp), (Slots{slot, Partner(slot)}));
    EXPECT_EQ(Of(Partner(slot)), 100.0F);
    Of(slot) = 0;
    EXPECT_EQ(Press(slot, kDown), (Slots{slot, Partner(slot)}));
    EXPECT_EQ(Of(Partner(slot)), 0.0F);
  }
}

TEST_F(StepEditing, ThePartnersLimitsPlayNoPart)
{
  Range(17, 70, 75);
  Press(16, kUp);
  EXPECT_EQ(Of(17), 60.0F);
  Press(16, kDown);
  EXPECT_EQ(Of(17), 50.0F);
}

TEST_F(StepEditing, RefusedGearPressShowsNothing)
{
  Of(42) = 100;
  EXPECT_EQ(Press(42, kUp), Slots{});
  Of(42) = 5;
  EXPECT_EQ(Press(42, kDown), Slots{});
  EXPECT_EQ(Of(42), 5.0F);
}

TEST_F(StepEditing, SumsCarryTheErrorOfSinglePrecision)
{
  Range(24, 0, 2);
  Of(24, data::kStep) = 0.1F;
  Of(24) = 1;
  for (int times = 0; times < 9; ++times) Press(24, kUp);
  EXPECT_EQ(Of(24), 0x1.e6666ap+0F);
  // Ten singles of 0.1 make a little more than one, which is beyond the limit.
  Press(24, kUp);
  EXPECT_EQ(Of(24), 0x1.e6666ap+0F);
  Of(24, data::kMaximum) = 2.5F;
  Press(24, kUp);
  EXPECT_EQ(Of(24), 0x1.000002p+1F);

  Of(24) = 2;
  for (int times = 0; times < 10; ++times) Press(24, kDown);
  EXPECT_EQ(Of(24), 0x1.fffff8p-1F);
}

TEST_F(StepEditing, LimitsAreComparedAfterRoundingToSingle)
{
  // 0.4 + 0.1 in double precision lies above the single 0.5, rounded to single it is equal to it.
  Range(24, 0, 0.5F);
  Of(24, data::kStep) = 0.1F;
  Of(24) = 0.4F;
  ASSERT_GT(static_cast<double>(0.4F) + static_cast<double>(0.1F), 0.5);
  Press(24, kUp);
  EXPECT_EQ(Of(24), 0.5F);
  // A step that is lost in rounding is no refusal, and changes nothing.
  Range(24, 0, 16777216);
  Of(24) = 16777216;
  Of(24, data::kStep) = 0.5F;
  Press(24, kUp);
  EXPECT_EQ(Of(24), 16777216.0F);
}

TEST_F(StepEditing, ProportionalSpringsFollowTheWeightDistribution)
{
  options.proportional_springs = true;
  for (const int slot : {4, 5}) {
    SCOPED_TRACE(slot);
    for (int wheel = 4; wheel <= 7; ++wheel) {
      Range(wheel, 40, 320);
      Of(wheel) = 300;
    }
    EXPECT_EQ(Press(slot, kUp), (Slots{4, 5, 6, 7}));
    EXPECT_EQ(Of(4), 310.0F);
    EXPECT_EQ(Of(5), 310.0F);
    // 310 x 0.6 / 0.4 with the single nearest to 0.6; beyond the rears' maximum.
    EXPECT_EQ(Of(6), 465.00006F);
    EXPECT_EQ(Of(7), 465.00006F);
    EXPECT_EQ(Press(slot, kDown), (Slots{4, 5, 6, 7}));
    EXPECT_EQ(Of(4), 300.0F);
    EXPECT_EQ(Of(6), static_cast<float>(0.6F * 300.0 / (1 - static_cast<double>(0.6F))));
  }
}

TEST_F(StepEditing, ProportionalSpringsFollowTheRearAxleToo)
{
  options.proportional_springs = true;
  for (const int slot : {6, 7}) {
    SCOPED_TRACE(slot);
    for (int wheel = 4; wheel <= 7; ++wheel) {
      Range(wheel, 280, 310);
      Of(wheel) = 300;
    }
    EXPECT_EQ(Press(slot, kUp), (Slots{4, 5, 6, 7}));
    EXPECT_EQ(Of(6), 310.0F);
    EXPECT_EQ(Of(7), 310.0F);
    // 310 x 0.4 / 0.6; below the fronts' minimum.
    EXPECT_EQ(Of(4), 206.66664F);
    EXPECT_EQ(Of(5), 206.66664F);
    EXPECT_EQ(Press(slot, kDown), (Slots{4, 5, 6, 7}));
    EXPECT_EQ(Of(6), 300.0F);
  }
}

TEST_F(StepEditing, ProportionalSpringsStartFromTheClickedWheel)
{
  options.proportional_springs = true;
  Of(4) = 20;
  Of(5) = 80;
  Press(5, kDown);
  EXPECT_EQ(Of(4), 70.0F);
  EXPECT_EQ(Of(5), 70.0F);
}

TEST_F(StepEditing, RefusedProportionalPressChangesAndShowsNothing)
{
  options.proportional_springs = true;
  for (const int slot : {4, 5, 6, 7}) {
    SCOPED_TRACE(slot);
    Of(slot) = 95;
    EXPECT_EQ(Press(slot, kUp), Slots{});
    EXPECT_EQ(Of(slot), 95.0F);
    ExpectOthersUnchanged({slot});
    Of(slot) = 5;
    EXPECT_EQ(Press(slot, kDown), Slots{});
    EXPECT_EQ(Of(slot), 5.0F);
    ExpectOthersUnchanged({slot});
    Of(slot) = 50;
  }
}

TEST_F(StepEditing, ProportionalSpringsTakeTheFineStep)
{
  options.proportional_springs = options.fine = true;
  Press(4, kUp);
  EXPECT_EQ(Of(5), 51.0F);
}

TEST_F(StepEditing, ProportionalSpringsLeaveOtherCornersAlone)
{
  options.proportional_springs = true;
  EXPECT_EQ(Press(0, kUp), (Slots{0, 1}));
  ExpectOthersUnchanged({0, 1});
}

TEST_F(StepEditing, RollBarsShareAConstantTotal)
{
  options.constant_roll_bars = true;
  for (const int bar : {26, 27}) {
    SCOPED_TRACE(bar);
    const int other = Partner(bar);
    Range(bar, 0, 1000);
    Range(other, 75, 120);
    Of(bar, data::kStep) = 50;
    Of(bar) = 400;
    Of(other) = 100;
    EXPECT_EQ(Press(bar, kUp), (Slots{26, 27}));
    EXPECT_EQ(Of(bar), 450.0F);
    EXPECT_EQ(Of(other), 50.0F);  // below its own minimum
    Press(bar, kUp);
    EXPECT_EQ(Of(bar), 500.0F);
    EXPECT_EQ(Of(other), 0.0F);
    EXPECT_EQ(Press(bar, kUp), (Slots{26, 27}));  // refused, shown again
    EXPECT_EQ(Of(bar), 500.0F);
    EXPECT_EQ(Of(other), 0.0F);
    for (int times = 0; times < 4; ++times) EXPECT_EQ(Press(bar, kDown), (Slots{26, 27}));
    EXPECT_EQ(Of(bar), 300.0F);
    EXPECT_EQ(Of(other), 200.0F);  // beyond its own maximum
    ExpectOthersUnchanged({26, 27});
  }
}

TEST_F(StepEditing, ConstantRollBarsKeepTheClickedBarsLimits)
{
  options.constant_roll_bars = true;
  Of(26) = 100;
  EXPECT_EQ(Press(26, kUp), (Slots{26, 27}));
  EXPECT_EQ(Of(26), 100.0F);
  EXPECT_EQ(Of(27), 50.0F);
  Of(26) = 10;
  Press(26, kDown);
  EXPECT_EQ(Of(26), 0.0F);
  EXPECT_EQ(Of(27), 60.0F);
  EXPECT_EQ(Press(26, kDown), (Slots{26, 27}));
  EXPECT_EQ(Of(26), 0.0F);
  EXPECT_EQ(Of(27), 60.0F);
}

TEST_F(StepEditing, TheOtherBarTakesWhatTheClickedBarsStepLeaves)
{
  options.constant_roll_bars = options.fine = true;
  Of(26, data::kFineStep) = 0.1F;
  Of(27, data::kFineStep) = 30;
  Of(26) = 1;
  Of(27) = 0.3F;
  Press(26, kUp);
  EXPECT_EQ(Of(26), 1.1F);
  // The single nearest to 1.3 less the single nearest to 1.1.
  EXPECT_EQ(Of(27), static_cast<float>(static_cast<double>(1.3F) - static_cast<double>(1.1F)));
  EXPECT_NE(Of(27), 0.2F);
}

TEST_F(StepEditing, ABarBelowZeroStopsTheOthersIncrease)
{
  options.constant_roll_bars = true;
  Of(27) = -5;
  EXPECT_EQ(Press(26, kUp), (Slots{26, 27}));
  EXPECT_EQ(Of(26), 50.0F);
  EXPECT_EQ(Of(27), -5.0F);
  Press(26, kDown);
  EXPECT_EQ(Of(26), 40.0F);
  EXPECT_EQ(Of(27), 5.0F);
}

TEST_F(StepEditing, AMissingRowStopsThePressWithNothingChanged)
{
  values.SetupDataValues.resize(setup::RowOf(17));
  const auto before = values.SetupDataValues;
  EXPECT_THROW(Press(16, kUp), BoundsError);
  EXPECT_THROW(Press(17, kUp), BoundsError);
  EXPECT_THROW(Press(34, kDown), BoundsError);
  options.constant_roll_bars = true;
  EXPECT_THROW(Press(26, kUp), BoundsError);
  values.SetupDataValues.resize(setup::RowOf(7));
  options.proportional_springs = true;
  EXPECT_THROW(Press(4, kUp), BoundsError);
  for (std::size_t row = 0; row < values.SetupDataValues.size(); ++row)
    EXPECT_EQ(values.SetupDataValues[row], before[row]);
}

}  // namespace
}  // namespace velquist::edit
