// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "data/ModYear.h"

namespace velquist::data {

/// Power and torque of one engine as both charts draw them: a sample every `kRpmStep` from 0
/// to 14000, also beyond the engine's maximum rpm, where the figures mean little: a point-table
/// engine's may fall below 0 and rise again.
struct EngineCurve {
  static constexpr int kSamples = 71;
  static constexpr int kRpmStep = 200;

  std::array<float, kSamples> rpm{};
  std::array<float, kSamples> power{};   ///< horsepower
  std::array<float, kSamples> torque{};  ///< lb-ft
  friend bool operator==(const EngineCurve&, const EngineCurve&) = default;
};

/// Fills every sample of `curve`. 1967, 1965 and 1969 engines show no torque at 0 rpm, 1966 and
/// GT engines do; an empty engine slot gives no power and no torque anywhere. A mod year outside
/// kModYears leaves the curve as it is; otherwise a slot outside 0 to 21 throws BoundsError, the
/// curve unchanged.
void ComputeEngineCurve(ModYear ModYearIndex, int engine_slot, EngineCurve& curve);

}  // namespace velquist::data
