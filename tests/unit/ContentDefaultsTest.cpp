// The default setups: what the game wants in them, and gears that suit the engine.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iomanip>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "ContentFiles.h"
#include "ContentYears.h"
#include "data/ChassisCatalogue.h"
#include "data/ModYear.h"

namespace {

using namespace velquist::content::testing;
namespace data = velquist::data;

/// The ratio numbers of all six slots.
std::vector<double> AllGearsOf(const std::string& setup)
{
  std::vector<double> ratios;
  for (int gear = 0; gear < 6; ++gear) ratios.push_back(static_cast<double>(ValueOf(setup, gear)));
  return ratios;
}

TEST(DefaultSetups, HaveTheLayoutOfTheirYear)
{
  ForEachYear([](const Year& year) {
    const std::string setup = DefaultSetup(year);
    EXPECT_EQ(setup.size(), year.is_long ? 272U : 264U);
    EXPECT_EQ(setup.substr(0, 4), "PGTS");
    EXPECT_EQ(Word(setup, 4), year.is_long ? 4U : 3U);
    EXPECT_EQ(Word(setup, 8), year.is_long ? 257U : 249U);
    EXPECT_EQ(setup.substr(setup.size() - 3), "   ");
  });
}

TEST(DefaultSetups, HoldReverseNeutralAndZerosWhereOnlyTheGameLooks)
{
  ForEachYear([](const Year& year) {
    const std::string setup = DefaultSetup(year);
    EXPECT_FLOAT_EQ(SingleAt(setup, 12), -35.0F / 13.0F);
    EXPECT_EQ(SingleAt(setup, 16), 0.0F);
    EXPECT_EQ(GearDataOf(year).at(Word(setup, 48)).text, "35/13");
    EXPECT_EQ(Word(setup, 52), 0U);
    EXPECT_EQ(setup.substr(172, 32), std::string(32, '\0'));
  });
}

TEST(DefaultSetups, AreSymmetricWithinAllLimitsAndOnTheAngleGrid)
{
  ForEachYear([](const Year& year) {
    const auto rows = SetupDataOf(year);
    const std::string setup = DefaultSetup(year);
    EXPECT_EQ(setup.at(260), 1);
    for (int row = 0; row < kFrontWingRow; ++row) {
      const DataRow& limits = rows[static_cast<std::size_t>(row)];
      EXPECT_GE(ValueOf(setup, row), limits.minimum) << row;
      EXPECT_LE(ValueOf(setup, row), limits.maximum) << row;
    }
    EXPECT_EQ(ValueOf(setup, kCoastAngleRow), 45.0F);
    EXPECT_EQ(ValueOf(setup, kPowerAngleRow), 60.0F);
    for (int row = 16; row < 40; row += 2) EXPECT_EQ(ValueOf(setup, row), ValueOf(setup, row + 1));
  });
}

TEST(DefaultSetups, HaveTheValuesOfTheRangesButWhereWeightAndTiresOfTheYearAskForOthers)
{
  // Row of the left or only wheel or the axle, and the value.
  const std::map<std::string, std::map<int, float>> own = {
      {"1966", {{20, 85}, {22, 105}}},
      {"1969", {{20, 130}, {22, 160}, {42, 180}, {43, 100}}},
  };
  ForEachYear([&](const Year& year) {
    const auto rows = SetupDataOf(year);
    const std::string setup = DefaultSetup(year);
    for (int row = 16; row < kFrontWingRow; ++row) {
      const bool is_right = row < 40 && row % 2 == 1;
      auto wanted = rows[static_cast<std::size_t>(row)].standard;
      if (const auto found = own.find(year.title); found != own.end())
        if (const auto value = found->second.find(row - is_right); value != found->second.end())
          wanted = value->second;
      EXPECT_EQ(ValueOf(setup, row), wanted) << row;
    }
  });
}

TEST(DefaultSetups, HaveWingsIn1969Alone)
{
  ForEachYear([](const Year& year) {
    if (!year.is_long) return;
    const std::string setup = DefaultSetup(year);
    const bool has_wings = year.title == "1969";
    EXPECT_EQ(ValueOf(setup, kFrontWingRow), has_wings ? 4.0F : -1.0F);
    EXPECT_EQ(ValueOf(setup, kRearWingRow), has_wings ? 8.0F : -1.0F);
  });
}

TEST(DefaultSetups, RatioNumbersEqualTheRatiosOfTheirGearIds)
{
  ForEachYear([](const Year& year) {
    const auto gears = GearDataOf(year);
    const std::string setup = DefaultSetup(year);
    for (int gear = 0; gear < 7; ++gear) {
      EXPECT_EQ(ValueOf(setup, gear), gears.at(IdOf(setup, gear)).ratio) << gear;
    }
  });
}

TEST(DefaultSetups, TopGearReachesMaximumRpmJustAboveTheYearsSpeedLine)
{
  ForEachYear([](const Year& year) {
    const std::string setup = DefaultSetup(year);
    const double final_drive = static_cast<double>(ValueOf(setup, kFinalRatioRow));
    const double top = Speed(year.engine.maximum_rpm, GearsOf(year, setup).back(), final_drive);
    EXPECT_GE(top, year.speed_line * 1.03);
    EXPECT_LE(top, year.speed_line * 1.06);
  });
}

TEST(DefaultSetups, TheManualsExampleOfAnotherCarIsRight)
{
  const Year& year = YearOf("1967");
  const std::string setup = DefaultSetup(year);
  const auto gears = GearDataOf(year);
  const double eagle = data::EngineOf(data::ModYear::k1967, 3).maximum_rpm;
  const auto standard = gears.at(IdOf(setup, kFinalRatioRow));
  const double wanted = static_cast<double>(standard.ratio) * eagle / year.engine.maximum_rpm;
  const auto nearest = *std::ranges::min_element(gears, {}, [&](const GearRow& row) {
    return std::abs(static_cast<double>(row.ratio) - wanted);
  });
  const double top = Speed(eagle, GearsOf(year, setup).back(), nearest.ratio);
  EXPECT_GE(top, year.speed_line * 1.03);
  EXPECT_LE(top, year.speed_line * 1.06);
  std::ostringstream example;
  example << std::fixed << std::setprecision(3) << "the Eagle of 1967 turns " << std::lround(eagle)
          << " where the Brabham turns " << std::lround(year.engine.maximum_rpm) << "; "
          << standard.text << " is " << standard.ratio << ", which gives " << wanted << ", and "
          << nearest.text << " (" << nearest.ratio << ") is nearest: " << std::lround(top)
          << " mph.";
  EXPECT_NE(ReadBytes(kRoot / "assets/resources/manual.txt").find(example.str()), std::string::npos)
      << example.str();
}

TEST(DefaultSetups, FirstGearPullsAwayCleanly)
{
  ForEachYear([](const Year& year) {
    const std::string setup = DefaultSetup(year);
    const double final_drive = static_cast<double>(ValueOf(setup, kFinalRatioRow));
    const double first = GearsOf(year, setup).front();
    // At 30 mph the engine already turns at three tenths of its maximum or more, ...
    EXPECT_GE(30 / Speed(1, first, final_drive), 0.3 * year.engine.maximum_rpm);
    // ... and there is more than half of its best torque to accelerate with.
    double best = 0;
    for (double rpm = 0; rpm <= year.engine.maximum_rpm; rpm += 200) {
      best = std::max(best, year.engine.Torque(rpm));
    }
    EXPECT_GT(year.engine.Torque(30 / Speed(1, first, final_drive)), 0.5 * best);
  });
}

TEST(DefaultSetups, StepsBetweenGearsShrinkAsTheyRise)
{
  ForEachYear([](const Year& year) {
    const auto ratios = AllGearsOf(DefaultSetup(year));
    for (std::size_t gear = 1; gear + 1 < ratios.size(); ++gear) {
      EXPECT_LT(ratios[gear] / ratios[gear + 1], ratios[gear - 1] / ratios[gear]) << gear;
    }
    const auto top = static_cast<std::size_t>(year.engine.gears) - 1;
    EXPECT_GT(ratios[top - 1] / ratios[top], 1.1);
  });
}

TEST(DefaultSetups, NoCarOfTheYearHasTwoEqualGears)
{
  ForEachYear([](const Year& year) {
    const auto mod_year = data::ModYearOfText(year.title);
    ASSERT_TRUE(mod_year);
    const auto ratios = AllGearsOf(DefaultSetup(year));
    std::vector<int> engines = {data::kFormula2Slot, data::kFormula3Slot};
    for (int chassis = 0; chassis < data::ChassisCount(*mod_year); ++chassis)
      engines.push_back(chassis);
    for (const int engine : engines) {
      const auto gears = static_cast<std::size_t>(data::GearCount(*mod_year, engine));
      ASSERT_LE(gears, ratios.size());
      for (std::size_t gear = 0; gear + 1 < gears; ++gear)
        EXPECT_GT(ratios[gear], ratios[gear + 1]) << engine << ' ' << gear;
    }
  });
}

/// How far above its lower end, as a factor, the range of 90% or more around the highest value of
/// `curve` goes.
double BandWidth(const Engine& engine, double (Engine::*curve)(double) const)
{
  const auto value = [&](int sample) { return (engine.*curve)(200.0 * sample); };
  int peak = 0;
  for (int i = 1; 200 * i < engine.maximum_rpm + 1000; ++i) {
    if (value(i) > value(peak)) peak = i;
  }
  int low = peak;
  int high = peak;
  while (low > 1 && value(low - 1) >= 0.9 * value(peak)) --low;
  while (high < 70 && value(high + 1) > 0.9 * value(peak)) ++high;
  return static_cast<double>(high) / low;
}

TEST(DefaultSetups, NinetyPercentBandsOfNeighbouringGearsOverlap)
{
  ForEachYear([](const Year& year) {
    const double torque_band = BandWidth(year.engine, &Engine::Torque);
    const double power_band = BandWidth(year.engine, &Engine::Power);
    const auto ratios = GearsOf(year, DefaultSetup(year));
    for (std::size_t gear = 0; gear + 1 < ratios.size(); ++gear) {
      EXPECT_LT(ratios[gear] / ratios[gear + 1], torque_band) << gear;
      EXPECT_LT(ratios[gear] / ratios[gear + 1], power_band) << gear;
    }
  });
}

}  // namespace
