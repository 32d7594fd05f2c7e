// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "MemoryFiles.h"
#include "edit/CarSetup.h"
#include "platform/Errors.h"
#include "platform/HostFileSystem.h"
#include "runner/SourceDirectory.h"
#include "setup/SlotTable.h"

namespace velquist::edit {
namespace {

using velquist::testing::MemoryFiles;

constexpr std::string_view kDirectory = "C:\\Velquist";

/// A car with the default setup of 1967 and shipped tables or, in their place, those of a test.
class SteppingTo : public ::testing::Test {
 protected:
  SteppingTo()
  {
    const platform::HostFileSystem disk;
    const auto shipped = velquist::testing::SourceDirectory() / "assets" / "program";
    for (const auto* name : {"67 Setup Data.ini", "67 Gear Data.ini", "67 Velquist Default.vqset"})
      files_.Put(InProgram(name), disk.ReadWhole((shipped / name).string()));
    Load();
  }
  static std::string InProgram(const std::string& name)
  {
    return std::string(kDirectory) + "\\" + name;
  }
  void Load()
  {
    EXPECT_EQ(car_.ReadDataFiles(files_, kDirectory), std::nullopt);
    EXPECT_TRUE(car_.ReadFile(files_, InProgram("67 Velquist Default.vqset")));
    car_.LoadValues();
    car_.LoadLists();
    car_.StartEditing();
  }
  /// Puts one line in the place of all of the setup data file.
  void LoadWithLimits(const std::string& limits)
  {
    std::string lines;
    for (std::size_t row = 0; row < data::kSetupRows; ++row) lines += limits + "\r\n";
    files_.Put(InProgram("67 Setup Data.ini"), lines);
    (void)car_.ReadDataFiles(files_, kDirectory);
    car_.StartEditing();
  }
  [[nodiscard]] float FineStep(int slot) const
  {
    EditOptions fine;
    fine.fine = true;
    return StepOf(car_.SetupData(), slot, fine);
  }

  MemoryFiles files_;
  CarSetup car_;
};

std::vector<int> SlotsWithButtons()
{
  std::vector<int> slots;
  for (int slot = 0; slot < setup::kFrontWing; ++slot) slots.push_back(slot);
  for (int slot = setup::kFirstGear; slot < setup::kFinalDrive; ++slot) slots.push_back(slot);
  return slots;
}

TEST_F(SteppingTo, ReachesEveryFineStepOfEverySlotAsOneStepOfTheHistory)
{
  for (const int slot : SlotsWithButtons()) {
    const auto range = RangeOf(car_.SetupData(), slot, {});
    const double step = FineStep(slot);
    const float before = car_.Value(slot);
    for (const double part : {0.0, 0.1, 0.35, 0.5, 0.77, 1.0}) {
      const double target =
          range.minimum + step * std::nearbyint((range.maximum - range.minimum) * part / step);
      (void)car_.StepTo(slot, target);
      EXPECT_NEAR(car_.Value(slot), target, 0.001) << slot;
      const bool moved = car_.Value(slot) != before;
      EXPECT_EQ(car_.Undo(), moved);
      EXPECT_EQ(car_.Value(slot), before);
      EXPECT_EQ(car_.UndoText(), "") << slot;
      EXPECT_FALSE(car_.Changed());
    }
  }
}

TEST_F(SteppingTo, IsWhatThePressesThemselvesComeTo)
{
  (void)car_.StepTo(setup::kTirePressure, 23.5);
  const float typed = car_.Value(setup::kTirePressure);
  EXPECT_TRUE(car_.Undo());
  (void)car_.Step(setup::kTirePressure, Direction::kIncrease, false);
  car_.SetFine(true);
  for (int press = 0; press < 5; ++press)
    (void)car_.Step(setup::kTirePressure, Direction::kIncrease, false);
  EXPECT_EQ(car_.Value(setup::kTirePressure), typed);
  EXPECT_EQ(car_.Value(setup::kTirePressure + 1), typed);
}

TEST_F(SteppingTo, LeavesTheOptionsAsTheyAre)
{
  for (const bool fine : {false, true}) {
    car_.SetFine(fine);
    (void)car_.StepTo(setup::kTirePressure, fine ? 30 : 20.5);
    EXPECT_EQ(car_.Options().fine, fine);
  }
}

TEST_F(SteppingTo, TellsWhatIsToBeShownAgain)
{
  const auto shown = car_.StepTo(setup::kTirePressure + 1, 39);
  EXPECT_EQ(std::vector<int>(shown.begin(), shown.end()), (std::vector{1, 0}));
  EXPECT_TRUE(car_.StepTo(setup::kTirePressure + 1, 39).empty());
}

TEST_F(SteppingTo, StopsAtTheLimitAndWhereNoStepLeadsNearer)
{
  (void)car_.StepTo(setup::kBump, 99);
  EXPECT_EQ(car_.Value(setup::kBump), 5);
  (void)car_.StepTo(setup::kBump, -99);
  EXPECT_EQ(car_.Value(setup::kBump), 1);
  (void)car_.StepTo(setup::kBump, 2.4);
  EXPECT_EQ(car_.Value(setup::kBump), 2);
  car_.StartEditing();
  (void)car_.StepTo(setup::kBump, 2.5);
  (void)car_.StepTo(setup::kBump, std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(car_.Value(setup::kBump), 2);
  EXPECT_FALSE(car_.Changed());
}

TEST_F(SteppingTo, EndsWhateverStepsADataFileHas)
{
  for (const auto* const limits : {"x,0,0,1000,0,0", "x,0,0,1000,-1,-1", "x,0,0,1000,1e-9,1e-9",
                                   "x,0,0,1000,0.001,0.001", "x,0,0,1000,nan,nan", "x,0,0,0,0,0"}) {
    LoadWithLimits(limits);
    (void)car_.StepTo(setup::kFuel, 1000);
    EXPECT_LE(car_.Value(setup::kFuel), 1000) << limits;
    EXPECT_GE(car_.Value(setup::kFuel), 0) << limits;
  }
}

TEST_F(SteppingTo, AGearBeyondTheTableLeavesEverything)
{
  LoadWithLimits("x,0,0,200,7,7");
  (void)car_.StepTo(setup::kFirstGear, 21);
  ASSERT_EQ(car_.Value(setup::kFirstGear), 21);
  EXPECT_THROW((void)car_.StepTo(setup::kFirstGear, 140), BoundsError);
  EXPECT_EQ(car_.Value(setup::kFirstGear), 21);
  EXPECT_TRUE(car_.Undo());
  EXPECT_EQ(car_.Value(setup::kFirstGear), 0);
}

TEST_F(SteppingTo, ConstantRollBarsKeepTheTotalAndItIsTheirRange)
{
  const float front = car_.Value(setup::kRollBar);
  const float rear = car_.Value(setup::kRollBar + 1);
  EXPECT_EQ(RangeOf(car_.SetupData(), setup::kRollBar, car_.Options()).maximum, 500);
  car_.SetConstantRollBars(true);
  EXPECT_EQ(RangeOf(car_.SetupData(), setup::kRollBar, car_.Options()).maximum, front + rear);
  EXPECT_EQ(RangeOf(car_.SetupData(), setup::kTirePressure, car_.Options()).maximum, 40);
  (void)car_.StepTo(setup::kRollBar + 1, front + rear);
  EXPECT_EQ(car_.Value(setup::kRollBar), 0);
  EXPECT_EQ(car_.Value(setup::kRollBar + 1), front + rear);
}

}  // namespace
}  // namespace velquist::edit
