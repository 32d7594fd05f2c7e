// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Paths as texts: parts separated by `\` or `/`, compared without regard to ASCII letter case
/// where a function says so. Which file such a text means on the disk, also where names differ in
/// letter case alone, HostPath.h says.
namespace velquist::platform {

[[nodiscard]] constexpr bool IsSeparator(char c) noexcept
{
  return c == '\\' || c == '/';
}

/// Equal but for the case of ASCII letters and the kind of separator.
[[nodiscard]] bool SamePathText(std::string_view a, std::string_view b) noexcept;

/// Position of the first `part` (such as "\\Players") at or behind `from`, without regard to
/// letter case, either separator matching a `\` of `part`; npos when there is none.
[[nodiscard]] std::size_t FindPart(std::string_view path, std::string_view part,
                                   std::size_t from = 0) noexcept;

/// Position of the last separator, npos when there is none.
[[nodiscard]] std::size_t LastSeparator(std::string_view path) noexcept;

/// What stands behind the last separator.
[[nodiscard]] std::string_view FileNameOf(std::string_view path) noexcept;

/// What stands before the last separator; empty when there is none.
[[nodiscard]] std::string_view DirectoryOf(std::string_view path) noexcept;

/// `path` without a pair of quotes around it.
[[nodiscard]] std::string_view WithoutQuotes(std::string_view path) noexcept;

/// `path` if its file name ends in `extension`; else without an extension of three characters, if
/// it has one, and with `extension` appended.
[[nodiscard]] std::string WithExtension(std::string_view path, std::string_view extension);

}  // namespace velquist::platform
