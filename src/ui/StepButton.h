// SPDX-License-Identifier: MIT
#pragma once

#include <wx/button.h>
#include <wx/timer.h>

#include "app/MainForm.h"

namespace velquist::ui {

/// A button that steps a value: at once when the mouse presses it, then again and again while it
/// is held. Each step is one wxEVT_BUTTON. Held down it stops when it is released, when the focus
/// goes, and when a step leaves the shown value as it was.
class StepButton final : public wxButton {
 public:
  /// `value` is the label that the steps change; it outlives the button.
  StepButton(wxWindow* parent, wxWindowID id, const wxString& name, const app::Control& value);

 private:
  /// One step; false when it moved nothing.
  bool Step();
  void OnPress(wxMouseEvent& event);
  void OnRelease(wxMouseEvent& event);
  void OnHeld(wxTimerEvent& event);
  void OnClicked(wxCommandEvent& event);

  const app::Control& value_;
  wxTimer held_;
  bool pressed_ = false;   ///< the mouse holds the button down
  bool stepping_ = false;  ///< the event under way is a step of our own
};

}  // namespace velquist::ui
