// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "Canvas.h"

namespace velquist::pictures {

inline constexpr std::array<int, 7> kIconSizes{16, 24, 32, 48, 64, 128, 256};

/// The program's icon, a steering wheel whose spokes are a V, `size` pixels wide and high. Small
/// sizes get bolder lines.
[[nodiscard]] Canvas DrawIcon(int size);

/// The same as an SVG file.
[[nodiscard]] std::string IconSvg();

/// All of kIconSizes in one Windows icon file.
[[nodiscard]] std::vector<std::uint8_t> IconFile();

}  // namespace velquist::pictures
