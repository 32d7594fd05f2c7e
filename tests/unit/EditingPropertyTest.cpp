// SPDX-License-Identifier: MIT
// The program against the rules of editing written down a second time: random data files, random
// setups and random users, compared to the last bit after every action.
#include <bit>
#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "MemoryProgram.h"
#include "ReferenceEditing.h"
#include "data/ChassisCatalogue.h"
#include "runner/SetupFile.h"
#include "setup/SlotTable.h"

namespace velquist {
namespace {

constexpr int kWorlds = 200;
constexpr int kActionsPerWorld = 500;

/// Seeded numbers that are the same with every standard library.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine_(seed) {}

  /// 0 to n - 1.
  int Below(int n) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(n)); }
  /// From `low` to `high`, both included.
  int Between(int low, int high) { return low + Below(high - low + 1); }
  bool OneIn(int n) { return Below(n) == 0; }
  template <class Choices>
  auto OneOf(const Choices& choices)
  {
    return *(std::begin(choices) + Below(static_cast<int>(std::size(choices))));
  }

 private:
  std::mt19937 engine_;
};

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

/// Everything of one program directory.
struct World {
  /// Which data files and which default setup a mod year has.
  static constexpr std::size_t kSetupFileOf[] = {0, 1, 1, 1, 2};
  static constexpr const char* kSetupFiles[] = {"67 Setup Data.ini", "65 Setup Data.ini",
                                                "GT Setup Data.ini"};
  static constexpr std::size_t kGearFileOf[] = {0, 1, 1, 1, 1};
  static constexpr const char* kGearFiles[] = {"67 Gear Data.ini", "65 Gear Data.ini"};
  static constexpr const char* kDefaults[] = {
      "67 Velquist Default.vqset", "65 Velquist Default.vqset", "66 Velquist Default.vqset",
      "69 Velquist Default.vqset", "GT Velquist Default.vqset"};

  std::array<reference::SetupLines, 3> setup_lines;
  std::array<reference::GearLines, 2> gear_lines;
  std::array<reference::Setup, 5> defaults;
};

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
    default:
      return minimum + (maximum - minimum) * static_cast<float>(dice.Below(1000)) / 1000.0F;
  }
}

reference::Setup RollSetup(Dice& dice, const reference::SetupLines& lines,
                           const reference::GearLines& gears)
{
  reference::Setup setup;
  setup.symmetric = !dice.OneIn(3);
  const auto line = [&](int slot) -> auto& {
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
    setup.values[35 + gear] =
        Number(gears[static_cast<std::size_t>(setup.values[42 + gear])][2]);
  return setup;
}

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

void PutWorld(const World& world, testing::MemoryFiles& files)
{
  const std::string program = "/program/";
  for (std::size_t i = 0; i < world.setup_lines.size(); ++i)
    files.Put(program + World::kSetupFiles[i], FileText(world.setup_lines[i]));
  for (std::size_t i = 0; i < world.gear_lines.size(); ++i)
    files.Put(program + World::kGearFiles[i], FileText(world.gear_lines[i]));
  for (std::size_t i = 0; i < world.defaults.size(); ++i)
    files.Put(program + World::kDefaults[i], SetupBytes(world.defaults[i]));
}

/// The program and its second writing-down, given the same actions.
class Pair {
 public:
  explicit Pair(std::uint32_t seed) : dice_(seed), world_(RollWorld(dice_))
  {
    PutWorld(world_, program_.files);
    mod_year_ = dice_.Below(data::kModYearCount);
    chassis_ = dice_.Below(data::ChassisCount(mod_year_));
    formula_ = mod_year_ == 4 ? 0 : dice_.Below(3);
    reference_.units = dice_.Below(2);
    program_.Start({mod_year_, chassis_, formula_, reference_.units});
    LoadReference();
  }

  void Act()
  {
    const int kind = dice_.Below(1000);
    if (kind < 780) {
      PressStepButton();
    } else if (kind < 900) {
      SetOption();
    } else if (kind < 930) {
      const int units = dice_.Below(2);
      action_ = "units " + std::to_string(units);
      Window().Check("OptUnits", units, true);
      reference_.ChooseUnits(units);
    } else if (kind < 980) {
      ChooseFromList();
    } else if (kind < 995) {
      ChooseCar();
    } else {
      ChooseModYear();
    }
  }

  /// What was done last, and the first thing in which the two differ; empty when they agree.
  [[nodiscard]] std::string Difference()
  {
    auto difference = FirstDifference();
    return difference.empty() ? difference : action_ + ": " + difference;
  }

 private:
  [[nodiscard]] app::MainWindow& Window() { return program_.Window(); }

  void PressStepButton()
  {
    int slot = dice_.Below(35);
    if (dice_.OneIn(6)) slot = dice_.Between(42, 47);
    if (dice_.OneIn(6)) slot = dice_.Between(4, 7);
    if (dice_.OneIn(8)) slot = dice_.Between(26, 27);
    const bool increase = dice_.OneIn(2);
    action_ = (increase ? "increase " : "decrease ") + std::to_string(slot);
    for (int times = dice_.OneIn(4) ? dice_.Between(2, 10) : 1; times > 0; --times) {
      Window().Click(increase ? "CmdInc" : "CmdDec", slot);
      reference_.Press(slot, increase);
    }
  }

  void SetOption()
  {
    struct Option {
      const char* box;
      void (reference::Editing::*check)(bool);
    };
    static constexpr Option kOptions[] = {
        {"AsymmetricCheck", &reference::Editing::CheckAsymmetric},
        {"SpringStiffnessProportional", &reference::Editing::CheckProportional},
        {"FineCheck", &reference::Editing::CheckFine},
        {"RollBarConstTotal", &reference::Editing::CheckConstantRollBars},
    };
    const auto option = dice_.OneOf(kOptions);
    const bool checked = dice_.OneIn(2);
    action_ = std::string(option.box) + (checked ? " on" : " off");
    Window().Check(option.box, -1, checked);
    (reference_.*option.check)(checked);
  }

  void ChooseFromList()
  {
    const int list = dice_.Below(4);
    const auto& items = reference_.Combo1[static_cast<std::size_t>(list)].items;
    const int index = dice_.Below(static_cast<int>(items.size()));
    action_ = "list " + std::to_string(list) + " item " + std::to_string(index);
    Window().Select("Combo1", list, index);
    reference_.ChooseFromList(list, index);
  }

  void ChooseCar()
  {
    if (dice_.OneIn(2) && mod_year_ != 4) {
      formula_ = dice_.Below(3);
      Window().Select("Combo6", -1, formula_);
    } else {
      chassis_ = dice_.Below(data::ChassisCount(mod_year_));
      Window().Select("Combo3", -1, chassis_);
    }
    action_ = "chassis " + std::to_string(chassis_) + " formula " + std::to_string(formula_);
    TakeCar();
  }

  void ChooseModYear()
  {
    static constexpr int kListed[] = {1, 2, 0, 3, 4};  // as the list shows the years
    const int position = dice_.Below(5);
    mod_year_ = kListed[position];
    action_ = "mod year " + std::to_string(mod_year_);
    Window().Select("Combo2", -1, position);
    if (chassis_ >= data::ChassisCount(mod_year_)) chassis_ = 0;
    if (mod_year_ == 4) formula_ = 0;
    LoadReference();
  }

  void LoadReference()
  {
    const auto year = static_cast<std::size_t>(mod_year_);
    reference_.Load(world_.setup_lines[World::kSetupFileOf[year]],
                    world_.gear_lines[World::kGearFileOf[year]], world_.defaults[year],
                    mod_year_ == 3);
    TakeCar();
  }

  void TakeCar()
  {
    const int engine = data::EngineSlot(chassis_, formula_).value();
    reference_.TakeCar({data::RearWeightFraction(mod_year_, engine),
                        data::GearCount(mod_year_, engine)});
  }

  [[nodiscard]] std::string FirstDifference()
  {
    if (const auto dialog = program_.UnexpectedDialog(); !dialog.empty()) return dialog;
    const auto& state = Window().State();
    const auto& form = Window().Form();
    for (std::size_t slot = 0; slot < reference::kSlots; ++slot) {
      const auto row = static_cast<std::size_t>(reference::LineOf(static_cast<int>(slot)));
      const float value = state.setup_data.SetupDataValues[row][0];
      if (std::bit_cast<std::uint32_t>(value) !=
          std::bit_cast<std::uint32_t>(reference_.value[slot]))
        return "slot " + std::to_string(slot) + " is " + Exact(value) + ", not " +
               Exact(reference_.value[slot]);
    }
    const auto same_texts = [&](const char* name, const auto& labels, const auto& texts) {
      for (std::size_t slot = 0; slot < reference::kSlots; ++slot)
        if (!texts[slot].empty() && labels[slot].text != texts[slot])
          return name + std::to_string(slot) + " shows \"" + labels[slot].text + "\", not \"" +
                 texts[slot] + "\"";
      return std::string();
    };
    for (const auto& difference : {same_texts("Label1 ", form.Label1, reference_.Label1),
                                   same_texts("Label2 ", form.Label2, reference_.Label2),
                                   same_texts("Label3 ", form.Label3, reference_.Label3)})
      if (!difference.empty()) return difference;
    for (std::size_t list = 0; list < form.Combo1.size(); ++list)
      if (form.Combo1[list].items != reference_.Combo1[list].items ||
          form.Combo1[list].selection != reference_.Combo1[list].selection)
        return "list " + std::to_string(list);
    for (std::size_t slot = 42; slot <= 47; ++slot)
      for (const auto* control : {&form.Label1[slot], &form.Label2[slot], &form.Label3[slot],
                                  &form.CmdInc[slot], &form.CmdDec[slot]})
        if (control->shown != reference_.row_shown[slot])
          return "gear row " + std::to_string(slot) + (control->shown ? " shown" : " hidden");
    if (form.AsymmetricCheck.checked != reference_.asymmetric ||
        state.options.asymmetric != reference_.asymmetric)
      return "asymmetric";
    if (form.SpringStiffnessProportional.checked != reference_.proportional_springs)
      return "proportional springs";
    if (form.FineCheck.checked != reference_.fine) return "fine";
    if (form.RollBarConstTotal.checked != reference_.constant_roll_bars) return "roll bars";
    if (state.Units != reference_.units) return "units";
    if (state.changed != reference_.changed)
      return state.changed ? "changed is set" : "changed is not set";
    return {};
  }

  static std::string Exact(float value)
  {
    char text[40];
    std::snprintf(text, sizeof text, "%.9g (%08x)", static_cast<double>(value),
                  std::bit_cast<std::uint32_t>(value));
    return text;
  }

  Dice dice_;
  World world_;
  testing::MemoryProgram program_;
  reference::Editing reference_;
  int mod_year_ = 0;
  int chassis_ = 0;
  int formula_ = 0;
  std::string action_ = "start";
};

TEST(EditingProperty, HundredThousandRandomActionsAgreeWithTheRulesToTheLastBit)
{
  for (int world = 0; world < kWorlds; ++world) {
    Pair pair(static_cast<std::uint32_t>(world + 1));
    ASSERT_EQ(pair.Difference(), "") << "world " << world;
    for (int action = 0; action < kActionsPerWorld; ++action) {
      pair.Act();
      ASSERT_EQ(pair.Difference(), "") << "world " << world << ", action " << action;
    }
  }
}

}  // namespace
}  // namespace velquist
