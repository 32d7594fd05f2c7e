// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <vector>

#include "data/EngineCurve.h"
#include "data/ModYear.h"

namespace velquist::charts {

inline constexpr double kTyreCircumference = 84.8232;  ///< inches, of a 27-inch tyre

/// Engine speeds, whole rpm, between which the engine gives 90% of its best.
struct Band {
  int low = 0;
  int high = 0;
  friend bool operator==(const Band&, const Band&) = default;
};

struct GearSpeed {
  int gear = 1;              ///< 1 for the first
  double speed_per_rpm = 0;  ///< mph, or km/h, per rpm
  friend bool operator==(const GearSpeed&, const GearSpeed&) = default;
};

/// What the speed bands chart shows.
struct SpeedBands {
  Band torque;
  Band power;
  int maximum_rpm = 0;
  double maximum_speed = 0;      ///< of the car on a level track, mph or km/h
  std::vector<GearSpeed> gears;  ///< without gears that have no ratio
  int gear_rows = 0;
  bool metric = false;
  friend bool operator==(const SpeedBands&, const SpeedBands&) = default;
};

/// Finds the band around the first highest value among the samples below maximum rpm + 1000. The
/// lower end takes in a sample of exactly 90%, the upper end does not.
[[nodiscard]] Band FindBand(std::span<const float> rpm, std::span<const float> values,
                            int maximum_rpm);

/// Approximate maximum speed of a car, mph; 200 where there is no such car.
[[nodiscard]] double MaximumSpeed(data::ModYear ModYearIndex, int chassis) noexcept;

/// `ratios` are those of the car's gears, first gear first. A gear, or all of them, whose ratio is
/// not above 0 gets no speed.
[[nodiscard]] SpeedBands ComputeSpeedBands(const data::EngineCurve& curve, int maximum_rpm,
                                           data::ModYear ModYearIndex, int chassis,
                                           std::span<const float> ratios, float final_drive,
                                           bool metric);

}  // namespace velquist::charts
