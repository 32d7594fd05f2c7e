// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace velquist::setup {

/// A setup file, byte for byte.
using Bytes = std::vector<std::byte>;

inline constexpr std::size_t kShortLayoutSize = 264;  ///< bytes
inline constexpr std::size_t kLongLayoutSize = 272;   ///< bytes, with both wing fields

/// The four bytes at `offset`, little-endian. All four functions throw BoundsError when
/// offset + 3 lies outside the buffer.
[[nodiscard]] float ReadSingleAt(std::span<const std::byte> SetupBuffer, std::size_t offset);
[[nodiscard]] std::int32_t ReadLongAt(std::span<const std::byte> SetupBuffer, std::size_t offset);
void WriteSingleAt(std::span<std::byte> SetupBuffer, float value, std::size_t offset);
void WriteLongAt(std::span<std::byte> SetupBuffer, std::int32_t value, std::size_t offset);

}  // namespace velquist::setup
