// SPDX-License-Identifier: MIT
// What must hold after every event, whatever it was.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "Monkey.h"
#include "edit/Display.h"
#include "edit/Drivetrain.h"
#include "platform/Errors.h"
#include "setup/SlotTable.h"

namespace velquist::monkey {
namespace {

/// Ratio numbers, which follow from the gears; angles and clutches, which follow from their lists.
bool IsWrittenAnew(int slot)
{
  return (slot >= setup::kFirstRatio && slot < setup::kFirstGear) || slot > setup::kFinalDrive;
}

std::string ShownText(const edit::CarSetup& car, int slot, int units)
{
  if (!setup::IsGear(slot))
    return edit::DisplayText(slot, car.Value(slot), units, car.Options().FineIndex());
  try {
    return car.Gears().DisplayText(edit::GearRowOf(car.SetupData(), slot));
  } catch (const BoundsError&) {
    return "a gear beyond the table";
  }
}

std::string WrongValue(const app::MainWindow& window, int slot)
{
  const auto& label = window.Form().Label1[static_cast<std::size_t>(slot)];
  const auto expected = ShownText(window.Car(), slot, window.State().Units);
  if (label.text != expected)
    return "slot " + std::to_string(slot) + " shows " + label.text + ", not " + expected;
  return {};
}

std::string WrongList(const app::MainWindow& window, int list)
{
  const auto& combo = window.Form().Combo1[static_cast<std::size_t>(list)];
  const int selection = window.Car().ListSelection(list);
  if (combo.selection != selection) return "list " + std::to_string(list) + " selects another item";
  if (combo.items != edit::ItemsOfList(list, window.Car().SetupData(), window.Car().Gears()))
    return "list " + std::to_string(list) + " has other items";
  if (combo.text != combo.items.at(static_cast<std::size_t>(selection)))
    return "list " + std::to_string(list) + " shows " + combo.text;
  return {};
}

/// Of one value, that the window shows what the form says.
std::string WrongOnScreen(runner::Driver& driver, int slot)
{
  const auto* const control = driver.Window().Form().ValueOf(slot);
  if (control == nullptr) return {};
  const auto seen = driver.Seen(control->design->name, control->design->index);
  if (!seen) return "no control of slot " + std::to_string(slot);
  if (!seen->shown) return {};
  if (seen->text != control->text)
    return "the window shows " + seen->text + " for slot " + std::to_string(slot);
  if (seen->marked != control->marked) return "the window's mark of slot " + std::to_string(slot);
  return {};
}

/// Statements that ask nobody and touch no file.
bool IsQuiet(std::string_view statement)
{
  for (const auto* quiet :
       {"click CmdInc", "click CmdDec", "click MnuUndo", "click MnuRedo", "click MnuReverse",
        "click MnuCompare", "click MnuGearing", "click MnuReferenceLoaded", "click MnuShortFormat",
        "click MnuLongFormat", "check", "uncheck", "select Combo1", "type", "tick"})
    if (statement.starts_with(quiet)) return true;
  return false;
}

/// Statements that change no value, so that the flag stays.
bool KeepsFlag(std::string_view statement)
{
  for (const auto* kept :
       {"check OptUnits", "check FineCheck", "uncheck FineCheck", "select Combo4", "select Combo5",
        "click MnuExport", "click MnuSheet", "click MnuCompare", "click MnuGearing",
        "click MnuAbout", "click MnuHelp2", "click MnuReference", "click MnuShortFormat",
        "click MnuLongFormat", "tick"})
    if (statement.starts_with(kept)) return true;
  return false;
}

}  // namespace

State::State(const edit::CarSetup& car)
{
  for (int slot = 0; slot < setup::kSlots; ++slot)
    if (!IsWrittenAnew(slot))
      values[static_cast<std::size_t>(slot)] = std::bit_cast<std::uint32_t>(car.Value(slot));
  for (int list = 0; list < edit::kDrivetrainLists; ++list)
    lists[static_cast<std::size_t>(list)] = car.ListSelection(list);
}

std::string Monkey::Wrong(const Event& event)
{
  if (const auto& failed = outside_.announcements.Failed()) return failed->what();
  if (IsQuiet(event.statement))
    for (const auto& dialog : dialogs_)
      if (!dialog.starts_with("on message \"This cannot be done")) return "asks: " + dialog;
  if (!driver_->Running()) return {};

  const auto& window = driver_->Window();
  const auto& car = window.Car();
  for (int slot = 0; slot < setup::kSlots; ++slot) {
    const auto* const control = window.Form().ValueOf(slot);
    if (control == nullptr) continue;
    if (control->marked != car.Differs(slot)) return "the mark of slot " + std::to_string(slot);
    if (slot >= setup::kFinalDrive) continue;
    if (auto wrong = WrongValue(window, slot); !wrong.empty()) return wrong;
  }
  for (int list = 0; list < edit::kDrivetrainLists; ++list)
    if (auto wrong = WrongList(window, list); !wrong.empty()) return wrong;

  const int slot = static_cast<int>(event.seed % static_cast<unsigned>(setup::kSlots));
  if (auto wrong = WrongOnScreen(*driver_, slot); !wrong.empty()) return wrong;

  const bool was_changed = std::exchange(was_changed_, car.Changed());
  const auto were_not_finite = std::exchange(not_finite_, CountNotFinite());
  const bool typed = event.statement.starts_with("type");
  const bool keeps_flag = KeepsFlag(event.statement) || (typed && typed_.refused);
  if (keeps_flag && was_running_ && car.Changed() != was_changed)
    return car.Changed() ? "sets the flag" : "clears the flag";
  if (event.statement.starts_with("click Cmd") && dialogs_.empty() && !car.Changed())
    return "leaves the setup unchanged";
  if ((typed || event.statement.starts_with("click Cmd")) && not_finite_ > 0 &&
      were_not_finite == 0)
    return "makes a value that is no finite number";
  if (typed && was_running_)
    if (auto wrong = WrongTyping(); !wrong.empty()) return wrong;
  was_running_ = true;
  was_ = State(car);
  if (window.Form().MnuUndo.enabled != (car.Steps().ToUndo() != nullptr) ||
      window.Form().MnuRedo.enabled != (car.Steps().ToRedo() != nullptr))
    return "the menu of the history";
  if (event.seed % kHistoryEvery == 0) return WrongInHistory();
  return {};
}

int Monkey::CountNotFinite() const
{
  int count = 0;
  for (int slot = 0; slot < setup::kSlots; ++slot)
    if (!std::isfinite(driver_->Window().Car().Value(slot))) ++count;
  return count;
}

/// A number is one step of the history, one that is refused none.
std::string Monkey::WrongTyping() const
{
  if (!typed_.wrong.empty()) return typed_.wrong;
  const auto& car = driver_->Window().Car();
  const State now(car);
  if (now == was_) return {};
  if (typed_.refused) return "is refused and changes a value";
  if (!driver_->Click("MnuUndo", -1) || State(car) != was_) return "is not undone by one undo";
  if (!driver_->Click("MnuRedo", -1) || State(car) != now) return "is not done again by one redo";
  return {};
}

/// Undoes and redoes everything.
std::string Monkey::WrongInHistory()
{
  const auto& car = driver_->Window().Car();
  const State now(car);
  const bool changed = car.Changed();
  int done = 0;
  while (driver_->Window().Form().MnuUndo.enabled && dialogs_.empty()) {
    if (!driver_->Click("MnuUndo", -1)) return "nothing is undone";
    ++done;
  }
  for (int redone = 0; redone < done; ++redone)
    if (!driver_->Click("MnuRedo", -1)) return "nothing is redone";
  if (State(car) != now) return "another state after undoing and redoing everything";
  // What was saved last is unchanged, and a reversal alone sets no flag.
  if (changed && !car.Changed() && done > 0 && !car.Steps().AtSaved() &&
      car.Steps().ToUndo()->sets_changed)
    return "the flag is lost by undoing and redoing everything";
  was_changed_ = car.Changed();
  return {};
}

}  // namespace velquist::monkey
