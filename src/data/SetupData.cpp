// SPDX-License-Identifier: MIT
#include "data/SetupData.h"

#include <algorithm>

#include "data/Numbers.h"
#include "data/ReadText.h"
#include "platform/Errors.h"

namespace velquist::data {
namespace {

/// Lines that become rows: none behind them is ever asked for.
constexpr std::size_t kMostRows = 32'767;

template <class Rows>
auto& RowAt(Rows& rows, std::size_t row)
{
  if (row >= rows.size()) throw BoundsError("setup data row " + std::to_string(row));
  return rows[row];
}

}  // namespace

float SetupData::Value(std::size_t row, Column column) const
{
  return RowAt(SetupDataValues, row)[column];
}

float& SetupData::Current(std::size_t row)
{
  return RowAt(SetupDataValues, row)[kCurrent];
}

const std::string& SetupData::Text(std::size_t row, Field field) const
{
  return RowAt(SetupDataText, row)[field - 1];
}

std::int16_t SetupData::Whole(std::size_t row, Field field) const
{
  return ToInt16(LeadingNumber(Text(row, field)));
}

void SetupData::CopyCurrent(std::array<float, kSetupRows>& values) const
{
  const auto rows = std::min(kSetupRows, SetupDataValues.size());
  for (std::size_t row = 0; row < rows; ++row) values[row] = SetupDataValues[row][kCurrent];
}

void SetupData::SetCurrent(const std::array<float, kSetupRows>& values)
{
  const auto rows = std::min(kSetupRows, SetupDataValues.size());
  for (std::size_t row = 0; row < rows; ++row) SetupDataValues[row][kCurrent] = values[row];
}

std::string_view SetupDataFileName(ModYear ModYearIndex) noexcept
{
  switch (ModYearIndex) {
    case ModYear::k1967: return "67 Setup Data.ini";
    case ModYear::k1965:
    case ModYear::k1966:
    case ModYear::k1969: return "65 Setup Data.ini";
    case ModYear::kGT: return "GT Setup Data.ini";
  }
  return {};
}

bool ReadSetupData(const platform::FileSystem& files, std::string_view program_directory,
                   ModYear ModYearIndex, SetupData& data)
{
  const auto name = SetupDataFileName(ModYearIndex);
  const auto path = std::string(program_directory) + "\\" + std::string(name);
  if (name.empty() || !files.Exists(path)) return false;
  std::string text;
  try {
    text = ReadText(files, path);
  } catch (const FileError&) {
    return true;
  }
  auto lines = SplitLines(text);
  if (lines.size() > kMostRows) lines.resize(kMostRows);
  data.SetupDataText.resize(lines.size());
  data.SetupDataValues.assign(lines.size(), {});
  for (std::size_t row = 0; row < lines.size(); ++row) {
    auto& fields = data.SetupDataText[row];
    SplitFields(lines[row], fields);
    const auto number = [&](Field field) {
      return static_cast<float>(LeadingNumber(fields[field - 1]));
    };
    auto& values = data.SetupDataValues[row];
    values[kMinimum] = number(kMinimumField);
    values[kMaximum] = number(kMaximumField);
    values[kStep] = number(kStepField);
    values[kFineStep] = number(kFineStepField);
  }
  return true;
}

}  // namespace velquist::data
