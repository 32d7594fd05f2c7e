#include "SetupWriter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

#include "Content.h"
#include "TextTable.h"

namespace velquist::content {

namespace {

constexpr std::size_t kShortSize = 264;
constexpr std::size_t kLongSize = 272;
constexpr std::size_t kHeaderSize = 12;  ///< magic, layout code, size of the data behind
constexpr std::size_t kReverseRatioOffset = 12;
constexpr std::size_t kReverseIdOffset = 48;
constexpr std::size_t kSymmetryOffset = 260;
constexpr char kFiller = ' ';
constexpr float kNoWing = -1.0F;

constexpr int kGears = 6;
constexpr int kFirstRatioRow = 0;
constexpr int kFinalRatioRow = 6;
constexpr int kFirstIdRow = 7;
constexpr int kFinalIdRow = 13;
constexpr int kFrontWingRow = 51;
constexpr int kRearWingRow = 52;

/// The wheels of reverse, the same in every box.
constexpr GearPair kReverse{35, 13};

/// The offset of a row's field in a setup file. Between the runs lie bytes that only the game
/// knows.
std::size_t OffsetOf(int row)
{
  const auto r = static_cast<std::size_t>(row);
  if (row <= kFinalRatioRow) return 20 + 4 * r;
  if (row <= 35) return 28 + 4 * r;
  if (row <= 49) return 60 + 4 * r;
  return row == kFrontWingRow ? 261 : 265;
}

/// Gear IDs, bump, rebound, clutches and brake bias are whole numbers in a setup file.
bool IsWholeNumber(int row)
{
  return (row >= kFirstIdRow && row <= kFinalIdRow) || (row >= 24 && row <= 31) || row == 46 ||
         row == 49;
}

bool IsWing(int row)
{
  return row == kFrontWingRow || row == kRearWingRow;
}

void Put(std::string& bytes, std::size_t offset, std::uint32_t value)
{
  for (std::size_t i = 0; i < 4; ++i) {
    bytes.at(offset + i) = static_cast<char>((value >> (8 * i)) & 0xFFU);
  }
}

void PutWhole(std::string& bytes, std::size_t offset, int value)
{
  Put(bytes, offset, static_cast<std::uint32_t>(value));
}

void PutSingle(std::string& bytes, std::size_t offset, float value)
{
  Put(bytes, offset, std::bit_cast<std::uint32_t>(value));
}

/// True for a byte that neither a parameter nor the magic and the layout code occupy.
bool IsOddByte(std::size_t offset, bool is_long)
{
  if (offset >= (is_long ? kLongSize : kShortSize)) return false;
  if (offset <= 4 || offset == 8 || offset == 9 || offset == kSymmetryOffset) return false;
  for (int row = 0; row < kDataRows; ++row) {
    if (row == kSymmetryRow || (!is_long && IsWing(row))) continue;
    if (offset >= OffsetOf(row) && offset < OffsetOf(row) + 4) return false;
  }
  return true;
}

/// "front" stands for "left front" and "right front" too, "-" for every place.
bool IsPlace(const std::string& wanted, const std::string& place)
{
  if (wanted == "-") return true;
  const auto words = SplitWords(place);
  const auto wanted_words = SplitWords(wanted);
  return std::all_of(wanted_words.begin(), wanted_words.end(), [&](const std::string& word) {
    return std::find(words.begin(), words.end(), word) != words.end();
  });
}

/// Builds one setup from the lines of its description.
class SetupBuilder {
 public:
  SetupBuilder(const TableLine& year_line, const Ranges& ranges, UnitSet set,
               const std::vector<FamilyTables>& tables)
      : ranges_(ranges), set_(set)
  {
    RequireCells(year_line, 2);
    const std::string& year = year_line.cells[1];
    has_wings_ = year == "69";
    setup_.family = FamilyOf(year_line, year);
    gears_ = std::find_if(tables.begin(), tables.end(), [&](const FamilyTables& t) {
               return t.family == setup_.family;
             })->gears;

    setup_.values.resize(kDataRows);
    for (int row = 0; row < kDataRows; ++row) {
      Value(row) = ranges_.RangeOf(row, setup_.family, set_).standard;
      if (IsWing(row) && !has_wings_) Value(row) = kNoWing;
    }
    const int reverse_id = gears_->Find(kReverse.DisplayText());
    if (reverse_id < 0) Reject(year_line, "the year's gears have no wheels for reverse");
    std::string reverse(8, '\0');
    PutSingle(reverse, 0,
              -static_cast<float>(static_cast<double>(kReverse.driven) / kReverse.driving));
    PutWhole(reverse, 4, reverse_id);
    for (std::size_t i = 0; i < 4; ++i) {
      setup_.odd_bytes[kReverseRatioOffset + i] = static_cast<std::uint8_t>(reverse[i]);
      setup_.odd_bytes[kReverseIdOffset + i] = static_cast<std::uint8_t>(reverse[4 + i]);
    }
  }

  void Add(const TableLine& line)
  {
    const std::string& key = line.cells[0];
    if (key == "layout") {
      RequireCells(line, 2);
      if (line.cells[1] != "short" && line.cells[1] != "long") Reject(line, "unknown layout");
      setup_.is_long = line.cells[1] == "long";
    } else if (key == "symmetric") {
      RequireCells(line, 2);
      if (line.cells[1] != "yes" && line.cells[1] != "no") Reject(line, "expected yes or no");
      setup_.is_symmetric = line.cells[1] == "yes";
    } else if (key == "gears") {
      AddGears(line);
    } else if (key == "final") {
      RequireCells(line, 2);
      SetGear(line, kGears, line.cells[1]);
    } else if (key == "all") {
      AddAll(line);
    } else if (key == "bytes") {
      AddBytes(line);
    } else {
      AddValue(line);
    }
  }

  [[nodiscard]] const Setup& Result(const TableLine& last_line) const
  {
    if (Value(kFirstRatioRow) <= 0 || Value(kFinalRatioRow) <= 0) {
      Reject(last_line, "the setup has no gears or no final drive");
    }
    return setup_;
  }

 private:
  static Family FamilyOf(const TableLine& line, const std::string& year)
  {
    if (year == "67") return Family::k67;
    if (year == "65" || year == "66" || year == "69") return Family::k65;
    if (year == "GT") return Family::kGt;
    Reject(line, "unknown year");
  }

  float& Value(int row) { return setup_.values[static_cast<std::size_t>(row)]; }
  [[nodiscard]] float Value(int row) const { return setup_.values[static_cast<std::size_t>(row)]; }

  void SetGear(const TableLine& line, int gear, const std::string& pair)
  {
    const int id = gears_->Find(pair);
    if (id < 0) Reject(line, "the year has no wheels " + pair);
    const Range limits = ranges_.RangeOf(kFirstIdRow + gear, setup_.family, set_);
    if (static_cast<float>(id) < limits.minimum || static_cast<float>(id) > limits.maximum) {
      Reject(line, pair + " does not belong there");
    }
    Value(kFirstIdRow + gear) = static_cast<float>(id);
    Value(kFirstRatioRow + gear) = gears_->Ratio(id);
  }

  void AddGears(const TableLine& line)
  {
    RequireCells(line, 2);
    const auto pairs = SplitWords(line.cells[1]);
    if (pairs.empty() || pairs.size() > kGears) Reject(line, "expected one to six pairs");
    for (int gear = 0; gear < kGears; ++gear) {
      SetGear(line, gear, pairs[std::min(static_cast<std::size_t>(gear), pairs.size() - 1)]);
    }
  }

  void AddAll(const TableLine& line)
  {
    RequireCells(line, 2);
    const bool lowest = line.cells[1] == "lowest";
    if (!lowest && line.cells[1] != "highest") Reject(line, "expected lowest or highest");
    for (int row = 0; row < kDataRows; ++row) {
      if (row == kSymmetryRow || (IsWing(row) && !has_wings_)) continue;
      const Range range = ranges_.RangeOf(row, setup_.family, set_);
      Value(row) = lowest ? range.minimum : range.maximum;
    }
  }

  void AddBytes(const TableLine& line)
  {
    RequireCells(line, 3);
    auto offset = static_cast<std::size_t>(ToWhole(line, line.cells[1]));
    for (const std::string& word : SplitWords(line.cells[2])) {
      if (!IsOddByte(offset, setup_.is_long)) {
        Reject(line, "byte " + std::to_string(offset) + " has a meaning");
      }
      setup_.odd_bytes[offset++] = static_cast<std::uint8_t>(ToWhole(line, word, 16));
    }
  }

  void AddValue(const TableLine& line)
  {
    RequireCells(line, 3);
    bool found = false;
    for (int row = 0; row < kDataRows; ++row) {
      const DataRow& data = ranges_.Row(row);
      if (row == kSymmetryRow || data.quantity != line.cells[0]) continue;
      if (!IsPlace(line.cells[1], data.place)) continue;
      Value(row) = ReadValue(line, row);
      found = true;
    }
    if (!found) Reject(line, "no parameter of that name and place");
  }

  [[nodiscard]] float ReadValue(const TableLine& line, int row) const
  {
    const auto words = SplitWords(line.cells[2]);
    if (words.empty() || words.size() > 2) Reject(line, "expected a number and perhaps a unit");
    const double number = ToNumber(line, words[0]);
    const Measure& measure = ranges_.MeasureOf(row);
    const bool is_metric = words.size() == 2;
    if (is_metric && words[1] != measure.metric_unit) Reject(line, "unknown unit");

    const float value = is_metric ? measure.FromMetric(number) : static_cast<float>(number);
    const Range range = ranges_.RangeOf(row, setup_.family, UnitSet::kEnglish);
    const bool is_no_wing = IsWing(row) && value == kNoWing;
    if (!is_no_wing && (value < range.minimum || value > range.maximum)) {
      Reject(line, "outside the limits");
    }
    return set_ == UnitSet::kMetric && !is_metric ? ranges_.OnMetricGrid(row, value) : value;
  }

  const Ranges& ranges_;
  UnitSet set_;
  const GearTable* gears_ = nullptr;
  bool has_wings_ = false;
  Setup setup_;
};

}  // namespace

std::string Setup::Bytes() const
{
  const std::size_t size = is_long ? kLongSize : kShortSize;
  std::string bytes(size, '\0');
  bytes.replace(0, 4, "PGTS");
  PutWhole(bytes, 4, is_long ? 4 : 3);
  // The game counts what lies behind the header, without the filler.
  PutWhole(bytes, 8, static_cast<int>(size - kHeaderSize - 3));
  for (int row = 0; row < kDataRows; ++row) {
    if (row == kSymmetryRow || (IsWing(row) && !is_long)) continue;
    const float value = values[static_cast<std::size_t>(row)];
    if (IsWholeNumber(row)) {
      PutWhole(bytes, OffsetOf(row), static_cast<int>(std::nearbyint(value)));
    } else {
      PutSingle(bytes, OffsetOf(row), value);
    }
  }
  bytes[kSymmetryOffset] = is_symmetric ? 1 : 0;
  std::fill(bytes.end() - 3, bytes.end(), kFiller);
  for (const auto& [offset, byte] : odd_bytes) bytes.at(offset) = static_cast<char>(byte);
  return bytes;
}

std::map<std::string, Setup> ReadSetups(const std::filesystem::path& path, const Ranges& ranges,
                                        UnitSet set, const std::vector<FamilyTables>& tables)
{
  std::map<std::string, Setup> setups;
  const auto lines = ReadTable(path);
  for (std::size_t i = 0; i < lines.size();) {
    const TableLine& first = lines[i];
    if (first.cells[0] != "year") Reject(first, "a setup begins with its year");
    if (setups.count(first.section) != 0) Reject(first, "the setup stands here twice");
    SetupBuilder builder(first, ranges, set, tables);
    for (++i; i < lines.size() && lines[i].section == first.section; ++i) builder.Add(lines[i]);
    setups.emplace(first.section, builder.Result(lines[i - 1]));
  }
  return setups;
}

}  // namespace velquist::content
