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

bool IsSpaceBar(const wxKeyEvent& event)
{
  return event.GetKeyCode() == WXK_SPACE || event.GetKeyCode() == WXK_NUMPAD_SPACE;
}

}  // namespace

StepButton::StepButton(wxWindow* parent, wxWindowID id, const wxString& label, const wxRect& place,
                       const wxString& name, Value value)
    : wxButton(parent, id, label, place.GetPosition(), place.GetSize(), 0, wxDefaultValidator,
               name),
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
    key_down_ = false;  // the release may go to a box that the step has brought up
    LetGo();
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

void StepButton::StepTimes(int times, bool repeated)
{
  for (; times > 0 && Step(repeated); --times) repeated = true;
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
  if (!IsShownOnScreen() || !IsEnabled()) return;
  const auto mouse = wxGetMouseState();
  if (!key_down_ && !mouse.LeftIsDown()) return;
  const bool over = key_down_ || GetScreenRect().Contains(mouse.GetPosition());
  if (!over || Step(true)) held_.StartOnce(kInterval);
}

void StepButton::OnClicked(wxCommandEvent& event)
{
  event.Skip(stepping_ || !pressed_);
}

/// The system's own press of a key lasts a quarter of a second, however often the key repeats.
void StepButton::OnKeyDown(wxKeyEvent& event)
{
  if (!IsSpaceBar(event) || event.GetModifiers() != wxMOD_NONE) {
    event.Skip();
    return;
  }
  if (key_down_) return;  // the system repeats it
  key_down_ = true;
  if (Step(false)) held_.StartOnce(kDelay);
}

void StepButton::OnKeyUp(wxKeyEvent& event)
{
  event.Skip();
  if (!IsSpaceBar(event)) return;
  key_down_ = false;
  if (!down_) held_.Stop();
}

}  // namespace velquist::ui
