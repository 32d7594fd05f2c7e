// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dc.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

#include <vector>

#include "charts/PictureRecorder.h"

namespace velquist::ui {

/// Draws all that `picture` holds: what runs along the pixels sharp, curves smoothed.
void DrawPicture(wxDC& dc, const charts::PictureRecorder& picture);

/// The same of a chart, enlarged by `zoom`. Beneath it the thin outlines of what is coloured in
/// `outlined`, a picture on the same axes, and what BeyondLimit says.
void DrawChart(wxDC& dc, const charts::PictureRecorder& chart,
               const charts::PictureRecorder& outlined, double zoom);

/// Where an engine does not run: a shade over the plot box beyond the limit that a chart has drawn
/// as a red dotted line, with the line's name at its foot where the legend has no room for it.
/// Empty for a chart without such a line.
[[nodiscard]] std::vector<charts::Primitive> BeyondLimit(const charts::PictureRecorder& chart);

/// Draws thin lines through `at` across `plot`, in which it lies.
void DrawCrossHair(wxDC& dc, wxPoint at, wxRect plot);

/// Draws `text` in a small box beside `pointer`, inside a picture of `size`.
void DrawReading(wxDC& dc, const wxString& text, wxPoint pointer, wxSize size);

}  // namespace velquist::ui
