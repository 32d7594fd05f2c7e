#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "GearTable.h"

namespace velquist::content {

/// Number of rows of a setup data file.
inline constexpr int kDataRows = 53;

/// The row of the setup data file for the symmetry flag, which is one byte in a setup file.
inline constexpr int kSymmetryRow = 50;

/// The years that share data files. 1966 and 1969 go by those of 1965.
enum class Family { k67, k65, kGt };
inline constexpr std::array kFamilies = {Family::k67, Family::k65, Family::kGt};

/// How a family's files begin: "67", "65" or "GT".
[[nodiscard]] std::string FamilyName(Family family);

/// The two sets of setup data files.
enum class UnitSet { kEnglish, kMetric };

/// A quantity's units. Setup files hold English units in both sets.
struct Measure {
  std::string name;
  std::string unit;         ///< of the setup file
  std::string metric_unit;  ///< empty when the sets do not differ
  double factor = 1;        ///< metric units in one unit of the file
  double metric_step = 0;   ///< in metric units
  double metric_fine = 0;   ///< in metric units
  /// One metric fine step in the unit of the file, rounded to so few binary digits that a
  /// single holds each of its multiples within the limits exactly. Stepping a value up and
  /// down then returns to the very same value, and both limits can be reached.
  float fine_unit = 0;

  /// A number of metric units, in the unit of the file.
  [[nodiscard]] float FromMetric(double amount) const;
};

/// What a setup data file says about a row, in the unit of the setup file.
struct Range {
  float minimum = 0;
  float standard = 0;  ///< the default
  float maximum = 0;
  float step = 0;
  float fine = 0;
};

/// One row of the setup data files.
struct DataRow {
  std::string quantity;  ///< "tire pressure"
  std::string place;     ///< "left front", empty where there is only one
  std::size_t measure = 0;
  std::array<Range, kFamilies.size()> ranges;  ///< English set; gear rows hold their limits only
};

/// The limits, defaults and steps of every parameter.
class Ranges {
 public:
  /// Reads `measures.txt` and `ranges.txt`; the gear tables, in the order of `kFamilies`, give
  /// the limits of the gear rows. Throws ContentError.
  Ranges(const std::filesystem::path& sources, const std::array<const GearTable*, 3>& gears);

  [[nodiscard]] const DataRow& Row(int row) const;
  [[nodiscard]] const Measure& MeasureOf(int row) const;

  /// True for the rows of ratio numbers and gear IDs.
  [[nodiscard]] bool IsGearRow(int row) const;

  /// Limits, default and steps in the unit of the setup file; the metric set's lie on its grid.
  [[nodiscard]] Range RangeOf(int row, Family family, UnitSet set) const;

  /// The value on the grid of the metric steps that is nearest to one in the unit of the setup
  /// file; a value without metric unit as it is.
  [[nodiscard]] float OnMetricGrid(int row, float value) const;

  /// A setup data file. `gear_defaults` are the defaults of the gear rows, which come first.
  [[nodiscard]] std::string DataFile(Family family, UnitSet set,
                                     const std::vector<float>& gear_defaults) const;

 private:
  void ReadMeasures(const std::filesystem::path& path);
  void ReadRows(const std::filesystem::path& path);
  void SetGearLimits(const std::array<const GearTable*, 3>& gears);
  void SetFineUnits();

  std::vector<Measure> measures_;
  std::vector<DataRow> rows_;
};

}  // namespace velquist::content
