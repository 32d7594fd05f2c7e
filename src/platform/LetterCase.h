// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace velquist::platform {

/// `text` (UTF-8) with the capitals of Latin, Greek and Cyrillic letters made small, for comparing
/// file names as the game's system does. Bytes that are not UTF-8 stay as they are.
[[nodiscard]] std::string FoldCase(std::string_view text);

/// Below, equal to or above 0 as a file system of the game's system reports the name `a` before
/// `b`, does not tell them apart, or reports it behind: in the order of their capitals, so that "_"
/// comes behind all letters of ASCII.
[[nodiscard]] int CompareNames(std::string_view a, std::string_view b);

}  // namespace velquist::platform
