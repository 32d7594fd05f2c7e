// SPDX-License-Identifier: MIT
// What a setup being edited can go back to, and what it is compared with.
#include <memory>
#include <utility>

#include "edit/CarSetup.h"
#include "setup/SlotTable.h"

namespace velquist::edit {

using setup::RowOf;

void CarSetup::StartEditing()
{
  const auto loaded =
      std::make_shared<const Reference>(ReferenceOf(*this, ReferenceSource::kLoaded, {}, {}));
  history_ = std::make_shared<History>();
  history_->MakeRoom();
  loaded_ = reference_ = loaded;
  changed_ = false;
}

bool CarSetup::Undo()
{
  const auto* const step = history_->ToUndo();
  if (step == nullptr) return false;
  const bool leaves_saved = history_->AtSaved();
  Show(*step, false);
  history_->Undo();
  if (history_->AtSaved())
    changed_ = false;
  else if (leaves_saved)
    changed_ = true;
  return true;
}

bool CarSetup::Redo()
{
  const auto* const step = history_->ToRedo();
  if (step == nullptr) return false;
  Show(*step, true);
  history_->Redo();
  if (history_->AtSaved())
    changed_ = false;
  else if (step->sets_changed)
    changed_ = true;
  return true;
}

std::string_view CarSetup::UndoText() const
{
  const auto* const step = history_->ToUndo();
  return step == nullptr ? std::string_view() : step->name;
}

std::string_view CarSetup::RedoText() const
{
  const auto* const step = history_->ToRedo();
  return step == nullptr ? std::string_view() : step->name;
}

ValueSet CarSetup::Values() const
{
  ValueSet set{.lists = lists_, .bytes = edited_bytes_};
  setup_data_.CopyCurrent(set.values);
  return set;
}

/// Makes one end of a step the values of now.
void CarSetup::Show(const HistoryStep& step, bool after)
{
  for (const auto& change : step.Slots())
    setup_data_.Current(RowOf(change.slot)) = after ? change.after : change.before;
  if (!step.whole) return;
  const auto& set = after ? step.whole->after : step.whole->before;
  setup_data_.SetCurrent(set.values);
  lists_ = set.lists;
  // A step that brought no bytes leaves the buffer alone, which may hold a file that was refused.
  if (set.bytes != edited_bytes_) SetupBuffer_ = edited_bytes_ = set.bytes;
}

void CarSetup::CompareWith(Reference reference)
{
  // One table in memory says at once that both have the same gears.
  if (*reference.gears == tables_->gears) reference.gears = GearTable();
  reference_ = std::make_shared<const Reference>(std::move(reference));
}

}  // namespace velquist::edit
