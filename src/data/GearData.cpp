// SPDX-License-Identifier: MIT
#include "data/GearData.h"

#include "data/Numbers.h"
#include "data/ReadText.h"
#include "platform/Errors.h"

namespace velquist::data {
namespace {

std::size_t Checked(int row)
{
  if (row < 0 || row >= kGearRows) throw BoundsError("gear row " + std::to_string(row));
  return static_cast<std::size_t>(row);
}

}  // namespace

const std::string& GearData::Text(int row, int field) const
{
  return text_[Checked(row)].at(static_cast<std::size_t>(field));
}

float GearData::Ratio(int row) const
{
  return ratio_[Checked(row)];
}

void GearData::SetRow(int row, std::array<std::string, 3> fields)
{
  ratio_[Checked(row)] = static_cast<float>(LeadingNumber(fields[2]));
  text_[Checked(row)] = std::move(fields);
}

std::string_view GearDataFileName(ModYear ModYearIndex) noexcept
{
  switch (ModYearIndex) {
    case ModYear::k1967: return "67 Gear Data.ini";
    case ModYear::k1965:
    case ModYear::k1966:
    case ModYear::k1969:
    case ModYear::kGT: return "65 Gear Data.ini";
  }
  return {};
}

bool ReadGearData(const platform::FileSystem& files, std::string_view program_directory,
                  ModYear ModYearIndex, GearData& gears)
{
  const auto name = GearDataFileName(ModYearIndex);
  const auto path = std::string(program_directory) + "\\" + std::string(name);
  if (name.empty() || !files.Exists(path)) return false;
  std::string text;
  try {
    text = ReadText(files, path);
  } catch (const FileError&) {
    return false;
  }
  int row = 0;
  for (const auto line : SplitLines(text)) {
    if (row == kGearRows) break;
    std::array<std::string, 3> fields;
    SplitFields(line, fields);
    gears.SetRow(row++, std::move(fields));
  }
  return true;
}

}  // namespace velquist::data
