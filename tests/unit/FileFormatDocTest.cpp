// SPDX-License-Identifier: MIT
// The tables of docs/file-format.md against the code and the data files that ship.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "TemporaryFolder.h"
#include "data/SetupData.h"
#include "platform/HostFileSystem.h"
#include "runner/SourceDirectory.h"
#include "setup/Layouts.h"
#include "setup/SetupRecord.h"
#include "setup/SlotTable.h"

namespace velquist::setup {
namespace {

const std::filesystem::path kRoot = velquist::testing::SourceDirectory();

using Row = std::map<std::string, std::string>;

std::vector<std::string> CellsOf(std::string_view line)
{
  std::vector<std::string> cells;
  line.remove_prefix(1);
  for (auto bar = line.find('|'); bar != std::string_view::npos; bar = line.find('|')) {
    const auto cell = line.substr(0, bar);
    const auto first = cell.find_first_not_of(' ');
    cells.emplace_back(first == std::string_view::npos
                           ? std::string_view{}
                           : cell.substr(first, cell.find_last_not_of(' ') - first + 1));
    line.remove_prefix(bar + 1);
  }
  return cells;
}

/// The rows of the first table whose heading starts with these columns, by column heading.
std::vector<Row> TableOf(const std::vector<std::string>& columns)
{
  const auto text = samples::ContentOf(kRoot / "docs/file-format.md");
  std::vector<Row> rows;
  std::vector<std::string> heading;
  std::size_t line_of_table = 0;
  for (std::size_t at = 0; at < text.size();) {
    const auto end = std::min(text.find('\n', at), text.size());
    const auto line = std::string_view(text).substr(at, end - at);
    at = end + 1;
    const auto cells = line.starts_with('|') ? CellsOf(line) : std::vector<std::string>{};
    if (heading.empty()) {
      if (cells.size() >= columns.size() &&
          std::equal(columns.begin(), columns.end(), cells.begin()))
        heading = cells;
      continue;
    }
    if (cells.empty()) break;
    if (++line_of_table == 1) continue;  // the rule below the heading
    EXPECT_EQ(cells.size(), heading.size()) << line;
    for (std::size_t i = 0; i < std::min(cells.size(), heading.size()); ++i) {
      if (i == 0) rows.emplace_back();
      rows.back()[heading[i]] = cells[i];
    }
  }
  return rows;
}

std::vector<Row> ByteTable()
{
  return TableOf({"offset", "size", "type", "order", "field", "unit", "slot", "row"});
}

/// "3 to 5" as 3, 4, 5; "7" as 7; "-" as nothing.
std::vector<int> RangeOf(const std::string& text)
{
  if (text == "-") return {};
  const auto to = text.find(" to ");
  const int first = std::stoi(text);
  const int last = to == std::string::npos ? first : std::stoi(text.substr(to + 4));
  std::vector<int> numbers;
  for (int n = first; n <= last; ++n) numbers.push_back(n);
  return numbers;
}

TEST(FileFormatPage, EveryByteBelongsToExactlyOneField)
{
  std::size_t next = 0;
  for (const auto& row : ByteTable()) {
    EXPECT_EQ(std::stoul(row.at("offset")), next) << row.at("field");
    const auto size = std::stoul(row.at("size"));
    EXPECT_GE(size, 1U);
    next += size;
  }
  EXPECT_EQ(next, kLongLayoutSize);
}

TEST(FileFormatPage, EverySlotHasTheOffsetRowAndTypeOfTheCode)
{
  std::set<int> slots;
  for (const auto& row : ByteTable()) {
    if (row.at("slot") == "-") continue;
    const int slot = std::stoi(row.at("slot"));
    SCOPED_TRACE(row.at("field"));
    ASSERT_TRUE(slots.insert(slot).second) << "twice";
    ASSERT_GE(slot, 0);
    ASSERT_LT(slot, kSlots);
    EXPECT_EQ(std::stoi(row.at("offset")), SlotOffset[static_cast<std::size_t>(slot)]);
    EXPECT_EQ(std::stoi(row.at("row")), SlotRow[static_cast<std::size_t>(slot)]);
    EXPECT_EQ(row.at("type"), IsWholeSlot(slot) ? "i32" : "f32");
    EXPECT_EQ(row.at("size"), "4");
    EXPECT_EQ(row.at("order"), "little");
    EXPECT_NE(row.at("unit"), "-");
  }
  EXPECT_EQ(slots.size(), static_cast<std::size_t>(kSlots));
}

TEST(FileFormatPage, FieldsWithoutSlotAreTheOnesThatTheCodeTreatsAsBytes)
{
  std::map<std::string, std::string> found;
  for (const auto& row : ByteTable())
    if (row.at("slot") == "-")
      found[row.at("offset")] = row.at("size") + " " + row.at("type") + " " + row.at("field");
  const std::map<std::string, std::string> expected = {
      {"0", "4 bytes magic: `PGTS`"},
      {"4", "1 u8 layout code"},
      {"5", "3 bytes kept"},
      {"8", "1 u8 low byte of the data size"},
      {"9", "1 u8 high byte of the data size"},
      {"10", "10 bytes kept"},
      {"48", "8 bytes kept"},
      {"172", "32 bytes kept"},
      {std::to_string(kSymmetryOffset), "1 u8 symmetry flag"},
      {"269", "3 bytes filler"},
  };
  EXPECT_EQ(found, expected);
}

TEST(FileFormatPage, LimitsAndStepsAreThoseOfTheDataFilesThatShip)
{
  struct Family {
    const char* column;
    data::ModYear ModYearIndex;
  };
  constexpr std::array kFamilies = {Family{"1967", data::ModYear::k1967},
                                    Family{"1965, 1966, 1969", data::ModYear::k1965},
                                    Family{"GT", data::ModYear::kGT}};
  const platform::HostFileSystem files;
  for (const auto& [column, year] : kFamilies) {
    data::SetupData data;
    ASSERT_TRUE(data::ReadSetupData(files, (kRoot / "assets/program").string(), year, data));
    std::set<std::size_t> rows;
    for (const auto& line : ByteTable()) {
      SCOPED_TRACE(std::string(column) + ", " + line.at("field"));
      if (line.at("row") == "-") {
        EXPECT_EQ(line.at(column), "-");
        continue;
      }
      const std::size_t row = std::stoul(line.at("row"));
      rows.insert(row);
      EXPECT_EQ(line.at(column),
                data.Text(row, data::kMinimumField) + " to " + data.Text(row, data::kMaximumField));
      EXPECT_EQ(line.at("step"), data.Text(row, data::kStepField));
      EXPECT_EQ(line.at("fine step"), data.Text(row, data::kFineStepField));
      EXPECT_TRUE(data.Text(row, data::kLabelField).starts_with(line.at("field") + " ("));
    }
    EXPECT_EQ(rows.size(), data.SetupDataText.size());
  }
}

TEST(FileFormatPage, DataRowsBelongToTheSlotsOfTheCode)
{
  int next = 0;
  std::set<int> slots;
  for (const auto& line : TableOf({"rows", "slots", "parameters"})) {
    SCOPED_TRACE(line.at("parameters"));
    const auto rows = RangeOf(line.at("rows"));
    const auto slots_of_line = RangeOf(line.at("slots"));
    for (const int row : rows) EXPECT_EQ(row, next++);
    if (line.at("parameters") == "symmetry flag") continue;
    ASSERT_EQ(slots_of_line.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      EXPECT_EQ(RowOf(slots_of_line[i]), static_cast<std::size_t>(rows[i]));
      slots.insert(slots_of_line[i]);
    }
  }
  EXPECT_EQ(next, 53);
  EXPECT_EQ(slots.size(), static_cast<std::size_t>(kSlots));
}

TEST(FileFormatPage, LayoutDifferencesAreWhatAConversionWrites)
{
  Bytes short_setup(kLongLayoutSize);
  Bytes long_setup(kShortLayoutSize);
  ConvertLayout(short_setup, Layout::kShort);
  ConvertLayout(long_setup, Layout::kLong);
  const auto says = [](const Bytes& setup, std::size_t at, const std::string& cell) {
    if (cell == "-") return true;
    if (cell == "end of the file") return setup.size() == at;
    if (cell == "filler: 3 blanks")
      return setup.size() == at + 3 && std::all_of(setup.end() - 3, setup.end(), [](std::byte b) {
               return b == std::byte{0x20};
             });
    if (cell == "front wing" || cell == "rear wing")
      return SlotOffset[static_cast<std::size_t>(cell == "front wing" ? kFrontWing : kRearWing)] ==
                 static_cast<int>(at) &&
             ReadSingleAt(setup, at) == kNoWing;
    return std::to_integer<int>(setup.at(at)) == std::stoi(cell);
  };
  const auto rows = TableOf({"offset", "short layout", "long layout"});
  EXPECT_EQ(rows.size(), 8U);
  for (const auto& row : rows) {
    const std::size_t at = std::stoul(row.at("offset"));
    EXPECT_TRUE(says(short_setup, at, row.at("short layout"))) << at << " short";
    EXPECT_TRUE(says(long_setup, at, row.at("long layout"))) << at << " long";
  }
}

}  // namespace
}  // namespace velquist::setup
