// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <string>

#include "data/GearData.h"
#include "data/SetupData.h"
#include "platform/HostFileSystem.h"
#include "runner/SourceDirectory.h"
#include "setup/Layouts.h"
#include "setup/SetupRecord.h"

namespace {

using namespace velquist;

const std::string kProgram = (velquist::testing::SourceDirectory() / "assets" / "program").string();
using enum data::ModYear;

// Moving a setup from its bytes to the values and back should cost under 2 microseconds.
void LoadAndStoreDefaultSetup(benchmark::State& state)
{
  const platform::HostFileSystem files;
  data::SetupData values;
  data::GearData gears;
  setup::Bytes buffer;
  if (!data::ReadSetupData(files, kProgram, k1967, values) ||
      !data::ReadGearData(files, kProgram, k1967, gears) ||
      !setup::IsSetupFile(files, kProgram + "/67 Velquist Default.vqset", buffer)) {
    state.SkipWithError("shipped files missing");
    return;
  }
  for (auto _ : state) {
    const bool symmetric = setup::LoadSetupValues(buffer, gears, k1967, values);
    setup::StoreSetupValues(values, setup::ValuesOfLists(values, {0, 0, 0, 0}), !symmetric, k1967,
                            buffer);
    benchmark::DoNotOptimize(buffer.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(LoadAndStoreDefaultSetup);

// Both data files are read at each change of mod year; each should cost under 200 microseconds.

void ReadShippedSetupData(benchmark::State& state)
{
  const platform::HostFileSystem files;
  data::SetupData values;
  for (auto _ : state) {
    if (!data::ReadSetupData(files, kProgram, k1967, values)) {
      state.SkipWithError("shipped file missing");
      return;
    }
    benchmark::DoNotOptimize(values);
  }
}
BENCHMARK(ReadShippedSetupData);

void ReadShippedGearData(benchmark::State& state)
{
  const platform::HostFileSystem files;
  data::GearData gears;
  for (auto _ : state) {
    if (!data::ReadGearData(files, kProgram, k1967, gears)) {
      state.SkipWithError("shipped file missing");
      return;
    }
    benchmark::DoNotOptimize(gears);
  }
}
BENCHMARK(ReadShippedGearData);

}  // namespace
