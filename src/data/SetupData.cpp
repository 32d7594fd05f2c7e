// SPDX-License-Identifier: MIT
#include "data/SetupData.h"

#include "data/Numbers.h"
#include "data/ReadText.h"
#include "platform/Errors.h"

namespace velquist::data {
namespace {

constexpr std::array<std::string_view, 5> kFileNames = {
    "67 Setup Data.ini",  // 1967
    "65 Setup Data.ini",  // 1965
    "65 Setup Data.ini",  // 1966
    "65 Setup Data.ini",  // 1969
    "GT Setup Data.ini",  // GT
};

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

std::string_view SetupDataFileName(int ModYearIndex) noexcept
{
  const auto year = static_cast<std::size_t>(ModYearIndex);
  return year < kFileNames.size() ? kFileNames[year] : std::string_view{};
}

bool ReadSetupData(const platform::FileSystem& files, std::string_view program_directory,
                   int ModYearIndex, SetupData& data)
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
  const auto lines = SplitLines(text);
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
