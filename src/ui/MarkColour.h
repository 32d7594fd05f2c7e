// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>
#include <wx/window.h>

class wxDataViewCtrl;

namespace velquist::ui {

/// How well one colour can be told from another, 1 to 21; text needs 4.5.
[[nodiscard]] double Contrast(const wxColour& one, const wxColour& other);

/// Of texts that are set off, beside their weight: at least 4.5 to 1 on `background`.
[[nodiscard]] wxColour MarkColour(const wxColour& background);

/// Of every other row of a table on `background`: near enough to it for the same text.
[[nodiscard]] wxColour OtherRowColour(const wxColour& background);

/// Gives every other row of `table` that colour, also when the system's colours change, where the
/// toolkit paints them.
void TellRowsApart(wxDataViewCtrl& table);

/// Sets the text of `window` off from others, or shows it like them: by weight and by colour.
void SetMarked(wxWindow& window, bool marked);

}  // namespace velquist::ui
