// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/FileSystem.h"

namespace velquist::platform {

// What the standard library does for one system or for short paths alone. All paths may be of any
// length.

/// The path of a UTF-8 text, exactly as spelled. Where paths are not made of bytes, what is no
/// UTF-8 becomes a replacement character, with which nothing is found.
[[nodiscard]] std::filesystem::path PathFromText(std::string_view text);

/// UTF-8 text of a host path, without the prefix that Lengthened gives it.
[[nodiscard]] std::string PathText(const std::filesystem::path& path);

/// The path as the system's calls take it at any length.
[[nodiscard]] std::filesystem::path Lengthened(const std::filesystem::path& path);

/// The path with its names as the disk spells them, where the system finds them in any letter case;
/// unchanged where nothing is there.
[[nodiscard]] std::filesystem::path SpelledAsOnDisk(const std::filesystem::path& path);

/// What the path leads to; `error` is set where that cannot be told, also where nothing is there.
[[nodiscard]] std::filesystem::file_status StatusOf(const std::filesystem::path& path,
                                                    std::error_code& error);

/// Reads the whole file.
[[nodiscard]] std::error_code ReadFile(const std::filesystem::path& path,
                                       std::vector<std::byte>& bytes);

/// The stamp of the file that the path leads to; nothing where there is no file.
[[nodiscard]] std::optional<FileStamp> StampOf(const std::filesystem::path& path);

/// Makes the directory and those above it that are missing.
[[nodiscard]] std::error_code MakeDirectories(const std::filesystem::path& path);

enum class Listed { kAll, kDirectories };

/// Hands the names in the directory but `.` and `..` to `take` until that returns false.
std::error_code ListNames(const std::filesystem::path& directory, Listed listed,
                          const std::function<bool(std::string_view name)>& take);

}  // namespace velquist::platform
