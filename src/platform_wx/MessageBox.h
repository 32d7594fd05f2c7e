// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

#include "platform/Dialogs.h"

namespace velquist::platform {

/// A message box of the system with the icon, told to screen readers as an alert. Escape and
/// closing the box mean No where it asks. `owner` may be null.
Answer ShowMessageBox(wxWindow* owner, const wxString& text, const wxString& caption, Icon icon,
                      Buttons buttons);

}  // namespace velquist::platform
