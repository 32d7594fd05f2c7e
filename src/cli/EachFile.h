// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "cli/Session.h"
#include "library/SetupFile.h"

namespace velquist::cli {

/// Hands over each file of the paths given, and each below those that are directories, in rising
/// order of the paths' bytes, until the user wants to end. A file that vanishes on the way, and one
/// that cannot be read and has not the name of a setup, are told and skipped.
void EachFile(Session& session,
              const std::function<void(library::SetupFile file, bool is_named)>& take);

}  // namespace velquist::cli
