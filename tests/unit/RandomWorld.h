// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

#include "MemoryProgram.h"
#include "ReferenceEditing.h"

namespace velquist::testing {

/// Seeded numbers that are the same with every standard library.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine_(seed) {}

  /// 0 to n - 1.
  int Below(int n) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(n)); }
  /// From `low` to `high`, both included.
  int Between(int low, int high) { return low + Below(high - low + 1); }
  bool OneIn(int n) { return Below(n) == 0; }
  template <class Choices>
  auto OneOf(const Choices& choices)
  {
    return *(std::begin(choices) + Below(static_cast<int>(std::size(choices))));
  }

 private:
  std::mt19937 engine_;
};

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
