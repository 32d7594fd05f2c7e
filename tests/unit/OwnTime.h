// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>

namespace velquist::samples {

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VELQUIST_IS_WATCHED true
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define VELQUIST_IS_WATCHED true
#endif
#ifndef VELQUIST_IS_WATCHED
#define VELQUIST_IS_WATCHED false
#endif

/// Sanitizers watch.
inline constexpr bool kIsWatched = VELQUIST_IS_WATCHED;

/// A second of the program's own time by std::clock(), whatever else the machine does; more where
/// sanitizers watch, and on Windows, whose clock goes on while other programs run.
#ifdef _WIN32
inline constexpr std::clock_t kSecondOfOwnTime = 20 * CLOCKS_PER_SEC;
#else
inline constexpr std::clock_t kSecondOfOwnTime = (kIsWatched ? 20 : 1) * CLOCKS_PER_SEC;
#endif

}  // namespace velquist::samples
