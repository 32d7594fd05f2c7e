// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "ui/Widgets.h"

namespace velquist::ui {

/// The letters of the main window where the system's text is larger than usual: they grow with it
/// as far as their controls have room, which keep their places. Letters of a frame that are alike
/// by design stay so.
class LargerLetters {
 public:
  /// `widgets` are filled before anything else is asked of this, and outlive it.
  explicit LargerLetters(std::vector<ControlWidget>& widgets) : widgets_(widgets) {}

  /// The height in pixels that the system's text asks of the letters of a control, which is never
  /// below its own.
  [[nodiscard]] static int Wanted(const app::Control& control, double text_scale);

  /// After all widgets have been brought in line. Does nothing where the system's text has its
  /// usual size.
  void BringInLine();

 private:
  void FindAlike();

  std::vector<ControlWidget>& widgets_;
  std::vector<std::vector<ControlWidget*>> alike_;
};

}  // namespace velquist::ui
