// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dc.h>
#include <wx/dcmemory.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

#include "charts/PictureRecorder.h"

namespace velquist::ui {

/// Draws all that `picture` holds: what runs along the pixels sharp, curves smoothed. Beneath it
/// the thin outlines of what is coloured in `outlined`, a picture on the same axes.
void DrawPicture(wxMemoryDC& dc, const charts::PictureRecorder& picture,
                 const charts::PictureRecorder& outlined = {});

/// Draws `text` in a small box beside `pointer`, inside a picture of `size`.
void DrawReading(wxDC& dc, const wxString& text, wxPoint pointer, wxSize size);

}  // namespace velquist::ui
