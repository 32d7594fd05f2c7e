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

/// Pictures of more pixels are not shown.
inline constexpr long long kMostPixels = 50'000'000;

/// As JpegSize, but 0 x 0 also for a picture of no pixels or more than kMostPixels.
[[nodiscard]] PictureLoader::Size ShowableJpegSize(std::span<const std::byte> bytes) noexcept;

}  // namespace velquist::platform
