// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace velquist::testing {

/// The folder of this project's sources. One source alone holds its path: the objects of all others
/// are the same in every checkout, for the compiler cache.
[[nodiscard]] const std::filesystem::path& SourceDirectory();

}  // namespace velquist::testing
