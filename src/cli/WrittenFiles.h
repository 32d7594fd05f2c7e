// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "cli/OpenedSetup.h"
#include "cli/Session.h"

namespace velquist::cli {

/// What is written for a setup.
struct WrittenFile {
  std::string name;  ///< in the directory that is written into, or beside the setup
  std::string text;
};

/// Makes a file of each setup, whose car must be known, and says which; goes on after trouble.
[[nodiscard]] int WriteForEach(Session& session,
                               const std::function<WrittenFile(OpenedSetup& setup)>& make);

}  // namespace velquist::cli
