// SPDX-License-Identifier: MIT
#pragma once

#include <wx/button.h>
#include <wx/timer.h>

#include <functional>

namespace velquist::ui {

/// A button that steps a value: at once when the mouse presses it, then again and again while it
/// is held. Each step is one wxEVT_BUTTON, with 1 as its extra long where it is a repeat, of the
/// mouse or of a key. Held down by the mouse it stops when it is released, when the focus goes, and
/// when a step leaves the value as it was.
class StepButton final : public wxButton {
 public:
  /// The current value itself, which moves in finer steps than its label may show.
  using Value = std::function<float()>;

  StepButton(wxWindow* parent, wxWindowID id, const wxString& name, Value value);

 private:
  /// One step; false when it moved nothing.
  bool Step(bool repeated);
  void OnPress(wxMouseEvent& event);
  void OnRelease(wxMouseEvent& event);
  void LetGo();
  void OnHeld(wxTimerEvent& event);
  void OnClicked(wxCommandEvent& event);
  void OnKeyDown(wxKeyEvent& event);
  void OnKeyUp(wxKeyEvent& event);

  Value value_;
  wxTimer held_;
  bool down_ = false;      ///< the mouse holds the button down
  bool pressed_ = false;   ///< and a click of the system's own belongs to that
  bool stepping_ = false;  ///< the event under way is a step of our own
  int key_ = WXK_NONE;     ///< that is down, or has just come up
  bool key_up_ = false;
  bool key_stepped_ = false;  ///< since it went down
};

}  // namespace velquist::ui
