// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace velquist::platform {

/// `text` (UTF-8) with the capitals of Latin, Greek and Cyrillic letters made small, for comparing
/// file names as the game's system does. Bytes that are not UTF-8 stay as they are.
[[nodiscard]] std::string FoldCase(std::string_view text);

/// `text` with small letters made capitals: file systems of the game's system report names in the
/// byte order of these, so that "_" comes behind all letters of ASCII. Equal for the same texts as
/// FoldCase.
[[nodiscard]] std::string OrderKey(std::string_view text);

}  // namespace velquist::platform
