// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <span>

#include "data/SetupData.h"
#include "edit/EditOptions.h"

namespace velquist::edit {

enum class Direction { kDecrease, kIncrease };

/// Slots whose labels have to be rewritten after a press, in that order.
class ShownSlots {
 public:
  void Add(int slot) { slots_.at(count_++) = slot; }
  [[nodiscard]] auto begin() const noexcept { return slots_.begin(); }
  [[nodiscard]] auto end() const noexcept
  {
    return slots_.begin() + static_cast<std::ptrdiff_t>(count_);
  }
  [[nodiscard]] bool empty() const noexcept { return count_ == 0; }

 private:
  std::array<int, 4> slots_{};
  std::size_t count_ = 0;
};

/// The slots that a press of `slot` can change, whatever the options: so many from the first on.
struct SlotRange {
  int first = 0;
  int count = 0;
};
[[nodiscard]] SlotRange ReachOfStep(int slot) noexcept;

/// How far one press of the slot's buttons moves its value, English units; rows for a gear. Throws
/// BoundsError when the data file lacks the slot's row, here and below.
[[nodiscard]] float StepOf(const data::SetupData& values, int slot, const EditOptions& options);

/// The ends that the slot's buttons keep its value between, English units; rows for a gear.
struct StepRange {
  float minimum = 0;
  float maximum = 0;
};
[[nodiscard]] StepRange RangeOf(const data::SetupData& values, int slot,
                                const EditOptions& options);

/// One press of the step button of `slot`: moves its value by one step (the fine step when that
/// option is on, gears excepted), refuses what would pass its limit, and applies the options.
/// Limits are inclusive; sums are rounded to single precision before they are compared or stored.
/// `rear_weight_fraction` is the selected car's, for proportional springs. A slot without step
/// buttons does nothing. Throws BoundsError when the data file lacks the slot's row, with nothing
/// changed.
[[nodiscard]] ShownSlots Step(data::SetupData& values, int slot, Direction direction,
                              const EditOptions& options, float rear_weight_fraction);

}  // namespace velquist::edit
