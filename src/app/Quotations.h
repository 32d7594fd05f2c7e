// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace velquist::app {

inline constexpr int kQuotationCount = 23;

/// The line that the marquee scrolls: the quotation, " -- " and the speaker, in plain ASCII.
/// Throws BoundsError when `index` is not 0 to kQuotationCount - 1.
[[nodiscard]] std::string_view Quotation(int index);

}  // namespace velquist::app
