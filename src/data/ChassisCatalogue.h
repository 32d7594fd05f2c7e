// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "data/ModYear.h"

namespace velquist::data {

inline constexpr int kMostChassis = 16;  ///< chassis slots 0 to 15, in drop-box order
inline constexpr int kMostGears = 6;     ///< forward gears of any engine's gearbox

/// Engine slots: the chassis slots, 16 to 19 always empty, then one engine for each of the
/// junior formulas.
inline constexpr int kEngineSlots = 22;
inline constexpr int kFormula2Slot = 20;
inline constexpr int kFormula3Slot = 21;

/// One engine. c0 to c3 are the mean effective pressure in psi as a cubic of rpm, constant term
/// first; 1966 and GT keep them, but their curves come from EnginePoints().
struct Engine {
  float c0;
  float c1;
  float c2;
  float c3;
  float displacement;          ///< cubic inches
  float maximum_rpm;           ///< end of the usable range
  float gears;                 ///< forward gears, a whole number from 3 to kMostGears
  float rear_weight_fraction;  ///< share of the car's weight on the rear axle, 0.58 to 0.64
};

/// One car of a mod year.
struct Car {
  std::string_view code;    ///< the two letters of its setup files' extension
  std::string_view name;    ///< as `Combo3` shows it
  std::string_view folder;  ///< of its picture, within the mod year's cars
  Engine engine;
  int maximum_speed;  ///< about, on a level track, mph
};

/// The mod year's cars in the order of their slots, 1 to kMostChassis; none outside kModYears. They
/// live as long as the program.
[[nodiscard]] std::span<const Car> CarsOf(ModYear ModYearIndex) noexcept;

/// How many chassis the mod year has, 1 to kMostChassis.
/// Throws BoundsError for a mod year outside kModYears.
[[nodiscard]] int ChassisCount(ModYear ModYearIndex);

/// The chassis as `Combo3` shows it. The text lives as long as the program.
/// Throws BoundsError for a mod year outside kModYears or a slot at or above its chassis count.
[[nodiscard]] std::string_view ChassisName(ModYear ModYearIndex, int slot);

/// The engine in a slot, built in and the same for every installation; all 0 where the slot is
/// empty. Throws BoundsError for a mod year outside kModYears or a slot outside 0 to 21.
[[nodiscard]] const Engine& EngineOf(ModYear ModYearIndex, int engine_slot);

/// Engine slot for a chassis slot and a formula index 0, 1, 2 (F1, F2, F3): F1 cars have their
/// own engine, the others share their formula's. Any other formula index answers nothing. The
/// chassis slot is passed on unchecked.
[[nodiscard]] std::optional<int> EngineSlot(int chassis, int formula_index);

/// Forward gears, 0 for an empty slot. Throws like EngineOf().
[[nodiscard]] int GearCount(ModYear ModYearIndex, int engine_slot);

/// Share of the car's weight on the rear axle, 0 for an empty slot. Throws like EngineOf().
[[nodiscard]] float RearWeightFraction(ModYear ModYearIndex, int engine_slot);

}  // namespace velquist::data
