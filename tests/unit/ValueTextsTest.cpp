// SPDX-License-Identifier: MIT
#include "app/ValueTexts.h"

#include <gtest/gtest.h>

#include <string>

#include "ScriptedEditor.h"
#include "app/FormControlSettings.h"
#include "edit/Drivetrain.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

class ValueTexts : public ::testing::Test {
 protected:
  ValueTexts() { editor_.StartWithGame(); }

  [[nodiscard]] std::string Range(int slot) const { return RangeText(editor_.Window(), slot); }
  [[nodiscard]] std::string Number(int slot) const { return NumberText(editor_.Window(), slot); }
  [[nodiscard]] std::string Tip(int slot) const { return TipText(editor_.Window(), slot); }
  /// The tip without its effect.
  [[nodiscard]] std::string Steps(int slot) const
  {
    const auto tip = Tip(slot);
    return tip.substr(0, tip.find(". "));
  }

  testing::ScriptedEditor editor_;
};

TEST_F(ValueTexts, TipsTellRangeStepWhoGoesAlongAndTheEffect)
{
  EXPECT_EQ(Tip(0), "12 to 40 psi, step 1, both sides. Higher: less grip, quicker response");
  EXPECT_EQ(Tip(5),
            "40 to 300 lbs/in, step 5, both sides. Higher: quicker response, more understeer");
  EXPECT_EQ(Tip(6),
            "40 to 300 lbs/in, step 5, both sides. Higher: quicker response, more oversteer");
  EXPECT_EQ(Tip(8), "1 to 5, step 1, both sides. Higher: stiffer while the wheel moves up");
  EXPECT_EQ(Tip(15), "1 to 5, step 1, both sides. Higher: stiffer while the wheel moves down");
  EXPECT_EQ(Steps(16), "-4 to 2 deg, step 0.25, both sides");
  EXPECT_EQ(Steps(20), "0.25 to 4 in, step 0.25, both sides");
  EXPECT_EQ(Steps(24), "-0.5 to 0.5 in, step 0.025");
  EXPECT_EQ(Tip(26), "0 to 500 lbs/in, step 10. Higher: less roll, more understeer");
  EXPECT_EQ(Tip(27), "0 to 500 lbs/in, step 10. Higher: less roll, more oversteer");
  EXPECT_EQ(Steps(28), "2.5 to 7 in, step 0.25");
  EXPECT_EQ(Steps(30), "1 to 60 gals, step 1");
  EXPECT_EQ(Tip(31), "8 to 25, step 1. Higher: slower and calmer steering");
  EXPECT_EQ(Steps(32), "40 to 70 %, step 1");
  EXPECT_EQ(Tip(43),
            "0.690 to 2.923, step one ratio. Larger: quicker acceleration, less speed in it");
  EXPECT_EQ(Steps(48), "3.100 to 4.750");
  EXPECT_EQ(Steps(49), "30 to 85 deg, step 5");
  EXPECT_EQ(Steps(51), "1 to 5, step 1");
}

TEST_F(ValueTexts, EveryValueAndListHasATipInOneLine)
{
  for (int slot = 0; slot < kSlotControls; ++slot) {
    EXPECT_EQ(Tip(slot).empty(), editor_.Window().Form().ValueOf(slot) == nullptr) << slot;
    EXPECT_EQ(Tip(slot).find('\n'), std::string::npos);
  }
}

TEST_F(ValueTexts, SignsAreThoseOfTheManual)
{
  for (const int slot : {16, 17, 18, 19})
    EXPECT_NE(Tip(slot).find("Negative: the top leans in"), std::string::npos);
  for (const int slot : {24, 25})
    EXPECT_NE(Tip(slot).find("Positive: the wheels point in"), std::string::npos);
  for (int slot = setup::kBump; slot < setup::kCamber; ++slot)
    EXPECT_NE(Tip(slot).find("Higher: stiffer"), std::string::npos);
  for (const int slot : {setup::kCoastAngle, setup::kPowerAngle})
    EXPECT_NE(Tip(slot).find("Smaller: locks more"), std::string::npos);
  EXPECT_NE(Tip(setup::kBrakeBias).find("Higher: the front wheels lock first"), std::string::npos);
}

TEST_F(ValueTexts, TipsFollowUnitsAndFineSteps)
{
  editor_.Play("check FineCheck\n");
  EXPECT_EQ(Steps(0), "12 to 40 psi, step 0.1, both sides");
  EXPECT_EQ(Steps(26), "0 to 500 lbs/in, step 1");
  EXPECT_EQ(Steps(42), "0.690 to 2.923, step one ratio");
  editor_.Play("check OptUnits(1)\n");
  EXPECT_EQ(Steps(0), "82.7 to 275.8 kPa, step 0.689, both sides");
  editor_.Play("uncheck FineCheck\n");
  EXPECT_EQ(Steps(0), "83 to 276 kPa, step 6.89, both sides");
  EXPECT_EQ(Steps(26), "0 to 876 N/cm, step 17.5");
  EXPECT_EQ(Steps(24), "-1.27 to 1.27 cm, step 0.064");
}

TEST_F(ValueTexts, TipsFollowTheModYear)
{
  editor_.Play("select Combo2 \"GT\"\n");
  EXPECT_EQ(Steps(0).substr(0, 12), "16 to 45 psi");
  EXPECT_EQ(Steps(48), "3.000 to 5.429");
  editor_.Play("select Combo2 \"1969\"\n");
  EXPECT_EQ(Tip(33),
            "0 to 16 deg, step 1. Larger: the front grips more in fast corners, slower on the "
            "straight");
}

TEST_F(ValueTexts, TipsFollowTheEditOptions)
{
  editor_.Play("check AsymmetricCheck\n");
  EXPECT_EQ(Steps(0), "12 to 40 psi, step 1");
  editor_.Play("check SpringStiffnessProportional\n");
  EXPECT_EQ(Steps(0), "12 to 40 psi, step 1, both sides");
  EXPECT_EQ(Steps(4), "40 to 300 lbs/in, step 5, all four wheels");
  editor_.Play("check RollBarConstTotal\n");
  const auto total = std::to_string(
      static_cast<int>(editor_.Window().Car().Value(26) + editor_.Window().Car().Value(27)));
  EXPECT_EQ(Steps(26), "0 to " + total + " lbs/in, step 10");
  EXPECT_EQ(MostOfRollBars(editor_.Window()), std::stof(total));
}

TEST_F(ValueTexts, NumbersAreAsAUserWouldTypeThem)
{
  editor_.Play("check OptUnits(1)\ntype Label1(4) \"525\"\n");
  EXPECT_EQ(Number(4), "525");
  EXPECT_EQ(Number(24).find(','), std::string::npos);
  editor_.Play("select Combo2 \"GT\"\ncheck OptUnits(1)\ntype Label1(4) \"1050\"\n");
  EXPECT_EQ(Number(4), "1051");
  EXPECT_EQ(editor_.Window().Form().Label1[4].text, "1,051");
  EXPECT_EQ(ExactText(editor_.Window(), 4), "1,051 N/cm");
}

TEST_F(ValueTexts, NamesBeginASentence)
{
  EXPECT_EQ(ValueName(0), "Left front tire pressure");
  EXPECT_EQ(ValueName(42), "1st gear");
}

}  // namespace
}  // namespace velquist::app
