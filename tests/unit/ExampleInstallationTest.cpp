// The example installation: what its page says of it, and what its setups hold.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ContentFiles.h"
#include "ContentYears.h"
#include "data/ChassisCatalogue.h"
#include "data/ModYear.h"
#include "setup/Identification.h"

namespace {

using namespace velquist::content::testing;
namespace data = velquist::data;

const std::string kClosestGear = "closest gear.lo1";
const std::string kWingOf1967 = "wing of 1967.fe1";

struct Example {
  std::string path;  ///< below the installation
  std::string year;
  std::string layout;
  std::string bytes;
  std::string said;  ///< what the page says of it

  [[nodiscard]] bool IsOdd() const { return path.find("/Setups/odd/") != std::string::npos; }
  [[nodiscard]] std::string Name() const { return path.substr(path.rfind('/') + 1); }
};

/// The setups that the page beside the installation lists.
const std::vector<Example>& Examples()
{
  static const std::vector<Example> examples = [] {
    std::vector<Example> found;
    for (const std::string& line : Split(ReadBytes(kRoot / "examples" / "README.md"), "\n")) {
      if (line.rfind("| `Players/", 0) != 0) continue;
      const auto cells = Split(line, " | ");
      const std::string path = Split(cells.at(0), "`").at(1);
      found.push_back(
          {path, cells.at(1), cells.at(2), ReadBytes(kExamples / fs::path(path)), cells.at(3)});
    }
    return found;
  }();
  return examples;
}

void ForEachExample(const std::function<void(const Example&)>& claim)
{
  ASSERT_FALSE(Examples().empty());
  for (const Example& example : Examples()) {
    SCOPED_TRACE(example.path);
    claim(example);
  }
}

const Example& ExampleNamed(const std::string& name)
{
  const auto found = std::find_if(Examples().begin(), Examples().end(),
                                  [&](const Example& example) { return example.Name() == name; });
  if (found == Examples().end()) throw std::out_of_range("no example " + name);
  return *found;
}

bool IsWingRow(int row)
{
  return row == kFrontWingRow || row == kRearWingRow;
}

TEST(ExampleInstallation, LooksLikeAnInstalledGameWithAllFiveYears)
{
  EXPECT_EQ(fs::file_size(kExamples / "gpl.exe"), 0U);
  for (const char* const marker :
       {"gpla65.ini", "gpla66.ini", "gpl_ai.ini", "gpla69.ini", "gplaGT.ini"}) {
    EXPECT_TRUE(fs::is_regular_file(kExamples / marker)) << marker;
  }
  std::set<std::string> players;
  for (const auto& entry : fs::directory_iterator(kExamples / "Players")) {
    players.insert(entry.path().filename().string());
    EXPECT_TRUE(fs::is_directory(entry.path() / "Setups"));
  }
  EXPECT_EQ(players, (std::set<std::string>{"Tobin Ferrant", "okoro__linde"}));
}

TEST(ExampleInstallation, EverySetupHasItsLineInThePageAndNothingElseHas)
{
  std::set<std::string> listed;
  for (const Example& example : Examples()) {
    EXPECT_TRUE(listed.insert(example.path).second) << example.path;
  }
  std::set<std::string> present;
  for (const std::string& path : Paths(OnDisk(kExamples))) {
    if (path.rfind("Players/", 0) == 0) present.insert(path);
  }
  EXPECT_EQ(listed, present);
}

TEST(ExampleInstallation, CoversEveryYearBothLayoutsAndAllFormulas)
{
  std::set<std::string> kinds;
  std::set<char> formulas;
  std::set<bool> asymmetric;
  ForEachExample([&](const Example& example) {
    kinds.insert(example.year + " " + example.layout);
    formulas.insert(example.path.back());
    asymmetric.insert(example.bytes.at(260) == 0);
  });
  EXPECT_EQ(kinds, (std::set<std::string>{"1967 short", "1967 long", "1965 short", "1965 long",
                                          "1966 long", "1969 long", "GT long"}));
  EXPECT_EQ(formulas, (std::set<char>{'1', '2', '3'}));
  EXPECT_EQ(asymmetric.size(), 2U);
}

TEST(ExampleInstallation, SetupsHaveTheLayoutThatThePageNames)
{
  ForEachExample([](const Example& example) {
    const bool is_long = example.layout == "long";
    EXPECT_EQ(example.bytes.size(), is_long ? 272U : 264U);
    EXPECT_EQ(example.bytes.substr(0, 4), "PGTS");
    EXPECT_EQ(example.bytes.at(4), is_long ? 4 : 3);
    EXPECT_EQ(static_cast<std::uint8_t>(example.bytes.at(8)), is_long ? 1U : 249U);
    EXPECT_EQ(example.bytes.at(9), is_long ? 1 : 0);
  });
}

TEST(ExampleInstallation, ValuesLieWithinTheLimitsOfTheirYear)
{
  ForEachExample([](const Example& example) {
    const auto rows = SetupDataOf(YearOf(example.year));
    for (int row = 0; row < kRows; ++row) {
      if (IsWingRow(row) && example.year != "1969") continue;
      EXPECT_GE(ValueOf(example.bytes, row), rows[static_cast<std::size_t>(row)].minimum) << row;
      EXPECT_LE(ValueOf(example.bytes, row), rows[static_cast<std::size_t>(row)].maximum) << row;
    }
  });
}

TEST(ExampleInstallation, ListsCanShowEveryAngleAsItIsStored)
{
  ForEachExample([](const Example& example) {
    const auto rows = SetupDataOf(YearOf(example.year));
    for (const int row : {kCoastAngleRow, kPowerAngleRow}) {
      const float above = ValueOf(example.bytes, row) - rows[static_cast<std::size_t>(row)].minimum;
      EXPECT_EQ(std::fmod(above, 5.0F), 0.0F) << row;
    }
  });
}

TEST(ExampleInstallation, RatioNumbersAgreeWithGearIdsExceptInTheFileNamedForIt)
{
  ForEachExample([](const Example& example) {
    const auto gears = GearDataOf(YearOf(example.year));
    std::vector<int> differing;
    for (int gear = 0; gear < 7; ++gear) {
      if (ValueOf(example.bytes, gear) != gears.at(IdOf(example.bytes, gear)).ratio) {
        differing.push_back(gear);
      }
    }
    EXPECT_EQ(differing, example.Name() == kClosestGear ? std::vector{2} : std::vector<int>{});
  });
}

TEST(ExampleInstallation, TheRatioThatNoGearHasLiesBetweenTwoRows)
{
  const auto gears = GearDataOf(YearOf("1967"));
  const float ratio = ValueOf(ExampleNamed(kClosestGear).bytes, 2);
  const auto above = std::find_if(gears.begin(), gears.end(),
                                  [&](const GearRow& row) { return row.ratio > ratio; });
  ASSERT_NE(above, gears.end());
  ASSERT_NE(above, gears.begin());
  EXPECT_EQ((above - 1)->text, "28/19");
  EXPECT_LT((above - 1)->ratio, ratio);
}

TEST(ExampleInstallation, CarsWithoutWingsCarryNoneExceptInTheFileNamedForIt)
{
  ForEachExample([](const Example& example) {
    if (!IsLong(example.bytes) || example.year == "1969") return;
    const bool has_wing = example.Name() == kWingOf1967;
    EXPECT_EQ(ValueOf(example.bytes, kFrontWingRow), has_wing ? 3.0F : -1.0F);
    // The rear wing tells the years apart, so it is none even there.
    EXPECT_EQ(ValueOf(example.bytes, kRearWingRow), -1.0F);
  });
}

TEST(ExampleInstallation, EveryUnknownByteIsInUseInTheFileNamedForIt)
{
  const std::string& bytes = ExampleNamed("kept bytes.fe1").bytes;
  const std::string& plain = ExampleNamed("flag only.co1").bytes;
  for (const auto& [begin, end] : std::vector<std::pair<std::size_t, std::size_t>>{
           {5, 8}, {10, 20}, {48, 56}, {172, 204}, {261, 264}}) {
    EXPECT_NE(bytes.substr(begin, end - begin), plain.substr(begin, end - begin)) << begin;
    EXPECT_NE(bytes.substr(begin, end - begin), std::string(end - begin, '\0')) << begin;
  }
}

/// What a driver would take to its track: all but the odd ones.
void ForEachDriversSetup(const std::function<void(const Example&)>& claim)
{
  int seen = 0;
  ForEachExample([&](const Example& example) {
    if (example.IsOdd()) return;
    ++seen;
    claim(example);
  });
  EXPECT_GE(seen, 12);
}

/// The engine of the car that a file's name tells.
int EngineSlotOf(const Example& example, data::ModYear year)
{
  const auto extension = example.path.substr(example.path.size() - 3);
  const auto codes = velquist::setup::ChassisCodeTable(year);
  const auto chassis = std::ranges::find(codes, extension.substr(0, 2)) - codes.begin();
  return data::EngineSlot(static_cast<int>(chassis), extension.back() - '1').value();
}

/// Speed at maximum rpm in the car's last gear, mph.
double TopSpeed(const Example& example)
{
  const auto year = data::ModYearOfText(example.year).value();
  const int engine = EngineSlotOf(example, year);
  return Speed(static_cast<double>(data::EngineOf(year, engine).maximum_rpm),
               static_cast<double>(ValueOf(example.bytes, data::GearCount(year, engine) - 1)),
               static_cast<double>(ValueOf(example.bytes, kFinalRatioRow)));
}

TEST(ExampleInstallation, DriversSetupsReachMaximumRpmAtTheSpeedThatThePageNames)
{
  ForEachDriversSetup([](const Example& example) {
    const std::string wanted =
        "eared for " + std::to_string(std::lround(TopSpeed(example))) + " mph";
    EXPECT_NE(example.said.find(wanted), std::string::npos) << wanted;
  });
}

TEST(ExampleInstallation, DriversSetupsAreGearedForTheirTrack)
{
  // About what the fastest car with an example there reaches, mph.
  const std::map<std::string, double> fastest = {
      {"monaco", 120},  {"rouen", 170}, {"watglen", 175}, {"silver", 165},
      {"nurburg", 175}, {"monza", 200}, {"spa", 195}};
  std::map<std::string, double> reached;
  ForEachDriversSetup([&](const Example& example) {
    const auto folder = fs::path(example.path).parent_path().filename().string();
    const double top = TopSpeed(example);
    ASSERT_TRUE(fastest.contains(folder));
    EXPECT_LE(top, fastest.at(folder) * 1.04);
    reached[folder] = std::max(reached[folder], top);
    const auto year = data::ModYearOfText(example.year).value();
    const int gears = data::GearCount(year, EngineSlotOf(example, year));
    for (int gear = 0; gear + 1 < gears; ++gear)
      EXPECT_GT(ValueOf(example.bytes, gear), ValueOf(example.bytes, gear + 1)) << gear;
  });
  for (const auto& [folder, speed] : fastest) EXPECT_GE(reached[folder], speed * 0.97) << folder;
}

TEST(ExampleInstallation, DriversSetupsDifferFromTheDefaultInWhatTheRoadAsksFor)
{
  // First and last row.
  const std::vector<std::pair<int, int>> groups = {
      {kCoastAngleRow, kPowerAngleRow}, {16, 19}, {20, 23}, {24, 31}, {32, 35}, {42, 43}, {44, 45}};
  ForEachDriversSetup([&](const Example& example) {
    const std::string standard = DefaultSetup(YearOf(example.year));
    const auto differs = [&](int row) {
      return ValueOf(example.bytes, row) != ValueOf(standard, row);
    };
    const auto any = [&](int first, int last) {
      for (int row = first; row <= last; ++row)
        if (differs(row)) return true;
      return false;
    };
    EXPECT_TRUE(any(0, kFinalRatioRow)) << "gears";
    EXPECT_TRUE(differs(48) || differs(49)) << "steering and brakes";
    EXPECT_TRUE(differs(47)) << "fuel";
    EXPECT_GE(std::ranges::count_if(groups, [&](const auto& g) { return any(g.first, g.second); }),
              3);
  });
}

TEST(ExampleInstallation, MetricExamplesLieOnTheGridOfTheMetricSet)
{
  int seen = 0;
  ForEachExample([&](const Example& example) {
    if (example.Name().rfind("metric.", 0) != 0) return;
    ++seen;
    const auto rows = SetupDataOf(YearOf(example.year), kProgram / "Metric");
    for (const std::size_t row : {16U, 18U, 20U, 22U}) {
      float value = rows[row].minimum;
      while (value < ValueOf(example.bytes, static_cast<int>(row))) value += rows[row].step;
      EXPECT_EQ(value, ValueOf(example.bytes, static_cast<int>(row))) << row;
    }
  });
  EXPECT_EQ(seen, 3);
}

}  // namespace
