// SPDX-License-Identifier: MIT
#include "edit/Drivetrain.h"

#include <algorithm>
#include <cmath>

#include "data/Numbers.h"
#include "edit/Display.h"
#include "platform/Errors.h"
#include "setup/SlotTable.h"

namespace velquist::edit {
namespace {

using data::ToInt16;
using setup::RowOf;

struct ListDesign {
  int slot;
  int step;  ///< between items
};
constexpr std::array<ListDesign, kDrivetrainLists> kLists = {{
    {setup::kFinalDrive, 1},
    {setup::kPowerAngle, 5},
    {setup::kCoastAngle, 5},
    {setup::kClutches, 1},
}};

const ListDesign& DesignOf(int list)
{
  return kLists.at(static_cast<std::size_t>(list));
}

constexpr double kRadiansPerDegree = 0.0174532925;

/// A blank stands in the place of the sign before a number that is not negative.
std::string NumberItem(int number)
{
  return number < 0 ? std::to_string(number) : " " + std::to_string(number);
}

}  // namespace

int SlotOfList(int list)
{
  return DesignOf(list).slot;
}

std::optional<int> ListOfSlot(int slot)
{
  for (int list = 0; list < kDrivetrainLists; ++list)
    if (SlotOfList(list) == slot) return list;
  return std::nullopt;
}

int FirstOfList(int list, const data::SetupData& values)
{
  return ToInt16(values.Value(RowOf(SlotOfList(list)), data::kMinimum));
}

int LengthOfList(int list, const data::SetupData& values)
{
  const auto [slot, step] = DesignOf(list);
  const int minimum = FirstOfList(list, values);
  const int maximum = ToInt16(values.Value(RowOf(slot), data::kMaximum));
  return maximum < minimum ? 0 : (maximum - minimum) / step + 1;
}

int ValueInList(int list, int position, const data::SetupData& values)
{
  return FirstOfList(list, values) + position * DesignOf(list).step;
}

std::optional<int> PositionInList(int list, float value, const data::SetupData& values)
{
  for (int position = 0; position < LengthOfList(list, values); ++position)
    if (static_cast<float>(ValueInList(list, position, values)) == value) return position;
  return std::nullopt;
}

std::vector<std::string> ItemsOfList(int list, const data::SetupData& values,
                                     const data::GearData& gears)
{
  const int length = LengthOfList(list, values);
  std::vector<std::string> items;
  items.reserve(static_cast<std::size_t>(length));
  for (int position = 0; position < length; ++position) {
    const int number = ValueInList(list, position, values);
    items.push_back(list == kFinalDriveList ? gears.DisplayText(number) : NumberItem(number));
  }
  return items;
}

int SelectionInList(int list, const data::SetupData& values)
{
  const auto [slot, step] = DesignOf(list);
  const int value = ToInt16(values.Value(RowOf(slot), data::kCurrent));
  return ToInt16(static_cast<double>(value - FirstOfList(list, values)) / step);
}

double LockingPercent(double clutches, double angle) noexcept
{
  return (clutches + 1.0) * 5.0 * std::cos(angle * kRadiansPerDegree);
}

int GearRowOf(const data::SetupData& values, int slot)
{
  const int row = ToInt16(values.Value(RowOf(slot), data::kCurrent));
  if (row < 0 || row >= data::kGearRows) throw BoundsError("gear row " + std::to_string(row));
  return row;
}

GearRatios RatiosOf(const data::SetupData& values, const data::GearData& gears, int gear_count)
{
  GearRatios ratios;
  ratios.gear_count = static_cast<std::size_t>(std::clamp(gear_count, 0, data::kMostGears));
  for (std::size_t gear = 0; gear < ratios.gear_count; ++gear)
    ratios.of_gears.at(gear) =
        gears.Ratio(GearRowOf(values, setup::kFirstGear + static_cast<int>(gear)));
  ratios.final_drive = gears.Ratio(GearRowOf(values, setup::kFinalDrive));
  return ratios;
}

std::string OverallRatioText(const data::GearData& gears, int gear_row, int final_drive_row)
{
  return FormatRatio(static_cast<double>(gears.Ratio(gear_row)) *
                     static_cast<double>(gears.Ratio(final_drive_row)));
}

}  // namespace velquist::edit
