// SPDX-License-Identifier: MIT
// The input is a setup file: read, loaded, stored, converted and imported for every mod year.
#include <algorithm>
#include <numeric>

#include "Fuzz.h"
#include "MemoryFiles.h"
#include "SetupMutator.h"
#include "SetupSamples.h"
#include "platform/Errors.h"
#include "setup/Identification.h"
#include "setup/Imports.h"
#include "setup/Layouts.h"
#include "setup/SetupRecord.h"
#include "setup/SlotTable.h"

namespace {

using namespace velquist;
using fuzz::Require;
using setup::Bytes;

struct Tables {
  data::GearData gears = samples::SampleGears();
  data::SetupData values = samples::SampleData();
};

bool IsKept(std::size_t offset, std::size_t size)
{
  return offset < 20 || (offset >= 48 && offset < 56) || (offset >= 172 && offset < 204) ||
         (offset > setup::kSymmetryOffset && size < setup::kLongLayoutSize) || offset >= 269;
}

/// True when the setup could be loaded and stored.
bool LoadAndStore(const Bytes& file, data::ModYear ModYearIndex, const setup::ListSelections& lists,
                  Tables& tables, Bytes& stored)
{
  try {
    const bool symmetric = setup::LoadSetupValues(file, tables.gears, ModYearIndex, tables.values);
    stored = file;
    setup::StoreSetupValues(tables.values, setup::ValuesOfLists(tables.values, lists), !symmetric,
                            ModYearIndex, stored);
    Require((stored[setup::kSymmetryOffset] == std::byte{1}) == symmetric, "symmetry byte kept");
  } catch (const BoundsError&) {
    return false;
  }
  Require(stored.size() == file.size(), "storing keeps the size");
  if (ModYearIndex != data::ModYear::k1969) {
    for (std::size_t at = 0; at < file.size(); ++at)
      if (IsKept(at, file.size())) Require(stored[at] == file[at], "bytes of no slot are kept");
  }
  for (int slot = 0; slot <= setup::kFirstRatio + 6; ++slot) {
    if (setup::IsWholeSlot(slot) || (slot >= setup::kFrontWing && slot <= setup::kRearWing))
      continue;
    const auto offset = static_cast<std::size_t>(setup::SlotOffset[static_cast<std::size_t>(slot)]);
    Require(std::equal(stored.begin() + static_cast<std::ptrdiff_t>(offset),
                       stored.begin() + static_cast<std::ptrdiff_t>(offset) + 4,
                       file.begin() + static_cast<std::ptrdiff_t>(offset)),
            "every single keeps its bits");
  }
  return true;
}

void Convert(const Bytes& stored)
{
  for (const auto wanted : {setup::Layout::kShort, setup::Layout::kLong}) {
    Bytes once = stored;
    setup::ConvertLayout(once, wanted);
    const bool either =
        stored.size() == setup::kShortLayoutSize || stored.size() == setup::kLongLayoutSize;
    const auto size =
        wanted == setup::Layout::kShort ? setup::kShortLayoutSize : setup::kLongLayoutSize;
    Require(once.size() == (either ? size : stored.size()), "size of the wanted layout");
    Bytes twice = once;
    setup::ConvertLayout(twice, wanted);
    Require(twice == once, "converting twice changes nothing");
  }
}

void Import(const Bytes& file, data::ModYear ModYearIndex, Tables& tables)
{
  try {
    setup::ImportChassis(file, ModYearIndex, tables.values);
  } catch (const BoundsError&) {
  }
  try {
    setup::ImportDrivetrain(file, tables.gears, tables.values);
    setup::RebuildRatioNumbers(tables.gears, tables.values);
  } catch (const BoundsError&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  static Tables tables;
  testing::MemoryFiles files;
  files.Put("x.lo1", fuzz::TextOf(data, size));
  Bytes file;
  const bool is_setup = setup::IsSetupFile(files, "x.lo1", file);
  Require(is_setup == fuzz::TextOf(data, size).starts_with("PGTS"), "the magic decides");
  (void)setup::Identify("x.lo1", file);

  const auto sum = std::accumulate(data, data + size, 0);
  const setup::ListSelections lists = {sum % 20, sum % 12, sum % 11, sum % 5};
  for (const auto ModYearIndex : data::kModYears) {
    Bytes stored;
    Bytes again;
    if (LoadAndStore(file, ModYearIndex, lists, tables, stored)) {
      Require(LoadAndStore(stored, ModYearIndex, lists, tables, again),
              "what was stored can be loaded");
      Require(again == stored, "storing again changes nothing");
      Convert(stored);
    }
    Import(file, ModYearIndex, tables);
  }
  return 0;
}
