// SPDX-License-Identifier: MIT
#include "edit/History.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <string>
#include <utility>

#include "MemoryProgram.h"
#include "edit/Drivetrain.h"
#include "runner/SourceDirectory.h"
#include "setup/SlotTable.h"

namespace velquist::edit {
namespace {

/// All values of a car, one text.
std::string ValuesOf(const CarSetup& car)
{
  std::string text;
  for (const auto& row : car.SetupData().SetupDataValues)
    text += std::to_string(std::bit_cast<std::uint32_t>(row[data::kCurrent])) + " ";
  for (int list = 0; list < 4; ++list) text += std::to_string(car.ListSelection(list)) + " ";
  return text;
}

class HistoryOfEditing : public ::testing::Test {
 protected:
  HistoryOfEditing()
  {
    program_.PutShippedFiles(testing::SourceDirectory() / "assets" / "program");
    program_.Start();
  }

  app::MainWindow& Window() { return program_.Window(); }
  [[nodiscard]] const CarSetup& Car() { return Window().Car(); }
  void Press(int slot, bool repeated = false) { Window().Click("CmdInc", slot, repeated); }
  void Undo() { Window().Click("MnuUndo"); }
  void Redo() { Window().Click("MnuRedo"); }
  [[nodiscard]] std::size_t StepsToUndo()
  {
    std::size_t count = 0;
    while (Car().Steps().UndoStep(count + 1) != nullptr) ++count;
    return count;
  }

  testing::MemoryProgram program_;
};

TEST_F(HistoryOfEditing, UndoesAndRedoesAPressWithItsPartner)
{
  const auto before = ValuesOf(Car());
  Press(16);
  const auto after = ValuesOf(Car());
  ASSERT_NE(after, before);
  Undo();
  EXPECT_EQ(ValuesOf(Car()), before);
  Redo();
  EXPECT_EQ(ValuesOf(Car()), after);
}

TEST_F(HistoryOfEditing, MakesOneStepOfTheRepeatsOfAHeldButton)
{
  const float before = Car().Value(setup::kFuel);
  Press(setup::kFuel);
  Press(setup::kFuel, true);
  Press(setup::kFuel, true);
  EXPECT_EQ(StepsToUndo(), 1U);
  Press(setup::kFuel);
  EXPECT_EQ(StepsToUndo(), 2U);
  Undo();
  Undo();
  EXPECT_EQ(Car().Value(setup::kFuel), before);
  Redo();
  EXPECT_EQ(Car().Value(setup::kFuel), before + 3);
}

TEST_F(HistoryOfEditing, BeginsAStepWithARepeatThatFollowsAnythingElse)
{
  Press(setup::kFuel, true);
  Window().Click("CmdDec", setup::kFuel, true);
  EXPECT_EQ(StepsToUndo(), 2U);
  Undo();
  Press(setup::kFuel, true);
  EXPECT_EQ(StepsToUndo(), 2U);
  Press(setup::kBrakeBias, true);
  EXPECT_EQ(StepsToUndo(), 3U);
}

TEST_F(HistoryOfEditing, HasNoStepForAPressThatMovesNothing)
{
  const float most = Car().SetupData().Value(setup::RowOf(setup::kFuel), data::kMaximum);
  while (Car().Value(setup::kFuel) < most) Press(setup::kFuel);
  const auto steps = StepsToUndo();
  for (std::size_t step = 0; step < steps; ++step) Undo();
  for (std::size_t step = 0; step < steps; ++step) Redo();
  Press(setup::kFuel);
  EXPECT_EQ(StepsToUndo(), steps);
  Press(setup::kFuel, true);
  EXPECT_EQ(StepsToUndo(), steps);
  EXPECT_TRUE(Car().Changed());
}

TEST_F(HistoryOfEditing, KeepsWhatCanBeRedoneWhenAPressMovesNothing)
{
  const float most = Car().SetupData().Value(setup::RowOf(setup::kFuel), data::kMaximum);
  while (Car().Value(setup::kFuel) < most) Press(setup::kFuel);
  Press(setup::kBrakeBias);
  Undo();
  Press(setup::kFuel);
  EXPECT_EQ(Car().RedoText(), "front brake bias");
  Press(setup::kSteeringRatio);
  EXPECT_EQ(Car().RedoText(), "");
}

TEST_F(HistoryOfEditing, KeepsAtLeastTenThousandSteps)
{
  const auto at_start = Car().Value(setup::kFuel);
  for (int press = 0; press < 25'000; ++press)
    Window().Click(press % 2 == 0 ? "CmdInc" : "CmdDec", setup::kFuel);
  Press(setup::kFuel);
  const auto steps = StepsToUndo();
  EXPECT_GE(steps, History::kKept);
  EXPECT_LE(steps, 2 * History::kKept);
  for (std::size_t step = 0; step < steps; ++step) Undo();
  EXPECT_EQ(Car().UndoText(), "");
  EXPECT_EQ(Car().Value(setup::kFuel), at_start);
  EXPECT_TRUE(Car().Changed()) << "the beginning has been forgotten";
  for (std::size_t step = 0; step < steps; ++step) Redo();
  EXPECT_EQ(Car().Value(setup::kFuel), at_start + 1);
}

TEST_F(HistoryOfEditing, TakesListsBackWithTheirPositions)
{
  const auto before = ValuesOf(Car());
  Window().Select("Combo1", kFinalDriveList, 0);
  Window().Select("Combo1", kClutchesList, 0);
  Window().Select("Combo1", kClutchesList, 0);  // is no step
  EXPECT_EQ(StepsToUndo(), 2U);
  EXPECT_EQ(Car().UndoText(), "clutches");
  Undo();
  EXPECT_EQ(Window().Form().Combo1[kClutchesList].selection, Car().ListSelection(kClutchesList));
  EXPECT_EQ(Car().UndoText(), "final drive");
  Undo();
  EXPECT_EQ(ValuesOf(Car()), before);
}

TEST_F(HistoryOfEditing, SaysWhichWheelAStepWasOf)
{
  Window().Check("AsymmetricCheck", -1, true);
  const std::array<std::string, 4> wheels = {"left front", "right front", "left rear",
                                             "right rear"};
  for (const auto& [first, what] : {std::pair(setup::kTirePressure, " tire pressure"),
                                    {setup::kWheelRate, " wheel rate"},
                                    {setup::kBump, " bump"},
                                    {setup::kRebound, " rebound"},
                                    {setup::kCamber, " camber"},
                                    {setup::kBumpRubber, " bump rubber"}}) {
    for (int wheel = 0; wheel < 4; ++wheel) {
      Press(first + wheel);
      EXPECT_EQ(Car().UndoText(), wheels.at(static_cast<std::size_t>(wheel)) + what);
    }
  }
}

TEST_F(HistoryOfEditing, HasNoStepForOptionsUnitsCarAndFormula)
{
  for (const char* const box : {"AsymmetricCheck", "FineCheck", "RollBarConstTotal"})
    Window().Check(box, -1, true);
  Window().Check("OptUnits", 1, true);
  Window().Select("Combo3", -1, 2);
  Window().Select("Combo6", -1, 1);
  EXPECT_EQ(Car().UndoText(), "");
}

TEST_F(HistoryOfEditing, NamesInTheMenuWhatItWouldDo)
{
  const auto& form = Window().Form();
  EXPECT_EQ(form.MnuUndo.text, "Undo");
  EXPECT_FALSE(form.MnuUndo.enabled);
  Press(setup::kWheelRate);
  EXPECT_EQ(form.MnuUndo.text, "Undo left front wheel rate");
  EXPECT_TRUE(form.MnuUndo.enabled);
  EXPECT_FALSE(form.MnuRedo.enabled);
  Undo();
  EXPECT_EQ(form.MnuUndo.text, "Undo");
  EXPECT_EQ(form.MnuRedo.text, "Redo left front wheel rate");
  EXPECT_TRUE(form.MnuRedo.enabled);
  Undo();  // nothing
  EXPECT_EQ(form.MnuRedo.text, "Redo left front wheel rate");
}

// --- the changed flag ---------------------------------------------------------------------------

TEST_F(HistoryOfEditing, ClearsTheFlagAtTheStateLoadedAndSetsItWhenItIsLeft)
{
  Press(setup::kFuel);
  Press(setup::kFuel);
  Undo();
  EXPECT_TRUE(Car().Changed());
  Undo();
  EXPECT_FALSE(Car().Changed());
  Redo();
  EXPECT_TRUE(Car().Changed());
}

TEST_F(HistoryOfEditing, SetsNoFlagForAReversalThatIsRedone)
{
  Window().Check("AsymmetricCheck", -1, true);
  Press(setup::kTirePressure);
  Window().Click("MnuReverse");
  EXPECT_EQ(Car().UndoText(), "reversal of sides");
  Undo();
  EXPECT_TRUE(Car().Changed()) << "the press is still there";
  Undo();
  EXPECT_FALSE(Car().Changed());
  Redo();
  Redo();
  EXPECT_TRUE(Car().Changed());
}

// --- a command that fails -----------------------------------------------------------------------

ValueSet Set(float value)
{
  ValueSet set{.bytes = std::make_shared<setup::Bytes>()};
  set.values[0] = value;
  return set;
}

TEST(History, GoesBackBehindStepsThatTookThePlaceOfUndoneOnes)
{
  History history;
  history.Add("one", true, Set(0), Set(1));
  history.Add("two", true, Set(1), Set(2));
  history.Saved(nullptr, nullptr);
  history.Undo();
  const auto mark = history.Now();
  history.Add("other", true, Set(1), Set(3));
  history.Add("more", true, Set(3), Set(4));
  EXPECT_EQ(history.ToRedo(), nullptr);
  history.GoBack(mark);
  ASSERT_NE(history.ToUndo(), nullptr);
  EXPECT_EQ(history.ToUndo()->name, "one");
  ASSERT_NE(history.ToRedo(), nullptr);
  EXPECT_EQ(history.ToRedo()->name, "two");
  history.Redo();
  EXPECT_TRUE(history.AtSaved());
  EXPECT_EQ(history.ToRedo(), nullptr);
}

TEST(History, GoesBackBehindStepsThatWereUndone)
{
  History history;
  history.Add("one", true, Set(0), Set(1));
  const auto mark = history.Now();
  history.Undo();
  history.GoBack(mark);
  EXPECT_EQ(history.ToUndo()->name, "one");
}

TEST(History, LosesTheSavedStateWithTheStepsThatLedThere)
{
  History history;
  history.Add("one", true, Set(0), Set(1));
  history.Saved(nullptr, nullptr);
  history.Undo();
  history.Add("other", true, Set(0), Set(2));
  EXPECT_FALSE(history.AtSaved());
  history.Undo();
  EXPECT_FALSE(history.AtSaved());
}

TEST(History, PutsWrittenBytesInThePlaceOfTheOldOnesAlone)
{
  const auto old_bytes = std::make_shared<const setup::Bytes>(264);
  const auto imported = std::make_shared<const setup::Bytes>(272);
  const auto written = std::make_shared<const setup::Bytes>(272);
  History history;
  ValueSet before{.bytes = old_bytes};
  history.Add("import", true, before, {.bytes = imported});
  history.Saved(imported, written);
  EXPECT_EQ(history.ToUndo()->whole->before.bytes, old_bytes);
  EXPECT_EQ(history.ToUndo()->whole->after.bytes, written);
}

}  // namespace
}  // namespace velquist::edit
