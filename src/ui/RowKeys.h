// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

#include <functional>
#include <vector>

#include "app/MainForm.h"
#include "ui/StepButton.h"

namespace velquist::ui {

/// Ways through the main window's controls for the keyboard. Step buttons of one frame that stand
/// beside each other are a row, which the Tab key stops at once; the arrows lead to the other
/// buttons of the row and to the rows above and below. Page Up and Page Down step the value five
/// times, Enter lets the user type it. The shortcut of a frame leads to its first control.
class RowKeys {
 public:
  /// Lets the user type a number for the value of a slot.
  using Type = std::function<void(int slot)>;

  /// All controls lie within `top`, which outlives this.
  RowKeys(wxWindow& top, Type type);
  RowKeys(const RowKeys&) = delete;
  RowKeys& operator=(const RowKeys&) = delete;

  /// A control and the window made for it; all are added in tab order.
  void Add(const app::ControlDesign& design, wxWindow& window);

  /// The focus goes to the nearest control that is shown when the one that had it last no longer
  /// is: one of the same frame where there is any.
  void KeepFocus();

 private:
  struct Stop {
    const app::ControlDesign* design;
    wxWindow* window;
    StepButton* button;  ///< null for all others
    int row;             ///< of step buttons; -1 for all others
  };
  struct Group {
    const app::ControlDesign* frame;
    int key;
  };

  void OnKeyDown(wxKeyEvent& event);
  bool GoToGroup(int key);
  bool GoToNext(const Stop& from, bool forward);
  void GoAlong(const Stop& from, int key);
  void GoAcross(const Stop& from, int key);
  void StepPage(const Stop& at, int key);

  wxWindow& top_;
  Type type_;
  std::vector<Stop> stops_;
  std::vector<Group> groups_;
  int rows_ = 0;
  wxWindow* focused_ = nullptr;  ///< last, of all that were added
  int page_key_ = WXK_NONE;      ///< that is down
};

}  // namespace velquist::ui
