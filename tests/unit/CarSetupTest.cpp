// SPDX-License-Identifier: MIT
#include "edit/CarSetup.h"

#include <gtest/gtest.h>

#include <string>

#include "MemoryFiles.h"
#include "edit/Drivetrain.h"
#include "platform/Errors.h"
#include "platform/HostFileSystem.h"
#include "runner/SourceDirectory.h"
#include "setup/SlotTable.h"

namespace velquist::edit {
namespace {

using velquist::testing::MemoryFiles;

constexpr std::string_view kProgram = "C:\\Velquist";

/// A car with the shipped tables and default setup of 1967 loaded.
class CarSetupTest : public ::testing::Test {
 protected:
  CarSetupTest()
  {
    const platform::HostFileSystem disk;
    const auto shipped = velquist::testing::SourceDirectory() / "assets" / "program";
    for (const auto* name : {"67 Setup Data.ini", "67 Gear Data.ini", "67 Velquist Default.vqset"})
      files_.Put(InProgram(name), disk.ReadWhole((shipped / name).string()));
    EXPECT_EQ(car_.ReadDataFiles(files_, kProgram), std::nullopt);
    EXPECT_TRUE(car_.ReadFile(files_, InProgram("67 Velquist Default.vqset")));
    car_.LoadValues();
    car_.LoadLists();
    car_.StartEditing();
  }
  static std::string InProgram(const std::string& name)
  {
    return std::string(kProgram) + "\\" + name;
  }

  MemoryFiles files_;
  CarSetup car_;
};

TEST_F(CarSetupTest, GoesBackToASnapshotOfEverything)
{
  const auto before = car_.Snapshot();
  const float pressure = car_.Value(0);
  files_.Put("C:\\refused.lo1", "no setup");
  EXPECT_FALSE(car_.ReadFile(files_, "C:\\refused.lo1"));
  (void)car_.Step(0, Direction::kIncrease, false);
  car_.ChooseInList(kClutchesList, 0);
  car_.SetProportionalSprings(true);
  car_.SetChassis(3);
  car_.SetFormula(2);
  car_.SetFileName("other");
  ASSERT_NE(car_.Value(0), pressure);
  car_.Restore(before);
  EXPECT_EQ(car_.Value(0), pressure);
  EXPECT_EQ(car_.SetupBuffer().size(), 264U);
  EXPECT_EQ(car_.ListSelection(kClutchesList), before.lists[kClutchesList]);
  EXPECT_FALSE(car_.Options().proportional_springs);
  EXPECT_EQ(car_.ChassisIndex(), 0);
  EXPECT_EQ(car_.FormulaIndex(), 0);
  EXPECT_EQ(car_.FileName(), "");
  EXPECT_FALSE(car_.Changed());
}

TEST_F(CarSetupTest, GoesBackToTheTablesOfASnapshot)
{
  const auto before = car_.Snapshot();
  const auto text = car_.Gears().DisplayText(0);
  files_.Put(InProgram("67 Gear Data.ini"), "x,1/1,1.0\r\n");
  files_.Put(InProgram("67 Setup Data.ini"), "short,1,2,3,4,5\r\n");
  EXPECT_EQ(car_.ReadDataFiles(files_, kProgram), std::nullopt);
  EXPECT_THROW((void)car_.Value(0), BoundsError);
  EXPECT_EQ(car_.Gears().DisplayText(0), "1/1");
  car_.Restore(before);
  EXPECT_EQ(car_.Gears().DisplayText(0), text);
  EXPECT_EQ(car_.Value(0), before.values[setup::RowOf(0)]);
}

TEST_F(CarSetupTest, SharesALargeRefusedFileWithItsSnapshots)
{
  files_.Put("C:\\large.lo1", std::string(std::size_t{16} << 20U, 'x'));
  EXPECT_FALSE(car_.ReadFile(files_, "C:\\large.lo1"));
  EXPECT_EQ(car_.Snapshot().SetupBuffer->data(), car_.SetupBuffer().data());
}

TEST_F(CarSetupTest, WritesTheValuesInTheBytesOfTheSetupBeingEdited)
{
  files_.Put("C:\\refused.lo1", "no setup");
  EXPECT_FALSE(car_.ReadFile(files_, "C:\\refused.lo1"));
  (void)car_.Step(0, Direction::kIncrease, false);
  car_.WriteFile(files_, "C:\\mine.lo1", std::nullopt);
  const auto written = files_.ReadWhole("C:\\mine.lo1");
  ASSERT_EQ(written.size(), 264U);
  EXPECT_TRUE(setup::HasMagic(written));
  EXPECT_EQ(setup::ReadSingleAt(written, 92), car_.Value(0));
  EXPECT_EQ(car_.SetupBuffer(), written);
  EXPECT_FALSE(car_.Changed());
}

TEST_F(CarSetupTest, AFailedWriteLeavesEverything)
{
  class FullDisk final : public platform::FileSystem {
   public:
    [[nodiscard]] bool Exists(std::string_view /*path*/) const override { return false; }
    [[nodiscard]] std::vector<std::byte> ReadWhole(std::string_view /*path*/) const override
    {
      return {};
    }
    void WriteOver(std::string_view path, std::span<const std::byte> /*bytes*/) override
    {
      throw FileError(std::string(path), "full");
    }
    void WriteText(std::string_view path, std::string_view /*text*/) override
    {
      throw FileError(std::string(path), "full");
    }
    [[nodiscard]] std::vector<std::string> ListSubdirectories(std::string_view /*directory*/,
                                                              std::size_t /*most*/) const override
    {
      return {};
    }
    [[nodiscard]] std::optional<platform::FileStamp> Stamp(std::string_view /*path*/) const override
    {
      return std::nullopt;
    }
    [[nodiscard]] std::optional<std::string> NameOnDisk(std::string_view /*path*/) const override
    {
      return std::nullopt;
    }
    [[nodiscard]] std::string HostText(std::string_view path) const override
    {
      return std::string(path);
    }
  } full;
  car_.ChooseInList(kClutchesList, 0);
  const auto bytes = car_.SetupBuffer();
  const float clutches = car_.Value(setup::kClutches);
  EXPECT_THROW(car_.WriteFile(full, "C:\\mine.lo1", setup::Layout::kLong), FileError);
  EXPECT_EQ(car_.SetupBuffer(), bytes);
  EXPECT_EQ(car_.Value(setup::kClutches), clutches);
  EXPECT_TRUE(car_.Changed());
}

TEST_F(CarSetupTest, WritingTakesTheListsIntoTheCurrentValues)
{
  car_.ChooseInList(kClutchesList, 0);
  car_.ChooseInList(kPowerAngleList, 1);
  EXPECT_NE(car_.Value(setup::kClutches), 1);
  EXPECT_EQ(car_.ValuesToWrite().Value(setup::RowOf(setup::kClutches), data::kCurrent), 1);
  car_.WriteFile(files_, "C:\\mine.lo1", std::nullopt);
  EXPECT_EQ(car_.Value(setup::kClutches), 1);
  EXPECT_EQ(car_.Value(setup::kPowerAngle), 35);
}

TEST_F(CarSetupTest, APositionOutsideAListChangesNothing)
{
  const auto before = car_.Snapshot();
  for (int list = 0; list < kDrivetrainLists; ++list)
    for (const int position : {-1, 1000})
      EXPECT_THROW(car_.ChooseInList(list, position), BoundsError) << list;
  EXPECT_EQ(car_.Snapshot().lists, before.lists);
  EXPECT_EQ(car_.Snapshot().values, before.values);
  EXPECT_FALSE(car_.Changed());
}

TEST_F(CarSetupTest, KnowsWhenAGearHasNoRatio)
{
  EXPECT_TRUE(car_.HasEveryRatio());
  files_.Put(InProgram("67 Gear Data.ini"), "");
  CarSetup cut;
  EXPECT_EQ(cut.ReadDataFiles(files_, kProgram), std::nullopt);
  EXPECT_FALSE(cut.HasEveryRatio());
}

}  // namespace
}  // namespace velquist::edit
