// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "app/MainForm.h"

namespace velquist::app {

/// Client area of the window on a screen of 1280 x 1024, so that title bar, menu bar and a task
/// bar have room beside it.
inline constexpr int kDesignScreenWidth = 1280;
inline constexpr int kDesignScreenHeight = 1024;
inline constexpr int kDesignClientWidth = 1264;
inline constexpr int kDesignClientHeight = 880;

/// The design layout of the main window, one row a control, a frame before what it holds. The
/// order is the tab order.
[[nodiscard]] std::span<const ControlDesign> FormControlSettings() noexcept;

/// Horizontal and vertical ratio of a screen or window to the design.
struct Scale {
  float fx = 1;
  float fy = 1;
};

[[nodiscard]] Scale ScaleFor(int screen_width, int screen_height) noexcept;

/// Moves every control and sizes its font by `scale`; sizes are rounded to whole pixels.
void ScaleControls(MainForm& form, Scale scale);

}  // namespace velquist::app
