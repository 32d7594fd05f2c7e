// SPDX-License-Identifier: MIT
// velquist_hot_paths NAME ROUNDS: runs one of the model's hot paths so many times, in Measured
// alone, for tests/scripts/instruction-counts. Without a name it prints them all.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "MemoryProgram.h"
#include "charts/Gearing.h"
#include "data/ChassisCatalogue.h"
#include "data/EngineCurve.h"
#include "data/GearData.h"
#include "data/SetupData.h"
#include "platform/HostFileSystem.h"
#include "runner/SourceDirectory.h"
#include "setup/Layouts.h"
#include "setup/SetupRecord.h"

namespace {

using namespace velquist;
using enum data::ModYear;

const std::string kProgram = (testing::SourceDirectory() / "assets" / "program").string();

/// What is run again and again; it keeps all that it needs.
using Work = std::function<void()>;

struct Setup {
  data::SetupData values;
  data::GearData gears;
  setup::Bytes buffer;

  Setup()
  {
    const platform::HostFileSystem files;
    if (!data::ReadSetupData(files, kProgram, k1967, values) ||
        !data::ReadGearData(files, kProgram, k1967, gears) ||
        !setup::IsSetupFile(files, kProgram + "/67 Velquist Default.vqset", buffer))
      throw std::runtime_error("shipped files missing");
  }
};

Work Load()
{
  return [setup = std::make_shared<Setup>()] {
    (void)setup::LoadSetupValues(setup->buffer, setup->gears, k1967, setup->values);
  };
}

Work Store()
{
  const auto setup = std::make_shared<Setup>();
  const bool symmetric = setup::LoadSetupValues(setup->buffer, setup->gears, k1967, setup->values);
  return [setup, symmetric] {
    setup::StoreSetupValues(setup->values, setup::ValuesOfLists(setup->values, {0, 0, 0, 0}),
                            !symmetric, k1967, setup->buffer);
  };
}

/// Presses the two buttons of `slot` in turn.
Work Presses(int slot)
{
  const auto program = std::make_shared<testing::MemoryProgram>();
  program->PutShippedFiles(kProgram);
  program->Start({.ModYearIndex = k1967, .chassis = 1});
  return [program, slot, up = false]() mutable {
    up = !up;
    program->Window().Click(up ? "CmdInc" : "CmdDec", slot);
  };
}

Work Curve()
{
  return [curve = std::make_shared<data::EngineCurve>()] {
    data::ComputeEngineCurve(k1967, 1, *curve);
  };
}

Work Gearing()
{
  constexpr float kFinalDrive = 3.6F;
  constexpr int kEngine = 6;
  static constexpr std::array<float, data::kMostGears> kRatios = {2.7F,  2.3F,  1.95F,
                                                                  1.66F, 1.41F, 1.2F};
  return [curve = std::make_shared<data::EngineCurve>()] {
    data::ComputeEngineCurve(k1965, kEngine, *curve);
    const auto maximum_rpm = static_cast<int>(data::EngineOf(k1965, kEngine).maximum_rpm);
    const auto bands =
        charts::ComputeSpeedBands(*curve, maximum_rpm, k1965, kEngine, kRatios, kFinalDrive, false);
    (void)charts::ComputeGearing(*curve, bands, kRatios, kFinalDrive);
  };
}

const std::map<std::string, std::function<Work()>>& Paths()
{
  static const std::map<std::string, std::function<Work()>> kPaths = {
      {"load", Load},
      {"store", Store},
      {"plain-step", [] { return Presses(30); }},
      {"gear-step", [] { return Presses(42); }},
      {"curve", Curve},
      {"gearing", Gearing},
  };
  return kPaths;
}

}  // namespace

/// The one function whose instructions are counted; its name is that for the counter.
extern "C" [[gnu::noinline]] void Measured(const Work& work, int rounds)
{
  for (int round = 0; round < rounds; ++round) work();
}

int main(int argc, char** argv)
{
  if (argc != 3) {
    for (const auto& [name, make] : Paths()) std::puts(name.c_str());
    return 0;
  }
  const Work work = Paths().at(argv[1])();
  for (int warm = 0; warm < 2; ++warm) work();
  Measured(work, std::atoi(argv[2]));
  return 0;
}
