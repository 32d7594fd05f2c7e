// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bitmap.h>
#include <wx/string.h>

#include <string_view>

namespace velquist::ui {

/// What is put on the clipboard stays there when the program ends.
void CopyText(const wxString& text);
void CopyPicture(const wxBitmap& picture);
/// As a drawing, and as text for programs that take none.
void CopySvg(std::string_view svg);

}  // namespace velquist::ui
