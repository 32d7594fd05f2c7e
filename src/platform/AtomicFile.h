// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>

namespace velquist::platform {

/// Puts `bytes` into `target` by way of a temporary file beside it, which is flushed to the disk
/// and renamed over it. A symbolic link stays one and its target is written; permissions stay. On
/// failure the old file is whole, no temporary file is left, and FileError tells `shown_path` and
/// the reason.
void WriteAtomically(const std::filesystem::path& target, std::span<const std::byte> bytes,
                     std::string_view shown_path);

}  // namespace velquist::platform
