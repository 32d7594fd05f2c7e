// SPDX-License-Identifier: MIT
#include <utility>

#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "app/ReferenceFile.h"
#include "setup/Identification.h"

namespace velquist::app {

using edit::ReferenceSource;
using platform::Icon;

/// What was loaded is shown and complete.
void MainWindow::StartEditing()
{
  constexpr std::size_t kLongestText = 63;
  car_.StartEditing();
  showing_.ShowReference();
  // A press allocates nothing, the name of its step neither.
  for (Control* const item : {&form_.MnuUndo, &form_.MnuRedo}) item->text.reserve(kLongestText);
}

void MainWindow::MnuUndo_Click()
{
  AllOrNothing([&] {
    if (car_.Undo()) showing_.ShowAnotherState();
  });
}

void MainWindow::MnuRedo_Click()
{
  AllOrNothing([&] {
    if (car_.Redo()) showing_.ShowAnotherState();
  });
}

void MainWindow::TakeFromReference(std::span<const int> slots)
{
  Event([&] {
    AllOrNothing([&] {
      car_.TakeFromReference(slots);
      showing_.ShowAnotherState();
    });
  });
}

void MainWindow::MnuCompare_Click()
{
  form_.compare.Ask();
}

void MainWindow::MnuReferenceLoaded_Click()
{
  car_.CompareWithLoaded();
  showing_.ShowReference();
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
    if (auto reference = ReadReference(car_, globals_.installation, outside_, source, path)) {
      car_.CompareWith(*std::move(reference));
      showing_.ShowReference();
    }
    return;
  } catch (const BoundsError&) {
  } catch (const FileError&) {
  }
  Tell(kWrongFile, Icon::kInformation);
}

std::string MainWindow::DifferenceText(const ControlDesign& design) const
{
  const auto slot = SlotOf(design);
  if (!slot || !form_.ValueOf(*slot)->marked) return {};
  return edit::DifferenceText(car_.ComparedWith(), car_, *slot, globals_.Units);
}

}  // namespace velquist::app
