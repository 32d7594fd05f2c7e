// SPDX-License-Identifier: MIT
#include "charts/GearingChart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "charts/PictureRecorder.h"
#include "export/PictureSvg.h"

namespace velquist::charts {
namespace {

/// 300 lb-ft everywhere: each gear is taken to 9000 rpm.
GearingPicture Picture(const std::vector<float>& ratios = {2.5F, 2.0F, 1.5F}, bool metric = false)
{
  GearingPicture picture;
  auto& curve = picture.curve;
  for (std::size_t i = 0; i < curve.rpm.size(); ++i) {
    curve.rpm[i] = 200.0F * static_cast<float>(i);
    curve.torque[i] = 300;
    curve.power[i] = 300 * curve.rpm[i] / 5252;
  }
  const auto bands = ComputeSpeedBands(curve, 9000, data::ModYear::k1967, 0, ratios, 4.0F, metric);
  picture.gearing = ComputeGearing(curve, bands, ratios, 4.0F);
  return picture;
}

PictureRecorder Drawn(void (*draw)(platform::PictureSurface&, const GearingPicture&),
                      const GearingPicture& picture, double width = 800, double height = 400)
{
  PictureRecorder surface;
  surface.Resize(width, height);
  draw(surface, picture);
  return surface;
}

bool HasText(const PictureRecorder& surface, const std::string& text)
{
  return std::ranges::any_of(surface.Drawn(), [&](const Primitive& drawn) {
    return drawn.kind == Primitive::Kind::kText && drawn.text == text;
  });
}

int Lines(const PictureRecorder& surface, platform::Colour colour)
{
  return static_cast<int>(std::ranges::count_if(surface.Drawn(), [&](const Primitive& drawn) {
    return drawn.kind == Primitive::Kind::kLine && drawn.colour == colour;
  }));
}

constexpr platform::Colour kFirstGear{0, 114, 178};
constexpr platform::Colour kThin{150, 150, 150};

TEST(GearingChart, ThrustShowsEachGearWithItsShiftAndTheCarsLimit)
{
  const auto surface = Drawn(DrawThrust, Picture());
  EXPECT_TRUE(HasText(surface, "1st 9000"));
  EXPECT_TRUE(HasText(surface, "2nd 9000"));
  EXPECT_TRUE(HasText(surface, "3rd"));
  EXPECT_TRUE(HasText(surface, "about 200 mph"));
  EXPECT_TRUE(HasText(surface, "Thrust at the tires, lb, versus mph, no losses"));
  EXPECT_FALSE(HasText(surface, "Reference"));
  // 1000 to 9000 rpm in steps of 200
  EXPECT_EQ(Lines(surface, kFirstGear), 40);
  EXPECT_EQ(Lines(surface, kThin), 0);
}

TEST(GearingChart, ThrustCurvesRunFromIdleToMaximumRpmAtTheirSpeeds)
{
  const auto picture = Picture();
  const auto surface = Drawn(DrawThrust, picture);
  const auto box = GearingBox(800, 400);
  double left = 800;
  double right = 0;
  for (const auto& line : surface.Drawn()) {
    if (line.kind != Primitive::Kind::kLine || line.colour != kFirstGear) continue;
    left = std::min(left, line.x1);
    right = std::max(right, line.x2);
    // 300 lb-ft times 10 on 1.125 feet are 2667 lb; the axis ends at 3200.
    EXPECT_NEAR((box.bottom - line.y1) / box.Height(), 2666.7 / 3200, 1e-3);
  }
  // 1 turn of the engine is 0.00803 mph in 1st.
  EXPECT_NEAR(left, box.left + 8.0325 / 220 * box.Width(), 0.1);
  EXPECT_NEAR(right, box.left + 72.2925 / 220 * box.Width(), 0.1);
}

TEST(GearingChart, TheReferenceIsDrawnThin)
{
  auto picture = Picture();
  picture.reference = Picture({2.4F, 1.9F}).gearing;
  const auto surface = Drawn(DrawThrust, picture);
  EXPECT_TRUE(HasText(surface, "Reference"));
  EXPECT_EQ(std::ranges::count_if(surface.Drawn(),
                                  [](const Primitive& drawn) {
                                    return drawn.kind == Primitive::Kind::kLine &&
                                           drawn.colour == kThin && drawn.width == 1;
                                  }),
            2 * 40);
}

TEST(GearingChart, SawToothGoesDownAtEachShift)
{
  const auto surface = Drawn(DrawSawTooth, Picture());
  EXPECT_TRUE(HasText(surface, "1st 9000"));
  EXPECT_TRUE(HasText(surface, "7200"));
  EXPECT_TRUE(HasText(surface, "6750"));
  EXPECT_TRUE(HasText(surface, "3rd"));
  EXPECT_TRUE(HasText(surface, "Engine speed, rpm, versus mph"));
  EXPECT_EQ(Lines(surface, kFirstGear), 2);  // up, and down at the shift
  const auto box = GearingBox(800, 400);
  const auto down = std::ranges::find_if(surface.Drawn(), [](const Primitive& drawn) {
    return drawn.colour == kFirstGear && drawn.kind == Primitive::Kind::kLine &&
           drawn.x1 == drawn.x2;
  });
  ASSERT_NE(down, surface.Drawn().end());
  EXPECT_NEAR((box.bottom - down->y1) / box.Height(), 9000 / 10000.0, 1e-9);
  EXPECT_NEAR((box.bottom - down->y2) / box.Height(), 7200 / 10000.0, 1e-9);
}

TEST(GearingChart, LabelsOfGearsAlikeDoNotCoverEachOther)
{
  const auto picture = Picture({2.5F, 2.0F, 1.5F, 1.5F, 1.5F});
  for (const auto draw : {DrawThrust, DrawSawTooth}) {
    const auto surface = Drawn(draw, picture);
    std::vector<Primitive> labels;
    for (const auto& drawn : surface.Drawn())
      if (drawn.kind == Primitive::Kind::kText &&
          (drawn.text == "3rd" || drawn.text == "4th" || drawn.text == "5th"))
        labels.push_back(drawn);
    ASSERT_EQ(labels.size(), 3U);
    for (const auto& one : labels)
      for (const auto& other : labels)
        EXPECT_TRUE(one.text == other.text || one.y2 <= other.y1 || other.y2 <= one.y1 ||
                    one.x2 <= other.x1 || other.x2 <= one.x1)
            << one.text << " and " << other.text;
  }
}

TEST(GearingChart, AGearThatNothingShiftsIntoHasNoTooth)
{
  const auto surface = Drawn(DrawSawTooth, Picture({2.5F, 2.5F, 2.0F}));
  EXPECT_EQ(Lines(surface, kFirstGear), 1);    // up, and no shift
  EXPECT_EQ(Lines(surface, {213, 94, 0}), 1);  // down at the shift alone
  EXPECT_EQ(Lines(surface, {0, 128, 96}), 1);
}

TEST(GearingChart, GearsWithoutRatioAreLeftOut)
{
  const auto picture = Picture({2.5F, 0.0F, 1.5F});
  for (const auto draw : {DrawThrust, DrawSawTooth}) {
    const auto surface = Drawn(draw, picture);
    EXPECT_TRUE(HasText(surface, "1st"));
    EXPECT_FALSE(HasText(surface, "2nd"));
    EXPECT_TRUE(HasText(surface, "3rd"));
  }
}

TEST(GearingChart, TheThrustAxisIsMadeForWhatTheEngineReaches)
{
  const auto axis_of = [](const GearingPicture& picture) {
    std::vector<std::string> labels;
    const auto surface = Drawn(DrawThrust, picture);
    for (const auto& drawn : surface.Drawn())
      if (drawn.kind == Primitive::Kind::kText && drawn.x2 <= GearingBox(800, 400).left)
        labels.push_back(drawn.text);
    return labels;
  };
  auto picture = Picture();
  const auto expected = axis_of(picture);
  ASSERT_FALSE(expected.empty());
  for (std::size_t i = 0; i < picture.curve.rpm.size(); ++i)
    if (picture.curve.rpm[i] < 1000 || picture.curve.rpm[i] > 9200) picture.curve.torque[i] = 900;
  EXPECT_EQ(axis_of(picture), expected);
  for (std::size_t i = 0; i < picture.curve.rpm.size(); ++i)
    picture.curve.torque[i] = picture.curve.rpm[i] < 1000 ? 900.0F : 0.0F;
  EXPECT_NE(axis_of(picture), expected);
}

TEST(GearingChart, TheAxisOfEngineSpeedsHasAThousandADivisionUpTo15000)
{
  const auto has_thousand = [](int maximum_rpm) {
    auto picture = Picture();
    picture.gearing.maximum_rpm = maximum_rpm;
    return HasText(Drawn(DrawSawTooth, picture, 1900, 950), "1000");
  };
  EXPECT_TRUE(has_thousand(14000));
  EXPECT_FALSE(has_thousand(14001));
}

TEST(GearingChart, WhatAShiftComesToStandsClearOfItsTooth)
{
  const auto picture = Picture();
  const auto surface = Drawn(DrawSawTooth, picture);
  const double letters = GearingLetters(800, 400);
  int labels = 0;
  for (const auto& gear : picture.gearing.gears) {
    if (!gear.shift) continue;
    for (const auto& text : surface.Drawn()) {
      if (text.kind != Primitive::Kind::kText || text.text != std::to_string(gear.shift->after))
        continue;
      for (const auto& line : surface.Drawn())
        if (line.kind == Primitive::Kind::kLine && line.x1 == line.x2 && line.width > 1 &&
            line.x1 < text.x1 && text.x1 - line.x1 < 3 * letters) {
          ++labels;
          EXPECT_GE(text.x1 - line.x1 - line.width / 2, 0.3 * letters) << text.text;
        }
    }
  }
  EXPECT_GT(labels, 0);
}

TEST(GearingChart, LettersGrowWithThePictureAndNothingLeavesIt)
{
  auto picture = Picture({2.9F, 2.2F, 1.8F, 1.5F, 1.3F, 1.1F});
  picture.reference = Picture({2.4F, 1.9F}).gearing;
  double letters = 0;
  for (const double width : {240.0, 500.0, 1000.0, 1900.0}) {
    for (const auto draw : {DrawThrust, DrawSawTooth}) {
      const auto surface = Drawn(draw, picture, width, width / 2);
      EXPECT_TRUE(HasText(surface, "1st 9000"));
      EXPECT_TRUE(HasText(surface, "6th"));
      for (const auto& drawn : surface.Drawn()) {
        if (drawn.kind == Primitive::Kind::kText) {
          EXPECT_GE(drawn.x1, 0) << drawn.text;
          EXPECT_LE(drawn.x2, width) << drawn.text;
        }
        EXPECT_GE(drawn.y1, 0);
        EXPECT_LE(std::max(drawn.y1, drawn.y2), width / 2);
      }
    }
    EXPECT_GE(GearingLetters(width, width / 2), letters);
    letters = GearingLetters(width, width / 2);
  }
  EXPECT_GE(letters, 18);
}

TEST(GearingChart, APictureWithoutRoomStaysEmpty)
{
  EXPECT_TRUE(Drawn(DrawThrust, Picture(), 20, 20).Drawn().empty());
  EXPECT_TRUE(Drawn(DrawSawTooth, Picture(), 20, 20).Drawn().empty());
}

TEST(GearingChart, ReadingTellsEachGearThatCanDriveAtTheSpeed)
{
  // 60 mph are 7470 turns in 1st, 5976 in 2nd, 4482 in 3rd.
  EXPECT_EQ(ReadGearing(Picture(), 60),
            (std::vector<std::string>{"60 mph", "1st: 7470 rpm, 2667 lb, most",
                                      "2nd: 5976 rpm, 2133 lb", "3rd: 4482 rpm, 1600 lb"}));
  EXPECT_EQ(ReadGearing(Picture(), 100),
            (std::vector<std::string>{"100 mph", "3rd: 7470 rpm, 1600 lb, most"}));
  EXPECT_EQ(ReadGearing(Picture(), 200), std::vector<std::string>{"200 mph"});
  EXPECT_EQ(ReadGearing(Picture({2.5F}, true), 100),
            (std::vector<std::string>{"100 km/h", "1st: 7736 rpm, 11862 N, most"}));
}

TEST(GearingChart, PlacesAndSpeedsBelongTogether)
{
  const auto picture = Picture();
  const auto box = GearingBox(800, 400);
  const double x = PixelOfSpeed(box, picture, 110);
  EXPECT_EQ(x, (box.left + box.right) / 2);
  EXPECT_NEAR(SpeedAt(box, picture, x, 100).value(), 110, 1e-9);
  EXPECT_FALSE(SpeedAt(box, picture, box.left - 1, 100));
  EXPECT_FALSE(SpeedAt(box, picture, x, box.bottom + 1));
}

TEST(GearingChart, RoundAxesHoldTheirValueInFewDivisions)
{
  for (const double value : {0.0, 1.0, 99.0, 100.0, 101.0, 777.0, 4321.0, 98765.0}) {
    const auto axis = RoundAxis(value, 10, 100);
    EXPECT_GE(axis.maximum, value);
    EXPECT_GE(axis.divisions, 1);
    EXPECT_LE(axis.divisions, 10);
    EXPECT_EQ(std::fmod(axis.maximum / axis.divisions, 100), 0);
  }
  EXPECT_EQ(RoundAxis(200, 13, 20).divisions, 10);
}

TEST(PictureSvg, HasOneElementForEachTextOfAChart)
{
  const auto surface = Drawn(DrawThrust, Picture());
  const auto svg = text_export::SvgDocument(surface, "Gearing");
  std::size_t texts = 0;
  for (auto at = svg.find("<text"); at != std::string::npos; at = svg.find("<text", at + 1))
    ++texts;
  EXPECT_EQ(texts, static_cast<std::size_t>(std::ranges::count(
                       surface.Drawn(), Primitive::Kind::kText, &Primitive::kind)));
}

}  // namespace
}  // namespace velquist::charts
