// SPDX-License-Identifier: MIT
#include "charts/PlotXy.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "ChartPictures.h"

namespace velquist::charts {
namespace {

using platform::LineStyle;
using testing::Having;
using testing::Lines;
using testing::Primitive;
using testing::Texts;

constexpr Axis kTenths{0, 10, 5};
constexpr Axis kHundreds{0, 100, 4};

PictureRecorder PlotPicture(double width = 250, double height = 140)
{
  PictureRecorder picture;
  picture.Resize(width, height);
  return picture;
}

/// Of the drawn texts, in pixels from the right end to `left`.
std::vector<double> GapsBefore(const PictureRecorder& picture, double left)
{
  std::vector<double> gaps;
  for (const auto& text : Having(picture, Primitive::Kind::kText))
    if (text.x2 < left) gaps.push_back(left - text.x2);
  return gaps;
}

TEST(PlotXy, PreparingClearsToWhiteAndDropsWhatWasDrawn)
{
  auto picture = PlotPicture();
  picture.Clear(kRed);
  picture.Text(0, 0, "old");
  const PlotXy plot(picture, kTenths, kHundreds);
  EXPECT_EQ(picture.Background(), kWhite);
  EXPECT_EQ(std::ranges::count(Texts(picture), "old"), 0);
}

TEST(PlotXy, ThePlotBoxLeavesThePixelsOfTheMargins)
{
  auto picture = PlotPicture(250, 140);
  const PlotXy plot(picture, kTenths, kHundreds);
  const auto boxes = Having(picture, Primitive::Kind::kBox);
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].x1, 30);
  EXPECT_EQ(boxes[0].y1, 10);
  EXPECT_EQ(boxes[0].x2, 230);
  EXPECT_EQ(boxes[0].y2, 110);
  EXPECT_EQ(boxes[0].colour, kBlack);
  EXPECT_FALSE(boxes[0].fill);
}

TEST(PlotXy, EveryDivisionHasADottedLineInBothDirections)
{
  auto picture = PlotPicture(250, 140);
  const PlotXy plot(picture, kTenths, kHundreds);
  std::vector<double> upright;
  std::vector<double> level;
  for (const auto& line : Lines(picture, kGridGrey, LineStyle::kDotted)) {
    EXPECT_EQ(line.width, 1);
    if (line.x1 == line.x2) {
      EXPECT_EQ(line.y1, 10);
      EXPECT_EQ(line.y2, 110);
      upright.push_back(line.x1);
    } else {
      EXPECT_EQ(line.x1, 30);
      EXPECT_EQ(line.x2, 230);
      EXPECT_EQ(line.y1, line.y2);
      level.push_back(line.y1);
    }
  }
  EXPECT_EQ(upright, (std::vector<double>{30, 70, 110, 150, 190, 230}));
  EXPECT_EQ(level, (std::vector<double>{110, 85, 60, 35, 10}));
}

TEST(PlotXy, EveryDivisionHasItsValueUnderTheXAxisAndLeftOfTheYAxis)
{
  auto picture = PlotPicture(250, 140);
  const PlotXy plot(picture, kTenths, kHundreds);
  EXPECT_EQ(Texts(picture), (std::vector<std::string>{"0", "2", "4", "6", "8", "10", "0", "25",
                                                      "50", "75", "100"}));
  const auto texts = Having(picture, Primitive::Kind::kText);
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_NEAR((texts[i].x1 + texts[i].x2) / 2, 30 + 40.0 * static_cast<double>(i), 1e-9);
    EXPECT_GE(testing::Covered(texts[i]).top, 110);
  }
  for (std::size_t i = 6; i < texts.size(); ++i) {
    const auto area = testing::Covered(texts[i]);
    EXPECT_NEAR((area.top + area.bottom) / 2, 110 - 25.0 * static_cast<double>(i - 6), 0.1);
  }
}

TEST(PlotXy, LabelsOfTheYAxisEndAtTheSameGapFromIt)
{
  auto picture = PlotPicture();
  const PlotXy plot(picture, kTenths, kHundreds);
  const auto gaps = GapsBefore(picture, plot.Box().left);
  ASSERT_EQ(gaps.size(), 5U);
  for (const double gap : gaps) EXPECT_NEAR(gap, gaps[0], 1e-9);
  EXPECT_GT(gaps[0], 1);
}

TEST(PlotXy, LabelsArePlainDigitsAndDecimalsHaveAPoint)
{
  auto picture = PlotPicture(600, 300);
  const PlotXy plot(picture, {0, 1, 4}, {0, 12000, 6});
  const auto texts = Texts(picture);
  for (const char* label : {"0.25", "0.5", "0.75", "1", "2000", "10000", "12000"})
    EXPECT_EQ(std::ranges::count(texts, label), 1) << label;
}

TEST(PlotXy, AnAxisCanBeginAnywhere)
{
  auto picture = PlotPicture(250, 140);
  const PlotXy plot(picture, {-10, 10, 2}, {100, 200, 1});
  EXPECT_EQ(Texts(picture), (std::vector<std::string>{"-10", "0", "10", "100", "200"}));
  EXPECT_EQ(plot.PixelX(-10), 30);
  EXPECT_EQ(plot.PixelX(5), 180);
  EXPECT_EQ(plot.PixelY(100), 110);
  EXPECT_EQ(plot.PixelY(175), 35);
}

TEST(PlotXy, AnAxisWithoutDivisionsHasNoGridAndNoLabels)
{
  auto picture = PlotPicture();
  const PlotXy plot(picture, kTenths, {0, 1, 0});
  EXPECT_EQ(Texts(picture), (std::vector<std::string>{"0", "2", "4", "6", "8", "10"}));
  const auto grid = Lines(picture, kGridGrey, LineStyle::kDotted);
  EXPECT_EQ(grid.size(), 6U);
  for (const auto& line : grid) EXPECT_EQ(line.x1, line.x2);
}

TEST(PlotXy, LettersShrinkBeforeLabelsTouch)
{
  auto large = PlotPicture(600, 300);
  const PlotXy roomy(large, kTenths, kHundreds);
  EXPECT_EQ(Having(large, Primitive::Kind::kText)[0].letter_height, kLargestLetters);
  auto small = PlotPicture(190, 300);
  const PlotXy narrow(small, {0, 14000, 5}, kHundreds);
  EXPECT_LT(Having(small, Primitive::Kind::kText)[0].letter_height, kLargestLetters);
  EXPECT_EQ(testing::TextFaults(small), std::vector<std::string>());
  EXPECT_EQ(Texts(small).size(), 11U);
}

TEST(PlotXy, WithoutRoomForAllLabelsEverySecondIsWritten)
{
  auto picture = PlotPicture(250, 100);  // 60 pixels for 12 labels
  const PlotXy plot(picture, kTenths, {0, 550, 11});
  EXPECT_EQ(testing::TextFaults(picture), std::vector<std::string>());
  auto texts = Texts(picture);
  texts.erase(texts.begin(), texts.begin() + 6);
  EXPECT_EQ(texts, (std::vector<std::string>{"0", "100", "200", "300", "400", "500"}));
  EXPECT_EQ(Having(picture, Primitive::Kind::kText)[0].letter_height, kSmallestLetters);
}

TEST(PlotXy, APictureWithoutRoomForAPlotBoxStaysEmpty)
{
  for (const auto& [width, height] : {std::pair{50.0, 140.0}, {250.0, 40.0}, {0.0, 0.0}}) {
    auto picture = PlotPicture(width, height);
    const PlotXy plot(picture, kTenths, kHundreds);
    EXPECT_TRUE(picture.Drawn().empty()) << width;
    EXPECT_EQ(picture.Background(), kWhite);
  }
}

class Series : public ::testing::Test {
 protected:
  void Draw(std::vector<float> x, std::vector<float> y)
  {
    picture_.Resize(250, 140);
    PlotXy plot(picture_, kTenths, kHundreds);
    plot.DrawSeries(x, y, kBlue, 3);
  }
  [[nodiscard]] std::vector<Primitive> SeriesLines() const
  {
    return Lines(picture_, kBlue, LineStyle::kSolid);
  }
  [[nodiscard]] std::vector<Primitive> Dots() const
  {
    return Having(picture_, Primitive::Kind::kDot, kBlue);
  }
  PictureRecorder picture_;
};

TEST_F(Series, TheFirstPointIsADotAndTheOthersAreJoinedInOrder)
{
  Draw({0, 5, 10}, {0, 100, 50});
  ASSERT_EQ(Dots().size(), 1U);
  EXPECT_EQ(Dots()[0].x1, 30);
  EXPECT_EQ(Dots()[0].y1, 110);
  const auto lines = SeriesLines();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].x1, 30);
  EXPECT_EQ(lines[0].y1, 110);
  EXPECT_EQ(lines[0].x2, 130);
  EXPECT_EQ(lines[0].y2, 10);
  EXPECT_EQ(lines[1].x1, 130);
  EXPECT_EQ(lines[1].x2, 230);
  EXPECT_EQ(lines[1].y2, 60);
  for (const auto& line : lines) EXPECT_EQ(line.width, 3);
}

TEST_F(Series, PointsBelowEitherMinimumAreSkippedAndTheLineStartsAnew)
{
  Draw({-1, 1, 2, 3, 4, 5}, {50, 50, 50, -0.5F, 50, 50});
  EXPECT_EQ(Dots().size(), 2U);
  const auto lines = SeriesLines();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].x1, 50);
  EXPECT_EQ(lines[0].x2, 70);
  EXPECT_EQ(lines[1].x1, 110);
  EXPECT_EQ(lines[1].x2, 130);
}

TEST_F(Series, APointAtBothMinimaIsDrawnAndNaNIsNot)
{
  const float nan = std::numeric_limits<float>::quiet_NaN();
  Draw({0, nan, 1}, {0, 1, nan});
  EXPECT_EQ(Dots().size(), 1U);
  EXPECT_TRUE(SeriesLines().empty());
}

TEST_F(Series, PointsBeyondTheMaximaAreNotClipped)
{
  Draw({0, 20}, {0, 300});
  const auto lines = SeriesLines();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].x2, 430);
  EXPECT_EQ(lines[0].y2, -190);
}

TEST_F(Series, NoPointsDrawNothing)
{
  Draw({}, {});
  EXPECT_TRUE(Dots().empty());
  EXPECT_TRUE(SeriesLines().empty());
}

TEST(PlotXy, TheTitleIsInTheMiddleUnderTheLabelsAndShrinksToThePicture)
{
  for (const double width : {600.0, 240.0}) {
    auto picture = PlotPicture(width, 264);
    PlotXy plot(picture, kTenths, kHundreds);
    plot.DrawTitle("90% Torque and Horsepower Bands Versus MPH");
    EXPECT_EQ(testing::TextFaults(picture), std::vector<std::string>());
    const auto title = Having(picture, Primitive::Kind::kText).back();
    if (width == 600) {
      EXPECT_NEAR((title.x1 + title.x2) / 2, 305, 1e-9);
    }
    if (width == 240) {
      EXPECT_LT(title.letter_height, kLargestLetters);
    }
  }
}

TEST(PlotXy, WholeNumbersAreRoundedToTheEvenOneWithoutAMinusSignBeforeZero)
{
  EXPECT_EQ(WholeText(2.5), "2");
  EXPECT_EQ(WholeText(3.5), "4");
  EXPECT_EQ(WholeText(-0.2), "0");
  EXPECT_EQ(WholeText(-7.6), "-8");
  EXPECT_EQ(WholeText(1e21), "1000000000000000000000");
}

}  // namespace
}  // namespace velquist::charts
