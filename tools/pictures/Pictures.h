// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velquist::pictures {

struct PictureFile {
  std::string path;  ///< below the project's root, with '/'
  std::vector<std::uint8_t> bytes;
};

/// Draws every picture that the project ships: the built-in car picture, the icon in all sizes and
/// kinds, and the car pictures of the example installation. The bytes are the same on every run.
/// Throws std::runtime_error when a JPEG cannot be made.
[[nodiscard]] std::vector<PictureFile> BuildPictures();

}  // namespace velquist::pictures
