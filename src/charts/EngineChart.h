// SPDX-License-Identifier: MIT
#pragma once

#include "data/EngineCurve.h"
#include "platform/PictureSurface.h"

namespace velquist::charts {

/// Draws torque (lb-ft, blue) and horsepower (green) against rpm, in English units always, from
/// the engine curve as last computed. A mod year outside 0 to 4 draws nothing.
void DrawEngineChart(platform::PictureSurface& surface, int ModYearIndex,
                     const data::EngineCurve& curve);

}  // namespace velquist::charts
