// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "data/GearData.h"
#include "data/SetupData.h"

namespace velquist::text_export {

/// What the text names besides the values.
struct Subject {
  std::string_view file_name;  ///< current file name
  std::string_view mod_year;   ///< "1967"
  std::string_view chassis_name;
  int formula = 1;     ///< 1 to 3
  int gear_count = 5;  ///< gear lines, six at most
};

/// The setup as a readable table, English units, CR LF. Values start in column 43, right-side
/// values in column 57. Throws BoundsError for missing rows and gear rows outside 0 to 89.
[[nodiscard]] std::string ExportText(const Subject& subject, const data::SetupData& values,
                                     const data::GearData& gears);

/// `file_name` with its extension, if any, replaced by "txt".
[[nodiscard]] std::string ExportFileName(std::string_view file_name);

/// A single in its shortest form of up to 7 significant digits, with a blank in the place of a
/// plus sign and a blank behind it.
[[nodiscard]] std::string NumberItem(float value);

}  // namespace velquist::text_export
