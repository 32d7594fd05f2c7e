// SPDX-License-Identifier: MIT
// What the window shows of the values that are edited.
#include "ReferenceEditing.h"

#include <cmath>
#include <cstddef>
#include <string>

namespace velquist::reference {
namespace {

/// Digits of a number that is not negative, with `decimals` of them behind the point.
std::string Digits(double value, int decimals, bool grouped, bool leading_zero)
{
  long double scaled = value;
  for (int i = 0; i < decimals; ++i) scaled *= 10;
  std::string whole = std::to_string(static_cast<unsigned long long>(std::floor(scaled + 0.5L)));
  const auto places = static_cast<std::size_t>(decimals);
  while (whole.size() <= places) whole.insert(0, "0");
  const std::string fraction = whole.substr(whole.size() - places);
  whole.resize(whole.size() - places);
  if (grouped)
    for (std::size_t at = whole.size(); at > 3;) {
      at -= 3;
      whole.insert(at, ",");
    }
  if (!leading_zero && whole == "0") whole.clear();
  return decimals > 0 ? whole + "." + fraction : whole;
}

std::string WithSign(double value, const std::string& digits)
{
  const bool zero = digits.find_first_of("123456789") == std::string::npos;
  return value < 0 && !zero ? "-" + digits : digits;
}

struct Display {
  int first_slot;
  int last_slot;
  float metric;
  int decimals;
  int fine_decimals;
};

constexpr Display kDisplays[] = {
    {0, 3, 6.8947F, 0, 1},    // tire pressure
    {4, 7, 1.7513F, 0, 0},    // wheel rate
    {8, 11, 1.0F, 0, 0},      // bump
    {12, 15, 1.0F, 0, 0},     // rebound
    {16, 19, 1.0F, 2, 2},     // camber
    {20, 23, 2.54F, 2, 2},    // bump rubber
    {24, 25, 2.54F, 3, 3},    // toe in
    {26, 27, 1.7513F, 0, 0},  // roll bar
    {28, 29, 2.54F, 2, 2},    // ride height
    {30, 30, 3.7854F, 0, 0},  // fuel
    {31, 31, 1.0F, 0, 0},     // steering ratio
    {32, 32, 1.0F, 0, 0},     // brake bias
    {33, 34, 1.0F, 0, 2},     // wings
};

constexpr const char* kCaptions[19][2] = {
    {"Tire Pressure, psi", "Tire Pressure, kPa"},
    {"Wheel Rate, lbs/in", "Wheel Rate, N/cm"},
    {"Bump", "Bump"},
    {"Rebound", "Rebound"},
    {"Camber, deg", "Camber, deg"},
    {"Bump Rubber, in", "Bump Rubber, cm"},
    {"Tire Pressure, psi", "Tire Pressure, kPa"},
    {"Wheel Rate, lbs/in", "Wheel Rate, N/cm"},
    {"Bump", "Bump"},
    {"Rebound", "Rebound"},
    {"Camber, deg", "Camber, deg"},
    {"Bump Rubber, in", "Bump Rubber, cm"},
    {"Toe In, in", "Toe In, cm"},
    {"Roll Bar Stiffness, lbs/in", "Roll Bar Stiffness, N/cm"},
    {"Static Ride Height,in", "Static Ride Height, cm"},
    {"Toe In, in", "Toe In, cm"},
    {"Roll Bar Stiffness, lbs/in", "Roll Bar Stiffness, N/cm"},
    {"Static Ride Height, in", "Static Ride Height, cm"},
    {"Fuel Level, gals", "Fuel Level, ltrs"},
};

/// Slot behind each list.
constexpr int kListSlot[4] = {48, 50, 49, 51};

}  // namespace

std::string Formatted(double value, int decimals)
{
  return WithSign(value, Digits(std::fabs(value), decimals, true, true));
}

std::string OverallRatio(double value)
{
  return WithSign(value, Digits(std::fabs(value), 2, false, false));
}

void Editing::ShowValue(int slot)
{
  const auto s = static_cast<std::size_t>(slot);
  for (const auto& display : kDisplays) {
    if (slot < display.first_slot || slot > display.last_slot) continue;
    if (slot >= 33 && value[s] < 0.0F) {
      Label1[s] = "None";
      return;
    }
    const double factor = units == 0 ? 1.0 : static_cast<double>(display.metric);
    const auto shown = static_cast<float>(static_cast<double>(value[s]) * factor);
    Label1[s] = Formatted(shown, fine ? display.fine_decimals : display.decimals);
  }
}

void Editing::ShowGear(int slot, int final_drive_row)
{
  const auto s = static_cast<std::size_t>(slot);
  const int row = TiesToEven(value[s]);
  Label1[s] = gears_->at(static_cast<std::size_t>(row)).at(1);
  Label2[s] = OverallRatio(static_cast<double>(RatioOfRow(row)) *
                           static_cast<double>(RatioOfRow(final_drive_row)));
}

void Editing::ShowLocking()
{
  const auto chosen = [this](std::size_t list) {
    const auto& [items, selection] = Combo1[list];
    return selection < 0 ? 0.0 : Number(items.at(static_cast<std::size_t>(selection)));
  };
  for (const std::size_t list : {1U, 2U}) {
    const double percent = (chosen(3) + 1.0) * 5.0 * std::cos(chosen(list) * 0.0174532925);
    Label2[static_cast<std::size_t>(kListSlot[list])] = Formatted(percent, 0);
  }
}

void Editing::ShowAll()
{
  for (int slot = 0; slot <= 34; ++slot) ShowValue(slot);
  for (int slot = 42; slot <= 47; ++slot)
    ShowGear(slot, WholeOf(48, kMinimum) + Combo1[0].selection);
  ShowLocking();
  for (std::size_t row = 0; row < 19; ++row)
    Label3[row] = kCaptions[row][static_cast<std::size_t>(units)];
}

}  // namespace velquist::reference
