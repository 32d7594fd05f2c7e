// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dc.h>
#include <wx/dcmemory.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

#include "app/PictureRecorder.h"

namespace velquist::ui {

/// Draws all that `picture` holds: what runs along the pixels sharp, curves smoothed.
void DrawPicture(wxMemoryDC& dc, const app::PictureRecorder& picture);

/// Draws `text` in a small box beside `pointer`, inside a picture of `size`.
void DrawReading(wxDC& dc, const wxString& text, wxPoint pointer, wxSize size);

}  // namespace velquist::ui
