// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "data/GearData.h"
#include "data/ModYear.h"
#include "data/SetupData.h"

/// Taking half a setup from another file.
namespace velquist::setup {

/// Takes slots 0 to 32, and for 1969 the wings, where -1.0 becomes 0. Throws BoundsError for a
/// buffer that ends before a field; some values may have been taken then.
void ImportChassis(std::span<const std::byte> SetupBuffer, data::ModYear ModYearIndex,
                   data::SetupData& values);

/// Takes slots 35 to 51. A gear ID whose row does not have exactly the imported ratio number
/// becomes the last row, counted from 0, of those in front whose ratio is not below it. Throws
/// BoundsError for a buffer that ends before a field, for gear IDs outside 0 to 89 and for
/// IDs in the file outside the rows that the mod year's data file allows; some values may have been
/// taken then.
void ImportDrivetrain(std::span<const std::byte> SetupBuffer, const data::GearData& gears,
                      data::SetupData& values);

}  // namespace velquist::setup
