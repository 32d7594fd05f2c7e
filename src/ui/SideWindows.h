// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "ui/SideWindow.h"

namespace velquist::ui {

/// The windows beside the main one. Each is made when it is asked for the first time.
class SideWindows {
 public:
  explicit SideWindows(SideWindow::Setting setting);

  /// Opens, raises and closes what the form says, and brings the open ones in line with it.
  void BringInLine();

 private:
  struct Place {
    SideWindow* window = nullptr;  ///< null until it is asked for; belongs to the main window
    unsigned asked = 0;            ///< as last seen
  };

  SideWindow::Setting setting_;
  std::vector<Place> places_;
};

}  // namespace velquist::ui
