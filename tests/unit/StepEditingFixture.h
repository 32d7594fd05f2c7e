// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "edit/StepEditing.h"
#include "setup/SlotTable.h"

namespace velquist::edit {

inline constexpr auto kUp = Direction::kIncrease;
inline constexpr auto kDown = Direction::kDecrease;
inline constexpr float kWeight = 0.6F;

using Slots = std::vector<int>;

/// Every slot from 0 to 100 in steps of 10, fine steps of 1, standing at 50.
class StepEditing : public ::testing::Test {
 protected:
  StepEditing()
  {
    values.SetupDataValues.assign(53, {50, 0, 100, 10, 1});
    // What the row of no slot holds must not matter.
    values.SetupDataValues[50] = {-7, -7, -7, -7, -7};
  }

  float& Of(int slot, data::Column column = data::kCurrent)
  {
    return values.SetupDataValues.at(setup::RowOf(slot)).at(column);
  }
  void Range(int slot, float minimum, float maximum)
  {
    Of(slot, data::kMinimum) = minimum;
    Of(slot, data::kMaximum) = maximum;
  }
  /// Presses once; the slots to be shown again.
  Slots Press(int slot, Direction direction)
  {
    const auto shown = Step(values, slot, direction, options, kWeight);
    return {shown.begin(), shown.end()};
  }
  /// All current values but those of `changed` are still 50.
  void ExpectOthersUnchanged(const Slots& changed)
  {
    for (int slot = 0; slot < setup::kSlots; ++slot) {
      if (std::ranges::find(changed, slot) == changed.end()) {
        EXPECT_EQ(Of(slot), 50.0F) << slot;
      }
    }
  }

  data::SetupData values;
  EditOptions options;
};

/// The other side of the axle.
inline int Partner(int slot)
{
  return slot % 2 == 0 ? slot + 1 : slot - 1;
}

}  // namespace velquist::edit
