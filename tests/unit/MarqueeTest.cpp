// SPDX-License-Identifier: MIT
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "ScriptedEditor.h"
#include "app/Quotations.h"

namespace velquist::app {
namespace {

constexpr int kPause = 30000;  ///< ms
constexpr int kPeriod = 40;    ///< ms

class Marquee : public ::testing::Test {
 protected:
  Marquee()
  {
    editor_.Play("clock 777000\nrandom 0\n");
    editor_.StartWithGame();
    Tick(0);
  }

  void Tick(int milliseconds) { editor_.Play("tick " + std::to_string(milliseconds) + "\n"); }
  [[nodiscard]] const Control& Label() const { return editor_.Window().Form().LblMarquee; }
  [[nodiscard]] const Place& Box() const { return editor_.Window().Form().Picture1.place; }
  /// Of the quotation within its box, 1/15 pixel.
  [[nodiscard]] int Left() const { return editor_.Window().State().marquee.left; }

  testing::ScriptedEditor editor_;
};

TEST_F(Marquee, BeginsAtTheRightEdgeOfItsBox)
{
  EXPECT_EQ(Label().text, Quotation(0));
  EXPECT_EQ(Left(), Box().width * 15);
  EXPECT_EQ(Label().place.left, Box().left + Box().width);
}

TEST_F(Marquee, WaitsThirtySecondsAndThenGoesTenUnitsAStep)
{
  const int begin = Left();
  Tick(kPause - 1);
  EXPECT_EQ(Left(), begin);
  Tick(1);
  EXPECT_EQ(Left(), begin - 10);
  for (int step = 2; step < 100; ++step) {
    Tick(kPeriod);
    EXPECT_EQ(Left(), begin - 10 * step);
  }
}

TEST_F(Marquee, KeepsItsQuotationUntilThatHasPassedTheLeftEdge)
{
  editor_.Play("random 0.5\n");
  Tick(kPause);
  while (Label().text == Quotation(0)) {
    ASSERT_GE(Label().place.left + Label().place.width, Box().left - 1);
    Tick(kPeriod);
  }
  EXPECT_EQ(Label().text, Quotation(11));
  EXPECT_EQ(Left(), Box().width * 15);
}

TEST_F(Marquee, CatchesUpAfterALongSleepWithoutSkippingAQuotation)
{
  editor_.Play("random 0.5\n");
  const auto clock = std::string("clock 99999000\n");
  editor_.Play(clock + "tick 0\n");
  EXPECT_FALSE(editor_.Window().State().marquee.scrolling);
  Tick(1);
  EXPECT_EQ(Label().text, Quotation(11));
  EXPECT_EQ(Left(), Box().width * 15);
}

TEST_F(Marquee, TellsHowLongThereIsNothingToShow)
{
  EXPECT_EQ(editor_.Window().UntilTick(), kPause);
  Tick(kPause - 10);
  EXPECT_EQ(editor_.Window().UntilTick(), 10);
  Tick(10);
  EXPECT_EQ(editor_.Window().UntilTick(), kPeriod);
}

TEST_F(Marquee, MovesByOnePixelWheneverItIsDue)
{
  Tick(kPause);
  for (int i = 0; i < 100; ++i) {
    const int before = Label().place.left;
    Tick(editor_.Window().UntilTick());
    EXPECT_EQ(Label().place.left, before - 1);
  }
}

TEST_F(Marquee, IsWideEnoughForItsText)
{
  charts::PictureRecorder measure;
  measure.SetLetterHeight(Label().font_size);
  EXPECT_GE(Label().place.width, measure.Extent(Label().text).width);
}

TEST(MarqueeQuotations, EveryRandomNumberBelowOnePicksOneOfThem)
{
  for (int index = 0; index < kQuotationCount; ++index)
    for (const double within : {0.0001, 0.5, 0.9999}) {
      testing::ScriptedEditor editor;
      const double random = (index + within) / kQuotationCount;
      editor.Play("random " + std::to_string(random) + "\n");
      editor.StartWithGame();
      editor.Play("tick 0\n");
      EXPECT_EQ(editor.Window().Form().LblMarquee.text, Quotation(index)) << random;
    }
}

}  // namespace
}  // namespace velquist::app
