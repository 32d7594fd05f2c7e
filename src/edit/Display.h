// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace velquist::edit {

/// Slots 0 to 34 are shown as numbers with a value label of their own.
inline constexpr int kDisplaySlots = 35;
inline constexpr int kUnitCaptionRows = 19;

inline constexpr int kEnglish = 0;
inline constexpr int kMetric = 1;

/// What a raw value (English units) is multiplied by, index slot + 35 x units.
extern const std::array<float, 2 * kDisplaySlots> DisplayFactor;

/// Decimals shown, index slot + 35 x fine.
extern const std::array<short, 2 * kDisplaySlots> DisplayDecimals;

/// Row captions, index row + 19 x units: 0 to 5 front wheels, 6 to 11 rear wheels, 12 to 14 front
/// axle, 15 to 17 rear axle, 18 fuel.
extern const std::array<std::string_view, 2 * kUnitCaptionRows> UnitCaptions;

/// `value` with exactly `decimals` decimals, ties away from zero, "," between thousands and "." as
/// the decimal point. A value that rounds to zero has no minus sign.
[[nodiscard]] std::string FormatNumber(double value, int decimals);

/// The picture "##.00": two decimals, no digit forced before the point, no grouping.
[[nodiscard]] std::string FormatRatio(double value);

/// Decimals of a value label, and the value that stands on it as a number. `slot` is below
/// kDisplaySlots, here too.
[[nodiscard]] int ShownDecimals(int slot, int fine);
[[nodiscard]] double RoundedAsShown(int slot, float raw, int units, int fine);

/// The raw value of a slot, English units, in the units shown.
[[nodiscard]] float InUnits(int slot, float raw, int units);

/// Text of a value label. `raw` is in English units, `units` and `fine` are 0 or 1. A wing below 0
/// is "None". Throws BoundsError for a slot without a value label.
[[nodiscard]] std::string DisplayText(int slot, float raw, int units, int fine);

}  // namespace velquist::edit
