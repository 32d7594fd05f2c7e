// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "platform/FileSystem.h"

namespace velquist::platform {

/// What one look at a file tells, however long it is.
struct FileHead {
  std::vector<std::byte> bytes;  ///< the first ones
  FileStamp stamp;
};

/// Opens the file once and reads `most` bytes of it at most. What is no ordinary file is an error,
/// and never waited for.
[[nodiscard]] std::error_code ReadHead(const std::filesystem::path& path, std::size_t most,
                                       FileHead& head);

/// Equal for two paths that lead to one directory.
struct DirectoryIdentity {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;
  friend bool operator==(const DirectoryIdentity&, const DirectoryIdentity&) = default;
};

/// Nothing where there is no directory.
[[nodiscard]] std::optional<DirectoryIdentity> IdentityOfDirectory(
    const std::filesystem::path& path);

}  // namespace velquist::platform
