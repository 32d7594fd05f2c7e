// SPDX-License-Identifier: MIT
#include "charts/SpeedBands.h"

#include <algorithm>
#include <cmath>

#include "data/ChassisCatalogue.h"

namespace velquist::charts {
namespace {

constexpr int kSearchedBeyondMaximum = 1000;  ///< rpm
constexpr double kPartOfPeak = 0.9;

constexpr double kUsualMaximumSpeed = 200;  ///< mph
constexpr double kKilometresPerMile = 1.609344;

}  // namespace

Band FindBand(std::span<const float> rpm, std::span<const float> values, int maximum_rpm)
{
  float peak = 0;
  std::size_t peak_at = 0;
  for (std::size_t i = 0; i < rpm.size(); ++i) {
    if (rpm[i] < static_cast<float>(maximum_rpm + kSearchedBeyondMaximum) && values[i] > peak) {
      peak = values[i];
      peak_at = i;
    }
  }
  const auto threshold = static_cast<float>(kPartOfPeak * static_cast<double>(peak));
  const auto whole = [&](std::size_t i) {
    return static_cast<int>(std::nearbyint(static_cast<double>(rpm[i])));
  };
  Band band;
  for (std::size_t i = peak_at + 1; i-- > 0 && threshold <= values[i];) band.low = whole(i);
  for (std::size_t i = peak_at; i < values.size() && threshold < values[i]; ++i)
    band.high = whole(i);
  return band;
}

double MaximumSpeed(data::ModYear ModYearIndex, int chassis) noexcept
{
  const auto cars = data::CarsOf(ModYearIndex);
  const auto slot = static_cast<std::size_t>(chassis);
  return slot < cars.size() ? cars[slot].maximum_speed : kUsualMaximumSpeed;
}

SpeedBands ComputeSpeedBands(const data::EngineCurve& curve, int maximum_rpm,
                             data::ModYear ModYearIndex, int chassis, std::span<const float> ratios,
                             float final_drive, bool metric)
{
  SpeedBands bands;
  bands.torque = FindBand(curve.rpm, curve.torque, maximum_rpm);
  bands.power = FindBand(curve.rpm, curve.power, maximum_rpm);
  bands.maximum_rpm = maximum_rpm;
  bands.maximum_speed = MaximumSpeed(ModYearIndex, chassis) * (metric ? kKilometresPerMile : 1.0);
  bands.gear_rows = static_cast<int>(ratios.size());
  bands.metric = metric;
  bands.gears.reserve(ratios.size());
  for (std::size_t i = 0; i < ratios.size(); ++i) {
    if (!(ratios[i] > 0 && final_drive > 0)) continue;
    const double overall = static_cast<double>(ratios[i]) * static_cast<double>(final_drive);
    double speed = (1 / overall) * (kTyreCircumference / 12) * (60.0 / 5280);
    if (metric) speed *= kKilometresPerMile;
    bands.gears.push_back({static_cast<int>(i) + 1, speed});
  }
  return bands;
}

}  // namespace velquist::charts
