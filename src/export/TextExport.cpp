// SPDX-License-Identifier: MIT
#include "export/TextExport.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "data/Numbers.h"
#include "setup/SlotTable.h"

namespace velquist::text_export {
namespace {

using setup::RowOf;

constexpr std::size_t kZoneWidth = 14;

/// Zones are counted from 0; values stand in zones 3 and 4.
constexpr std::size_t kLeftZone = 3;
constexpr std::size_t kRightZone = 4;

/// Text in print zones: moving to a zone pads with blanks up to its start, and to the next one
/// where the line reaches or passes that start already.
class Line {
 public:
  explicit Line(std::string label) : text_(std::move(label)) {}

  Line& At(std::size_t zone, std::string_view item)
  {
    const auto start =
        std::max(zone, text_.size() / kZoneWidth + (text_.empty() ? 0 : 1)) * kZoneWidth;
    text_.resize(start, ' ');
    text_ += item;
    return *this;
  }
  [[nodiscard]] std::string Ended() && { return std::move(text_) + "\r\n"; }

 private:
  std::string text_;
};

/// One line of the table, front wheels first as on a garage sheet.
struct Row {
  std::string_view label;
  int left;   ///< slot in the left or only column
  int right;  ///< slot in the right column
};

constexpr int kNone = -1;
constexpr int kHeads = -2;  ///< in place of a slot: the column heads
constexpr int kRules = -3;  ///< the lines under them

constexpr Row kBlankLine{"", kNone, kNone};

constexpr std::array<Row, 38> kRows = {{
    kBlankLine,
    {"", kHeads, kHeads},
    {"", kRules, kRules},
    {"Front Tire Pressure, psi", 0, 1},
    {"Front Wheel Rate, lbs/inch", 4, 5},
    {"Front Bump", 8, 9},
    {"Front Rebound", 12, 13},
    {"Front Camber, degrees", 16, 17},
    {"Front Bump Rubber, inches", 20, 21},
    kBlankLine,
    {"Front Toe In, inches", 24, kNone},
    {"Front Roll Bar, lbs/inch", 26, kNone},
    {"Front Ride Height, inches", 28, kNone},
    kBlankLine,
    {"Front Brake Bias", 32, kNone},
    {"Steering Ratio", 31, kNone},
    {"Fuel Level, gallons", 30, kNone},
    kBlankLine,
    {"Rear Toe In, inches", 25, kNone},
    {"Rear Roll Bar, lbs/inch", 27, kNone},
    {"Rear Ride Height, inches", 29, kNone},
    kBlankLine,
    {"", kHeads, kHeads},
    {"", kRules, kRules},
    {"Rear Tire Pressure, psi", 2, 3},
    {"Rear Wheel Rate, lbs/inch", 6, 7},
    {"Rear Bump", 10, 11},
    {"Rear Rebound", 14, 15},
    {"Rear Camber, degrees", 18, 19},
    {"Rear Bump Rubber, inches", 22, 23},
    kBlankLine,
    {"Front Wing Setting, degrees ", 33, kNone},
    {"Rear Wing Setting, degrees ", 34, kNone},
    kBlankLine,
    {"Power Angle, degrees", 50, kNone},
    {"Coast Angle, degrees", 49, kNone},
    {"Clutches", 51, kNone},
    kBlankLine,
}};

constexpr std::array<std::string_view, 6> kOrdinals = {"1st ", "2nd ", "3rd ",
                                                       "4th ", "5th ", "6th "};

std::string Item(const data::SetupData& values, int slot)
{
  if (slot == kRules) return "-----";
  return NumberItem(values.Value(RowOf(slot), data::kCurrent));
}

std::string RowText(const Row& row, const data::SetupData& values)
{
  Line line{std::string(row.label)};
  if (row.left != kNone) line.At(kLeftZone, row.left == kHeads ? "Left" : Item(values, row.left));
  if (row.right != kNone)
    line.At(kRightZone, row.right == kHeads ? "Right" : Item(values, row.right));
  return std::move(line).Ended();
}

std::string GearLine(std::string label, int slot, const data::SetupData& values,
                     const data::GearData& gears)
{
  const int row = data::ToInt16(values.Value(RowOf(slot), data::kCurrent));
  return std::move(Line(std::move(label))
                       .At(kLeftZone, gears.DisplayText(row))
                       .At(kRightZone, NumberItem(gears.Ratio(row))))
      .Ended();
}

}  // namespace

std::string NumberItem(float value)
{
  std::string digits = "nan";
  if (std::isinf(value)) {
    digits = "inf";
  } else if (!std::isnan(value)) {
    constexpr int kSignificantDigits = 7;
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                   std::chars_format::general, kSignificantDigits);
    digits.assign(text.data(), end.ptr);
  }
  const bool negative = value < 0;
  std::ranges::replace(digits, 'e', 'E');
  return (negative ? "-" : " ") + digits + " ";
}

std::string ExportFileName(std::string_view file_name)
{
  return std::string(file_name.substr(0, file_name.rfind('.'))) + ".txt";
}

std::string ExportText(const Subject& subject, const data::SetupData& values,
                       const data::GearData& gears)
{
  std::string text;
  text.append("FileName: ").append(subject.file_name).append("\r\n");
  text.append("Chassis: ").append(subject.mod_year).append(" ").append(subject.chassis_name);
  text.append(" F").append(std::to_string(subject.formula)).append("\r\n");
  for (const auto& row : kRows) text += RowText(row, values);
  const int lines = std::min(subject.gear_count, static_cast<int>(kOrdinals.size()));
  for (int gear = 0; gear < lines; ++gear)
    text += GearLine(std::string(kOrdinals[static_cast<std::size_t>(gear)]) + "Gear",
                     setup::kFirstGear + gear, values, gears);
  text += GearLine("Gear Differential", setup::kFinalDrive, values, gears);
  return text;
}

}  // namespace velquist::text_export
