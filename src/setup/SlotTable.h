// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace velquist::setup {

/// Parameter slots 0 to 51: one number for every setting of a car. Also the index of the step
/// buttons and labels in the window. Wheel groups run left front, right front, left rear, right
/// rear; axle pairs run front, rear.
inline constexpr int kSlots = 52;

inline constexpr int kTirePressure = 0;
inline constexpr int kWheelRate = 4;
inline constexpr int kBump = 8;
inline constexpr int kRebound = 12;
inline constexpr int kCamber = 16;
inline constexpr int kBumpRubber = 20;
inline constexpr int kToeIn = 24;
inline constexpr int kRollBar = 26;
inline constexpr int kRideHeight = 28;
inline constexpr int kFuel = 30;
inline constexpr int kSteeringRatio = 31;
inline constexpr int kBrakeBias = 32;
inline constexpr int kFrontWing = 33;
inline constexpr int kRearWing = 34;
inline constexpr int kFirstRatio = 35;  ///< ratio numbers of gears 1 to 6 and of the final drive
inline constexpr int kFirstGear = 42;   ///< gear IDs of gears 1 to 6
inline constexpr int kFinalDrive = 48;  ///< final drive ID
inline constexpr int kCoastAngle = 49;
inline constexpr int kPowerAngle = 50;
inline constexpr int kClutches = 51;

/// Gears 1 to 6 and the final drive: ratio slot kFirstRatio + k, ID slot kFirstGear + k.
inline constexpr int kGearPairs = 7;

/// Row of the setup data tables that holds a slot. Row 50 belongs to no slot: it stands for the
/// symmetry byte.
extern const std::array<std::int16_t, kSlots> SlotRow;

/// Byte offset of a slot's field in the setup file. The wing fields are unaligned.
extern const std::array<std::int32_t, kSlots> SlotOffset;

/// True for fields stored as a signed 32-bit integer, false for singles.
[[nodiscard]] constexpr bool IsWholeSlot(int slot) noexcept
{
  return (slot >= kBump && slot < kCamber) || slot == kBrakeBias ||
         (slot >= kFirstGear && slot <= kFinalDrive) || slot == kClutches;
}

/// True for the gear IDs of gears 1 to 6.
[[nodiscard]] constexpr bool IsGear(int slot) noexcept
{
  return slot >= kFirstGear && slot < kFinalDrive;
}

/// Row of a slot for table access; throws BoundsError outside 0 to 51.
[[nodiscard]] std::size_t RowOf(int slot);

}  // namespace velquist::setup
