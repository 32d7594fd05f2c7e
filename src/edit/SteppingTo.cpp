// SPDX-License-Identifier: MIT
// The presses that lead to a number.
#include <cmath>
#include <optional>
#include <utility>

#include "edit/CarSetup.h"
#include "edit/Drivetrain.h"
#include "setup/SlotNames.h"
#include "setup/SlotTable.h"

namespace velquist::edit {
namespace {

constexpr int kMostPresses = 100'000;  ///< whatever steps a data file has

/// The press that leads nearer, and not beyond unless it may; nothing where there is none.
std::optional<Direction> Nearer(float value, double target, float step, bool may_lead_beyond)
{
  const double away = target - static_cast<double>(value);
  const auto direction = away > 0 ? Direction::kIncrease : Direction::kDecrease;
  const double by = away > 0 ? static_cast<double>(step) : -static_cast<double>(step);
  const double left = target - static_cast<double>(static_cast<float>(value + by));
  const bool beyond = left * away < 0;
  if (std::fabs(left) < std::fabs(away) && (may_lead_beyond || !beyond)) return direction;
  return std::nullopt;
}

}  // namespace

template <class Press>
void CarSetup::Approach(int slot, double target, bool normal_first, Press&& press)
{
  int presses = 0;
  const bool kept = options_.fine;
  for (const bool fine : {false, true}) {
    if (!fine && !normal_first) continue;
    options_.fine = fine;
    const float step = StepOf(setup_data_, slot, options_);
    for (; presses < kMostPresses; ++presses) {
      const float before = Value(slot);
      const auto direction = Nearer(before, target, step, fine);
      if (!direction) break;
      press(*direction);
      if (Value(slot) == before) break;  // at its limit
    }
  }
  options_.fine = kept;
}

ShownSlots CarSetup::StepTo(int slot, double target)
{
  auto before = Snapshot();
  try {
    // Each sum is rounded, so that one way may end a step before the limit that the other reaches.
    const auto left_by = [&](bool normal_first) {
      Approach(slot, target, normal_first, [&](Direction direction) {
        (void)edit::Step(setup_data_, slot, direction, options_, RearWeight());
      });
      const double left = std::fabs(target - static_cast<double>(Value(slot)));
      setup_data_.SetCurrent(before.values);
      return left;
    };
    const double by_both = left_by(true);
    const double by_fine = left_by(false);
    EditOptions fine;
    fine.fine = true;
    const double room = 0.1 * static_cast<double>(StepOf(setup_data_, slot, fine));
    // One step of the history, though the presses may lead back and forth.
    auto values = Values();
    ShownSlots shown;
    bool pressed = false;
    Approach(slot, target, by_both < by_fine + room, [&](Direction direction) {
      const auto moved = edit::Step(setup_data_, slot, direction, options_, RearWeight());
      if (!moved.empty()) shown = moved;
      pressed = true;
    });
    if (!pressed) return shown;
    if (setup::IsGear(slot)) (void)GearRowOf(setup_data_, slot);
    history_->Add(setup::SlotName(slot), true, std::move(values), Values());
    changed_ = true;
    return shown;
  } catch (...) {
    Restore(std::move(before));
    throw;
  }
}

}  // namespace velquist::edit
