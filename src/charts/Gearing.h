// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "charts/SpeedBands.h"
#include "data/EngineCurve.h"

namespace velquist::charts {

/// Where the next gear begins to pull at least as hard. Nothing is taken off for losses.
struct Shift {
  int rpm = 0;                  ///< to shift at
  int after = 0;                ///< engine speed at the same road speed in the next gear, whole rpm
  bool in_torque_band = false;  ///< `after` lies within the band of 90% of the best torque
  bool in_power_band = false;
};

/// One gear of a car and the way to the next one.
struct GearOfCar {
  int gear = 1;                   ///< 1 for the first
  double ratio = 0;               ///< a single
  double overall = 0;             ///< times the final drive
  double per_rpm = 0;             ///< mph, or km/h, per rpm; 0 without a ratio
  std::optional<double> speed{};  ///< at maximum rpm; none without a ratio
  std::optional<double> step{};   ///< to the next gear, percent; none where one has no ratio
  std::optional<Shift> shift{};   ///< none where the next gear is not below this one, too
};

/// What the gears of a car make of its engine.
struct Gearing {
  std::vector<GearOfCar> gears;  ///< all of them, also without a ratio
  int maximum_rpm = 0;
  Band torque;  ///< 90% of the best
  Band power;
  double maximum_speed = 0;  ///< of the car on a level track, mph or km/h
  bool metric = false;
};

/// Torque at an engine speed of 0 or more, lb-ft: linear between the samples.
[[nodiscard]] double TorqueAt(const data::EngineCurve& curve, double rpm) noexcept;

/// Thrust at the tires in a gear of that overall ratio, lb.
[[nodiscard]] double ThrustAt(const data::EngineCurve& curve, double rpm, double overall) noexcept;

/// The lowest whole rpm from which on, up to `maximum_rpm`, the next gear pulls at least as hard at
/// the same road speed; `maximum_rpm` where there is none. Both overall ratios are above 0.
[[nodiscard]] int BestShift(const data::EngineCurve& curve, int maximum_rpm, double overall,
                            double next) noexcept;

/// `ratios` and `final_drive` are those that `bands` were computed with.
[[nodiscard]] Gearing ComputeGearing(const data::EngineCurve& curve, const SpeedBands& bands,
                                     std::span<const float> ratios, float final_drive);

}  // namespace velquist::charts
