// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <iterator>
#include <random>

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

}  // namespace velquist::testing
