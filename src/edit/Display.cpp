// SPDX-License-Identifier: MIT
#include "edit/Display.h"

#include <charconv>
#include <cmath>
#include <cstdint>

#include "platform/Errors.h"
#include "setup/SlotTable.h"

namespace velquist::edit {

// clang-format off
const std::array<float, 2 * kDisplaySlots> DisplayFactor = {
    // English
    1.0F, 1.0F, 1.0F, 1.0F,                          // tire pressure, psi
    1.0F, 1.0F, 1.0F, 1.0F,                          // wheel rate, lbs/in
    1.0F, 1.0F, 1.0F, 1.0F,                          // bump
    1.0F, 1.0F, 1.0F, 1.0F,                          // rebound
    1.0F, 1.0F, 1.0F, 1.0F,                          // camber, deg
    1.0F, 1.0F, 1.0F, 1.0F,                          // bump rubber, in
    1.0F, 1.0F,                                      // toe in, in
    1.0F, 1.0F,                                      // roll bar, lbs/in
    1.0F, 1.0F,                                      // static ride height, in
    1.0F,                                            // fuel, gals
    1.0F,                                            // steering ratio
    1.0F,                                            // front brake bias, %
    1.0F, 1.0F,                                      // wings, deg
    // metric
    6.8947F, 6.8947F, 6.8947F, 6.8947F,              // tire pressure, kPa
    1.7513F, 1.7513F, 1.7513F, 1.7513F,              // wheel rate, N/cm
    1.0F, 1.0F, 1.0F, 1.0F,                          // bump
    1.0F, 1.0F, 1.0F, 1.0F,                          // rebound
    1.0F, 1.0F, 1.0F, 1.0F,                          // camber, deg
    2.54F, 2.54F, 2.54F, 2.54F,                      // bump rubber, cm
    2.54F, 2.54F,                                    // toe in, cm
    1.7513F, 1.7513F,                                // roll bar, N/cm
    2.54F, 2.54F,                                    // static ride height, cm
    3.7854F,                                         // fuel, ltrs
    1.0F,                                            // steering ratio
    1.0F,                                            // front brake bias, %
    1.0F, 1.0F,                                      // wings, deg
};

const std::array<short, 2 * kDisplaySlots> DisplayDecimals = {
    // normal steps
    0, 0, 0, 0,  0, 0, 0, 0,  0, 0, 0, 0,  0, 0, 0, 0,  2, 2, 2, 2,  2, 2, 2, 2,
    3, 3,  0, 0,  2, 2,  0,  0,  0,  0, 0,
    // fine steps
    1, 1, 1, 1,  0, 0, 0, 0,  0, 0, 0, 0,  0, 0, 0, 0,  2, 2, 2, 2,  2, 2, 2, 2,
    3, 3,  0, 0,  2, 2,  0,  0,  0,  2, 2,
};

const std::array<std::string_view, 2 * kUnitCaptionRows> UnitCaptions = {
    // English
    "Tire Pressure, psi", "Wheel Rate, lbs/in", "Bump", "Rebound", "Camber, deg", "Bump Rubber, in",
    "Tire Pressure, psi", "Wheel Rate, lbs/in", "Bump", "Rebound", "Camber, deg", "Bump Rubber, in",
    "Toe In, in", "Roll Bar Stiffness, lbs/in", "Static Ride Height,in",
    "Toe In, in", "Roll Bar Stiffness, lbs/in", "Static Ride Height, in",
    "Fuel Level, gals",
    // metric
    "Tire Pressure, kPa", "Wheel Rate, N/cm", "Bump", "Rebound", "Camber, deg", "Bump Rubber, cm",
    "Tire Pressure, kPa", "Wheel Rate, N/cm", "Bump", "Rebound", "Camber, deg", "Bump Rubber, cm",
    "Toe In, cm", "Roll Bar Stiffness, N/cm", "Static Ride Height, cm",
    "Toe In, cm", "Roll Bar Stiffness, N/cm", "Static Ride Height, cm",
    "Fuel Level, ltrs",
};
// clang-format on

namespace {

/// A single times 10, 100 or 1000 is exact in double precision, so ties are seen as they are.
constexpr std::array kPowers = {1.0, 10.0, 100.0, 1000.0};

/// `value`, which is not negative, rounded half up. The C library's own function is not exact just
/// below a half on every system.
double RoundedHalfUp(double value)
{
  const double whole = std::trunc(value);
  return value - whole < 0.5 ? whole : whole + 1;
}

/// A whole number that is not negative.
std::string Digits(double whole)
{
  constexpr double kMostOfAnInteger = 1e18;
  constexpr std::size_t kLongestInteger = 18;
  constexpr std::size_t kLongestDouble = 330;
  const auto written = [](auto text, auto... number) {
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number...);
    return std::string(text.data(), end.ptr);
  };
  if (whole < kMostOfAnInteger)
    return written(std::array<char, kLongestInteger>{}, static_cast<std::uint64_t>(whole));
  return written(std::array<char, kLongestDouble>{}, whole, std::chars_format::fixed, 0);
}

/// |value| x 10^decimals rounded half away from zero, as digits with one at least before the point.
std::string ScaledDigits(double value, std::size_t decimals)
{
  auto digits = Digits(RoundedHalfUp(std::fabs(value) * kPowers.at(decimals)));
  if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
  return digits;
}

struct Picture {
  std::size_t decimals = 0;
  bool leading_zero = true;
  bool grouping = true;
};

std::string Format(double value, Picture picture)
{
  if (std::isnan(value)) return "nan";
  if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
  const auto digits = ScaledDigits(value, picture.decimals);
  const auto whole = digits.size() - picture.decimals;
  std::string text;
  if (value < 0 && digits.find_first_not_of('0') != std::string::npos) text += '-';
  if (picture.leading_zero || digits.front() != '0') {
    for (std::size_t i = 0; i < whole; ++i) {
      if (picture.grouping && i > 0 && (whole - i) % 3 == 0) text += ',';
      text += digits[i];
    }
  }
  if (picture.decimals > 0) {
    text += '.';
    text.append(digits, whole);
  }
  return text;
}

}  // namespace

std::string FormatNumber(double value, int decimals)
{
  return Format(value, {.decimals = static_cast<std::size_t>(decimals)});
}

std::string FormatRatio(double value)
{
  return Format(value, {.decimals = 2, .leading_zero = false, .grouping = false});
}

int ShownDecimals(int slot, int fine)
{
  return DisplayDecimals.at(static_cast<std::size_t>(slot + kDisplaySlots * fine));
}

float InUnits(int slot, float raw, int units)
{
  const auto factor = DisplayFactor.at(static_cast<std::size_t>(slot + kDisplaySlots * units));
  return static_cast<float>(static_cast<double>(raw) * static_cast<double>(factor));
}

double RoundedAsShown(int slot, float raw, int units, int fine)
{
  const double scale = kPowers.at(static_cast<std::size_t>(ShownDecimals(slot, fine)));
  const double shown = InUnits(slot, raw, units);
  return std::copysign(RoundedHalfUp(std::fabs(shown) * scale), shown) / scale;
}

std::string DisplayText(int slot, float raw, int units, int fine)
{
  if (slot < 0 || slot >= kDisplaySlots) throw BoundsError("display slot " + std::to_string(slot));
  if (slot >= setup::kFrontWing && raw < 0.0F) return "None";
  return FormatNumber(InUnits(slot, raw, units), ShownDecimals(slot, fine));
}

}  // namespace velquist::edit
