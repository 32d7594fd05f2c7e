// SPDX-License-Identifier: MIT
#include "RandomWorld.h"

#include <bit>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "runner/SetupFile.h"
#include "setup/SlotTable.h"

namespace velquist::testing {
namespace {

/// `thousandths` / 1000 as a text with as few digits as it needs.
std::string Decimal(int thousandths)
{
  const int magnitude = thousandths < 0 ? -thousandths : thousandths;
  std::string fraction = std::to_string(1000 + magnitude % 1000).substr(1);
  while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
  return (thousandths < 0 ? "-" : "") + std::to_string(magnitude / 1000) +
         (fraction.empty() ? "" : "." + fraction);
}

bool IsGear(int slot)
{
  return slot >= 42 && slot <= 47;
}

constexpr const char* kRoundRow = "round";

void RollCommonRow(Dice& dice, std::array<std::string, 6>& line)
{
  static constexpr const char* kSteps[] = {"0.1",  "0.05", "0.025", "1",   "5",      "10",
                                           "0.3",  "0.7",  "12.5",  "0",   "0.3333", "1e-1",
                                           " 2.5", "0.01", "33.3",  "0.2", "6.9 kPa"};
  const int minimum = dice.Between(-20'000, 60'000);
  const int span = dice.OneIn(20) ? dice.Between(-3000, 0) : dice.Between(0, 40'000);
  line[1] = Decimal(minimum);
  line[3] = Decimal(minimum + span);
  line[4] = dice.OneOf(kSteps);
  line[5] = dice.OneOf(kSteps);
  if (dice.OneIn(30)) {
    line[3] = "3.0e7";  // where a small step is lost in rounding
    line[1] = "-3.0e7";
  }
}

/// Limits and steps that values meet exactly.
void RollRoundRow(Dice& dice, std::array<std::string, 6>& line)
{
  static constexpr const char* kSteps[] = {"5", "10", "25", "50"};
  line[0] = kRoundRow;
  line[1] = Decimal(dice.Between(-1, 4) * 25'000);
  line[3] = Decimal(dice.Between(8, 20) * 25'000);
  line[4] = dice.OneOf(kSteps);
  line[5] = dice.OneOf(kSteps);
}

void RollGearRow(Dice& dice, std::array<std::string, 6>& line)
{
  static constexpr const char* kMinima[] = {"0", "0", "1", "2.5", "14", "40.5"};
  static constexpr const char* kMaxima[] = {"89", "89", "88.5", "73", "45", "41"};
  static constexpr const char* kSteps[] = {"1", "1", "1", "2", "3", "0.5"};
  line[1] = dice.OneOf(kMinima);
  line[3] = dice.OneOf(kMaxima);
  line[4] = dice.OneOf(kSteps);
  line[5] = dice.OneOf(kSteps);
}

reference::SetupLines RollSetupLines(Dice& dice)
{
  reference::SetupLines lines;
  for (auto& line : lines) line = {"a row", "0", "0", "0", "0", "0"};
  for (int slot = 0; slot < reference::kSlots; ++slot) {
    auto& line = lines[static_cast<std::size_t>(reference::LineOf(slot))];
    if (IsGear(slot))
      RollGearRow(dice, line);
    else if (slot == 26 || slot == 27 ? !dice.OneIn(4) : dice.OneIn(4))
      RollRoundRow(dice, line);
    else
      RollCommonRow(dice, line);
  }
  const auto list = [&](int slot, int low, int high, int longest) {
    auto& line = lines[static_cast<std::size_t>(reference::LineOf(slot))];
    const int minimum = dice.Between(low, high);
    line[1] = Decimal(minimum * 1000 + (dice.OneIn(4) ? 500 : 0));
    line[3] = Decimal((minimum + dice.Between(2, longest)) * 1000 + (dice.OneIn(4) ? 250 : 0));
  };
  list(48, 0, 70, 18);
  list(49, -20, 60, 60);
  list(50, -20, 60, 60);
  list(51, 1, 5, 12);
  return lines;
}

reference::GearLines RollGearLines(Dice& dice)
{
  reference::GearLines lines;
  for (std::size_t row = 0; row < lines.size(); ++row) {
    const int pinion = dice.Between(8, 20);
    const int wheel = dice.Between(8, 60);
    std::string ratio = Decimal(wheel * 1000 / pinion);
    if (dice.OneIn(15)) ratio = "0.0" + std::to_string(dice.Between(1, 99));
    if (dice.OneIn(30)) ratio = "0";
    if (dice.OneIn(60)) ratio = "none";
    if (dice.OneIn(60)) ratio = "-0.25";
    if (dice.OneIn(30)) ratio = "12.125";
    lines[row] = {std::to_string(row), std::to_string(wheel) + "/" + std::to_string(pinion), ratio};
  }
  return lines;
}

float Number(const std::string& text)
{
  return static_cast<float>(std::strtod(text.c_str(), nullptr));
}

/// A value at, near, within or outside the limits of a row.
float RollValue(Dice& dice, const std::array<std::string, 6>& line)
{
  const float minimum = Number(line[1]);
  const float maximum = Number(line[3]);
  if (line[0] == kRoundRow) return static_cast<float>(dice.Below(16) * 25);
  switch (dice.Below(8)) {
    case 0: return minimum;
    case 1: return maximum;
    case 2: return maximum - Number(line[4]);
    case 3: return minimum + Number(line[5]);
    case 4: return std::nextafter(maximum, 0.0F);
    case 5: return minimum - static_cast<float>(dice.Below(30));
    case 6: return maximum + static_cast<float>(dice.Below(30));
    default: return minimum + (maximum - minimum) * static_cast<float>(dice.Below(1000)) / 1000.0F;
  }
}

reference::Setup RollSetup(Dice& dice, const reference::SetupLines& lines,
                           const reference::GearLines& gears)
{
  reference::Setup setup;
  setup.symmetric = !dice.OneIn(3);
  const auto line = [&](int slot) -> auto&
  {
    return lines[static_cast<std::size_t>(reference::LineOf(slot))];
  };
  for (int slot = 0; slot <= 34; ++slot) {
    const float value = RollValue(dice, line(slot));
    setup.values[static_cast<std::size_t>(slot)] =
        setup::IsWholeSlot(slot) ? std::nearbyint(value) + 0.0F : value;
  }
  for (int slot = 42; slot <= 47; ++slot)
    setup.values[static_cast<std::size_t>(slot)] = static_cast<float>(dice.Below(90));
  for (int slot = 48; slot <= 51; ++slot) {
    const int step = slot == 49 || slot == 50 ? 5 : 1;
    const auto minimum = static_cast<int>(std::nearbyint(Number(line(slot)[1])));
    const auto maximum = static_cast<int>(std::nearbyint(Number(line(slot)[3])));
    const int last = minimum + (maximum - minimum) / step * step;
    // An angle between two items selects the nearer one.
    const int stored = dice.Between(minimum, last + (step == 5 ? 2 : 0));
    setup.values[static_cast<std::size_t>(slot)] = static_cast<float>(stored);
  }
  for (std::size_t gear = 0; gear < 7; ++gear)
    setup.values[35 + gear] = Number(gears[static_cast<std::size_t>(setup.values[42 + gear])][2]);
  return setup;
}

template <class Lines>
std::string FileText(const Lines& lines)
{
  std::string text;
  for (const auto& line : lines) {
    for (std::size_t field = 0; field < line.size(); ++field)
      text += (field == 0 ? "" : ",") + line[field];
    text += "\r\n";
  }
  return text;
}

std::vector<std::byte> SetupBytes(const reference::Setup& setup)
{
  runner::SetupFile file;
  file.long_layout = true;
  file.symmetric = setup.symmetric;
  for (int slot = 0; slot < reference::kSlots; ++slot) {
    const float value = setup.values[static_cast<std::size_t>(slot)];
    file.slots[static_cast<std::size_t>(slot)] =
        setup::IsWholeSlot(slot) ? static_cast<std::uint32_t>(static_cast<std::int32_t>(value))
                                 : std::bit_cast<std::uint32_t>(value);
  }
  return runner::MakeSetupFile(file);
}

}  // namespace

World RollWorld(Dice& dice)
{
  World world;
  for (auto& lines : world.setup_lines) lines = RollSetupLines(dice);
  for (auto& lines : world.gear_lines) lines = RollGearLines(dice);
  for (std::size_t year = 0; year < world.defaults.size(); ++year)
    world.defaults[year] = RollSetup(dice, world.setup_lines[World::kSetupFileOf[year]],
                                     world.gear_lines[World::kGearFileOf[year]]);
  return world;
}

void PutWorld(const World& world, MemoryFiles& files)
{
  const std::string program = "/program/";
  for (std::size_t i = 0; i < world.setup_lines.size(); ++i)
    files.Put(program + World::kSetupFiles[i], FileText(world.setup_lines[i]));
  for (std::size_t i = 0; i < world.gear_lines.size(); ++i)
    files.Put(program + World::kGearFiles[i], FileText(world.gear_lines[i]));
  for (std::size_t i = 0; i < world.defaults.size(); ++i)
    files.Put(program + World::kDefaults[i], SetupBytes(world.defaults[i]));
}

}  // namespace velquist::testing
