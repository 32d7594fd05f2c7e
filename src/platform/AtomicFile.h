// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>

#include "platform/SaveCalls.h"

namespace velquist::platform {

/// Puts `bytes` into `target` by way of a temporary file in its directory, which is flushed to the
/// disk and renamed over it. What the old file had stays: a symbolic link is one still and its
/// target is written; the name as the disk spells it; rights, access list and extended attributes,
/// owner and group as far as the user may give them, hidden and system attributes. Hard links do
/// not stay: other names of the old file keep its old bytes.
///
/// On failure the old file is whole, no temporary file is left, and FileError tells `shown_path`
/// and the reason; only when flushing the directory is what fails does the new file stand already,
/// which is a NotFlushedError.
/// Temporary files of programs that have ended, older than a minute, are removed from the directory
/// before.
void WriteAtomically(const std::filesystem::path& target, std::span<const std::byte> bytes,
                     std::string_view shown_path, const SaveCalls& calls = SystemSaveCalls());

}  // namespace velquist::platform
