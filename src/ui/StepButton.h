// SPDX-License-Identifier: MIT
#pragma once

#include <wx/button.h>
#include <wx/timer.h>

#include <functional>

namespace velquist::ui {

/// A button that steps a value: at once when the mouse or the space bar presses it, then again and
/// again while it is held. Each step is one wxEVT_BUTTON, with 1 as its extra long where it is a
/// repeat. Held down it stops when it is released, when the focus goes, and when a step leaves the
/// value as it was.
class StepButton final : public wxButton {
 public:
  /// The current value itself, which moves in finer steps than its label may show.
  using Value = std::function<float()>;

  StepButton(wxWindow* parent, wxWindowID id, const wxString& label, const wxRect& place,
             const wxString& name, Value value);

  /// So many steps, or as many as move the value; all but the first are repeats, and the first one
  /// where `repeated` says so.
  void StepTimes(int times, bool repeated);

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
  bool key_down_ = false;  ///< the space bar does
  bool pressed_ = false;   ///< the mouse has, and a click of the system's own belongs to that
  bool stepping_ = false;  ///< the event under way is a step of our own
};

}  // namespace velquist::ui
