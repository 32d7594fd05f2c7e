// SPDX-License-Identifier: MIT
#include "charts/GearingRemarks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velquist::charts {
namespace {

/// Two gears that shift well, and an engine whose power band is 6000 to 8000 rpm.
Gearing TwoGears()
{
  Gearing gearing;
  gearing.maximum_rpm = 8000;
  gearing.torque = {4000, 7000};
  gearing.power = {6000, 8000};
  gearing.maximum_speed = 200;
  gearing.gears = {{.gear = 1,
                    .ratio = 2,
                    .overall = 8,
                    .per_rpm = 0.01875,
                    .speed = 150,
                    .step = 25,
                    .shift = Shift{8000, 6400, true, true}},
                   {.gear = 2, .ratio = 1.6, .overall = 6.4, .per_rpm = 0.0234375, .speed = 187.5}};
  return gearing;
}

std::vector<std::string> Texts(const Gearing& gearing)
{
  std::vector<std::string> texts;
  for (const auto& remark : GearingRemarks(gearing)) {
    texts.push_back(remark.text);
    EXPECT_FALSE(remark.rule.empty()) << remark.text;
  }
  return texts;
}

using Sentences = std::vector<std::string>;

const std::string kTop = "Top gear reaches maximum rpm at 188 mph, the car's limit is about 200";

TEST(GearingRemarks, GoodGearsAreSpokenOfByTheirTopAlone)
{
  EXPECT_EQ(Texts(TwoGears()), Sentences{kTop});
}

TEST(GearingRemarks, AShiftThatEndsBelowThePowerBandFallsOutOfIt)
{
  auto gearing = TwoGears();
  gearing.gears[0].shift->after = 6000;
  EXPECT_EQ(Texts(gearing), Sentences{kTop});
  gearing.gears[0].shift->after = 5999;
  EXPECT_EQ(Texts(gearing),
            (Sentences{"1st to 2nd falls out of the power band, from 8000 to 5999 rpm", kTop}));
  EXPECT_EQ(GearingRemarks(gearing)[0].rule,
            "the best shift ends below 6000 rpm, where 90% of the best horsepower begin");
}

TEST(GearingRemarks, AShiftThatEndsAboveThePowerBandIsToldFromOneThatFallsOut)
{
  auto gearing = TwoGears();
  gearing.power = {5000, 6400};
  EXPECT_EQ(Texts(gearing), Sentences{kTop});
  gearing.power = {5000, 6399};
  EXPECT_EQ(Texts(gearing),
            (Sentences{"1st to 2nd ends above the power band, from 8000 to 6400 rpm", kTop}));
}

TEST(GearingRemarks, AGearThatIsNotBelowTheOneBefore)
{
  auto gearing = TwoGears();
  gearing.gears[0].shift.reset();
  EXPECT_EQ(Texts(gearing), (Sentences{"2nd is not below 1st", kTop}));
}

TEST(GearingRemarks, AGearWithoutRatioSaysNothingElse)
{
  auto gearing = TwoGears();
  gearing.gears[0].shift.reset();
  gearing.gears[1] = {.gear = 2};
  EXPECT_EQ(Texts(gearing), Sentences{"2nd has no ratio"});
}

TEST(GearingRemarks, TopGearSaysWhatItTurnsAtTheLimit)
{
  auto gearing = TwoGears();
  gearing.maximum_speed = 180;
  // 180 mph at 0.0234375 mph a turn
  EXPECT_EQ(Texts(gearing),
            Sentences{"Top gear reaches maximum rpm at 188 mph, the car's limit is about 180"});
  EXPECT_TRUE(GearingRemarks(gearing)[0].rule.ends_with("which is 7680 rpm in that gear"));
}

TEST(GearingRemarks, SpeedsAreMetricWhereTheGearingIs)
{
  auto gearing = TwoGears();
  gearing.metric = true;
  gearing.maximum_speed = 321.8688;
  EXPECT_EQ(Texts(gearing),
            Sentences{"Top gear reaches maximum rpm at 188 km/h, the car's limit is about 322"});
}

TEST(GearingRemarks, WithoutGearsThereIsNothingToSay)
{
  EXPECT_TRUE(GearingRemarks(Gearing{}).empty());
}

}  // namespace
}  // namespace velquist::charts
