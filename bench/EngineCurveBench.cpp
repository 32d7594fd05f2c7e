// SPDX-License-Identifier: MIT
#include "data/EngineCurve.h"

#include <benchmark/benchmark.h>

namespace {

using velquist::data::ComputeEngineCurve;
using velquist::data::EngineCurve;

// Each drawing of a chart computes the curve anew; it should cost under 3 microseconds.

void CurveOfPolynomialEngine(benchmark::State& state)
{
  EngineCurve curve;
  for (auto _ : state) {
    ComputeEngineCurve(0, 1, curve);
    benchmark::DoNotOptimize(curve);
  }
}
BENCHMARK(CurveOfPolynomialEngine);

void CurveOfPointTableEngine(benchmark::State& state)
{
  EngineCurve curve;
  for (auto _ : state) {
    ComputeEngineCurve(2, 0, curve);
    benchmark::DoNotOptimize(curve);
  }
}
BENCHMARK(CurveOfPointTableEngine);

}  // namespace
