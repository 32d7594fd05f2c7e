// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

#include "platform/System.h"

namespace velquist::platform {

/// Width and height as the frame header of a JPEG file says, found without decoding; 0 x 0 when
/// the bytes are no JPEG or end before the header.
[[nodiscard]] PictureLoader::Size JpegSize(std::span<const std::byte> bytes) noexcept;

}  // namespace velquist::platform
