// SPDX-License-Identifier: MIT
#include "app/LibraryValues.h"

#include <cmath>
#include <utility>

#include "edit/Display.h"
#include "export/Values.h"
#include "platform/Errors.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

bool Has(const edit::CarSetup& car, const library::Identity& identity, int slot)
{
  if (!edit::IsCompared(car, slot)) return false;
  const auto gears = identity.GearCount();
  return !gears || !setup::IsGear(slot) || slot - setup::kFirstGear < *gears;
}

LibraryValue ValueOf(const edit::CarSetup& car, int slot, const ShownAs& as)
{
  const auto number = static_cast<double>(text_export::NumberOf(car, slot, edit::kEnglish));
  auto text = slot < edit::kDisplaySlots
                  ? edit::DisplayText(slot, car.Value(slot), as.units, as.fine ? 1 : 0)
                  : text_export::TextOf(car, slot, as.units);
  return {std::move(text), std::isnan(number) ? std::nullopt : std::optional(number)};
}

}  // namespace

LibraryValues::LibraryValues(const platform::FileSystem& files, std::string program_directory)
    : files_(files), program_directory_(std::move(program_directory))
{
}

edit::CarSetup* LibraryValues::CarOf(data::ModYear year)
{
  const auto [found, is_new] = cars_.try_emplace(year);
  auto& car = found->second;
  if (!is_new) return car.get();
  auto made = std::make_unique<edit::CarSetup>();
  made->SetModYear(year);
  try {
    if (!made->ReadDataFiles(files_, program_directory_)) car = std::move(made);
  } catch (const FileError&) {
  } catch (const BoundsError&) {
  }
  return car.get();
}

std::vector<LibraryValue> LibraryValues::Of(const library::Row& setup, std::span<const int> slots,
                                            const ShownAs& as)
{
  std::vector<LibraryValue> values(slots.size());
  if (setup.file.unreadable) return values;
  auto* const car = CarOf(setup.identity.read_as);
  if (car == nullptr) return values;
  try {
    const auto bytes = setup.file.Bytes();
    car->TakeBytes({bytes.begin(), bytes.end()});
    car->LoadValues();
  } catch (const BoundsError&) {
    return values;
  }
  for (std::size_t at = 0; at < slots.size(); ++at) {
    if (!Has(*car, setup.identity, slots[at])) continue;
    try {
      values[at] = ValueOf(*car, slots[at], as);
    } catch (const BoundsError&) {  // a gear that the gear table does not have
    }
  }
  return values;
}

std::vector<int> LibrarySlots()
{
  std::vector<int> slots;
  for (int slot = 0; slot < setup::kSlots; ++slot)
    if (slot < setup::kFirstRatio || slot >= setup::kFirstGear) slots.push_back(slot);
  return slots;
}

}  // namespace velquist::app
