// SPDX-License-Identifier: MIT
#pragma once

#include <wx/button.h>
#include <wx/timer.h>

#include <functional>
#include <string>

#include "app/MainForm.h"

namespace velquist::ui {

/// A button that steps a value: at once when the mouse presses it, then again and again while it
/// is held. Each step is one wxEVT_BUTTON, with 1 as its extra long where it is a repeat. Held down
/// it stops when it is released, when the focus goes, and when a step leaves the value as it was.
class StepButton final : public wxButton {
 public:
  /// The current value itself, which moves in finer steps than its label may show.
  using Value = std::function<float()>;

  /// `label` shows the value that the steps change; it outlives the button.
  StepButton(wxWindow* parent, wxWindowID id, const wxString& name, const app::Control& label,
             Value value);

  /// Lets a screen reader tell the value beside the button's name, and how it differs from the
  /// reference where it does.
  void SayValue(const app::ControlDesign& design, const std::string& difference);

 private:
  /// One step; false when it moved nothing.
  bool Step(bool repeated);
  void OnPress(wxMouseEvent& event);
  void OnRelease(wxMouseEvent& event);
  void LetGo();
  void OnHeld(wxTimerEvent& event);
  void OnClicked(wxCommandEvent& event);

  const app::Control& label_;
  Value value_;
  std::string said_;
  wxTimer held_;
  bool down_ = false;      ///< the mouse holds the button down
  bool pressed_ = false;   ///< and a click of the system's own belongs to that
  bool stepping_ = false;  ///< the event under way is a step of our own
};

}  // namespace velquist::ui
