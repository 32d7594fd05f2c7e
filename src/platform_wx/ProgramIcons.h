// SPDX-License-Identifier: MIT
#pragma once

#include <wx/iconbndl.h>

namespace velquist::platform {

/// The program's icon in the sizes that windows and task bars ask for. The larger one that is
/// installed for menus is in no window: each copy of it takes a window half a megabyte.
[[nodiscard]] wxIconBundle ProgramIcons();

}  // namespace velquist::platform
