// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "data/ModYear.h"
#include "platform/FileSystem.h"

namespace velquist::data {

inline constexpr int kGearRows = 90;

/// The ratios that gears and final drives are chosen from: label, display text such as "31/9",
/// ratio as text. A gear or final-drive value of a setup is a row number.
/// A row outside 0 to 89 throws BoundsError.
class GearData {
 public:
  [[nodiscard]] const std::string& Text(int row, int field) const;
  [[nodiscard]] const std::string& DisplayText(int row) const { return Text(row, 1); }
  /// Field 2 as a number.
  [[nodiscard]] float Ratio(int row) const;

  /// Overwrites one row.
  void SetRow(int row, std::array<std::string, 3> fields);

  friend bool operator==(const GearData& a, const GearData& b) = default;

 private:
  std::array<std::array<std::string, 3>, kGearRows> text_;
  std::array<float, kGearRows> ratio_{};
};

/// File name by mod year; empty outside kModYears.
[[nodiscard]] std::string_view GearDataFileName(ModYear ModYearIndex) noexcept;

/// Reads the mod year's file from the program directory. Rows that the file does not have keep
/// what an earlier read left, lines behind the 90th are not read. False when the file does not
/// exist or cannot be read; `gears` is as it was then.
[[nodiscard]] bool ReadGearData(const platform::FileSystem& files,
                                std::string_view program_directory, ModYear ModYearIndex,
                                GearData& gears);

}  // namespace velquist::data
