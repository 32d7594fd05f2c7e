// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace velquist::platform {

// `\` and `/` separate the parts of a path text. Where the host tells letter case apart, each part
// is looked up without regard to case, and a name of the disk that is not UTF-8 is taken as
// Windows-1252.
//
// From an installation's Players directory on, directories that differ in letter case alone are one
// to the game. One rule says which comes first, however the path is spelled: the one named as the
// game names it (Players, Setups), else the first in byte order. A path leads through the first
// below which its other parts are there, so that what lies below any of them is found. For the last
// part a file that is named exactly so comes before all others.
//
// Above it a part that is there as spelled is meant: two installations may differ in case alone.

/// Throws FileError for a text with a NUL character, which no path has.
void CheckPath(std::string_view path);

/// The host path of a path text. A part that does not exist at all stays as spelled. Checks it.
[[nodiscard]] std::filesystem::path HostPath(std::string_view path);

/// All that a path text may lead to, in the order of the rule; what HostPath says is the first.
/// Of a player or track that is there as spelled it is that one alone: names that are listed are
/// those that the rule puts first. Checks it.
[[nodiscard]] std::vector<std::filesystem::path> HostPaths(std::string_view path);

/// True when the rule puts the name `a` before `b`, which differs from it in letter case alone.
[[nodiscard]] bool ComesFirst(std::string_view a, std::string_view b) noexcept;

}  // namespace velquist::platform
