// SPDX-License-Identifier: MIT
#include <utility>

#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "app/ModYearFromFile.h"
#include "data/ChassisCatalogue.h"
#include "edit/Drivetrain.h"
#include "platform/Paths.h"
#include "setup/Identification.h"
#include "setup/SlotTable.h"

namespace velquist::app {

using edit::ReferenceSource;
using platform::Icon;

/// What was loaded is shown and complete.
void MainWindow::StartEditing()
{
  constexpr std::size_t kLongestText = 63;
  car_.StartEditing();
  ShowReference();
  // A press allocates nothing, the name of its step neither.
  for (Control* const item : {&form_.MnuUndo, &form_.MnuRedo}) item->text.reserve(kLongestText);
}

void MainWindow::MnuUndo_Click()
{
  AllOrNothing([&] {
    if (car_.Undo()) ShowAnotherState();
  });
}

void MainWindow::MnuRedo_Click()
{
  AllOrNothing([&] {
    if (car_.Redo()) ShowAnotherState();
  });
}

void MainWindow::TakeFromReference(std::span<const int> slots)
{
  Event([&] {
    AllOrNothing([&] {
      car_.TakeFromReference(slots);
      ShowAnotherState();
    });
  });
}

/// Any value may have changed.
void MainWindow::ShowAnotherState()
{
  ShowDrivetrainLists();
  RefreshDisplay();
  DrawCharts();
}

/// Both items say what they would do. Called after each event: costs nothing where nothing changed.
void MainWindow::ShowHistory()
{
  const auto show = [](Control& item, std::string_view verb, std::string_view step) {
    item.enabled = !step.empty();
    const auto size = verb.size() + (step.empty() ? 0 : 1 + step.size());
    if (item.text.size() == size && item.text.ends_with(step)) return;
    item.text = verb;
    if (!step.empty()) item.text.append(" ").append(step);
  };
  show(form_.MnuUndo, "Undo", car_.UndoText());
  show(form_.MnuRedo, "Redo", car_.RedoText());
}

void MainWindow::MnuCompare_Click()
{
  AskFor(&MainForm::compare);
}

void MainWindow::MnuReferenceLoaded_Click()
{
  car_.CompareWithLoaded();
  ShowReference();
}

void MainWindow::MnuReferenceDefault_Click()
{
  const auto name = setup::DefaultSetupName(car_.ModYearIndex());
  CompareWithFile(ReferenceSource::kDefault, outside_.program_directory + "\\" + std::string(name));
}

void MainWindow::MnuReferenceFile_Click()
{
  if (const auto path = AskForSetup("Open Reference Setup"))
    CompareWithFile(ReferenceSource::kFile, *path);
}

/// The reference stays where the file cannot be used.
void MainWindow::CompareWithFile(ReferenceSource source, const std::string& path)
{
  try {
    if (auto reference = ReadReference(source, path)) {
      car_.CompareWith(*std::move(reference));
      ShowReference();
    }
    return;
  } catch (const BoundsError&) {
  } catch (const FileError&) {
  }
  Tell("There is something wrong with this setup file.  Please select another file.",
       Icon::kInformation);
}

/// The setup in a file, read as Open reads it; nothing when the user has been told why not.
std::optional<edit::Reference> MainWindow::ReadReference(ReferenceSource source,
                                                         const std::string& path)
{
  edit::CarSetup other;
  {
    auto tables = car_.Snapshot();
    tables.SetupBuffer = std::make_shared<const setup::Bytes>();
    tables.history = std::make_shared<edit::History>();
    tables.mark = {};
    other.Restore(std::move(tables));
  }
  if (!other.ReadFile(outside_.files, path)) {
    Tell("This is not a valid GPL setup file.  Please select another file.", Icon::kInformation);
    return std::nullopt;
  }
  const auto name = platform::FileNameOf(path);
  if (source == ReferenceSource::kFile) {
    auto year = car_.ModYearIndex();
    if (!ModYearFromFile(name, other.SetupBuffer(), globals_.installation, outside_.files,
                         outside_.dialogs, year))
      return std::nullopt;
    other.SetModYear(year);
  }
  if (other.ModYearIndex() != car_.ModYearIndex() &&
      other.ReadDataFiles(outside_.files, outside_.program_directory)) {
    Tell("You are missing the program's data files for this mod year.  Please reinstall Velquist.",
         Icon::kCritical);
    return std::nullopt;
  }
  other.LoadValues();
  other.LoadLists();
  // Every gear must be one that can be shown.
  for (int gear = 0; gear < data::kMostGears; ++gear)
    (void)edit::GearRowOf(other.SetupData(), setup::kFirstGear + gear);
  std::optional<int> gear_count;
  const auto chassis = setup::ChassisIndexOf(other.ModYearIndex(), setup::ChassisCodeOf(name));
  if (source == ReferenceSource::kFile && chassis) {
    other.SetChassis(*chassis);
    other.SetFormula(setup::FormulaIndexOf(name).value_or(0));
    gear_count = other.GearCount();
  }
  return edit::ReferenceOf(other, source, source == ReferenceSource::kFile ? path : std::string(),
                           gear_count);
}

/// Shows which setup the reference is, and what differs from it.
void MainWindow::ShowReference()
{
  const auto source = car_.ComparedWith().source;
  form_.MnuReferenceLoaded.checked = source == ReferenceSource::kLoaded;
  form_.MnuReferenceDefault.checked = source == ReferenceSource::kDefault;
  form_.MnuReferenceFile.checked = source == ReferenceSource::kFile;
  for (int slot = 0; slot < kSlotControls; ++slot) ShowMark(slot);
}

void MainWindow::ShowMark(int slot)
{
  if (Control* const value = form_.ValueOf(slot)) value->marked = car_.Differs(slot);
}

std::string MainWindow::DifferenceText(const ControlDesign& design) const
{
  const auto slot = SlotOf(design);
  if (!slot || !form_.ValueOf(*slot)->marked) return {};
  return edit::DifferenceText(car_.ComparedWith(), car_, *slot, globals_.Units);
}

int MainWindow::DifferenceCount() const
{
  int count = 0;
  for (int slot = 0; slot < kSlotControls; ++slot) {
    const auto* const value = form_.ValueOf(slot);
    if (value != nullptr && value->marked) ++count;
  }
  return count;
}

}  // namespace velquist::app
