#include "Ranges.h"

#include <algorithm>
#include <cmath>

#include "Content.h"
#include "TextTable.h"

namespace velquist::content {

namespace {

/// Whole numbers up to this are exact in a single.
constexpr double kLargestExact = 16777216;  // 2 to the 24th

/// A limit written in English units may be a hair beside the metric grid by rounding alone.
constexpr double kGridTolerance = 1e-6;

std::size_t IndexOf(Family family)
{
  return static_cast<std::size_t>(family);
}

Range ReadRange(const TableLine& line, const std::string& cell)
{
  const auto words = SplitWords(cell);
  if (words.size() != 5) Reject(line, "expected minimum, default, maximum, step and fine step");
  std::array<float, 5> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    numbers[i] = static_cast<float>(ToNumber(line, words[i]));
  }
  const Range range{numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]};
  if (!(range.minimum <= range.standard && range.standard <= range.maximum)) {
    Reject(line, "the default lies outside the limits");
  }
  return range;
}

std::string OptionalText(const std::string& cell)
{
  return cell == "-" ? std::string() : cell;
}

/// `size`, with no more binary digits than leave `count` times it exact in a single.
float ExactFor(double size, double count)
{
  int digits = 0;
  while (std::round(std::ldexp(size, digits + 1)) * count < kLargestExact) ++digits;
  return static_cast<float>(std::ldexp(std::round(std::ldexp(size, digits)), -digits));
}

}  // namespace

std::string FamilyName(Family family)
{
  switch (family) {
    case Family::k67: return "67";
    case Family::k65: return "65";
    case Family::kGt: return "GT";
  }
  return {};
}

float Measure::FromMetric(double amount) const
{
  return static_cast<float>(amount / metric_fine * static_cast<double>(fine_unit));
}

Ranges::Ranges(const std::filesystem::path& sources, const std::array<const GearTable*, 3>& gears)
{
  ReadMeasures(sources / "measures.txt");
  ReadRows(sources / "ranges.txt");
  SetGearLimits(gears);
  SetFineUnits();
}

void Ranges::ReadMeasures(const std::filesystem::path& path)
{
  for (const TableLine& line : ReadTable(path)) {
    RequireCells(line, 6);
    Measure measure;
    measure.name = line.cells[0];
    measure.unit = line.cells[1];
    measure.metric_unit = OptionalText(line.cells[2]);
    if (!measure.metric_unit.empty()) {
      measure.factor = ToNumber(line, line.cells[3]);
      measure.metric_step = ToNumber(line, line.cells[4]);
      measure.metric_fine = ToNumber(line, line.cells[5]);
      if (!(measure.factor > 0 && measure.metric_step > 0 && measure.metric_fine > 0)) {
        Reject(line, "factor and steps must be positive");
      }
    }
    measures_.push_back(measure);
  }
}

void Ranges::ReadRows(const std::filesystem::path& path)
{
  for (const TableLine& line : ReadTable(path)) {
    RequireCells(line, 7);
    if (ToWhole(line, line.cells[0]) != static_cast<int>(rows_.size())) {
      Reject(line, "expected row " + std::to_string(rows_.size()));
    }
    DataRow row;
    row.quantity = line.cells[1];
    row.place = OptionalText(line.cells[2]);
    const auto measure = std::find_if(measures_.begin(), measures_.end(),
                                      [&](const Measure& m) { return m.name == line.cells[3]; });
    if (measure == measures_.end()) Reject(line, "unknown measure");
    row.measure = static_cast<std::size_t>(measure - measures_.begin());
    rows_.push_back(row);
    if (IsGearRow(static_cast<int>(rows_.size()) - 1)) continue;

    for (std::size_t family = 0; family < kFamilies.size(); ++family) {
      const std::string& cell = line.cells[4 + family];
      rows_.back().ranges[family] = cell == "same" ? rows_.back().ranges[0] : ReadRange(line, cell);
    }
  }
  if (rows_.size() != kDataRows) {
    throw ContentError(path.filename().string() + ": expected " + std::to_string(kDataRows) +
                       " rows");
  }
}

void Ranges::SetGearLimits(const std::array<const GearTable*, 3>& gears)
{
  for (int row = 0; row < kDataRows; ++row) {
    if (!IsGearRow(row)) continue;
    const std::string& measure = MeasureOf(row).name;
    const bool is_final_drive = measure == "final ratio" || measure == "final row";
    const bool is_ratio = measure == "gear ratio" || measure == "final ratio";
    for (std::size_t family = 0; family < kFamilies.size(); ++family) {
      const GearTable& table = *gears[family];
      const int first = is_final_drive ? table.FirstFinalDrive() : table.FirstGear();
      const int last = is_final_drive ? table.LastFinalDrive() : table.LastGear();
      Range& range = rows_[static_cast<std::size_t>(row)].ranges[family];
      range.minimum = is_ratio ? table.Ratio(first) : static_cast<float>(first);
      range.maximum = is_ratio ? table.Ratio(last) : static_cast<float>(last);
      range.step = range.fine = is_ratio ? 0.0F : 1.0F;
    }
  }
}

void Ranges::SetFineUnits()
{
  for (std::size_t i = 0; i < measures_.size(); ++i) {
    Measure& measure = measures_[i];
    if (measure.metric_unit.empty()) continue;
    double largest = 0;
    for (const DataRow& row : rows_) {
      if (row.measure != i) continue;
      for (const Range& range : row.ranges) {
        largest = std::max({largest, std::abs(static_cast<double>(range.minimum)),
                            std::abs(static_cast<double>(range.maximum))});
      }
    }
    const double fine = measure.metric_fine / measure.factor;
    measure.fine_unit = ExactFor(fine, std::ceil(largest / fine));
  }
}

const DataRow& Ranges::Row(int row) const
{
  return rows_.at(static_cast<std::size_t>(row));
}

const Measure& Ranges::MeasureOf(int row) const
{
  return measures_[Row(row).measure];
}

bool Ranges::IsGearRow(int row) const
{
  const std::string& measure = MeasureOf(row).name;
  return measure == "gear ratio" || measure == "final ratio" || measure == "gear row" ||
         measure == "final row";
}

float Ranges::OnMetricGrid(int row, float value) const
{
  const Measure& measure = MeasureOf(row);
  if (measure.metric_unit.empty()) return value;
  const double steps = static_cast<double>(value) * measure.factor / measure.metric_step;
  return measure.FromMetric((std::round(steps) + 0.0) * measure.metric_step);  // no -0
}

Range Ranges::RangeOf(int row, Family family, UnitSet set) const
{
  const Range& english = Row(row).ranges[IndexOf(family)];
  const Measure& measure = MeasureOf(row);
  if (set == UnitSet::kEnglish || measure.metric_unit.empty()) return english;

  const auto steps = [&](float value) {
    return static_cast<double>(value) * measure.factor / measure.metric_step;
  };
  const auto at = [&](double step_count) {
    return measure.FromMetric(step_count * measure.metric_step);
  };
  Range range;
  range.minimum = at(std::ceil(steps(english.minimum) - kGridTolerance) + 0.0);  // no -0
  range.maximum = at(std::floor(steps(english.maximum) + kGridTolerance));
  range.standard = std::clamp(OnMetricGrid(row, english.standard), range.minimum, range.maximum);
  range.step = at(1);
  range.fine = measure.FromMetric(measure.metric_fine);
  return range;
}

std::string Ranges::DataFile(Family family, UnitSet set,
                             const std::vector<float>& gear_defaults) const
{
  std::string text;
  for (int row = 0; row < kDataRows; ++row) {
    Range range = RangeOf(row, family, set);
    if (IsGearRow(row)) range.standard = gear_defaults.at(static_cast<std::size_t>(row));

    const DataRow& data = Row(row);
    text += data.quantity + (data.place.empty() ? "" : " " + data.place) + " (" +
            MeasureOf(row).unit + ")";
    for (const float number :
         {range.minimum, range.standard, range.maximum, range.step, range.fine}) {
      text += "," + ShortestText(number);
    }
    text += "\r\n";
  }
  return text;
}

}  // namespace velquist::content
