// SPDX-License-Identifier: MIT
// The program against the rules of editing written down a second time: random data files, random
// setups and random users, compared to the last bit after every action.
#include <bit>
#include <cstdint>
#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "RandomWorld.h"
#include "data/ChassisCatalogue.h"

namespace velquist {
namespace {

using enum data::ModYear;

constexpr int kWorlds = 200;
constexpr int kActionsPerWorld = 500;

/// The program and its second writing-down, given the same actions.
class Pair {
 public:
  explicit Pair(std::uint32_t seed) : dice_(seed), world_(testing::RollWorld(dice_))
  {
    testing::PutWorld(world_, program_.files);
    mod_year_ = dice_.OneOf(data::kModYears);
    chassis_ = dice_.Below(data::ChassisCount(mod_year_));
    formula_ = mod_year_ == kGT ? 0 : dice_.Below(3);
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
    if (dice_.OneIn(2) && mod_year_ != kGT) {
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
    static constexpr data::ModYear kListed[] = {k1965, k1966, k1967, k1969, kGT};
    const int position = dice_.Below(5);
    mod_year_ = kListed[position];
    action_ = "mod year " + std::string(data::ModYearText(mod_year_));
    Window().Select("Combo2", -1, position);
    if (chassis_ >= data::ChassisCount(mod_year_)) chassis_ = 0;
    if (mod_year_ == kGT) formula_ = 0;
    LoadReference();
  }

  void LoadReference()
  {
    const auto year = static_cast<std::size_t>(mod_year_);
    reference_.Load(world_.setup_lines[testing::World::kSetupFileOf[year]],
                    world_.gear_lines[testing::World::kGearFileOf[year]], world_.defaults[year],
                    mod_year_ == k1969);
    TakeCar();
  }

  void TakeCar()
  {
    const int engine = data::EngineSlot(chassis_, formula_).value();
    reference_.TakeCar(
        {data::RearWeightFraction(mod_year_, engine), data::GearCount(mod_year_, engine)});
  }

  [[nodiscard]] std::string FirstDifference()
  {
    if (const auto dialog = program_.UnexpectedDialog(); !dialog.empty()) return dialog;
    const auto& car = Window().Car();
    const auto& form = Window().Form();
    for (std::size_t slot = 0; slot < reference::kSlots; ++slot) {
      const auto row = static_cast<std::size_t>(reference::LineOf(static_cast<int>(slot)));
      const float value = car.SetupData().SetupDataValues[row][0];
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
        car.Options().asymmetric != reference_.asymmetric)
      return "asymmetric";
    if (form.SpringStiffnessProportional.checked != reference_.proportional_springs)
      return "proportional springs";
    if (form.FineCheck.checked != reference_.fine) return "fine";
    if (form.RollBarConstTotal.checked != reference_.constant_roll_bars) return "roll bars";
    if (Window().State().Units != reference_.units) return "units";
    if (car.Changed() != reference_.changed)
      return car.Changed() ? "changed is set" : "changed is not set";
    return {};
  }

  static std::string Exact(float value)
  {
    char text[40];
    std::snprintf(text, sizeof text, "%.9g (%08x)", static_cast<double>(value),
                  std::bit_cast<std::uint32_t>(value));
    return text;
  }

  testing::Dice dice_;
  testing::World world_;
  testing::MemoryProgram program_;
  reference::Editing reference_;
  data::ModYear mod_year_ = k1967;
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
