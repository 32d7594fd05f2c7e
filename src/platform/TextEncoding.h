// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace velquist::platform {

/// `text` as it is where it is valid UTF-8; any other text is taken as Windows-1252, which every
/// byte is valid in. The result is valid UTF-8.
[[nodiscard]] std::string InUtf8(std::string_view text);

/// `text` without a UTF-8 byte order mark at its start.
[[nodiscard]] std::string_view WithoutByteOrderMark(std::string_view text) noexcept;

}  // namespace velquist::platform
