// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "app/CarShowing.h"
#include "app/Globals.h"
#include "app/MainForm.h"
#include "app/Outside.h"
#include "app/TopLists.h"
#include "edit/CarSetup.h"

namespace velquist::app {

/// The main window without a toolkit: all state, and one member function a user's action, named
/// after its control. Each public function is one event, handled to completion: what goes wrong in
/// it is caught and told here, and nothing half done stays.
class MainWindow {
 public:
  explicit MainWindow(Outside outside);
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;
  ~MainWindow() = default;

  /// Start-up; `command_line` is empty or the path of one setup file, quoted or not.
  void Form_Load(std::string_view command_line);

  /// A press of a button or menu item; `repeated` where a button that is held presses itself.
  /// False when there is no such control or it does nothing.
  bool Click(std::string_view name, int index = -1, bool repeated = false);
  /// The user sets a check box or chooses an option button. False when there is none of that name.
  bool Check(std::string_view name, int index, bool checked);
  /// The user chooses an item of a drop-down list; choosing the chosen one is an event too.
  /// False when there is no list of that name.
  bool Select(std::string_view name, int index, int selection);

  /// The user types a number for a value, in the unit shown; of a gear its ratio or its pair of
  /// wheels. The value goes there as far as its steps lead. What is refused leaves it as it was and
  /// is answered with the range, "From 12 to 40 psi."; what is taken with nothing.
  [[nodiscard]] std::string Type(int slot, std::string_view text);

  /// The user takes the reference's values of these slots, as one step. What the car cannot have
  /// stays as it is.
  void TakeFromReference(std::span<const int> slots);

  // What the user does with one of all setups.
  /// The current setup is compared with it.
  void LibraryReference(const std::string& path);
  /// Writes it as readable text into its own directory.
  void LibraryExport(const std::string& path);
  /// Shows it in the system's file manager.
  void LibraryShow(const std::string& path);

  /// The window's close request. True when the window may go.
  bool CloseRequested();
  /// A setup file was dropped on the window, or chosen among all setups.
  void FileDropped(std::string_view path);
  /// The window got the focus: asks what to do when the open file was changed by another program.
  void Activated();
  /// The user has closed a window beside this one.
  void SideWindowClosed(SideWindowState MainForm::*window);
  /// Called by a timer: moves the marquee when it is due.
  void Tick();
  /// Milliseconds until Tick has something to show.
  [[nodiscard]] int UntilTick() const;
  /// The window's client area has this size now.
  void Resized(int client_width, int client_height);

  /// What a chart shows at a place in its picture box, pixels, in a few lines; empty outside its
  /// plot box.
  [[nodiscard]] std::string PictureChart_MouseMove(double x, double y) const;
  [[nodiscard]] std::string PictureChart2_MouseMove(double x, double y) const;

  /// The path that Save writes to; the file name alone for a default setup, which it refuses.
  [[nodiscard]] std::string SavePath() const;
  /// What has become of a marked value, for its label or list and its step buttons: "was 90, now
  /// 110 (+20)"; empty where none is marked.
  [[nodiscard]] std::string DifferenceText(const ControlDesign& design) const;

  [[nodiscard]] const MainForm& Form() const noexcept { return form_; }
  [[nodiscard]] const edit::CarSetup& Car() const noexcept { return car_; }
  [[nodiscard]] const Globals& State() const noexcept { return globals_; }
  [[nodiscard]] const Outside& Surroundings() const noexcept { return outside_; }
  /// The program has ended: the window must go and nothing more is handled.
  [[nodiscard]] bool Ended() const noexcept { return ended_; }

 private:
  // Their rows name the events.
  friend struct MenuRows;
  friend struct ControlRows;
  struct Before;
  struct Session;
  struct Opening;

  // MainWindow.cpp: events
  template <class Command>
  void Event(Command&& command);
  template <class Command>
  void AllOrNothing(Command&& command);
  void GoBack(Before before);
  void Tell(std::string_view text, platform::Icon icon);
  void Say(std::string_view done, std::string_view path);
  [[noreturn]] void EndWith(std::string_view text, platform::Icon icon);

  // StartUp.cpp: start-up and shut-down
  void LayOut();
  void LoadDefaultSetup();
  void ReadDataFiles();
  bool MayClose();

  // Selections.cpp: the lists of the top row
  void Combo2_Click();
  void Combo3_Click();
  void Combo4_Click();
  void Combo5_Click();
  void Combo6_Click();
  void Combo7_Click();
  void AddInstallation();
  void DeleteInstallation();

  // Opening.cpp: from disk
  void MnuOpen_Click();
  void MnuImportChassis_Click();
  void MnuImportDrivetrain_Click();
  void OpenPath(const std::string& path);
  bool FindModYear(std::string_view file_name);
  std::optional<std::string> AskForSetup(std::string_view title);
  bool MayOverwriteChanged(const std::string& path);

  // Saving.cpp: to disk
  void MnuNew_Click();
  void MnuSave_Click();
  void MnuSaveAs_Click();
  void MnuRevert_Click();
  void MnuExport_Click();
  void MnuSheet_Click();
  void MnuReverse_Click();
  void MnuFormat_Click(bool long_format);
  bool SaveFirst();
  bool Save();
  bool Write(const std::string& path, std::optional<setup::Layout> layout);

  // Editing.cpp: values and options
  void ShowSetup();
  void CmdInc_Click(int slot) { Step(slot, edit::Direction::kIncrease); }
  void CmdDec_Click(int slot) { Step(slot, edit::Direction::kDecrease); }
  void Step(int slot, edit::Direction direction);
  void Combo1_Click(int list);
  void OptUnits_Click();
  void AsymmetricCheck_Click();
  void FineCheck_Click();
  void RollBarConstTotal_Click();
  void SpringStiffnessProportional_Click();

  // Comparing.cpp: history and reference
  void StartEditing();
  void MnuUndo_Click();
  void MnuRedo_Click();
  void MnuCompare_Click();
  void MnuReferenceLoaded_Click();
  void MnuReferenceDefault_Click();
  void MnuReferenceFile_Click();
  void CompareWithFile(edit::ReferenceSource source, const std::string& path);

  // FromLibrary.cpp: all setups
  void MnuLibrary_Click() { form_.library.Ask(); }

  // Pictures.cpp: charts, car picture, marquee
  void MnuGearing_Click() { form_.gearing.Ask(); }
  void MnuAbout_Click();
  void MnuHelp2_Click();

  Outside outside_;
  edit::CarSetup car_;
  Globals globals_;
  MainForm form_;
  CarShowing showing_{car_, globals_, form_};
  TopLists lists_{*this, car_, globals_, form_, outside_.files};
  Marquee marquee_{globals_.marquee, form_, outside_.clock, outside_.random};
  bool ended_ = false;
  std::string_view incomplete_data_file_;  ///< of those read last; empty when it is whole
  bool repeated_ = false;                  ///< the press under way is one of a held button
};

}  // namespace velquist::app
