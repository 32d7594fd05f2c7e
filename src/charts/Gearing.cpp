// SPDX-License-Identifier: MIT
#include "charts/Gearing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velquist::charts {
namespace {

constexpr double kRpmPerSample = data::EngineCurve::kRpmStep;
constexpr double kTyreRadius = kTyreCircumference / (2 * std::numbers::pi) / 12;  ///< feet

constexpr double kClearly = 1e-6;  ///< lb, more than what rounding can do to a thrust

/// The lowest whole rpm from which on, up to `rpm`, no sample is passed in this gear nor in the
/// next one, which runs slower by the factor `down`.
int StraightFrom(int rpm, double down)
{
  const auto sample_below = [](double speed) {
    return kRpmPerSample * (std::ceil(speed / kRpmPerSample) - 1);
  };
  const double begin = std::max(sample_below(rpm), sample_below(rpm * down) / down);
  return static_cast<int>(std::clamp(std::ceil(begin), 0.0, static_cast<double>(rpm)));
}

bool Holds(const Band& band, int rpm)
{
  return band.low <= rpm && rpm <= band.high;
}

Shift ShiftBetween(const data::EngineCurve& curve, const SpeedBands& bands, double overall,
                   double next)
{
  Shift shift;
  shift.rpm = BestShift(curve, bands.maximum_rpm, overall, next);
  shift.after = static_cast<int>(std::nearbyint(shift.rpm * next / overall));
  shift.in_torque_band = Holds(bands.torque, shift.after);
  shift.in_power_band = Holds(bands.power, shift.after);
  return shift;
}

}  // namespace

double TorqueAt(const data::EngineCurve& curve, double rpm) noexcept
{
  const auto below = std::min(static_cast<std::size_t>(rpm / kRpmPerSample),
                              std::size_t{data::EngineCurve::kSamples - 2});
  const auto low = static_cast<double>(curve.torque[below]);
  const auto high = static_cast<double>(curve.torque[below + 1]);
  const double beyond = rpm - kRpmPerSample * static_cast<double>(below);
  return low + (high - low) * beyond / kRpmPerSample;
}

double ThrustAt(const data::EngineCurve& curve, double rpm, double overall) noexcept
{
  return TorqueAt(curve, rpm) * overall / kTyreRadius;
}

int BestShift(const data::EngineCurve& curve, int maximum_rpm, double overall, double next) noexcept
{
  const auto gain = [&](int rpm) {
    return ThrustAt(curve, rpm * next / overall, next) - ThrustAt(curve, rpm, overall);
  };
  for (int rpm = maximum_rpm; rpm >= 0;) {
    const double here = gain(rpm);
    if (!(here >= 0)) return std::min(rpm + 1, maximum_rpm);
    // What runs straight and is clearly above 0 at both ends is so between them.
    int below = rpm - 1;
    if (here > kClearly) {
      int begin = StraightFrom(rpm, next / overall);
      while (begin < below && gain(begin) <= kClearly) begin += (rpm - begin + 1) / 2;
      below = std::min(begin, below);
    }
    rpm = below;
  }
  return 0;
}

Gearing ComputeGearing(const data::EngineCurve& curve, const SpeedBands& bands,
                       std::span<const float> ratios, float final_drive)
{
  Gearing gearing{.gears = std::vector<GearOfCar>(ratios.size()),
                  .maximum_rpm = bands.maximum_rpm,
                  .torque = bands.torque,
                  .power = bands.power,
                  .maximum_speed = bands.maximum_speed,
                  .metric = bands.metric};
  for (std::size_t i = 0; i < ratios.size(); ++i) {
    auto& gear = gearing.gears[i];
    gear.gear = static_cast<int>(i) + 1;
    gear.ratio = static_cast<double>(ratios[i]);
    gear.overall = gear.ratio * static_cast<double>(final_drive);
  }
  for (const auto& [number, speed_per_rpm] : bands.gears) {
    auto& gear = gearing.gears.at(static_cast<std::size_t>(number) - 1);
    gear.per_rpm = speed_per_rpm;
    gear.speed = bands.maximum_rpm * speed_per_rpm;
  }
  for (std::size_t i = 0; i + 1 < gearing.gears.size(); ++i) {
    auto& gear = gearing.gears[i];
    const auto& next = gearing.gears[i + 1];
    if (!gear.speed || !next.speed) continue;
    gear.step = (gear.overall / next.overall - 1) * 100;
    if (next.overall < gear.overall)
      gear.shift = ShiftBetween(curve, bands, gear.overall, next.overall);
  }
  return gearing;
}

}  // namespace velquist::charts
