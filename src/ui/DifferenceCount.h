// SPDX-License-Identifier: MIT
#pragma once

#include <wx/button.h>
#include <wx/statusbr.h>

#include <functional>
#include <string>

namespace velquist::ui {

/// How many values differ from the reference, on a button in the second field of the status line
/// that leads to the comparison.
class DifferenceCount final : public wxButton {
 public:
  /// Makes the field in `line`, which has one as yet.
  DifferenceCount(wxStatusBar* line, const std::function<void()>& compare);

  void BringInLine(int count, const std::string& reference_name);
  /// In the theme that the desktop has now.
  void ShowColour();

 private:
  void Place();

  wxStatusBar* line_;
  int count_ = -1;
  std::string reference_name_;
};

}  // namespace velquist::ui
