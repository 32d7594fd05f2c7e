// SPDX-License-Identifier: MIT
// What history and marks add to a press: the same presses in a program without them, which finds
// the button, steps the values and writes the labels, and in the real one, turn by turn. The
// counter is what a press costs of a plain one; 1.1 is wanted.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "MemoryProgram.h"
#include "app/FormControlSettings.h"
#include "data/ChassisCatalogue.h"
#include "edit/Display.h"
#include "edit/StepEditing.h"
#include "runner/SourceDirectory.h"
#include "setup/SlotTable.h"

namespace {

using namespace velquist;
using testing::MemoryProgram;

constexpr int kPressesInARow = 2000;

/// The editor as it would be without anything that remembers or compares.
class PlainEditor {
 public:
  explicit PlainEditor(const app::MainWindow& window)
      : values_(window.Car().SetupData()),
        options_(window.Car().Options()),
        year_(window.Car().ModYearIndex()),
        chassis_(window.Car().ChassisIndex()),
        formula_(window.Car().FormulaIndex())
  {
  }

  void Click(std::string_view name, int index)
  {
    const auto rows = app::FormControlSettings();
    const auto row = std::ranges::find_if(rows, [&](const app::ControlDesign& design) {
      return design.index == index && design.name == name;
    });
    if (row == rows.end() || row->kind != app::ControlKind::kButton || row->event == nullptr)
      return;
    const auto direction =
        name == "CmdInc" ? edit::Direction::kIncrease : edit::Direction::kDecrease;
    const int engine_slot = data::EngineSlot(chassis_, formula_).value_or(chassis_);
    const float rear_weight = data::RearWeightFraction(year_, engine_slot);
    for (const int slot : edit::Step(values_, index, direction, options_, rear_weight))
      form_.Label1.at(static_cast<std::size_t>(slot)).text = edit::DisplayText(
          slot, values_.Value(setup::RowOf(slot), data::kCurrent), 0, options_.FineIndex());
    benchmark::DoNotOptimize(form_);
  }

 private:
  app::MainForm form_;
  data::SetupData values_;
  edit::EditOptions options_;
  data::ModYear year_;
  int chassis_;
  int formula_;
};

/// Seconds of as many presses, up and down in turn.
template <class Editor>
double Presses(Editor& editor, int slot)
{
  const auto start = std::chrono::steady_clock::now();
  for (int press = 0; press < kPressesInARow; ++press)
    editor.Click(press % 2 == 0 ? "CmdInc" : "CmdDec", slot);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void PressWithHistoryAndMarks(benchmark::State& state)
{
  const int slot = static_cast<int>(state.range(0));
  MemoryProgram program;
  program.PutShippedFiles(testing::SourceDirectory() / "assets" / "program");
  program.Start();
  PlainEditor plain(program.Window());
  // Of each turn, so that whatever else the machine does slows both.
  std::vector<double> ratios;
  for (auto _ : state) {
    const double before = Presses(plain, slot);
    const double now = Presses(program.Window(), slot);
    state.SetIterationTime(now / kPressesInARow);
    ratios.push_back(now / before);
  }
  const auto middle = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2);
  std::nth_element(ratios.begin(), middle, ratios.end());
  state.counters["ratio"] = *middle;
}
BENCHMARK(PressWithHistoryAndMarks)->Arg(30)->Arg(16)->Arg(4)->UseManualTime()->Iterations(200);

}  // namespace
