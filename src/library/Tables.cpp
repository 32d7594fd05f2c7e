// SPDX-License-Identifier: MIT
#include "library/Tables.h"

#include <utility>

#include "platform/Errors.h"

namespace velquist::library {

Tables::Tables(const platform::FileSystem& files, std::string program_directory)
    : files_(files), program_directory_(std::move(program_directory))
{
}

const YearTables* Tables::Of(data::ModYear ModYearIndex)
{
  auto& year = years_.at(static_cast<std::size_t>(ModYearIndex));
  if (!std::exchange(year.was_read, true)) {
    auto tables = std::make_unique<YearTables>();
    try {
      if (data::ReadSetupData(files_, program_directory_, ModYearIndex, tables->setup_data) &&
          data::ReadGearData(files_, program_directory_, ModYearIndex, tables->gears) &&
          tables->setup_data.SetupDataValues.size() >= data::kSetupRows)
        year.tables = std::move(tables);
    } catch (const FileError&) {  // as good as missing
    }
  }
  return year.tables.get();
}

}  // namespace velquist::library
