// SPDX-License-Identifier: MIT
// The input is a setup file, opened, edited, imported, converted and stored as the program does it,
// for one of the mod years.
#include <array>
#include <bit>
#include <cstdint>
#include <numeric>

#include "Cars.h"
#include "Fuzz.h"
#include "SetupMutator.h"
#include "edit/Display.h"
#include "platform/Errors.h"
#include "setup/Identification.h"
#include "setup/SlotTable.h"

namespace {

using namespace velquist;
using fuzz::Require;

using Values = std::array<std::uint32_t, setup::kSlots>;

Values ValuesOf(const edit::CarSetup& car)
{
  Values values{};
  for (int slot = 0; slot < setup::kSlots; ++slot)
    values[static_cast<std::size_t>(slot)] = std::bit_cast<std::uint32_t>(car.Value(slot));
  return values;
}

/// Does what may throw; false, and all is as it was, when it did.
template <class Change>
bool Whole(edit::CarSetup& car, const Change& change)
{
  const auto before = ValuesOf(car);
  try {
    change();
    return true;
  } catch (const BoundsError&) {
    Require(ValuesOf(car) == before, "what fails changes nothing");
    return false;
  }
}

void Show(const edit::CarSetup& car)
{
  for (int slot = 0; slot < setup::kSlots; ++slot)
    for (const int units : {edit::kEnglish, edit::kMetric}) {
      try {
        (void)edit::CurrentText(car, slot, units);
      } catch (const BoundsError&) {
      }
    }
}

void Edit(edit::CarSetup& car, int sum)
{
  const auto before = ValuesOf(car);
  const auto direction = sum % 2 == 0 ? edit::Direction::kIncrease : edit::Direction::kDecrease;
  Whole(car, [&] { (void)car.Step(sum % setup::kSlots, direction, false); });
  Whole(car, [&] { car.ReverseSides(); });
  Show(car);
  while (car.Undo()) {
  }
  Require(ValuesOf(car) == before, "what is undone is as it was");
  while (car.Redo()) {
  }
}

void Store(edit::CarSetup& car)
{
  for (const auto layout : {setup::Layout::kShort, setup::Layout::kLong}) {
    setup::Bytes stored;
    if (!Whole(car, [&] { stored = car.BytesToWrite(layout); })) return;
    // The short layout has no place for the wings of 1969.
    if (layout == setup::Layout::kShort && car.ModYearIndex() == data::ModYear::k1969) continue;
    edit::CarSetup again;
    again.Restore(car.Snapshot());
    again.TakeBytes(stored);
    again.LoadValues();
    Require(again.BytesToWrite(layout) == stored, "what was stored is stored again alike");
  }
}

void Use(edit::CarSetup& car, const setup::Bytes& bytes, int sum)
{
  const auto clean = car.Snapshot();
  car.TakeBytes(bytes);
  // The setup that is being edited is whole; the file is taken as a whole, or half of it.
  Whole(car, [&] { car.ImportChassis(); });
  Whole(car, [&] { car.ImportDrivetrain(); });
  Show(car);
  Store(car);
  car.Restore(clean);
  car.TakeBytes(bytes);
  if (Whole(car, [&] { car.LoadValues(); }) && Whole(car, [&] { car.LoadLists(); })) {
    car.StartEditing();
    Edit(car, sum);
    Store(car);
  }
  car.Restore(clean);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  static fuzz::Cars cars;
  const auto sum = std::accumulate(data, data + size, 0);
  const auto bytes = samples::BytesOf(fuzz::TextOf(data, size));
  Use(cars.of_year[static_cast<std::size_t>(sum) % cars.of_year.size()], bytes, sum);
  return 0;
}
