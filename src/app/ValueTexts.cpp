// SPDX-License-Identifier: MIT
#include "app/ValueTexts.h"

#include <algorithm>

#include "app/EffectTexts.h"
#include "app/SpokenTexts.h"
#include "data/Numbers.h"
#include "edit/Display.h"
#include "edit/Drivetrain.h"
#include "edit/StepEditing.h"
#include "platform/Errors.h"
#include "setup/SlotNames.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

constexpr int kFine = 1;

std::string WithoutLastZeros(std::string number)
{
  if (number.find('.') == std::string::npos) return number;
  number.erase(number.find_last_not_of('0') + 1);
  if (number.ends_with('.')) number.pop_back();
  return number;
}

/// With the decimals that the label has.
std::string ShortText(const MainWindow& window, int slot, float raw)
{
  const int units = window.State().Units;
  const int decimals = edit::ShownDecimals(slot, window.Car().Options().FineIndex());
  return WithoutLastZeros(edit::FormatNumber(edit::InUnits(slot, raw, units), decimals));
}

std::string WithUnit(const MainWindow& window, int slot, const std::string& number)
{
  const auto unit = UnitOf(window.Form(), slot);
  return unit.empty() ? number : number + " " + unit;
}

/// As many decimals as tell it apart from its neighbours, in the units shown.
std::string SizeOfStep(const MainWindow& window, int slot)
{
  const auto& car = window.Car();
  const float raw = edit::StepOf(car.SetupData(), slot, car.Options());
  const float step = edit::InUnits(slot, raw, window.State().Units);
  const int decimals = step >= 10 ? 1 : step >= 1 ? 2 : 3;
  return WithoutLastZeros(edit::FormatNumber(step, decimals));
}

/// Who goes along with the slot's steps.
std::string_view AlongText(const edit::EditOptions& options, int slot)
{
  if (slot >= setup::kToeIn) return {};
  const bool wheel_rate = slot >= setup::kWheelRate && slot < setup::kBump;
  if (wheel_rate && options.proportional_springs) return ", all four wheels";
  return options.asymmetric ? std::string_view() : ", both sides";
}

std::string ListRangeText(const edit::CarSetup& car, int slot)
{
  const int list = edit::ListOfSlot(slot).value();
  const auto end = [&](int position) {
    const int number = edit::ValueInList(list, position, car.SetupData());
    return slot == setup::kFinalDrive ? car.Gears().Text(number, 2) : std::to_string(number);
  };
  const int last = edit::LengthOfList(list, car.SetupData()) - 1;
  auto range = end(0) + " to " + end(last);
  if (slot == setup::kFinalDrive) return range;
  const int step =
      edit::ValueInList(list, 1, car.SetupData()) - edit::FirstOfList(list, car.SetupData());
  return range + (slot == setup::kClutches ? "" : " deg") + ", step " + std::to_string(step);
}

}  // namespace

std::string ValueName(int slot)
{
  std::string name(setup::SlotName(slot));
  if (name.front() >= 'a' && name.front() <= 'z')
    name.front() = static_cast<char>(name.front() - 'a' + 'A');
  return name;
}

std::string RangeText(const MainWindow& window, int slot)
{
  const auto& car = window.Car();
  const auto range = edit::RangeOf(car.SetupData(), slot, car.Options());
  if (setup::IsGear(slot))
    return car.Gears().Text(data::ToInt32(range.minimum), 2) + " to " +
           car.Gears().Text(data::ToInt32(range.maximum), 2);
  return WithUnit(
      window, slot,
      ShortText(window, slot, range.minimum) + " to " + ShortText(window, slot, range.maximum));
}

std::string ExactText(const MainWindow& window, int slot)
{
  const auto& car = window.Car();
  if (setup::IsGear(slot)) {
    const int row = edit::GearRowOf(car.SetupData(), slot);
    return car.Gears().DisplayText(row) + " (" + car.Gears().Text(row, 2) + ")";
  }
  const float raw = car.Value(slot);
  const auto text = edit::DisplayText(slot, raw, window.State().Units, kFine);
  const bool is_number = text.find_first_of("0123456789") != std::string::npos;
  return is_number ? WithUnit(window, slot, WithoutLastZeros(text)) : text;
}

std::string NumberText(const MainWindow& window, int slot)
{
  const auto& car = window.Car();
  if (setup::IsGear(slot)) return car.Gears().Text(edit::GearRowOf(car.SetupData(), slot), 2);
  auto text = edit::FormatNumber(edit::InUnits(slot, car.Value(slot), window.State().Units),
                                 edit::ShownDecimals(slot, kFine));
  std::erase(text, ',');
  return WithoutLastZeros(std::move(text));
}

std::string TipText(const MainWindow& window, int slot)
{
  const auto& car = window.Car();
  std::string effect(kEffectTexts.at(static_cast<std::size_t>(slot)));
  if (effect.empty()) return effect;
  try {
    if (edit::ListOfSlot(slot)) return ListRangeText(car, slot) + ". " + effect;
    const auto step = setup::IsGear(slot) ? std::string("one ratio") : SizeOfStep(window, slot);
    return RangeText(window, slot) + ", step " + step +
           std::string(AlongText(car.Options(), slot)) + ". " + effect;
  } catch (const BoundsError&) {
    return effect;
  }
}

float MostOfRollBars(const MainWindow& window)
{
  const auto& car = window.Car();
  try {
    return edit::RangeOf(car.SetupData(), setup::kRollBar, car.Options()).maximum;
  } catch (const BoundsError&) {
    return 0;
  }
}

}  // namespace velquist::app
