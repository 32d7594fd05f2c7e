// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/ModYear.h"
#include "platform/FileSystem.h"

namespace velquist::data {

/// Columns of SetupDataValues.
enum Column : std::size_t { kCurrent = 0, kMinimum = 1, kMaximum = 2, kStep = 3, kFineStep = 4 };

/// Fields of a line of a setup data file, counted from 1.
enum Field : std::size_t {
  kLabelField = 1,
  kMinimumField = 2,
  kDefaultField = 3,
  kMaximumField = 4,
  kStepField = 5,
  kFineStepField = 6
};

/// Rows that hold a parameter or the symmetry flag; a data file may have more or fewer.
inline constexpr std::size_t kSetupRows = 53;

/// The limits and steps of one mod year, one row a line of its setup data file, with each
/// parameter's current value in column 0. Units are those of the setup file (English). Access to a
/// row that the file did not have throws BoundsError.
struct SetupData {
  std::vector<std::array<std::string, 6>> SetupDataText;
  std::vector<std::array<float, 5>> SetupDataValues;

  [[nodiscard]] float Value(std::size_t row, Column column) const;
  [[nodiscard]] float& Current(std::size_t row);
  [[nodiscard]] const std::string& Text(std::size_t row, Field field) const;
  /// The field as a whole number; throws BoundsError beyond 16 bits.
  [[nodiscard]] std::int16_t Whole(std::size_t row, Field field) const;

  /// All current values out and in again; rows that the file did not have are left out.
  void CopyCurrent(std::array<float, kSetupRows>& values) const;
  void SetCurrent(const std::array<float, kSetupRows>& values);
};

/// File name by mod year; empty outside kModYears.
[[nodiscard]] std::string_view SetupDataFileName(ModYear ModYearIndex) noexcept;

/// Reads the mod year's file from the program directory; every current value becomes 0. False,
/// with `data` as it was, when the file does not exist. A file that cannot be read leaves `data`
/// as it was.
[[nodiscard]] bool ReadSetupData(const platform::FileSystem& files,
                                 std::string_view program_directory, ModYear ModYearIndex,
                                 SetupData& data);

}  // namespace velquist::data
