// SPDX-License-Identifier: MIT
#include "data/EngineCurve.h"

#include <benchmark/benchmark.h>

namespace {

using velquist::data::ComputeEngineCurve;
using velquist::data::EngineCurve;
using velquist::data::ModYear;

// Each drawing of a chart computes the curve anew; it should cost under 3 microseconds.

void CurveOfPolynomialEngine(benchmark::State& state)
{
  EngineCurve curve;
  for (auto _ : state) {
    ComputeEngineCurve(ModYear::k1967, 1, curve);
    benchmark::DoNotOptimize(curve);
  }
}
BENCHMARK(CurveOfPolynomialEngine);

void CurveOfPointTableEngine(benchmark::State& state)
{
  EngineCurve curve;
  for (auto _ : state) {
    ComputeEngineCurve(ModYear::k1966, 0, curve);
    benchmark::DoNotOptimize(curve);
  }
}
BENCHMARK(CurveOfPointTableEngine);

}  // namespace
