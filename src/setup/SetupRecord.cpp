// SPDX-License-Identifier: MIT
#include "setup/SetupRecord.h"

#include <cmath>
#include <utility>

#include "data/Numbers.h"
#include "platform/Errors.h"
#include "setup/SlotTable.h"

namespace velquist::setup {
namespace {

constexpr int kLastChassisSlot = kBrakeBias;
constexpr int kDegreesBetweenAngles = 5;

std::size_t OffsetOf(int slot)
{
  return static_cast<std::size_t>(SlotOffset[static_cast<std::size_t>(slot)]);
}

void LoadSlot(std::span<const std::byte> buffer, int slot, data::SetupData& values)
{
  values.Current(RowOf(slot)) = IsWholeSlot(slot)
                                    ? static_cast<float>(ReadLongAt(buffer, OffsetOf(slot)))
                                    : ReadSingleAt(buffer, OffsetOf(slot));
}

void StoreSlot(const data::SetupData& values, int slot, std::span<std::byte> buffer)
{
  const float value = values.Value(RowOf(slot), data::kCurrent);
  if (IsWholeSlot(slot))
    WriteLongAt(buffer, data::ToInt32(value), OffsetOf(slot));
  else
    WriteSingleAt(buffer, value, OffsetOf(slot));
}

float RoundedToThreeDecimals(float value)
{
  return static_cast<float>(std::nearbyint(static_cast<double>(value) * 1000.0) / 1000.0);
}

void RepairGearId(int pair, const data::GearData& gears, data::SetupData& values)
{
  const float wanted =
      RoundedToThreeDecimals(values.Value(RowOf(kFirstRatio + pair), data::kCurrent));
  float& id = values.Current(RowOf(kFirstGear + pair));
  if (gears.Ratio(data::ToInt32(id)) == wanted) return;
  for (int row = 0; row < data::kGearRows; ++row) {
    if (!(RoundedToThreeDecimals(gears.Ratio(row)) <= wanted)) break;
    id = static_cast<float>(row);
  }
}

/// Minimum of a list's row plus `offset`; both and their sum must fit 16 bits.
std::int16_t FromMinimum(const data::SetupData& values, int slot, int offset)
{
  return data::ToInt16(values.Whole(RowOf(slot), data::kMinimumField) + data::ToInt16(offset));
}

}  // namespace

bool IsGearOfRatio(const data::GearData& gears, std::int32_t id, float ratio_number)
{
  return id >= 0 && id < data::kGearRows && gears.Ratio(id) == RoundedToThreeDecimals(ratio_number);
}

void LoadSlots(std::span<const std::byte> SetupBuffer, int first, int last, data::SetupData& values)
{
  for (int slot = first; slot <= last; ++slot) LoadSlot(SetupBuffer, slot, values);
}

bool LoadSetupValues(std::span<const std::byte> SetupBuffer, const data::GearData& gears,
                     data::ModYear ModYearIndex, data::SetupData& values)
{
  LoadSlots(SetupBuffer, 0, kLastChassisSlot, values);
  LoadSlots(SetupBuffer, kFirstRatio, kClutches, values);
  for (int pair = 0; pair < kGearPairs; ++pair) RepairGearId(pair, gears, values);
  if (SetupBuffer.size() <= kSymmetryOffset) throw BoundsError("symmetry byte");
  const bool symmetric = SetupBuffer[kSymmetryOffset] != std::byte{0};
  if (ModYearIndex == data::ModYear::k1969) {
    LoadSlots(SetupBuffer, kFrontWing, kRearWing, values);
  } else {
    values.Current(RowOf(kFrontWing)) = kNoWing;
    values.Current(RowOf(kRearWing)) = kNoWing;
  }
  return symmetric;
}

ListValues ValuesOfLists(const data::SetupData& values, const ListSelections& selections)
{
  return {FromMinimum(values, kFinalDrive, selections[0]),
          FromMinimum(values, kPowerAngle, kDegreesBetweenAngles * selections[1]),
          FromMinimum(values, kCoastAngle, kDegreesBetweenAngles * selections[2]),
          FromMinimum(values, kClutches, selections[3])};
}

void StoreSetupValues(const data::SetupData& values, const ListValues& lists, bool asymmetric,
                      data::ModYear ModYearIndex, std::span<std::byte> SetupBuffer)
{
  for (int slot = 0; slot <= kLastChassisSlot; ++slot) StoreSlot(values, slot, SetupBuffer);
  for (int slot = kFirstRatio; slot < kFinalDrive; ++slot) StoreSlot(values, slot, SetupBuffer);
  const auto& [final_drive, power_angle, coast_angle, clutches] = lists;
  WriteLongAt(SetupBuffer, final_drive, OffsetOf(kFinalDrive));
  WriteSingleAt(SetupBuffer, coast_angle, OffsetOf(kCoastAngle));
  WriteSingleAt(SetupBuffer, power_angle, OffsetOf(kPowerAngle));
  WriteLongAt(SetupBuffer, clutches, OffsetOf(kClutches));
  if (SetupBuffer.size() <= kSymmetryOffset) throw BoundsError("symmetry byte");
  SetupBuffer[kSymmetryOffset] = asymmetric ? std::byte{0} : std::byte{1};
  if (ModYearIndex == data::ModYear::k1969) {
    StoreSlot(values, kFrontWing, SetupBuffer);
    StoreSlot(values, kRearWing, SetupBuffer);
  } else if (SetupBuffer.size() == kLongLayoutSize) {
    WriteSingleAt(SetupBuffer, kNoWing, OffsetOf(kFrontWing));
    WriteSingleAt(SetupBuffer, kNoWing, OffsetOf(kRearWing));
  }
}

void RebuildRatioNumbers(const data::GearData& gears, data::SetupData& values)
{
  std::array<float, kGearPairs> ratios{};
  for (std::size_t pair = 0; pair < ratios.size(); ++pair) {
    const float id = values.Value(RowOf(kFirstGear + static_cast<int>(pair)), data::kCurrent);
    ratios[pair] = gears.Ratio(data::ToInt32(id));
  }
  for (std::size_t pair = 0; pair < ratios.size(); ++pair)
    values.Current(RowOf(kFirstRatio + static_cast<int>(pair))) = ratios[pair];
}

void ReverseSides(data::SetupData& values)
{
  for (int slot = 0; slot < kToeIn; slot += 2)
    std::swap(values.Current(RowOf(slot)), values.Current(RowOf(slot + 1)));
}

}  // namespace velquist::setup
