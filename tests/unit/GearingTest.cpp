// SPDX-License-Identifier: MIT
#include "charts/Gearing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <functional>
#include <limits>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "data/ChassisCatalogue.h"

namespace velquist::charts {
namespace {

/// A curve whose torque at a sample is what `torque` says, in lb-ft by rpm.
data::EngineCurve Curve(const std::function<double(double)>& torque)
{
  data::EngineCurve curve;
  for (std::size_t i = 0; i < curve.rpm.size(); ++i) {
    const double rpm = 200.0 * static_cast<double>(i);
    curve.rpm[i] = static_cast<float>(rpm);
    curve.torque[i] = static_cast<float>(torque(rpm));
    curve.power[i] = static_cast<float>(torque(rpm) * rpm / 5252);
  }
  return curve;
}

/// 300 lb-ft from 0 to 4000 rpm, then in a straight line to 0 at 10000.
data::EngineCurve Falling()
{
  return Curve([](double rpm) { return rpm < 4000 ? 300 : std::max(0.0, (10000 - rpm) / 20); });
}

Gearing Computed(const data::EngineCurve& curve, int maximum_rpm, const std::vector<float>& ratios,
                 float final_drive = 4.0F, bool metric = false)
{
  const auto bands =
      ComputeSpeedBands(curve, maximum_rpm, data::ModYear::k1967, 0, ratios, final_drive, metric);
  return ComputeGearing(curve, bands, ratios, final_drive);
}

TEST(Gearing, TorqueRunsStraightFromSampleToSample)
{
  const auto curve = Curve([](double rpm) { return rpm == 400 ? 100 : 50; });
  EXPECT_EQ(TorqueAt(curve, 200), 50);
  EXPECT_EQ(TorqueAt(curve, 250), 62.5);
  EXPECT_EQ(TorqueAt(curve, 400), 100);
  EXPECT_EQ(TorqueAt(curve, 450), 87.5);
  EXPECT_EQ(TorqueAt(curve, 14000), 50);
}

TEST(Gearing, ThrustIsTorqueAtTheTyreOfSevenFeetRound)
{
  // 84.8232 inches round: a radius of 1.125 feet, but for the last digits of pi.
  const auto curve = Curve([](double) { return 225; });
  EXPECT_NEAR(ThrustAt(curve, 5000, 10), 2000, 0.01);
  EXPECT_EQ(ThrustAt(curve, 5000, 10), 225.0 * 10 / (84.8232 / (2 * std::numbers::pi) / 12));
}

TEST(Gearing, RatioOverallSpeedAndStepAreWorkedOutByHand)
{
  const auto gearing = Computed(Falling(), 9000, {2.5F, 2.0F, 1.5F});
  ASSERT_EQ(gearing.gears.size(), 3U);
  EXPECT_EQ(gearing.maximum_rpm, 9000);
  EXPECT_EQ(gearing.gears[0].gear, 1);
  EXPECT_EQ(gearing.gears[0].ratio, 2.5);
  EXPECT_EQ(gearing.gears[0].overall, 10);
  // 900 turns of the wheel a minute, 7.0686 feet each, are 6361.74 feet; 88 a minute are 1 mph.
  EXPECT_NEAR(gearing.gears[0].speed.value(), 6361.74 / 88, 1e-10);
  EXPECT_EQ(gearing.gears[0].step, 25);
  EXPECT_NEAR(gearing.gears[1].step.value(), 100.0 / 3, 1e-12);
  EXPECT_FALSE(gearing.gears[2].step);
  EXPECT_FALSE(gearing.gears[2].shift);
}

TEST(Gearing, SpeedsAreMetricWhereTheBandsAre)
{
  const auto gearing = Computed(Falling(), 9000, {2.5F}, 4.0F, true);
  EXPECT_NEAR(gearing.gears[0].speed.value(), 6361.74 / 88 * 1.609344, 1e-10);
  EXPECT_EQ(gearing.maximum_speed, 200 * 1.609344);
  EXPECT_TRUE(gearing.metric);
}

TEST(Gearing, TheShiftIsWhereTheNextGearPullsAsHard)
{
  // At n rpm in 1st there are 2.5 (10000 - n) / 20, in 2nd 2 (10000 - 0.8 n) / 20: alike at
  // 5000 / 0.9 = 5555.6 rpm. After it 0.8 of 5556 = 4444.8 turns.
  const auto gearing = Computed(Falling(), 9000, {2.5F, 2.0F});
  ASSERT_TRUE(gearing.gears[0].shift);
  EXPECT_EQ(gearing.gears[0].shift->rpm, 5556);
  EXPECT_EQ(gearing.gears[0].shift->after, 4445);
}

TEST(Gearing, AnEngineWhoseTorqueHoldsIsTakenToMaximumRpm)
{
  const auto gearing = Computed(Curve([](double) { return 300; }), 9000, {2.5F, 2.0F});
  ASSERT_TRUE(gearing.gears[0].shift);
  EXPECT_EQ(gearing.gears[0].shift->rpm, 9000);
  EXPECT_EQ(gearing.gears[0].shift->after, 7200);
}

TEST(Gearing, OnlyTheStretchThatReachesMaximumRpmCounts)
{
  // A hole from 3000 to 5000 rpm, in which the next gear would pull harder.
  const auto curve = Curve([](double rpm) { return rpm > 3000 && rpm < 5000 ? 50 : 300; });
  EXPECT_EQ(BestShift(curve, 9000, 10, 8), 9000);
  EXPECT_LT(BestShift(curve, 3600, 10, 8), 3600);
}

TEST(Gearing, GearsThatPullAlikeShiftAtTheLowestRpm)
{
  // No torque at all: the next gear pulls at least as hard everywhere.
  EXPECT_EQ(BestShift(Curve([](double) { return 0; }), 9000, 10, 8), 0);
}

TEST(Gearing, AfterTheShiftIsTheNearestWholeRpm)
{
  const auto curve = Curve([](double) { return 300; });
  EXPECT_EQ(Computed(curve, 9000, {3.0F, 2.0F}).gears[0].shift.value().after, 6000);
  EXPECT_EQ(Computed(curve, 9001, {3.0F, 2.0F}).gears[0].shift.value().after, 6001);
  EXPECT_EQ(Computed(curve, 9002, {3.0F, 2.0F}).gears[0].shift.value().after, 6001);
}

TEST(Gearing, BandsOfTheEngineTellWhetherTheNextGearIsInThem)
{
  // 4600 rpm give exactly 90% of the best torque, which no longer counts.
  const auto gearing = Computed(Falling(), 9000, {2.5F, 2.0F, 1.0F});
  EXPECT_EQ(gearing.torque.high, 4400);
  EXPECT_EQ(gearing.gears[0].shift->after, 4445);
  EXPECT_FALSE(gearing.gears[0].shift->in_torque_band);
  EXPECT_TRUE(gearing.gears[0].shift->in_power_band);
  EXPECT_LT(gearing.gears[1].shift->after, gearing.power.low);
  EXPECT_TRUE(gearing.gears[1].shift->in_torque_band);
  EXPECT_FALSE(gearing.gears[1].shift->in_power_band);
}

TEST(Gearing, AGearThatIsNotBelowTheOneBeforeHasAStepAndNoShift)
{
  const auto gearing = Computed(Falling(), 9000, {2.0F, 2.0F, 2.5F});
  EXPECT_EQ(gearing.gears[0].step, 0);
  EXPECT_FALSE(gearing.gears[0].shift);
  EXPECT_NEAR(gearing.gears[1].step.value(), -20, 1e-12);
  EXPECT_FALSE(gearing.gears[1].shift);
}

TEST(Gearing, AGearWithoutRatioHasNoSpeedAndNoWayToItOrFromIt)
{
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (const float none : {0.0F, -2.0F, nan}) {
    const auto gearing = Computed(Falling(), 9000, {2.5F, none, 1.5F, 1.2F});
    ASSERT_EQ(gearing.gears.size(), 4U);
    EXPECT_TRUE(gearing.gears[0].speed);
    EXPECT_FALSE(gearing.gears[0].step);
    EXPECT_FALSE(gearing.gears[1].speed);
    EXPECT_FALSE(gearing.gears[1].step);
    EXPECT_FALSE(gearing.gears[1].shift);
    EXPECT_TRUE(gearing.gears[2].shift);
  }
  for (const auto& gear : Computed(Falling(), 9000, {2.5F, 2.0F}, 0).gears)
    EXPECT_FALSE(gear.speed || gear.step || gear.shift);
}

/// The rule of the best shift written down a second time: every whole rpm is looked at.
int ShiftByLookingEverywhere(const data::EngineCurve& curve, int maximum_rpm, double from,
                             double to)
{
  const auto torque = [&](double rpm) {
    std::size_t i = 0;
    while (i + 2 < curve.torque.size() && rpm >= 200.0 * static_cast<double>(i + 1)) ++i;
    const double a = static_cast<double>(curve.torque[i]);
    const double b = static_cast<double>(curve.torque[i + 1]);
    return a + (b - a) * (rpm - 200.0 * static_cast<double>(i)) / 200;
  };
  const double radius = 84.8232 / (2 * std::numbers::pi) / 12;
  int lowest = -1;
  for (int n = 0; n <= maximum_rpm; ++n) {
    const bool pulls = torque(n * to / from) * to / radius >= torque(n) * from / radius;
    if (!pulls) lowest = -1;
    if (pulls && lowest < 0) lowest = n;
  }
  return lowest < 0 ? maximum_rpm : lowest;
}

TEST(Gearing, BestShiftsAreThoseOfLookingEverywhere)
{
  std::mt19937 dice(20261122);
  const auto between = [&dice](int low, int high) {
    return low + static_cast<int>(dice() % static_cast<unsigned>(high - low + 1));
  };
  int below_maximum = 0;
  for (int round = 0; round < 300; ++round) {
    // Engines of the catalogue, and curves that jump from sample to sample.
    data::EngineCurve curve;
    const auto year = data::kModYears[static_cast<std::size_t>(between(0, 4))];
    const int slot = between(0, data::ChassisCount(year) - 1);
    data::ComputeEngineCurve(year, slot, curve);
    int maximum = static_cast<int>(data::EngineOf(year, slot).maximum_rpm);
    if (round % 3 == 0) {
      curve = Curve([&](double) { return between(-20, 400); });
      maximum = between(1, 14000);
    }
    const double from = between(200, 1800) / 100.0;
    const double to = from * between(400, 999) / 1000;
    const int expected = ShiftByLookingEverywhere(curve, maximum, from, to);
    EXPECT_EQ(BestShift(curve, maximum, from, to), expected)
        << "round " << round << ": " << from << " to " << to;
    if (expected < maximum) ++below_maximum;
  }
  EXPECT_GT(below_maximum, 50);
}

}  // namespace
}  // namespace velquist::charts
