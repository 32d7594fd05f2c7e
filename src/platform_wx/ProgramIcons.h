// SPDX-License-Identifier: MIT
#pragma once

#include <wx/iconbndl.h>

namespace velquist::platform {

/// The program's icon in the sizes that windows and task bars ask for.
[[nodiscard]] wxIconBundle ProgramIcons();

}  // namespace velquist::platform
