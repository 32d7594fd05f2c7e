// SPDX-License-Identifier: MIT
// The input is a setup file that another is compared with, of one of the mod years.
#include <array>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string>

#include "Cars.h"
#include "Fuzz.h"
#include "Nothing.h"
#include "SetupMutator.h"
#include "app/ReferenceFile.h"
#include "edit/Display.h"
#include "platform/Errors.h"
#include "setup/Identification.h"

namespace {

using namespace velquist;
using fuzz::Require;

/// Answers every mod year question alike.
class Answering final : public app::Dialogs {
 public:
  int button = 0;

  platform::Answer ShowMessage(std::string_view text, platform::Icon, platform::Buttons) override
  {
    Require(!text.empty(), "a message says something");
    return platform::Answer::kOk;
  }
  std::optional<std::string> AskOpenFile(const platform::OpenRequest&) override { return {}; }
  std::optional<std::string> AskSaveFile(const platform::SaveRequest&) override { return {}; }
  std::optional<int> AskModYear(app::ModYearForm, std::string_view) override
  {
    return button < 4 ? std::optional(button) : std::nullopt;
  }
  void ShowInstallDelete(app::InstallDeleteForm&) override {}
  void ShowHelp() override {}
};

void Compare(const edit::CarSetup& car, const edit::Reference& reference)
{
  for (const auto& difference : edit::Differences(reference, car))
    Require(edit::Differs(reference, car, difference.slot), "the list tells what differs");
  for (int slot = 0; slot < setup::kSlots; ++slot) {
    (void)edit::ValueFromReference(reference, car, slot);
    for (const int units : {edit::kEnglish, edit::kMetric})
      if (edit::IsCompared(car, slot))
        Require(!edit::DifferenceText(reference, car, slot, units).empty(), "it can be told");
  }
  for (const int gears : {5, 6, 7}) (void)edit::RatiosOf(reference, gears);
}

struct Program {
  testing::MemoryFiles& files = fuzz::ShippedFiles();
  testing::Nothing nothing;
  Answering dialogs;
  app::Outside outside{files,   dialogs, nothing, nothing, nothing,
                       nothing, nothing, nothing, nothing, "/program"};
  fuzz::Cars cars;

  Program()
  {
    for (const auto& marker : setup::ModMarkers())
      files.Put("/GPL" + std::string(marker.file), std::string_view());
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  static Program program;
  constexpr std::array<const char*, 4> kPaths = {"/GPL/x.lo1", "/GPL/x.lp2", "/GPL/x.gg1",
                                                 "/GPL/x"};
  const auto sum = static_cast<std::size_t>(std::accumulate(data, data + size, 0));
  const std::string path = kPaths[sum % kPaths.size()];
  program.dialogs.button = static_cast<int>(sum % 5);
  program.files.Put(path, fuzz::TextOf(data, size));
  const auto source = sum % 7 == 0 ? edit::ReferenceSource::kDefault : edit::ReferenceSource::kFile;
  auto& car = program.cars.of_year[sum % data::kModYearCount];
  try {
    if (const auto reference = app::ReadReference(car, "/GPL", program.outside, source, path)) {
      Compare(car, *reference);
      const auto before = car.Snapshot();
      car.CompareWith(*reference);
      std::array<int, setup::kSlots> slots{};
      std::iota(slots.begin(), slots.end(), 0);
      car.TakeFromReference(slots);
      Compare(car, *reference);
      car.Restore(before);
    }
  } catch (const BoundsError&) {
  }
  program.files.Remove(path);
  return 0;
}
