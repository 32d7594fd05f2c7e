// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/ShippedFiles.h"

namespace velquist::platform {

/// The value of an environment variable in UTF-8; nothing where it is not set.
using Environment = std::function<std::optional<std::string>(std::string_view name)>;

/// The environment of this process.
[[nodiscard]] std::optional<std::string> EnvironmentVariable(std::string_view name);

/// The directory with the data files, default setups and settings, without trailing separator: the
/// folder of the executable when the data files lie in it and it can be written to. Otherwise the
/// user's own directory, filled with what is missing in it from that folder or from
/// ../share/velquist. There a file that is in a `shipped` version is renewed where that can be
/// done; one that the user changed stays as it is. Where no data files are found at all, it is the
/// folder of the executable. Throws FileError when there is no directory of the user or it cannot
/// be filled.
[[nodiscard]] std::string ProgramDirectory(const std::filesystem::path& executable,
                                           const Environment& environment,
                                           std::span<const ShippedFile> shipped = ShippedFiles());

/// Where a program that only reads finds the same data files. Nothing is made or filled: what has
/// not been copied for the user yet is read from where it was installed.
[[nodiscard]] std::string DataDirectory(const std::filesystem::path& executable,
                                        const Environment& environment);

}  // namespace velquist::platform
