// SPDX-License-Identifier: MIT
#include "data/SetupData.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "CommaLocale.h"
#include "MemoryFiles.h"
#include "SetupSamples.h"
#include "platform/Errors.h"
#include "platform/HostFileSystem.h"
#include "runner/SourceDirectory.h"

namespace velquist::data {
namespace {

using namespace velquist::samples;
using velquist::testing::MemoryFiles;
using Fields = std::array<std::string, 6>;
using Values = std::array<float, 5>;

constexpr std::string_view kFile = "C:\\Velquist\\67 Setup Data.ini";

/// The tables after reading a 1967 file of this text.
SetupData ReadText(std::string_view text)
{
  MemoryFiles files;
  files.Put(kFile, text);
  SetupData data;
  EXPECT_TRUE(ReadSetupData(files, "C:\\Velquist", k1967, data));
  return data;
}

TEST(SetupDataFileName, IsSharedBy1965And1966And1969)
{
  EXPECT_EQ(SetupDataFileName(k1967), "67 Setup Data.ini");
  EXPECT_EQ(SetupDataFileName(k1965), "65 Setup Data.ini");
  EXPECT_EQ(SetupDataFileName(k1966), "65 Setup Data.ini");
  EXPECT_EQ(SetupDataFileName(k1969), "65 Setup Data.ini");
  EXPECT_EQ(SetupDataFileName(kGT), "GT Setup Data.ini");
  for (const int number : {-32768, -1, 5, 32767})
    EXPECT_EQ(SetupDataFileName(static_cast<ModYear>(number)), "") << number;
}

TEST(ReadSetupData, TakesTheFileOfTheModYearFromTheProgramDirectory)
{
  MemoryFiles files;
  files.Put("D:\\p\\67 Setup Data.ini", "67,1,2,3,4,5\r\n");
  files.Put("D:\\p\\65 Setup Data.ini", "65,1,2,3,4,5\r\n");
  files.Put("D:\\p\\GT Setup Data.ini", "GT,1,2,3,4,5\r\n");
  const std::array<const char*, 5> labels = {"67", "65", "65", "65", "GT"};
  for (const auto year : kModYears) {
    SetupData data;
    ASSERT_TRUE(ReadSetupData(files, "D:\\p", year, data)) << ModYearText(year);
    EXPECT_EQ(data.Text(0, kLabelField), labels[static_cast<std::size_t>(year)])
        << ModYearText(year);
  }
}

TEST(ReadSetupData, PutsMinimumMaximumStepAndFineStepIntoTheirColumns)
{
  const auto data = ReadText("tire,12,22,40,1,0.1\r\n");
  ASSERT_EQ(data.SetupDataText.size(), 1U);
  EXPECT_EQ(data.SetupDataText[0], (Fields{"tire", "12", "22", "40", "1", "0.1"}));
  EXPECT_EQ(data.SetupDataValues[0], (Values{0, 12, 40, 1, 0.1F}));
  EXPECT_EQ(data.Value(0, kCurrent), 0.0F);
  EXPECT_EQ(data.Value(0, kMinimum), 12.0F);
  EXPECT_EQ(data.Value(0, kMaximum), 40.0F);
  EXPECT_EQ(data.Value(0, kStep), 1.0F);
  EXPECT_EQ(data.Value(0, kFineStep), 0.1F);
  EXPECT_EQ(data.Text(0, kMinimumField), "12");
  EXPECT_EQ(data.Text(0, kDefaultField), "22");
  EXPECT_EQ(data.Text(0, kMaximumField), "40");
  EXPECT_EQ(data.Text(0, kStepField), "1");
  EXPECT_EQ(data.Text(0, kFineStepField), "0.1");
}

TEST(ReadSetupData, RepeatsTheLastFieldOfALineWithTooFew)
{
  const auto four = ReadText("label,0,5,10");
  EXPECT_EQ(four.SetupDataText[0], (Fields{"label", "0", "5", "10", "10", "10"}));
  EXPECT_EQ(four.SetupDataValues[0], (Values{0, 0, 10, 10, 10}));
  const auto one = ReadText("7 of everything");
  EXPECT_EQ(one.SetupDataValues[0], (Values{0, 7, 7, 7, 7}));
  const auto none = ReadText("\r\nlabel,1,2,3,4,5");
  EXPECT_EQ(none.SetupDataText[0], Fields());
  EXPECT_EQ(none.SetupDataValues[0], Values());
  EXPECT_EQ(none.Value(1, kFineStep), 5.0F);
}

TEST(ReadSetupData, IgnoresFieldsBeyondTheSixth)
{
  EXPECT_EQ(ReadText("label,1,2,3,4,5,").SetupDataText[0],
            (Fields{"label", "1", "2", "3", "4", "5"}));
  EXPECT_EQ(ReadText("label,1,2,3,4,5,6,7").SetupDataValues[0], (Values{0, 1, 3, 4, 5}));
}

TEST(ReadSetupData, KeepsTextUntrimmedAndReadsItsLeadingNumber)
{
  const auto data = ReadText(" label , 1.5 psi,x, ,-.5in,abc\r\n");
  EXPECT_EQ(data.SetupDataText[0], (Fields{" label ", " 1.5 psi", "x", " ", "-.5in", "abc"}));
  EXPECT_EQ(data.SetupDataValues[0], (Values{0, 1.5F, 0, -0.5F, 0}));
}

TEST(ReadSetupData, RoundsEachNumberOnceToASingle)
{
  const auto data = ReadText("l,0.1,0,1e39,-1e39,1e-50\r\nl,16777217,0,3.4444444444,0,0");
  EXPECT_EQ(data.Value(0, kMinimum), 0.1F);
  EXPECT_EQ(data.Value(0, kMaximum), std::numeric_limits<float>::infinity());
  EXPECT_EQ(data.Value(0, kStep), -std::numeric_limits<float>::infinity());
  EXPECT_EQ(data.Value(0, kFineStep), 0.0F);
  EXPECT_EQ(data.Value(1, kMinimum), 16777216.0F);
  EXPECT_EQ(data.Value(1, kMaximum), 3.4444444444F);
}

TEST(ReadSetupData, TakesEveryKindOfLineEnd)
{
  for (const auto* text : {"a,1\r\nb,2\r\n", "a,1\nb,2", "a,1\rb,2\r"}) {
    const auto data = ReadText(text);
    ASSERT_EQ(data.SetupDataText.size(), 2U) << text;
    EXPECT_EQ(data.Value(0, kFineStep), 1.0F);
    EXPECT_EQ(data.Value(1, kFineStep), 2.0F);
    EXPECT_EQ(data.Text(1, kLabelField), "b");
  }
}

TEST(ReadSetupData, DoesNotFollowTheLocale)
{
  const CommaLocale comma;
  EXPECT_EQ(ReadText("l,1.5,2,3.25,4,5").Value(0, kMinimum), 1.5F);
}

TEST(ReadSetupData, HasExactlyTheRowsOfTheFileAndClearsEveryCurrentValue)
{
  MemoryFiles files;
  SetupData data = SampleData();
  for (auto& row : data.SetupDataValues) row.fill(99);
  for (const std::size_t lines : {60U, 53U, 3U, 1U, 0U, 53U}) {
    std::string text;
    for (std::size_t i = 0; i < lines; ++i) text += "l,1,2,3,4,5\r\n";
    files.Put(kFile, text);
    ASSERT_TRUE(ReadSetupData(files, "C:\\Velquist", k1967, data));
    ASSERT_EQ(data.SetupDataText.size(), lines);
    ASSERT_EQ(data.SetupDataValues.size(), lines);
    for (const auto& row : data.SetupDataValues) EXPECT_EQ(row, (Values{0, 1, 3, 4, 5}));
    for (auto& row : data.SetupDataValues) row[kCurrent] = 77;
  }
}

TEST(ReadSetupData, IsFalseAndChangesNothingWithoutAFile)
{
  const MemoryFiles files;
  SetupData data = SampleData();
  const auto text = data.SetupDataText;
  data.Current(3) = 5;
  for (const auto year : {k1967, kGT, ModYear{-1}, ModYear{5}}) {
    EXPECT_FALSE(ReadSetupData(files, "C:\\Velquist", year, data)) << ModYearText(year);
    EXPECT_EQ(data.SetupDataText, text);
    EXPECT_EQ(data.Current(3), 5.0F);
  }
}

TEST(ReadSetupData, KeepsTheTablesWhenTheFileCannotBeRead)
{
  MemoryFiles files;
  files.MakeUnreadable(kFile);
  SetupData data = SampleData();
  data.Current(3) = 5;
  EXPECT_TRUE(ReadSetupData(files, "C:\\Velquist", k1967, data));
  EXPECT_EQ(data.SetupDataText, SampleData().SetupDataText);
  EXPECT_EQ(data.Current(3), 5.0F);
}

TEST(ReadSetupData, ReadsAnyBytesWithoutFailing)
{
  std::mt19937 random(53);
  for (int i = 0; i < 2000; ++i) {
    std::string text;
    for (auto n = random() % 300; n > 0; --n)
      text += random() % 3 == 0 ? ",\r\n. 01e-"[random() % 9] : static_cast<char>(random() & 0xFFU);
    const auto data = ReadText(text);
    ASSERT_EQ(data.SetupDataText.size(), data.SetupDataValues.size());
  }
}

TEST(SetupData, ARowThatTheFileDidNotHaveThrows)
{
  SetupData data = ReadText("l,1,2,3,4,5\r\nl,1,2,3,4,5\r\n");
  const SetupData empty = ReadText("");
  EXPECT_NO_THROW((void)data.Current(1));
  for (const std::size_t row : {2U, 53U, 1000U}) {
    EXPECT_THROW((void)data.Value(row, kMinimum), BoundsError);
    EXPECT_THROW((void)data.Current(row), BoundsError);
    EXPECT_THROW((void)data.Text(row, kLabelField), BoundsError);
    EXPECT_THROW((void)data.Whole(row, kMinimumField), BoundsError);
  }
  EXPECT_THROW((void)empty.Value(0, kMinimum), BoundsError);
}

TEST(SetupData, WholeFieldsAreRoundedAndThrowBeyond16Bits)
{
  const auto data = ReadText("l, 74 rows,2.5,3.5,-32768,32767\r\nl,32768,-32769,1e9,x,\r\n");
  EXPECT_EQ(data.Whole(0, kMinimumField), 74);
  EXPECT_EQ(data.Whole(0, kDefaultField), 2);
  EXPECT_EQ(data.Whole(0, kMaximumField), 4);
  EXPECT_EQ(data.Whole(0, kStepField), -32768);
  EXPECT_EQ(data.Whole(0, kFineStepField), 32767);
  EXPECT_THROW((void)data.Whole(1, kMinimumField), BoundsError);
  EXPECT_THROW((void)data.Whole(1, kDefaultField), BoundsError);
  EXPECT_THROW((void)data.Whole(1, kMaximumField), BoundsError);
  EXPECT_EQ(data.Whole(1, kStepField), 0);
  EXPECT_EQ(data.Whole(1, kFineStepField), 0);
}

TEST(SetupData, ShippedFilesHaveALineForEveryRow)
{
  const platform::HostFileSystem files;
  for (const auto* folder : {"/assets/program", "/assets/program/Metric"}) {
    for (const auto year : kModYears) {
      SetupData data;
      ASSERT_TRUE(
          ReadSetupData(files, velquist::testing::SourceDirectory().string() + folder, year, data));
      EXPECT_GE(data.SetupDataText.size(), 53U) << folder << ' ' << ModYearText(year);
    }
  }
}

}  // namespace
}  // namespace velquist::data
