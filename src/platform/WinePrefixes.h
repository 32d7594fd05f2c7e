// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/ProgramDirectory.h"  // Environment

namespace velquist::platform {

struct WinePrefix {
  std::string directory;  ///< whose name tells it from the others
  std::string drive;      ///< what programs in it see as drive C
};

/// The user's Wine prefixes that exist: $WINEPREFIX and ~/.wine, then those that Lutris, Bottles,
/// Steam and Heroic have made.
[[nodiscard]] std::vector<WinePrefix> WinePrefixes(const Environment& environment,
                                                   const FileSystem& files);

}  // namespace velquist::platform
