// SPDX-License-Identifier: MIT
// The table of gears as the program shows it, and the example that the manual gives.
#include "app/GearingTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ScriptedEditor.h"
#include "edit/Display.h"
#include "platform/EmbeddedResources.h"

namespace velquist::testing {
namespace {

class GearingTable : public ::testing::Test {
 protected:
  GearingTable()
  {
    editor_.StartWithGame();
    editor_.Play("select Combo2 \"1966\"");
  }

  [[nodiscard]] app::GearingInput Input() const
  {
    return app::GearingInputOf(editor_.Window().Car(), editor_.Window().State().Units);
  }
  [[nodiscard]] app::GearingView View() const { return app::ViewGearing(Input()); }
  [[nodiscard]] app::GearingRow Row(std::size_t gear) const
  {
    return app::GearingRows(View()).at(gear);
  }

  ScriptedEditor editor_;
};

TEST_F(GearingTable, HasARowForEachGearOfTheCar)
{
  EXPECT_EQ(app::GearingRows(View()).size(), 5U);
  EXPECT_EQ(Row(1), (app::GearingRow{"2nd", "33/18", "1.833", "6.11", "114.4", "24.4", "8354",
                                     "6718", "yes", "yes"}));
  EXPECT_EQ(Row(4),
            (app::GearingRow{"5th", "25/25", "1.000", "3.33", "209.7", "-", "-", "-", "-", "-"}));
  editor_.Play("select Combo3 \"BRM P83-BRM H16 3.0L\"");
  EXPECT_EQ(app::GearingRows(View()).size(), 6U);
}

TEST_F(GearingTable, SpeedsFollowTheUnits)
{
  EXPECT_EQ(app::GearingHeadings(false)[4], "mph at max rpm");
  EXPECT_EQ(app::GearingHeadings(true)[4], "km/h at max rpm");
  editor_.Play("check OptUnits(1)");
  EXPECT_EQ(Row(1)[4], "184.1");
  EXPECT_TRUE(Input().metric);
}

TEST_F(GearingTable, InputIsTheSameUntilSomethingOfTheGearingChanges)
{
  const auto before = Input();
  for (const char* const script : {"click CmdInc(0)", "select Combo1(1) #2", "check FineCheck"}) {
    editor_.Play(script);
    EXPECT_TRUE(Input() == before) << script;
  }
  for (const char* const script : {"click CmdDec(43)", "select Combo1(0) #1", "check OptUnits(1)",
                                   "select Combo3 #1", "select Combo6 \"F2\""}) {
    const auto now = Input();
    editor_.Play(script);
    EXPECT_FALSE(Input() == now) << script;
  }
}

TEST_F(GearingTable, TheReferenceIsThereWhileItsRatiosAreOthers)
{
  EXPECT_FALSE(View().picture.reference);
  editor_.Play("click CmdDec(43)");
  const auto view = View();
  ASSERT_TRUE(view.picture.reference);
  EXPECT_NEAR(view.picture.reference->gears[1].ratio, 1.833, 1e-6);
  EXPECT_NEAR(view.picture.gearing.gears[1].ratio, 1.789, 1e-6);
  editor_.Play("click MnuUndo");
  EXPECT_FALSE(View().picture.reference);
}

TEST_F(GearingTable, TextHasAllCellsAndSentences)
{
  const auto text = app::GearingText(View());
  EXPECT_TRUE(text.starts_with("Gear\tTeeth\tRatio\t")) << text;
  EXPECT_NE(text.find("\n2nd\t33/18\t1.833\t6.11\t114.4\t24.4\t8354\t6718\tyes\tyes\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("\n\nTop gear reaches maximum rpm at 210 mph"), std::string::npos) << text;
  EXPECT_EQ(
      app::GearingHeading(Input()),
      "Brabham BT19-Repco V8 3.0L, final drive 30/9 (3.333). No losses, curves from 1000 rpm.");
}

TEST_F(GearingTable, TheManualsExampleIsRight)
{
  const auto manual = platform::EmbeddedResources().Help();
  const auto says = [&](const std::string& text) {
    EXPECT_NE(manual.find(text), std::string::npos) << text;
  };
  auto view = View();
  const auto band = view.picture.gearing.power;
  auto shift = view.picture.gearing.gears[0].shift.value();
  says("in 1966 the default setup shifts from 1st to 2nd at " + std::to_string(shift.rpm) +
       " rpm, which leaves " + std::to_string(shift.after) + ".");
  says("90% of the horsepower reach from " + std::to_string(band.low) + " to " +
       std::to_string(band.high) + " rpm.");
  EXPECT_TRUE(shift.in_power_band);
  const auto before = Row(1)[1];

  editor_.Play("click CmdDec(43)");
  view = View();
  shift = view.picture.gearing.gears[0].shift.value();
  says("press Minus on 2nd: from " + before + " it goes to " + Row(1)[1] +
       ", the shift moves up to " + std::to_string(shift.rpm) + " rpm but leaves " +
       std::to_string(shift.after) + ", out of the power band.");
  EXPECT_TRUE(view.remarks.front().text.starts_with("1st to 2nd falls out of the power band"));
}

}  // namespace
}  // namespace velquist::testing
