// SPDX-License-Identifier: MIT
#include <wx/msw/wrapwin.h>

#include <commctrl.h>

#include <array>

#include "platform_wx/MessageBox.h"

namespace velquist::platform {
namespace {

/// In the order of Icon.
constexpr std::array<UINT, 4> kIcons = {MB_ICONINFORMATION, MB_ICONEXCLAMATION, MB_ICONQUESTION,
                                        MB_ICONERROR};

/// The system lets a question of Yes and No be neither closed nor left with Escape.
LRESULT CALLBACK AnswerNoOnCancel(HWND box, UINT message, WPARAM what, LPARAM more, UINT_PTR id,
                                  DWORD_PTR)
{
  const bool cancelled = (message == WM_COMMAND && LOWORD(what) == IDCANCEL) ||
                         (message == WM_SYSCOMMAND && (what & 0xFFF0U) == SC_CLOSE) ||
                         message == WM_CLOSE;
  if (cancelled) {
    ::EndDialog(box, IDNO);
    return 0;
  }
  if (message == WM_NCDESTROY) ::RemoveWindowSubclass(box, AnswerNoOnCancel, id);
  return ::DefSubclassProc(box, message, what, more);
}

HHOOK awaited_box = nullptr;

/// Called for the next window of the thread that is activated, which is the box.
LRESULT CALLBACK LetTheBoxBeClosed(int code, WPARAM window, LPARAM more)
{
  if (code == HCBT_ACTIVATE) {
    // The system gives the window as a number. NOLINTNEXTLINE(performance-no-int-to-ptr)
    const HWND box = reinterpret_cast<HWND>(window);
    ::UnhookWindowsHookEx(awaited_box);
    ::SetWindowSubclass(box, AnswerNoOnCancel, 1, 0);
    ::EnableMenuItem(::GetSystemMenu(box, FALSE), SC_CLOSE, MF_BYCOMMAND | MF_ENABLED);
  }
  return ::CallNextHookEx(nullptr, code, window, more);
}

}  // namespace

Answer ShowMessageBox(wxWindow* owner, const wxString& text, const wxString& caption, Icon icon,
                      Buttons buttons)
{
  // The toolkit's own boxes show no icon beside a question.
  const HWND before = owner != nullptr ? owner->GetHWND() : nullptr;
  UINT style = kIcons.at(static_cast<std::size_t>(icon));
  if (before == nullptr) style |= MB_TASKMODAL;
  if (buttons == Buttons::kOk) {
    ::MessageBoxW(before, text.wc_str(), caption.wc_str(), style | MB_OK);
    return Answer::kOk;
  }
  style |= MB_YESNO | (buttons == Buttons::kNoYes ? MB_DEFBUTTON2 : MB_DEFBUTTON1);
  awaited_box = ::SetWindowsHookExW(WH_CBT, LetTheBoxBeClosed, nullptr, ::GetCurrentThreadId());
  const int pressed = ::MessageBoxW(before, text.wc_str(), caption.wc_str(), style);
  return pressed == IDYES ? Answer::kYes : Answer::kNo;
}

}  // namespace velquist::platform
