// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "charts/SpeedBands.h"
#include "data/ModYear.h"
#include "platform/PictureSurface.h"

namespace velquist::charts {

/// Draws one row a gear, first gear on top: torque band blue, horsepower band green, maximum rpm as
/// a small red box; the maximum speed as a red line. What lies beyond the speed axis is cut off at
/// the plot box.
void DrawSpeedBands(platform::PictureSurface& surface, data::ModYear ModYearIndex,
                    const SpeedBands& bands);

/// What the chart in a picture of `width` by `height` pixels shows at (x, y): the gear of the row,
/// the speeds at the ends of its bands and at maximum rpm, one line each. Empty outside the rows.
[[nodiscard]] std::string ReadSpeedBands(double width, double height, const SpeedBands& bands,
                                         double x, double y);

/// All figures of the chart in one line, gear by gear: "1st gear, Torque 31 to 44 MPH, ...".
[[nodiscard]] std::string TellSpeedBands(const SpeedBands& bands);

}  // namespace velquist::charts
