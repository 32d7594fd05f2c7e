// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>

namespace velquist::samples {

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VELQUIST_IS_SLOW
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(_WIN32)
#define VELQUIST_IS_SLOW
#endif

/// A second of the program's own time by std::clock(), whatever else the machine does; more where
/// sanitizers watch, and on Windows, whose clock goes on while other programs run.
#ifdef VELQUIST_IS_SLOW
inline constexpr std::clock_t kSecondOfOwnTime = 20 * CLOCKS_PER_SEC;
#else
inline constexpr std::clock_t kSecondOfOwnTime = CLOCKS_PER_SEC;
#endif

}  // namespace velquist::samples
