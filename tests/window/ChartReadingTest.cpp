// SPDX-License-Identifier: MIT
#include <wx/uiaction.h>

#include "RealWindow.h"
#include "ui/PictureBoxes.h"

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
