// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "app/PictureRecorder.h"

namespace velquist::app {

/// A recorded picture as an SVG document of the same size in pixels, UTF-8. `title` is what a
/// viewer calls it.
[[nodiscard]] std::string SvgOf(const PictureRecorder& picture, std::string_view title);

}  // namespace velquist::app
