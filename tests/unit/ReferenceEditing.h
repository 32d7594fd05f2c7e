// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// The rules of editing once more, written as plainly as they can be said and without anything of
/// the program, so that the program can be compared with them.
namespace velquist::reference {

inline constexpr int kSlots = 52;
inline constexpr int kDataRows = 53;
inline constexpr int kGearRows = 90;

/// Texts of a setup data file (label, minimum, default, maximum, step, fine step) and of a gear
/// data file (label, display text, ratio), line by line.
using SetupLines = std::array<std::array<std::string, 6>, kDataRows>;
using GearLines = std::array<std::array<std::string, 3>, kGearRows>;

/// What a setup file says.
struct Setup {
  std::array<float, kSlots> values{};
  bool symmetric = true;
};

/// What matters of the selected car.
struct Car {
  float rear_weight_fraction = 0.6F;
  int gears = 5;
};

/// The number that `text` begins with, 0 without one.
[[nodiscard]] double Number(const std::string& text);
/// The whole number next to `value`, the even one of two that are as near.
[[nodiscard]] int TiesToEven(double value);

/// `value` with `decimals` digits behind the point, ties away from zero, thousands grouped.
[[nodiscard]] std::string Formatted(double value, int decimals);
/// `value` with two digits behind the point and none before it when it is below 1.
[[nodiscard]] std::string OverallRatio(double value);

/// The line of a setup data file that holds a slot.
[[nodiscard]] int LineOf(int slot);

class Editing {
 public:
  struct List {
    std::vector<std::string> items;
    int selection = -1;
  };

  /// A setup has been read: with the limits, steps and ratios that go with it.
  void Load(const SetupLines& lines, const GearLines& gears, const Setup& setup, bool has_wings);
  void TakeCar(Car car);

  void Press(int slot, bool increase);
  void CheckAsymmetric(bool checked);
  void CheckProportional(bool checked);
  void CheckFine(bool checked);
  void CheckConstantRollBars(bool checked);
  void ChooseUnits(int chosen);
  void ChooseFromList(int list, int index);

  std::array<float, kSlots> value{};
  std::array<std::string, kSlots> Label1, Label2, Label3;
  std::array<bool, kSlots> row_shown{};  ///< of gear slots
  std::array<List, 4> Combo1;
  bool asymmetric = false;
  bool fine = false;
  bool constant_roll_bars = false;
  bool proportional_springs = false;
  bool changed = false;
  int units = 0;

 private:
  enum LineField { kMinimum = 1, kMaximum = 3, kStep = 4, kFineStep = 5 };
  [[nodiscard]] float Of(int slot, LineField field) const;
  [[nodiscard]] int WholeOf(int slot, LineField field) const;
  [[nodiscard]] float StepOf(int slot) const;
  [[nodiscard]] float RatioOfRow(int row) const;

  void PlainStep(int slot, bool increase);
  void CopyToPartner(int slot);
  void ProportionalStep(int slot, bool increase);
  void RollBarStep(int clicked, bool increase);
  void GearStep(int slot, bool increase);

  void FillList(int list, int slot, int step);
  void ListClicked(int list);
  void ShowValue(int slot);
  void ShowGear(int slot, int final_drive_row);
  void ShowLocking();
  void ShowAll();

  const SetupLines* lines_ = nullptr;
  const GearLines* gears_ = nullptr;
  Car car_;
};

}  // namespace velquist::reference
