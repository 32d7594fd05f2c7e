// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bitmap.h>
#include <wx/dataobj.h>
#include <wx/string.h>

#include <memory>
#include <string_view>

namespace velquist::ui {

/// Puts `copied` on the clipboard, where it stays when the program ends.
void Copy(std::unique_ptr<wxDataObject> copied);
void CopyText(const wxString& text);
void CopyPicture(const wxBitmap& picture);
/// As a drawing, and as text for programs that take none.
void CopySvg(std::string_view svg);

}  // namespace velquist::ui
