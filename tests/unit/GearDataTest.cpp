// SPDX-License-Identifier: MIT
#include "data/GearData.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "MemoryFiles.h"
#include "SetupSamples.h"
#include "platform/Errors.h"
#include "platform/HostFileSystem.h"
#include "runner/SourceDirectory.h"

namespace velquist::data {
namespace {

using namespace velquist::samples;
using velquist::testing::MemoryFiles;

constexpr std::string_view kPath = "C:\\Velquist\\67 Gear Data.ini";

void ReadInto(GearData& gears, std::string_view text)
{
  MemoryFiles files;
  files.Put(kPath, text);
  EXPECT_TRUE(ReadGearData(files, "C:\\Velquist", k1967, gears));
}

GearData Read(std::string_view text)
{
  GearData gears;
  ReadInto(gears, text);
  return gears;
}

/// `count` lines "rowR<tag>,textR<tag>,R.5".
std::string Lines(int count, const std::string& tag)
{
  std::string text;
  for (int row = 0; row < count; ++row) {
    const auto number = std::to_string(row);
    text += "row" + number + tag + ",text" + number + tag + "," + number + ".5\r\n";
  }
  return text;
}

TEST(GearDataFileName, IsSharedByAllYearsBut1967)
{
  EXPECT_EQ(GearDataFileName(k1967), "67 Gear Data.ini");
  for (const auto year : {k1965, k1966, k1969, kGT}) {
    EXPECT_EQ(GearDataFileName(year), "65 Gear Data.ini") << ModYearText(year);
  }
  for (const int number : {-32768, -1, 5, 32767})
    EXPECT_EQ(GearDataFileName(static_cast<ModYear>(number)), "") << number;
}

TEST(ReadGearData, TakesTheFileOfTheModYearFromTheProgramDirectory)
{
  MemoryFiles files;
  files.Put("D:\\p\\67 Gear Data.ini", "67,31/9,3.444\r\n");
  files.Put("D:\\p\\65 Gear Data.ini", "65,31/8,3.875\r\n");
  for (const auto year : kModYears) {
    GearData gears;
    ASSERT_TRUE(ReadGearData(files, "D:\\p", year, gears)) << ModYearText(year);
    EXPECT_EQ(gears.Text(0, 0), year == k1967 ? "67" : "65");
    EXPECT_EQ(gears.DisplayText(0), year == k1967 ? "31/9" : "31/8");
    EXPECT_EQ(gears.Text(0, 2), year == k1967 ? "3.444" : "3.875");
    EXPECT_EQ(gears.Ratio(0), year == k1967 ? 3.444F : 3.875F);
  }
}

TEST(ReadGearData, BeforeTheFirstReadEveryRowIsEmpty)
{
  const GearData gears;
  for (int row = 0; row < 90; ++row) {
    for (int field = 0; field < 3; ++field) EXPECT_EQ(gears.Text(row, field), "");
    EXPECT_EQ(gears.Ratio(row), 0.0F);
  }
}

TEST(ReadGearData, FillsNinetyRows)
{
  const auto gears = Read(Lines(90, ""));
  for (int row = 0; row < 90; ++row) {
    EXPECT_EQ(gears.Text(row, 0), "row" + std::to_string(row));
    EXPECT_EQ(gears.DisplayText(row), "text" + std::to_string(row));
    EXPECT_EQ(gears.Ratio(row), static_cast<float>(row) + 0.5F);
  }
}

TEST(ReadGearData, LeavesRowsThatAShorterFileDoesNotHave)
{
  auto gears = Read(Lines(90, "old"));
  ReadInto(gears, Lines(60, "new"));
  for (int row = 0; row < 90; ++row) {
    const std::string tag = row < 60 ? "new" : "old";
    EXPECT_EQ(gears.DisplayText(row), "text" + std::to_string(row) + tag);
    EXPECT_EQ(gears.Ratio(row), static_cast<float>(row) + 0.5F);
  }
  ReadInto(gears, "");
  EXPECT_EQ(gears.DisplayText(0), "text0new") << "an empty file has no row to overwrite";
}

TEST(ReadGearData, StopsBehindTheNinetiethLine)
{
  for (const int lines : {91, 92, 500}) {
    const auto gears = Read(Lines(lines, ""));
    EXPECT_EQ(gears.DisplayText(0), "text0") << lines;
    EXPECT_EQ(gears.DisplayText(89), "text89") << lines;
    EXPECT_THROW((void)gears.DisplayText(90), BoundsError);
  }
}

TEST(ReadGearData, RepeatsTheLastFieldAndIgnoresFurtherOnes)
{
  const auto gears = Read("31/9\r\na,32/9\r\nb,33/9,3.667,4,5\r\n\r\nc,,\r\n");
  for (int field = 0; field < 3; ++field) EXPECT_EQ(gears.Text(0, field), "31/9");
  EXPECT_EQ(gears.Ratio(0), 31.0F);
  EXPECT_EQ(gears.Text(1, 2), "32/9");
  EXPECT_EQ(gears.Ratio(1), 32.0F);
  EXPECT_EQ(gears.Text(2, 2), "3.667");
  EXPECT_EQ(gears.Text(3, 1), "");
  EXPECT_EQ(gears.Ratio(3), 0.0F);
  EXPECT_EQ(gears.Text(4, 0), "c");
  EXPECT_EQ(gears.Ratio(4), 0.0F);
}

TEST(ReadGearData, KeepsTextUntrimmedAndReadsTheLeadingNumberAsASingle)
{
  const auto gears = Read("a, 31/9 , 3.444 to 1\r\nb,x,none\r\nc,x,1e39\r\nd,x,-2.5");
  EXPECT_EQ(gears.DisplayText(0), " 31/9 ");
  EXPECT_EQ(gears.Text(0, 2), " 3.444 to 1");
  EXPECT_EQ(gears.Ratio(0), 3.444F);
  EXPECT_EQ(gears.Ratio(1), 0.0F);
  EXPECT_EQ(gears.Ratio(2), std::numeric_limits<float>::infinity());
  EXPECT_EQ(gears.Ratio(3), -2.5F);
}

TEST(ReadGearData, TakesEveryKindOfLineEnd)
{
  for (const auto* text : {"a,b,1\r\nc,d,2\r\n", "a,b,1\nc,d,2", "a,b,1\rc,d,2"}) {
    const auto gears = Read(text);
    EXPECT_EQ(gears.Ratio(0), 1.0F);
    EXPECT_EQ(gears.Ratio(1), 2.0F);
    EXPECT_EQ(gears.DisplayText(1), "d");
    EXPECT_EQ(gears.DisplayText(2), "");
  }
}

TEST(ReadGearData, IsFalseAndChangesNothingWithoutAFile)
{
  const MemoryFiles files;
  auto gears = SampleGears();
  for (const auto year : {k1967, kGT, ModYear{-1}, ModYear{5}}) {
    EXPECT_FALSE(ReadGearData(files, "C:\\Velquist", year, gears)) << ModYearText(year);
  }
  EXPECT_EQ(gears.DisplayText(7), "7");
}

TEST(ReadGearData, TakesAFileThatCannotBeReadForAMissingOneAndKeepsTheTable)
{
  MemoryFiles files;
  files.MakeUnreadable(kPath);
  auto gears = SampleGears();
  EXPECT_FALSE(ReadGearData(files, "C:\\Velquist", k1967, gears));
  for (int row = 0; row < 90; ++row) EXPECT_EQ(gears.DisplayText(row), std::to_string(row));
}

TEST(ReadGearData, ReadsAnyBytesWithoutFailing)
{
  std::mt19937 random(90);
  for (int i = 0; i < 2000; ++i) {
    std::string text;
    for (auto n = random() % 400; n > 0; --n)
      text += random() % 3 == 0 ? ",\r\n. 01e-"[random() % 9] : static_cast<char>(random() & 0xFFU);
    GearData gears;
    ASSERT_NO_THROW(ReadInto(gears, text));
  }
}

TEST(GearData, ARowOutside0To89Throws)
{
  auto gears = SampleGears();
  for (const int row :
       {-1, 90, 91, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_THROW((void)gears.Text(row, 0), BoundsError) << row;
    EXPECT_THROW((void)gears.DisplayText(row), BoundsError) << row;
    EXPECT_THROW((void)gears.Ratio(row), BoundsError) << row;
    EXPECT_THROW(gears.SetRow(row, {}), BoundsError) << row;
  }
}

TEST(GearData, ShippedFilesFillEveryRow)
{
  const platform::HostFileSystem files;
  for (const auto year : {k1967, k1965}) {
    GearData gears;
    ASSERT_TRUE(ReadGearData(
        files, velquist::testing::SourceDirectory().string() + "/assets/program", year, gears));
    for (int row = 0; row < kGearRows; ++row) {
      EXPECT_NE(gears.DisplayText(row), "") << row;
      EXPECT_GT(gears.Ratio(row), 0.0F) << row;
    }
  }
}

}  // namespace
}  // namespace velquist::data
