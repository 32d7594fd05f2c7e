// SPDX-License-Identifier: MIT
// Both charts from the engine's figures to the last primitive, as after each gear change. Curve,
// bands and drawing together stay under 25 microseconds.
#include <benchmark/benchmark.h>

#include <array>
#include <span>

#include "charts/EngineChart.h"
#include "charts/PictureRecorder.h"
#include "charts/SpeedBandsChart.h"
#include "data/ChassisCatalogue.h"

namespace {

using namespace velquist;

struct Car {
  data::ModYear ModYearIndex;
  int engine_slot;
};
constexpr Car kPolynomial{data::ModYear::k1967, 1};  // six gears
constexpr Car kPointTable{data::ModYear::k1966, 3};  // six gears
constexpr Car kLargest{data::ModYear::kGT, 0};       // leaves the value axis

constexpr std::array<float, 6> kRatios = {2.4F, 1.9F, 1.5F, 1.25F, 1.05F, 0.9F};
constexpr float kFinalDrive = 3.6F;

charts::SpeedBands Bands(const Car& car, const data::EngineCurve& curve)
{
  const auto& engine = data::EngineOf(car.ModYearIndex, car.engine_slot);
  const auto gears = static_cast<std::size_t>(engine.gears);
  return charts::ComputeSpeedBands(curve, static_cast<int>(engine.maximum_rpm), car.ModYearIndex,
                                   car.engine_slot, std::span(kRatios).first(gears), kFinalDrive,
                                   false);
}

charts::PictureRecorder Picture(double width, double height)
{
  charts::PictureRecorder picture;
  picture.Resize(width, height);
  return picture;
}

void BothCharts(benchmark::State& state, Car car)
{
  auto engine_picture = Picture(356, 218);
  auto bands_picture = Picture(600, 264);
  data::EngineCurve curve;
  for (auto _ : state) {
    data::ComputeEngineCurve(car.ModYearIndex, car.engine_slot, curve);
    const auto bands = Bands(car, curve);
    charts::DrawSpeedBands(bands_picture, car.ModYearIndex, bands);
    charts::DrawEngineChart(engine_picture, car.ModYearIndex, curve, bands.maximum_rpm);
    benchmark::DoNotOptimize(bands_picture);
    benchmark::DoNotOptimize(engine_picture);
  }
}
BENCHMARK_CAPTURE(BothCharts, PolynomialEngine, kPolynomial);
BENCHMARK_CAPTURE(BothCharts, PointTableEngine, kPointTable);
BENCHMARK_CAPTURE(BothCharts, GTEngine, kLargest);

void SpeedBandsOfAnEngine(benchmark::State& state)
{
  data::EngineCurve curve;
  data::ComputeEngineCurve(kPolynomial.ModYearIndex, kPolynomial.engine_slot, curve);
  for (auto _ : state) benchmark::DoNotOptimize(Bands(kPolynomial, curve));
}
BENCHMARK(SpeedBandsOfAnEngine);

void ReadingAChart(benchmark::State& state)
{
  data::EngineCurve curve;
  data::ComputeEngineCurve(kPolynomial.ModYearIndex, kPolynomial.engine_slot, curve);
  const auto bands = Bands(kPolynomial, curve);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        charts::ReadEngineChart(356, 218, kPolynomial.ModYearIndex, curve, 200, 100));
    benchmark::DoNotOptimize(charts::ReadSpeedBands(600, 264, bands, 300, 100));
  }
}
BENCHMARK(ReadingAChart);

}  // namespace
