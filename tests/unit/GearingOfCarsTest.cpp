// SPDX-License-Identifier: MIT
// The gearing of the cars that there are: best shifts as a table, and what the program prints.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "ContentFiles.h"
#include "ContentYears.h"
#include "ScriptedEditor.h"
#include "charts/Gearing.h"
#include "data/ChassisCatalogue.h"
#include "setup/SlotTable.h"

namespace velquist::testing {
namespace {

namespace content = velquist::content::testing;

/// The shifts of an engine with the gears of its year's default setup, as the table writes them.
std::string BestShifts(data::ModYear year, int slot)
{
  const auto setup = content::DefaultSetup(content::YearOf(std::string(data::ModYearText(year))));
  std::vector<float> ratios;
  for (int gear = 0; gear < data::GearCount(year, slot); ++gear)
    ratios.push_back(content::ValueOf(setup, gear));
  const float final_drive = content::ValueOf(setup, content::kFinalRatioRow);
  data::EngineCurve curve;
  data::ComputeEngineCurve(year, slot, curve);
  const auto maximum = static_cast<int>(data::EngineOf(year, slot).maximum_rpm);
  const auto bands =
      charts::ComputeSpeedBands(curve, maximum, year, slot, ratios, final_drive, false);
  auto gears = charts::ComputeGearing(curve, bands, ratios, final_drive).gears;
  gears.pop_back();
  std::string text = std::to_string(maximum);
  for (const auto& gear : gears) text += gear.shift ? " " + std::to_string(gear.shift->rpm) : " -";
  return text;
}

TEST(GearingOfCars, EveryEngineShiftsWhereTheTableSays)
{
  std::istringstream lines(
      content::ReadBytes(content::kRoot / "tests" / "fixtures" / "best_shifts.txt"));
  std::set<std::pair<std::string, int>> rows;
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line.substr(0, line.find('#')));
    std::string year;
    int slot = 0;
    if (!(words >> year >> slot)) continue;
    rows.emplace(year, slot);
    std::string expected;
    for (std::string word; words >> word;) expected += (expected.empty() ? "" : " ") + word;
    for (const auto ModYearIndex : data::kModYears)
      if (data::ModYearText(ModYearIndex) == year) {
        EXPECT_EQ(BestShifts(ModYearIndex, slot), expected) << year << ' ' << slot;
      }
  }
  EXPECT_EQ(rows.size(), 56U);
  for (const auto ModYearIndex : data::kModYears)
    for (int slot = 0; slot < data::kEngineSlots; ++slot)
      EXPECT_EQ(rows.contains({std::string(data::ModYearText(ModYearIndex)), slot}),
                data::EngineOf(ModYearIndex, slot).displacement > 0.0F)
          << data::ModYearText(ModYearIndex) << ' ' << slot;
}

class GearingDump : public ::testing::Test {
 protected:
  GearingDump() { editor_.StartWithGame(); }

  /// What `dump gearing` prints after a piece of script, a line of words each.
  std::vector<std::vector<std::string>> After(const std::string& script)
  {
    const auto before = editor_.Output().size();
    editor_.Play(script + "\ndump gearing");
    std::istringstream lines(editor_.Output().substr(before));
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(lines, line);) {
      std::istringstream words(line);
      rows.emplace_back();
      for (std::string word; words >> word;) rows.back().push_back(word);
    }
    return rows;
  }

  ScriptedEditor editor_;
};

TEST_F(GearingDump, SaysMaximumRpmAndOneLineAGear)
{
  const auto rows = After("select Combo3 \"Lotus 49-Ford V8 DFV\"");
  ASSERT_EQ(rows.size(), 6U);
  EXPECT_EQ(rows[0], (std::vector<std::string>{"maxrpm", "9400"}));
  const auto& car = editor_.Window().Car();
  for (std::size_t gear = 1; gear < rows.size(); ++gear) {
    const auto& row = rows[gear];
    ASSERT_EQ(row.size(), 8U);
    EXPECT_EQ(row[0], "gear");
    EXPECT_EQ(row[1], std::to_string(gear));
    const auto ratio = car.Gears().Ratio(
        static_cast<int>(car.Value(setup::kFirstGear + static_cast<int>(gear) - 1)));
    const auto final_drive = car.Gears().Ratio(static_cast<int>(car.Value(setup::kFinalDrive)));
    EXPECT_EQ(std::stod(row[2]), static_cast<double>(ratio));
    EXPECT_EQ(std::stod(row[3]), static_cast<double>(ratio) * static_cast<double>(final_drive));
    EXPECT_NEAR(std::stod(row[4]), 9400 / std::stod(row[3]) * 7.0686 / 88, 1e-9);
  }
  for (std::size_t gear = 1; gear < 5; ++gear) {
    const double down = std::stod(rows[gear + 1][3]) / std::stod(rows[gear][3]);
    EXPECT_NEAR(std::stod(rows[gear][5]), (1 / down - 1) * 100, 1e-9);
    EXPECT_EQ(rows[gear][6], "9400");
    EXPECT_NEAR(std::stod(rows[gear][7]), 9400 * down, 0.5);
  }
  EXPECT_EQ(std::vector<std::string>(rows[5].begin() + 5, rows[5].end()),
            (std::vector<std::string>{"-", "-", "-"}));
}

TEST_F(GearingDump, FollowsGearsFinalDriveUnitsAndUndo)
{
  const auto before = After("");
  const auto stepped = After("click CmdInc(43)");
  EXPECT_EQ(stepped[1][2], before[1][2]);
  EXPECT_NE(stepped[2][2], before[2][2]);
  EXPECT_EQ(After("click MnuUndo"), before);
  const auto driven = After("select Combo1(0) #0");
  EXPECT_EQ(driven[1][2], before[1][2]);
  EXPECT_NE(driven[1][3], before[1][3]);
  const auto metric = After("click MnuUndo\ncheck OptUnits(1)");
  EXPECT_EQ(metric[1][3], before[1][3]);
  EXPECT_NEAR(std::stod(metric[1][4]), std::stod(before[1][4]) * 1.609344, 1e-9);
}

}  // namespace
}  // namespace velquist::testing
