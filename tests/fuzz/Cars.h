// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include "ShippedFiles.h"
#include "edit/CarSetup.h"
#include "setup/Identification.h"

namespace velquist::fuzz {

/// A car of each mod year with its default setup, being edited.
struct Cars {
  std::array<edit::CarSetup, data::kModYearCount> of_year;

  Cars()
  {
    auto& files = ShippedFiles();
    for (std::size_t year = 0; year < data::kModYearCount; ++year) {
      auto& car = of_year[year];
      car.SetModYear(data::kModYears[year]);
      Require(!car.ReadDataFiles(files, "/program"), "the data files are there");
      Require(car.ReadFile(
                  files, "/program/" + std::string(setup::DefaultSetupName(data::kModYears[year]))),
              "the default setup is there");
      car.LoadValues();
      car.LoadLists();
      car.StartEditing();
    }
  }
};

}  // namespace velquist::fuzz
