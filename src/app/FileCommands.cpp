// SPDX-License-Identifier: MIT
#include <utility>

#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "data/ChassisCatalogue.h"
#include "export/TextExport.h"
#include "install/Installations.h"
#include "platform/Paths.h"
#include "setup/Identification.h"
#include "setup/Imports.h"
#include "setup/Layouts.h"
#include "setup/SetupRecord.h"

namespace velquist::app {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

constexpr std::string_view kDefaultSetupEnding = "vqset";

/// Filters of the open dialogs: all setups, then those of each formula. The codes of 1966 hold
/// every code but the sports cars'. Each list keeps its last ";".
std::string OpenFilter()
{
  const auto patterns = [](std::string_view formula) {
    std::string list;
    for (const auto code : setup::ChassisCodeTable(data::ModYear::k1966))
      list.append("*.").append(code).append(formula).append(";");
    return list;
  };
  return "GPL Setup Files (*.*)|" + patterns("*") + "|F1 Files (*.*1)|" + patterns("1") +
         "|F2 Files (*.*2)|" + patterns("2") + "|F3 Files (*.*3)|" + patterns("3");
}

}  // namespace

std::string MainWindow::SetupDirectory() const
{
  return install::SetupDirectory(form_.Combo7.text, form_.Combo4.text, form_.Combo5.text);
}

void MainWindow::ShowFileName(std::string name)
{
  globals_.file_name = std::move(name);
  form_.Label4.text = globals_.file_name;
}

/// Offers to save unsaved changes. False when that save failed, so that nothing is lost by going
/// on; a save that is refused or not confirmed lets the command go on.
bool MainWindow::SaveFirst()
{
  if (!globals_.changed ||
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

std::optional<std::string> MainWindow::AskForSetup()
{
  constexpr int kFirstFormulaFilter = 2;
  return outside_.dialogs.AskOpenFile({.filter = OpenFilter(),
                                       .filter_index = globals_.formula_index + kFirstFormulaFilter,
                                       .start = SetupDirectory() + "\\*.*",
                                       .directory = {}});
}

void MainWindow::MnuNew_Click()
{
  outside_.process.Start(outside_.program_directory + "\\Velquist.exe");
}

void MainWindow::MnuOpen_Click()
{
  if (!SaveFirst()) return;
  if (const auto path = AskForSetup()) OpenPath(*path);
}

/// Opens a setup file. When that stops half-way, all is as before but the buffer, which is the
/// rejected file's.
void MainWindow::OpenPath(const std::string& path)
{
  Before before{globals_, form_};
  const auto go_back = [&] {
    before.globals.SetupBuffer = std::move(globals_.SetupBuffer);
    globals_ = std::move(before.globals);
    form_ = std::move(before.form);
  };
  try {
    if (!setup::IsSetupFile(outside_.files, path, globals_.SetupBuffer)) {
      Tell("This is not a valid GPL setup file.  Please select another file.", Icon::kInformation);
      return;
    }
    const auto name = std::string(platform::FileNameOf(path));
    if (!setup::ModYearFromFile(name, globals_.SetupBuffer, globals_.installation, outside_.files,
                                outside_.dialogs, globals_.ModYearIndex)) {
      go_back();
      return;
    }
    TakeOpened(path, name);
    return;
  } catch (const BoundsError&) {
  } catch (const FileError&) {
  }
  go_back();
  Tell("There is something wrong with this setup file.  Please select another file.",
       Icon::kInformation);
}

/// Shows the file that was read and identified.
void MainWindow::TakeOpened(const std::string& path, const std::string& name)
{
  SelectModYear();
  FillChassis();
  ReadDataFiles();
  ShowSetup();
  ShowFileName(name);
  const auto chassis = setup::ChassisIndexOf(globals_.ModYearIndex, setup::ChassisCodeOf(name));
  Choose(form_.Combo3, chassis.value_or(globals_.chassis_index));
  if (const auto formula = setup::FormulaIndexOf(name)) Choose(form_.Combo6, *formula);

  const auto track_directory = platform::DirectoryOf(path);
  const auto player_directory = platform::DirectoryOf(platform::DirectoryOf(track_directory));
  const auto player = std::string(platform::FileNameOf(player_directory));
  const auto track = std::string(platform::FileNameOf(track_directory));
  // The player first: choosing one lists that player's tracks.
  if (!player.empty()) ChooseOrAdd(form_.Combo4, player);
  if (!track.empty()) ChooseOrAdd(form_.Combo5, track);
  globals_.changed = false;
}

void MainWindow::MnuSave_Click()
{
  if (globals_.file_name.ends_with(kDefaultSetupEnding)) {
    Tell(
        "You cannot overwrite the default setup file.  Save As to a different setup file name "
        "first.",
        Icon::kInformation);
    return;
  }
  const auto path = SetupDirectory() + "\\" + globals_.file_name;
  if (outside_.files.Exists(path) &&
      outside_.dialogs.ShowMessage("This file already exits.  Do you want to overwrite it?",
                                   Icon::kQuestion, Buttons::kYesNo) != Answer::kYes)
    return;
  Write(path, false);
}

void MainWindow::MnuSaveAs_Click()
{
  const auto extension =
      setup::ExtensionOf(globals_.ModYearIndex, globals_.chassis_index, globals_.formula_index);
  const auto pattern = "*." + extension;
  const auto chosen =
      outside_.dialogs.AskSaveFile({.filter = "GPL Setup Files (" + pattern + ")|" + pattern,
                                    .start = SetupDirectory() + "\\" + pattern,
                                    .extension = extension});
  if (!chosen) return;
  const auto path = platform::WithExtension(*chosen, extension);
  Write(path, true);
  ShowFileName(std::string(platform::FileNameOf(path)));
}

/// Moves the values into the buffer and writes it; `convert` brings 1967 and 1965 setups into the
/// chosen layout first. Buffer and values stay as they were when anything fails.
void MainWindow::Write(const std::string& path, bool convert)
{
  AllOrNothing([&] {
    setup::RebuildRatioNumbers(globals_.GearData, globals_.setup_data);
    setup::ListSelections lists{};
    for (std::size_t list = 0; list < lists.size(); ++list)
      lists[list] = form_.Combo1[list].selection;
    setup::StoreSetupValues(globals_.setup_data, lists, form_.AsymmetricCheck.checked,
                            globals_.ModYearIndex, globals_.SetupBuffer);
    const bool both_layouts = globals_.ModYearIndex == data::ModYear::k1967 ||
                              globals_.ModYearIndex == data::ModYear::k1965;
    if (convert && both_layouts)
      setup::ConvertLayout(globals_.SetupBuffer, form_.MnuLongFormat.checked
                                                     ? setup::Layout::kLong
                                                     : setup::Layout::kShort);
    setup::WriteSetupFile(outside_.files, path, globals_.SetupBuffer);
    globals_.changed = false;
  });
}

void MainWindow::MnuRevert_Click()
{
  if (!SaveFirst()) return;
  AllOrNothing([&] {
    LoadDefaultSetup();
    ShowSetup();
    DrawCharts();
    globals_.changed = false;
  });
}

void MainWindow::MnuFormat_Click(bool long_format)
{
  form_.MnuShortFormat.checked = !long_format;
  form_.MnuLongFormat.checked = long_format;
}

/// Asks for a setup file, reads it into the buffer and runs `import` on it.
template <class Import>
void MainWindow::ImportSetup(Import&& import)
{
  if (!SaveFirst()) return;
  const auto path = AskForSetup();
  if (!path) return;
  if (!setup::IsSetupFile(outside_.files, *path, globals_.SetupBuffer)) {
    Tell("This is not a valid GPL setup file.  Please select another file.", Icon::kInformation);
    return;
  }
  try {
    AllOrNothing(std::forward<Import>(import));
  } catch (const BoundsError&) {
    Tell("This setup file does not fit the current mod year.  Please select another file.",
         Icon::kInformation);
  }
}

void MainWindow::MnuImportChassis_Click()
{
  ImportSetup([&] {
    setup::ImportChassis(globals_.SetupBuffer, globals_.ModYearIndex, globals_.setup_data);
    RefreshDisplay();
    globals_.changed = true;
  });
}

void MainWindow::MnuImportDrivetrain_Click()
{
  ImportSetup([&] {
    setup::ImportDrivetrain(globals_.SetupBuffer, globals_.GearData, globals_.setup_data);
    FillDrivetrainLists();
    RefreshDisplay();
    DrawCharts();
    globals_.changed = true;
  });
}

void MainWindow::MnuReverse_Click()
{
  setup::ReverseSides(globals_.setup_data);
  RefreshDisplay();
}

void MainWindow::MnuExport_Click()
{
  const text_export::Subject subject{
      .file_name = globals_.file_name,
      .mod_year = data::ModYearText(globals_.ModYearIndex),
      .chassis_name = form_.Combo3.text,
      .formula = globals_.formula_index + 1,
      .gear_count = data::GearCount(globals_.ModYearIndex, EngineSlot()),
  };
  outside_.files.WriteText(
      SetupDirectory() + "\\" + text_export::ExportFileName(globals_.file_name),
      text_export::ExportText(subject, globals_.setup_data, globals_.GearData));
}

}  // namespace velquist::app
