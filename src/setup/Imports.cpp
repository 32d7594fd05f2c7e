// SPDX-License-Identifier: MIT
#include "setup/Imports.h"

#include "data/Numbers.h"
#include "platform/Errors.h"
#include "setup/Identification.h"
#include "setup/SetupRecord.h"
#include "setup/SlotTable.h"

namespace velquist::setup {
namespace {

/// Another mod year's gear set may end elsewhere: its IDs would name other gears here.
void CheckGearId(int pair, const data::SetupData& values)
{
  const auto row = RowOf(kFirstGear + pair);
  const float id = values.Value(row, data::kCurrent);
  if (id < values.Whole(row, data::kMinimumField) || id > values.Whole(row, data::kMaximumField))
    throw BoundsError("gear ID outside the mod year's rows");
}

/// The search runs opposite to the one for opened files and compares ratios as they stand.
void RepairImportedGearId(int pair, const data::GearData& gears, data::SetupData& values)
{
  const float wanted = values.Value(RowOf(kFirstRatio + pair), data::kCurrent);
  float& id = values.Current(RowOf(kFirstGear + pair));
  if (gears.Ratio(data::ToInt32(id)) == wanted) return;
  for (int row = 0; row < data::kGearRows; ++row) {
    if (!(gears.Ratio(row) >= wanted)) break;
    id = static_cast<float>(row);
  }
}

}  // namespace

void ImportChassis(std::span<const std::byte> SetupBuffer, data::ModYear ModYearIndex,
                   data::SetupData& values)
{
  LoadSlots(SetupBuffer, 0, kBrakeBias, values);
  if (ModYearIndex != data::ModYear::k1969) return;
  LoadSlots(SetupBuffer, kFrontWing, kRearWing, values);
  for (const int slot : {kFrontWing, kRearWing}) {
    float& wing = values.Current(RowOf(slot));
    if (wing == kNoWing) wing = 0;
  }
}

void ImportDrivetrain(std::span<const std::byte> SetupBuffer, const data::GearData& gears,
                      data::SetupData& values)
{
  LoadSlots(SetupBuffer, kFirstRatio, kClutches, values);
  for (int pair = 0; pair < kGearPairs; ++pair) {
    CheckGearId(pair, values);
    RepairImportedGearId(pair, gears, values);
  }
}

}  // namespace velquist::setup
