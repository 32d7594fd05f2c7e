// SPDX-License-Identifier: MIT
#include "ui/FitToDesktop.h"

#include <wx/display.h>

#include <algorithm>

namespace velquist::ui {

void FitToDesktop(wxTopLevelWindow& window, std::optional<wxPoint> corner)
{
  const int at = corner ? wxDisplay::GetFromPoint(*corner) : wxDisplay::GetFromWindow(&window);
  const wxRect desktop =
      wxDisplay(at == wxNOT_FOUND ? 0U : static_cast<unsigned>(at)).GetClientArea();
  const wxSize size = window.GetSize();
  const auto fitting = [&](const wxRect& room) {
    return wxSize(std::min(size.x, room.width), std::min(size.y, room.height));
  };
  if (corner) {
    const wxRect room = desktop * wxRect(*corner, desktop.GetBottomRight());
    const wxSize least = window.ClientToWindowSize(window.GetMinClientSize());
    if (room.width >= least.x && room.height >= least.y)
      window.SetSize(wxRect(room.GetPosition(), fitting(room)));
    else  // too far down: from the start again
      window.SetSize(wxRect(desktop.GetPosition(), fitting(desktop)));
    return;
  }
  const wxSize whole = fitting(desktop);
  if (whole != size) window.SetSize(whole);
  window.Move(desktop.x + (desktop.width - whole.x) / 2,
              desktop.y + (desktop.height - whole.y) / 2);
}

}  // namespace velquist::ui
