// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/Outside.h"
#include "edit/CarSetup.h"

namespace velquist::app {

/// The setup in a file as what `car` is compared with, read as Open reads it; nothing when the user
/// has been told why not. Throws FileError and BoundsError.
[[nodiscard]] std::optional<edit::Reference> ReadReference(const edit::CarSetup& car,
                                                           std::string_view installation,
                                                           const Outside& outside,
                                                           edit::ReferenceSource source,
                                                           const std::string& path);

}  // namespace velquist::app
