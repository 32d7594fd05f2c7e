// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/MainWindow.h"

/// What a plain value or a gear is in words, in the units shown.
namespace velquist::app {

/// "Left front tire pressure".
[[nodiscard]] std::string ValueName(int slot);

/// What the slot's step buttons keep to: "12 to 40 psi", "0.690 to 2.923" of a gear. Throws
/// BoundsError for a slot without step buttons, here and below.
[[nodiscard]] std::string RangeText(const MainWindow& window, int slot);

/// The value itself, with the decimals of fine steps: "23.5 psi", "33/18 (1.833)" of a gear.
[[nodiscard]] std::string ExactText(const MainWindow& window, int slot);

/// The same as a bare number, as a user would type it: "23.5", "1050", "1.833".
[[nodiscard]] std::string NumberText(const MainWindow& window, int slot);

/// Range and step of a value or of a list of the differential, and what it does to the car: "12 to
/// 40 psi, step 1, both sides. Higher: less grip, quicker response". The effect alone where the
/// data file lacks the range; empty for what the user does not set.
[[nodiscard]] std::string TipText(const MainWindow& window, int slot);

/// The end of a roll bar's range, English units: with constant roll bars it moves with the values.
/// 0 where the data file lacks it.
[[nodiscard]] float MostOfRollBars(const MainWindow& window);

}  // namespace velquist::app
