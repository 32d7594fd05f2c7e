// SPDX-License-Identifier: MIT
#include "edit/Reference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ScriptedEditor.h"
#include "edit/CarSetup.h"
#include "edit/Display.h"
#include "runner/Texts.h"

namespace velquist::edit {
namespace {

/// A game with 1967, 1965 and 1969, in which mine.bb1 of 1967 is open.
class ComparedSetup : public ::testing::Test {
 protected:
  ComparedSetup()
  {
    editor_.Play(R"(dir $G/Players/Jim/Setups/monza
file $G/gpl_ai.ini text ""
file $G/gpla65.ini text ""
file $G/gpla69.ini text ""
file "$P/Velquist Program Settings.ini" text \
  "\"$G\"\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n\"$G\"\r\n"
setup $G/Players/Jim/Setups/monza/mine.bb1 short 0=20 1=20 4=90 8=2 35=2.692 42=70 48=80 49=47 \
  50=60 51=3
start
on open -> $G/Players/Jim/Setups/monza/mine.bb1
on FrmModYear2 -> 1967
click MnuOpen
)");
  }

  [[nodiscard]] const CarSetup& Car() const { return editor_.Window().Car(); }
  [[nodiscard]] std::vector<int> Differing() const
  {
    std::vector<int> slots;
    for (const auto& difference : Differences(Car().ComparedWith(), Car()))
      slots.push_back(difference.slot);
    return slots;
  }
  [[nodiscard]] std::string TextOf(const char* name, int index) const
  {
    return editor_.Window().DifferenceText(*editor_.Window().Form().Find(name, index)->design);
  }
  /// Compares with another file of `year`.
  void CompareWith(const std::string& setup, const char* year)
  {
    editor_.Play("setup $T/" + setup + "\non open -> $T/" + setup.substr(0, setup.find(' ')) +
                 "\n" + (year == nullptr ? "" : "on FrmModYear2 -> " + std::string(year) + "\n") +
                 "click MnuReferenceFile\nexpect MnuReferenceFile checked\n");
  }

  testing::ScriptedEditor editor_;
};

using Slots = std::vector<int>;

TEST_F(ComparedSetup, DiffersInNothingOnceItIsLoaded)
{
  EXPECT_EQ(Differing(), Slots());
  EXPECT_EQ(TextOf("Label1", 4), "");
}

TEST_F(ComparedSetup, ComparesAnglesByTheItemsThatAreSelected)
{
  // The file's coast angle of 47 is shown as 45.
  editor_.Play("select Combo1(2) \" 50\"\n");
  ASSERT_EQ(Differing(), Slots{setup::kCoastAngle});
  EXPECT_EQ(Differences(Car().ComparedWith(), Car()).front().reference, 45);
  EXPECT_EQ(TextOf("Combo1", 2), "was 45, now 50 (+5)");
  editor_.Play("select Combo1(2) \" 45\"\nexpect slot 49 = 47\n");
  EXPECT_EQ(Differing(), Slots());
}

TEST_F(ComparedSetup, LeavesOutRatioNumbersAndTheWingsOfACarWithoutThem)
{
  CompareWith("wings.bb1 long 0=20 1=20 4=90 8=2 33=5 34=6 35=2.6 42=70 48=80 49=45 50=60 51=3",
              nullptr);
  EXPECT_EQ(std::ranges::count(Differing(), setup::kFrontWing), 0);
  EXPECT_EQ(std::ranges::count(Differing(), setup::kFirstRatio), 0);
}

TEST_F(ComparedSetup, SaysWhatWasAndWhatIsInTheUnitsAndDecimalsShown)
{
  editor_.Play("click CmdInc(4)\nclick CmdInc(4)\n");
  const int now = static_cast<int>(Car().Value(4));
  EXPECT_EQ(TextOf("Label1", 4),
            "was 90, now " + std::to_string(now) + " (+" + std::to_string(now - 90) + ")");
  editor_.Play("check OptUnits(1)\n");
  const auto was = DisplayText(4, 90, kMetric, 0);
  EXPECT_TRUE(TextOf("Label1", 4).starts_with("was " + was + ", now ")) << TextOf("Label1", 4);
  editor_.Play("check OptUnits(0)\nclick MnuUndo\nclick MnuUndo\nclick CmdDec(24)\n");
  EXPECT_EQ(TextOf("Label1", 24).substr(0, 10), "was 0.000,");
  EXPECT_NE(TextOf("Label1", 24).find(" (-0."), std::string::npos) << TextOf("Label1", 24);
}

TEST_F(ComparedSetup, NamesGearsByTeethAndRatio)
{
  editor_.Play("click CmdDec(42)\n");
  const auto& gears = Car().Gears();
  EXPECT_EQ(TextOf("Label1", 42), "was 35/13 (2.692), now " + gears.DisplayText(69) + " (" +
                                      FormatNumber(static_cast<double>(gears.Ratio(69)), 3) + ")");
}

TEST_F(ComparedSetup, ComparesGearsOfAnotherTableByTheirRatios)
{
  // The tables of 1967 and 1965 have the ratio of 35/13 in different rows.
  CompareWith("other.bb1 short 0=20 1=20 4=90 8=2 35=2.692 42=70 48=80 49=45 50=60 51=3", "1965");
  const auto& reference = Car().ComparedWith();
  ASSERT_NE(reference.gears.get(), &Car().Gears());
  EXPECT_EQ(reference.values[setup::kFirstGear], 66);
  EXPECT_FALSE(Car().Differs(setup::kFirstGear));
  for (int slot = setup::kFirstGear; slot <= setup::kFinalDrive; ++slot) {
    const auto was =
        reference.gears->Ratio(static_cast<int>(reference.values[static_cast<std::size_t>(slot)]));
    const auto is = Car().Gears().Ratio(static_cast<int>(ValueInFile(Car(), slot)));
    EXPECT_EQ(Car().Differs(slot), was != is) << slot;
  }
}

TEST_F(ComparedSetup, HasADashForWhatTheOtherCarDoesNotHave)
{
  editor_.Play("select Combo2 \"1969\"\n");
  CompareWith("other.bb1 short 0=20 48=80 49=45 50=60 51=3", "1967");
  EXPECT_TRUE(Car().Differs(setup::kFrontWing));
  const auto now = CurrentText(Car(), setup::kFrontWing, kEnglish);
  EXPECT_EQ(TextOf("Label1", setup::kFrontWing), "was -, now " + now);
}

TEST_F(ComparedSetup, IsComparedAnewWhenAnotherIsTheReference)
{
  CompareWith("other.bb1 short 0=21 1=20 4=90 8=2 35=2.692 42=70 48=80 49=45 50=60 51=2", "1967");
  EXPECT_EQ(Differing(), (Slots{0, setup::kClutches}));
  editor_.Play("click MnuReferenceLoaded\n");
  EXPECT_EQ(Differing(), Slots());
}

TEST_F(ComparedSetup, TakesTheReferencesValuesAsOneStep)
{
  CompareWith("other.bb1 short 0=21 1=20 4=95 8=2 35=2.0625 42=56 48=82 49=55 50=60 51=2", "1967");
  CarSetup car;
  {
    auto snapshot = Car().Snapshot();
    snapshot.history = std::make_shared<History>();
    snapshot.mark = {};
    car.Restore(std::move(snapshot));
  }
  const auto before = Differences(car.ComparedWith(), car);
  ASSERT_EQ(before.size(), 6U);
  car.TakeFromReference(Slots{0, setup::kClutches});
  EXPECT_EQ(car.UndoText(), "values of the reference");
  EXPECT_TRUE(car.Changed());
  EXPECT_EQ(car.Value(0), 21);
  EXPECT_EQ(Differences(car.ComparedWith(), car).size(), 4U);
  Slots all(setup::kSlots);
  for (int slot = 0; slot < setup::kSlots; ++slot) all[static_cast<std::size_t>(slot)] = slot;
  car.TakeFromReference(all);
  EXPECT_TRUE(Differences(car.ComparedWith(), car).empty());
  EXPECT_EQ(car.Value(setup::kFrontWing), -1);
  EXPECT_TRUE(car.Undo());
  EXPECT_TRUE(car.Undo());
  EXPECT_EQ(Differences(car.ComparedWith(), car).size(), 6U);
  EXPECT_FALSE(car.Changed());
}

TEST_F(ComparedSetup, IsDumpedWithItsHistory)
{
  editor_.Play(R"(dump reference
click CmdInc(4)
click CmdInc(30)
click MnuUndo
dump reference
dump history
click MnuReferenceDefault
)");
  EXPECT_EQ(editor_.Output(), "reference loaded\nreference loaded\ndiffers 4 42b40000 " +
                                  runner::Hex8(Car().Value(4)) + "\ndiffers 5 00000000 " +
                                  runner::Hex8(Car().Value(5)) +
                                  "\nundo 1 \"left front wheel rate\"\nredo 1 \"fuel level\"\n");
}

}  // namespace
}  // namespace velquist::edit
