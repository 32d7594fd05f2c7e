// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "data/GearData.h"
#include "data/SetupData.h"

/// The differential's lists and the texts of gears, final drive and locking percent.
namespace velquist::edit {

/// Places of the lists in Combo1.
inline constexpr int kFinalDriveList = 0;
inline constexpr int kPowerAngleList = 1;
inline constexpr int kCoastAngleList = 2;
inline constexpr int kClutchesList = 3;

struct DrivetrainList {
  std::vector<std::string> items;
  int selection = 0;  ///< may lie outside the items for a value outside the limits
};

/// Items of list 0 to 3 from the data tables and the selection from the current value. Whole
/// numbers are rounded with ties to even. Throws BoundsError for missing rows and numbers beyond
/// 16 bits.
[[nodiscard]] DrivetrainList BuildDrivetrainList(int list, const data::SetupData& values,
                                                 const data::GearData& gears);

/// Locking percent of a differential with so many clutches at a ramp angle in degrees.
[[nodiscard]] double LockingPercent(double clutches, double angle) noexcept;

/// Gear row in a gear or final-drive slot's current value. Throws BoundsError outside 0 to 89.
[[nodiscard]] int GearRowOf(const data::SetupData& values, int slot);

/// Text of gear row times final-drive row, picture "##.00".
[[nodiscard]] std::string OverallRatioText(const data::GearData& gears, int gear_row,
                                           int final_drive_row);

}  // namespace velquist::edit
