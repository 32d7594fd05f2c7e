// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "install/Installations.h"
#include "library/Identity.h"
#include "library/Problems.h"
#include "library/SetupFile.h"
#include "library/Tables.h"

namespace velquist::library {

/// A setup among others.
struct Row {
  SetupFile file;
  Identity identity;
  /// Where in an installation it lies, also when its path is spelled from below there.
  std::optional<install::SetupPlace> place;
  std::optional<Problem> problem;  ///< the first
};

/// installation\players\player\setups\track\file; nothing for a path that is not of that form.
[[nodiscard]] std::optional<install::SetupPlace> PlaceOf(const std::string& path);

/// True for what belongs among setups: a file with a setup's first bytes, and one that has a
/// setup's extension and cannot be read.
[[nodiscard]] bool IsListed(const SetupFile& file);

[[nodiscard]] Row RowOf(SetupFile file, const Hints& hints, Tables& tables);

}  // namespace velquist::library
