// SPDX-License-Identifier: MIT
// Steps up and down, limits and the two sides of an axle.
#include "StepEditingFixture.h"
#include "platform/Errors.h"

namespace velquist::edit {
namespace {

const Slots kCornerSlots = {0,  1,  2,  3,  8,  9,  10, 11, 12, 13,
                            14, 15, 16, 17, 18, 19, 20, 21, 22, 23};
const Slots kSingleSlots = {24, 25, 28, 29, 30, 31, 32};
const Slots kOtherSlots = {-1, 35, 36, 37, 38, 39, 40, 41, 48, 49, 50, 51, 52, 1000};

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
