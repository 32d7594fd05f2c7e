// SPDX-License-Identifier: MIT
// Proportional springs and constant roll bars.
#include "StepEditingFixture.h"

namespace velquist::edit {
namespace {

using StepOptions = StepEditing;

TEST_F(StepOptions, ProportionalSpringsFollowTheWeightDistribution)
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

TEST_F(StepOptions, ProportionalSpringsFollowTheRearAxleToo)
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

TEST_F(StepOptions, ProportionalSpringsStartFromTheClickedWheel)
{
  options.proportional_springs = true;
  Of(4) = 20;
  Of(5) = 80;
  Press(5, kDown);
  EXPECT_EQ(Of(4), 70.0F);
  EXPECT_EQ(Of(5), 70.0F);
}

TEST_F(StepOptions, RefusedProportionalPressChangesAndShowsNothing)
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

TEST_F(StepOptions, ProportionalSpringsTakeTheFineStep)
{
  options.proportional_springs = options.fine = true;
  Press(4, kUp);
  EXPECT_EQ(Of(5), 51.0F);
}

TEST_F(StepOptions, ProportionalSpringsLeaveOtherCornersAlone)
{
  options.proportional_springs = true;
  EXPECT_EQ(Press(0, kUp), (Slots{0, 1}));
  ExpectOthersUnchanged({0, 1});
}

TEST_F(StepOptions, RollBarsShareAConstantTotal)
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

TEST_F(StepOptions, ConstantRollBarsKeepTheClickedBarsLimits)
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

TEST_F(StepOptions, TheOtherBarTakesWhatTheClickedBarsStepLeaves)
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

TEST_F(StepOptions, ABarBelowZeroStopsTheOthersIncrease)
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

}  // namespace
}  // namespace velquist::edit
