// SPDX-License-Identifier: MIT
#include <functional>
#include <utility>

#include "app/CarPictures.h"
#include "app/Choosing.h"
#include "app/EventEntry.h"
#include "app/FormControlSettings.h"
#include "app/MainWindow.h"
#include "app/ModYearFromFile.h"
#include "data/ReadText.h"
#include "edit/Display.h"
#include "install/Installations.h"
#include "install/ProgramSettings.h"
#include "platform/FileReason.h"
#include "platform/Paths.h"
#include "setup/Identification.h"

namespace velquist::app {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

constexpr int kNarrowestScreen = 800;

constexpr std::string_view kCorruptedSettings =
    "Your saved Velquist Program Settings.ini file is probably corrupted.  Please delete the file "
    "and restart Velquist.";

std::string Version()
{
  return std::to_string(VELQUIST_VERSION_MAJOR) + "." + std::to_string(VELQUIST_VERSION_MINOR) +
         "." + std::to_string(VELQUIST_VERSION_REVISION);
}

/// The installations that the settings file names now; `read` where it cannot be read.
std::vector<std::string> InstallationsOnDisk(const platform::FileSystem& files,
                                             const std::string& path,
                                             const std::vector<std::string>& read)
{
  try {
    return install::ParseProgramSettings(data::ReadText(files, path)).installations;
  } catch (const install::SettingsError&) {
  } catch (const FileError&) {
  }
  return read;
}

/// What the file cannot hold is left out: the next start would refuse it.
void SaveProgramSettings(const Outside& outside, const edit::CarSetup& car, const Globals& globals,
                         const MainForm& form)
{
  const auto path = outside.program_directory + "\\" + std::string(install::kSettingsFileName);
  install::ProgramSettings settings{
      .installation = form.Combo7.text,
      .player_index = globals.player_index,
      .ModYearIndex = data::NumberOf(car.ModYearIndex()),
      .format_flag = static_cast<std::int16_t>(form.MnuShortFormat.checked ? 0 : 1),
      .chassis_index = static_cast<std::int16_t>(car.ChassisIndex()),
      .formula_index = static_cast<std::int16_t>(car.FormulaIndex()),
      .track_index = globals.track_index,
      .units = globals.Units,
      .installations = install::MergeInstallations(
          globals.installations_read, form.Combo7.items,
          InstallationsOnDisk(outside.files, path, globals.installations_read)),
  };
  std::erase_if(settings.installations, std::not_fn(install::CanBeKept));
  if (!install::CanBeKept(settings.installation)) {
    if (settings.installations.empty()) return;
    settings.installation = settings.installations.front();
  }
  outside.files.WriteText(path, install::ProgramSettingsText(settings));
}

}  // namespace

/// The start of a session: settings, command line, first setup.
struct MainWindow::Session {
  explicit Session(MainWindow& window)
      : window_(window),
        outside_(window.outside_),
        car_(window.car_),
        globals_(window.globals_),
        form_(window.form_)
  {
  }

  void LoadProgramSettings();
  void DeriveInstallationFromCommandLine();
  void LoadStartingSetup();

 private:
  void ReadSettingsFile(const std::string& path);
  void FirstRun();
  bool ReadCommandLineSetup();
  void TakeStartingSetup();
  void ApplyStoredUnits();

  MainWindow& window_;
  const Outside& outside_;
  edit::CarSetup& car_;
  Globals& globals_;
  MainForm& form_;
};

void MainWindow::Form_Load(std::string_view command_line)
{
  bool finished = false;
  Event([&] {
    globals_.command_line = platform::WithoutQuotes(command_line);
    globals_.from_command_line = !globals_.command_line.empty();
    globals_.ready = false;
    const auto& screen = outside_.screen;
    if (screen.Width() < kNarrowestScreen)
      Tell(
          "Velquist does not support screen resolutions less than 800x600.  You should increase "
          "your screen resolution if possible.",
          Icon::kInformation);
    ScaleControls(form_, ScaleFor(screen.Width(), screen.Height()));
    LayOut();
    form_.caption = "Velquist v" + Version();
    Session session(*this);
    session.LoadProgramSettings();
    session.DeriveInstallationFromCommandLine();
    lists_.FillPlayersAndTracks();
    session.LoadStartingSetup();
    globals_.from_command_line = false;
    globals_.ready = true;
    StartEditing();
    showing_.ShowGearRows();
    showing_.DrawCharts();
    ShowCarPicture(form_, globals_.installation, car_, outside_);
    finished = true;
  });
  // Without its data the program cannot go on; the reason has been told.
  if (!finished) ended_ = true;
}

/// Sizes the chart pictures after their boxes and draws them anew.
void MainWindow::LayOut()
{
  const auto resize = [](charts::PictureRecorder& picture, const Control& box) {
    picture.Resize(box.place.width, box.place.height);
  };
  resize(form_.chart, form_.PictureChart);
  resize(form_.chart2, form_.PictureChart2);
  if (globals_.ready) showing_.DrawCharts();
}

void MainWindow::Session::LoadProgramSettings()
{
  const auto path = outside_.program_directory + "\\" + std::string(install::kSettingsFileName);
  try {
    if (outside_.files.Exists(path))
      ReadSettingsFile(path);
    else
      FirstRun();
    return;
  } catch (const install::SettingsError&) {
  } catch (const FileError&) {
  }
  window_.EndWith(
      "Your saved Velquist Program Settings.ini file is not valid.  Please delete any existing "
      "file and restart the program to try again.",
      Icon::kInformation);
}

void MainWindow::Session::ReadSettingsFile(const std::string& path)
{
  const auto settings = install::ParseProgramSettings(data::ReadText(outside_.files, path));
  globals_.installation = settings.installation;
  globals_.player_index = settings.player_index;
  car_.SetModYear(static_cast<data::ModYear>(settings.ModYearIndex));
  car_.SetChassis(settings.chassis_index);
  car_.SetFormula(settings.formula_index);
  globals_.track_index = settings.track_index;
  globals_.Units = settings.units;
  globals_.installations_read = settings.installations;
  form_.Combo7.items = settings.installations;
  ChooseOrAdd(window_, form_.Combo7, settings.installation);
  if (!install::HasPlayers(outside_.files, settings.installation))
    window_.EndWith(
        "The Velquist Program Settings.ini file is bad.\r"
        "Delete your program settings .ini file and restart the program to try again.",
        Icon::kCritical);
  window_.MnuFormat_Click(settings.format_flag != 0);
}

void MainWindow::Session::FirstRun()
{
  window_.Tell(
      "You are missing the program's saved Program Settings file.  Please select your gpl.exe "
      "file.",
      Icon::kExclamation);
  const auto chosen = outside_.dialogs.AskOpenFile({.filter = "GPL .exe Files|*.exe",
                                                    .start = {},
                                                    .directory = outside_.program_directory,
                                                    .title = "Select gpl.exe",
                                                    .of_game = true});
  if (!chosen || platform::LastSeparator(*chosen) == std::string::npos)
    throw install::SettingsError("no gpl.exe was chosen");
  const auto installation = std::string(platform::DirectoryOf(*chosen));
  if (!install::HasPlayers(outside_.files, installation))
    window_.EndWith(
        "This is not a valid GPL directory as it is missing the Players directory.  Restart "
        "the program to try again.",
        Icon::kInformation);
  globals_.installation = installation;
  form_.Combo7.items = {installation};
  ChooseText(window_, form_.Combo7, installation);
  window_.MnuFormat_Click(false);
}

void MainWindow::Session::DeriveInstallationFromCommandLine()
{
  if (!globals_.from_command_line) return;
  const auto installation = install::InstallationOfPath(globals_.command_line);
  if (!installation)
    window_.EndWith(
        "This setup file does not lie in a player's directory of a GPL installation:\n" +
            globals_.command_line,
        Icon::kCritical);
  globals_.installation = *installation;
  ChooseOrAdd(window_, form_.Combo7, *installation);
}

/// The setup of the command line or, without one or when it cannot be used, the default setup of
/// the saved mod year, with everything that depends on it.
void MainWindow::Session::LoadStartingSetup()
{
  const auto saved_mod_year = car_.ModYearIndex();
  if (globals_.from_command_line && ReadCommandLineSetup()) {
    try {
      window_.AllOrNothing([&] {
        window_.ReadDataFiles();
        TakeStartingSetup();
        window_.Say("Opened", globals_.command_line);
        form_.status += RemarkOnEnding(car_.ModYearIndex(), car_.FileName());
      });
      return;
    } catch (const BoundsError&) {
      window_.Tell("There is something wrong with this setup file.  Please select another file.",
                   Icon::kInformation);
    }
  }
  globals_.from_command_line = false;
  car_.SetModYear(saved_mod_year);
  window_.LoadDefaultSetup();
  window_.ReadDataFiles();
  TakeStartingSetup();
}

void MainWindow::Session::TakeStartingSetup()
{
  car_.LoadValues();
  window_.lists_.FillModYears();
  ApplyStoredUnits();
  window_.ShowSetup();
}

/// Reads the file of the command line and finds its mod year; false when it cannot be used.
bool MainWindow::Session::ReadCommandLineSetup()
{
  const auto& path = globals_.command_line;
  try {
    auto file = OpenFile::AsItIs(outside_.files, path);
    if (!car_.ReadFile(outside_.files, path)) {
      window_.Tell("This is not a valid GPL setup file.  Please select another file.",
                   Icon::kInformation);
      return false;
    }
    const auto name = std::string(platform::FileNameOf(path));
    if (!window_.FindModYear(name)) return false;
    car_.SetFileName(name);
    window_.showing_.ShowFileName();
    globals_.open_file = std::move(file);
    return true;
  } catch (const FileError&) {
  } catch (const BoundsError&) {
  }
  window_.Tell("There is something wrong with this setup file.  Please select another file.",
               Icon::kInformation);
  return false;
}

void MainWindow::Session::ApplyStoredUnits()
{
  if (globals_.Units != edit::kEnglish && globals_.Units != edit::kMetric)
    window_.EndWith(kCorruptedSettings, Icon::kCritical);
  SetChecked(window_, form_, form_.OptUnits[static_cast<std::size_t>(globals_.Units)], true);
}

/// Asks about unsaved changes; unless the answer is No, writes the settings and ends the program.
bool MainWindow::MayClose()
{
  if (car_.Changed() && outside_.dialogs.ShowMessage(
                            "You have made changes that are not saved.  Do you still want to quit?",
                            Icon::kQuestion, Buttons::kNoYes) != Answer::kYes)
    return false;
  try {
    SaveProgramSettings(outside_, car_, globals_, form_);
  } catch (const FileError& error) {
    Tell(platform::ToldPath(error.Path()) + "\n" + error.Reason() + ".", Icon::kExclamation);
  }
  throw ProgramEnd{};
}

void MainWindow::LoadDefaultSetup()
{
  const std::string name(setup::DefaultSetupName(car_.ModYearIndex()));
  if (name.empty()) EndWith(kCorruptedSettings, Icon::kCritical);
  const auto path = outside_.program_directory + "\\" + name;
  if (!outside_.files.Exists(path))
    EndWith(
        "You are missing the program's saved default setup file for this mod year.  Please "
        "reinstall Velquist.",
        Icon::kCritical);
  car_.ReadFile(outside_.files, path);
  globals_.open_file = {};
  car_.SetFileName(name);
  showing_.ShowFileName();
  Say("Loaded", name);
}

void MainWindow::ReadDataFiles()
{
  const auto missing = car_.ReadDataFiles(outside_.files, outside_.program_directory);
  const auto rows = car_.SetupData().SetupDataValues.size();
  incomplete_data_file_ =
      rows < data::kSetupRows ? data::SetupDataFileName(car_.ModYearIndex()) : std::string_view{};
  if (!missing) return;
  EndWith(
      *missing == edit::DataFile::kSetupData
          ? "You are missing the program's saved setup data file.  Please reinstall Velquist."
          : "You are missing the program's saved gearset data file.  Please reinstall Velquist.",
      Icon::kCritical);
}

}  // namespace velquist::app
