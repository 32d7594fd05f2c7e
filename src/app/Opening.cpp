// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include "app/Choosing.h"
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

/// What is done with a setup file from disk.
struct MainWindow::Opening {
  explicit Opening(MainWindow& window)
      : window_(window),
        outside_(window.outside_),
        car_(window.car_),
        globals_(window.globals_),
        form_(window.form_)
  {
  }

  /// Makes the installation that a setup file lies in the current one, without its default setup,
  /// as a start with that file does.
  void EnterInstallation(const std::string& path);
  /// Shows the file that was read and identified.
  void TakeOpened(const std::string& path, const std::string& name);
  /// Asks for a setup file, reads it into the buffer and runs `import` on it.
  template <class Import>
  void ImportSetup(std::string_view title, std::string_view done, Import&& import);

 private:
  MainWindow& window_;
  const Outside& outside_;
  edit::CarSetup& car_;
  Globals& globals_;
  MainForm& form_;
};

std::optional<std::string> MainWindow::AskForSetup(std::string_view title)
{
  constexpr int kFirstFormulaFilter = 2;
  return outside_.dialogs.AskOpenFile({.filter = OpenFilter(),
                                       .filter_index = car_.FormulaIndex() + kFirstFormulaFilter,
                                       .start = SetupDirectory(form_) + "\\*.*",
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
    // What is written while the user is asked for the mod year comes after it.
    auto file = OpenFile::AsItIs(outside_.files, path);
    if (!car_.ReadFile(outside_.files, path)) {
      Tell("This is not a valid GPL setup file.  Please select another file.", Icon::kInformation);
      return;
    }
    Opening opening(*this);
    opening.EnterInstallation(path);
    const auto name = std::string(platform::FileNameOf(path));
    if (FindModYear(name)) {
      opening.TakeOpened(path, name);
      globals_.open_file = std::move(file);
    } else {
      go_back();
    }
    return;
  } catch (const BoundsError&) {
  } catch (const FileError&) {
  } catch (...) {
    go_back();
    throw;
  }
  go_back();
  Tell(kWrongFile, Icon::kInformation);
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

void MainWindow::Opening::TakeOpened(const std::string& path, const std::string& name)
{
  window_.lists_.SelectModYear();
  window_.lists_.FillChassis();
  window_.ReadDataFiles();
  car_.LoadValues();
  window_.ShowSetup();
  car_.SetFileName(name);
  window_.showing_.ShowFileName();
  const auto chassis = setup::ChassisIndexOf(car_.ModYearIndex(), setup::ChassisCodeOf(name));
  Choose(window_, form_.Combo3, chassis.value_or(car_.ChassisIndex()));
  // GT cars have formula F1 alone, whatever the name ends in.
  const auto formula = setup::FormulaIndexOf(name);
  if (formula && car_.ModYearIndex() != data::ModYear::kGT) Choose(window_, form_.Combo6, *formula);
  // The player first: choosing one lists that player's tracks.
  if (const auto place = install::PlaceOfPath(path)) {
    ChooseOrAdd(window_, form_.Combo4, place->player);
    ChooseOrAdd(window_, form_.Combo5, place->track);
  }
  window_.StartEditing();
  window_.Say("Opened", path);
  form_.status += RemarkOnEnding(car_.ModYearIndex(), name);
}

void MainWindow::Opening::EnterInstallation(const std::string& path)
{
  const auto place = install::PlaceOfPath(path);
  if (!place) return;
  const auto on_machine = [&](std::string_view directory) {
    return outside_.files.HostText(directory);
  };
  const auto wanted = on_machine(place->installation);
  if (wanted == on_machine(globals_.installation)) return;
  auto& list = form_.Combo7;
  auto found = std::ranges::find(list.items, wanted, on_machine);
  if (found == list.items.end()) found = list.items.insert(found, place->installation);
  globals_.installation = *found;
  globals_.player_index = globals_.track_index = 0;
  {
    const Flag filling(globals_.ready, false);
    Choose(window_, list, static_cast<int>(found - list.items.begin()));
  }
  window_.lists_.FillPlayersAndTracks();
  window_.lists_.ListModYears();
}

/// Before a file is written over: asks when it is the open one and another program changed it.
bool MainWindow::MayOverwriteChanged(const std::string& path)
{
  auto& file = globals_.open_file;
  if (!file.IsAt(outside_.files, path) || !file.IsChangedOnDisk(outside_.files)) return true;
  file.told = outside_.files.Stamp(file.path);
  return outside_.dialogs.ShowMessage(
             "Another program has changed this file since it was read here:\n" +
                 outside_.files.HostText(path) + "\nDo you want to overwrite what it has written?",
             Icon::kQuestion, Buttons::kNoYes) == Answer::kYes;
}

void MainWindow::Activated()
{
  Event([&] {
    if (!globals_.ready || !globals_.open_file.IsChangedOnDisk(outside_.files)) return;
    auto& file = globals_.open_file;
    const auto now = outside_.files.Stamp(file.path);
    if (now == std::exchange(file.told, now)) return;
    const auto path = file.path;
    if (outside_.dialogs.ShowMessage(
            "Another program has changed the open setup file:\n" + outside_.files.HostText(path) +
                "\nDo you want to read it again" +
                (car_.Changed() ? " and lose the changes that are not saved?" : "?"),
            Icon::kQuestion, Buttons::kNoYes) == Answer::kYes)
      OpenPath(path);
  });
}

template <class Import>
void MainWindow::Opening::ImportSetup(std::string_view title, std::string_view done,
                                      Import&& import)
{
  if (!window_.SaveFirst()) return;
  const auto path = window_.AskForSetup(title);
  if (!path) return;
  if (!car_.ReadFile(outside_.files, *path)) {
    window_.Tell("This is not a valid GPL setup file.  Please select another file.",
                 Icon::kInformation);
    return;
  }
  try {
    window_.AllOrNothing(std::forward<Import>(import));
    window_.Say(done, *path);
  } catch (const BoundsError&) {
    window_.Tell("This setup file does not fit the current mod year.  Please select another file.",
                 Icon::kInformation);
  }
}

void MainWindow::MnuImportChassis_Click()
{
  Opening(*this).ImportSetup("Import Chassis From", "Imported the chassis of", [&] {
    car_.ImportChassis();
    showing_.RefreshDisplay();
  });
}

void MainWindow::MnuImportDrivetrain_Click()
{
  Opening(*this).ImportSetup("Import Drivetrain From", "Imported the drivetrain of", [&] {
    car_.ImportDrivetrain();
    showing_.ShowDrivetrainLists();
    showing_.RefreshDisplay();
    showing_.DrawCharts();
  });
}

}  // namespace velquist::app
