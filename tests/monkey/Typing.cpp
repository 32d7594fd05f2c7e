// SPDX-License-Identifier: MIT
// Numbers that the user types for values.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "Monkey.h"
#include "app/ValueTexts.h"
#include "data/Numbers.h"
#include "edit/Display.h"
#include "edit/StepEditing.h"
#include "platform/Errors.h"
#include "runner/Texts.h"
#include "setup/SlotTable.h"

namespace velquist::monkey {
namespace {

using runner::Quoted;
using testing::Dice;

constexpr std::array<std::string_view, 18> kNoNumbers = {
    "",  " ",   "-",    "+",   ".",   "--1",     "1e1",  "nan",   "inf",
    "x", "0x8", "5psi", "1 2", "1/0", "1,000.5", "1..2", "1/2/3", "\xC3\xA4"};

/// The ends that may be typed, in the units shown; a gear's as ratios.
struct Ends {
  double least = 0;
  double most = 0;
};

Ends EndsOf(const app::MainWindow& window, int slot)
{
  const auto& car = window.Car();
  const auto range = edit::RangeOf(car.SetupData(), slot, car.Options());
  if (setup::IsGear(slot))
    return {car.Gears().Ratio(data::ToInt32(range.minimum)),
            car.Gears().Ratio(data::ToInt32(range.maximum))};
  const int units = window.State().Units;
  return {edit::InUnits(slot, range.minimum, units), edit::InUnits(slot, range.maximum, units)};
}

std::string RollNumber(Dice& dice, const Ends& ends)
{
  const double span = ends.most - ends.least;
  double number = ends.least + span * dice.Below(1001) / 1000;
  if (dice.OneIn(8)) number = dice.OneIn(2) ? ends.least : ends.most;
  if (dice.OneIn(6)) number += (dice.OneIn(2) ? 1 : -1) * (span + 2);
  auto text = edit::FormatNumber(static_cast<float>(number), dice.Below(4));
  std::erase(text, ',');
  if (dice.OneIn(4)) std::ranges::replace(text, '.', ',');
  if (dice.OneIn(9) && !text.starts_with('-')) text.insert(0, "+");
  return dice.OneIn(9) ? " " + text + "\t" : text;
}

/// Whether the value must take the text or refuse it; nothing where that is not sure.
std::optional<bool> Takes(const app::MainWindow& window, int slot, std::string text)
{
  if (std::ranges::find(kNoNumbers, text) != kNoNumbers.end()) return false;
  std::ranges::replace(text, ',', '.');
  double number = std::strtod(text.c_str(), nullptr);
  if (const auto stroke = text.find('/'); stroke != std::string::npos)
    number /= std::strtod(text.c_str() + stroke + 1, nullptr);
  const auto ends = EndsOf(window, slot);
  if (number > ends.least && number < ends.most) return true;
  if (number < ends.least - 1 || number > ends.most + 1) return false;
  return std::nullopt;
}

}  // namespace

std::string Monkey::RollTyping(Dice& dice) const
{
  const auto& window = driver_->Window();
  const int slot = dice.Below(setup::kFinalDrive);
  const auto* const button = window.Form().Find("CmdInc", slot);
  const auto* const label = window.Form().Find("Label1", slot);
  const bool is_reached =
      button != nullptr && button->enabled && window.Form().IsShown(*button) && label != nullptr;
  if (!is_reached) return "focus";
  std::string text(dice.OneOf(kNoNumbers));
  try {
    const auto& gears = window.Car().Gears();
    if (setup::IsGear(slot) && dice.OneIn(3))
      text = gears.DisplayText(dice.Below(data::kGearRows));
    else if (!dice.OneIn(6))
      text = RollNumber(dice, EndsOf(window, slot));
  } catch (const BoundsError&) {  // no range
  }
  return "type Label1(" + std::to_string(slot) + ") " + Quoted(text);
}

void Monkey::PlayTyping(const std::string& statement)
{
  const auto script = runner::ReadScript(statement + "\n", world_.Names());
  runner::WordReader words(script.front());
  words.Expect("type");
  const int slot = words.Control().index;
  const auto text = words.Next("a number").text;
  const auto seen = play_.Seen({"Label1", slot});
  if (!seen.shown || !seen.enabled) throw runner::Failure("a value to type", "none");
  const auto& window = driver_->Window();
  bool is_known = false;  // whether it is taken
  bool takes = false;
  std::string refusal;
  std::string before;
  try {
    before = app::NumberText(window, slot);
    const auto expected = Takes(window, slot, text);
    is_known = expected.has_value();
    takes = expected.value_or(false);
    refusal = "From " + app::RangeText(window, slot) + ".";
  } catch (const BoundsError&) {
    is_known = false;
  }
  const auto refused = driver_->Type(slot, text);
  script_.push_back(refused.empty() ? statement : statement + " refused " + Quoted(refused));

  typed_ = {!refused.empty(), {}};
  const bool is_same = text.find_first_not_of(" \t") == text.find(before) &&
                       text.find_last_not_of(" \t") + 1 == text.find(before) + before.size();
  if (typed_.refused && refused != refusal)
    typed_.wrong = "is refused with " + Quoted(refused);
  else if (is_known && takes == typed_.refused && !is_same && dialogs_.empty())
    typed_.wrong = typed_.refused ? "is refused" : "is taken";
}

}  // namespace velquist::monkey
