// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/FileSystem.h"
#include "setup/BinarySubs.h"

namespace velquist::setup {

enum class Layout { kShort, kLong };

/// Reads the whole file into the buffer and returns its length. An empty file returns 0 and leaves
/// the buffer as it was. Any length is accepted. Throws FileError with the buffer as it was.
std::size_t ReadSetupFile(const platform::FileSystem& files, std::string_view path,
                          Bytes& SetupBuffer);

/// Writes the whole buffer over the file; the tail of an existing longer file stays. Throws
/// FileError, with the old file whole.
void WriteSetupFile(platform::FileSystem& files, std::string_view path, const Bytes& SetupBuffer);

/// The buffer starts with the letters PGTS.
[[nodiscard]] bool HasMagic(std::span<const std::byte> SetupBuffer) noexcept;

/// Reads the file into the buffer and tells whether the buffer is a setup file then (for an empty
/// file: whether the buffer was one before). Throws FileError.
[[nodiscard]] bool IsSetupFile(const platform::FileSystem& files, std::string_view path,
                               Bytes& SetupBuffer);

/// Brings a buffer of the other layout's exact size into the layout wanted, with its header bytes
/// and blank fillers. Long to short drops the wings; short to long writes -1.0 (no wings) into
/// both. Any other size stays as it is.
void ConvertLayout(Bytes& SetupBuffer, Layout wanted);

}  // namespace velquist::setup
