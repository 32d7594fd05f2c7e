// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace velquist::text_export {

/// `text` as the content of an element or attribute of HTML, XML and SVG, UTF-8. What is no UTF-8
/// is taken as Windows-1252, what no such document may hold is replaced.
[[nodiscard]] std::string Escaped(std::string_view text);

}  // namespace velquist::text_export
