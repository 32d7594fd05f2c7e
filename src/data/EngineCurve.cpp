// SPDX-License-Identifier: MIT
#include "data/EngineCurve.h"

#include <cstddef>
#include <span>

#include "data/ChassisCatalogue.h"
#include "data/EnginePoints.h"

namespace velquist::data {
namespace {

// Horsepower of a four-stroke engine is litres x rpm x psi / 13000 (12979 before rounding), and
// horsepower is lb-ft x rpm / 5252.
constexpr double kCubicInchesPerLitre = 61.023;
constexpr double kPowerDivisor = 13000;
constexpr double kHorsepowerRpmPerPoundFoot = 5252;

// Torque of a four-stroke engine in lb-ft is psi x cubic inches / 48 pi, and horsepower is
// lb-ft x rpm x 2 pi / 33000. The two sets differ by 0.2 percent: each belongs to its own kind of
// engine data and must not replace the other.
constexpr double kTorqueDivisor = 48;
constexpr double kPi = 3.1416;
constexpr double kHalfHorsepower = 16500;

void ComputeFromPolynomial(const Engine& engine, EngineCurve& curve)
{
  const double c0 = engine.c0;
  const double c1 = engine.c1;
  const double c2 = engine.c2;
  const double c3 = engine.c3;
  const double litres = engine.displacement / kCubicInchesPerLitre;

  for (int i = 0; i < EngineCurve::kSamples; ++i) {
    const double r = i * EngineCurve::kRpmStep;
    const double pressure = c3 * (r * r * r) + c2 * (r * r) + c1 * r + c0;
    const double power = litres * r * pressure / kPowerDivisor;
    const double torque = i > 0 ? power * kHorsepowerRpmPerPoundFoot / r : 0.0;

    const auto sample = static_cast<std::size_t>(i);
    curve.rpm[sample] = static_cast<float>(r);
    curve.power[sample] = static_cast<float>(power);
    curve.torque[sample] = static_cast<float>(torque);
  }
}

/// The stretch of a point-table engine between two neighbouring points, as a cubic of the
/// distance from the first, counted in stretches.
struct Segment {
  double start;  // rpm
  double width;  // rpm
  double a;
  double b;
  double c2;
  double d;

  [[nodiscard]] double At(double rpm) const
  {
    const double t = (rpm - start) / width;
    return ((d * t + c2) * t + b) * t + a;
  }
};

constexpr std::size_t kLastSegment = 16;

using Points = std::span<const EnginePoint, 18>;

/// The segment from point k to point k + 1. The slope m0 at the start of an inner segment is the
/// rise to the next point over the distance between both neighbours, not the usual rise between
/// the neighbours, and the first segment halves its slope in b alone: the points are meant to be
/// joined this way.
Segment SegmentFrom(Points points, std::size_t k)
{
  const auto x = [points](std::size_t i) { return static_cast<double>(points[i].rpm); };
  const auto y = [points](std::size_t i) { return static_cast<double>(points[i].pressure); };

  Segment s{};
  s.start = x(k);
  s.width = x(k + 1) - x(k);
  s.a = y(k);
  if (k == 0) {
    const double m1 = s.width * (y(2) - y(0)) / (x(2) - x(0));
    s.b = 3 * y(1) - 3 * y(0) - m1 / 2;
    s.c2 = 0;
    s.d = y(1) - s.b - y(0);
  } else if (k == kLastSegment) {
    const double m0 = s.width * (y(17) - y(15)) / (x(17) - x(15));
    s.b = m0;
    s.d = (y(16) + m0 - y(17)) / 2;
    s.c2 = y(17) - s.d - m0 - y(16);
  } else {
    const double m0 = s.width * (y(k + 1) - y(k)) / (x(k + 1) - x(k - 1));
    const double m1 = s.width * (y(k + 2) - y(k)) / (x(k + 2) - x(k));
    s.b = m0;
    s.c2 = 3 * y(k + 1) - 2 * m0 - 3 * y(k) - m1;
    s.d = y(k + 1) - s.c2 - m0 - y(k);
  }
  return s;
}

void ComputeFromPoints(const Engine& engine, Points points, EngineCurve& curve)
{
  const double displacement = engine.displacement;
  std::size_t k = 0;
  Segment segment = SegmentFrom(points, k);

  for (int i = 0; i < EngineCurve::kSamples; ++i) {
    const double r = i * EngineCurve::kRpmStep;
    const std::size_t previous = k;
    while (k < kLastSegment && r >= static_cast<double>(points[k + 1].rpm)) {
      ++k;
    }
    if (k != previous) {
      segment = SegmentFrom(points, k);
    }
    const double torque = segment.At(r) * displacement / kTorqueDivisor / kPi;
    const double power = torque * r / kHalfHorsepower * kPi;

    const auto sample = static_cast<std::size_t>(i);
    curve.rpm[sample] = static_cast<float>(r);
    curve.power[sample] = static_cast<float>(power);
    curve.torque[sample] = static_cast<float>(torque);
  }
}

}  // namespace

void ComputeEngineCurve(ModYear ModYearIndex, int engine_slot, EngineCurve& curve)
{
  if (!ModYearOfNumber(NumberOf(ModYearIndex))) {
    return;
  }
  const Engine& engine = EngineOf(ModYearIndex, engine_slot);
  const bool has_points = ModYearIndex == ModYear::k1966 || ModYearIndex == ModYear::kGT;
  const bool empty_slot = !(engine.displacement > 0);
  if (has_points && !empty_slot) {
    ComputeFromPoints(engine, EnginePoints(ModYearIndex, engine_slot), curve);
  } else {
    ComputeFromPolynomial(engine, curve);
  }
}

}  // namespace velquist::data
