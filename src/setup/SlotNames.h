// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "setup/SlotTable.h"

namespace velquist::setup {

inline constexpr std::array<std::string_view, kSlots> kSlotNames = {
    "left front tire pressure",
    "right front tire pressure",
    "left rear tire pressure",
    "right rear tire pressure",
    "left front wheel rate",
    "right front wheel rate",
    "left rear wheel rate",
    "right rear wheel rate",
    "left front bump",
    "right front bump",
    "left rear bump",
    "right rear bump",
    "left front rebound",
    "right front rebound",
    "left rear rebound",
    "right rear rebound",
    "left front camber",
    "right front camber",
    "left rear camber",
    "right rear camber",
    "left front bump rubber",
    "right front bump rubber",
    "left rear bump rubber",
    "right rear bump rubber",
    "front toe in",
    "rear toe in",
    "front roll bar stiffness",
    "rear roll bar stiffness",
    "front static ride height",
    "rear static ride height",
    "fuel level",
    "steering ratio",
    "front brake bias",
    "front wing",
    "rear wing",
    "1st gear ratio",
    "2nd gear ratio",
    "3rd gear ratio",
    "4th gear ratio",
    "5th gear ratio",
    "6th gear ratio",
    "final drive ratio",
    "1st gear",
    "2nd gear",
    "3rd gear",
    "4th gear",
    "5th gear",
    "6th gear",
    "final drive",
    "coast angle",
    "power angle",
    "clutches",
};

/// What a parameter slot, 0 to 51, is called in a sentence.
[[nodiscard]] constexpr std::string_view SlotName(int slot)
{
  return kSlotNames.at(static_cast<std::size_t>(slot));
}

}  // namespace velquist::setup
