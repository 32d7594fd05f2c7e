// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

#include "setup/SlotTable.h"

namespace velquist::app {

inline constexpr std::string_view kPressureEffect = "Higher: less grip, quicker response";
inline constexpr std::string_view kFrontRateEffect = "Higher: quicker response, more understeer";
inline constexpr std::string_view kRearRateEffect = "Higher: quicker response, more oversteer";
inline constexpr std::string_view kBumpEffect = "Higher: stiffer while the wheel moves up";
inline constexpr std::string_view kReboundEffect = "Higher: stiffer while the wheel moves down";
inline constexpr std::string_view kCamberEffect =
    "Negative: the top leans in, more grip in corners, less in a straight line";
inline constexpr std::string_view kRubberEffect = "Higher: the wheel meets the rubber sooner";
inline constexpr std::string_view kGearEffect = "Larger: quicker acceleration, less speed in it";
inline constexpr std::string_view kHeightEffect =
    "Lower: more grip, until the car strikes the ground";

/// What more or less of a slot does to the car, in one line; empty for the ratio numbers.
inline constexpr std::array<std::string_view, setup::kSlots> kEffectTexts = {
    kPressureEffect,
    kPressureEffect,
    kPressureEffect,
    kPressureEffect,
    kFrontRateEffect,
    kFrontRateEffect,
    kRearRateEffect,
    kRearRateEffect,
    kBumpEffect,
    kBumpEffect,
    kBumpEffect,
    kBumpEffect,
    kReboundEffect,
    kReboundEffect,
    kReboundEffect,
    kReboundEffect,
    kCamberEffect,
    kCamberEffect,
    kCamberEffect,
    kCamberEffect,
    kRubberEffect,
    kRubberEffect,
    kRubberEffect,
    kRubberEffect,
    "Positive: the wheels point in, a calmer car; negative: it turns in more eagerly",
    "Positive: the wheels point in, a steadier car; negative: it spins more easily",
    "Higher: less roll, more understeer",
    "Higher: less roll, more oversteer",
    kHeightEffect,
    kHeightEffect,
    "More: a heavier car that stands lower",
    "Higher: slower and calmer steering",
    "Higher: the front wheels lock first; lower: the rear wheels",
    "Larger: the front grips more in fast corners, slower on the straight",
    "Larger: the rear grips more in fast corners, slower on the straight",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    kGearEffect,
    kGearEffect,
    kGearEffect,
    kGearEffect,
    kGearEffect,
    kGearEffect,
    "Larger: quicker acceleration, lower top speed",
    "Smaller: locks more off the throttle, straighter when you brake, less willing to turn in",
    "Smaller: locks more under power, more traction, wider out of the corner",
    "More: both angles lock more",
};

}  // namespace velquist::app
