// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>

#include "Dice.h"
#include "MemoryProgram.h"
#include "ReferenceEditing.h"

namespace velquist::testing {

/// Everything of one program directory.
struct World {
  /// Which data files and which default setup a mod year has.
  static constexpr std::size_t kSetupFileOf[] = {0, 1, 1, 1, 2};
  static constexpr const char* kSetupFiles[] = {"67 Setup Data.ini", "65 Setup Data.ini",
                                                "GT Setup Data.ini"};
  static constexpr std::size_t kGearFileOf[] = {0, 1, 1, 1, 1};
  static constexpr const char* kGearFiles[] = {"67 Gear Data.ini", "65 Gear Data.ini"};
  static constexpr const char* kDefaults[] = {
      "67 Velquist Default.vqset", "65 Velquist Default.vqset", "66 Velquist Default.vqset",
      "69 Velquist Default.vqset", "GT Velquist Default.vqset"};

  std::array<reference::SetupLines, 3> setup_lines;
  std::array<reference::GearLines, 2> gear_lines;
  std::array<reference::Setup, 5> defaults;
};

/// Limits, steps and ratios of all kinds, and setups at, within and outside the limits.
[[nodiscard]] World RollWorld(Dice& dice);

/// Writes the files of a world into the program directory.
void PutWorld(const World& world, MemoryFiles& files);

}  // namespace velquist::testing
