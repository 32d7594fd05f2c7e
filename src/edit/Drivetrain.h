// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "data/ChassisCatalogue.h"
#include "data/GearData.h"
#include "data/SetupData.h"

/// The differential's lists and the texts of gears, final drive and locking percent.
namespace velquist::edit {

/// Places of the lists in Combo1.
inline constexpr int kFinalDriveList = 0;
inline constexpr int kPowerAngleList = 1;
inline constexpr int kCoastAngleList = 2;
inline constexpr int kClutchesList = 3;

inline constexpr int kDrivetrainLists = 4;

/// Parameter slot behind a list of Combo1.
[[nodiscard]] int SlotOfList(int list);

/// The list of such a slot.
[[nodiscard]] std::optional<int> ListOfSlot(int slot);

/// The first number of list 0 to 3, and how many there are. Whole numbers are rounded with ties to
/// even; here and below missing rows and numbers beyond 16 bits throw BoundsError.
[[nodiscard]] int FirstOfList(int list, const data::SetupData& values);
[[nodiscard]] int LengthOfList(int list, const data::SetupData& values);

/// The number of the item at a position.
[[nodiscard]] int ValueInList(int list, int position, const data::SetupData& values);
/// The position of a number; nothing when the list does not have it.
[[nodiscard]] std::optional<int> PositionInList(int list, float value,
                                                const data::SetupData& values);

/// The items of a list. Throws BoundsError for a final drive without a gear row, too.
[[nodiscard]] std::vector<std::string> ItemsOfList(int list, const data::SetupData& values,
                                                   const data::GearData& gears);

/// The position of the current value; it may lie outside the list for a value outside the limits.
[[nodiscard]] int SelectionInList(int list, const data::SetupData& values);

/// Locking percent of a differential with so many clutches at a ramp angle in degrees.
[[nodiscard]] double LockingPercent(double clutches, double angle) noexcept;

/// Gear row in a gear or final-drive slot's current value. Throws BoundsError outside 0 to 89.
[[nodiscard]] int GearRowOf(const data::SetupData& values, int slot);

/// The ratios that a car drives with.
struct GearRatios {
  std::array<float, data::kMostGears> of_gears{};
  std::size_t gear_count = 0;
  float final_drive = 0;

  [[nodiscard]] std::span<const float> Gears() const noexcept
  {
    return std::span(of_gears).first(gear_count);
  }
  friend bool operator==(const GearRatios&, const GearRatios&) = default;
};

/// Of the gear rows in the current values. Throws BoundsError like GearRowOf.
[[nodiscard]] GearRatios RatiosOf(const data::SetupData& values, const data::GearData& gears,
                                  int gear_count);

/// Text of gear row times final-drive row, picture "##.00".
[[nodiscard]] std::string OverallRatioText(const data::GearData& gears, int gear_row,
                                           int final_drive_row);

}  // namespace velquist::edit
