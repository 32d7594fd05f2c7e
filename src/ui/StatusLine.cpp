// SPDX-License-Identifier: MIT
#include "ui/StatusLine.h"

namespace velquist::ui {

wxStatusBar* StatusLine(wxFrame& frame, const wxFont& letters)
{
  wxStatusBar* const line = frame.CreateStatusBar(1, wxSTB_DEFAULT_STYLE, wxID_ANY, "Status");
  line->SetFont(letters);
  const int height = line->GetCharHeight() + 2;
  line->SetMinHeight(height);
  // Which not every system heeds.
  const int whole = height + 2 * line->GetBorderY();
  if (line->GetSize().y < whole)
    line->SetSize(wxDefaultCoord, wxDefaultCoord, wxDefaultCoord, whole);
  return line;
}

}  // namespace velquist::ui
