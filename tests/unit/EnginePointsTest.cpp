// SPDX-License-Identifier: MIT
#include "data/EnginePoints.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "EngineLists.h"
#include "data/ChassisCatalogue.h"
#include "platform/Errors.h"

namespace velquist::data {
namespace {

using enum ModYear;

constexpr std::size_t kPointsPerEngine = 18;

void ExpectPointsMatchList(ModYear ModYearIndex, std::size_t list_start)
{
  const std::vector<float> list = NumbersOf("engine_points.txt");
  ASSERT_EQ(list.size(), 2U * 792U);
  for (int slot = 0; slot < kEngineSlots; ++slot) {
    const auto points = EnginePoints(ModYearIndex, slot);
    for (std::size_t k = 0; k < kPointsPerEngine; ++k) {
      SCOPED_TRACE("slot " + std::to_string(slot) + ", point " + std::to_string(k));
      const std::size_t element = list_start + static_cast<std::size_t>(slot) + 22 * k;
      EXPECT_EQ(points[k].rpm, list[element]);
      EXPECT_EQ(points[k].pressure, list[element + 396]);
    }
  }
}

constexpr SlotPair kSamePoints[] = {
    {k1966, 2, 8}, {k1966, 3, 14}, {k1966, 4, 12}, {k1966, 13, 20}, {k1966, 13, 21},
    {kGT, 0, 5},   {kGT, 1, 3},    {kGT, 1, 6},    {kGT, 20, 21},
};

TEST(EnginePoints, EveryPointOf1966MatchesTheList)
{
  ExpectPointsMatchList(k1966, 0);
}

TEST(EnginePoints, EveryPointOfGTMatchesTheList)
{
  ExpectPointsMatchList(kGT, 792);
}

TEST(EnginePoints, RpmStartsAtZeroAndRisesStrictly)
{
  for (const auto m : {k1966, kGT}) {
    for (int slot = 0; slot < kEngineSlots; ++slot) {
      if (!Filled(m, slot)) continue;
      SCOPED_TRACE("mod year " + std::string(ModYearText(m)) + ", slot " + std::to_string(slot));
      const auto points = EnginePoints(m, slot);
      EXPECT_EQ(points[0].rpm, 0.0F);
      for (std::size_t k = 1; k < points.size(); ++k) {
        EXPECT_LT(points[k - 1].rpm, points[k].rpm);
      }
    }
  }
}

TEST(EnginePoints, EveryGTChassisEngineEndsWithoutPressure)
{
  for (int slot = 0; slot < ChassisCount(kGT); ++slot) {
    EXPECT_EQ(EnginePoints(kGT, slot).back().pressure, 0.0F);
  }
  EXPECT_EQ(EnginePoints(kGT, 0).back().rpm, 7600.0F);
}

TEST(EnginePoints, CarsWithTheSameEngineHaveACopyEach)
{
  for (const SlotPair& pair : kSamePoints) {
    SCOPED_TRACE("mod year " + std::string(ModYearText(pair.ModYearIndex)) + ", slot " +
                 std::to_string(pair.second));
    const auto first = EnginePoints(pair.ModYearIndex, pair.first);
    const auto second = EnginePoints(pair.ModYearIndex, pair.second);
    EXPECT_NE(first.data(), second.data());
    for (std::size_t k = 0; k < kPointsPerEngine; ++k) {
      EXPECT_EQ(first[k].rpm, second[k].rpm);
      EXPECT_EQ(first[k].pressure, second[k].pressure);
    }
  }
}

TEST(EnginePoints, YearsWithoutPointsAndSlotsOutsideTheTableThrow)
{
  for (const auto m : {ModYear{-1}, k1967, k1965, k1969, ModYear{5}}) {
    EXPECT_THROW((void)EnginePoints(m, 0), BoundsError);
  }
  EXPECT_THROW((void)EnginePoints(k1966, -1), BoundsError);
  EXPECT_THROW((void)EnginePoints(kGT, kEngineSlots), BoundsError);
}

}  // namespace
}  // namespace velquist::data
