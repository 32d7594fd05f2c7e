// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

#include "platform/System.h"

namespace velquist::platform {

/// Width and height as the frame header of a JPEG file says, found without decoding; 0 x 0 when
/// the bytes are no JPEG or end before the header.
[[nodiscard]] PictureLoader::Size JpegSize(std::span<const std::byte> bytes) noexcept;

/// True for a JPEG file whose picture has no end.
[[nodiscard]] bool IsCutShort(std::span<const std::byte> bytes) noexcept;

/// In how many passes over the picture a whole JPEG file gives its pixels: one, or about ten where
/// it grows sharper while it arrives.
[[nodiscard]] int ScanCount(std::span<const std::byte> bytes) noexcept;

// What takes longer than a user waits for a picture is not shown.
inline constexpr long long kMostPixels = 16'000'000;
inline constexpr long long kMostScannedPixels = 100'000'000;  ///< pixels times passes
inline constexpr std::size_t kMostBytes = 32'000'000;

/// As JpegSize, but 0 x 0 also for a picture of no pixels or of more than is shown.
[[nodiscard]] PictureLoader::Size ShowableJpegSize(std::span<const std::byte> bytes) noexcept;

}  // namespace velquist::platform
