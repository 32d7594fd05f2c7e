// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <memory>
#include <string>

#include "app/MainWindow.h"

namespace velquist::ui {

/// What is said about each slot that differs from the reference. A text is made anew only when what
/// it is made of has changed.
class DifferenceTexts {
 public:
  explicit DifferenceTexts(const app::MainWindow& window) : window_(window) {}

  /// Called after each event.
  void BringInLine();

  /// That of a label, list or step button; empty for all others and where nothing differs.
  [[nodiscard]] const std::string& Of(const app::ControlDesign& design) const;

 private:
  struct Slot {
    bool marked = false;
    std::string value;  ///< as shown
    std::string difference;
  };

  const app::MainWindow& window_;
  std::array<Slot, app::kSlotControls> slots_{};
  std::shared_ptr<const edit::Reference> reference_;
  int units_ = 0;
  bool fine_ = false;
};

}  // namespace velquist::ui
