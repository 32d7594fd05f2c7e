// SPDX-License-Identifier: MIT
// What the charts show of the reference.
#include <gtest/gtest.h>

#include <string>

#include "ChartPictures.h"
#include "ScriptedEditor.h"
#include "app/ChartPictures.h"
#include "charts/PlotXy.h"

namespace velquist::testing {
namespace {

class ChartsWithReference : public ::testing::Test {
 protected:
  /// Of the reference, in the size that the chart has.
  [[nodiscard]] charts::PictureRecorder Engine() const
  {
    const auto& form = editor_.Window().Form();
    return app::ReferencePicture(editor_.Window(), *form.PictureChart.design, form.chart.Width(),
                                 form.chart.Height());
  }
  [[nodiscard]] charts::PictureRecorder Gears() const
  {
    const auto& form = editor_.Window().Form();
    return app::ReferencePicture(editor_.Window(), *form.PictureChart2.design, form.chart2.Width(),
                                 form.chart2.Height());
  }
  [[nodiscard]] bool OutlinesEngine() const { return !Engine().Drawn().empty(); }
  [[nodiscard]] bool OutlinesGears() const { return !Gears().Drawn().empty(); }

  /// At a place in the chart.
  [[nodiscard]] std::string ReadEngine(double x, double y) const
  {
    const auto& form = editor_.Window().Form();
    return app::ChartReading(editor_.Window(), *form.PictureChart.design, form.chart.Width(),
                             form.chart.Height(), x, y);
  }
  [[nodiscard]] std::string ReadGears(double x, double y) const
  {
    const auto& form = editor_.Window().Form();
    return app::ChartReading(editor_.Window(), *form.PictureChart2.design, form.chart2.Width(),
                             form.chart2.Height(), x, y);
  }
  /// The ends of the torque bands, pixels.
  [[nodiscard]] static std::vector<double> Bands(const charts::PictureRecorder& picture)
  {
    std::vector<double> ends;
    for (const auto& box : Having(picture, Primitive::Kind::kBox, charts::kBlue)) {
      ends.push_back(box.x1);
      ends.push_back(box.x2);
    }
    return ends;
  }

  ScriptedEditor editor_;
};

class ReferenceCharts : public ChartsWithReference {
 protected:
  ReferenceCharts() { editor_.StartWithGame(); }
};

TEST_F(ReferenceCharts, ShowNothingWhileNothingDiffers)
{
  EXPECT_FALSE(OutlinesEngine());
  EXPECT_FALSE(OutlinesGears());
  editor_.Play("click CmdInc(4)\ncheck OptUnits(1)\n");
  EXPECT_FALSE(OutlinesEngine());
  EXPECT_FALSE(OutlinesGears());
}

TEST_F(ReferenceCharts, ShowTheGearsAsTheyWere)
{
  const auto before = Bands(editor_.Window().Form().chart2);
  ASSERT_FALSE(before.empty());
  editor_.Play("click CmdInc(43)\n");
  EXPECT_NE(Bands(editor_.Window().Form().chart2), before);
  EXPECT_EQ(Bands(Gears()), before);
  EXPECT_FALSE(OutlinesEngine());
  editor_.Play("click MnuUndo\n");
  EXPECT_FALSE(OutlinesGears());
}

TEST_F(ReferenceCharts, ShowTheFinalDriveAsItWas)
{
  const auto before = Bands(editor_.Window().Form().chart2);
  const int drive = editor_.Window().Form().Combo1[0].selection;
  editor_.Play("select Combo1(0) #" + std::to_string(drive == 0 ? 1 : drive - 1) + "\n");
  EXPECT_EQ(Bands(Gears()), before);
}

TEST_F(ReferenceCharts, ShowTheEngineThatTheSetupWasLoadedFor)
{
  const auto curve = Having(editor_.Window().Form().chart, Primitive::Kind::kLine, charts::kBlue);
  editor_.Play("select Combo3 #1\n");
  EXPECT_TRUE(OutlinesGears());
  const auto shown = Having(Engine(), Primitive::Kind::kLine, charts::kBlue);
  ASSERT_EQ(shown.size(), curve.size());
  for (std::size_t i = 0; i < curve.size(); ++i) EXPECT_EQ(shown[i].y1, curve[i].y1);
  // The default setup is for any car.
  editor_.Play("click MnuReferenceDefault\n");
  EXPECT_FALSE(OutlinesEngine());
  EXPECT_FALSE(OutlinesGears());
}

TEST_F(ChartsWithReference, ShowTheEngineOfEveryCarWhoseCurveOrMaximumDiffers)
{
  editor_.Play(R"(
dir $G/Players/Jim/Setups/monza
file $G/gpl_ai.ini text ""
file $G/gpla65.ini text ""
file "$P/Velquist Program Settings.ini" text \
  "\"$G\"\r\n0\r\n1\r\n0\r\n0\r\n0\r\n0\r\n0\r\n\"$G\"\r\n"
start
expect Combo2 "1965"
)");
  const auto& state = editor_.Window().State();
  int other_curves_alone = 0;
  const auto curve = state.curve;
  const int maximum = state.bands.maximum_rpm;
  const auto cars = editor_.Window().Form().Combo3.items.size();
  for (std::size_t car = 0; car < cars; ++car) {
    editor_.Play("select Combo3 #" + std::to_string(car) + "\n");
    const bool other_maximum = state.bands.maximum_rpm != maximum;
    EXPECT_EQ(OutlinesEngine(), state.curve != curve || other_maximum) << car;
    if (state.curve != curve && !other_maximum) ++other_curves_alone;
  }
  EXPECT_GT(other_curves_alone, 0);
}

TEST_F(ReferenceCharts, LeaveThePicturesAsTheyAre)
{
  editor_.Play(
      "setup $T/other.bb1 short 35=2.5 42=65 43=60 44=50 45=40 46=30 48=80 49=45 50=60 51=3\n");
  const auto version = editor_.Window().Form().chart2.Version();
  const auto drawn = editor_.Window().Form().chart2.Drawn().size();
  editor_.Play("on open -> $T/other.bb1\non FrmModYear2 -> 1967\nclick MnuReferenceFile\n");
  EXPECT_TRUE(OutlinesGears());
  EXPECT_EQ(editor_.Window().Form().chart2.Version(), version);
  EXPECT_EQ(editor_.Window().Form().chart2.Drawn().size(), drawn);
}

TEST_F(ReferenceCharts, AreReadBesideTheCurrentOnesWhereTheyDiffer)
{
  const auto before = ReadGears(200, 100);
  ASSERT_EQ(before.find("Reference"), std::string::npos);
  const int gear = before.front() - '1';
  editor_.Play("click CmdInc(" + std::to_string(42 + gear) + ")\n");
  const auto after = ReadGears(200, 100);
  const auto rest = before.substr(before.find('\n'));
  EXPECT_TRUE(after.ends_with("\nReference:" + rest)) << after;
  EXPECT_EQ(after.find(rest), after.rfind(rest)) << "both are the same: " << after;
  EXPECT_EQ(ReadEngine(150, 60).find("Reference"), std::string::npos);
  editor_.Play("select Combo3 #1\n");
  EXPECT_NE(ReadEngine(150, 60).find("\nReference:\n"), std::string::npos);
  EXPECT_EQ(ReadGears(2, 2), "");
}

}  // namespace
}  // namespace velquist::testing
