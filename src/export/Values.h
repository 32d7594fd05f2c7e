// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "edit/CarSetup.h"

namespace velquist::text_export {

/// "psi"; empty for what has none.
[[nodiscard]] std::string_view UnitOf(int slot, int units);

/// The current value in the units wanted; the ratio of a gear.
[[nodiscard]] float NumberOf(const edit::CarSetup& car, int slot, int units);

/// The current value as the window shows it, fine steps off; ratio numbers with three decimals.
[[nodiscard]] std::string TextOf(const edit::CarSetup& car, int slot, int units);

/// True for gears and the final drive.
[[nodiscard]] bool HasGearRow(int slot);

}  // namespace velquist::text_export
