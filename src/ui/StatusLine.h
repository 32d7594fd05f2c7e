// SPDX-License-Identifier: MIT
#pragma once

#include <wx/font.h>
#include <wx/frame.h>
#include <wx/statusbr.h>

namespace velquist::ui {

/// A line below the client area of `frame`, which it leaves as it is, as high as `letters` need.
wxStatusBar* StatusLine(wxFrame& frame, const wxFont& letters);

}  // namespace velquist::ui
