// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "TemporaryFolder.h"
#include "cli/Commands.h"
#include "cli/Json.h"
#include "cli/TextTable.h"
#include "export/Values.h"
#include "platform/SystemFiles.h"
#include "runner/SourceDirectory.h"
#include "setup/SlotTable.h"

namespace velquist::cli {
namespace {

std::string Path(std::string_view below)
{
  return platform::PathText(velquist::testing::SourceDirectory() / below);
}

/// One run of the program, which stands among the data files that ship.
struct Ran {
  int status = 0;
  std::string out;
  std::string err;
};
Ran RunWith(const std::vector<std::string>& words, bool interrupted = false)
{
  std::ostringstream out;
  std::ostringstream err;
  const int status = Run(words, {.out = out,
                                 .err = err,
                                 .shows_progress = false,
                                 .interrupted = [interrupted] { return interrupted; },
                                 .program_directory = [] { return Path("assets/program"); }});
  return {status, out.str(), err.str()};
}

TEST(CliJson, WritesSinglesAsTheShortestDecimals)
{
  const auto text = [](float number) { return JsonText(Json(number)); };
  EXPECT_EQ(text(22), "22");
  EXPECT_EQ(text(0.05F), "0.05");
  EXPECT_EQ(text(-0.75F), "-0.75");
  EXPECT_EQ(text(16777216), "16777216");
  EXPECT_EQ(text(1e30F), "1e+30");
  EXPECT_EQ(text(std::numeric_limits<float>::denorm_min()), "1e-45");
  EXPECT_EQ(text(-0.0F), "-0.0");
  EXPECT_EQ(text(std::numeric_limits<float>::quiet_NaN()), "null");
  EXPECT_EQ(text(-std::numeric_limits<float>::infinity()), "null");
}

TEST(CliJson, KeepsTheOrderOfKeysAndMendsTexts)
{
  const Json value = {{"b", 1}, {"a", {Json(nullptr), Json(true)}}, {"c", "\xFF\"\n\xC3\xA9"}};
  EXPECT_EQ(JsonText(value),
            "{\"b\": 1, \"a\": [null, true], \"c\": \"\xEF\xBF\xBD\\\"\\n\xC3\xA9\"}");
  std::ostringstream out;
  JsonArray empty(out);
  empty.End();
  EXPECT_EQ(out.str(), "[]\n");
}

TEST(CliTextTable, AlignsCharactersNotBytes)
{
  TextTable table({Align::kLeft, Align::kRight, Align::kLeft});
  table.Add({"a", "1", "x"});
  table.Add({"\xC3\xA9t\xC3\xA9", "22"});
  std::ostringstream out;
  table.Write(out, " ");
  EXPECT_EQ(out.str(), " a     1  x\n \xC3\xA9t\xC3\xA9  22\n");
}

TEST(CliValues, HaveTheirUnits)
{
  const auto units = [](int slot) {
    return std::string(text_export::UnitOf(slot, edit::kEnglish)) + "|" +
           std::string(text_export::UnitOf(slot, edit::kMetric));
  };
  const std::vector<std::pair<int, std::string>> expected = {
      {0, "psi|kPa"},      {3, "psi|kPa"},  {4, "lbs/in|N/cm"}, {7, "lbs/in|N/cm"}, {8, "|"},
      {15, "|"},           {16, "deg|deg"}, {19, "deg|deg"},    {20, "in|cm"},      {25, "in|cm"},
      {26, "lbs/in|N/cm"}, {28, "in|cm"},   {30, "gal|l"},      {31, "|"},          {32, "%|%"},
      {33, "deg|deg"},     {34, "deg|deg"}, {35, "|"},          {48, "|"},          {49, "deg|deg"},
      {50, "deg|deg"},     {51, "|"}};
  for (const auto& [slot, both] : expected) EXPECT_EQ(units(slot), both) << slot;
}

TEST(CliShow, NamesEveryValueForPeople)
{
  const auto ran = RunWith({"show", "--units", "metric",
                            Path("examples/GPL/Players/Tobin Ferrant/"
                                 "Setups/nurburg/high wings.lo1")});
  EXPECT_EQ(ran.status, kDone) << ran.err;
  for (const auto* text : {"Lotus 49B-Ford V8 DFV F1, 1969, long layout, symmetric\n", "kPa",
                           "N/cm", "Tire pressure", "Final drive", "Clutches", "Overall"})
    EXPECT_NE(ran.out.find(text), std::string::npos) << text << "\n" << ran.out;
}

TEST(CliCompare, TellsTheDifferencesForPeople)
{
  const auto a = Path("examples/GPL/Players/okoro__linde/Setups/rouen/junior.bb3");
  const auto b = Path("examples/GPL/Players/okoro__linde/Setups/rouen/two litres.lo2");
  const auto ran = RunWith({"compare", a, b});
  EXPECT_EQ(ran.status, kFound);
  EXPECT_NE(ran.out.find("1st gear"), std::string::npos) << ran.out;
  EXPECT_EQ(RunWith({"compare", a, a}).out, "");
}

TEST(CliList, EndsWhenTheUserWantsIt)
{
  const auto ran = RunWith({"list", "--json", Path("examples/GPL")}, true);
  EXPECT_EQ(ran.status, kTrouble);
  EXPECT_EQ(ran.out, "[]\n");
  EXPECT_EQ(ran.err, "velquist-cli: interrupted\n");
}

TEST(CliCheck, NamesEachProblemAndCountsThem)
{
  const samples::TemporaryFolder folder;
  samples::WriteFile(folder / "bad.lo1", "no setup");
  const auto bad = folder.Text() + "/bad.lo1";
  const auto good = Path("examples/GPL/Players/okoro__linde/Setups/rouen/junior.bb3");
  const auto one = RunWith({"check", bad});
  EXPECT_EQ(one.status, kFound) << one.err;
  EXPECT_TRUE(one.out.starts_with(bad + ": not-a-setup: ")) << one.out;
  EXPECT_TRUE(one.out.ends_with("\n1 setup, 1 with problems, 1 problem\n")) << one.out;
  const auto two = RunWith({"check", bad, good});
  EXPECT_TRUE(two.out.ends_with("\n2 setups, 1 with problems, 1 problem\n")) << two.out;
  const auto none = RunWith({"check", good});
  EXPECT_EQ(none.status, kDone);
  EXPECT_EQ(none.out, "");
}

TEST(CliCheck, ShowsHowFarItIsWhereSomebodyLooks)
{
  const auto some = Path("examples/GPL/Players/okoro__linde/Setups/rouen/junior.bb3");
  std::ostringstream out;
  std::ostringstream err;
  const auto slowly = [] {
    std::this_thread::sleep_for(std::chrono::milliseconds(110));
    return false;
  };
  EXPECT_EQ(
      cli::Run({"check", some, some}, {.out = out,
                                       .err = err,
                                       .shows_progress = true,
                                       .interrupted = slowly,
                                       .program_directory = [] { return Path("assets/program"); }}),
      kDone);
  EXPECT_TRUE(err.str().starts_with("\r1 setups\r")) << err.str();
  EXPECT_TRUE(err.str().ends_with(" \r")) << "the line is cleared in the end";
}

TEST(CliConvert, SaysWhatIsMissing)
{
  const samples::TemporaryFolder folder;
  const auto told = [&](const std::string& bytes) {
    samples::WriteFile(folder / "a.bb3", bytes);
    const auto ran = RunWith({"convert", "--long", "--year", "1967", folder.Text() + "/a.bb3",
                              "--to", folder.Text() + "/new.bb3"});
    EXPECT_EQ(ran.status, kTrouble);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.bb3"});
    return ran.err;
  };
  const auto begin = "velquist-cli: " + folder.Text() + "/a.bb3: ";
  auto bytes = samples::ContentOf(velquist::testing::SourceDirectory() /
                                  "examples/GPL/Players/okoro__linde/Setups/rouen/junior.bb3");
  EXPECT_EQ(told(bytes + "more"), begin + "It is in neither layout: it has 268 bytes\n");
  bytes.at(static_cast<std::size_t>(setup::SlotOffset.at(setup::kClutches))) = '\x7F';
  EXPECT_EQ(told(bytes), begin +
                             "Final drive, an angle or the clutches are outside the limits of "
                             "1967\n");
}

TEST(CliWords, ThatAreWrongAreTold)
{
  for (const auto& words : std::vector<std::vector<std::string>>{
           {}, {"show"}, {"show", "-"}, {"show", "--year", "1970", "x"}, {"shows", "x"}}) {
    const auto ran = RunWith(words);
    EXPECT_EQ(ran.status, kTrouble);
    EXPECT_EQ(ran.out, "");
    EXPECT_TRUE(ran.err.starts_with("velquist-cli: ")) << ran.err;
  }
  EXPECT_EQ(RunWith({"--version"}).out, "velquist-cli 1.0.0\n");
  EXPECT_EQ(RunWith({"list", "--help"}).status, kDone);
}

}  // namespace
}  // namespace velquist::cli
