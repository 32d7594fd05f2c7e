// SPDX-License-Identifier: MIT
// The input is a setup data file.
#include <bit>
#include <cstdint>
#include <string>

#include "Fuzz.h"
#include "MemoryFiles.h"
#include "SetupSamples.h"
#include "data/Numbers.h"
#include "data/SetupData.h"
#include "platform/Errors.h"
#include "setup/SetupRecord.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
  using namespace velquist;
  using fuzz::Require;
  static const auto gears = samples::SampleGears();
  const auto text = fuzz::TextOf(bytes, size);
  testing::MemoryFiles files;
  files.Put("\\GT Setup Data.ini", text);
  data::SetupData data;
  Require(data::ReadSetupData(files, "", samples::kGT, data), "the file is there");

  Require(data.SetupDataText.size() == data::SplitLines(text).size(), "a row for every line");
  Require(data.SetupDataValues.size() == data.SetupDataText.size(), "values for every row");
  for (std::size_t row = 0; row < data.SetupDataText.size(); ++row) {
    const auto& fields = data.SetupDataText[row];
    for (std::size_t i = 0; i < fields.size(); ++i) {
      Require(fields[i].find_first_of("\r\n") == std::string::npos, "no line end in a field");
      Require(fields[i].find(',') == std::string::npos, "no comma in a field");
    }
    Require(std::bit_cast<std::uint32_t>(data.Value(row, data::kCurrent)) == 0, "no current value");
    for (const auto field : {data::kMinimumField, data::kDefaultField, data::kMaximumField}) {
      try {
        (void)data.Whole(row, field);
      } catch (const BoundsError&) {
      }
    }
    // The value of a text is never "not a number", whatever the text.
    for (const auto column : {data::kMinimum, data::kMaximum, data::kStep, data::kFineStep}) {
      const float value = data.Value(row, column);
      Require(value == value, "a number");
    }
  }

  // The tables may be too short or hold any limits: using them throws at most BoundsError.
  auto setup_file = samples::SampleSetup(setup::kLongLayoutSize);
  try {
    (void)setup::LoadSetupValues(setup_file, gears, samples::kGT, data);
    setup::StoreSetupValues(data, setup::ValuesOfLists(data, {19, 9, 11, 4}), false, samples::kGT,
                            setup_file);
  } catch (const BoundsError&) {
  }
  return 0;
}
