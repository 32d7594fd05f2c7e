#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "GearTable.h"
#include "Ranges.h"

namespace velquist::content {

/// One family's tables.
struct FamilyTables {
  Family family = Family::k67;
  const GearTable* gears = nullptr;
};

/// A setup as its description gives it.
struct Setup {
  Family family = Family::k67;
  bool is_long = false;
  bool is_symmetric = true;
  std::vector<float> values;                      ///< by row of the setup data file
  std::map<std::size_t, std::uint8_t> odd_bytes;  ///< bytes that are no parameter, by offset

  /// The setup file: 264 bytes in the short layout, 272 in the long one.
  [[nodiscard]] std::string Bytes() const;
};

/// Reads the descriptions of setups in `path`; the key is the section, a file's path. What a
/// description leaves out has the default of the unit set.
/// Throws ContentError for a line that makes no sense or a value outside the year's limits.
[[nodiscard]] std::map<std::string, Setup> ReadSetups(const std::filesystem::path& path,
                                                      const Ranges& ranges, UnitSet set,
                                                      const std::vector<FamilyTables>& tables);

}  // namespace velquist::content
