// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "charts/PictureRecorder.h"

namespace velquist::text_export {

/// A recorded picture as an SVG element of the same size in pixels, UTF-8. `title` is what a viewer
/// calls it.
[[nodiscard]] std::string SvgElement(const charts::PictureRecorder& picture,
                                     std::string_view title);
/// The same as a document of its own.
[[nodiscard]] std::string SvgDocument(const charts::PictureRecorder& picture,
                                      std::string_view title);

}  // namespace velquist::text_export
