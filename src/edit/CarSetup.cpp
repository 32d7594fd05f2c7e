// SPDX-License-Identifier: MIT
#include "edit/CarSetup.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

#include "data/ChassisCatalogue.h"
#include "edit/Drivetrain.h"
#include "platform/Errors.h"
#include "setup/Imports.h"
#include "setup/SlotNames.h"
#include "setup/SlotTable.h"

namespace velquist::edit {
namespace {

using setup::RowOf;

std::size_t At(int index)
{
  return static_cast<std::size_t>(index);
}

bool SameBits(float a, float b)
{
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

constexpr std::string_view kImportOfChassis = "import of chassis";
constexpr std::string_view kImportOfDrivetrain = "import of drivetrain";
constexpr std::string_view kReversal = "reversal of sides";
constexpr std::string_view kFromReference = "values of the reference";

}  // namespace

template <class Change>
void CarSetup::AllOrNothing(Change&& change)
{
  auto before = Snapshot();
  try {
    std::forward<Change>(change)();
  } catch (...) {
    Restore(std::move(before));
    throw;
  }
}

/// A change of values that can be undone. Without `sets_changed` it asks for no saving.
template <class Change>
void CarSetup::AsStep(std::string_view name, bool sets_changed, Change&& change)
{
  AllOrNothing([&] {
    auto before = Values();
    std::forward<Change>(change)();
    history_->Add(name, sets_changed, std::move(before), Values());
    if (sets_changed) changed_ = true;
  });
}

int CarSetup::EngineSlot() const
{
  return data::EngineSlot(chassis_index_, formula_index_).value_or(chassis_index_);
}

int CarSetup::GearCount() const
{
  return data::GearCount(ModYearIndex_, EngineSlot());
}

std::optional<DataFile> CarSetup::ReadDataFiles(const platform::FileSystem& files,
                                                std::string_view program_directory)
{
  // Rows that a gear data file lacks keep what an earlier one left.
  auto tables = std::make_shared<ReferenceTables>(*tables_);
  if (!data::ReadSetupData(files, program_directory, ModYearIndex_, tables->setup_data))
    return DataFile::kSetupData;
  if (!data::ReadGearData(files, program_directory, ModYearIndex_, tables->gears))
    return DataFile::kGearData;
  setup_data_ = tables->setup_data;
  tables_ = std::move(tables);
  return std::nullopt;
}

bool CarSetup::ReadFile(const platform::FileSystem& files, std::string_view path)
{
  setup::Bytes bytes;
  if (setup::ReadSetupFile(files, path, bytes) != 0) TakeBytes(std::move(bytes));
  return setup::HasMagic(*SetupBuffer_);
}

void CarSetup::TakeBytes(setup::Bytes bytes)
{
  SetupBuffer_ = std::make_shared<const setup::Bytes>(std::move(bytes));
}

bool CarSetup::HasEveryRatio() const
{
  for (int slot = setup::kFirstGear; slot <= setup::kFinalDrive; ++slot)
    if (!(tables_->gears.Ratio(GearRowOf(setup_data_, slot)) > 0)) return false;
  return true;
}

data::SetupData CarSetup::ValuesToWrite() const
{
  auto values = setup_data_;
  const auto list_values = setup::ValuesOfLists(values, lists_);
  for (int list = 0; list < kDrivetrainLists; ++list)
    values.Current(RowOf(SlotOfList(list))) = static_cast<float>(list_values[At(list)]);
  return values;
}

void CarSetup::LoadValues()
{
  AllOrNothing([&] {
    const bool symmetric =
        setup::LoadSetupValues(*SetupBuffer_, tables_->gears, ModYearIndex_, setup_data_);
    SetAsymmetric(!symmetric);
    TakeBuffer();
  });
}

void CarSetup::LoadLists()
{
  AllOrNothing([&] {
    for (const int list : {kPowerAngleList, kCoastAngleList, kClutchesList, kFinalDriveList})
      SelectInList(list, SelectionInList(list, setup_data_));
  });
}

setup::Bytes CarSetup::BytesToWrite(std::optional<setup::Layout> layout) const
{
  auto values = setup_data_;
  setup::RebuildRatioNumbers(tables_->gears, values);
  setup::Bytes bytes = *edited_bytes_;
  setup::StoreSetupValues(values, setup::ValuesOfLists(values, lists_), options_.asymmetric,
                          ModYearIndex_, bytes);
  if (layout) setup::ConvertLayout(bytes, *layout);
  return bytes;
}

void CarSetup::WriteFile(platform::FileSystem& files, std::string_view path,
                         std::optional<setup::Layout> layout)
{
  AllOrNothing([&] {
    auto written = std::make_shared<const setup::Bytes>(BytesToWrite(layout));
    setup::RebuildRatioNumbers(tables_->gears, setup_data_);
    const auto list_values = setup::ValuesOfLists(setup_data_, lists_);
    for (int list = 0; list < kDrivetrainLists; ++list)
      setup_data_.Current(RowOf(SlotOfList(list))) = static_cast<float>(list_values[At(list)]);
    setup::WriteSetupFile(files, path, *written);
    history_->Saved(edited_bytes_, written);
    SetupBuffer_ = std::move(written);
    TakeBuffer();
    changed_ = false;
  });
}

float CarSetup::Value(int slot) const
{
  // Asked for several times at every press.
  const auto at = static_cast<std::size_t>(slot);
  const auto row = at < setup::SlotRow.size() ? static_cast<std::size_t>(setup::SlotRow[at])
                                              : setup_data_.SetupDataValues.size();
  if (row < setup_data_.SetupDataValues.size())
    return setup_data_.SetupDataValues[row][data::kCurrent];
  return setup_data_.Value(RowOf(slot), data::kCurrent);  // which throws
}

void CarSetup::SetAsymmetric(bool on) noexcept
{
  options_.asymmetric = on;
  if (on) options_.proportional_springs = false;
}

void CarSetup::SetProportionalSprings(bool on) noexcept
{
  options_.proportional_springs = on;
  if (on) options_.asymmetric = false;
}

/// For the steps of proportional springs.
float CarSetup::RearWeight() const
{
  return options_.proportional_springs ? data::RearWeightFraction(ModYearIndex_, EngineSlot())
                                       : 0.0F;
}

ShownSlots CarSetup::Step(int slot, Direction direction, bool repeated)
{
  changed_ = true;
  const auto [first, count] = ReachOfStep(slot);
  std::array<float, 4> before{};
  for (int at = 0; at < count; ++at) before[At(at)] = Value(first + at);
  const auto shown = edit::Step(setup_data_, slot, direction, options_, RearWeight());
  if (setup::IsGear(slot)) {
    try {
      (void)GearRowOf(setup_data_, slot);
    } catch (const BoundsError&) {
      setup_data_.Current(RowOf(slot)) = before.front();
      throw;
    }
  }
  std::array<SlotChange, 4> changes;
  std::size_t moved = 0;
  for (const int each : shown) {  // what has moved is among them
    const float was = before[At(each - first)];
    const float after = Value(each);
    if (!SameBits(was, after)) changes[moved++] = {each, was, after};
  }
  if (moved > 0)
    history_->AddPress(slot, direction, repeated, std::span(changes).first(moved));
  else
    history_->EndPress();
  return shown;
}

int CarSetup::ListSelection(int list) const
{
  return lists_.at(At(list));
}

void CarSetup::ChooseInList(int list, int position)
{
  AsStep(setup::SlotName(SlotOfList(list)), true, [&] { SelectInList(list, position); });
}

void CarSetup::SelectInList(int list, int position)
{
  if (position < 0 || position >= LengthOfList(list, setup_data_))
    throw BoundsError("selection " + std::to_string(position));
  // A final drive counts at once, angles and clutches when the setup is written.
  if (list == kFinalDriveList) {
    auto lists = lists_;
    lists[At(list)] = position;
    const int row = FirstOfList(list, setup_data_) + position;
    (void)tables_->gears.Ratio(row);
    setup_data_.Current(RowOf(setup::kFinalDrive)) = static_cast<float>(row);
  }
  lists_.at(At(list)) = position;
}

int CarSetup::FinalDriveRow() const
{
  return FirstOfList(kFinalDriveList, setup_data_) + ListSelection(kFinalDriveList);
}

void CarSetup::ImportChassis()
{
  AsStep(kImportOfChassis, true, [&] {
    setup::ImportChassis(*SetupBuffer_, ModYearIndex_, setup_data_);
    TakeBuffer();
  });
}

void CarSetup::ImportDrivetrain()
{
  AsStep(kImportOfDrivetrain, true, [&] {
    setup::ImportDrivetrain(*SetupBuffer_, tables_->gears, setup_data_);
    LoadLists();
    TakeBuffer();
  });
}

void CarSetup::ReverseSides()
{
  AsStep(kReversal, false, [&] { setup::ReverseSides(setup_data_); });
}

void CarSetup::TakeFromReference(std::span<const int> slots)
{
  AsStep(kFromReference, true, [&] {
    for (const int slot : slots) TakeValueFromReference(slot);
  });
}

void CarSetup::TakeValueFromReference(int slot)
{
  if (!IsCompared(*this, slot)) return;
  const bool wing = slot == setup::kFrontWing || slot == setup::kRearWing;
  if (wing && !reference_->has_wings) return;
  const auto value = ValueFromReference(*reference_, *this, slot);
  if (!value) return;
  if (const auto list = ListOfSlot(slot))
    SelectInList(*list, *PositionInList(*list, *value, setup_data_));
  else
    setup_data_.Current(RowOf(slot)) = *value;
}

CarSnapshot CarSetup::Snapshot() const
{
  CarSnapshot snapshot{
      .tables = tables_,
      .SetupBuffer = SetupBuffer_,
      .edited_bytes = edited_bytes_,
      .lists = lists_,
      .options = options_,
      .ModYearIndex = ModYearIndex_,
      .chassis_index = chassis_index_,
      .formula_index = formula_index_,
      .changed = changed_,
      .file_name = file_name_,
      .history = history_,
      .mark = history_->Now(),
      .loaded = loaded_,
      .reference = reference_,
  };
  setup_data_.CopyCurrent(snapshot.values);
  return snapshot;
}

void CarSetup::Restore(CarSnapshot snapshot)
{
  if (tables_ != snapshot.tables) setup_data_ = snapshot.tables->setup_data;
  setup_data_.SetCurrent(snapshot.values);
  tables_ = std::move(snapshot.tables);
  SetupBuffer_ = std::move(snapshot.SetupBuffer);
  edited_bytes_ = std::move(snapshot.edited_bytes);
  lists_ = snapshot.lists;
  options_ = snapshot.options;
  ModYearIndex_ = snapshot.ModYearIndex;
  chassis_index_ = snapshot.chassis_index;
  formula_index_ = snapshot.formula_index;
  changed_ = snapshot.changed;
  file_name_ = std::move(snapshot.file_name);
  history_ = std::move(snapshot.history);
  history_->GoBack(snapshot.mark);
  loaded_ = std::move(snapshot.loaded);
  reference_ = std::move(snapshot.reference);
}

}  // namespace velquist::edit
