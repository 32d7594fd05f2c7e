// SPDX-License-Identifier: MIT
#include "ui/RowKeys.h"

#include <wx/accel.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "platform_wx/NativeLook.h"
#include "platform_wx/WxText.h"

namespace velquist::ui {
namespace {

constexpr int kPage = 5;  ///< steps of Page Up and Page Down

/// A key of the number pad as the one that does the same beside it.
int Plain(int key)
{
  if (key >= WXK_NUMPAD0 && key <= WXK_NUMPAD9) return '0' + key - WXK_NUMPAD0;
  switch (key) {
    case WXK_NUMPAD_LEFT: return WXK_LEFT;
    case WXK_NUMPAD_RIGHT: return WXK_RIGHT;
    case WXK_NUMPAD_UP: return WXK_UP;
    case WXK_NUMPAD_DOWN: return WXK_DOWN;
    case WXK_NUMPAD_PAGEUP: return WXK_PAGEUP;
    case WXK_NUMPAD_PAGEDOWN: return WXK_PAGEDOWN;
    case WXK_NUMPAD_ENTER: return WXK_RETURN;
    default: return key;
  }
}

bool InFrame(const app::ControlDesign& design, const app::ControlDesign& frame)
{
  return design.frame == frame.name && design.frame_index == frame.index;
}

bool CanBeReached(const wxWindow& window)
{
  return window.IsShown() && window.IsEnabled() && window.AcceptsFocus();
}

int MiddleOf(const wxWindow& window)
{
  const auto place = window.GetRect();
  return place.x + place.width / 2;
}

}  // namespace

RowKeys::RowKeys(wxWindow& top, Type type) : top_(top), type_(std::move(type))
{
  top.Bind(wxEVT_CHAR_HOOK, &RowKeys::OnKeyDown, this);
  top.Bind(wxEVT_CHILD_FOCUS, [this](wxChildFocusEvent& event) {
    event.Skip();
    const auto at = std::ranges::find(stops_, event.GetWindow(), &Stop::window);
    if (at != stops_.end()) focused_ = at->window;
  });
}

void RowKeys::Add(const app::ControlDesign& design, wxWindow& window)
{
  if (design.kind == app::ControlKind::kFrame && !design.shortcut.empty()) {
    wxAcceleratorEntry entry;
    if (entry.FromString(platform::FromText(design.shortcut)))
      groups_.push_back({&design, entry.GetKeyCode()});
  }
  if (!window.AcceptsFocus()) return;
  auto* const button = dynamic_cast<StepButton*>(&window);
  if (button == nullptr) {
    stops_.push_back({&design, &window, nullptr, -1});
    return;
  }
  const bool goes_on = !stops_.empty() && stops_.back().button != nullptr &&
                       stops_.back().design->frame == design.frame &&
                       stops_.back().design->frame_index == design.frame_index &&
                       stops_.back().design->place.top == design.place.top;
  stops_.push_back({&design, &window, button, goes_on ? rows_ - 1 : rows_++});
  // Enter does not get to the top on every system.
  window.Bind(wxEVT_CHAR_HOOK, &RowKeys::OnKeyDown, this);
  window.Bind(wxEVT_KEY_UP, [this](wxKeyEvent& event) {
    event.Skip();
    if (Plain(event.GetKeyCode()) == page_key_) page_key_ = WXK_NONE;
  });
  window.Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
    event.Skip();
    page_key_ = WXK_NONE;
  });
}

void RowKeys::KeepFocus()
{
  if (focused_ == nullptr || CanBeReached(*focused_) || !platform::HasLostFocus(top_)) return;
  const auto from = std::ranges::find(stops_, focused_, &Stop::window);
  const auto middle = [](const wxWindow& window) {
    const auto place = window.GetRect();
    return place.GetPosition() + place.GetSize() / 2;
  };
  // Behind all controls of its frame are the others.
  const auto distance = [&](const Stop& stop) {
    const auto way = middle(*stop.window) - middle(*from->window);
    const bool same_frame = stop.design->frame == from->design->frame &&
                            stop.design->frame_index == from->design->frame_index;
    return std::pair(!same_frame, std::hypot(way.x, way.y));
  };
  const Stop* nearest = nullptr;
  for (const Stop& stop : stops_)
    if (CanBeReached(*stop.window) && (nearest == nullptr || distance(stop) < distance(*nearest)))
      nearest = &stop;
  if (nearest != nullptr) nearest->window->SetFocus();
}

void RowKeys::OnKeyDown(wxKeyEvent& event)
{
  const int key = Plain(event.GetKeyCode());
  const int with = event.GetModifiers();
  event.Skip();
  auto* const focused = dynamic_cast<wxWindow*>(event.GetEventObject());
  if (focused == nullptr || wxGetTopLevelParent(focused) != &top_) return;  // a window beside it
  const auto at = std::ranges::find(stops_, focused, &Stop::window);
  const bool on_button = at != stops_.end() && at->button != nullptr;
  event.Skip(false);
  if (with == wxMOD_CONTROL) {
    if (GoToGroup(key)) return;
  } else if (key == WXK_TAB && (with == wxMOD_NONE || with == wxMOD_SHIFT)) {
    if (at != stops_.end() && GoToNext(*at, with == wxMOD_NONE)) return;
  } else if (with == wxMOD_NONE && on_button) {
    switch (key) {
      case WXK_LEFT:
      case WXK_RIGHT: return GoAlong(*at, key);
      case WXK_UP:
      case WXK_DOWN: return GoAcross(*at, key);
      case WXK_PAGEUP:
      case WXK_PAGEDOWN: return StepPage(*at, key);
      case WXK_RETURN: return type_(at->design->index);
      default: break;
    }
  }
  event.Skip();
}

bool RowKeys::GoToGroup(int key)
{
  const auto group = std::ranges::find(groups_, key, &Group::key);
  if (group == groups_.end()) return false;
  const auto first = std::ranges::find_if(stops_, [&](const Stop& stop) {
    return InFrame(*stop.design, *group->frame) && CanBeReached(*stop.window);
  });
  if (first != stops_.end()) first->window->SetFocus();
  return true;
}

/// False where the system knows the way: no step button lies on it.
bool RowKeys::GoToNext(const Stop& from, bool forward)
{
  const auto count = stops_.size();
  const auto begin = static_cast<std::size_t>(&from - stops_.data());
  for (std::size_t steps = 1; steps < count; ++steps) {
    const Stop& next = stops_[(forward ? begin + steps : begin + count - steps) % count];
    if (!CanBeReached(*next.window) || (next.button != nullptr && next.row == from.row)) continue;
    if (next.button == nullptr && from.button == nullptr) return false;
    const auto first = std::ranges::find_if(stops_, [&](const Stop& stop) {
      return &stop == &next ||
             (next.button != nullptr && stop.row == next.row && CanBeReached(*stop.window));
    });
    first->window->SetFocus();
    return true;
  }
  return false;
}

void RowKeys::GoAlong(const Stop& from, int key)
{
  const Stop* found = nullptr;
  for (const Stop& stop : stops_) {
    if (stop.row != from.row || !CanBeReached(*stop.window)) continue;
    if (key == WXK_LEFT && &stop < &from) found = &stop;
    if (key == WXK_RIGHT && &stop > &from && found == nullptr) found = &stop;
  }
  if (found != nullptr) found->window->SetFocus();
}

/// To the nearest row that reaches over or under the button, and there to the nearest button.
void RowKeys::GoAcross(const Stop& from, int key)
{
  const int middle = MiddleOf(*from.window);
  const auto away = [&](const Stop& stop) {
    const int down = stop.window->GetPosition().y - from.window->GetPosition().y;
    return key == WXK_DOWN ? down : -down;
  };
  const auto reaches = [&](int row) {
    int left = middle + 1;
    int right = middle - 1;
    for (const Stop& stop : stops_)
      if (stop.row == row && CanBeReached(*stop.window)) {
        left = std::min(left, stop.window->GetRect().GetLeft());
        right = std::max(right, stop.window->GetRect().GetRight());
      }
    return left <= middle && middle <= right;
  };
  const Stop* found = nullptr;
  const auto nearer = [&](const Stop& stop) {
    if (found == nullptr) return true;
    if (away(stop) != away(*found)) return away(stop) < away(*found);
    return std::abs(MiddleOf(*stop.window) - middle) < std::abs(MiddleOf(*found->window) - middle);
  };
  for (const Stop& stop : stops_)
    if (stop.button != nullptr && CanBeReached(*stop.window) && away(stop) > 0 &&
        reaches(stop.row) && nearer(stop))
      found = &stop;
  if (found != nullptr) found->window->SetFocus();
}

/// A key that is held goes on with its step.
void RowKeys::StepPage(const Stop& at, int key)
{
  const char* const name = key == WXK_PAGEUP ? "CmdInc" : "CmdDec";
  const auto other = std::ranges::find_if(stops_, [&](const Stop& stop) {
    return stop.button != nullptr && stop.design->name == name &&
           stop.design->index == at.design->index;
  });
  const bool repeated = page_key_ == key;
  page_key_ = key;
  other->button->StepTimes(kPage, repeated);
}

}  // namespace velquist::ui
