// SPDX-License-Identifier: MIT
// The input is a gear data file.
#include <algorithm>
#include <cstdint>

#include "Fuzz.h"
#include "MemoryFiles.h"
#include "SetupSamples.h"
#include "data/GearData.h"
#include "data/Numbers.h"
#include "platform/Errors.h"
#include "setup/Imports.h"
#include "setup/SetupRecord.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
  using namespace velquist;
  using fuzz::Require;
  static const auto before = samples::SampleGears();
  static const auto sample = samples::SampleData();
  const auto text = fuzz::TextOf(bytes, size);
  testing::MemoryFiles files;
  files.Put("\\65 Gear Data.ini", text);
  auto gears = before;
  Require(data::ReadGearData(files, "", samples::kGT, gears), "the file is there");

  const auto lines = std::min<std::size_t>(data::SplitLines(text).size(), data::kGearRows);
  for (int row = 0; row < data::kGearRows; ++row) {
    if (static_cast<std::size_t>(row) >= lines)
      Require(gears.DisplayText(row) == before.DisplayText(row), "rows without a line stay");
    for (int field = 0; field < 3; ++field)
      Require(gears.Text(row, field).find_first_of(",\r\n") == std::string::npos, "one field");
    Require(gears.Ratio(row) == static_cast<float>(data::LeadingNumber(gears.Text(row, 2))),
            "the ratio is that of the text");
  }

  // Whatever the ratios are, gear IDs found in the table lie in it.
  const auto setup_file = samples::SampleSetup(setup::kLongLayoutSize);
  auto values = sample;
  (void)setup::LoadSetupValues(setup_file, gears, samples::kGT, values);
  setup::RebuildRatioNumbers(gears, values);
  values.SetupDataText[13][1] = "0";
  setup::ImportDrivetrain(setup_file, gears, values);
  setup::RebuildRatioNumbers(gears, values);
  return 0;
}
