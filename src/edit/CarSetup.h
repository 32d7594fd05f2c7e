// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "data/GearData.h"
#include "data/ModYear.h"
#include "data/SetupData.h"
#include "edit/EditOptions.h"
#include "edit/History.h"
#include "edit/Reference.h"
#include "edit/StepEditing.h"
#include "platform/FileSystem.h"
#include "setup/BinarySubs.h"
#include "setup/Layouts.h"
#include "setup/SetupRecord.h"

namespace velquist::edit {

/// Limits, steps and gears of a mod year as its data files say.
struct ReferenceTables {
  data::SetupData setup_data;
  data::GearData gears;
};

/// Everything about a setup that a command can change, to go back to. Tables and bytes are shared:
/// a copy costs less than a kilobyte whatever was read.
struct CarSnapshot {
  std::shared_ptr<const ReferenceTables> tables;
  std::shared_ptr<const setup::Bytes> SetupBuffer;
  std::shared_ptr<const setup::Bytes> edited_bytes;
  std::array<float, data::kSetupRows> values{};  ///< column 0
  setup::ListSelections lists{};
  EditOptions options;
  data::ModYear ModYearIndex{};
  std::int16_t chassis_index = 0;
  std::int16_t formula_index = 0;
  bool changed = false;
  std::string file_name;
  std::shared_ptr<History> history;
  History::Mark mark;  ///< in `history`
  std::shared_ptr<const Reference> loaded;
  std::shared_ptr<const Reference> reference;
};
static_assert(sizeof(CarSnapshot) < 1024);

/// The data files of a mod year.
enum class DataFile { kSetupData, kGearData };

/// The setup being edited and the car it is for, without a window: the bytes that were read, the
/// current values, the chosen list positions, the edit options, the tables of the mod year, the
/// steps that can be undone, the setup that it is compared with. Every
/// change of a value is made here. A member that throws leaves all as it was.
class CarSetup {
 public:
  CarSetup() = default;
  CarSetup(const CarSetup&) = delete;
  CarSetup& operator=(const CarSetup&) = delete;

  // --- which car
  [[nodiscard]] data::ModYear ModYearIndex() const noexcept { return ModYearIndex_; }
  [[nodiscard]] int ChassisIndex() const noexcept { return chassis_index_; }
  [[nodiscard]] int FormulaIndex() const noexcept { return formula_index_; }  ///< 0 to 2: F1 to F3
  void SetModYear(data::ModYear year) noexcept { ModYearIndex_ = year; }
  void SetChassis(int chassis) noexcept { chassis_index_ = static_cast<std::int16_t>(chassis); }
  void SetFormula(int formula) noexcept { formula_index_ = static_cast<std::int16_t>(formula); }
  /// Of the catalogue: the chassis' own, or that of formula 2 or 3.
  [[nodiscard]] int EngineSlot() const;
  [[nodiscard]] int GearCount() const;  ///< forward gears

  // --- the tables of the mod year
  /// Reads both data files of the mod year from the program's directory; the first one that is
  /// missing, if any. Current values become 0.
  [[nodiscard]] std::optional<DataFile> ReadDataFiles(const platform::FileSystem& files,
                                                      std::string_view program_directory);
  [[nodiscard]] const data::SetupData& SetupData() const noexcept { return setup_data_; }
  [[nodiscard]] const data::GearData& Gears() const noexcept { return tables_->gears; }
  [[nodiscard]] std::shared_ptr<const data::GearData> GearTable() const noexcept
  {
    return {tables_, &tables_->gears};
  }

  // --- the file
  /// Reads a file into the setup buffer, which an empty file leaves as it was, and tells whether
  /// the buffer holds a setup then. What is edited stays. Throws FileError.
  bool ReadFile(const platform::FileSystem& files, std::string_view path);
  /// Puts the bytes of a file that was read into the setup buffer.
  void TakeBytes(setup::Bytes bytes);
  [[nodiscard]] const setup::Bytes& SetupBuffer() const noexcept { return *SetupBuffer_; }
  /// Every gear and the final drive that would be written has a ratio above 0.
  [[nodiscard]] bool HasEveryRatio() const;
  /// The values with those of the lists in their place, as they would be written.
  [[nodiscard]] data::SetupData ValuesToWrite() const;
  /// Takes values and symmetry from the setup buffer, whose bytes are from now on those of the
  /// setup being edited. Throws BoundsError.
  void LoadValues();
  /// Takes the positions of the lists from the values. Throws BoundsError for a value outside its
  /// list.
  void LoadLists();
  /// The bytes that WriteFile() writes. Throws BoundsError.
  [[nodiscard]] setup::Bytes BytesToWrite(std::optional<setup::Layout> layout) const;
  /// Writes the setup, in `layout` where one is given: the values in the bytes of the setup being
  /// edited, whatever the buffer holds. Buffer, ratio numbers and list values are then as in the
  /// file. Throws FileError and BoundsError.
  void WriteFile(platform::FileSystem& files, std::string_view path,
                 std::optional<setup::Layout> layout);
  [[nodiscard]] const std::string& FileName() const noexcept { return file_name_; }
  void SetFileName(std::string name) { file_name_ = std::move(name); }
  [[nodiscard]] bool Changed() const noexcept { return changed_; }  ///< edits that are not saved
  /// What was loaded is complete: nothing is changed, the history begins, and this setup is the
  /// reference.
  void StartEditing();

  // --- editing
  [[nodiscard]] float Value(int slot) const;  ///< current value, English units
  [[nodiscard]] const EditOptions& Options() const noexcept { return options_; }
  void SetAsymmetric(bool on) noexcept;           ///< ends proportional springs
  void SetProportionalSprings(bool on) noexcept;  ///< ends asymmetric editing
  void SetFine(bool on) noexcept { options_.fine = on; }
  void SetConstantRollBars(bool on) noexcept { options_.constant_roll_bars = on; }
  /// Slots whose labels have to be rewritten. A press that moves nothing counts as a change, too,
  /// but is no step of the history. `repeated`: a button that is held presses itself.
  ShownSlots Step(int slot, Direction direction, bool repeated);
  /// Presses, as one step of the history, until none brings the value nearer to `target`, English
  /// units, rows for a gear: as far as fine steps lead, with normal ones on the way where they lead
  /// as near. What cannot be moved nearer is left alone.
  ShownSlots StepTo(int slot, double target);
  /// Position of list 0 to 3 of the differential.
  [[nodiscard]] int ListSelection(int list) const;
  void ChooseInList(int list, int position);
  /// The gear table's row of the chosen final drive.
  [[nodiscard]] int FinalDriveRow() const;
  /// Both imports take half a setup out of the buffer, and its bytes as those being edited.
  void ImportChassis();
  void ImportDrivetrain();
  /// Swaps left and right; not a change that asks to be saved.
  void ReverseSides();
  /// Takes the reference's values of these slots; what the car does not have stays: ratio numbers,
  /// wings, gears that are not among the slot's rows, numbers that are not in the slot's list.
  void TakeFromReference(std::span<const int> slots);

  // --- the history
  /// False when there is nothing to undo or redo.
  bool Undo();
  bool Redo();
  [[nodiscard]] std::string_view UndoText() const;  ///< "left front wheel rate"; empty for nothing
  [[nodiscard]] std::string_view RedoText() const;
  [[nodiscard]] const History& Steps() const noexcept { return *history_; }

  // --- the reference
  [[nodiscard]] const Reference& ComparedWith() const noexcept { return *reference_; }
  /// The same to keep, so that its address tells it from any later one.
  [[nodiscard]] std::shared_ptr<const Reference> SharedReference() const noexcept
  {
    return reference_;
  }
  void CompareWith(Reference reference);
  void CompareWithLoaded() noexcept { reference_ = loaded_; }
  [[nodiscard]] bool Differs(int slot) const { return edit::Differs(*reference_, *this, slot); }

  [[nodiscard]] CarSnapshot Snapshot() const;
  void Restore(CarSnapshot snapshot);

 private:
  template <class Change>
  void AllOrNothing(Change&& change);
  void TakeBuffer() { edited_bytes_ = SetupBuffer_; }
  void SelectInList(int list, int position);
  void TakeValueFromReference(int slot);
  [[nodiscard]] float RearWeight() const;
  template <class Press>
  void Approach(int slot, double target, bool normal_first, Press&& press);
  template <class Change>
  void AsStep(std::string_view name, bool sets_changed, Change&& change);
  [[nodiscard]] ValueSet Values() const;
  void Show(const HistoryStep& step, bool after);

  std::shared_ptr<const ReferenceTables> tables_ = std::make_shared<ReferenceTables>();
  data::SetupData setup_data_;  ///< the limits of `tables_`; current values in column 0
  std::shared_ptr<const setup::Bytes> SetupBuffer_ = std::make_shared<setup::Bytes>();
  std::shared_ptr<const setup::Bytes> edited_bytes_ = SetupBuffer_;
  setup::ListSelections lists_{};
  EditOptions options_;
  data::ModYear ModYearIndex_{};
  std::int16_t chassis_index_ = 0;
  std::int16_t formula_index_ = 0;
  bool changed_ = false;
  std::string file_name_;
  std::shared_ptr<History> history_ = std::make_shared<History>();
  std::shared_ptr<const Reference> loaded_ = std::make_shared<Reference>();
  std::shared_ptr<const Reference> reference_ = loaded_;
};

}  // namespace velquist::edit
