// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/MainWindow.h"

namespace velquist::app {

/// "psi" and the like, as a slot's caption says; empty for a plain number.
[[nodiscard]] std::string UnitOf(const MainForm& form, int slot);

/// What a screen reader adds to a control's name where it lies in what the window shows beside it:
/// the value of a step button with its unit, what the number on a label is, the locking percent of
/// a ramp angle, the figures of a chart. Empty for all others.
[[nodiscard]] std::string SpokenText(const MainWindow& window, const ControlDesign& design);

}  // namespace velquist::app
