// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/EngineCurve.h"
#include "data/ModYear.h"
#include "platform/PictureSurface.h"

namespace velquist::charts {

/// Draws torque (lb-ft, blue) and horsepower (green) against rpm, in English units always, from
/// the engine curve as last computed. What lies above the value axis is cut off at the plot box. A
/// dotted red line marks `maximum_rpm`, none when it lies outside the axis. A mod year
/// outside kModYears draws nothing.
void DrawEngineChart(platform::PictureSurface& surface, data::ModYear ModYearIndex,
                     const data::EngineCurve& curve, int maximum_rpm);

/// What the chart in a picture of `width` by `height` pixels shows at (x, y): rpm, horsepower and
/// torque of the sample nearest by x, one line each, those two only where the chart shows them.
/// Empty outside the plot box.
[[nodiscard]] std::string ReadEngineChart(double width, double height, data::ModYear ModYearIndex,
                                          const data::EngineCurve& curve, double x, double y);

/// The figures of the chart in one line, each 1,000 rpm: "Max RPM 9500. 1000 RPM, 51 horsepower,
/// ...".
[[nodiscard]] std::string TellEngineChart(data::ModYear ModYearIndex,
                                          const data::EngineCurve& curve, int maximum_rpm);

}  // namespace velquist::charts
