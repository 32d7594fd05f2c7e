// SPDX-License-Identifier: MIT
// Numbers that the user types for a value.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

#include "app/EventEntry.h"
#include "app/ValueTexts.h"
#include "data/Numbers.h"
#include "edit/Display.h"
#include "edit/Drivetrain.h"
#include "edit/StepEditing.h"
#include "setup/SlotNames.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

std::string_view WithoutBlanks(std::string_view text)
{
  constexpr std::string_view kTrimmed = " \t";
  while (!text.empty() && kTrimmed.find(text.front()) != std::string_view::npos)
    text.remove_prefix(1);
  while (!text.empty() && kTrimmed.find(text.back()) != std::string_view::npos)
    text.remove_suffix(1);
  return text;
}

/// Sign, digits and one decimal comma or point; nothing for any other text.
std::optional<double> Number(std::string_view text)
{
  text = WithoutBlanks(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  std::string plain(text);
  if (plain.find_first_not_of("0123456789.,", text.starts_with('-') ? 1 : 0) != std::string::npos)
    return std::nullopt;
  std::ranges::replace(plain, ',', '.');
  double number = 0;
  const char* const end = plain.data() + plain.size();
  const auto read = std::from_chars(plain.data(), end, number, std::chars_format::fixed);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

/// A ratio, as a number or as the pair of wheels "33/18".
std::optional<double> Ratio(std::string_view text)
{
  const auto stroke = text.find('/');
  if (stroke == std::string_view::npos) return Number(text);
  const auto wheel = Number(text.substr(0, stroke));
  const auto pinion = Number(text.substr(stroke + 1));
  if (!wheel || !pinion || *pinion == 0) return std::nullopt;
  return *wheel / *pinion;
}

/// What was typed, and the value that it asks for.
struct Wanted {
  double typed = 0;
  double value = 0;  ///< English units; the row of a gear
};

/// The gear whose ratio is nearest.
std::optional<Wanted> WantedGear(const edit::CarSetup& car, int slot, std::string_view text)
{
  constexpr double kRounding = 0.0005;  // of the ratios that the gear table tells
  const auto typed = Ratio(text);
  const auto range = edit::RangeOf(car.SetupData(), slot, car.Options());
  const int first = data::ToInt32(range.minimum);
  const int last = data::ToInt32(range.maximum);
  if (!typed || *typed < static_cast<double>(car.Gears().Ratio(first)) - kRounding ||
      *typed > static_cast<double>(car.Gears().Ratio(last)) + kRounding)
    return std::nullopt;
  const auto away = [&](int row) { return std::fabs(car.Gears().Ratio(row) - *typed); };
  int nearest = first;
  for (int row = first; row <= last; ++row)
    if (away(row) < away(nearest)) nearest = row;
  return Wanted{*typed, static_cast<double>(nearest)};
}

std::optional<Wanted> WantedValue(const MainWindow& window, int slot, std::string_view text)
{
  const auto typed = Number(text);
  if (!typed) return std::nullopt;
  const auto& options = window.Car().Options();
  const int units = window.State().Units;
  const auto range = edit::RangeOf(window.Car().SetupData(), slot, options);
  // The ends are told as they are shown, and may be typed so.
  const auto shown = [&](float end) {
    return edit::RoundedAsShown(slot, end, units, options.FineIndex());
  };
  const auto exact = [&](float end) -> double { return edit::InUnits(slot, end, units); };
  if (*typed < std::min(shown(range.minimum), exact(range.minimum)) ||
      *typed > std::max(shown(range.maximum), exact(range.maximum)))
    return std::nullopt;
  return Wanted{*typed, *typed / static_cast<double>(edit::InUnits(slot, 1, units))};
}

/// The value is what was typed, as exactly as it is told.
bool IsAsTyped(const MainWindow& window, int slot, double typed)
{
  constexpr double kAlike = 1e-9;
  constexpr double kAlikeRatios = 1e-3;
  const auto& car = window.Car();
  if (setup::IsGear(slot))
    return std::fabs(car.Gears().Ratio(edit::GearRowOf(car.SetupData(), slot)) - typed) <
           kAlikeRatios;
  const double shown = edit::RoundedAsShown(slot, car.Value(slot), window.State().Units, 1);
  return std::fabs(shown - typed) < kAlike;
}

}  // namespace

std::string MainWindow::Type(int slot, std::string_view text)
{
  std::string refused;
  Event([&] {
    if (WithoutBlanks(text) == NumberText(*this, slot)) return;
    const auto wanted =
        setup::IsGear(slot) ? WantedGear(car_, slot, text) : WantedValue(*this, slot, text);
    if (!wanted) {
      refused = "From " + RangeText(*this, slot) + ".";
      return;
    }
    showing_.ShowStep(slot, car_.StepTo(slot, wanted->value));
    form_.status = "Set " + std::string(setup::SlotName(slot)) + " to " + ExactText(*this, slot);
    if (!IsAsTyped(*this, slot, wanted->typed))
      form_.status.append(", the nearest to ").append(WithoutBlanks(text)) +=
          " that its steps reach";
  });
  return refused;
}

}  // namespace velquist::app
