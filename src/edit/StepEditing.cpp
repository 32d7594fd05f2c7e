// SPDX-License-Identifier: MIT
#include "edit/StepEditing.h"

#include <algorithm>

#include "setup/SlotTable.h"

namespace velquist::edit {
namespace {

using setup::RowOf;

enum class Group { kCorner, kWheelRate, kSingle, kRollBar, kGear, kNone };

Group GroupOf(int slot)
{
  if (slot < 0) return Group::kNone;
  if (slot < setup::kWheelRate) return Group::kCorner;
  if (slot < setup::kBump) return Group::kWheelRate;
  if (slot < setup::kToeIn) return Group::kCorner;
  if (slot < setup::kRollBar) return Group::kSingle;
  if (slot < setup::kRideHeight) return Group::kRollBar;
  if (slot <= setup::kRearWing) return Group::kSingle;
  if (slot >= setup::kFirstGear && slot < setup::kFinalDrive) return Group::kGear;
  return Group::kNone;
}

bool IsRightSide(int slot)
{
  return slot % 2 != 0;
}

int PartnerOf(int slot)
{
  return IsRightSide(slot) ? slot - 1 : slot + 1;
}

float RoundToSingle(double value)
{
  return static_cast<float>(value);
}

data::Column StepColumn(int slot, const EditOptions& options)
{
  return options.fine && GroupOf(slot) != Group::kGear ? data::kFineStep : data::kStep;
}

/// Front and rear together.
float TotalOfRollBars(const data::SetupData& values)
{
  const auto bar = [&](int slot) -> double { return values.Value(RowOf(slot), data::kCurrent); };
  return RoundToSingle(bar(setup::kRollBar) + bar(setup::kRollBar + 1));
}

/// The parts of one press.
struct Press {
  data::SetupData& values;
  int slot;
  Direction direction;
  data::Column step_column;

  [[nodiscard]] double Step() const { return values.Value(RowOf(slot), step_column); }
  [[nodiscard]] float Current(int of) const { return values.Value(RowOf(of), data::kCurrent); }
  void Set(int of, float value) const { values.Current(RowOf(of)) = value; }

  /// Where the press would take the value.
  [[nodiscard]] float Moved() const
  {
    const double value = Current(slot);
    return RoundToSingle(direction == Direction::kIncrease ? value + Step() : value - Step());
  }
  [[nodiscard]] bool PassesLimit(float value) const
  {
    return direction == Direction::kIncrease ? value > values.Value(RowOf(slot), data::kMaximum)
                                             : value < values.Value(RowOf(slot), data::kMinimum);
  }
};

/// True when the value moved.
bool PlainStep(const Press& press)
{
  const float moved = press.Moved();
  if (press.PassesLimit(moved)) return false;
  press.Set(press.slot, moved);
  return true;
}

void CornerStep(const Press& press, bool asymmetric, ShownSlots& shown)
{
  const int partner = PartnerOf(press.slot);
  (void)press.Current(partner);  // a missing row stops the press before anything has moved
  PlainStep(press);
  shown.Add(press.slot);
  if (asymmetric) return;
  press.Set(partner, press.Current(press.slot));
  shown.Add(partner);
}

/// Both wheel rates of the clicked axle move, the other axle follows by the weight distribution,
/// outside its own limits too.
void ProportionalSpringStep(const Press& press, float rear_weight_fraction, ShownSlots& shown)
{
  constexpr int kFront = setup::kWheelRate;
  constexpr int kRear = setup::kWheelRate + 2;
  (void)press.Current(kRear + 1);
  const float moved = press.Moved();
  if (press.PassesLimit(moved)) return;
  const double w = rear_weight_fraction;
  const double clicked = moved;
  const bool is_front = press.slot < kRear;
  const float front = is_front ? moved : RoundToSingle((1.0 - w) * clicked / w);
  const float rear = is_front ? RoundToSingle(w * clicked / (1.0 - w)) : moved;
  for (int slot = kFront; slot < kFront + 4; ++slot) {
    press.Set(slot, slot < kRear ? front : rear);
    shown.Add(slot);
  }
}

void ConstantRollBarStep(const Press& press, ShownSlots& shown)
{
  const int other = PartnerOf(press.slot);
  const float total = TotalOfRollBars(press.values);
  const float moved = press.Moved();
  // The other bar may not fall below zero; its own limits play no part.
  const bool other_spent =
      press.direction == Direction::kIncrease &&
      RoundToSingle(static_cast<double>(press.Current(other)) - press.Step()) < 0.0F;
  if (!press.PassesLimit(moved) && !other_spent) {
    press.Set(press.slot, moved);
    press.Set(other, RoundToSingle(static_cast<double>(total) - static_cast<double>(moved)));
  }
  shown.Add(setup::kRollBar);
  shown.Add(setup::kRollBar + 1);
}

}  // namespace

float StepOf(const data::SetupData& values, int slot, const EditOptions& options)
{
  return values.Value(RowOf(slot), StepColumn(slot, options));
}

StepRange RangeOf(const data::SetupData& values, int slot, const EditOptions& options)
{
  StepRange range = {values.Value(RowOf(slot), data::kMinimum),
                     values.Value(RowOf(slot), data::kMaximum)};
  if (options.constant_roll_bars && GroupOf(slot) == Group::kRollBar)
    range.maximum = std::min(range.maximum, TotalOfRollBars(values));
  return range;
}

SlotRange ReachOfStep(int slot) noexcept
{
  switch (GroupOf(slot)) {
    case Group::kCorner: return {slot & ~1, 2};
    case Group::kWheelRate: return {setup::kWheelRate, 4};
    case Group::kRollBar: return {setup::kRollBar, 2};
    case Group::kSingle:
    case Group::kGear: return {slot, 1};
    case Group::kNone: break;
  }
  return {};
}

ShownSlots Step(data::SetupData& values, int slot, Direction direction, const EditOptions& options,
                float rear_weight_fraction)
{
  ShownSlots shown;
  const Press press{values, slot, direction, StepColumn(slot, options)};
  switch (GroupOf(slot)) {
    case Group::kCorner: CornerStep(press, options.asymmetric, shown); break;
    case Group::kWheelRate:
      if (options.proportional_springs)
        ProportionalSpringStep(press, rear_weight_fraction, shown);
      else
        CornerStep(press, options.asymmetric, shown);
      break;
    case Group::kRollBar:
      if (options.constant_roll_bars) {
        ConstantRollBarStep(press, shown);
        break;
      }
      [[fallthrough]];
    case Group::kSingle:
      PlainStep(press);
      shown.Add(slot);
      break;
    case Group::kGear:
      if (PlainStep(press)) shown.Add(slot);
      break;
    case Group::kNone: break;
  }
  return shown;
}

}  // namespace velquist::edit
