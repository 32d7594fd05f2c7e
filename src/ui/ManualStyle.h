// SPDX-License-Identifier: MIT
#pragma once

#include <wx/textctrl.h>

namespace velquist::ui {

/// Lays out the manual that `text` shows, none of whose letters change: headings, which are lines
/// of capitals behind an empty line, are bold; items, which begin with a tab, are indented, and
/// what follows a second tab stands in a column of its own, where its further lines begin, too.
void StyleManual(wxTextCtrl& text);

}  // namespace velquist::ui
