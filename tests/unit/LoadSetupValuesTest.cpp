// SPDX-License-Identifier: MIT
#include "setup/SetupRecord.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "SetupSamples.h"
#include "platform/Errors.h"

namespace velquist::setup {
namespace {

using namespace velquist::samples;

constexpr std::uint32_t kSignallingNaN = 0x7FA12345;

std::size_t RatioOffset(int pair)
{
  return 20 + 4 * static_cast<std::size_t>(pair);
}
std::size_t IdOffset(int pair)
{
  return 56 + 4 * static_cast<std::size_t>(pair);
}

/// Gear ID of first gear after loading `ratio` and `id`.
float LoadedId(float ratio, int id, const data::GearData& gears = SampleGears())
{
  Bytes bytes = SampleSetup(kShortLayoutSize);
  PutSingle(bytes, RatioOffset(0), ratio);
  PutWhole(bytes, IdOffset(0), id);
  auto data = SampleData();
  (void)LoadSetupValues(bytes, gears, k1967, data);
  EXPECT_EQ(BitsOf(data.Current(0)), BitsOf(ratio)) << "the ratio number itself never changes";
  return data.Current(7);
}

// --- LoadSetupValues ---------------------------------------------------------------------------

TEST(LoadSetupValues, PutsEveryFieldIntoItsRow)
{
  const Bytes bytes = SampleSetup(kLongLayoutSize);
  auto data = SampleData();
  (void)LoadSetupValues(bytes, SampleGears(), k1969, data);
  for (const auto& fact : kFacts) {
    const float expected = fact.whole ? static_cast<float>(TakeWhole(bytes, fact.offset))
                                      : TakeSingle(bytes, fact.offset);
    EXPECT_EQ(BitsOf(data.Current(fact.row)), BitsOf(expected)) << "slot " << fact.slot;
  }
}

TEST(LoadSetupValues, LeavesTheRowOfTheSymmetryByteAndEveryLimitAlone)
{
  auto data = SampleData();
  for (std::size_t row = 0; row < 53; ++row)
    data.SetupDataValues[row] = {90.0F, 91.0F, 92.0F, 93.0F, 94.0F};
  (void)LoadSetupValues(SampleSetup(kLongLayoutSize), SampleGears(), k1969, data);
  EXPECT_EQ(data.Current(50), 90.0F);
  for (std::size_t row = 0; row < 53; ++row)
    for (const auto column : {data::kMinimum, data::kMaximum, data::kStep, data::kFineStep})
      EXPECT_EQ(data.Value(row, column), 90.0F + static_cast<float>(column));
}

TEST(LoadSetupValues, TakesValuesAsTheyStandAlsoOutsideTheLimits)
{
  Bytes bytes = SampleSetup(kShortLayoutSize);
  PutSingle(bytes, 92, -1.0e30F);
  PutSingle(bytes, 96, std::numeric_limits<float>::infinity());
  Put(bytes, 100, kSignallingNaN);
  PutWhole(bytes, 124, -5'000'000);
  PutWhole(bytes, 256, 1 << 24);
  auto data = SampleData();
  (void)LoadSetupValues(bytes, SampleGears(), k1967, data);
  EXPECT_EQ(data.Current(16), -1.0e30F);
  EXPECT_EQ(data.Current(17), std::numeric_limits<float>::infinity());
  EXPECT_EQ(BitsOf(data.Current(18)), kSignallingNaN);
  EXPECT_EQ(data.Current(24), -5'000'000.0F);
  EXPECT_EQ(data.Current(49), 16'777'216.0F);
}

TEST(LoadSetupValues, RoundsAWholeNumberOfMoreThan24BitsToTheNearestSingle)
{
  Bytes bytes = SampleSetup(kShortLayoutSize);
  PutWhole(bytes, 124, 16'777'217);
  PutWhole(bytes, 128, std::numeric_limits<std::int32_t>::max());
  PutWhole(bytes, 132, std::numeric_limits<std::int32_t>::min());
  auto data = SampleData();
  (void)LoadSetupValues(bytes, SampleGears(), k1967, data);
  EXPECT_EQ(data.Current(24), 16'777'216.0F);
  EXPECT_EQ(data.Current(25), 2'147'483'648.0F);
  EXPECT_EQ(data.Current(26), -2'147'483'648.0F);
}

TEST(LoadSetupValues, TellsTheSymmetryByte)
{
  for (int byte = 0; byte < 256; ++byte) {
    Bytes bytes = SampleSetup(kShortLayoutSize);
    bytes[260] = static_cast<std::byte>(byte);
    auto data = SampleData();
    EXPECT_EQ(LoadSetupValues(bytes, SampleGears(), k1967, data), byte != 0) << byte;
  }
}

TEST(LoadSetupValues, HasNoWingsUnlessItIsA1969Car)
{
  Bytes bytes = SampleSetup(kLongLayoutSize);
  PutSingle(bytes, 261, 4.0F);
  PutSingle(bytes, 265, 12.0F);
  for (const auto year : {k1967, k1965, k1966, kGT}) {
    auto data = SampleData();
    (void)LoadSetupValues(bytes, SampleGears(), year, data);
    EXPECT_EQ(data.Current(51), -1.0F) << data::ModYearText(year);
    EXPECT_EQ(data.Current(52), -1.0F) << data::ModYearText(year);
  }
  auto data = SampleData();
  (void)LoadSetupValues(bytes, SampleGears(), k1969, data);
  EXPECT_EQ(data.Current(51), 4.0F);
  EXPECT_EQ(data.Current(52), 12.0F);
}

TEST(LoadSetupValues, FailsForEveryFileThatEndsBeforeAFieldItReads)
{
  for (const auto year : {k1967, k1965, k1966, k1969, kGT}) {
    const std::size_t needed = year == k1969 ? 269 : 261;
    for (std::size_t size = 0; size <= 280; ++size) {
      SCOPED_TRACE("year " + std::string(data::ModYearText(year)) + ", size " +
                   std::to_string(size));
      const Bytes bytes = SampleSetup(size);
      auto data = SampleData();
      if (size < needed)
        EXPECT_THROW((void)LoadSetupValues(bytes, SampleGears(), year, data), BoundsError);
      else
        EXPECT_NO_THROW((void)LoadSetupValues(bytes, SampleGears(), year, data));
    }
  }
}

TEST(LoadSetupValues, FailsForAGearIdThatHasNoRow)
{
  for (int pair = 0; pair < 7; ++pair) {
    for (const std::int32_t id : {90, 91, 32767, 32768, std::numeric_limits<std::int32_t>::max(),
                                  -1, -90, std::numeric_limits<std::int32_t>::min()}) {
      Bytes bytes = SampleSetup(kShortLayoutSize);
      PutWhole(bytes, IdOffset(pair), id);
      auto data = SampleData();
      EXPECT_THROW((void)LoadSetupValues(bytes, SampleGears(), k1967, data), BoundsError)
          << pair << ' ' << id;
    }
    for (const std::int32_t id : {0, 89}) {
      Bytes bytes = SampleSetup(kShortLayoutSize);
      PutWhole(bytes, IdOffset(pair), id);
      auto data = SampleData();
      EXPECT_NO_THROW((void)LoadSetupValues(bytes, SampleGears(), k1967, data)) << pair << id;
    }
  }
}

TEST(LoadSetupValues, FailsWhenTheDataFileHasTooFewRows)
{
  const Bytes bytes = SampleSetup(kLongLayoutSize);
  for (std::size_t rows = 0; rows < 53; ++rows) {
    data::SetupData data = SampleData();
    data.SetupDataValues.resize(rows);
    EXPECT_THROW((void)LoadSetupValues(bytes, SampleGears(), k1967, data), BoundsError) << rows;
  }
}

// --- Gear ID repair on loading -----------------------------------------------------------------

TEST(GearIdRepair, KeepsAnIdWhoseRowHasTheRatioToThreeDecimals)
{
  data::GearData gears = SampleGears();
  gears.SetRow(58, {"", "", "3.390"});
  gears.SetRow(59, {"", "31/9", "3.444"});
  gears.SetRow(60, {"", "", "3.500"});
  EXPECT_EQ(LoadedId(3.4444F, 59, gears), 59.0F);
  EXPECT_EQ(LoadedId(3.444F, 59, gears), 59.0F);
  EXPECT_EQ(LoadedId(3.4436F, 59, gears), 59.0F);
  EXPECT_EQ(LoadedId(3.4444F, 60, gears), 59.0F);
}

TEST(GearIdRepair, KeepsAnIdOfSeveralRowsWithTheSameRatio)
{
  data::GearData gears = SampleGears();
  gears.SetRow(20, {"", "", "1.550"});  // as row 21
  EXPECT_EQ(LoadedId(1.55F, 20, gears), 20.0F);
  EXPECT_EQ(LoadedId(1.55F, 21, gears), 21.0F);
  EXPECT_EQ(LoadedId(1.55F, 22, gears), 21.0F) << "the last of them";
}

TEST(GearIdRepair, FindsTheLastRowNotAboveTheRatio)
{
  for (int row = 0; row < 90; ++row) {
    SCOPED_TRACE(row);
    const auto ratio = static_cast<float>(SampleThousandths(row) / 1000.0);
    const int other = row == 0 ? 89 : 0;
    EXPECT_EQ(LoadedId(ratio, other), static_cast<float>(row));
    EXPECT_EQ(LoadedId(ratio + 0.02F, other), static_cast<float>(row));
    EXPECT_EQ(LoadedId(ratio + 0.02F, row), static_cast<float>(row));
  }
}

TEST(GearIdRepair, RoundsTheRatioNumberToThreeDecimalsWithTiesToEven)
{
  // Singles that lie exactly half-way between thousandths.
  data::GearData gears = SampleGears();
  gears.SetRow(0, {"", "", "0.062"});
  gears.SetRow(1, {"", "", "0.063"});
  gears.SetRow(2, {"", "", "0.187"});
  gears.SetRow(3, {"", "", "0.188"});
  EXPECT_EQ(LoadedId(0.0625F, 30, gears), 0.0F);
  EXPECT_EQ(LoadedId(0.1875F, 30, gears), 3.0F);
  EXPECT_EQ(LoadedId(std::nextafter(0.0625F, 1.0F), 30, gears), 1.0F);
  EXPECT_EQ(LoadedId(std::nextafter(0.1875F, 0.0F), 30, gears), 2.0F);
}

TEST(GearIdRepair, ComparesTheRowOfTheIdUnroundedAndTheSearchedRowsRounded)
{
  data::GearData gears = SampleGears();
  gears.SetRow(21, {"", "", "1.5496"});  // rounds to 1.550
  EXPECT_EQ(LoadedId(1.55F, 21, gears), 21.0F) << "not equal, but found again";
  gears.SetRow(22, {"", "", "1.5504"});
  EXPECT_EQ(LoadedId(1.5496F, 21, gears), 22.0F) << "both rows round to the rounded ratio";
  EXPECT_EQ(LoadedId(1.5495F, 30, gears), 20.0F);
}

TEST(GearIdRepair, StopsAtTheFirstRowAboveTheRatio)
{
  data::GearData gears = SampleGears();
  gears.SetRow(5, {"", "", "4.000"});  // out of order
  EXPECT_EQ(LoadedId(1.52F, 30, gears), 4.0F);
  EXPECT_EQ(LoadedId(1.5F, 20, gears), 20.0F) << "an ID that agrees is not searched";
}

TEST(GearIdRepair, KeepsTheIdWhenEvenTheFirstRowIsAboveTheRatio)
{
  EXPECT_EQ(LoadedId(0.499F, 12), 12.0F);
  EXPECT_EQ(LoadedId(0.0F, 89), 89.0F);
  EXPECT_EQ(LoadedId(-3.0F, 0), 0.0F);
  EXPECT_EQ(LoadedId(-std::numeric_limits<float>::infinity(), 7), 7.0F);
  EXPECT_EQ(LoadedId(0.4996F, 12), 0.0F) << "rounds to 0.500";
}

TEST(GearIdRepair, TakesTheLastRowForARatioAboveAll)
{
  EXPECT_EQ(LoadedId(1.0e30F, 3), 89.0F);
  EXPECT_EQ(LoadedId(std::numeric_limits<float>::infinity(), 3), 89.0F);
}

TEST(GearIdRepair, KeepsTheIdForARatioThatIsNoNumber)
{
  EXPECT_EQ(LoadedId(std::numeric_limits<float>::quiet_NaN(), 33), 33.0F);
}

TEST(GearIdRepair, WorksOnEveryGearAndTheFinalDrive)
{
  for (int pair = 0; pair < 7; ++pair) {
    Bytes bytes = SampleSetup(kShortLayoutSize);
    PutSingle(bytes, RatioOffset(pair), 2.5F);
    auto data = SampleData();
    (void)LoadSetupValues(bytes, SampleGears(), k1967, data);
    for (int other = 0; other < 7; ++other) {
      const int sample = other == 6 ? 76 : 10 + other;
      EXPECT_EQ(data.Current(7 + static_cast<std::size_t>(other)),
                static_cast<float>(other == pair ? 40 : sample));
    }
  }
}

TEST(GearIdRepair, WithoutAGearTableReadsEveryRatioAsZero)
{
  EXPECT_EQ(LoadedId(0.0F, 12, data::GearData()), 12.0F);
  EXPECT_EQ(LoadedId(1.0F, 12, data::GearData()), 89.0F);
}

}  // namespace
}  // namespace velquist::setup
