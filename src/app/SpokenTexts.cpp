// SPDX-License-Identifier: MIT
#include "app/SpokenTexts.h"

#include "charts/EngineChart.h"
#include "charts/SpeedBandsChart.h"
#include "edit/Drivetrain.h"
#include "setup/SlotNames.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

/// The caption that names the unit of a slot below kFirstRatio.
const Control& CaptionOf(const MainForm& form, int slot)
{
  constexpr int kWheelRows = 6;
  int row = slot - setup::kFuel + 18;
  if (slot < setup::kToeIn)
    row = slot / 4 + (slot % 4 < 2 ? 0 : kWheelRows);
  else if (slot < setup::kFuel)
    row = 2 * kWheelRows + (slot - setup::kToeIn) / 2 + (slot % 2 == 0 ? 0 : 3);
  return form.Label3.at(static_cast<std::size_t>(row));
}

/// What stands behind a gear or a ramp angle.
const char* Kind(int slot)
{
  return setup::IsGear(slot) ? ", overall ratio" : ", locking percent";
}

/// ", overall ratio 9.12" or ", locking percent 72".
std::string Beside(const MainForm& form, int slot)
{
  const auto& label = form.Label2.at(static_cast<std::size_t>(slot));
  if (label.design == nullptr || label.text.empty()) return {};
  return std::string(Kind(slot)) + " " + label.text;
}

std::string SpokenValue(const MainForm& form, int slot)
{
  auto text = form.Label1.at(static_cast<std::size_t>(slot)).text;
  const auto unit = UnitOf(form, slot);
  const bool is_number = text.find_first_of("0123456789") != std::string::npos;
  if (is_number && !unit.empty()) text.append(" ").append(unit);
  return text + Beside(form, slot);
}

/// What the number on a label of a slot is.
std::string SpokenMeaning(const MainForm& form, int slot)
{
  const auto unit = UnitOf(form, slot);
  return std::string(setup::SlotName(slot)) + (unit.empty() ? "" : ", ") + unit;
}

}  // namespace

std::string UnitOf(const MainForm& form, int slot)
{
  if (slot >= setup::kFirstRatio) return {};
  const auto& caption = CaptionOf(form, slot).text;
  const auto comma = caption.rfind(',');  // the unit stands behind it
  if (comma == std::string::npos) return {};
  return caption.substr(caption.find_first_not_of(' ', comma + 1));
}

std::string SpokenText(const MainWindow& window, const ControlDesign& design)
{
  const auto& form = window.Form();
  const auto* const control = &design.In(form);
  if (design.shape == Shape::kStepButton) return SpokenValue(form, design.index);
  if (control == &form.PictureChart)
    return charts::TellEngineChart(window.Car().ModYearIndex(), window.State().curve,
                                   window.State().bands.maximum_rpm);
  if (control == &form.PictureChart2) return charts::TellSpeedBands(window.State().bands);
  if (design.name == "Combo1") {
    const auto beside = Beside(form, edit::SlotOfList(design.index));
    return beside.empty() ? beside : std::string(design.tip) + beside;
  }
  if (design.name == "Label1") return SpokenMeaning(form, design.index);
  if (design.name == "Label2") return SpokenMeaning(form, design.index) + Kind(design.index);
  return {};
}

}  // namespace velquist::app
