// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

namespace velquist::pictures {

/// A PNG file of 8-bit RGBA rows. Packed by code of our own, so that the bytes do not depend on
/// the version of a library.
[[nodiscard]] std::vector<std::uint8_t> EncodePng(int width, int height,
                                                  const std::vector<std::uint8_t>& rgba);

}  // namespace velquist::pictures
