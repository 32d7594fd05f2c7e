// SPDX-License-Identifier: MIT
#include "edit/History.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <iterator>
#include <utility>

#include "setup/SlotNames.h"

namespace velquist::edit {

bool Same(const ValueSet& a, const ValueSet& b)
{
  const auto bits = [](float value) { return std::bit_cast<std::uint32_t>(value); };
  return std::ranges::equal(a.values, b.values, {}, bits, bits) && a.lists == b.lists &&
         (a.bytes == b.bytes || *a.bytes == *b.bytes);
}

void History::MakeRoom()
{
  steps_.reserve(2 * kKept);
}

HistoryStep& History::Append()
{
  const auto tail = steps_.begin() + static_cast<std::ptrdiff_t>(At(now_.position));
  if (tail != steps_.end()) {
    dropped_.assign(std::move_iterator(tail), std::move_iterator(steps_.end()));
    steps_.erase(tail, steps_.end());
    if (now_.saved > now_.position) now_.saved.reset();
  }
  if (steps_.size() == 2 * kKept) {
    steps_.erase(steps_.begin(), steps_.begin() + kKept);
    forgotten_ += kKept;
  }
  held_.reset();
  ++now_.position;
  ++now_.additions;
  return steps_.emplace_back();
}

void History::AddPress(int slot, Direction direction, bool repeated,
                       std::span<const SlotChange> changes)
{
  const bool goes_on = repeated && held_ && held_->slot == slot && held_->direction == direction;
  HistoryStep& step = goes_on ? steps_.back() : Append();
  if (!goes_on) {
    for (std::size_t at = 0; at < changes.size(); ++at) step.slots.at(at) = changes[at];
    step.changes = static_cast<std::uint8_t>(changes.size());
    step.name = setup::SlotName(slot);
    held_ = {slot, direction};
    return;
  }
  for (const auto& change : changes) {
    auto* const end = step.slots.data() + step.changes;
    auto* const known = std::find_if(step.slots.data(), end, [&](const SlotChange& earlier) {
      return earlier.slot == change.slot;
    });
    if (known != end) {
      known->after = change.after;
    } else {
      step.slots.at(step.changes) = change;
      ++step.changes;
    }
  }
}

void History::Add(std::string_view name, bool sets_changed, ValueSet before, ValueSet after)
{
  held_.reset();
  if (Same(before, after)) return;
  auto whole = std::make_unique<WholeChange>(WholeChange{std::move(before), std::move(after)});
  HistoryStep& step = Append();
  step.name = name;
  step.sets_changed = sets_changed;
  step.whole = std::move(whole);
}

const HistoryStep* History::UndoStep(std::size_t count) const noexcept
{
  const auto done = At(now_.position);
  return count <= done ? &steps_[done - count] : nullptr;
}

const HistoryStep* History::RedoStep(std::size_t count) const noexcept
{
  const auto at = At(now_.position) + count - 1;
  return at < steps_.size() ? &steps_[at] : nullptr;
}

void History::Undo() noexcept
{
  held_.reset();
  --now_.position;
}

void History::Redo() noexcept
{
  held_.reset();
  ++now_.position;
}

void History::Saved(const std::shared_ptr<const setup::Bytes>& old_bytes,
                    const std::shared_ptr<const setup::Bytes>& written)
{
  held_.reset();
  now_.saved = now_.position;
  for (auto& step : steps_) {
    if (!step.whole) continue;
    for (auto* const set : {&step.whole->before, &step.whole->after})
      if (set->bytes == old_bytes) set->bytes = written;
  }
}

History::Mark History::Now() const noexcept
{
  Mark mark = now_;
  mark.had_more = ToRedo() != nullptr;
  return mark;
}

void History::GoBack(const Mark& mark)
{
  held_.reset();
  if (now_.additions != mark.additions) {
    steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(At(mark.position)), steps_.end());
    if (mark.had_more) std::ranges::move(dropped_, std::back_inserter(steps_));
  }
  now_ = mark;
}

}  // namespace velquist::edit
