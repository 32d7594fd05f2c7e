// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "data/GearData.h"
#include "data/ModYear.h"
#include "data/SetupData.h"
#include "setup/BinarySubs.h"

/// The moves between the setup buffer (bytes of the file) and the current values (column 0 of the
/// setup data table).
namespace velquist::setup {

/// Offset of the one-byte symmetry flag: not 0 says that left and right are equal.
inline constexpr std::size_t kSymmetryOffset = 260;

/// Wing value of a car without wings.
inline constexpr float kNoWing = -1.0F;

/// Selected indices of the lists Combo1(0) to Combo1(3): final drive, power angle, coast angle,
/// clutches.
using ListSelections = std::array<int, 4>;

/// What is written for those four lists: final drive row, power angle and coast angle in degrees,
/// clutches.
using ListValues = std::array<std::int16_t, 4>;

/// The numbers at those positions: the minimum fields of the lists' rows and what lies beyond.
/// Throws BoundsError for missing rows and numbers beyond 16 bits.
[[nodiscard]] ListValues ValuesOfLists(const data::SetupData& values,
                                       const ListSelections& selections);

/// Copies slots `first` to `last` from the buffer into the current values.
void LoadSlots(std::span<const std::byte> SetupBuffer, int first, int last,
               data::SetupData& values);

/// The gear table's row `id` has this ratio number, compared by three decimals. False for an ID
/// outside 0 to 89.
[[nodiscard]] bool IsGearOfRatio(const data::GearData& gears, std::int32_t id, float ratio_number);

/// Takes every value from the buffer and repairs gear IDs that disagree with their ratio numbers:
/// such an ID becomes the last gear row whose ratio does not exceed the stored ratio number. The
/// wings are read for 1969 and -1.0 for any other year. Returns the symmetry flag.
/// Throws BoundsError for a buffer that ends before a field and for gear IDs outside 0 to 89.
[[nodiscard]] bool LoadSetupValues(std::span<const std::byte> SetupBuffer,
                                   const data::GearData& gears, data::ModYear ModYearIndex,
                                   data::SetupData& values);

/// Writes every value into the buffer; final drive, angles and clutches come from the lists. All
/// other bytes stay.
/// Throws BoundsError for a value that does not fit its field; the buffer is then half written.
void StoreSetupValues(const data::SetupData& values, const ListValues& lists, bool asymmetric,
                      data::ModYear ModYearIndex, std::span<std::byte> SetupBuffer);

/// Sets the seven ratio numbers to the ratios of the gear IDs, as the game's physics needs them.
/// Throws BoundsError for gear IDs outside 0 to 89, with nothing changed.
void RebuildRatioNumbers(const data::GearData& gears, data::SetupData& values);

/// Swaps the left and right values of every wheel group.
void ReverseSides(data::SetupData& values);

}  // namespace velquist::setup
