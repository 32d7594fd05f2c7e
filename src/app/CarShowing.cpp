// SPDX-License-Identifier: MIT
#include "app/CarShowing.h"

#include <string>
#include <string_view>

#include "charts/EngineChart.h"
#include "charts/SpeedBandsChart.h"
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

void CarShowing::ShowOptions()
{
  const auto& options = car_.Options();
  form_.AsymmetricCheck.checked = options.asymmetric;
  form_.FineCheck.checked = options.fine;
  form_.RollBarConstTotal.checked = options.constant_roll_bars;
  form_.SpringStiffnessProportional.checked = options.proportional_springs;
}

void CarShowing::ShowDrivetrainLists()
{
  for (int list = 0; list < edit::kDrivetrainLists; ++list) {
    Control& combo = form_.Combo1[At(list)];
    combo.items = edit::ItemsOfList(list, car_.SetupData(), car_.Gears());
    combo.selection = car_.ListSelection(list);
    combo.text = combo.items.at(At(combo.selection));
    ShowMark(edit::SlotOfList(list));
  }
}

void CarShowing::RefreshDisplay()
{
  for (int slot = 0; slot < edit::kDisplaySlots; ++slot) ShowSlotValue(slot);
  for (int slot = setup::kFirstGear; slot <= kLastGear; ++slot) ShowGear(slot);
  ShowGearRows();
  ShowLockingPercent();
  for (int row = 0; row < edit::kUnitCaptionRows; ++row)
    form_.Label3[At(row)].text =
        edit::UnitCaptions.at(At(row + edit::kUnitCaptionRows * globals_.Units));
}

void CarShowing::ShowSlotValue(int slot)
{
  form_.Label1[At(slot)].text =
      edit::DisplayText(slot, car_.Value(slot), globals_.Units, car_.Options().FineIndex());
  ShowMark(slot);
}

void CarShowing::ShowStep(int slot, const edit::ShownSlots& moved)
{
  if (!setup::IsGear(slot)) {
    for (const int each : moved) ShowSlotValue(each);
  } else if (!moved.empty()) {
    ShowGear(slot);
    DrawSpeedBands();
  }
}

void CarShowing::ShowGear(int slot)
{
  const int row = edit::GearRowOf(car_.SetupData(), slot);
  form_.Label1[At(slot)].text = car_.Gears().DisplayText(row);
  ShowMark(slot);
  ShowOverallRatio(slot);
}

void CarShowing::ShowOverallRatios()
{
  for (int slot = setup::kFirstGear; slot <= kLastGear; ++slot) ShowOverallRatio(slot);
}

void CarShowing::ShowOverallRatio(int slot)
{
  form_.Label2[At(slot)].text = edit::OverallRatioText(
      car_.Gears(), edit::GearRowOf(car_.SetupData(), slot), car_.FinalDriveRow());
}

void CarShowing::ShowLockingPercent()
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

void CarShowing::ShowGearRows()
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

void CarShowing::ShowAnotherState()
{
  ShowDrivetrainLists();
  RefreshDisplay();
  DrawCharts();
}

void CarShowing::ShowHistory()
{
  const auto show = [](Control& item, std::string_view verb, std::string_view step) {
    item.enabled = !step.empty();
    const auto size = verb.size() + (step.empty() ? 0 : 1 + step.size());
    if (item.text.size() == size && item.text.ends_with(step)) return;
    item.text = verb;
    if (!step.empty()) item.text.append(" ").append(step);
  };
  show(form_.MnuUndo, "Undo", car_.UndoText());
  show(form_.MnuRedo, "Redo", car_.RedoText());
}

void CarShowing::ShowReference()
{
  const auto source = car_.ComparedWith().source;
  form_.MnuReferenceLoaded.checked = source == edit::ReferenceSource::kLoaded;
  form_.MnuReferenceDefault.checked = source == edit::ReferenceSource::kDefault;
  form_.MnuReferenceFile.checked = source == edit::ReferenceSource::kFile;
  for (int slot = 0; slot < kSlotControls; ++slot) ShowMark(slot);
}

void CarShowing::ShowMark(int slot)
{
  if (Control* const value = form_.ValueOf(slot)) value->marked = car_.Differs(slot);
}

void CarShowing::ShowFileName()
{
  form_.Label4.text = car_.FileName();
}

void CarShowing::DrawCharts()
{
  DrawSpeedBands();
  DrawEngineChart();
}

void CarShowing::DrawEngineChart()
{
  charts::DrawEngineChart(form_.chart, car_.ModYearIndex(), globals_.curve,
                          globals_.bands.maximum_rpm);
}

void CarShowing::DrawSpeedBands()
{
  const int engine_slot = car_.EngineSlot();
  const auto& engine = data::EngineOf(car_.ModYearIndex(), engine_slot);
  data::ComputeEngineCurve(car_.ModYearIndex(), engine_slot, globals_.curve);
  const auto ratios = edit::RatiosOf(car_.SetupData(), car_.Gears(), car_.GearCount());
  globals_.bands = charts::ComputeSpeedBands(
      globals_.curve, data::ToInt32(engine.maximum_rpm), car_.ModYearIndex(), car_.ChassisIndex(),
      ratios.Gears(), ratios.final_drive, globals_.Units != 0);
  charts::DrawSpeedBands(form_.chart2, car_.ModYearIndex(), globals_.bands);
}

}  // namespace velquist::app
