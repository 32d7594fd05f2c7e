// SPDX-License-Identifier: MIT
#include "app/SpokenTexts.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "ScriptedEditor.h"
#include "app/FormControlSettings.h"

namespace velquist::app {
namespace {

class SpokenTexts : public ::testing::Test {
 protected:
  SpokenTexts() { editor_.StartWithGame(); }

  [[nodiscard]] const Control& Shown(const char* name, int index) const
  {
    return *editor_.Window().Form().Find(name, index);
  }
  [[nodiscard]] std::string Spoken(const char* name, int index = -1) const
  {
    return SpokenText(editor_.Window(), *Shown(name, index).design);
  }

  testing::ScriptedEditor editor_;
};

TEST_F(SpokenTexts, StepButtonsTellTheirValueWithItsUnit)
{
  const auto value = [&](int slot) { return Shown("Label1", slot).text; };
  for (const auto& [units, pressure, rate, length, fuel] :
       {std::tuple(0, " psi", " lbs/in", " in", " gals"),
        std::tuple(1, " kPa", " N/cm", " cm", " ltrs")}) {
    editor_.Play("check OptUnits(" + std::to_string(units) + ")\n");
    for (const char* const button : {"CmdInc", "CmdDec"}) {
      for (const int slot : {0, 1, 2, 3}) EXPECT_EQ(Spoken(button, slot), value(slot) + pressure);
      for (const int slot : {4, 7, 26, 27}) EXPECT_EQ(Spoken(button, slot), value(slot) + rate);
      for (const int slot : {20, 23, 24, 25, 28, 29})
        EXPECT_EQ(Spoken(button, slot), value(slot) + length);
      for (const int slot : {8, 15, 31}) EXPECT_EQ(Spoken(button, slot), value(slot));
      for (const int slot : {16, 19}) EXPECT_EQ(Spoken(button, slot), value(slot) + " deg");
      EXPECT_EQ(Spoken(button, 30), value(30) + fuel);
      EXPECT_EQ(Spoken(button, 32), value(32) + " %");
    }
  }
}

TEST_F(SpokenTexts, AMissingWingHasNoUnit)
{
  ASSERT_EQ(Shown("Label1", 33).text, "None");
  EXPECT_EQ(Spoken("CmdInc", 33), "None");
  editor_.Play("select Combo2 \"1969\"\n");
  EXPECT_EQ(Spoken("CmdInc", 33), Shown("Label1", 33).text + " deg");
}

TEST_F(SpokenTexts, GearsTellTheOverallRatioBesideThem)
{
  const auto& overall = Shown("Label2", 43).text;
  EXPECT_NE(overall, "");
  EXPECT_EQ(Spoken("CmdInc", 43), Shown("Label1", 43).text + ", overall ratio " + overall);
}

TEST_F(SpokenTexts, RampAnglesTellTheLockingPercentBesideThem)
{
  for (const int position : {0, 1}) {
    editor_.Play("select Combo1(1) #" + std::to_string(position) + "\nselect Combo1(2) #0\n");
    EXPECT_NE(Shown("Label2", 50).text, "");
    EXPECT_EQ(Spoken("Combo1", 1),
              "Ramp angle under power, degrees, locking percent " + Shown("Label2", 50).text);
    EXPECT_EQ(Spoken("Combo1", 2),
              "Ramp angle off the throttle, degrees, locking percent " + Shown("Label2", 49).text);
  }
  EXPECT_EQ(Spoken("Combo1", 0), "");
  EXPECT_EQ(Spoken("Combo1", 3), "");
}

TEST_F(SpokenTexts, ValuesTellWhatTheyAre)
{
  EXPECT_EQ(Spoken("Label1", 0), "left front tire pressure, psi");
  EXPECT_EQ(Spoken("Label1", 44), "3rd gear");
  EXPECT_EQ(Spoken("Label2", 44), "3rd gear, overall ratio");
  EXPECT_EQ(Spoken("Label2", 50), "power angle, locking percent");
}

TEST_F(SpokenTexts, ChartsTellTheFiguresOfTheCarThatIsShown)
{
  const auto engine = Spoken("PictureChart");
  const auto bands = Spoken("PictureChart2");
  EXPECT_NE(engine.find(" horsepower, "), std::string::npos) << engine;
  EXPECT_TRUE(bands.starts_with("1st gear, Torque ")) << bands;
  editor_.Play("check OptUnits(1)\n");
  EXPECT_NE(Spoken("PictureChart2").find("KPH"), std::string::npos);
  editor_.Play("select Combo3 #1\n");
  EXPECT_NE(Spoken("PictureChart"), engine);
}

}  // namespace
}  // namespace velquist::app
