// SPDX-License-Identifier: MIT
#include <utility>

#include "app/ComparisonTable.h"
#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "export/SetupSheet.h"
#include "export/TextExport.h"
#include "install/Installations.h"
#include "platform/Errors.h"
#include "platform/Paths.h"
#include "setup/Identification.h"

namespace velquist::app {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

constexpr std::string_view kDefaultSetupEnding = "vqset";

/// 1967 and 1965 setups are saved in the chosen layout; those of other years stay as they are.
std::optional<setup::Layout> LayoutOfSaveAs(data::ModYear year, const MainForm& form)
{
  if (year != data::ModYear::k1967 && year != data::ModYear::k1965) return std::nullopt;
  return form.MnuLongFormat.checked ? setup::Layout::kLong : setup::Layout::kShort;
}

/// "The setup was not saved.", where, and why.
std::string NotSaved(const Outside& outside, std::string_view what, std::string_view path,
                     std::string_view reason)
{
  if (!outside.files.Exists(platform::DirectoryOf(path))) reason = "The folder is gone";
  return "The " + std::string(what) + " was not saved.\n" + outside.files.HostText(path) + "\n" +
         std::string(reason) + ".";
}

/// Offers to save unsaved changes.
bool WantsSave(const edit::CarSetup& car, Dialogs& dialogs)
{
  return car.Changed() && dialogs.ShowMessage("Do you want to save the current settings first?",
                                              Icon::kQuestion, Buttons::kYesNo) == Answer::kYes;
}

}  // namespace

std::string MainWindow::SavePath() const
{
  if (car_.FileName().ends_with(kDefaultSetupEnding)) return car_.FileName();
  return SetupDirectory(form_) + "\\" + car_.FileName();
}

/// Before a command. False when a save that was wanted failed or would have hit what another
/// program wrote, so that nothing is lost by going on; one that is refused or not confirmed lets
/// the command go on.
bool MainWindow::SaveFirst()
{
  return !WantsSave(car_, outside_.dialogs) || Save();
}

void MainWindow::FileDropped(std::string_view path)
{
  Event([&] {
    // No dialog follows that could still be left.
    if (!WantsSave(car_, outside_.dialogs) || (Save() && !car_.Changed()))
      OpenPath(std::string(path));
  });
}

void MainWindow::MnuNew_Click()
{
  outside_.process.Start(outside_.program_directory + "\\Velquist.exe");
}

void MainWindow::MnuSave_Click()
{
  Save();
}

/// False when the setup could not be written or would have hit what the user did not mean; true
/// also when it was not wanted in the end.
bool MainWindow::Save()
{
  if (car_.FileName().ends_with(kDefaultSetupEnding)) {
    Tell(
        "You cannot overwrite the default setup file.  Save As to a different setup file name "
        "first.",
        Icon::kInformation);
    return true;
  }
  const auto path = SavePath();
  if (outside_.files.Exists(path)) {
    if (outside_.dialogs.ShowMessage("This file already exits.  Do you want to overwrite it?",
                                     Icon::kQuestion, Buttons::kYesNo) != Answer::kYes)
      return true;
    if (!MayOverwriteChanged(path)) return false;
  }
  return Write(path, std::nullopt);
}

void MainWindow::MnuSaveAs_Click()
{
  const auto extension =
      setup::ExtensionOf(car_.ModYearIndex(), car_.ChassisIndex(), car_.FormulaIndex());
  const auto pattern = "*." + extension;
  const auto chosen =
      outside_.dialogs.AskSaveFile({.filter = "GPL Setup Files (" + pattern + ")|" + pattern,
                                    .start = SetupDirectory(form_) + "\\" + pattern,
                                    .extension = extension,
                                    .title = "Save Setup As"});
  if (!chosen) return;
  const auto path = platform::WithExtension(*chosen, extension);
  if (!MayOverwriteChanged(path) || !Write(path, LayoutOfSaveAs(car_.ModYearIndex(), form_)))
    return;
  car_.SetFileName(std::string(platform::FileNameOf(path)));
  showing_.ShowFileName();
}

/// Writes the setup and remembers the file; false, after the reason was told, when that failed.
bool MainWindow::Write(const std::string& path, std::optional<setup::Layout> layout)
{
  const auto not_saved = [&](std::string_view file, std::string_view reason) {
    Tell(NotSaved(outside_, "setup", file, reason), Icon::kExclamation);
    return false;
  };
  try {
    if (!car_.HasEveryRatio()) {
      const auto name = std::string(data::GearDataFileName(car_.ModYearIndex()));
      return not_saved(outside_.program_directory + "\\" + name,
                       "This data file has no ratio for a gear of the setup");
    }
    car_.WriteFile(outside_.files, path, layout);
  } catch (const NotFlushedError& error) {
    auto& file = globals_.open_file;
    if (file.IsAt(outside_.files, path)) file.stamp = outside_.files.Stamp(path);
    return not_saved(error.Path(), error.Reason());
  } catch (const FileError& error) {
    return not_saved(error.Path(), error.Reason());
  }
  globals_.open_file = OpenFile::AsItIs(outside_.files, path);
  Say("Saved", path);
  return true;
}

void MainWindow::MnuRevert_Click()
{
  if (!SaveFirst()) return;
  AllOrNothing([&] {
    LoadDefaultSetup();
    car_.LoadValues();
    ShowSetup();
    showing_.DrawCharts();
    StartEditing();
    Say("Reverted to", car_.FileName());
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
    showing_.RefreshDisplay();
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
  const auto path = SetupDirectory(form_) + "\\" + text_export::ExportFileName(car_.FileName());
  outside_.files.WriteText(path,
                           text_export::ExportText(subject, car_.ValuesToWrite(), car_.Gears()));
  Say("Exported", path);
}

/// As unsaved as the setup may be. With the differences from a reference that the user chose.
void MainWindow::MnuSheet_Click()
{
  constexpr std::string_view kExtension = "html";
  const auto name = car_.FileName();
  const auto chosen = outside_.dialogs.AskSaveFile(
      {.filter = "Web Pages (*.html)|*.html",
       .start = SetupDirectory(form_) + "\\" + text_export::SheetFileName(name),
       .extension = std::string(kExtension),
       .title = "Save Setup Sheet"});
  if (!chosen) return;
  const auto path = platform::WithExtension(*chosen, kExtension);
  const auto& reference = car_.ComparedWith();
  const auto reference_name = ReferenceName(*this);
  const bool is_long = car_.BytesToWrite(std::nullopt).size() == setup::kLongLayoutSize;
  const text_export::SheetSubject subject{.file_name = name,
                                          .chassis_name = form_.Combo3.text,
                                          .player = form_.Combo4.text,
                                          .track = form_.Combo5.text,
                                          .reference = reference_name,
                                          .layout = is_long ? "long" : "short"};
  const auto page = text_export::SetupSheet(
      car_, subject, reference.source == edit::ReferenceSource::kLoaded ? nullptr : &reference,
      globals_.Units);
  try {
    outside_.files.WriteText(path, page);
  } catch (const FileError& error) {
    return Tell(NotSaved(outside_, "setup sheet", error.Path(), error.Reason()),
                Icon::kExclamation);
  }
  Say("Saved", path);
}

}  // namespace velquist::app
