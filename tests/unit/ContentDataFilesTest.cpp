// The setup data files, their metric companions and the gear data files.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "ContentFiles.h"
#include "ContentYears.h"

namespace {

using namespace velquist::content::testing;

// --- Setup data files --------------------------------------------------------------------------

TEST(SetupDataFiles, HaveFiftyThreeRowsWithDefaultsAndStepsThatFitTheLimits)
{
  ForEachYear([](const Year& year) {
    const auto rows = SetupDataOf(year);
    for (std::size_t row = 0; row < rows.size(); ++row) {
      SCOPED_TRACE(row);
      EXPECT_LT(rows[row].minimum, rows[row].maximum);
      EXPECT_GE(rows[row].standard, rows[row].minimum);
      EXPECT_LE(rows[row].standard, rows[row].maximum);
      EXPECT_GE(rows[row].step, rows[row].fine);
      const bool is_ratio_number = row <= kFinalRatioRow;
      EXPECT_EQ(rows[row].fine > 0, !is_ratio_number);
      EXPECT_EQ(rows[row].step > 0, !is_ratio_number);
    }
  });
}

TEST(SetupDataFiles, LimitsOfTheGearRowsAreTheEndsOfTheGearTable)
{
  ForEachYear([](const Year& year) {
    const auto rows = SetupDataOf(year);
    const auto gears = GearDataOf(year);
    const auto first_final = static_cast<std::size_t>(
        std::find_if(gears.begin(), gears.end(), [](const GearRow& g) { return g.ratio >= 3.0F; }) -
        gears.begin());
    for (std::size_t gear = 0; gear < 7; ++gear) {
      const bool is_final = gear == 6;
      const std::size_t lowest = is_final ? first_final : 0;
      const std::size_t highest = is_final ? gears.size() - 1 : first_final - 1;
      EXPECT_EQ(rows[gear].minimum, gears[lowest].ratio);
      EXPECT_EQ(rows[gear].maximum, gears[highest].ratio);
      EXPECT_EQ(rows[kFirstIdRow + gear].minimum, static_cast<float>(lowest));
      EXPECT_EQ(rows[kFirstIdRow + gear].maximum, static_cast<float>(highest));
    }
  });
}

TEST(SetupDataFiles, ListLimitsAreWrittenAsWholeNumbers)
{
  for (const char* const folder : {"", "Metric"}) {
    for (const char* const family : {"67", "65", "GT"}) {
      const auto fields = ReadFields(kProgram / folder / (std::string(family) + " Setup Data.ini"));
      for (const std::size_t row : {13U, 14U, 15U, 46U}) {
        for (const std::size_t field : {1U, 3U}) {
          EXPECT_EQ(fields.at(row).at(field).find_first_not_of("0123456789"), std::string::npos);
        }
      }
      for (const std::size_t row : {14U, 15U}) {
        EXPECT_EQ(std::fmod(Number(fields.at(row).at(3)) - Number(fields.at(row).at(1)), 5.0), 0.0);
      }
    }
  }
}

TEST(SetupDataFiles, DefaultsAreThoseOfTheDefaultSetup)
{
  for (const fs::path& folder : {kProgram, kProgram / "Metric"}) {
    for (const char* const title : {"1967", "1965", "GT"}) {
      SCOPED_TRACE(title);
      const Year& year = YearOf(title);
      const auto rows = SetupDataOf(year, folder);
      const std::string setup = DefaultSetup(year, folder);
      for (int row = 0; row < kFrontWingRow; ++row) {
        EXPECT_EQ(rows[static_cast<std::size_t>(row)].standard, ValueOf(setup, row)) << row;
      }
    }
  }
}

TEST(SetupDataFiles, FollowTheGameForA1967Car)
{
  const auto rows = SetupDataOf(YearOf("1967"));
  const auto expect_row = [&](std::size_t row, std::array<float, 5> numbers) {
    const DataRow& r = rows[row];
    EXPECT_EQ((std::array{r.minimum, r.standard, r.maximum, r.step, r.fine}), numbers) << row;
  };
  expect_row(16, {12, 22, 40, 1, 0.1F});
  expect_row(19, {12, 24, 40, 1, 0.1F});
  expect_row(20, {40, 90, 300, 5, 1});
  expect_row(31, {1, 2, 5, 1, 1});
  expect_row(34, {-4, -0.75F, 2, 0.25F, 0.05F});
  expect_row(39, {0.25F, 1, 4, 0.25F, 0.05F});
  expect_row(41, {-0.5F, 0.05F, 0.5F, 0.025F, 0.005F});
  expect_row(42, {0, 140, 500, 10, 1});
  expect_row(44, {2.5F, 3.25F, 7, 0.25F, 0.05F});
  expect_row(46, {1, 3, 5, 1, 1});
  expect_row(47, {1, 20, 60, 1, 1});
  expect_row(48, {8, 15, 25, 1, 1});
  expect_row(49, {40, 54, 70, 1, 1});
}

// --- Metric set --------------------------------------------------------------------------------

struct MetricRows {
  std::vector<std::size_t> rows;
  double factor;  ///< metric units in one unit of the file
  double step;    ///< in metric units
  double fine;    ///< in metric units
};

const std::vector<MetricRows>& MetricGrids()
{
  static const std::vector<MetricRows> grids = {{{16, 17, 18, 19}, 6.8947, 5, 1},            // kPa
                                                {{20, 21, 22, 23}, 1.7513, 5, 1},            // N/cm
                                                {{42, 43}, 1.7513, 10, 1},                   // N/cm
                                                {{36, 37, 38, 39, 44, 45}, 2.54, 0.5, 0.1},  // cm
                                                {{40, 41}, 2.54, 0.05, 0.01},                // cm
                                                {{47}, 3.7854, 5, 1}};  // litres
  return grids;
}

void ExpectMultiple(float value, double factor, double unit)
{
  const double amount = static_cast<double>(value) * factor;
  EXPECT_NEAR(amount, std::round(amount / unit) * unit, 1e-4 * std::abs(amount));
}

TEST(MetricSet, StandsForTheSameFilesRowForRow)
{
  const auto english = OnDisk(kProgram);
  for (const char* const family : {"67", "65", "GT"}) {
    const std::string name = std::string(family) + " Setup Data.ini";
    EXPECT_EQ(english.count("Metric/" + name), 1U);
    EXPECT_EQ(ReadSetupData(kProgram / "Metric" / name).size(), static_cast<std::size_t>(kRows));
  }
}

TEST(MetricSet, StepsAndLimitsAreEvenInMetricUnitsAndWithinTheEnglishLimits)
{
  ForEachYear([](const Year& year) {
    const auto english = SetupDataOf(year);
    const auto metric = SetupDataOf(year, kProgram / "Metric");
    for (const MetricRows& grid : MetricGrids()) {
      for (const std::size_t row : grid.rows) {
        SCOPED_TRACE(row);
        const double factor = grid.factor;
        EXPECT_NEAR(static_cast<double>(metric[row].step) * factor, grid.step, 1e-4 * grid.step);
        EXPECT_NEAR(static_cast<double>(metric[row].fine) * factor, grid.fine, 1e-4 * grid.fine);
        ExpectMultiple(metric[row].minimum, factor, grid.step);
        ExpectMultiple(metric[row].maximum, factor, grid.step);
        ExpectMultiple(metric[row].standard, factor, grid.step);
        EXPECT_GE(metric[row].minimum, english[row].minimum);
        EXPECT_LE(metric[row].maximum, english[row].maximum);
        EXPECT_LT(static_cast<double>(metric[row].minimum - english[row].minimum) * factor,
                  grid.step);
        EXPECT_LT(static_cast<double>(english[row].maximum - metric[row].maximum) * factor,
                  grid.step);
      }
    }
  });
}

TEST(MetricSet, SteppingReachesBothLimitsExactlyAndReturnsToTheSameValue)
{
  ForEachYear([](const Year& year) {
    const auto metric = SetupDataOf(year, kProgram / "Metric");
    for (const MetricRows& grid : MetricGrids()) {
      for (const std::size_t row : grid.rows) {
        for (const float step : {metric[row].step, metric[row].fine}) {
          SCOPED_TRACE(row);
          float value = metric[row].standard;
          while (value + step <= metric[row].maximum) value += step;
          EXPECT_EQ(value, metric[row].maximum);
          while (value - step >= metric[row].minimum) value -= step;
          EXPECT_EQ(value, metric[row].minimum);
          while (value < metric[row].standard) value += step;
          EXPECT_EQ(value, metric[row].standard);
        }
      }
    }
  });
}

TEST(MetricSet, LeavesWhatHasNoMetricUnitAsItIs)
{
  std::set<std::size_t> metric_rows;
  for (const MetricRows& grid : MetricGrids()) {
    metric_rows.insert(grid.rows.begin(), grid.rows.end());
  }
  for (const char* const family : {"67", "65", "GT"}) {
    const std::string name = std::string(family) + " Setup Data.ini";
    const auto english = ReadFields(kProgram / name);
    const auto metric = ReadFields(kProgram / "Metric" / name);
    ASSERT_EQ(english.size(), metric.size());
    for (std::size_t row = 0; row < english.size(); ++row) {
      EXPECT_EQ(english[row] == metric[row], metric_rows.count(row) == 0) << name << " " << row;
    }
  }
}

TEST(MetricSet, DefaultSetupsDifferFromTheEnglishOnesOnlyByTheGrid)
{
  ForEachYear([](const Year& year) {
    const auto rows = SetupDataOf(year);
    const auto metric_rows = SetupDataOf(year, kProgram / "Metric");
    const std::string metric = DefaultSetup(year, kProgram / "Metric");
    std::string english = DefaultSetup(year);
    ASSERT_EQ(metric.size(), english.size());
    for (const MetricRows& grid : MetricGrids()) {
      for (const std::size_t row : grid.rows) {
        SCOPED_TRACE(row);
        const float value = ValueOf(metric, static_cast<int>(row));
        const float original = ValueOf(english, static_cast<int>(row));
        if (original == rows[row].standard) {
          EXPECT_EQ(value, metric_rows[row].standard);
        }
        ExpectMultiple(value, grid.factor, grid.step);
        EXPECT_LE(std::abs(static_cast<double>(value - original)) * grid.factor,
                  grid.step / 2 * 1.001);
        english.replace(kOffsets[row], 4, metric, kOffsets[row], 4);
      }
    }
    EXPECT_TRUE(english == metric);
  });
}

// --- Gear data files ---------------------------------------------------------------------------

struct Teeth {
  int driven, driving;
};

Teeth TeethOf(const GearRow& row)
{
  const auto parts = Split(row.text, "/");
  return {static_cast<int>(Number(parts.at(0))), static_cast<int>(Number(parts.at(1)))};
}

TEST(GearDataFiles, HaveNinetyRowsThatRiseStrictly)
{
  ForEachYear([](const Year& year) {
    const auto rows = ReadGearData(kProgram / (year.gears + " Gear Data.ini"));
    ASSERT_EQ(rows.size(), 90U);
    for (std::size_t row = 0; row < rows.size(); ++row) {
      EXPECT_EQ(rows[row].number, std::to_string(row));
      if (row > 0) {
        EXPECT_GT(rows[row].ratio, rows[row - 1].ratio) << row;
      }
    }
  });
}

TEST(GearDataFiles, RatioIsThatOfTheTeethToThreeDecimals)
{
  for (const char* const name : {"67", "65"}) {
    for (const auto& fields : ReadFields(kProgram / (std::string(name) + " Gear Data.ini"))) {
      const Teeth teeth = TeethOf({fields.at(0), fields.at(1), 0});
      const std::string& ratio = fields.at(2);
      EXPECT_EQ(ratio.size() - ratio.find('.'), 4U) << ratio;
      EXPECT_NEAR(Number(ratio), static_cast<double>(teeth.driven) / teeth.driving, 0.0005001);
    }
  }
}

TEST(GearDataFiles, FinalDrivesAreABlockAtTheEndAndEachWheelFitsItsBox)
{
  ForEachYear([](const Year& year) {
    bool is_final = false;
    for (const GearRow& row : GearDataOf(year)) {
      SCOPED_TRACE(row.text);
      const Teeth teeth = TeethOf(row);
      is_final = is_final || teeth.driving < 13;
      if (is_final) {
        EXPECT_GE(row.ratio, 3.0F);
        EXPECT_TRUE(teeth.driving >= 7 && teeth.driving <= 11);
        EXPECT_TRUE(teeth.driven >= 28 && teeth.driven <= 38);
      } else {
        EXPECT_LT(row.ratio, 3.0F);
        EXPECT_TRUE(teeth.driving >= 13 && teeth.driving <= 31);
        EXPECT_TRUE(teeth.driven >= 20 && teeth.driven <= 38);
        EXPECT_TRUE(teeth.driven + teeth.driving >= 47 && teeth.driven + teeth.driving <= 53);
      }
    }
    EXPECT_TRUE(is_final);
  });
}

TEST(GearDataFiles, NeighboursAreEvenlySpaced)
{
  ForEachYear([](const Year& year) {
    const auto rows = GearDataOf(year);
    const auto ratio = [&](std::size_t row) { return static_cast<double>(rows[row].ratio); };
    std::size_t last_gear = 0;
    for (std::size_t row = 1; row < rows.size(); ++row) {
      if (ratio(row) < 3) last_gear = row;
      if (ratio(row - 1) < 3 && ratio(row) >= 3) continue;  // from the gears to the final drives
      const double step = ratio(row) / ratio(row - 1);
      EXPECT_GT(step, 1.009) << rows[row].text;
      EXPECT_LT(step, 1.041) << rows[row].text;
    }
    const auto steps = static_cast<double>(last_gear);
    EXPECT_LT(std::pow(ratio(last_gear) / ratio(0), 1 / steps), 1.022);
  });
}

TEST(GearDataFiles, HoldThePairsThatTheGameIsKnownFor)
{
  const std::map<std::string, float> known = {
      {"35/13", 2.692F}, {"38/15", 2.533F}, {"31/10", 3.1F}, {"31/9", 3.444F}, {"34/9", 3.778F}};
  ForEachYear([&](const Year& year) {
    std::map<std::string, float> found;
    for (const GearRow& row : GearDataOf(year)) {
      if (known.count(row.text) != 0) found[row.text] = row.ratio;
    }
    EXPECT_EQ(found, known);
  });
}

TEST(GearDataFiles, FinalDrivesOfTheOtherYearsReachFurtherBothWaysThanThoseOf1967)
{
  const auto finals67 = SetupDataOf(YearOf("1967"))[kFinalRatioRow];
  const auto finals65 = SetupDataOf(YearOf("1965"))[kFinalRatioRow];
  EXPECT_LT(finals65.minimum, finals67.minimum);
  EXPECT_GT(finals65.maximum, finals67.maximum);
}

}  // namespace
