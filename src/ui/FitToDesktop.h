// SPDX-License-Identifier: MIT
#pragma once

#include <wx/toplevel.h>

#include <optional>

namespace velquist::ui {

/// Makes the window no larger than the desktop leaves room for, and puts it in the middle; with a
/// `corner` there, and no larger than what is right of and below it.
void FitToDesktop(wxTopLevelWindow& window, std::optional<wxPoint> corner = {});

}  // namespace velquist::ui
