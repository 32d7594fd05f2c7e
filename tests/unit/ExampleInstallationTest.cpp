// The example installation: what its page says of it, and what its setups hold.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ContentFiles.h"
#include "ContentYears.h"

namespace {

using namespace velquist::content::testing;

const std::string kClosestGear = "closest gear.lo1";
const std::string kWingOf1967 = "wing of 1967.fe1";

struct Example {
  std::string path;  ///< below the installation
  std::string year;
  std::string layout;
  std::string bytes;

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
      found.push_back({path, cells.at(1), cells.at(2), ReadBytes(kExamples / fs::path(path))});
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
