// SPDX-License-Identifier: MIT
// What a press of a button costs in the main window's state, found by name as the window finds it,
// labels and charts included. Values go up and down in turn so that no press is refused.
#include <benchmark/benchmark.h>

#include "MemoryProgram.h"
#include "runner/SourceDirectory.h"

namespace {

using velquist::data::ModYear;
using velquist::testing::MemoryProgram;
using velquist::testing::SavedSettings;

/// A started program with the shipped data files.
class Program {
 public:
  explicit Program(const SavedSettings& saved = {})
  {
    program_.PutShippedFiles(velquist::testing::SourceDirectory() / "assets" / "program");
    program_.Start(saved);
  }
  void SetBox(const char* box) { program_.Window().Check(box, -1, true); }

  /// Presses the two buttons of `slot` in turn.
  void PressInTurn(benchmark::State& state, int slot)
  {
    auto& window = program_.Window();
    bool up = false;
    for (auto _ : state) {
      up = !up;
      window.Click(up ? "CmdInc" : "CmdDec", slot);
      benchmark::DoNotOptimize(window.Form());
    }
  }

 private:
  MemoryProgram program_;
};

// Under 2 microseconds each.

void PlainStep(benchmark::State& state)
{
  Program().PressInTurn(state, 30);
}
BENCHMARK(PlainStep);

void StepWithPartner(benchmark::State& state)
{
  Program().PressInTurn(state, 16);
}
BENCHMARK(StepWithPartner);

void StepOfProportionalSprings(benchmark::State& state)
{
  Program program;
  program.SetBox("SpringStiffnessProportional");
  program.PressInTurn(state, 4);
}
BENCHMARK(StepOfProportionalSprings);

void StepOfConstantRollBars(benchmark::State& state)
{
  Program program;
  program.SetBox("RollBarConstTotal");
  program.PressInTurn(state, 26);
}
BENCHMARK(StepOfConstantRollBars);

// Under 25 microseconds each: the engine curve, the bands and everything drawn in the chart.

void GearPressWithPolynomialEngine(benchmark::State& state)
{
  Program({.ModYearIndex = ModYear::k1967, .chassis = 1}).PressInTurn(state, 42);
}
BENCHMARK(GearPressWithPolynomialEngine);

void GearPressWithPointTableEngine(benchmark::State& state)
{
  Program({.ModYearIndex = ModYear::k1966, .chassis = 4}).PressInTurn(state, 42);
}
BENCHMARK(GearPressWithPointTableEngine);

}  // namespace
