// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/Outside.h"
#include "edit/CarSetup.h"

namespace velquist::app {

/// The setup in a file beside `car`, read as Open reads it: a default setup of the car's mod year,
/// or any file, whose mod year must be installed in `installation`. Chassis and formula are the
/// car's own where the file's name does not tell them. Null when the user has been told why not.
/// Throws FileError and BoundsError.
[[nodiscard]] std::unique_ptr<edit::CarSetup> ReadBeside(const edit::CarSetup& car,
                                                         std::string_view installation,
                                                         const Outside& outside,
                                                         edit::ReferenceSource source,
                                                         const std::string& path);

/// The same as what `car` is compared with.
[[nodiscard]] std::optional<edit::Reference> ReadReference(const edit::CarSetup& car,
                                                           std::string_view installation,
                                                           const Outside& outside,
                                                           edit::ReferenceSource source,
                                                           const std::string& path);

}  // namespace velquist::app
