// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/ModYear.h"
#include "library/SetupFile.h"

namespace velquist::library {

/// What the user says of files whose names and bytes do not tell it.
struct Hints {
  std::optional<data::ModYear> ModYearIndex;
  std::optional<std::string> chassis_code;
  std::optional<int> formula_index;  ///< 0 to 2
};

/// Which car a setup is for, found without asking anyone.
struct Identity {
  std::vector<data::ModYear> years;              ///< all that it may be for, the oldest first
  data::ModYear read_as = data::ModYear::k1967;  ///< whose tables its values are read with
  std::string_view chassis_code;                 ///< empty where the car is not known
  std::optional<int> chassis;                    ///< place in the list of `read_as`
  std::optional<int> formula_index;              ///< 0 to 2

  [[nodiscard]] std::optional<data::ModYear> Year() const;  ///< the one it is for, when it is one
  /// Forward gears of its car, where that is known.
  [[nodiscard]] std::optional<int> GearCount() const;
};

/// "1965/1967"; empty where no year is known.
[[nodiscard]] std::string YearsText(const Identity& identity);

[[nodiscard]] Identity IdentityOf(const SetupFile& file, const Hints& hints);

}  // namespace velquist::library
