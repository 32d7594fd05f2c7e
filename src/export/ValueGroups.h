// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "setup/SlotTable.h"

/// The values of a setup as a garage sheet has them, for all that shows them in two columns.
namespace velquist::text_export {

/// One value, or one on each side.
struct GroupedValue {
  std::string_view name;
  int left = 0;    ///< slot
  int right = -1;  ///< slot; -1 for a single value
};

struct ValueGroup {
  std::string_view title;
  std::string_view left;  ///< head of the column
  std::string_view right;
  std::span<const GroupedValue> values;
};

inline constexpr std::array<GroupedValue, 6> kFrontWheels = {{
    {"Tire pressure", 0, 1},
    {"Wheel rate", 4, 5},
    {"Bump", 8, 9},
    {"Rebound", 12, 13},
    {"Camber", 16, 17},
    {"Bump rubber", 20, 21},
}};
inline constexpr std::array<GroupedValue, 6> kRearWheels = {{
    {"Tire pressure", 2, 3},
    {"Wheel rate", 6, 7},
    {"Bump", 10, 11},
    {"Rebound", 14, 15},
    {"Camber", 18, 19},
    {"Bump rubber", 22, 23},
}};
inline constexpr std::array<GroupedValue, 4> kAxles = {{
    {"Toe in", setup::kToeIn, setup::kToeIn + 1},
    {"Roll bar stiffness", setup::kRollBar, setup::kRollBar + 1},
    {"Static ride height", setup::kRideHeight, setup::kRideHeight + 1},
    {"Wing", setup::kFrontWing, setup::kRearWing},
}};
inline constexpr std::array<GroupedValue, 3> kWholeCar = {{
    {"Fuel level", setup::kFuel},
    {"Steering ratio", setup::kSteeringRatio},
    {"Front brake bias", setup::kBrakeBias},
}};
inline constexpr std::array<GroupedValue, 3> kDifferential = {{
    {"Power angle", setup::kPowerAngle},
    {"Coast angle", setup::kCoastAngle},
    {"Clutches", setup::kClutches},
}};

/// Every value but those of the gears.
inline constexpr std::array<ValueGroup, 5> kValueGroups = {{
    {"Front wheels", "Left", "Right", kFrontWheels},
    {"Rear wheels", "Left", "Right", kRearWheels},
    {"Axles", "Front", "Rear", kAxles},
    {"Car", "", "", kWholeCar},
    {"Differential", "", "", kDifferential},
}};

}  // namespace velquist::text_export
