// SPDX-License-Identifier: MIT
// All of a car's gearing, as after each press on a gear while it is shown: under 50 microseconds.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <limits>

#include "charts/Gearing.h"
#include "data/ChassisCatalogue.h"

namespace {

using namespace velquist;

constexpr float kGearingFinalDrive = 3.6F;
constexpr double kLimit = 50e-6;  ///< seconds

/// Seconds that `work` takes at best, whatever else the machine does.
template <class Work>
double AtBest(Work&& work)
{
  constexpr int kBatches = 50;
  constexpr int kTimes = 20;
  double best = std::numeric_limits<double>::max();
  for (int batch = 0; batch < kBatches; ++batch) {
    const auto begin = std::chrono::steady_clock::now();
    for (int time = 0; time < kTimes; ++time) work();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    best = std::min(best, taken.count() / kTimes);
  }
  return best;
}

/// `step` is how much slower each gear turns than the one before: the closer they are, the further
/// their best shifts are from maximum rpm, where the search begins.
void GearingOfACar(benchmark::State& state, data::ModYear ModYearIndex, int engine_slot, float step)
{
  std::array<float, data::kMostGears> ratios{2.7F};
  for (std::size_t gear = 1; gear < ratios.size(); ++gear) ratios[gear] = ratios[gear - 1] * step;
  const auto maximum_rpm = static_cast<int>(data::EngineOf(ModYearIndex, engine_slot).maximum_rpm);
  data::EngineCurve curve;
  const auto compute = [&] {
    data::ComputeEngineCurve(ModYearIndex, engine_slot, curve);
    const auto bands = charts::ComputeSpeedBands(curve, maximum_rpm, ModYearIndex, engine_slot,
                                                 ratios, kGearingFinalDrive, false);
    benchmark::DoNotOptimize(charts::ComputeGearing(curve, bands, ratios, kGearingFinalDrive));
  };
  for (auto _ : state) compute();
  if (AtBest(compute) > kLimit) state.SkipWithError("more than 50 microseconds");
}
BENCHMARK_CAPTURE(GearingOfACar, PolynomialEngine, data::ModYear::k1965, 6, 0.85F);
BENCHMARK_CAPTURE(GearingOfACar, PointTableEngine, data::ModYear::k1966, 3, 0.85F);
BENCHMARK_CAPTURE(GearingOfACar, GearsCloseTogether, data::ModYear::k1965, 6, 0.99F);
BENCHMARK_CAPTURE(GearingOfACar, GearsAlmostAlike, data::ModYear::k1965, 6, 0.999F);

}  // namespace
