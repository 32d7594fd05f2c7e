// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <memory>
#include <string>

#include "data/GearData.h"
#include "data/ModYear.h"
#include "data/SetupData.h"
#include "platform/FileSystem.h"

namespace velquist::library {

/// Limits and gears of one mod year.
struct YearTables {
  data::SetupData setup_data;
  data::GearData gears;
};

/// The data files of all mod years, each read when it is first wanted.
class Tables {
 public:
  Tables(const platform::FileSystem& files, std::string program_directory);

  /// Null where a data file of the year is missing or cannot be read.
  [[nodiscard]] const YearTables* Of(data::ModYear ModYearIndex);

 private:
  struct Year {
    bool was_read = false;
    std::unique_ptr<YearTables> tables;
  };

  const platform::FileSystem& files_;
  std::string program_directory_;
  std::array<Year, data::kModYearCount> years_;
};

}  // namespace velquist::library
