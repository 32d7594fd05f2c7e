// SPDX-License-Identifier: MIT
#include "setup/Imports.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "SetupSamples.h"
#include "platform/Errors.h"

namespace velquist::setup {
namespace {

using namespace velquist::samples;

constexpr float kBefore = -77.0F;

/// Every row's value is kBefore.
data::SetupData DataBefore()
{
  auto data = SampleData();
  for (auto& row : data.SetupDataValues) row[data::kCurrent] = kBefore;
  data.SetupDataText[13] = {"final drive", "0", "76", "89", "1", "1"};
  return data;
}

float Field(const Bytes& bytes, const Fact& fact)
{
  return fact.whole ? static_cast<float>(TakeWhole(bytes, fact.offset))
                    : TakeSingle(bytes, fact.offset);
}

/// Gear ID of first gear after importing `ratio` and `id`.
float ImportedId(float ratio, int id, const data::GearData& gears = SampleGears())
{
  Bytes bytes = SampleSetup(kShortLayoutSize);
  PutSingle(bytes, 20, ratio);
  PutWhole(bytes, 56, id);
  auto data = DataBefore();
  ImportDrivetrain(bytes, gears, data);
  EXPECT_EQ(BitsOf(data.Current(0)), BitsOf(ratio)) << "the ratio number itself never changes";
  return data.Current(7);
}

// --- ImportChassis -----------------------------------------------------------------------------

TEST(ImportChassis, TakesSlots0To32AndNothingElse)
{
  const Bytes bytes = SampleSetup(kLongLayoutSize);
  for (const auto year : {k1967, k1965, k1966, kGT}) {
    auto data = DataBefore();
    ImportChassis(bytes, year, data);
    for (const auto& fact : kFacts) {
      const float expected = fact.slot <= 32 ? Field(bytes, fact) : kBefore;
      EXPECT_EQ(BitsOf(data.Current(fact.row)), BitsOf(expected)) << "slot " << fact.slot;
    }
    EXPECT_EQ(data.Current(50), kBefore);
  }
}

TEST(ImportChassis, TakesTheWingsFor1969)
{
  Bytes bytes = SampleSetup(kLongLayoutSize);
  PutSingle(bytes, 261, 4.5F);
  PutSingle(bytes, 265, 11.0F);
  auto data = DataBefore();
  ImportChassis(bytes, k1969, data);
  for (const auto& fact : kFacts) {
    const float expected = fact.slot <= 34 ? Field(bytes, fact) : kBefore;
    EXPECT_EQ(data.Current(fact.row), expected) << "slot " << fact.slot;
  }
}

TEST(ImportChassis, TakesACarWithoutWingsAsWingsOf0)
{
  Bytes bytes = SampleSetup(kLongLayoutSize);
  PutSingle(bytes, 261, -1.0F);
  PutSingle(bytes, 265, -1.0F);
  auto data = DataBefore();
  ImportChassis(bytes, k1969, data);
  EXPECT_EQ(BitsOf(data.Current(51)), BitsOf(0.0F));
  EXPECT_EQ(BitsOf(data.Current(52)), BitsOf(0.0F));
}

TEST(ImportChassis, TakesEachWingOnItsOwnAndOnlyExactlyMinus1As0)
{
  const float near = std::nextafter(-1.0F, 0.0F);
  for (const float wing : {near, -2.0F, 20.0F, std::numeric_limits<float>::infinity()}) {
    Bytes bytes = SampleSetup(kLongLayoutSize);
    PutSingle(bytes, 261, wing);
    PutSingle(bytes, 265, -1.0F);
    auto data = DataBefore();
    ImportChassis(bytes, k1969, data);
    EXPECT_EQ(data.Current(51), wing);
    EXPECT_EQ(data.Current(52), 0.0F);
  }
}

TEST(ImportChassis, KeepsEveryBitOfSinglesThatAreNoNumbers)
{
  Bytes bytes = SampleSetup(kLongLayoutSize);
  for (const auto& fact : kFacts)
    if (!fact.whole) Put(bytes, fact.offset, 0x7F800001);
  auto data = DataBefore();
  ImportChassis(bytes, k1969, data);
  for (const auto& fact : kFacts) {
    if (!fact.whole && fact.slot <= 34) {
      EXPECT_EQ(BitsOf(data.Current(fact.row)), 0x7F800001U) << fact.slot;
    }
  }
}

TEST(ImportChassis, FailsForEveryFileThatEndsBeforeAFieldItReads)
{
  for (const auto year : {k1967, k1965, k1966, k1969, kGT}) {
    const std::size_t needed = year == k1969 ? 269 : 260;
    for (std::size_t size = 0; size <= 280; ++size) {
      SCOPED_TRACE("year " + std::string(data::ModYearText(year)) + ", size " +
                   std::to_string(size));
      const Bytes bytes = SampleSetup(size);
      auto data = DataBefore();
      if (size < needed)
        EXPECT_THROW(ImportChassis(bytes, year, data), BoundsError);
      else
        EXPECT_NO_THROW(ImportChassis(bytes, year, data));
    }
  }
}

// --- ImportDrivetrain --------------------------------------------------------------------------

TEST(ImportDrivetrain, TakesSlots35To51AndNothingElse)
{
  const Bytes bytes = SampleSetup(kShortLayoutSize);
  auto data = DataBefore();
  ImportDrivetrain(bytes, SampleGears(), data);
  for (const auto& fact : kFacts) {
    const float expected = fact.slot >= 35 ? Field(bytes, fact) : kBefore;
    EXPECT_EQ(data.Current(fact.row), expected) << "slot " << fact.slot;
  }
  EXPECT_EQ(data.Current(50), kBefore);
}

TEST(ImportDrivetrain, KeepsIdsWhoseRowsHaveExactlyTheRatioNumbers)
{
  for (int row = 0; row < 90; ++row)
    EXPECT_EQ(ImportedId(static_cast<float>(SampleThousandths(row) / 1000.0), row),
              static_cast<float>(row));
}

TEST(ImportDrivetrain, KeepsAnIdThatDisagreesWhenTheFirstRowIsBelowTheRatio)
{
  EXPECT_EQ(ImportedId(2.0F, 12), 12.0F);
  EXPECT_EQ(ImportedId(100.0F, 12), 12.0F);
  EXPECT_EQ(ImportedId(0.501F, 12), 12.0F);
  EXPECT_EQ(ImportedId(std::numeric_limits<float>::infinity(), 12), 12.0F);
}

TEST(ImportDrivetrain, SearchesForTheLastRowThatIsNotBelowTheRatio)
{
  EXPECT_EQ(ImportedId(0.5F, 12), 89.0F) << "no row of a rising table is below";
  EXPECT_EQ(ImportedId(0.0F, 12), 89.0F);
  EXPECT_EQ(ImportedId(-std::numeric_limits<float>::infinity(), 12), 89.0F);

  data::GearData falling;
  for (int row = 0; row < 90; ++row)
    falling.SetRow(row, {"", "", ThousandthsText(SampleThousandths(89 - row))});
  for (int row = 0; row < 90; ++row) {
    const auto ratio = static_cast<float>(SampleThousandths(89 - row) / 1000.0);
    const int other = row == 5 ? 6 : 5;
    EXPECT_EQ(ImportedId(ratio, other, falling), static_cast<float>(row));
    EXPECT_EQ(ImportedId(ratio - 0.02F, other, falling), static_cast<float>(row));
  }
  EXPECT_EQ(ImportedId(4.96F, 5, falling), 5.0F) << "above all rows";
}

TEST(ImportDrivetrain, DoesNotRoundTheRatioNumber)
{
  data::GearData gears;
  gears.SetRow(0, {"", "", "3.4444"});
  gears.SetRow(1, {"", "", "3.444"});
  gears.SetRow(2, {"", "", "3.4439"});
  EXPECT_EQ(ImportedId(3.4444F, 1, gears), 0.0F);
  EXPECT_EQ(ImportedId(3.444F, 2, gears), 1.0F);
  EXPECT_EQ(ImportedId(std::nextafter(3.444F, 0.0F), 1, gears), 1.0F);
  EXPECT_EQ(ImportedId(std::nextafter(3.444F, 4.0F), 1, gears), 0.0F);
}

TEST(ImportDrivetrain, StopsAtTheFirstRowBelowTheRatio)
{
  data::GearData gears = SampleGears();
  gears.SetRow(0, {"", "", "5.000"});
  gears.SetRow(1, {"", "", "4.000"});
  EXPECT_EQ(ImportedId(3.0F, 20, gears), 1.0F) << "row 2 is below; row 50 on is never reached";
}

TEST(ImportDrivetrain, KeepsTheIdForARatioThatIsNoNumber)
{
  EXPECT_EQ(ImportedId(std::numeric_limits<float>::quiet_NaN(), 33), 33.0F);
}

TEST(ImportDrivetrain, SearchesForEveryGearAndTheFinalDrive)
{
  for (std::size_t pair = 0; pair < 7; ++pair) {
    Bytes bytes = SampleSetup(kShortLayoutSize);
    PutSingle(bytes, 20 + 4 * pair, 0.25F);
    auto data = DataBefore();
    ImportDrivetrain(bytes, SampleGears(), data);
    for (std::size_t other = 0; other < 7; ++other) {
      const float sample = other == 6 ? 76.0F : 10.0F + static_cast<float>(other);
      EXPECT_EQ(data.Current(7 + other), other == pair ? 89.0F : sample);
    }
  }
}

TEST(ImportDrivetrain, FailsForAGearIdThatHasNoRow)
{
  for (std::size_t pair = 0; pair < 7; ++pair) {
    for (const std::int32_t id : {90, 32768, std::numeric_limits<std::int32_t>::max(), -1,
                                  std::numeric_limits<std::int32_t>::min()}) {
      Bytes bytes = SampleSetup(kShortLayoutSize);
      PutWhole(bytes, 56 + 4 * pair, id);
      auto data = DataBefore();
      for (auto& row : data.SetupDataText) row[data::kMaximumField - 1] = "32767";
      for (auto& row : data.SetupDataText) row[data::kMinimumField - 1] = "-32768";
      EXPECT_THROW(ImportDrivetrain(bytes, SampleGears(), data), BoundsError) << pair << ' ' << id;
    }
  }
}

TEST(ImportDrivetrain, FailsForAGearIdOutsideTheRowsOfTheModYear)
{
  for (std::size_t pair = 0; pair < 7; ++pair) {
    for (const std::int32_t id : {19, 20, 30, 31}) {
      Bytes bytes = SampleSetup(kShortLayoutSize);
      PutWhole(bytes, 56 + 4 * pair, id);
      PutSingle(bytes, 20 + 4 * pair, static_cast<float>(SampleThousandths(id) / 1000.0));
      auto data = DataBefore();
      data.SetupDataText[7 + pair] = {"gear", "20", "25", "30", "1", "1"};
      if (id < 20 || id > 30)
        EXPECT_THROW(ImportDrivetrain(bytes, SampleGears(), data), BoundsError) << pair << id;
      else
        EXPECT_NO_THROW(ImportDrivetrain(bytes, SampleGears(), data)) << pair << id;
    }
  }
}

TEST(ImportDrivetrain, ASearchedIdMayLieOutsideTheRowsOfTheModYear)
{
  Bytes bytes = SampleSetup(kShortLayoutSize);
  PutSingle(bytes, 20, 0.25F);
  auto data = DataBefore();
  data.SetupDataText[7] = {"gear", "0", "25", "73", "1", "1"};
  ImportDrivetrain(bytes, SampleGears(), data);
  EXPECT_EQ(data.Current(7), 89.0F);
}

TEST(ImportDrivetrain, FailsForEveryFileThatEndsBeforeAFieldItReads)
{
  for (std::size_t size = 0; size <= 280; ++size) {
    SCOPED_TRACE(size);
    const Bytes bytes = SampleSetup(size);
    auto data = DataBefore();
    if (size < 248)
      EXPECT_THROW(ImportDrivetrain(bytes, SampleGears(), data), BoundsError);
    else
      EXPECT_NO_THROW(ImportDrivetrain(bytes, SampleGears(), data));
  }
}

}  // namespace
}  // namespace velquist::setup
