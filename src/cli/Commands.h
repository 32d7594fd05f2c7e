// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "cli/Session.h"

/// What the program does: a function a command, each returns the status that the program ends with.
namespace velquist::cli {

[[nodiscard]] int Show(Session& session);
[[nodiscard]] int Compare(Session& session);
[[nodiscard]] int List(Session& session);
[[nodiscard]] int Check(Session& session);
[[nodiscard]] int Export(Session& session);
[[nodiscard]] int Convert(Session& session);
[[nodiscard]] int Gearing(Session& session);
[[nodiscard]] int Sheet(Session& session);

/// The whole program; `words` are those behind its name.
[[nodiscard]] int Run(const std::vector<std::string>& words, const Console& console);

}  // namespace velquist::cli
