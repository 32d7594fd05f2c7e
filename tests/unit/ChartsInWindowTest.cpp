// SPDX-License-Identifier: MIT
// Both charts as the program draws them: when, from what, and what is read from them.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "ChartPictures.h"
#include "ScriptedEditor.h"
#include "charts/PlotXy.h"
#include "data/ChassisCatalogue.h"
#include "edit/Drivetrain.h"
#include "setup/SlotTable.h"

namespace velquist::testing {
namespace {

class ChartsInWindow : public ::testing::Test {
 protected:
  ChartsInWindow() { editor_.StartWithGame(); }

  [[nodiscard]] const app::MainForm& Form() const { return editor_.Window().Form(); }
  [[nodiscard]] const edit::CarSetup& Car() const { return editor_.Window().Car(); }
  [[nodiscard]] const app::Globals& State() const { return editor_.Window().State(); }

  /// How often each chart is drawn by a piece of script: engine chart, speed bands chart.
  std::pair<unsigned, unsigned> DrawnBy(const std::string& script)
  {
    const unsigned engine = Form().chart.Version();
    const unsigned bands = Form().chart2.Version();
    editor_.Play(script);
    return {Form().chart.Version() - engine, Form().chart2.Version() - bands};
  }

  /// Left end of the torque band of the first gear, pixels.
  [[nodiscard]] double FirstBand() const
  {
    const auto boxes = Having(Form().chart2, Primitive::Kind::kBox, charts::kBlue);
    return boxes.empty() ? -1 : boxes.front().x1;
  }

  /// The printed lines that begin with `name`, without it, by their second word.
  [[nodiscard]] std::map<int, std::string> Dumped(const std::string& name)
  {
    std::map<int, std::string> rows;
    std::istringstream lines(editor_.Output());
    for (std::string line; std::getline(lines, line);) {
      std::istringstream words(line);
      std::string first;
      int number = 0;
      if (words >> first && first == name && words >> number)
        rows[number] = line.substr(static_cast<std::size_t>(words.tellg()) + 1);
    }
    return rows;
  }

  ScriptedEditor editor_;
};

TEST_F(ChartsInWindow, BothAreDrawnAtTheStart)
{
  EXPECT_FALSE(Form().chart.Drawn().empty());
  EXPECT_FALSE(Form().chart2.Drawn().empty());
  EXPECT_EQ(Form().chart.Width(), Form().PictureChart.place.width);
  EXPECT_EQ(Form().chart2.Height(), Form().PictureChart2.place.height);
}

TEST_F(ChartsInWindow, BothAreDrawnAnewForAnotherCarFormulaOrYear)
{
  for (const char* script :
       {"select Combo3 #1", "select Combo6 \"F2\"", "select Combo2 \"1965\"", "click MnuRevert"}) {
    const auto [engine, bands] = DrawnBy(script);
    EXPECT_GE(engine, 1U) << script;
    EXPECT_GE(bands, 1U) << script;
  }
}

TEST_F(ChartsInWindow, GearsFinalDriveAndUnitsRedrawTheBandsOnly)
{
  for (const char* script : {"click CmdInc(42)", "click CmdDec(46)", "select Combo1(0) #3",
                             "check OptUnits(1)", "check OptUnits(0)"}) {
    const auto [engine, bands] = DrawnBy(script);
    EXPECT_EQ(engine, 0U) << script;
    EXPECT_GE(bands, 1U) << script;
  }
}

TEST_F(ChartsInWindow, OtherValuesRedrawNothing)
{
  for (const char* script :
       {"click CmdInc(0)", "click CmdInc(30)", "select Combo1(1) #1", "check FineCheck"})
    EXPECT_EQ(DrawnBy(script), std::pair(0U, 0U)) << script;
}

TEST_F(ChartsInWindow, TheBandsMoveWithFirstGearFinalDriveAndUnits)
{
  const double before = FirstBand();
  editor_.Play("click CmdInc(42)");
  const double higher_gear = FirstBand();
  EXPECT_NE(higher_gear, before);
  editor_.Play("select Combo1(0) #0");
  const double final_drive = FirstBand();
  EXPECT_NE(final_drive, higher_gear);
  // 220 miles an hour are as long as 360 kilometres.
  editor_.Play("check OptUnits(1)");
  EXPECT_NEAR((FirstBand() - 30) / (final_drive - 30), 220 * 1.609344 / 360, 1e-9);
}

TEST_F(ChartsInWindow, AnotherCarHasTheBandsOfItsEngine)
{
  editor_.Play("select Combo3 #1");
  EXPECT_EQ(State().bands.maximum_rpm, 11200);
  EXPECT_EQ(State().bands.gear_rows, 6);
  editor_.Play("select Combo6 \"F3\"");
  EXPECT_EQ(State().bands.maximum_rpm, 6200);
  EXPECT_EQ(State().bands.gear_rows, 4);
}

TEST_F(ChartsInWindow, TheEngineChartShowsTheEngineJustChosen)
{
  editor_.Play("select Combo3 #1");
  data::EngineCurve curve;
  data::ComputeEngineCurve(data::ModYear::k1967, 1, curve);
  EXPECT_EQ(State().curve.power, curve.power);
  const auto lines = Lines(Form().chart, charts::kGreen, platform::LineStyle::kSolid);
  ASSERT_EQ(lines.size(), 60U);
  const double height = Form().chart.Height() - 40;
  EXPECT_NEAR(lines[49].y2, 10 + height * (1 - static_cast<double>(curve.power[50]) / 450), 1e-6);
}

TEST_F(ChartsInWindow, AGTCarHasTheMaximumSpeedOfItsChassis)
{
  editor_.Play("select Combo2 \"GT\"\nselect Combo3 #5");
  EXPECT_EQ(State().bands.maximum_speed, 215);
  editor_.Play("select Combo3 #8\ncheck OptUnits(1)");
  EXPECT_EQ(State().bands.maximum_speed, 172 * 1.609344);
}

TEST_F(ChartsInWindow, DumpedCurveAndBandsAreThoseOfTheSetup)
{
  for (const auto& [year, ModYearIndex] : {std::pair{"1967", data::ModYear::k1967},
                                           {"1965", data::ModYear::k1965},
                                           {"1966", data::ModYear::k1966},
                                           {"1969", data::ModYear::k1969},
                                           {"GT", data::ModYear::kGT}}) {
    SCOPED_TRACE(year);
    editor_.Play("select Combo2 \"" + std::string(year) + "\"\ndump curve\ndump bands");
    const auto samples = Dumped("sample");
    data::EngineCurve curve;
    data::ComputeEngineCurve(ModYearIndex, Car().ChassisIndex(), curve);
    ASSERT_EQ(samples.size(), 71U);
    for (std::size_t i = 0; i < 71; ++i) {
      std::istringstream words(samples.at(static_cast<int>(i)));
      std::uint32_t rpm = 0;
      std::uint32_t power = 0;
      std::uint32_t torque = 0;
      words >> std::hex >> rpm >> power >> torque;
      EXPECT_EQ(rpm, std::bit_cast<std::uint32_t>(curve.rpm[i]));
      EXPECT_EQ(power, std::bit_cast<std::uint32_t>(curve.power[i]));
      EXPECT_EQ(torque, std::bit_cast<std::uint32_t>(curve.torque[i]));
    }
    const auto ratio = [&](int slot) {
      return static_cast<double>(Car().Gears().Ratio(edit::GearRowOf(Car().SetupData(), slot)));
    };
    const int gears = data::GearCount(ModYearIndex, Car().ChassisIndex());
    ASSERT_EQ(State().bands.gears.size(), static_cast<std::size_t>(gears));
    const auto dumped = Dumped("gear");
    for (int gear = 1; gear <= gears; ++gear) {
      const double overall = ratio(setup::kFirstGear + gear - 1) * ratio(setup::kFinalDrive);
      EXPECT_DOUBLE_EQ(std::stod(dumped.at(gear)), 84.8232 / 12 * 60 / 5280 / overall);
    }
  }
}

TEST_F(ChartsInWindow, ReadingTheEngineChart)
{
  editor_.Play("select Combo3 #1");
  const double x = 30 + (Form().chart.Width() - 50) * 10000 / 12000;
  EXPECT_EQ(editor_.Window().PictureChart_MouseMove(x, 50),
            "10000 RPM\n422 horsepower\n221 lb-ft torque");
  EXPECT_EQ(editor_.Window().PictureChart_MouseMove(5, 50), "");
}

TEST_F(ChartsInWindow, ReadingTheSpeedBandsFollowsTheUnits)
{
  const double y = Form().chart2.Height() - 31;
  const auto& top = State().bands.gears.back();
  const auto speed = [&](int rpm) { return charts::WholeText(rpm * top.speed_per_rpm); };
  const auto read = [&] { return editor_.Window().PictureChart2_MouseMove(40, y); };
  EXPECT_EQ(read(), "5th gear\nTorque " + speed(State().bands.torque.low) + " to " +
                        speed(State().bands.torque.high) + " MPH\nHorsepower " +
                        speed(State().bands.power.low) + " to " + speed(State().bands.power.high) +
                        " MPH\nMax RPM " + speed(8700) + " MPH");
  editor_.Play("check OptUnits(1)");
  EXPECT_NE(read().find("KPH"), std::string::npos);
}

TEST_F(ChartsInWindow, ReadingChangesNothing)
{
  const auto before = editor_.Everything(WithBuffer::kYes);
  const unsigned version = Form().chart.Version();
  EXPECT_NE(editor_.Window().PictureChart_MouseMove(100, 50), "");
  EXPECT_NE(editor_.Window().PictureChart2_MouseMove(100, 100), "");
  EXPECT_EQ(editor_.Everything(WithBuffer::kYes), before);
  EXPECT_EQ(Form().chart.Version(), version);
}

}  // namespace
}  // namespace velquist::testing
