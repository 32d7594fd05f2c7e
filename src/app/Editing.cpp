// SPDX-License-Identifier: MIT
#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "data/ChassisCatalogue.h"
#include "data/Numbers.h"
#include "edit/Display.h"
#include "edit/Drivetrain.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

constexpr int kLastGear = setup::kFirstGear + data::kMostGears - 1;

std::size_t At(int slot)
{
  return static_cast<std::size_t>(slot);
}

}  // namespace

/// Shows the setup whose values were loaded.
void MainWindow::ShowSetup()
{
  car_.LoadLists();
  ShowOptions();
  ShowDrivetrainLists();
  RefreshDisplay();
}

void MainWindow::Step(int slot, edit::Direction direction)
{
  const auto shown = car_.Step(slot, direction, repeated_);
  if (!setup::IsGear(slot)) {
    for (const int each : shown) ShowSlotValue(each);
  } else if (!shown.empty()) {
    ShowGear(slot);
    DrawSpeedBands();
  }
}

void MainWindow::Combo1_Click(int list)
{
  car_.ChooseInList(list, form_.Combo1[At(list)].selection);
  ShowMark(edit::SlotOfList(list));
  if (list == edit::kFinalDriveList) {
    for (int slot = setup::kFirstGear; slot <= kLastGear; ++slot) ShowOverallRatio(slot);
    DrawSpeedBands();
  } else {
    ShowLockingPercent();
  }
}

void MainWindow::OptUnits_Click()
{
  globals_.Units = form_.OptUnits[0].checked ? edit::kEnglish : edit::kMetric;
  if (!globals_.ready) return;
  DrawSpeedBands();
  RefreshDisplay();
}

void MainWindow::AsymmetricCheck_Click()
{
  car_.SetAsymmetric(form_.AsymmetricCheck.checked);
  ShowOptions();
}

void MainWindow::SpringStiffnessProportional_Click()
{
  car_.SetProportionalSprings(form_.SpringStiffnessProportional.checked);
  ShowOptions();
}

void MainWindow::FineCheck_Click()
{
  car_.SetFine(form_.FineCheck.checked);
  RefreshDisplay();
}

void MainWindow::RollBarConstTotal_Click()
{
  car_.SetConstantRollBars(form_.RollBarConstTotal.checked);
}

void MainWindow::ShowOptions()
{
  const auto& options = car_.Options();
  form_.AsymmetricCheck.checked = options.asymmetric;
  form_.FineCheck.checked = options.fine;
  form_.RollBarConstTotal.checked = options.constant_roll_bars;
  form_.SpringStiffnessProportional.checked = options.proportional_springs;
}

void MainWindow::ShowDrivetrainLists()
{
  for (int list = 0; list < edit::kDrivetrainLists; ++list) {
    Control& combo = form_.Combo1[At(list)];
    combo.items = edit::ItemsOfList(list, car_.SetupData(), car_.Gears());
    combo.selection = car_.ListSelection(list);
    combo.text = combo.items.at(At(combo.selection));
    ShowMark(edit::SlotOfList(list));
  }
}

void MainWindow::RefreshDisplay()
{
  for (int slot = 0; slot < edit::kDisplaySlots; ++slot) ShowSlotValue(slot);
  for (int slot = setup::kFirstGear; slot <= kLastGear; ++slot) ShowGear(slot);
  ShowGearRows();
  ShowLockingPercent();
  for (int row = 0; row < edit::kUnitCaptionRows; ++row)
    form_.Label3[At(row)].text =
        edit::UnitCaptions.at(At(row + edit::kUnitCaptionRows * globals_.Units));
}

void MainWindow::ShowSlotValue(int slot)
{
  form_.Label1[At(slot)].text =
      edit::DisplayText(slot, car_.Value(slot), globals_.Units, car_.Options().FineIndex());
  ShowMark(slot);
}

void MainWindow::ShowGear(int slot)
{
  const int row = edit::GearRowOf(car_.SetupData(), slot);
  form_.Label1[At(slot)].text = car_.Gears().DisplayText(row);
  ShowMark(slot);
  ShowOverallRatio(slot);
}

void MainWindow::ShowOverallRatio(int slot)
{
  form_.Label2[At(slot)].text = edit::OverallRatioText(
      car_.Gears(), edit::GearRowOf(car_.SetupData(), slot), car_.FinalDriveRow());
}

void MainWindow::ShowLockingPercent()
{
  const auto number = [&](int list) { return data::LeadingNumber(form_.Combo1[At(list)].text); };
  const double clutches = number(edit::kClutchesList);
  const auto show = [&](int slot, int list) {
    form_.Label2[At(slot)].text =
        edit::FormatNumber(edit::LockingPercent(clutches, number(list)), 0);
  };
  show(setup::kPowerAngle, edit::kPowerAngleList);
  show(setup::kCoastAngle, edit::kCoastAngleList);
}

/// The rows of the gears that the car has; the first three are always there.
void MainWindow::ShowGearRows()
{
  constexpr int kAlwaysShown = 3;
  const int gears = car_.GearCount();
  for (int gear = kAlwaysShown; gear < data::kMostGears; ++gear) {
    const auto slot = At(setup::kFirstGear + gear);
    for (Control* control : {&form_.Label1[slot], &form_.Label2[slot], &form_.Label3[slot],
                             &form_.CmdInc[slot], &form_.CmdDec[slot]})
      control->shown = gear < gears;
  }
}

}  // namespace velquist::app
