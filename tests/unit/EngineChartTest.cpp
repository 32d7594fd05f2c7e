// SPDX-License-Identifier: MIT
#include "charts/EngineChart.h"

#include <gtest/gtest.h>

#include <limits>

#include "ChartPictures.h"
#include "charts/PlotXy.h"
#include "data/ChassisCatalogue.h"

namespace velquist::charts {
namespace {

using data::EngineCurve;
using platform::LineStyle;
using testing::Having;
using testing::Lines;
using testing::Primitive;
using testing::Texts;

using enum data::ModYear;

constexpr double kWidth = 350;   // 300 pixels from axis to axis
constexpr double kHeight = 140;  // 100

EngineCurve CurveOf(data::ModYear ModYearIndex, int engine_slot)
{
  EngineCurve curve;
  data::ComputeEngineCurve(ModYearIndex, engine_slot, curve);
  return curve;
}

/// 100 horsepower and 50 lb-ft at every rpm.
EngineCurve LevelCurve()
{
  EngineCurve curve;
  for (std::size_t i = 0; i < curve.rpm.size(); ++i) curve.rpm[i] = 200.0F * static_cast<float>(i);
  curve.power.fill(100);
  curve.torque.fill(50);
  return curve;
}

PictureRecorder Drawn(data::ModYear ModYearIndex, const EngineCurve& curve, int maximum_rpm = 0,
                      double width = kWidth, double height = kHeight)
{
  PictureRecorder picture;
  picture.Resize(width, height);
  DrawEngineChart(picture, ModYearIndex, curve, maximum_rpm);
  return picture;
}

PictureRecorder Drawn(data::ModYear ModYearIndex, int engine_slot, double width, double height)
{
  return Drawn(ModYearIndex, CurveOf(ModYearIndex, engine_slot),
               static_cast<int>(data::EngineOf(ModYearIndex, engine_slot).maximum_rpm), width,
               height);
}

TEST(EngineChart, AxesFollowTheModYear)
{
  struct Year {
    data::ModYear ModYearIndex;
    int rpm_maximum;
    int value_maximum;
  };
  for (const auto& year :
       {Year{k1967, 12000, 450}, Year{k1965, 14000, 300}, Year{k1966, 12000, 450},
        Year{k1969, 12000, 450}, Year{kGT, 10000, 550}}) {
    SCOPED_TRACE(data::ModYearText(year.ModYearIndex));
    const auto picture = Drawn(year.ModYearIndex, LevelCurve(), 0, 600, 300);
    std::vector<std::string> labels;
    for (int rpm = 0; rpm <= year.rpm_maximum; rpm += 2000) labels.push_back(std::to_string(rpm));
    for (int v = 0; v <= year.value_maximum; v += 50) labels.push_back(std::to_string(v));
    auto texts = Texts(picture);
    ASSERT_GE(texts.size(), labels.size());
    texts.resize(labels.size());
    EXPECT_EQ(texts, labels);
    EXPECT_EQ(Lines(picture, kGridGrey, LineStyle::kDotted).size(), labels.size());
  }
}

TEST(EngineChart, HorsepowerIsGreenAndTorqueBlueOfThePalette)
{
  EXPECT_EQ(kGreen, (platform::Colour{0, 128, 0}));
  EXPECT_EQ(kBlue, (platform::Colour{0, 0, 128}));
  const auto picture = Drawn(k1967, LevelCurve());
  const auto power = Lines(picture, kGreen, LineStyle::kSolid);
  ASSERT_FALSE(power.empty());
  for (const auto& line : power) EXPECT_NEAR(line.y1, 110 - 100 * 100.0 / 450, 1e-9);
  const auto torque = Lines(picture, kBlue, LineStyle::kSolid);
  ASSERT_FALSE(torque.empty());
  for (const auto& line : torque) EXPECT_NEAR(line.y1, 110 - 50 * 100.0 / 450, 1e-9);
}

TEST(EngineChart, AsManySamplesAreDrawnAsTheAxisIsLong)
{
  const int samples[] = {61, 71, 61, 61, 51};
  for (const auto ModYearIndex : data::kModYears) {
    SCOPED_TRACE(data::ModYearText(ModYearIndex));
    const auto picture = Drawn(ModYearIndex, LevelCurve());
    for (const auto colour : {kGreen, kBlue}) {
      const auto lines = Lines(picture, colour, LineStyle::kSolid);
      ASSERT_EQ(lines.size() + 1, static_cast<std::size_t>(samples[data::NumberOf(ModYearIndex)]));
      EXPECT_EQ(Having(picture, Primitive::Kind::kDot, colour).size(), 1U);
      EXPECT_EQ(lines.front().x1, 30);
      EXPECT_NEAR(lines.back().x2, 330, 1e-9);
    }
  }
}

TEST(EngineChart, PowerIsDrawnBeforeTorque)
{
  const auto picture = Drawn(k1967, LevelCurve());
  const auto dots = Having(picture, Primitive::Kind::kDot);
  ASSERT_EQ(dots.size(), 2U);
  EXPECT_EQ(dots[0].colour, kGreen);
  EXPECT_EQ(dots[1].colour, kBlue);
}

TEST(EngineChart, SamplesStandAtTheirValues)
{
  const auto curve = CurveOf(k1967, 1);
  const auto lines = Lines(Drawn(k1967, curve), kGreen, LineStyle::kSolid);
  ASSERT_EQ(lines.size(), 60U);
  const auto& at10000 = lines[49];  // ends at sample 50
  EXPECT_NEAR(at10000.x2, 30 + 300 * 10000.0 / 12000, 1e-9);
  EXPECT_NEAR(at10000.y2, 110 - 100 * 421.7 / 450, 0.02);
}

TEST(EngineChart, PointTableEnginesStartWithTorqueAndOthersWithout)
{
  EXPECT_EQ(Having(Drawn(k1967, CurveOf(k1967, 0)), Primitive::Kind::kDot, kBlue)[0].y1, 110);
  EXPECT_LT(Having(Drawn(kGT, CurveOf(kGT, 0)), Primitive::Kind::kDot, kBlue)[0].y1, 70);
}

TEST(EngineChart, WhatLiesAboveTheAxisIsCutWhereTheCurveCrossesIt)
{
  auto curve = LevelCurve();
  curve.power[10] = 800;  // 2000 rpm
  const auto picture = Drawn(k1967, curve);
  const auto lines = Lines(picture, kGreen, LineStyle::kSolid);
  ASSERT_EQ(lines.size(), 60U);
  // From 100 to 800 the axis's end, 450, is half-way, 1900 rpm.
  EXPECT_NEAR(lines[9].x2, 30 + 300 * 1900.0 / 12000, 1e-3);
  EXPECT_NEAR(lines[9].y2, 10, 1e-9);
  EXPECT_NEAR(lines[10].x1, 30 + 300 * 2100.0 / 12000, 1e-3);
  EXPECT_NEAR(lines[10].y1, 10, 1e-9);
}

TEST(EngineChart, ValuesBelowZeroLeaveAGap)
{
  auto curve = LevelCurve();
  curve.torque[20] = -1;
  curve.torque[21] = std::numeric_limits<float>::quiet_NaN();
  const auto picture = Drawn(k1967, curve);
  EXPECT_EQ(Lines(picture, kBlue, LineStyle::kSolid).size(), 57U);
  EXPECT_EQ(Having(picture, Primitive::Kind::kDot, kBlue).size(), 2U);
}

TEST(EngineChart, FromBelowZeroToAboveTheAxisNothingIsDrawn)
{
  auto curve = LevelCurve();
  for (std::size_t i = 20; i < 71; ++i) curve.power[i] = i % 2 == 0 ? -1.0F : 1e30F;
  const auto lines = Lines(Drawn(k1967, curve), kGreen, LineStyle::kSolid);
  ASSERT_EQ(lines.size(), 19U);
  EXPECT_NEAR(lines.back().x2, 30 + 300 * 3800.0 / 12000, 1e-9);
}

TEST(EngineChart, NoEngineIsDrawnOutsideThePlotBox)
{
  for (const auto ModYearIndex : data::kModYears) {
    for (int slot = 0; slot < data::kEngineSlots; ++slot) {
      SCOPED_TRACE(std::string(data::ModYearText(ModYearIndex)) + ", " + std::to_string(slot));
      const auto lines = Having(Drawn(ModYearIndex, slot, kWidth, kHeight), Primitive::Kind::kLine);
      ASSERT_FALSE(lines.empty());
      for (const auto& line : lines) {
        for (const double x : {line.x1, line.x2}) EXPECT_TRUE(x >= 30 && x <= 330.0001) << x;
        for (const double y : {line.y1, line.y2}) EXPECT_TRUE(y >= 9.9999 && y <= 110.0001) << y;
      }
    }
  }
}

TEST(EngineChart, ADottedRedLineMarksMaximumRpm)
{
  const auto marks = Lines(Drawn(k1965, LevelCurve(), 13500), kRed, LineStyle::kDotted);
  ASSERT_EQ(marks.size(), 1U);
  EXPECT_NEAR(marks[0].x1, 30 + 300 * 13500.0 / 14000, 1e-9);
  EXPECT_EQ(marks[0].x1, marks[0].x2);
  const auto at_the_end = Lines(Drawn(k1965, LevelCurve(), 14000), kRed, LineStyle::kDotted);
  ASSERT_EQ(at_the_end.size(), 1U);
  EXPECT_NEAR(at_the_end[0].x1, 330, 1e-9);
  for (const int rpm : {0, -1, 14001})
    EXPECT_TRUE(Lines(Drawn(k1965, LevelCurve(), rpm), kRed, LineStyle::kDotted).empty());
}

TEST(EngineChart, TheLegendNamesBothCurvesBelowThePlotBox)
{
  const auto picture = Drawn(kGT, 0, 356, 218);
  for (const auto& [name, colour] :
       {std::pair{"Horsepower", kGreen}, std::pair{"Torque, lb-ft", kBlue}}) {
    const auto texts = Having(picture, Primitive::Kind::kText);
    const auto text = std::ranges::find(texts, name, &Primitive::text);
    ASSERT_NE(text, texts.end());
    const auto samples = Having(picture, Primitive::Kind::kBox, colour);
    ASSERT_EQ(samples.size(), 1U);
    EXPECT_LT(samples[0].x2, text->x1);
    EXPECT_GT(samples[0].y1, 188);
    EXPECT_GT(testing::Covered(*text).top, 188);
  }
}

TEST(EngineChart, TheLegendGoesWithoutMaximumRpmWhereThereIsLittleRoom)
{
  const auto names = [](int width, int height) {
    auto texts = Texts(Drawn(kGT, 0, width, height));
    const auto first = std::ranges::find(texts, "Horsepower");
    return std::vector<std::string>(first, texts.end());
  };
  EXPECT_EQ(names(600, 264),
            (std::vector<std::string>{"Horsepower", "Torque, lb-ft", "Versus RPM", "Max RPM"}));
  EXPECT_EQ(names(222, 128),
            (std::vector<std::string>{"Horsepower", "Torque, lb-ft", "Versus RPM"}));
}

TEST(EngineChart, TextsNeverTouchAndLieWithinThePictureAtEverySize)
{
  for (const auto& size : testing::kPictureSizes) {
    for (const auto ModYearIndex : data::kModYears) {
      SCOPED_TRACE(std::to_string(size.width) + ", " +
                   std::string(data::ModYearText(ModYearIndex)));
      const auto picture = Drawn(ModYearIndex, 0, size.width, size.height);
      EXPECT_EQ(testing::TextFaults(picture), std::vector<std::string>());
      const auto texts = Having(picture, Primitive::Kind::kText);
      ASSERT_FALSE(texts.empty());
      for (const auto& text : texts) EXPECT_GE(text.letter_height, kSmallestLetters) << text.text;
    }
  }
}

TEST(EngineChart, AModYearThatThereIsNotDrawsNothing)
{
  for (const auto ModYearIndex : {data::ModYear{-1}, data::ModYear{5}}) {
    PictureRecorder picture;
    picture.Resize(kWidth, kHeight);
    picture.Text(0, 0, "kept");
    DrawEngineChart(picture, ModYearIndex, LevelCurve(), 9000);
    EXPECT_EQ(Texts(picture), std::vector<std::string>{"kept"});
    EXPECT_EQ(ReadEngineChart(kWidth, kHeight, ModYearIndex, LevelCurve(), 100, 50), "");
  }
}

TEST(EngineChart, APictureTooSmallForAPlotBoxIsLeftWhite)
{
  EXPECT_TRUE(Drawn(k1967, LevelCurve(), 9000, 40, 30).Drawn().empty());
  EXPECT_EQ(ReadEngineChart(40, 30, k1967, LevelCurve(), 35, 10), "");
}

class EngineChartReading : public ::testing::Test {
 protected:
  /// At the pixel of an rpm.
  [[nodiscard]] std::string At(double rpm, data::ModYear ModYearIndex, const EngineCurve& curve,
                               int rpm_maximum) const
  {
    return ReadEngineChart(kWidth, kHeight, ModYearIndex, curve, 30 + 300 * rpm / rpm_maximum, 60);
  }
};

TEST_F(EngineChartReading, GivesTheNearestSample)
{
  const auto curve = CurveOf(k1967, 1);
  const std::string at10000 = "10000 RPM\n422 horsepower\n221 lb-ft torque";
  EXPECT_EQ(At(10000, k1967, curve, 12000), at10000);
  EXPECT_EQ(At(9901, k1967, curve, 12000), at10000);
  EXPECT_EQ(At(10099, k1967, curve, 12000), at10000);
  EXPECT_EQ(At(10101, k1967, curve, 12000).substr(0, 9), "10200 RPM");
  EXPECT_EQ(At(0, k1967, curve, 12000), "0 RPM\n0 horsepower\n0 lb-ft torque");
  EXPECT_EQ(At(14000, k1965, LevelCurve(), 14000), "14000 RPM\n100 horsepower\n50 lb-ft torque");
}

TEST_F(EngineChartReading, LeavesOutWhatTheChartDoesNotShow)
{
  auto curve = LevelCurve();
  curve.power[10] = -1;
  curve.torque[20] = 551;
  EXPECT_EQ(At(2000, kGT, curve, 10000), "2000 RPM\n50 lb-ft torque");
  EXPECT_EQ(At(4000, kGT, curve, 10000), "4000 RPM\n100 horsepower");
}

TEST_F(EngineChartReading, AllFiguresAreToldInOneLine)
{
  auto curve = LevelCurve();
  curve.power[5] = -1;
  const auto told = TellEngineChart(kGT, curve, 7600);
  EXPECT_TRUE(
      told.starts_with("Max RPM 7600. 1000 RPM, 50 lb-ft torque. 2000 RPM, 100 horsepower, "
                       "50 lb-ft torque. 3000 RPM, "))
      << told;
  EXPECT_TRUE(told.ends_with(" 10000 RPM, 100 horsepower, 50 lb-ft torque.")) << told;
  EXPECT_EQ(TellEngineChart(static_cast<data::ModYear>(9), curve, 7600), "");
}

TEST_F(EngineChartReading, IsEmptyOutsideThePlotBox)
{
  const auto read = [](double x, double y) {
    return ReadEngineChart(kWidth, kHeight, k1967, LevelCurve(), x, y);
  };
  for (const auto& [x, y] :
       {std::pair{29.0, 60.0}, {331.0, 60.0}, {100.0, 9.0}, {100.0, 111.0}, {-5.0, -5.0}})
    EXPECT_EQ(read(x, y), "") << x << ' ' << y;
  for (const auto& [x, y] : {std::pair{30.0, 10.0}, {330.0, 110.0}})
    EXPECT_NE(read(x, y), "") << x << ' ' << y;
  EXPECT_EQ(read(std::numeric_limits<double>::quiet_NaN(), 50), "");
}

}  // namespace
}  // namespace velquist::charts
