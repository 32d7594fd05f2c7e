// SPDX-License-Identifier: MIT
#include "ui/UnsavedMark.h"

#include <wx/dcclient.h>
#include <wx/stattext.h>

#include <algorithm>

#include "platform_wx/Spoken.h"

namespace velquist::ui {

UnsavedMark::UnsavedMark(wxWindow* parent)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxSize(1, 1), wxFULL_REPAINT_ON_RESIZE,
               "UnsavedMark")
{
  Hide();
  SetCanFocus(false);
  SetToolTip("There are changes that are not saved");
  platform::SetSpoken(*this, "Unsaved changes", {});
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
}

void UnsavedMark::OnPaint()
{
  wxPaintDC paint(this);
  const wxSize size = GetClientSize();
  const wxColour ink = wxStaticText::GetClassDefaultAttributes().colFg;
  paint.SetPen(ink);
  paint.SetBrush(ink);
  // As much is clear on either side of it as it is wide, where there are pixels for that.
  const int radius = std::max(1, std::min(size.x, size.y) / 6);
  paint.DrawCircle(size.x / 2, size.y / 2, radius);
}

}  // namespace velquist::ui
