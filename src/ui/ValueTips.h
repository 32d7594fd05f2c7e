// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <memory>
#include <string>

#include "app/MainWindow.h"

namespace velquist::ui {

/// The line of each slot's tool tips: range, step and effect. All are made anew when what they are
/// made of has changed.
class ValueTips {
 public:
  explicit ValueTips(const app::MainWindow& window) : window_(window) {}

  /// Called after each event.
  void BringInLine();

  /// That of a label, list or step button; empty for all others.
  [[nodiscard]] const std::string& Of(const app::ControlDesign& design) const;

 private:
  /// What the lines are made of.
  struct Cause {
    std::shared_ptr<const data::GearData> tables;  ///< of the mod year
    int units = 0;
    bool fine = false;
    bool asymmetric = false;
    bool springs = false;
    float most_of_roll_bars = 0;
    friend bool operator==(const Cause&, const Cause&) = default;
  };

  const app::MainWindow& window_;
  Cause cause_;
  std::array<std::string, app::kSlotControls> lines_;
};

}  // namespace velquist::ui
