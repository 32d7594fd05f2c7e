// SPDX-License-Identifier: MIT
#include "export/Values.h"

#include <array>

#include "edit/Display.h"
#include "edit/Drivetrain.h"
#include "platform/Errors.h"
#include "setup/SlotTable.h"

namespace velquist::text_export {
namespace {

constexpr int kNormalSteps = 0;
constexpr int kRatioDecimals = 3;

struct Unit {
  int first;  ///< slot that has it, up to the next line's
  std::string_view english;
  std::string_view metric;
};

constexpr std::array kUnits = {
    Unit{setup::kTirePressure, "psi", "kPa"},
    Unit{setup::kWheelRate, "lbs/in", "N/cm"},
    Unit{setup::kBump, "", ""},
    Unit{setup::kCamber, "deg", "deg"},
    Unit{setup::kBumpRubber, "in", "cm"},
    Unit{setup::kRollBar, "lbs/in", "N/cm"},
    Unit{setup::kRideHeight, "in", "cm"},
    Unit{setup::kFuel, "gal", "l"},
    Unit{setup::kSteeringRatio, "", ""},
    Unit{setup::kBrakeBias, "%", "%"},
    Unit{setup::kFrontWing, "deg", "deg"},
    Unit{setup::kFirstRatio, "", ""},
    Unit{setup::kCoastAngle, "deg", "deg"},
    Unit{setup::kClutches, "", ""},
};

/// What the window's list has selected; the value itself where it is outside the list.
double ListedValue(const edit::CarSetup& car, int list)
{
  const auto& values = car.SetupData();
  const double value = car.Value(edit::SlotOfList(list));
  try {
    const int position = edit::SelectionInList(list, values);
    if (position >= 0 && position < edit::LengthOfList(list, values))
      return edit::ValueInList(list, position, values);
  } catch (const BoundsError&) {  // no whole number
  }
  return value;
}

}  // namespace

bool HasGearRow(int slot)
{
  return slot >= setup::kFirstGear && slot <= setup::kFinalDrive;
}

std::string_view UnitOf(int slot, int units)
{
  const Unit* of_slot = nullptr;
  for (const auto& unit : kUnits)
    if (unit.first <= slot) of_slot = &unit;
  if (of_slot == nullptr) return {};
  return units == edit::kMetric ? of_slot->metric : of_slot->english;
}

float NumberOf(const edit::CarSetup& car, int slot, int units)
{
  if (HasGearRow(slot)) return car.Gears().Ratio(edit::GearRowOf(car.SetupData(), slot));
  const float value = car.Value(slot);
  return slot < edit::kDisplaySlots ? edit::InUnits(slot, value, units) : value;
}

std::string TextOf(const edit::CarSetup& car, int slot, int units)
{
  if (HasGearRow(slot)) return car.Gears().DisplayText(edit::GearRowOf(car.SetupData(), slot));
  if (slot < edit::kDisplaySlots)
    return edit::DisplayText(slot, car.Value(slot), units, kNormalSteps);
  if (const auto list = edit::ListOfSlot(slot))
    return edit::FormatNumber(ListedValue(car, *list), 0);
  return edit::FormatNumber(static_cast<double>(car.Value(slot)), kRatioDecimals);
}

}  // namespace velquist::text_export
