// SPDX-License-Identifier: MIT
#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "data/ChassisCatalogue.h"
#include "data/Numbers.h"
#include "edit/Display.h"
#include "edit/Drivetrain.h"
#include "setup/SetupRecord.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

constexpr int kLastGear = setup::kFirstGear + data::kMostGears - 1;

std::size_t At(int slot)
{
  return static_cast<std::size_t>(slot);
}

}  // namespace

void MainWindow::LoadValues()
{
  const bool symmetric = setup::LoadSetupValues(globals_.SetupBuffer, globals_.GearData,
                                                globals_.ModYearIndex, globals_.setup_data);
  SetChecked(form_.AsymmetricCheck, !symmetric);
}

/// Takes the setup in the buffer into values, lists and labels.
void MainWindow::ShowSetup()
{
  LoadValues();
  FillDrivetrainLists();
  RefreshDisplay();
}

float MainWindow::SlotValue(int slot) const
{
  return globals_.setup_data.Value(setup::RowOf(slot), data::kCurrent);
}

void MainWindow::Step_Click(int slot, edit::Direction direction)
{
  globals_.changed = true;
  const float rear_weight = data::RearWeightFraction(globals_.ModYearIndex, EngineSlot());
  const bool gear = slot >= setup::kFirstGear && slot <= kLastGear;
  float& value = globals_.setup_data.Current(setup::RowOf(slot));
  const float before = value;
  const auto shown =
      edit::Step(globals_.setup_data, slot, direction, globals_.options, rear_weight);
  if (!gear) {
    for (const int each : shown) ShowSlotValue(each);
  } else if (!shown.empty()) {
    try {
      ShowGear(slot);
      DrawSpeedBands();
    } catch (const BoundsError&) {
      value = before;
      throw;
    }
  }
}

void MainWindow::Combo1_Click(int list)
{
  globals_.changed = true;
  if (list == edit::kFinalDriveList) {
    globals_.setup_data.Current(setup::RowOf(setup::kFinalDrive)) =
        static_cast<float>(FinalDriveRow());
    for (int slot = setup::kFirstGear; slot <= kLastGear; ++slot)
      ShowOverallRatio(slot, FinalDriveRow());
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
  globals_.options.asymmetric = form_.AsymmetricCheck.checked;
  if (!form_.AsymmetricCheck.checked) return;
  SetChecked(form_.SpringStiffnessProportional, false);
}

void MainWindow::SpringStiffnessProportional_Click()
{
  globals_.options.proportional_springs = form_.SpringStiffnessProportional.checked;
  if (!form_.SpringStiffnessProportional.checked) return;
  SetChecked(form_.AsymmetricCheck, false);
}

void MainWindow::FineCheck_Click()
{
  globals_.options.fine = form_.FineCheck.checked;
  globals_.FineIndex = form_.FineCheck.checked ? 1 : 0;
  RefreshDisplay();
}

void MainWindow::RollBarConstTotal_Click()
{
  globals_.options.constant_roll_bars = form_.RollBarConstTotal.checked;
}

void MainWindow::FillDrivetrainLists()
{
  for (const int list :
       {edit::kPowerAngleList, edit::kCoastAngleList, edit::kClutchesList, edit::kFinalDriveList}) {
    auto built = edit::BuildDrivetrainList(list, globals_.setup_data, globals_.GearData);
    Control& combo = form_.Combo1[At(list)];
    combo.items = std::move(built.items);
    Choose(combo, built.selection);
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
      edit::DisplayText(slot, globals_.setup_data.Value(setup::RowOf(slot), data::kCurrent),
                        globals_.Units, globals_.FineIndex);
}

/// The final drive's row: the first one of its list plus the selected position.
int MainWindow::FinalDriveRow() const
{
  const float minimum = globals_.setup_data.Value(setup::RowOf(setup::kFinalDrive), data::kMinimum);
  return data::ToInt16(minimum) + form_.Combo1[edit::kFinalDriveList].selection;
}

void MainWindow::ShowGear(int slot)
{
  const int row = edit::GearRowOf(globals_.setup_data, slot);
  form_.Label1[At(slot)].text = globals_.GearData.DisplayText(row);
  ShowOverallRatio(slot, FinalDriveRow());
}

void MainWindow::ShowOverallRatio(int slot, int final_drive_row)
{
  form_.Label2[At(slot)].text = edit::OverallRatioText(
      globals_.GearData, edit::GearRowOf(globals_.setup_data, slot), final_drive_row);
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
  const int gears = data::GearCount(globals_.ModYearIndex, EngineSlot());
  for (int gear = kAlwaysShown; gear < data::kMostGears; ++gear) {
    const auto slot = At(setup::kFirstGear + gear);
    for (Control* control : {&form_.Label1[slot], &form_.Label2[slot], &form_.Label3[slot],
                             &form_.CmdInc[slot], &form_.CmdDec[slot]})
      control->shown = gear < gears;
  }
}

}  // namespace velquist::app
