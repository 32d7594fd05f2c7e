// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "data/SetupData.h"
#include "edit/StepEditing.h"
#include "setup/BinarySubs.h"
#include "setup/SetupRecord.h"

namespace velquist::edit {

/// What a press has done to one slot.
struct SlotChange {
  int slot = 0;
  float before = 0;
  float after = 0;
};

/// Everything that a step can change.
struct ValueSet {
  std::array<float, data::kSetupRows> values{};  ///< column 0
  setup::ListSelections lists{};
  std::shared_ptr<const setup::Bytes> bytes;  ///< of the setup being edited
};
/// Bit for bit the same values, the same positions and the same bytes.
[[nodiscard]] bool Same(const ValueSet& a, const ValueSet& b);

/// Both ends of a step that is no press.
struct WholeChange {
  ValueSet before;
  ValueSet after;
};

/// One step of the history.
struct HistoryStep {
  std::string_view name;     ///< "fuel level", "import of chassis"; lives as long as the program
  bool sets_changed = true;  ///< doing it makes the setup one with changes to save
  std::uint8_t changes = 0;  ///< slots that a press changed; 0 when `whole` is there instead
  std::array<SlotChange, 4> slots{};
  std::unique_ptr<WholeChange> whole;

  [[nodiscard]] std::span<const SlotChange> Slots() const
  {
    return std::span(slots).first(changes);
  }
};
static_assert(sizeof(HistoryStep) + sizeof(WholeChange) < 1024);

/// The steps that led to the values shown, to undo them one by one, and those undone, to redo them.
/// The state at the beginning counts as saved.
class History {
 public:
  /// The last so many steps can always be undone. Beyond twice that the older half is forgotten.
  static constexpr std::size_t kKept = 10'000;

  /// Takes the memory for all steps that are kept: from here on presses ask for none.
  void MakeRoom();

  /// The press of a button that moved these slots, at most four. A press that the held button
  /// repeats continues its step.
  void AddPress(int slot, Direction direction, bool repeated, std::span<const SlotChange> changes);
  /// A press that moved nothing: what the held button repeats next does not continue a step.
  void EndPress() noexcept { held_.reset(); }
  /// Any other step, unless nothing differs between its ends.
  void Add(std::string_view name, bool sets_changed, ValueSet before, ValueSet after);

  /// The step that Undo or Redo would take, null when there is none.
  [[nodiscard]] const HistoryStep* ToUndo() const noexcept { return UndoStep(1); }
  [[nodiscard]] const HistoryStep* ToRedo() const noexcept { return RedoStep(1); }
  /// The step that is undone or redone as number `count`, from 1; null beyond the last.
  [[nodiscard]] const HistoryStep* UndoStep(std::size_t count) const noexcept;
  [[nodiscard]] const HistoryStep* RedoStep(std::size_t count) const noexcept;
  /// Steps back before ToUndo, and on behind ToRedo, which must be there.
  void Undo() noexcept;
  void Redo() noexcept;

  /// The values are those that were saved last.
  [[nodiscard]] bool AtSaved() const noexcept { return now_.saved == now_.position; }
  /// The values have been saved: where `old_bytes` were those being edited, `written` are now.
  void Saved(const std::shared_ptr<const setup::Bytes>& old_bytes,
             const std::shared_ptr<const setup::Bytes>& written);

  /// A place in the history to go back to when a command fails half-way.
  struct Mark {
    std::size_t position = 0;  ///< steps done, the forgotten ones too
    std::size_t additions = 0;
    bool had_more = false;                 ///< there were steps to redo
    std::optional<std::size_t> saved = 0;  ///< the position that was saved last, if it is there
  };
  [[nodiscard]] Mark Now() const noexcept;
  /// Forgets the steps added since and brings back those that could be redone.
  void GoBack(const Mark& mark);

 private:
  struct Held {
    int slot;
    Direction direction;
  };

  [[nodiscard]] std::size_t At(std::size_t position) const noexcept
  {
    return position - forgotten_;
  }
  HistoryStep& Append();

  std::vector<HistoryStep> steps_;    ///< those done, then those undone
  std::vector<HistoryStep> dropped_;  ///< those that the last step took the place of
  std::size_t forgotten_ = 0;
  Mark now_;
  std::optional<Held> held_;  ///< the press that the last step is of
};

}  // namespace velquist::edit
