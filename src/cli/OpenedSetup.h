// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "cli/Session.h"
#include "edit/CarSetup.h"
#include "library/Identity.h"
#include "library/SetupFile.h"

namespace velquist::cli {

/// A setup as it is after it was opened.
struct OpenedSetup {
  library::SetupFile file;
  library::Identity identity;
  edit::CarSetup car;  ///< the first chassis and formula where they are not known

  /// The name of its car; empty where that is not known.
  [[nodiscard]] std::string_view CarName() const;
};

/// Throws FileError for what cannot be read or is no setup, and where a data file is missing.
[[nodiscard]] std::unique_ptr<OpenedSetup> OpenSetup(const Session& session,
                                                     const std::string& path);

/// For what needs the car: throws FileError where car or formula is not known.
void NeedCar(const OpenedSetup& setup);

/// Takes the positions of the differential's lists. Throws FileError for a value outside its list.
void LoadLists(OpenedSetup& setup);

}  // namespace velquist::cli
