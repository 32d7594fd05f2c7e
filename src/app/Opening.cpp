// SPDX-License-Identifier: MIT
#include <utility>

#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "app/ModYearFromFile.h"
#include "install/Installations.h"
#include "platform/Paths.h"
#include "setup/Identification.h"

namespace velquist::app {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

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

std::optional<std::string> MainWindow::AskForSetup(std::string_view title)
{
  constexpr int kFirstFormulaFilter = 2;
  return outside_.dialogs.AskOpenFile({.filter = OpenFilter(),
                                       .filter_index = car_.FormulaIndex() + kFirstFormulaFilter,
                                       .start = SetupDirectory() + "\\*.*",
                                       .directory = {},
                                       .title = std::string(title)});
}

void MainWindow::MnuOpen_Click()
{
  if (!SaveFirst()) return;
  if (const auto path = AskForSetup("Open Setup")) OpenPath(*path);
}

/// Opens a setup file. When that stops half-way, all is as before but the buffer, which is the
/// rejected file's.
void MainWindow::OpenPath(const std::string& path)
{
  Before before{car_.Snapshot(), globals_, form_};
  const auto go_back = [&] {
    before.car.SetupBuffer = car_.Snapshot().SetupBuffer;
    GoBack(std::move(before));
  };
  try {
    if (!car_.ReadFile(outside_.files, path)) {
      Tell("This is not a valid GPL setup file.  Please select another file.", Icon::kInformation);
      return;
    }
    const auto name = std::string(platform::FileNameOf(path));
    if (FindModYear(name))
      TakeOpened(path, name);
    else
      go_back();
    return;
  } catch (const BoundsError&) {
  } catch (const FileError&) {
  } catch (...) {
    go_back();
    throw;
  }
  go_back();
  Tell("There is something wrong with this setup file.  Please select another file.",
       Icon::kInformation);
}

/// Finds out the mod year of the file in the buffer; false when that mod is not installed.
bool MainWindow::FindModYear(std::string_view file_name)
{
  auto year = car_.ModYearIndex();
  const bool installed = ModYearFromFile(file_name, car_.SetupBuffer(), globals_.installation,
                                         outside_.files, outside_.dialogs, year);
  car_.SetModYear(year);
  return installed;
}

/// Shows the file that was read and identified.
void MainWindow::TakeOpened(const std::string& path, const std::string& name)
{
  SelectModYear();
  FillChassis();
  ReadDataFiles();
  car_.LoadValues();
  ShowSetup();
  car_.SetFileName(name);
  ShowFileName();
  const auto chassis = setup::ChassisIndexOf(car_.ModYearIndex(), setup::ChassisCodeOf(name));
  Choose(form_.Combo3, chassis.value_or(car_.ChassisIndex()));
  if (const auto formula = setup::FormulaIndexOf(name)) Choose(form_.Combo6, *formula);

  const auto track_directory = platform::DirectoryOf(path);
  const auto player_directory = platform::DirectoryOf(platform::DirectoryOf(track_directory));
  const auto player = std::string(platform::FileNameOf(player_directory));
  const auto track = std::string(platform::FileNameOf(track_directory));
  // The player first: choosing one lists that player's tracks.
  if (!player.empty()) ChooseOrAdd(form_.Combo4, player);
  if (!track.empty()) ChooseOrAdd(form_.Combo5, track);
  car_.ClearChanged();
}

/// Asks for a setup file, reads it into the buffer and runs `import` on it.
template <class Import>
void MainWindow::ImportSetup(std::string_view title, Import&& import)
{
  if (!SaveFirst()) return;
  const auto path = AskForSetup(title);
  if (!path) return;
  if (!car_.ReadFile(outside_.files, *path)) {
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
  ImportSetup("Import Chassis From", [&] {
    car_.ImportChassis();
    RefreshDisplay();
  });
}

void MainWindow::MnuImportDrivetrain_Click()
{
  ImportSetup("Import Drivetrain From", [&] {
    car_.ImportDrivetrain();
    ShowDrivetrainLists();
    RefreshDisplay();
    DrawCharts();
  });
}

}  // namespace velquist::app
