// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>
#include <wx/window.h>

/// What screen readers are told. One implementation a system.
namespace velquist::platform {

/// What a screen reader says for `control`, and what it can add in place of what it added before;
/// an empty text leaves the system's own.
void SetSpoken(wxWindow& control, const wxString& name, const wxString& description);

/// Tells a screen reader that `line`, a line of what was done last, says `text` now.
void Announce(wxWindow& line, const wxString& text);

}  // namespace velquist::platform
