// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace velquist::platform {

/// "2026-11-21 18:39" where this machine is, of nanoseconds since 1970; empty for a time that the
/// machine has no date for.
[[nodiscard]] std::string LocalTimeText(std::int64_t nanoseconds);

}  // namespace velquist::platform
