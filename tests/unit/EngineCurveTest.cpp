// SPDX-License-Identifier: MIT
#include "data/EngineCurve.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "data/ChassisCatalogue.h"
#include "data/EnginePoints.h"
#include "platform/Errors.h"

namespace velquist::data {
namespace {

using enum ModYear;

EngineCurve CurveOf(ModYear ModYearIndex, int engine_slot)
{
  EngineCurve curve;
  ComputeEngineCurve(ModYearIndex, engine_slot, curve);
  return curve;
}

constexpr std::size_t SampleAt(int rpm)
{
  return static_cast<std::size_t>(rpm / 200);
}

/// Mean effective pressure that a polynomial engine's horsepower stands for.
double PressureFromPower(const Engine& engine, double rpm, double power)
{
  return power * 13000 / rpm / (engine.displacement / 61.023);
}

/// Mean effective pressure that a point-table engine's torque stands for.
double PressureFromTorque(const Engine& engine, double torque)
{
  return torque * 3.1416 * 48 / engine.displacement;
}

struct PointArrays {
  double x[18];
  double y[18];
};

PointArrays PointsOf(ModYear ModYearIndex, int engine_slot)
{
  PointArrays p{};
  const auto points = EnginePoints(ModYearIndex, engine_slot);
  for (std::size_t k = 0; k < 18; ++k) {
    p.x[k] = points[k].rpm;
    p.y[k] = points[k].pressure;
  }
  return p;
}

double FirstSegment(const PointArrays& p, double r)
{
  const double h = p.x[1] - p.x[0];
  const double m1 = h * (p.y[2] - p.y[0]) / (p.x[2] - p.x[0]);
  const double a = p.y[0];
  const double b = 3 * p.y[1] - 3 * p.y[0] - m1 / 2;
  const double d = p.y[1] - b - p.y[0];
  const double t = (r - p.x[0]) / h;
  return ((d * t + 0.0) * t + b) * t + a;
}

double InnerSegment(const PointArrays& p, std::size_t k, double r)
{
  const double h = p.x[k + 1] - p.x[k];
  const double m0 = h * (p.y[k + 1] - p.y[k]) / (p.x[k + 1] - p.x[k - 1]);
  const double m1 = h * (p.y[k + 2] - p.y[k]) / (p.x[k + 2] - p.x[k]);
  const double c2 = 3 * p.y[k + 1] - 2 * m0 - 3 * p.y[k] - m1;
  const double d = p.y[k + 1] - c2 - m0 - p.y[k];
  const double t = (r - p.x[k]) / h;
  return ((d * t + c2) * t + m0) * t + p.y[k];
}

double LastSegment(const PointArrays& p, double r)
{
  const double h = p.x[17] - p.x[16];
  const double m0 = h * (p.y[17] - p.y[15]) / (p.x[17] - p.x[15]);
  const double d = (p.y[16] + m0 - p.y[17]) / 2;
  const double c2 = p.y[17] - d - m0 - p.y[16];
  const double t = (r - p.x[16]) / h;
  return ((d * t + c2) * t + m0) * t + p.y[16];
}

double PressureAt(const PointArrays& p, double r)
{
  if (r < p.x[1]) {
    return FirstSegment(p, r);
  }
  if (r >= p.x[16]) {
    return LastSegment(p, r);
  }
  std::size_t k = 0;
  while (!(p.x[k] <= r && r < p.x[k + 1])) {
    ++k;
  }
  return InnerSegment(p, k, r);
}

/// One sample at a time, each from scratch.
EngineCurve PlainCurve(ModYear ModYearIndex, int engine_slot)
{
  const Engine& engine = EngineOf(ModYearIndex, engine_slot);
  const double D = engine.displacement;
  EngineCurve curve;
  for (std::size_t i = 0; i < curve.rpm.size(); ++i) {
    const double r = 200.0 * static_cast<double>(i);
    double power = 0;
    double torque = 0;
    if (ModYearIndex == k1966 || ModYearIndex == kGT) {
      const double Q = PressureAt(PointsOf(ModYearIndex, engine_slot), r);
      torque = Q * D / 48 / 3.1416;
      power = torque * r / 16500 * 3.1416;
    } else {
      const double c0 = engine.c0;
      const double c1 = engine.c1;
      const double c2 = engine.c2;
      const double c3 = engine.c3;
      const double Q = c3 * std::pow(r, 3) + c2 * std::pow(r, 2) + c1 * r + c0;
      power = (D / 61.023) * r * Q / 13000;
      torque = r > 0 ? power * 5252 / r : 0;
    }
    curve.rpm[i] = static_cast<float>(r);
    curve.power[i] = static_cast<float>(power);
    curve.torque[i] = static_cast<float>(torque);
  }
  return curve;
}

TEST(EngineCurve, RpmRunsFromZeroTo14000InStepsOf200)
{
  for (const auto m : kModYears) {
    const EngineCurve curve = CurveOf(m, 0);
    ASSERT_EQ(curve.rpm.size(), 71U);
    for (std::size_t i = 0; i < curve.rpm.size(); ++i) {
      EXPECT_EQ(curve.rpm[i], 200.0F * static_cast<float>(i));
    }
  }
}

TEST(EngineCurve, EveryEngineAgreesBitForBitWithAPlainEvaluation)
{
  int engines = 0;
  for (const auto m : kModYears) {
    for (int slot = 0; slot < kEngineSlots; ++slot) {
      if (slot >= ChassisCount(m) && slot < kFormula2Slot) continue;
      ++engines;
      const EngineCurve curve = CurveOf(m, slot);
      const EngineCurve plain = PlainCurve(m, slot);
      for (std::size_t i = 0; i < curve.rpm.size(); ++i) {
        SCOPED_TRACE("mod year " + std::string(ModYearText(m)) + ", slot " + std::to_string(slot) +
                     ", sample " + std::to_string(i));
        EXPECT_EQ(std::bit_cast<std::uint32_t>(curve.rpm[i]),
                  std::bit_cast<std::uint32_t>(plain.rpm[i]));
        EXPECT_EQ(std::bit_cast<std::uint32_t>(curve.power[i]),
                  std::bit_cast<std::uint32_t>(plain.power[i]));
        EXPECT_EQ(std::bit_cast<std::uint32_t>(curve.torque[i]),
                  std::bit_cast<std::uint32_t>(plain.torque[i]));
      }
    }
  }
  EXPECT_EQ(engines, 56);
}

TEST(EngineCurve, The1967BRMGives422HorsepowerAt10000Rpm)
{
  const EngineCurve curve = CurveOf(k1967, 1);
  const std::size_t i = SampleAt(10000);
  EXPECT_NEAR(PressureFromPower(EngineOf(k1967, 1), 10000, curve.power[i]), 182.8, 0.05);
  EXPECT_NEAR(curve.power[i], 421.7, 0.05);
  EXPECT_NEAR(curve.torque[i], 221.5, 0.05);
}

TEST(EngineCurve, The1967BrabhamHas190PsiAt8000Rpm)
{
  const EngineCurve curve = CurveOf(k1967, 0);
  const double power = curve.power[SampleAt(8000)];
  EXPECT_NEAR(PressureFromPower(EngineOf(k1967, 0), 8000, power), 189.84, 0.005);
}

TEST(EngineCurve, PolynomialEnginesHaveNeitherTorqueNorPowerAtZeroRpm)
{
  for (const auto m : {k1967, k1965, k1969}) {
    const EngineCurve curve = CurveOf(m, 0);
    EXPECT_EQ(curve.power[0], 0.0F);
    EXPECT_EQ(curve.torque[0], 0.0F);
    EXPECT_GT(curve.torque[1], 0.0F);
  }
}

TEST(EngineCurve, PointTableEnginesHaveTorqueButNoPowerAtZeroRpm)
{
  const EngineCurve of_1966 = CurveOf(k1966, 0);
  EXPECT_EQ(of_1966.power[0], 0.0F);
  EXPECT_NEAR(of_1966.torque[0], 120 * 182.8 / 48 / 3.1416, 1e-4);

  const EngineCurve of_gt = CurveOf(kGT, 0);
  EXPECT_EQ(of_gt.power[0], 0.0F);
  EXPECT_NEAR(of_gt.torque[0], 105 * 426.3 / 48 / 3.1416, 1e-4);
}

TEST(EngineCurve, TheTwoKindsOfEngineKeepTheirOwnUnitConstants)
{
  const std::size_t i = SampleAt(6000);
  const EngineCurve polynomial = CurveOf(k1967, 5);
  EXPECT_NEAR(polynomial.power[i] * 5252 / polynomial.torque[i], 6000, 0.01);

  const EngineCurve points = CurveOf(k1966, 9);
  EXPECT_NEAR(points.power[i] * 16500 / 3.1416 / points.torque[i], 6000, 0.01);
}

TEST(EngineCurve, ASampleAtAnInnerPointHasThePressureOfThatPoint)
{
  const Engine& engine = EngineOf(k1966, 0);
  const EngineCurve curve = CurveOf(k1966, 0);
  EXPECT_NEAR(PressureFromTorque(engine, curve.torque[SampleAt(1000)]), 125, 1e-3);
  EXPECT_NEAR(PressureFromTorque(engine, curve.torque[SampleAt(5000)]), 179, 1e-3);
  EXPECT_NEAR(PressureFromTorque(engine, curve.torque[SampleAt(8000)]), 170.5, 1e-3);
}

TEST(EngineCurve, TheSamplesOnEitherSideOfTheSecondPointUseTheFirstAndAnInnerSegment)
{
  const PointArrays p = PointsOf(k1966, 0);
  ASSERT_EQ(p.x[1], 1000);
  const Engine& engine = EngineOf(k1966, 0);
  const EngineCurve curve = CurveOf(k1966, 0);
  const auto pressure = [&](int rpm) {
    return PressureFromTorque(engine, curve.torque[SampleAt(rpm)]);
  };

  EXPECT_NEAR(pressure(800), FirstSegment(p, 800), 1e-3);
  EXPECT_NEAR(pressure(1000), InnerSegment(p, 1, 1000), 1e-3);
  EXPECT_NEAR(pressure(1200), InnerSegment(p, 1, 1200), 1e-3);
  EXPECT_GT(std::abs(FirstSegment(p, 1200) - InnerSegment(p, 1, 1200)), 0.1);
}

TEST(EngineCurve, FromTheLastButOnePointOnTheLastSegmentIsUsed)
{
  const PointArrays p = PointsOf(k1966, 3);
  ASSERT_EQ(p.x[16], 11800);
  const Engine& engine = EngineOf(k1966, 3);
  const EngineCurve curve = CurveOf(k1966, 3);
  const auto pressure = [&](int rpm) {
    return PressureFromTorque(engine, curve.torque[SampleAt(rpm)]);
  };

  EXPECT_NEAR(pressure(11600), InnerSegment(p, 15, 11600), 1e-3);
  EXPECT_NEAR(pressure(11800), LastSegment(p, 11800), 1e-3);
  EXPECT_NEAR(pressure(12000), LastSegment(p, 12000), 1e-3);
  EXPECT_NEAR(pressure(12000), 125, 1e-3);
  EXPECT_NEAR(pressure(12200), LastSegment(p, 12200), 1e-3);
  EXPECT_GT(std::abs(InnerSegment(p, 15, 12200) - LastSegment(p, 12200)), 0.1);
}

TEST(EngineCurve, BeyondTheLastPointTheLastSegmentGoesOn)
{
  const Engine& engine = EngineOf(kGT, 0);
  const PointArrays p = PointsOf(kGT, 0);
  const EngineCurve curve = CurveOf(kGT, 0);
  ASSERT_EQ(p.x[17], 7600);

  EXPECT_NEAR(PressureFromTorque(engine, curve.torque[SampleAt(7600)]), 0, 1e-3);
  for (int rpm = 7800; rpm <= 14000; rpm += 200) {
    const std::size_t i = SampleAt(rpm);
    const double torque = LastSegment(p, rpm) * engine.displacement / 48 / 3.1416;
    EXPECT_FLOAT_EQ(curve.torque[i], static_cast<float>(torque));
    EXPECT_FLOAT_EQ(curve.power[i], static_cast<float>(torque * rpm / 16500 * 3.1416));
  }
  EXPECT_LT(curve.torque[SampleAt(8000)], 0.0F);
  EXPECT_GT(curve.torque[SampleAt(14000)], 0.0F);
}

TEST(EngineCurve, FormulaTwoAndThreeAreTheSameForEveryChassis)
{
  for (const auto m : kModYears) {
    for (const int formula : {1, 2}) {
      const EngineCurve first = CurveOf(m, EngineSlot(0, formula).value());
      EXPECT_NE(first.power, CurveOf(m, 0).power);
      for (int chassis = 1; chassis < ChassisCount(m); ++chassis) {
        const EngineCurve other = CurveOf(m, EngineSlot(chassis, formula).value());
        EXPECT_EQ(first.power, other.power);
        EXPECT_EQ(first.torque, other.torque);
      }
    }
  }
}

TEST(EngineCurve, AModYearOutsideTheCatalogueLeavesTheCurveUntouched)
{
  for (const auto m : {ModYear{-1}, ModYear{5}}) {
    EngineCurve curve = CurveOf(k1967, 1);
    const EngineCurve before = curve;
    ComputeEngineCurve(m, 0, curve);
    EXPECT_EQ(curve.rpm, before.rpm);
    EXPECT_EQ(curve.power, before.power);
    EXPECT_EQ(curve.torque, before.torque);
  }
}

TEST(EngineCurve, ASlotOutsideTheTableThrowsAndLeavesTheCurveUntouched)
{
  for (const auto m : kModYears) {
    for (const int slot : {-1, kEngineSlots}) {
      EngineCurve curve = CurveOf(k1967, 1);
      const EngineCurve before = curve;
      EXPECT_THROW(ComputeEngineCurve(m, slot, curve), BoundsError);
      EXPECT_EQ(curve.power, before.power);
      EXPECT_EQ(curve.torque, before.torque);
    }
  }
}

TEST(EngineCurve, AnEmptySlotGivesAFlatCurve)
{
  for (const auto m : kModYears) {
    const EngineCurve curve = CurveOf(m, 17);
    EXPECT_EQ(curve.rpm.back(), 14000.0F);
    EXPECT_EQ(curve.power, (std::array<float, EngineCurve::kSamples>{}));
    EXPECT_EQ(curve.torque, (std::array<float, EngineCurve::kSamples>{}));
  }
}

TEST(EngineCurve, NothingOfThePreviousCurveSurvives)
{
  for (const auto m : kModYears) {
    EngineCurve curve;
    curve.rpm.fill(-1.0F);
    curve.power.fill(-1.0F);
    curve.torque.fill(-1.0F);
    ComputeEngineCurve(m, 0, curve);

    const EngineCurve fresh = CurveOf(m, 0);
    EXPECT_EQ(curve.rpm, fresh.rpm);
    EXPECT_EQ(curve.power, fresh.power);
    EXPECT_EQ(curve.torque, fresh.torque);
  }
}

}  // namespace
}  // namespace velquist::data
