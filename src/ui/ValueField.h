// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <array>
#include <functional>
#include <string>

#include "app/MainWindow.h"

namespace velquist::ui {

/// A small field over a value, in which the user types a number for it. Enter takes it; what is
/// refused stays, with the range set off beneath it. Escape, or the focus going elsewhere, leaves
/// the value as it was. A double click on a value opens the field, too.
class ValueField {
 public:
  /// Types the number; what it is refused with, nothing where it is taken.
  using Type = std::function<std::string(int slot, const std::string& number)>;

  /// All controls stand on `panel`, which outlives this, as `window` does.
  ValueField(wxWindow& panel, const app::MainWindow& window, Type type);
  ValueField(const ValueField&) = delete;
  ValueField& operator=(const ValueField&) = delete;

  /// A control and the window made for it: value labels and step buttons are remembered.
  void Add(const app::ControlDesign& design, wxWindow& made);

  /// Opens over the value of a slot with step buttons; afterwards the focus goes back to them.
  void Open(int slot);

 private:
  void Make();
  void Place(const wxWindow& label);
  void ShowRange(const wxString& range, bool refused);
  void OnKeyDown(wxKeyEvent& event);
  void OnFocusGone(wxFocusEvent& event);
  void Take();
  void Close(bool focus_back);

  wxWindow& panel_;
  const app::MainWindow& window_;
  Type type_;
  std::array<wxWindow*, app::kSlotControls> labels_{};
  std::array<wxWindow*, app::kSlotControls> buttons_{};  ///< one of each slot
  wxPanel* box_ = nullptr;                               ///< made when it is first wanted
  wxTextCtrl* number_ = nullptr;
  wxStaticText* range_ = nullptr;
  wxWindow* back_ = nullptr;  ///< where the focus was
  int slot_ = -1;             ///< whose number is typed; -1 while the field is closed
};

}  // namespace velquist::ui
