// SPDX-License-Identifier: MIT
#include "charts/SpeedBands.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "data/ChassisCatalogue.h"

namespace velquist::charts {
namespace {

using enum data::ModYear;

/// Finds the band of values given from 0 rpm on in steps of 200; the rest is 0.
class FoundBand {
 public:
  FoundBand(std::vector<float> values, int maximum_rpm)
  {
    std::vector<float> rpm(71);
    for (std::size_t i = 0; i < rpm.size(); ++i) rpm[i] = 200.0F * static_cast<float>(i);
    values.resize(rpm.size());
    band_ = FindBand(rpm, values, maximum_rpm);
  }
  [[nodiscard]] int Low() const { return band_.low; }
  [[nodiscard]] int High() const { return band_.high; }

 private:
  Band band_;
};

TEST(SpeedBands, TheBandReachesAsFarAsNinePartsInTen)
{
  const FoundBand band({10, 89, 91, 95, 100, 99, 92, 89, 95}, 9000);
  EXPECT_EQ(band.Low(), 400);
  EXPECT_EQ(band.High(), 1200);
}

TEST(SpeedBands, ASampleOfExactlyNinePartsInTenExtendsTheBandDownOnly)
{
  const FoundBand band({0, 90, 100, 90, 0}, 9000);
  EXPECT_EQ(band.Low(), 200);
  EXPECT_EQ(band.High(), 400);
}

TEST(SpeedBands, TheThresholdIsRoundedToSinglePrecision)
{
  // 0.9 * 1.1 is 0.99000002 in double precision; the nearest single is exactly the sample.
  const float threshold = static_cast<float>(0.9 * static_cast<double>(1.1F));
  ASSERT_LT(static_cast<double>(threshold), 0.9 * static_cast<double>(1.1F));
  const FoundBand band({0, threshold, 1.1F, threshold, 0}, 9000);
  EXPECT_EQ(band.Low(), 200);
  EXPECT_EQ(band.High(), 400);
}

TEST(SpeedBands, OfEqualPeaksTheFirstCounts)
{
  const FoundBand band({0, 100, 80, 100, 100, 0}, 9000);
  EXPECT_EQ(band.Low(), 200);
  EXPECT_EQ(band.High(), 200);
}

TEST(SpeedBands, APeakFrom1000RpmBeyondMaximumOnIsNotSearched)
{
  std::vector<float> values(71, 10);
  values[40] = 100;  // 8000 rpm
  values[50] = 200;  // 10000 rpm
  EXPECT_EQ(FoundBand(values, 9000).Low(), 8000);
  EXPECT_EQ(FoundBand(values, 9001).Low(), 10000);
}

TEST(SpeedBands, TheBandItselfMayReachBeyondTheSearchedSamples)
{
  std::vector<float> values(71, 10);
  for (std::size_t i = 40; i < 60; ++i) values[i] = 100;
  const FoundBand band(values, 7200);
  EXPECT_EQ(band.Low(), 8000);
  EXPECT_EQ(band.High(), 11800);
}

TEST(SpeedBands, TheBandMayReachFromTheFirstSampleToTheLast)
{
  const FoundBand band(std::vector<float>(71, 100), 9000);
  EXPECT_EQ(band.Low(), 0);
  EXPECT_EQ(band.High(), 14000);
}

TEST(SpeedBands, AnEngineThatGivesNothingHasNoBand)
{
  const FoundBand band(std::vector<float>(71, -5), 9000);
  EXPECT_EQ(band.Low(), 0);
  EXPECT_EQ(band.High(), 0);
}

TEST(SpeedBands, MaximumSpeedGoesByModYear)
{
  constexpr std::pair<data::ModYear, double> kSpeeds[] = {
      {k1967, 200}, {k1965, 180}, {k1966, 200}, {k1969, 200}};
  for (const auto& [ModYearIndex, speed] : kSpeeds)
    for (int chassis = 0; chassis < data::ChassisCount(ModYearIndex); ++chassis)
      EXPECT_EQ(MaximumSpeed(ModYearIndex, chassis), speed)
          << data::ModYearText(ModYearIndex) << ' ' << chassis;
}

TEST(SpeedBands, MaximumSpeedOfAGTCarGoesByChassis)
{
  const std::array speeds = {208.0, 206.0, 202.0, 204.0, 194.0, 215.0, 206.0, 196.0, 172.0};
  ASSERT_EQ(data::ChassisCount(kGT), static_cast<int>(speeds.size()));
  for (std::size_t chassis = 0; chassis < speeds.size(); ++chassis)
    EXPECT_EQ(MaximumSpeed(kGT, static_cast<int>(chassis)), speeds[chassis]) << chassis;
}

SpeedBands Computed(const std::vector<float>& ratios, float final_drive, bool metric = false,
                    data::ModYear ModYearIndex = k1967, int chassis = 1)
{
  const auto& engine = data::EngineOf(ModYearIndex, chassis);
  data::EngineCurve curve;
  data::ComputeEngineCurve(ModYearIndex, chassis, curve);
  return ComputeSpeedBands(curve, static_cast<int>(engine.maximum_rpm), ModYearIndex, chassis,
                           ratios, final_drive, metric);
}

TEST(SpeedBands, SpeedPerRpmIsThatOfA27InchTyre)
{
  const auto bands = Computed({2.0F, 1.5F}, 3.0F);
  ASSERT_EQ(bands.gears.size(), 2U);
  // 84.8232 inches a turn, one turn of the wheel every 6 of the engine.
  EXPECT_NEAR(bands.gears[0].speed_per_rpm, 0.0133875, 1e-15);
  EXPECT_NEAR(bands.gears[0].speed_per_rpm * 9000, 120.4875, 1e-10);
  EXPECT_NEAR(bands.gears[1].speed_per_rpm, 0.01785, 1e-15);
  EXPECT_EQ(bands.gears[1].gear, 2);
  EXPECT_EQ(bands.gear_rows, 2);
  EXPECT_FALSE(bands.metric);
}

TEST(SpeedBands, MetricSpeedsAreInKilometres)
{
  const auto bands = Computed({2.0F}, 3.0F, true);
  ASSERT_EQ(bands.gears.size(), 1U);
  EXPECT_NEAR(bands.gears[0].speed_per_rpm, 0.0133875 * 1.609344, 1e-15);
  EXPECT_EQ(bands.maximum_speed, 200 * 1.609344);
  EXPECT_TRUE(bands.metric);
  EXPECT_EQ(Computed({2.0F}, 3.0F, true, k1965).maximum_speed, 180 * 1.609344);
}

TEST(SpeedBands, AGearWithoutRatioIsLeftOutAndTheOthersKeepTheirNumbers)
{
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (const float none : {0.0F, -0.0F, -2.0F, nan}) {
    const auto bands = Computed({none, 2.0F, none, 1.0F}, 3.0F);
    ASSERT_EQ(bands.gears.size(), 2U) << none;
    EXPECT_EQ(bands.gears[0].gear, 2);
    EXPECT_EQ(bands.gears[1].gear, 4);
    EXPECT_EQ(bands.gear_rows, 4);
  }
}

TEST(SpeedBands, WithoutFinalDriveNoGearHasASpeed)
{
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (const float none : {0.0F, -3.0F, nan})
    EXPECT_TRUE(Computed({2.0F, 1.0F}, none).gears.empty()) << none;
}

/// The rules of the bands written down a second time, for every engine there is.
TEST(SpeedBands, BandsOfEveryEngineHoldTheirPeakAndEndWhereTheValuesFall)
{
  for (const auto ModYearIndex : data::kModYears) {
    for (int slot = 0; slot < data::kEngineSlots; ++slot) {
      const auto maximum = static_cast<int>(data::EngineOf(ModYearIndex, slot).maximum_rpm);
      if (maximum == 0) continue;
      SCOPED_TRACE(std::string(data::ModYearText(ModYearIndex)) + ", " + std::to_string(slot));
      data::EngineCurve curve;
      data::ComputeEngineCurve(ModYearIndex, slot, curve);
      for (const auto& values : {curve.torque, curve.power}) {
        const Band band = FindBand(curve.rpm, values, maximum);
        std::size_t peak = 0;
        for (std::size_t i = 1; i < 71 && 200 * static_cast<int>(i) < maximum + 1000; ++i)
          if (values[i] > values[peak]) peak = i;
        const auto threshold = static_cast<float>(0.9 * static_cast<double>(values[peak]));
        const auto low = static_cast<std::size_t>(band.low / 200);
        const auto high = static_cast<std::size_t>(band.high / 200);
        ASSERT_LE(low, peak);
        ASSERT_LE(peak, high);
        for (std::size_t i = low; i <= peak; ++i) EXPECT_GE(values[i], threshold) << i;
        for (std::size_t i = peak; i <= high; ++i) EXPECT_GT(values[i], threshold) << i;
        if (low > 0) {
          EXPECT_LT(values[low - 1], threshold);
        }
        if (high < 70) {
          EXPECT_LE(values[high + 1], threshold);
        }
      }
    }
  }
}

}  // namespace
}  // namespace velquist::charts
