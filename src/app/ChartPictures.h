// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/MainWindow.h"

/// The two charts of the main window in any size, pixels. Those in the form are recorded in the
/// size of their boxes; a window may want others, to show them enlarged.
namespace velquist::app {

/// What the form has recorded for the row `chart`, in that size.
[[nodiscard]] charts::PictureRecorder ChartPicture(const MainWindow& window,
                                                   const ControlDesign& chart, double width,
                                                   double height);

/// The same of the reference; nothing is drawn where both are the same.
[[nodiscard]] charts::PictureRecorder ReferencePicture(const MainWindow& window,
                                                       const ControlDesign& chart, double width,
                                                       double height);

/// What the chart and the reference show at a place in a picture of that size; empty for nothing.
[[nodiscard]] std::string ChartReading(const MainWindow& window, const ControlDesign& chart,
                                       double width, double height, double x, double y);

}  // namespace velquist::app
