// SPDX-License-Identifier: MIT
#include "edit/Reference.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

#include "data/ChassisCatalogue.h"
#include "data/Numbers.h"
#include "edit/CarSetup.h"
#include "edit/Display.h"

namespace velquist::edit {
namespace {

constexpr std::string_view kNoValue = "-";
constexpr int kRatioDecimals = 3;

bool IsGearRow(int slot)
{
  return slot >= setup::kFirstGear && slot <= setup::kFinalDrive;
}

bool IsWing(int slot)
{
  return slot == setup::kFrontWing || slot == setup::kRearWing;
}

std::string GearText(const data::GearData& gears, float value)
{
  const int row = static_cast<int>(value);
  return gears.DisplayText(row) + " (" + FormatNumber(gears.Ratio(row), kRatioDecimals) + ")";
}

/// The number of a slot that is shown as one, as it is shown.
double ShownNumber(const CarSetup& car, int slot, float value, int units)
{
  return slot < kDisplaySlots ? RoundedAsShown(slot, value, units, car.Options().FineIndex())
                              : static_cast<double>(value);
}

int Decimals(const CarSetup& car, int slot)
{
  return slot < kDisplaySlots ? ShownDecimals(slot, car.Options().FineIndex()) : 0;
}

std::string Text(const CarSetup& car, int slot, float value, int units)
{
  return slot < kDisplaySlots ? DisplayText(slot, value, units, car.Options().FineIndex())
                              : FormatNumber(static_cast<double>(value), 0);
}

/// The row with exactly that ratio among those that the slot may have.
std::optional<int> RowOfRatio(const CarSetup& car, int slot, float ratio)
{
  const auto limit = [&](data::Column column) {
    return data::ToInt32(car.SetupData().Value(setup::RowOf(slot), column));
  };
  for (int row = std::max(0, limit(data::kMinimum));
       row <= std::min(data::kGearRows - 1, limit(data::kMaximum)); ++row)
    if (car.Gears().Ratio(row) == ratio) return row;
  return std::nullopt;
}

bool Has(const Reference& reference, int slot)
{
  if (IsWing(slot)) return reference.has_wings;
  if (setup::IsGear(slot) && reference.gear_count)
    return slot - setup::kFirstGear < *reference.gear_count;
  return true;
}

}  // namespace

float ValueInFile(const CarSetup& car, int slot)
{
  const bool in_list = slot >= setup::kFinalDrive;  // as the slots of the lists are the last ones
  if (const auto list = in_list ? ListOfSlot(slot) : std::nullopt)
    return static_cast<float>(ValueInList(*list, car.ListSelection(*list), car.SetupData()));
  const float value = car.Value(slot);
  // Adding 0 makes -0 a plain 0, as it is among whole numbers.
  return setup::IsWholeSlot(slot) ? std::nearbyint(value) + 0.0F : value;
}

bool IsCompared(const CarSetup& car, int slot)
{
  if (IsWing(slot)) return car.ModYearIndex() == data::ModYear::k1969;
  return slot < setup::kFirstRatio || slot >= setup::kFirstGear;
}

Reference ReferenceOf(const CarSetup& car, ReferenceSource source, std::string path,
                      std::optional<int> gear_count)
{
  Reference reference{.source = source, .path = std::move(path)};
  for (int slot = 0; slot < setup::kSlots; ++slot)
    reference.values.at(static_cast<std::size_t>(slot)) = ValueInFile(car, slot);
  reference.gears = car.GearTable();
  reference.has_wings = car.ModYearIndex() == data::ModYear::k1969;
  reference.gear_count = gear_count;
  if (source == ReferenceSource::kLoaded || gear_count)
    reference.car = {car.ModYearIndex(), car.ChassisIndex(), car.EngineSlot()};
  return reference;
}

std::optional<GearRatios> RatiosOf(const Reference& reference, int gear_count)
{
  bool has_every_row = true;
  const auto ratio = [&](int slot) {
    const auto row = reference.values.at(static_cast<std::size_t>(slot));
    if (row >= 0.0F && row < static_cast<float>(data::kGearRows))
      return reference.gears->Ratio(static_cast<int>(row));
    has_every_row = false;
    return 0.0F;
  };
  GearRatios ratios;
  ratios.gear_count = static_cast<std::size_t>(std::clamp(gear_count, 0, data::kMostGears));
  for (std::size_t gear = 0; gear < ratios.gear_count; ++gear)
    ratios.of_gears.at(gear) = ratio(setup::kFirstGear + static_cast<int>(gear));
  ratios.final_drive = ratio(setup::kFinalDrive);
  return has_every_row ? std::optional(ratios) : std::nullopt;
}

bool Differs(const Reference& reference, const CarSetup& car, int slot)
{
  if (!IsCompared(car, slot)) return false;
  const float was = reference.values.at(static_cast<std::size_t>(slot));
  const float is = ValueInFile(car, slot);
  if (IsGearRow(slot) && reference.gears.get() != &car.Gears())
    return reference.gears->Ratio(static_cast<int>(was)) != car.Gears().Ratio(static_cast<int>(is));
  return std::bit_cast<std::uint32_t>(was) != std::bit_cast<std::uint32_t>(is);
}

std::vector<Difference> Differences(const Reference& reference, const CarSetup& car)
{
  std::vector<Difference> differences;
  for (int slot = 0; slot < setup::kSlots; ++slot)
    if (Differs(reference, car, slot))
      differences.push_back(
          {slot, reference.values.at(static_cast<std::size_t>(slot)), ValueInFile(car, slot)});
  return differences;
}

std::optional<float> ValueFromReference(const Reference& reference, const CarSetup& car, int slot)
{
  auto value = reference.values.at(static_cast<std::size_t>(slot));
  if (IsGearRow(slot) && reference.gears.get() != &car.Gears()) {
    const auto row = RowOfRatio(car, slot, reference.gears->Ratio(static_cast<int>(value)));
    if (!row) return std::nullopt;
    value = static_cast<float>(*row);
  }
  const auto list = ListOfSlot(slot);
  if (list && !PositionInList(*list, value, car.SetupData())) return std::nullopt;
  return value;
}

std::string ReferenceText(const Reference& reference, const CarSetup& car, int slot, int units)
{
  if (!Has(reference, slot)) return std::string(kNoValue);
  const float value = reference.values.at(static_cast<std::size_t>(slot));
  return IsGearRow(slot) ? GearText(*reference.gears, value) : Text(car, slot, value, units);
}

std::string CurrentText(const CarSetup& car, int slot, int units)
{
  const float value = ValueInFile(car, slot);
  return IsGearRow(slot) ? GearText(car.Gears(), value) : Text(car, slot, value, units);
}

std::string AddedText(const Reference& reference, const CarSetup& car, int slot, int units)
{
  const float was = reference.values.at(static_cast<std::size_t>(slot));
  const float is = ValueInFile(car, slot);
  const bool no_wing = IsWing(slot) && (was < 0.0F || is < 0.0F);
  if (no_wing || !Has(reference, slot)) return {};
  const auto added = [&] {
    if (!IsGearRow(slot))
      return FormatNumber(ShownNumber(car, slot, is, units) - ShownNumber(car, slot, was, units),
                          Decimals(car, slot));
    const float before = reference.gears->Ratio(static_cast<int>(was));
    const float now = car.Gears().Ratio(static_cast<int>(is));
    return FormatNumber(static_cast<double>(now) - static_cast<double>(before), kRatioDecimals);
  }();
  return added.starts_with('-') ? added : "+" + added;
}

std::string DifferenceText(const Reference& reference, const CarSetup& car, int slot, int units)
{
  auto text = "was " + ReferenceText(reference, car, slot, units) + ", now " +
              CurrentText(car, slot, units);
  if (IsGearRow(slot)) return text;
  const auto added = AddedText(reference, car, slot, units);
  return added.empty() ? text : text + " (" + added + ")";
}

}  // namespace velquist::edit
