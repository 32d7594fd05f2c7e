// SPDX-License-Identifier: MIT
#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "edit/Display.h"
#include "edit/Drivetrain.h"

namespace velquist::app {

/// Shows the setup whose values were loaded.
void MainWindow::ShowSetup()
{
  car_.LoadLists();
  showing_.ShowOptions();
  showing_.ShowDrivetrainLists();
  showing_.RefreshDisplay();
}

void MainWindow::Step(int slot, edit::Direction direction)
{
  showing_.ShowStep(slot, car_.Step(slot, direction, repeated_));
}

void MainWindow::Combo1_Click(int list)
{
  car_.ChooseInList(list, form_.Combo1.at(static_cast<std::size_t>(list)).selection);
  showing_.ShowMark(edit::SlotOfList(list));
  if (list == edit::kFinalDriveList) {
    showing_.ShowOverallRatios();
    showing_.DrawSpeedBands();
  } else {
    showing_.ShowLockingPercent();
  }
}

void MainWindow::OptUnits_Click()
{
  globals_.Units = form_.OptUnits[0].checked ? edit::kEnglish : edit::kMetric;
  if (!globals_.ready) return;
  showing_.DrawSpeedBands();
  showing_.RefreshDisplay();
}

void MainWindow::AsymmetricCheck_Click()
{
  car_.SetAsymmetric(form_.AsymmetricCheck.checked);
  showing_.ShowOptions();
}

void MainWindow::SpringStiffnessProportional_Click()
{
  car_.SetProportionalSprings(form_.SpringStiffnessProportional.checked);
  showing_.ShowOptions();
}

void MainWindow::FineCheck_Click()
{
  car_.SetFine(form_.FineCheck.checked);
  showing_.RefreshDisplay();
}

void MainWindow::RollBarConstTotal_Click()
{
  car_.SetConstantRollBars(form_.RollBarConstTotal.checked);
}

}  // namespace velquist::app
