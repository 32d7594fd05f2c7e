// SPDX-License-Identifier: MIT
#pragma once

#include "app/Globals.h"
#include "app/MainForm.h"
#include "edit/CarSetup.h"

namespace velquist::app {

/// What the main window shows of the car: one function a thing, which derives it from the car.
class CarShowing {
 public:
  /// All three outlive it.
  CarShowing(const edit::CarSetup& car, Globals& globals, MainForm& form)
      : car_(car), globals_(globals), form_(form)
  {
  }

  void ShowFileName();
  void ShowOptions();
  void ShowDrivetrainLists();

  /// Every value, gear, overall ratio, locking percentage and row caption.
  void RefreshDisplay();
  void ShowSlotValue(int slot);
  /// What a press of a slot has moved.
  void ShowStep(int slot, const edit::ShownSlots& moved);
  void ShowGear(int slot);
  void ShowOverallRatios();
  void ShowLockingPercent();
  /// The rows of the gears that the car has; the first three are always there.
  void ShowGearRows();
  /// Any value may have changed.
  void ShowAnotherState();

  /// Undo and redo say what they would do. Called after each event: costs nothing where nothing
  /// changed.
  void ShowHistory();
  /// Which setup the reference is, and what differs from it.
  void ShowReference();
  void ShowMark(int slot);

  void DrawCharts();
  /// Computes the engine curve anew, too.
  void DrawSpeedBands();

 private:
  void ShowOverallRatio(int slot);
  void DrawEngineChart();

  const edit::CarSetup& car_;
  Globals& globals_;
  MainForm& form_;
};

}  // namespace velquist::app
