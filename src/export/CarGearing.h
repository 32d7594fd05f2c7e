// SPDX-License-Identifier: MIT
#pragma once

#include "charts/Gearing.h"
#include "charts/SpeedBands.h"
#include "data/EngineCurve.h"
#include "edit/CarSetup.h"

namespace velquist::text_export {

/// The engine of a car and what the gears of its setup make of it.
struct CarGearing {
  data::EngineCurve curve;
  charts::SpeedBands bands;
  charts::Gearing gearing;
};

/// By the gear rows in the current values. Throws BoundsError for one outside 0 to 89.
[[nodiscard]] CarGearing GearingOf(const edit::CarSetup& car, bool metric);

}  // namespace velquist::text_export
