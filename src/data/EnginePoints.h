// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "data/ModYear.h"

namespace velquist::data {

/// One point of an engine's pressure curve.
struct EnginePoint {
  float rpm;
  float pressure;  ///< mean effective pressure, psi
};

/// The points that describe a 1966 or GT engine, rpm rising strictly from
/// 0; all 0 where the engine slot is empty. A last pressure of 0 is an engine that gives nothing
/// from there on. Throws BoundsError for the other mod years and for a slot outside 0 to 21.
[[nodiscard]] std::span<const EnginePoint, 18> EnginePoints(ModYear ModYearIndex, int engine_slot);

}  // namespace velquist::data
