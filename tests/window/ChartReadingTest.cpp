// SPDX-License-Identifier: MIT
#include <wx/uiaction.h>

#include <algorithm>
#include <vector>

#include "RealWindow.h"
#include "app/ChartPictures.h"
#include "charts/PlotXy.h"
#include "ui/ChartBox.h"
#include "ui/ChartPainting.h"

namespace velquist::testing {
namespace {

class ChartReading : public RealWindow {
 protected:
  [[nodiscard]] const ui::ChartBox& Chart(const char* name) const
  {
    return dynamic_cast<const ui::ChartBox&>(*Widget(name));
  }
  /// Moves the pointer to a place in a picture box.
  void PointAt(const char* name, wxPoint place)
  {
    Frame().Raise();
    LetTimePass(300);  // until the window has its place on the screen
    const wxPoint at = Widget(name)->ClientToScreen(place);
    mouse_.MouseMove(at.x - 1, at.y);
    LetTimePass(50);
    mouse_.MouseMove(at.x, at.y);
  }
  bool WaitForReading(const char* name, const std::string& expected)
  {
    return WaitUntil([&] { return Chart(name).Reading() == expected; });
  }

  wxUIActionSimulator mouse_;
};

TEST_F(ChartReading, IsThatOfThePlaceUnderThePointerAndGoneBesideThePlotBox)
{
  Start();
  PointAt("PictureChart", {150, 60});
  EXPECT_TRUE(WaitForReading("PictureChart", editor.Window().PictureChart_MouseMove(150, 60)));
  EXPECT_NE(Chart("PictureChart").Reading(), "");
  PointAt("PictureChart", {5, 5});
  EXPECT_TRUE(WaitForReading("PictureChart", ""));
}

TEST_F(ChartReading, IsGoneWhenThePointerLeavesThePicture)
{
  Start();
  PointAt("PictureChart2", {200, 100});
  EXPECT_TRUE(WaitUntil([&] { return !Chart("PictureChart2").Reading().empty(); }));
  PointAt("CmdInc(0)", {5, 5});
  EXPECT_TRUE(WaitForReading("PictureChart2", ""));
}

TEST_F(ChartReading, FollowsAnEditUnderAStillPointer)
{
  Start();
  PointAt("PictureChart2", {200, 100});
  EXPECT_TRUE(WaitForReading("PictureChart2", editor.Window().PictureChart2_MouseMove(200, 100)));
  const auto before = Chart("PictureChart2").Reading();
  editor.Play("check OptUnits(1)\n");
  const auto metric = editor.Window().PictureChart2_MouseMove(200, 100);
  EXPECT_NE(metric, before);
  EXPECT_TRUE(WaitForReading("PictureChart2", metric));
}

TEST_F(ChartReading, OutlinesOfTheReferenceArePaintedWhileItDiffers)
{
  Start();
  PointAt("CmdInc(0)", {5, 5});
  LetTimePass(500);
  const auto bands = [&] { return Pixels("PictureChart2"); };
  const auto engine = [&] { return Pixels("PictureChart"); };
  const auto plain = bands();
  const auto plain_engine = engine();
  // Another reference under the same picture.
  editor.Play(
      "setup $T/other.bb1 short 35=2.5 42=65 43=60 44=50 45=40 46=30 48=80 49=45 50=60 51=3\n"
      "on open -> $T/other.bb1\non FrmModYear2 -> 1967\nclick MnuReferenceFile\n");
  EXPECT_TRUE(WaitUntil([&] { return bands() != plain; }));
  editor.Play("click MnuReferenceLoaded\n");
  EXPECT_TRUE(WaitUntil([&] { return bands() == plain; }));
  EXPECT_EQ(engine(), plain_engine);
}

TEST_F(ChartReading, IsThatOfTheEnlargedChartOnALargeScreen)
{
  Start({3840, 2160});
  EXPECT_NEAR(Chart("PictureChart").Zoom(), 2.1, 0.05);
  EXPECT_NEAR(Chart("PictureChart2").Zoom(), 2.1, 0.05);
  const auto& form = editor.Window().Form();
  const double zoom = Chart("PictureChart").Zoom();
  const wxSize size = Widget("PictureChart")->GetClientSize();
  EXPECT_EQ(form.chart.Width(), size.x) << "what is recorded is in the size of its box";
  const wxPoint place(size.x / 2, size.y / 2);
  PointAt("PictureChart", place);
  EXPECT_TRUE(WaitForReading(
      "PictureChart", app::ChartReading(editor.Window(), *form.PictureChart.design, size.x / zoom,
                                        size.y / zoom, place.x / zoom, place.y / zoom)));
  EXPECT_NE(Chart("PictureChart").Reading(), "");
  Start({1280, 1024});
  EXPECT_EQ(Chart("PictureChart").Zoom(), 1);
}

TEST_F(ChartReading, HasACrossHairThatThePointerAndTheKeysMove)
{
  Start();
  PointAt("PictureChart", {150, 60});
  EXPECT_TRUE(WaitUntil([&] { return Chart("PictureChart").CrossHair() == wxPoint(150, 60); }));
  PointAt("CmdInc(0)", {5, 5});
  EXPECT_TRUE(WaitUntil([&] { return !Chart("PictureChart").CrossHair(); }));

  Widget("PictureChart")->SetFocus();
  EXPECT_TRUE(WaitUntil([&] { return Chart("PictureChart").CrossHair().has_value(); }));
  const auto first = Chart("PictureChart").CrossHair().value_or(wxPoint());
  const auto reading = Chart("PictureChart").Reading();
  EXPECT_NE(reading, "");
  for (int i = 0; i < 20; ++i) mouse_.Char(WXK_RIGHT);
  EXPECT_TRUE(WaitUntil([&] { return Chart("PictureChart").CrossHair()->x == first.x + 60; }));
  EXPECT_EQ(Chart("PictureChart").CrossHair()->y, first.y);
  EXPECT_NE(Chart("PictureChart").Reading(), reading);
  mouse_.Char(WXK_HOME);
  EXPECT_TRUE(WaitUntil([&] { return Chart("PictureChart").CrossHair()->x == 30; }));
  EXPECT_EQ(Chart("PictureChart").Reading().substr(0, 5), "0 RPM");
  mouse_.Char(WXK_TAB);
  EXPECT_TRUE(WaitUntil([&] { return !Chart("PictureChart").HasFocus(); }));
  EXPECT_FALSE(Chart("PictureChart").CrossHair());
}

TEST_F(ChartReading, TellsWhereTheEngineDoesNotRun)
{
  for (const auto screen : {ScreenSize{800, 600}, ScreenSize{1280, 1024}}) {
    Start(screen);
    const auto& form = editor.Window().Form();
    const auto beyond = ui::BeyondLimit(form.chart);
    ASSERT_FALSE(beyond.empty());
    EXPECT_EQ(beyond.front().kind, charts::Primitive::Kind::kBox);
    const auto& drawn = form.chart.Drawn();
    const auto limit = std::ranges::find_if(drawn, [](const auto& line) {
      return line.colour == charts::kRed && line.style == platform::LineStyle::kDotted;
    });
    ASSERT_NE(limit, drawn.end());
    EXPECT_EQ(beyond.front().x1, limit->x1);
    EXPECT_EQ(beyond.front().x2, form.chart.Width() - 20);
    const auto named = [](const std::vector<charts::Primitive>& all) {
      return std::ranges::count(all, "Max RPM", &charts::Primitive::text);
    };
    EXPECT_EQ(named(beyond) + named(drawn), 1) << screen.width;
    EXPECT_TRUE(ui::BeyondLimit(form.chart2).empty());

    PointAt("CmdInc(0)", {5, 5});
    const int x = static_cast<int>(limit->x1) + 3;
    const int y = static_cast<int>(form.chart.Height()) - 36;
    const auto at = [&](int column) {
      return Pixels("PictureChart")
          .at(3 * static_cast<std::size_t>(y * Widget("PictureChart")->GetClientSize().x + column));
    };
    EXPECT_TRUE(WaitUntil([&] { return at(x) == 236; }));
  }
}

TEST_F(ChartReading, IsPaintedAndLeavesNoTrace)
{
  Start();
  const auto pixels = [&] { return Pixels("PictureChart2"); };
  PointAt("CmdInc(0)", {5, 5});
  LetTimePass(500);
  const auto before = pixels();
  PointAt("PictureChart2", {200, 100});
  EXPECT_TRUE(WaitUntil([&] { return pixels() != before; }));
  PointAt("CmdInc(0)", {5, 5});
  EXPECT_TRUE(WaitUntil([&] { return pixels() == before; }));
}

}  // namespace
}  // namespace velquist::testing
