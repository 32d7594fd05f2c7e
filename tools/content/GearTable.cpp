#include "GearTable.h"

#include <algorithm>

#include "Content.h"
#include "TextTable.h"

namespace velquist::content {

namespace {

/// The ratio in thousandths, halves up.
int Thousandths(const GearPair& pair)
{
  return (2000 * pair.driven + pair.driving) / (2 * pair.driving);
}

GearPair ReadPair(const TableLine& line)
{
  const std::string& text = line.cells[1];
  const auto slash = text.find('/');
  if (slash == std::string::npos) Reject(line, "expected driven/driving teeth");
  const GearPair pair{ToWhole(line, text.substr(0, slash)), ToWhole(line, text.substr(slash + 1))};
  if (pair.driven < 1 || pair.driving < 1) Reject(line, "a wheel without teeth");
  return pair;
}

}  // namespace

std::string GearPair::DisplayText() const
{
  return std::to_string(driven) + "/" + std::to_string(driving);
}

std::string GearPair::RatioText() const
{
  const int thousandths = Thousandths(*this);
  const std::string decimals = std::to_string(1000 + thousandths % 1000).substr(1);
  return std::to_string(thousandths / 1000) + "." + decimals;
}

float GearPair::Ratio() const
{
  return static_cast<float>(Thousandths(*this) / 1000.0);
}

GearTable::GearTable(const std::filesystem::path& path)
{
  for (const TableLine& line : ReadTable(path)) {
    RequireCells(line, 2);
    const bool is_final_drive = line.section == "final drives";
    if (!is_final_drive && line.section != "gears") Reject(line, "unknown section");

    const int row = static_cast<int>(rows_.size());
    if (ToWhole(line, line.cells[0]) != row) Reject(line, "expected row " + std::to_string(row));
    const GearPair pair = ReadPair(line);
    if (row > 0 && Thousandths(pair) <= Thousandths(rows_.back())) {
      Reject(line, "the ratio does not rise");
    }
    if (is_final_drive && first_final_drive_ == 0) first_final_drive_ = row;
    if (!is_final_drive && first_final_drive_ != 0) Reject(line, "a gear behind a final drive");
    rows_.push_back(pair);
  }
  if (rows_.size() != kGearRows || first_final_drive_ == 0) {
    throw ContentError(path.filename().string() + ": expected " + std::to_string(kGearRows) +
                       " rows, gears and final drives");
  }
}

float GearTable::Ratio(int gear_id) const
{
  return rows_.at(static_cast<std::size_t>(gear_id)).Ratio();
}

int GearTable::Find(std::string_view display_text) const
{
  const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const GearPair& pair) {
    return pair.DisplayText() == display_text;
  });
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

std::string GearTable::DataFile() const
{
  std::string text;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    text += std::to_string(row) + "," + rows_[row].DisplayText() + "," + rows_[row].RatioText() +
            "\r\n";
  }
  return text;
}

}  // namespace velquist::content
