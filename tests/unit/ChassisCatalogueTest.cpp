// SPDX-License-Identifier: MIT
#include "data/ChassisCatalogue.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "EngineLists.h"
#include "platform/Errors.h"

namespace velquist::data {
namespace {

using enum ModYear;

std::array<float, 8> FieldsOf(const Engine& engine)
{
  return {engine.c0,           engine.c1,          engine.c2,    engine.c3,
          engine.displacement, engine.maximum_rpm, engine.gears, engine.rear_weight_fraction};
}

constexpr SlotPair kSameEngine[] = {
    {k1965, 2, 3}, {k1966, 2, 8}, {k1966, 3, 14}, {k1966, 4, 12}, {k1969, 0, 2},
    {k1969, 0, 3}, {k1969, 0, 5}, {k1969, 0, 6},  {kGT, 0, 5},    {kGT, 1, 3},
};

TEST(ChassisCatalogue, EachModYearHasItsNumberOfChassis)
{
  EXPECT_EQ(ChassisCount(k1967), 7);
  EXPECT_EQ(ChassisCount(k1965), 7);
  EXPECT_EQ(ChassisCount(k1966), 16);
  EXPECT_EQ(ChassisCount(k1969), 7);
  EXPECT_EQ(ChassisCount(kGT), 9);
}

TEST(ChassisCatalogue, EveryCarStandsInDropBoxOrderWithItsCodeFolderAndSpeed)
{
  struct Row {
    std::string_view code;
    std::string_view name;
    std::string_view folder;
    int maximum_speed;
  };
  // clang-format off
  const std::array<std::vector<Row>, kModYearCount> rows = {{
      {
          {"bb", "Brabham BT24-Repco V8", "brabham", 200},
          {"br", "BRM P115-BRM H16", "brm", 200},
          {"co", "Cooper T81-Maserati V12", "coventry", 200},
          {"ea", "Eagle AAR103-Weslake V12", "eagle", 200},
          {"fe", "Ferrari 312-Ferrari V12", "ferrari", 200},
          {"lo", "Lotus 49-Ford V8 DFV", "lotus", 200},
          {"mu", "Honda RA300-Honda V12", "murasama", 200},
      },
      {
          {"bb", "Brabham BT11-Climax V8", "brabham", 180},
          {"br", "BRM P261-BRM V8", "brm", 180},
          {"co", "Cooper T77-Climax V8", "coventry", 180},
          {"ea", "Brabham BT7-Climax V8", "eagle", 180},
          {"fe", "Ferrari 1512-Ferrari V12", "ferrari", 180},
          {"lo", "Lotus 33-Climax V8", "lotus", 180},
          {"mu", "Honda RA272-Honda V12", "murasama", 180},
      },
      {
          {"bb", "Brabham BT19-Repco V8 3.0L", "brabham", 200},
          {"bc", "Brabham BT11-Climax S4 2.5L", "c09", 200},
          {"bd", "Brabham BT11-Climax S4 2.7L", "c14", 200},
          {"be", "Brabham BT11-BRM V8 1.9L", "c15", 200},
          {"br", "BRM P83-BRM H16 3.0L", "brm", 200},
          {"bs", "BRM P261-BRM V8 2.1L", "c07", 200},
          {"co", "Cooper T81-Maserati V12 3.0L", "coventry", 200},
          {"eb", "Eagle AAR102-Weslake V12 3.0L", "c10", 200},
          {"ea", "Eagle AAR101-Climax S4 2.7L", "eagle", 200},
          {"fe", "Ferrari 312-Ferrari V12 3.0L", "ferrari", 200},
          {"ff", "Ferrari 246-Ferrari V6 2.4L", "c11", 200},
          {"mu", "Honda RA273-Honda V12 3.0L", "murasama", 200},
          {"lo", "Lotus 43-BRM H16 3.0L", "lotus", 200},
          {"lp", "Lotus 33-Climax V8 2.0L", "c08", 200},
          {"lq", "Lotus 33-BRM V8 1.9L", "c13", 200},
          {"mc", "McLaren M2B-Ford V8 3.0L", "c12", 200},
      },
      {
          {"bb", "Brabham BT26A-Ford V8 DFV", "brabham", 200},
          {"br", "BRM P139-BRM V12", "brm", 200},
          {"co", "Lotus 63-Ford V8 DFV", "coventry", 200},
          {"ea", "McLaren M7-Ford V8 DFV", "eagle", 200},
          {"fe", "Ferrari 312--Ferrari V12", "ferrari", 200},
          {"lo", "Lotus 49B-Ford V8 DFV", "lotus", 200},
          {"mu", "Matra MS80-Ford V8 DFV", "murasama", 200},
      },
      {
          {"ga", "Ford MkIIB-Ford V8 7.0L", "brabham", 208},
          {"gb", "Chaparral 2D-Chevrolet V8 7.0L", "brm", 206},
          {"gc", "Lola T70 MkIII-Chevrolet V8 5.4L", "coventry", 202},
          {"gd", "Chaparral 2F-Chevrolet V8 7.0L", "eagle", 204},
          {"ge", "Ferrari 330/P4-Ferrari V12 4.0L", "ferrari", 194},
          {"gf", "Ford MkIV-Ford V8 7.0L", "lotus", 215},
          {"gg", "Mirage M1-Ford V8 5.7L", "murasama", 206},
          {"gh", "Ford MkI-Ford V8 4.7L", "07ForMk1", 196},
          {"gi", "Porsche 910-Porsche F8 2.2L", "08Por910", 172},
      },
  }};
  // clang-format on

  for (const auto m : kModYears) {
    const auto& expected = rows[static_cast<std::size_t>(m)];
    const auto cars = CarsOf(m);
    ASSERT_EQ(cars.size(), expected.size());
    ASSERT_EQ(ChassisCount(m), static_cast<int>(expected.size()));
    for (std::size_t slot = 0; slot < expected.size(); ++slot) {
      SCOPED_TRACE("mod year " + std::string(ModYearText(m)) + ", slot " + std::to_string(slot));
      EXPECT_EQ(cars[slot].code, expected[slot].code);
      EXPECT_EQ(cars[slot].name, expected[slot].name);
      EXPECT_EQ(cars[slot].folder, expected[slot].folder);
      EXPECT_EQ(cars[slot].maximum_speed, expected[slot].maximum_speed);
      EXPECT_EQ(ChassisName(m, static_cast<int>(slot)), expected[slot].name);
      EXPECT_EQ(&EngineOf(m, static_cast<int>(slot)), &cars[slot].engine);
    }
  }
}

TEST(ChassisCatalogue, NamesAndCountsOutsideTheCatalogueThrow)
{
  EXPECT_TRUE(CarsOf(ModYear{-1}).empty());
  EXPECT_TRUE(CarsOf(ModYear{5}).empty());
  EXPECT_THROW((void)ChassisCount(ModYear{-1}), BoundsError);
  EXPECT_THROW((void)ChassisCount(ModYear{5}), BoundsError);
  EXPECT_THROW((void)ChassisName(ModYear{-1}, 0), BoundsError);
  EXPECT_THROW((void)ChassisName(ModYear{5}, 0), BoundsError);
  for (const auto m : kModYears) {
    EXPECT_THROW((void)ChassisName(m, -1), BoundsError);
    EXPECT_THROW((void)ChassisName(m, ChassisCount(m)), BoundsError);
  }
}

TEST(ChassisCatalogue, EveryEngineNumberMatchesTheList)
{
  const std::vector<float> list = NumbersOf("engine_table.txt");
  ASSERT_EQ(list.size(), 880U);
  for (const auto m : kModYears) {
    for (int c = 0; c < kEngineSlots; ++c) {
      const std::array<float, 8> fields = FieldsOf(EngineOf(m, c));
      for (std::size_t f = 0; f < fields.size(); ++f) {
        SCOPED_TRACE("mod year " + std::string(ModYearText(m)) + ", slot " + std::to_string(c) +
                     ", field " + std::to_string(f));
        EXPECT_EQ(fields[f], list[static_cast<std::size_t>(NumberOf(m) + 5 * c) + 110 * f]);
      }
    }
  }
}

TEST(ChassisCatalogue, ThePracticallyZeroCubicTermOfThe1967BrabhamIsKept)
{
  EXPECT_EQ(EngineOf(k1967, 0).c3, -8.43e-15F);
}

TEST(ChassisCatalogue, SlotsWithoutAnEngineAreAllZero)
{
  int filled = 0;
  for (const auto m : kModYears) {
    for (int slot = 0; slot < kEngineSlots; ++slot) {
      SCOPED_TRACE("mod year " + std::string(ModYearText(m)) + ", slot " + std::to_string(slot));
      if (Filled(m, slot)) {
        EXPECT_GT(EngineOf(m, slot).displacement, 0.0F);
        ++filled;
      } else {
        EXPECT_EQ(FieldsOf(EngineOf(m, slot)), (std::array<float, 8>{}));
      }
    }
  }
  EXPECT_EQ(filled, 56);
}

TEST(ChassisCatalogue, EnginesOutsideTheCatalogueThrow)
{
  EXPECT_THROW((void)EngineOf(ModYear{-1}, 0), BoundsError);
  EXPECT_THROW((void)EngineOf(ModYear{5}, 0), BoundsError);
  EXPECT_THROW((void)EngineOf(k1967, -1), BoundsError);
  EXPECT_THROW((void)EngineOf(k1967, kEngineSlots), BoundsError);
  EXPECT_THROW((void)GearCount(k1967, kEngineSlots), BoundsError);
  EXPECT_THROW((void)RearWeightFraction(ModYear{5}, 0), BoundsError);
}

TEST(ChassisCatalogue, CarsWithTheSameEngineHaveACopyEach)
{
  for (const SlotPair& pair : kSameEngine) {
    SCOPED_TRACE("mod year " + std::string(ModYearText(pair.ModYearIndex)) + ", slot " +
                 std::to_string(pair.second));
    const Engine& first = EngineOf(pair.ModYearIndex, pair.first);
    const Engine& second = EngineOf(pair.ModYearIndex, pair.second);
    EXPECT_EQ(FieldsOf(first), FieldsOf(second));
    EXPECT_NE(&first, &second);
  }
}

TEST(ChassisCatalogue, GearCountAndRearWeightFractionComeFromTheEngineSlot)
{
  EXPECT_EQ(GearCount(k1967, 1), 6);
  EXPECT_EQ(GearCount(k1967, kFormula3Slot), 4);
  EXPECT_EQ(GearCount(k1965, kFormula2Slot), 6);
  EXPECT_EQ(GearCount(kGT, 1), 3);
  EXPECT_EQ(GearCount(k1967, 16), 0);
  EXPECT_EQ(RearWeightFraction(k1965, 6), 0.58F);
  EXPECT_EQ(RearWeightFraction(k1967, 0), 0.6F);
  EXPECT_EQ(RearWeightFraction(k1967, kFormula2Slot), 0.64F);
}

TEST(ChassisCatalogue, NoGearboxHasMoreThanTheMostGears)
{
  for (const auto m : kModYears) {
    for (int slot = 0; slot < kEngineSlots; ++slot) {
      if (!Filled(m, slot)) continue;
      EXPECT_GE(GearCount(m, slot), 3);
      EXPECT_LE(GearCount(m, slot), kMostGears);
    }
  }
}

TEST(EngineSlot, FormulaOneUsesTheEngineOfTheChassis)
{
  for (int chassis = 0; chassis < kMostChassis; ++chassis) {
    EXPECT_EQ(EngineSlot(chassis, 0), chassis);
  }
}

TEST(EngineSlot, FormulaTwoAndThreeUseTheirOwnEngineWhateverTheChassis)
{
  for (int chassis = 0; chassis < kMostChassis; ++chassis) {
    EXPECT_EQ(EngineSlot(chassis, 1), 20);
    EXPECT_EQ(EngineSlot(chassis, 2), 21);
  }
}

TEST(EngineSlot, AnyOtherFormulaHasNoAnswer)
{
  EXPECT_EQ(EngineSlot(3, -1), std::nullopt);
  EXPECT_EQ(EngineSlot(3, 3), std::nullopt);
}

}  // namespace
}  // namespace velquist::data
