// SPDX-License-Identifier: MIT
#include "edit/Drivetrain.h"

#include <array>
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
constexpr std::array<ListDesign, 4> kLists = {{
    {setup::kFinalDrive, 1},
    {setup::kPowerAngle, 5},
    {setup::kCoastAngle, 5},
    {setup::kClutches, 1},
}};

constexpr double kRadiansPerDegree = 0.0174532925;

/// A blank stands in the place of the sign before a number that is not negative.
std::string NumberItem(int number)
{
  return number < 0 ? std::to_string(number) : " " + std::to_string(number);
}

}  // namespace

DrivetrainList BuildDrivetrainList(int list, const data::SetupData& values,
                                   const data::GearData& gears)
{
  const auto [slot, step] = kLists.at(static_cast<std::size_t>(list));
  const auto row = RowOf(slot);
  const int minimum = ToInt16(values.Value(row, data::kMinimum));
  const int maximum = ToInt16(values.Value(row, data::kMaximum));
  const int value = ToInt16(values.Value(row, data::kCurrent));
  DrivetrainList built;
  for (int item = minimum; item <= maximum; item += step)
    built.items.push_back(list == kFinalDriveList ? gears.DisplayText(item) : NumberItem(item));
  built.selection = ToInt16(static_cast<double>(value - minimum) / step);
  return built;
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

std::string OverallRatioText(const data::GearData& gears, int gear_row, int final_drive_row)
{
  return FormatRatio(static_cast<double>(gears.Ratio(gear_row)) *
                     static_cast<double>(gears.Ratio(final_drive_row)));
}

}  // namespace velquist::edit
