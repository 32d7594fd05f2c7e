// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ScriptedEditor.h"
#include "app/Marquee.h"
#include "app/Quotations.h"
#include "platform/System.h"

namespace velquist::app {
namespace {

constexpr int kPause = 30000;  ///< ms
constexpr int kPeriod = 40;    ///< ms

class MarqueeTest : public ::testing::Test {
 protected:
  MarqueeTest()
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

TEST_F(MarqueeTest, BeginsAtTheRightEdgeOfItsBox)
{
  EXPECT_EQ(Label().text, Quotation(0));
  EXPECT_EQ(Left(), Box().width * 15);
  EXPECT_EQ(Label().place.left, Box().left + Box().width);
}

TEST_F(MarqueeTest, WaitsThirtySecondsAndThenGoesTenUnitsAStep)
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

TEST_F(MarqueeTest, KeepsItsQuotationUntilThatHasPassedTheLeftEdge)
{
  editor_.Play("random 0.5\n");
  Tick(kPause);
  int end = Box().left + 1;
  while (Label().text == Quotation(0)) {
    end = Label().place.left + Label().place.width;
    ASSERT_GE(end, Box().left - 1);
    Tick(kPeriod);
  }
  EXPECT_EQ(end, Box().left - 1) << "and no sooner";
  EXPECT_EQ(Label().text, Quotation(11));
  EXPECT_EQ(Left(), Box().width * 15);
}

TEST_F(MarqueeTest, CatchesUpAfterALongSleepWithoutSkippingAQuotation)
{
  editor_.Play("random 0.5\n");
  const auto clock = std::string("clock 99999000\n");
  editor_.Play(clock + "tick 0\n");
  EXPECT_FALSE(editor_.Window().State().marquee.scrolling);
  Tick(1);
  EXPECT_EQ(Label().text, Quotation(11));
  EXPECT_EQ(Left(), Box().width * 15);
}

TEST_F(MarqueeTest, TellsHowLongThereIsNothingToShow)
{
  EXPECT_EQ(editor_.Window().UntilTick(), kPause);
  Tick(kPause - 10);
  EXPECT_EQ(editor_.Window().UntilTick(), 10);
  Tick(10);
  EXPECT_EQ(editor_.Window().UntilTick(), kPeriod);
}

TEST_F(MarqueeTest, MovesByOnePixelWheneverItIsDue)
{
  Tick(kPause);
  for (int i = 0; i < 100; ++i) {
    const int before = Label().place.left;
    Tick(editor_.Window().UntilTick());
    EXPECT_EQ(Label().place.left, before - 1);
  }
}

TEST_F(MarqueeTest, IsWideEnoughForItsText)
{
  charts::PictureRecorder measure;
  measure.SetLetterHeight(Label().font_size);
  EXPECT_GE(Label().place.width, measure.Extent(Label().text).width);
}

TEST(MarqueeQuotations, ArePickedByNumbersThatTheClockSeeds)
{
  struct ATime final : platform::Clock {
    [[nodiscard]] std::uint64_t TickCount() const override { return time; }
    std::uint64_t time = 4711;
  } clock;
  struct Seeds final : platform::Random {
    void Seed(std::uint64_t seed) override { seeds.push_back(seed); }
    [[nodiscard]] double Next() override
    {
      EXPECT_FALSE(seeds.empty()) << "seeded first";
      return 0;
    }
    std::vector<std::uint64_t> seeds;
  } random;
  MarqueeState state;
  testing::ScriptedEditor editor;
  editor.StartWithGame();
  MainForm form = editor.Window().Form();
  app::Marquee marquee(state, form, clock, random);
  marquee.Move();
  marquee.Move();
  EXPECT_EQ(random.seeds, std::vector<std::uint64_t>{4711});
  state.scrolling = false;
  clock.time = 99000;
  marquee.Move();
  EXPECT_EQ(random.seeds, (std::vector<std::uint64_t>{4711, 99000}));
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
