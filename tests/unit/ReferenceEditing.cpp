// SPDX-License-Identifier: MIT
#include "ReferenceEditing.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <stdexcept>

namespace velquist::reference {
namespace {

float Sum(float a, float b)
{
  return static_cast<float>(static_cast<double>(a) + static_cast<double>(b));
}

float Difference(float a, float b)
{
  return static_cast<float>(static_cast<double>(a) - static_cast<double>(b));
}

enum class Group { kCorner, kWheelRate, kSingle, kWing, kRollBar, kGear, kNone };

Group GroupOf(int slot)
{
  if (slot >= 0 && slot <= 3) return Group::kCorner;  // tire pressure
  if (slot >= 4 && slot <= 7) return Group::kWheelRate;
  if (slot >= 8 && slot <= 11) return Group::kCorner;   // bump
  if (slot >= 12 && slot <= 15) return Group::kCorner;  // rebound
  if (slot >= 16 && slot <= 19) return Group::kCorner;  // camber
  if (slot >= 20 && slot <= 23) return Group::kCorner;  // bump rubber
  if (slot == 24 || slot == 25) return Group::kSingle;  // toe in
  if (slot == 26 || slot == 27) return Group::kRollBar;
  if (slot == 28 || slot == 29) return Group::kSingle;  // ride height
  if (slot >= 30 && slot <= 32) return Group::kSingle;  // fuel, steering ratio, brake bias
  if (slot == 33 || slot == 34) return Group::kWing;
  if (slot >= 42 && slot <= 47) return Group::kGear;
  return Group::kNone;
}

}  // namespace

double Number(const std::string& text)
{
  return std::strtod(text.c_str(), nullptr);
}

int TiesToEven(double value)
{
  const double below = std::floor(value);
  const double rest = value - below;
  double whole = below;
  if (rest > 0.5 || (rest == 0.5 && std::fmod(below, 2.0) != 0)) whole = below + 1;
  return static_cast<int>(whole);
}

int LineOf(int slot)
{
  if (slot >= 35 && slot <= 50) return slot - 35;
  if (slot >= 0 && slot <= 29) return slot + 16;
  if (slot == 51) return 46;
  if (slot >= 30 && slot <= 32) return slot + 17;
  if (slot == 33 || slot == 34) return slot + 18;
  throw std::out_of_range("slot");
}

float Editing::Of(int slot, LineField field) const
{
  return static_cast<float>(Number(lines_->at(static_cast<std::size_t>(LineOf(slot))).at(field)));
}

int Editing::WholeOf(int slot, LineField field) const
{
  return TiesToEven(Of(slot, field));
}

float Editing::StepOf(int slot) const
{
  return Of(slot, fine ? kFineStep : kStep);
}

float Editing::RatioOfRow(int row) const
{
  return static_cast<float>(Number(gears_->at(static_cast<std::size_t>(row)).at(2)));
}

void Editing::Load(const SetupLines& lines, const GearLines& gears, const Setup& setup,
                   bool has_wings)
{
  lines_ = &lines;
  gears_ = &gears;
  value = setup.values;
  if (!has_wings) value[33] = value[34] = -1.0F;
  CheckAsymmetric(!setup.symmetric);
  for (auto& list : Combo1) list = {};
  FillList(1, 50, 5);
  FillList(2, 49, 5);
  FillList(3, 51, 1);
  FillList(0, 48, 1);
  ShowAll();
  changed = false;
}

void Editing::TakeCar(Car car)
{
  car_ = car;
  for (int slot = 42; slot <= 47; ++slot)
    row_shown[static_cast<std::size_t>(slot)] = slot < 45 || car.gears + 41 >= slot;
}

void Editing::Press(int slot, bool increase)
{
  changed = true;
  switch (GroupOf(slot)) {
    case Group::kCorner:
      PlainStep(slot, increase);
      CopyToPartner(slot);
      break;
    case Group::kWheelRate:
      if (proportional_springs) {
        ProportionalStep(slot, increase);
      } else {
        PlainStep(slot, increase);
        CopyToPartner(slot);
      }
      break;
    case Group::kSingle:
    case Group::kWing: PlainStep(slot, increase); break;
    case Group::kRollBar:
      if (constant_roll_bars)
        RollBarStep(slot, increase);
      else
        PlainStep(slot, increase);
      break;
    case Group::kGear: GearStep(slot, increase); break;
    case Group::kNone: break;
  }
}

void Editing::PlainStep(int slot, bool increase)
{
  float& current = value.at(static_cast<std::size_t>(slot));
  if (increase) {
    const float v = Sum(current, StepOf(slot));
    if (!(v > Of(slot, kMaximum))) current = v;
  } else {
    const float v = Difference(current, StepOf(slot));
    if (!(v < Of(slot, kMinimum))) current = v;
  }
  ShowValue(slot);
}

void Editing::CopyToPartner(int slot)
{
  if (asymmetric) return;
  const int partner = slot % 2 == 0 ? slot + 1 : slot - 1;
  value.at(static_cast<std::size_t>(partner)) = value.at(static_cast<std::size_t>(slot));
  ShowValue(partner);
}

void Editing::ProportionalStep(int slot, bool increase)
{
  const float current = value.at(static_cast<std::size_t>(slot));
  float v = 0;
  if (increase) {
    v = Sum(current, StepOf(slot));
    if (v > Of(slot, kMaximum)) return;
  } else {
    v = Difference(current, StepOf(slot));
    if (v < Of(slot, kMinimum)) return;
  }
  const double w = car_.rear_weight_fraction;
  if (slot <= 5) {
    const double front = v;
    value[4] = value[5] = v;
    value[6] = value[7] = static_cast<float>(w * front / (1.0 - w));
  } else {
    const double rear = v;
    value[6] = value[7] = v;
    value[4] = value[5] = static_cast<float>((1.0 - w) * rear / w);
  }
  for (int shown = 4; shown <= 7; ++shown) ShowValue(shown);
}

void Editing::RollBarStep(int clicked, bool increase)
{
  float& c = value.at(static_cast<std::size_t>(clicked));
  float& o = value.at(clicked == 26 ? 27 : 26);
  const float total = Sum(value[26], value[27]);
  const float step = StepOf(clicked);
  if (increase) {
    if (!(Sum(c, step) > Of(clicked, kMaximum)) && !(Difference(o, step) < 0.0F)) {
      c = Sum(c, step);
      o = Difference(total, c);
    }
  } else {
    if (!(Difference(c, step) < Of(clicked, kMinimum))) {
      c = Difference(c, step);
      o = Difference(total, c);
    }
  }
  ShowValue(26);
  ShowValue(27);
}

void Editing::GearStep(int slot, bool increase)
{
  float& current = value.at(static_cast<std::size_t>(slot));
  const float step = Of(slot, kStep);
  const float v = increase ? Sum(current, step) : Difference(current, step);
  if (increase && v > Of(slot, kMaximum)) return;
  if (!increase && v < Of(slot, kMinimum)) return;
  current = v;
  ShowGear(slot, WholeOf(48, kMinimum) + Combo1[0].selection);
}

void Editing::CheckAsymmetric(bool checked)
{
  asymmetric = checked;
  if (checked) proportional_springs = false;
}

void Editing::CheckProportional(bool checked)
{
  proportional_springs = checked;
  if (checked) asymmetric = false;
}

void Editing::CheckFine(bool checked)
{
  fine = checked;
  ShowAll();
}

void Editing::CheckConstantRollBars(bool checked)
{
  constant_roll_bars = checked;
}

void Editing::ChooseUnits(int chosen)
{
  units = chosen;
  ShowAll();
}

void Editing::ChooseFromList(int list, int index)
{
  Combo1.at(static_cast<std::size_t>(list)).selection = index;
  ListClicked(list);
}

void Editing::FillList(int list, int slot, int step)
{
  auto& filled = Combo1.at(static_cast<std::size_t>(list));
  const int minimum = WholeOf(slot, kMinimum);
  const int maximum = WholeOf(slot, kMaximum);
  for (int number = minimum; number <= maximum; number += step) {
    if (list == 0)
      filled.items.push_back(gears_->at(static_cast<std::size_t>(number)).at(1));
    else
      filled.items.push_back((number < 0 ? "" : " ") + std::to_string(number));
  }
  const int stored = TiesToEven(value.at(static_cast<std::size_t>(slot)));
  filled.selection = TiesToEven(static_cast<double>(stored - minimum) / step);
  ListClicked(list);
}

void Editing::ListClicked(int list)
{
  changed = true;
  if (list == 0) {
    const int row = WholeOf(48, kMinimum) + Combo1[0].selection;
    value[48] = static_cast<float>(row);
    for (int slot = 42; slot <= 47; ++slot) ShowGear(slot, row);
  } else {
    ShowLocking();
  }
}

}  // namespace velquist::reference
