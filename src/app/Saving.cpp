// SPDX-License-Identifier: MIT
#include <utility>

#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "export/TextExport.h"
#include "install/Installations.h"
#include "platform/Paths.h"
#include "setup/Identification.h"

namespace velquist::app {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

constexpr std::string_view kDefaultSetupEnding = "vqset";

}  // namespace

std::string MainWindow::SetupDirectory() const
{
  return install::SetupDirectory(form_.Combo7.text, form_.Combo4.text, form_.Combo5.text);
}

void MainWindow::ShowFileName()
{
  form_.Label4.text = car_.FileName();
}

/// Offers to save unsaved changes. False when that save failed, so that nothing is lost by going
/// on; a save that is refused or not confirmed lets the command go on.
bool MainWindow::SaveFirst()
{
  if (!car_.Changed() ||
      outside_.dialogs.ShowMessage("Do you want to save the current settings first?",
                                   Icon::kQuestion, Buttons::kYesNo) != Answer::kYes)
    return true;
  bool failed = true;
  Event([&] {
    MnuSave_Click();
    failed = false;
  });
  return !failed;
}

void MainWindow::MnuNew_Click()
{
  outside_.process.Start(outside_.program_directory + "\\Velquist.exe");
}

void MainWindow::MnuSave_Click()
{
  if (car_.FileName().ends_with(kDefaultSetupEnding)) {
    Tell(
        "You cannot overwrite the default setup file.  Save As to a different setup file name "
        "first.",
        Icon::kInformation);
    return;
  }
  const auto path = SetupDirectory() + "\\" + car_.FileName();
  if (outside_.files.Exists(path) &&
      outside_.dialogs.ShowMessage("This file already exits.  Do you want to overwrite it?",
                                   Icon::kQuestion, Buttons::kYesNo) != Answer::kYes)
    return;
  car_.WriteFile(outside_.files, path, {});
}

void MainWindow::MnuSaveAs_Click()
{
  const auto extension =
      setup::ExtensionOf(car_.ModYearIndex(), car_.ChassisIndex(), car_.FormulaIndex());
  const auto pattern = "*." + extension;
  const auto chosen =
      outside_.dialogs.AskSaveFile({.filter = "GPL Setup Files (" + pattern + ")|" + pattern,
                                    .start = SetupDirectory() + "\\" + pattern,
                                    .extension = extension,
                                    .title = "Save Setup As"});
  if (!chosen) return;
  const auto path = platform::WithExtension(*chosen, extension);
  AllOrNothing([&] {
    car_.WriteFile(outside_.files, path, LayoutOfSaveAs());
    car_.SetFileName(std::string(platform::FileNameOf(path)));
    ShowFileName();
  });
}

/// 1967 and 1965 setups are saved in the chosen layout; those of other years stay as they are.
std::optional<setup::Layout> MainWindow::LayoutOfSaveAs() const
{
  const auto year = car_.ModYearIndex();
  if (year != data::ModYear::k1967 && year != data::ModYear::k1965) return std::nullopt;
  return form_.MnuLongFormat.checked ? setup::Layout::kLong : setup::Layout::kShort;
}

void MainWindow::MnuRevert_Click()
{
  if (!SaveFirst()) return;
  AllOrNothing([&] {
    LoadDefaultSetup();
    car_.LoadValues();
    ShowSetup();
    DrawCharts();
    car_.ClearChanged();
  });
}

void MainWindow::MnuFormat_Click(bool long_format)
{
  form_.MnuShortFormat.checked = !long_format;
  form_.MnuLongFormat.checked = long_format;
}

void MainWindow::MnuReverse_Click()
{
  AllOrNothing([&] {
    car_.ReverseSides();
    RefreshDisplay();
  });
}

void MainWindow::MnuExport_Click()
{
  const text_export::Subject subject{
      .file_name = car_.FileName(),
      .mod_year = data::ModYearText(car_.ModYearIndex()),
      .chassis_name = form_.Combo3.text,
      .formula = car_.FormulaIndex() + 1,
      .gear_count = car_.GearCount(),
  };
  outside_.files.WriteText(SetupDirectory() + "\\" + text_export::ExportFileName(car_.FileName()),
                           text_export::ExportText(subject, car_.SetupData(), car_.Gears()));
}

}  // namespace velquist::app
