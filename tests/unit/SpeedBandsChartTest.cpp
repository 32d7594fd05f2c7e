// SPDX-License-Identifier: MIT
#include "charts/SpeedBandsChart.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "ChartPictures.h"
#include "charts/PlotXy.h"

namespace velquist::charts {
namespace {

using platform::LineStyle;
using testing::Having;
using testing::Lines;
using testing::Primitive;
using testing::Texts;

using enum data::ModYear;

constexpr double kBandsWidth = 600;   // 550 pixels from axis to axis: 2.5 a mile per hour in 1967
constexpr double kBandsHeight = 264;  // 224

/// Five gears; torque from 4000 to 8000 rpm, horsepower from 6000 to 9000, maximum 9500 rpm.
SpeedBands Bands(bool metric = false)
{
  SpeedBands bands;
  bands.torque = {4000, 8000};
  bands.power = {6000, 9000};
  bands.maximum_rpm = 9500;
  bands.maximum_speed = metric ? 200 * 1.609344 : 200;
  bands.gear_rows = 5;
  bands.metric = metric;
  for (int gear = 1; gear <= 5; ++gear)
    bands.gears.push_back({gear, (0.008 + 0.003 * (gear - 1)) * (metric ? 1.609344 : 1)});
  return bands;
}

PictureRecorder Drawn(const SpeedBands& bands, data::ModYear ModYearIndex = k1967,
                      double width = kBandsWidth, double height = kBandsHeight)
{
  PictureRecorder picture;
  picture.Resize(width, height);
  DrawSpeedBands(picture, ModYearIndex, bands);
  return picture;
}

/// The number of a gear, left of the plot box.
const Primitive* Number(const PictureRecorder& picture, int gear)
{
  for (const auto& drawn : picture.Drawn())
    if (drawn.kind == Primitive::Kind::kText && drawn.text == std::to_string(gear) && drawn.x2 < 30)
      return &drawn;
  return nullptr;
}

/// A place in the row of a gear, at a speed in miles per hour in 1967.
std::string Read(const SpeedBands& bands, int gear, double speed = 100)
{
  const auto area = testing::Covered(*Number(Drawn(bands), gear));
  return ReadSpeedBands(kBandsWidth, kBandsHeight, bands, 30 + 2.5 * speed,
                        (area.top + area.bottom) / 2);
}

TEST(SpeedBandsChart, TheTitleNamesTheUnit)
{
  const auto count = [](bool metric, const char* title) {
    return std::ranges::count(Texts(Drawn(Bands(metric))), title);
  };
  EXPECT_EQ(count(false, "90% Torque and Horsepower Bands Versus MPH"), 1);
  EXPECT_EQ(count(true, "90% Torque and Horsepower Bands Versus KPH"), 1);
  EXPECT_EQ(count(false, "90% Torque and Horsepower Bands Versus KPH"), 0);
}

TEST(SpeedBandsChart, TheSpeedAxisFollowsModYearAndUnit)
{
  for (const auto ModYearIndex : data::kModYears) {
    for (const bool metric : {false, true}) {
      SCOPED_TRACE(std::string(data::ModYearText(ModYearIndex)) + (metric ? " metric" : ""));
      const int step = metric ? 40 : 20;
      const int mph_maximum = ModYearIndex == k1965 ? 200 : 220;
      const int kph_maximum = ModYearIndex == k1965 ? 320 : 360;
      std::vector<std::string> labels;
      for (int speed = 0; speed <= (metric ? kph_maximum : mph_maximum); speed += step)
        labels.push_back(std::to_string(speed));
      const auto picture = Drawn(Bands(metric), ModYearIndex);
      auto texts = Texts(picture);
      ASSERT_GE(texts.size(), labels.size());
      texts.resize(labels.size());
      EXPECT_EQ(texts, labels);
      auto grid = Lines(picture, kGridGrey, LineStyle::kDotted);
      std::erase_if(grid, [](const Primitive& line) { return line.x1 != line.x2; });
      EXPECT_EQ(grid.size(), labels.size());
    }
  }
}

TEST(SpeedBandsChart, EachGearHasItsBandsFromSpeedToSpeedAndItsBox)
{
  const auto bands = Bands();
  const auto picture = Drawn(bands);
  const auto torque = Having(picture, Primitive::Kind::kBox, kBlue);
  const auto power = Having(picture, Primitive::Kind::kBox, kGreen);
  const auto limits = Having(picture, Primitive::Kind::kBox, kRed);
  ASSERT_EQ(torque.size(), 5U);
  ASSERT_EQ(power.size(), 5U);
  ASSERT_EQ(limits.size(), 5U);
  for (std::size_t i = 0; i < 5; ++i) {
    SCOPED_TRACE(i);
    const double per_rpm = 2.5 * bands.gears[i].speed_per_rpm;  // pixels
    EXPECT_NEAR(torque[i].x1, 30 + 4000 * per_rpm, 1e-9);
    EXPECT_NEAR(torque[i].x2, 30 + 8000 * per_rpm, 1e-9);
    EXPECT_NEAR(power[i].x1, 30 + 6000 * per_rpm, 1e-9);
    EXPECT_NEAR(power[i].x2, 30 + 9000 * per_rpm, 1e-9);
    EXPECT_NEAR((limits[i].x1 + limits[i].x2) / 2, 30 + 9500 * per_rpm, 1e-9);
    EXPECT_EQ(torque[i].fill, kBlue);
    EXPECT_EQ(power[i].fill, kGreen);
    EXPECT_EQ(limits[i].fill, kRed);
  }
}

TEST(SpeedBandsChart, GearsAreRowsWithTheFirstOnTopAndTheirNumberBeside)
{
  const auto picture = Drawn(Bands());
  const auto torque = Having(picture, Primitive::Kind::kBox, kBlue);
  const auto power = Having(picture, Primitive::Kind::kBox, kGreen);
  const auto limits = Having(picture, Primitive::Kind::kBox, kRed);
  double above = 10;
  for (int gear = 1; gear <= 5; ++gear) {
    SCOPED_TRACE(gear);
    const auto i = static_cast<std::size_t>(gear - 1);
    EXPECT_GT(torque[i].y1, above);
    EXPECT_GT(power[i].y1, torque[i].y2);
    EXPECT_EQ(torque[i].y2 - torque[i].y1, power[i].y2 - power[i].y1);
    const double middle = (torque[i].y1 + power[i].y2) / 2;
    EXPECT_NEAR((limits[i].y1 + limits[i].y2) / 2, middle, 1);
    const auto* const number = Number(picture, gear);
    ASSERT_NE(number, nullptr);
    const auto area = testing::Covered(*number);
    EXPECT_NEAR((area.top + area.bottom) / 2, middle, 1);
    above = power[i].y2;
  }
  EXPECT_LT(above, 234);
}

TEST(SpeedBandsChart, ARedLineStandsAtTheMaximumSpeed)
{
  for (const bool metric : {false, true}) {
    auto lines = Lines(Drawn(Bands(metric)), kRed, LineStyle::kSolid);
    std::erase_if(lines, [](const Primitive& line) { return line.x1 != line.x2; });
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NEAR(lines[0].x1, 30 + 550 * (metric ? 321.8688 / 360 : 200.0 / 220), 1e-9);
    EXPECT_EQ(lines[0].y1, 10);
    EXPECT_EQ(lines[0].y2, 234);
  }
}

TEST(SpeedBandsChart, AGearWithoutSpeedHasItsNumberAndNoBands)
{
  auto bands = Bands();
  bands.gears.erase(bands.gears.begin() + 2);
  const auto picture = Drawn(bands);
  EXPECT_NE(Number(picture, 3), nullptr);
  EXPECT_EQ(Having(picture, Primitive::Kind::kBox, kBlue).size(), 4U);
  EXPECT_EQ(Having(picture, Primitive::Kind::kBox, kRed).size(), 4U);
  bands.gears.clear();
  EXPECT_TRUE(Having(Drawn(bands), Primitive::Kind::kBox, kGreen).empty());
}

TEST(SpeedBandsChart, WhatLiesBeyondTheSpeedAxisIsCutOff)
{
  auto bands = Bands();
  bands.gears = {{1, 0.0275}, {2, 0.06}, {3, 1e30}};  // 4000 rpm are 110, 240 mph and more
  const auto picture = Drawn(bands);
  const auto torque = Having(picture, Primitive::Kind::kBox, kBlue);
  ASSERT_EQ(torque.size(), 1U);
  EXPECT_NEAR(torque[0].x1, 305, 1e-9);
  EXPECT_LE(torque[0].x2, 580);
  EXPECT_TRUE(Having(picture, Primitive::Kind::kBox, kRed).empty());
  for (const auto& box : Having(picture, Primitive::Kind::kBox)) {
    EXPECT_GE(box.x1, 30);
    EXPECT_LE(box.x2, 580);
  }
}

TEST(SpeedBandsChart, TheLegendNamesBothBandsAndNeverCoversAGear)
{
  for (const auto& size : testing::kPictureSizes) {
    SCOPED_TRACE(size.width);
    auto bands = Bands();
    bands.gear_rows = 6;
    for (int gear = 1; gear <= 6; ++gear) bands.gears.push_back({gear, 0.0001});
    const auto picture = Drawn(bands, k1967, size.width, size.height);
    const auto texts = Having(picture, Primitive::Kind::kText);
    double legend_bottom = 0;
    for (const char* name : {"Torque", "Horsepower", "Max RPM", "Max Speed"}) {
      const auto text = std::ranges::find(texts, name, &Primitive::text);
      if (text == texts.end()) {
        // Where there is little room the red things go without.
        EXPECT_TRUE(name[0] == 'M' && size.width < 300) << name;
        continue;
      }
      legend_bottom = std::max(legend_bottom, testing::Covered(*text).bottom);
      EXPECT_LT(text->x2, 30 + (size.width - 50) * 200.0 / 220) << "behind the red line";
    }
    EXPECT_GT(legend_bottom, 0);
    for (const auto colour : {kBlue, kGreen, kRed}) {
      const auto boxes = Having(picture, Primitive::Kind::kBox, colour);
      ASSERT_FALSE(boxes.empty()) << colour;
      for (const auto& box : boxes) EXPECT_GE(box.y1, legend_bottom);
    }
  }
}

TEST(SpeedBandsChart, NoLineOfTheGridRunsThroughTheLegend)
{
  const auto picture = Drawn(Bands());
  const auto texts = Having(picture, Primitive::Kind::kText);
  const auto grounds = Having(picture, Primitive::Kind::kBox, {255, 255, 255});
  for (const char* const name : {"Torque", "Horsepower", "Max RPM", "Max Speed"}) {
    const auto text = std::ranges::find(texts, name, &Primitive::text);
    ASSERT_NE(text, texts.end()) << name;
    const auto area = testing::Covered(*text);
    EXPECT_TRUE(std::ranges::any_of(grounds, [&](const Primitive& ground) {
      return ground.fill == ground.colour && ground.x1 <= area.left && ground.y1 <= area.top &&
             ground.x2 >= area.right && ground.y2 >= area.bottom;
    })) << name;
  }
}

TEST(SpeedBandsChart, TextsNeverTouchAndLieWithinThePictureAtEverySize)
{
  for (const auto& size : testing::kPictureSizes) {
    for (const auto ModYearIndex : data::kModYears) {
      for (const int gears : {3, 4, 5, 6}) {
        for (const bool metric : {false, true}) {
          SCOPED_TRACE(std::to_string(size.width) + ", " +
                       std::string(data::ModYearText(ModYearIndex)) + ", " + std::to_string(gears));
          auto bands = Bands(metric);
          bands.gear_rows = gears;
          const auto picture = Drawn(bands, ModYearIndex, size.width, size.height);
          EXPECT_EQ(testing::TextFaults(picture), std::vector<std::string>());
          const auto texts = Having(picture, Primitive::Kind::kText);
          ASSERT_FALSE(texts.empty());
          for (const auto& text : texts)
            EXPECT_GE(text.letter_height, kSmallestLetters - 1) << text.text;
        }
      }
    }
  }
}

TEST(SpeedBandsChart, APictureTooSmallForAPlotBoxIsLeftWhite)
{
  EXPECT_TRUE(Drawn(Bands(), k1967, 40, 30).Drawn().empty());
  EXPECT_EQ(ReadSpeedBands(40, 30, Bands(), 35, 10), "");
}

TEST(SpeedBandsChart, ReadingGivesTheGearOfTheRowAndItsSpeeds)
{
  EXPECT_EQ(Read(Bands(), 1),
            "1st gear\nTorque 32 to 64 MPH\nHorsepower 48 to 72 MPH\nMax RPM 76 MPH");
  EXPECT_EQ(Read(Bands(), 2),
            "2nd gear\nTorque 44 to 88 MPH\nHorsepower 66 to 99 MPH\nMax RPM 104 MPH");
  EXPECT_EQ(Read(Bands(), 3).substr(0, 8), "3rd gear");
  EXPECT_EQ(Read(Bands(), 5).substr(0, 8), "5th gear");
  EXPECT_EQ(Read(Bands(true), 1),
            "1st gear\nTorque 51 to 103 KPH\nHorsepower 77 to 116 KPH\nMax RPM 122 KPH");
}

TEST(SpeedBandsChart, ReadingIsTheSameAllAlongARow)
{
  for (const double speed : {0.0, 55.5, 220.0})
    EXPECT_EQ(Read(Bands(), 4, speed), Read(Bands(), 4));
}

TEST(SpeedBandsChart, ReadingAGearWithoutSpeedSaysSo)
{
  auto bands = Bands();
  bands.gears.clear();
  EXPECT_EQ(Read(bands, 3), "3rd gear\nno ratio");
}

TEST(SpeedBandsChart, AllFiguresAreToldInOneLine)
{
  auto bands = Bands();
  bands.gear_rows = 2;
  bands.maximum_speed = 187.4;
  const std::string first =
      "1st gear, Torque 32 to 64 MPH, Horsepower 48 to 72 MPH, Max RPM 76 MPH. ";
  EXPECT_EQ(TellSpeedBands(bands),
            first +
                "2nd gear, Torque 44 to 88 MPH, Horsepower 66 to 99 MPH, Max RPM 104 MPH. "
                "Max Speed 187 MPH.");
  bands.gears.resize(1);
  EXPECT_EQ(TellSpeedBands(bands), first + "2nd gear, no ratio. Max Speed 187 MPH.");
  bands.gear_rows = 0;
  bands.metric = true;
  EXPECT_EQ(TellSpeedBands(bands), "Max Speed 187 KPH.");
}

TEST(SpeedBandsChart, ReadingIsEmptyOutsideTheRows)
{
  const auto read = [](double x, double y) {
    return ReadSpeedBands(kBandsWidth, kBandsHeight, Bands(), x, y);
  };
  for (const auto& [x, y] : {std::pair{29.0, 120.0}, {581.0, 120.0}, {100.0, 9.0}, {100.0, 235.0}})
    EXPECT_EQ(read(x, y), "") << x << ' ' << y;
  EXPECT_EQ(read(100, 20), "") << "the legend";
  EXPECT_EQ(read(30, 234).substr(0, 3), "5th");
  EXPECT_EQ(read(100, std::numeric_limits<double>::quiet_NaN()), "");
}

}  // namespace
}  // namespace velquist::charts
