// SPDX-License-Identifier: MIT
#include "ui/StepButton.h"

#include <bit>
#include <cstdint>
#include <utility>

#include "app/Flag.h"

namespace velquist::ui {
namespace {

constexpr int kDelay = 400;    ///< milliseconds until a held button repeats
constexpr int kInterval = 50;  ///< milliseconds between repeats

}  // namespace

StepButton::StepButton(wxWindow* parent, wxWindowID id, const wxString& name, Value value)
    : wxButton(parent, id, " ", wxDefaultPosition, wxSize(1, 1), 0, wxDefaultValidator, name),
      value_(std::move(value)),
      held_(this)
{
  Bind(wxEVT_LEFT_DOWN, &StepButton::OnPress, this);
  Bind(wxEVT_LEFT_DCLICK, &StepButton::OnPress, this);
  Bind(wxEVT_LEFT_UP, &StepButton::OnRelease, this);
  Bind(wxEVT_TIMER, &StepButton::OnHeld, this);
  Bind(wxEVT_BUTTON, &StepButton::OnClicked, this);
  Bind(wxEVT_CHAR_HOOK, &StepButton::OnKeyDown, this);
  Bind(wxEVT_KEY_UP, &StepButton::OnKeyUp, this);
  Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
    LetGo();  // the release may go to a box that the step has brought up
    key_ = WXK_NONE;
    event.Skip();
  });
}

bool StepButton::Step(bool repeated)
{
  // Bits, so that no value counts as moved that is not a number and stays so.
  const auto bits = [this] { return std::bit_cast<std::uint32_t>(value_()); };
  const auto before = bits();
  wxCommandEvent step(wxEVT_BUTTON, GetId());
  step.SetEventObject(this);
  step.SetExtraLong(repeated ? 1 : 0);
  {
    const app::Flag of_our_own(stepping_, true);
    ProcessWindowEvent(step);
  }
  return bits() != before;
}

void StepButton::OnPress(wxMouseEvent& event)
{
  event.Skip();
  // Some systems send a press and then the double click for one and the same press.
  if (event.LeftDClick() && down_) return;
  down_ = true;
  pressed_ = true;
  if (Step(false)) held_.StartOnce(kDelay);
}

void StepButton::OnRelease(wxMouseEvent& event)
{
  event.Skip();
  LetGo();
}

void StepButton::LetGo()
{
  down_ = false;
  held_.Stop();
  // The system's own click of this press comes yet, if at all, and has been answered.
  CallAfter([this] { pressed_ = down_; });
}

void StepButton::OnHeld(wxTimerEvent&)
{
  const auto mouse = wxGetMouseState();
  if (!mouse.LeftIsDown() || !IsShownOnScreen() || !IsEnabled()) return;
  const bool over = GetScreenRect().Contains(mouse.GetPosition());
  if (!over || Step(true)) held_.StartOnce(kInterval);
}

void StepButton::OnClicked(wxCommandEvent& event)
{
  event.Skip(stepping_ || !pressed_);
  // The system repeats the click of a key that is held.
  if (!stepping_ && key_ != WXK_NONE && std::exchange(key_stepped_, true)) event.SetExtraLong(1);
}

void StepButton::OnKeyDown(wxKeyEvent& event)
{
  event.Skip();
  if (event.GetKeyCode() == key_ && !key_up_) return;
  key_ = event.GetKeyCode();
  key_up_ = key_stepped_ = false;
}

void StepButton::OnKeyUp(wxKeyEvent& event)
{
  event.Skip();
  if (event.GetKeyCode() != key_) return;
  key_up_ = true;
  // The last click of the key may come behind its release.
  CallAfter([this] {
    if (key_up_) key_ = WXK_NONE;
  });
}

}  // namespace velquist::ui
