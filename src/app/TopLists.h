// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/Globals.h"
#include "app/MainForm.h"
#include "edit/CarSetup.h"
#include "platform/FileSystem.h"

namespace velquist::app {

/// Fills the lists of the top row from what is installed, and selects what is current.
class TopLists {
 public:
  /// `window` gets the events of the selections. All of them outlive it.
  TopLists(MainWindow& window, edit::CarSetup& car, Globals& globals, MainForm& form,
           const platform::FileSystem& files)
      : window_(window), car_(car), globals_(globals), form_(form), files_(files)
  {
  }

  void FillPlayersAndTracks();
  void FillTracks();
  void ListModYears();
  /// Without the event of a choice of the user's.
  void SelectModYear();
  /// What is offered for some mod years alone.
  void ShowModYearControls();
  void FillChassis();
  /// Mod years, chassis and formulas.
  void FillModYears();

 private:
  MainWindow& window_;
  edit::CarSetup& car_;
  Globals& globals_;
  MainForm& form_;
  const platform::FileSystem& files_;
};

/// The directory of the chosen installation, player and track.
[[nodiscard]] std::string SetupDirectory(const MainForm& form);

}  // namespace velquist::app
