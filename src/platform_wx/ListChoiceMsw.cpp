// SPDX-License-Identifier: MIT
#include <wx/msw/wrapwin.h>

#include <algorithm>
#include <array>
#include <memory>

#include "platform_wx/ListChoice.h"

namespace velquist::platform {
namespace {

bool IsOpen(const wxChoice& list)
{
  return ::SendMessageW(list.GetHWND(), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

void Open(const wxChoice& list)
{
  ::SendMessageW(list.GetHWND(), CB_SHOWDROPDOWN, TRUE, 0);
}

/// The keys that move in a list.
bool Moves(int key)
{
  constexpr std::array kMoving = {
      WXK_UP,          WXK_DOWN,        WXK_LEFT,          WXK_RIGHT,
      WXK_HOME,        WXK_END,         WXK_PAGEUP,        WXK_PAGEDOWN,
      WXK_NUMPAD_UP,   WXK_NUMPAD_DOWN, WXK_NUMPAD_LEFT,   WXK_NUMPAD_RIGHT,
      WXK_NUMPAD_HOME, WXK_NUMPAD_END,  WXK_NUMPAD_PAGEUP, WXK_NUMPAD_PAGEDOWN};
  return std::ranges::find(kMoving, key) != kMoving.end();
}

/// The message under way comes of a key that takes the item of an open list.
bool IsByKey()
{
  constexpr std::array kTaking = {VK_RETURN, VK_TAB, VK_F4, VK_UP, VK_DOWN};
  constexpr int kDown = 0x8000;
  return std::ranges::any_of(kTaking, [](int key) { return (::GetKeyState(key) & kDown) != 0; });
}

/// The closed list opens for a key that would choose; a letter then goes on to the open one.
void OpenForKeys(wxChoice& list)
{
  const auto at_opening = std::make_shared<int>(wxNOT_FOUND);
  const auto look = [&list, at_opening] {
    if (!IsOpen(list)) *at_opening = list.GetSelection();
  };
  list.Bind(wxEVT_KEY_DOWN, [&list, look](wxKeyEvent& event) {
    look();
    if (!IsOpen(list) && !event.AltDown() && Moves(event.GetKeyCode()))
      Open(list);
    else
      event.Skip();
  });
  list.Bind(wxEVT_CHAR, [&list](wxKeyEvent& event) {
    if (!IsOpen(list) && event.GetUnicodeKey() >= WXK_SPACE) Open(list);
    event.Skip();
  });
  for (const auto press : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK})
    list.Bind(press, [look](wxMouseEvent& event) {
      look();
      event.Skip();
    });
  list.Bind(wxEVT_CHOICE, [at_opening](wxCommandEvent& event) {
    event.Skip(event.GetSelection() != *at_opening || !IsByKey());
  });
}

}  // namespace

/// The system's lists find what is typed, and tell of every choice.
void SetUpChoice(wxChoice& list, ListKeys keys)
{
  list.Bind(wxEVT_MOUSEWHEEL, [](wxMouseEvent&) {});
  if (keys == ListKeys::kOpen) OpenForKeys(list);
}

void CutItemsAtStart(wxChoice&)
{
  // They are always cut at their ends.
}

}  // namespace velquist::platform
