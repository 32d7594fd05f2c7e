// SPDX-License-Identifier: MIT
#include "platform/LocalTime.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>

#ifdef _WIN32
#include <windows.h>
#endif

namespace velquist::platform {

#ifdef _WIN32

/// The C library's own function knows no time before 1970 there.
std::string LocalTimeText(std::int64_t nanoseconds)
{
  constexpr std::int64_t kNanosecondsOfATick = 100;
  constexpr std::int64_t kTicksFrom1601To1970 = 116'444'736'000'000'000;
  ULARGE_INTEGER ticks{};
  ticks.QuadPart = static_cast<ULONGLONG>(nanoseconds / kNanosecondsOfATick + kTicksFrom1601To1970);
  const FILETIME moment{ticks.LowPart, ticks.HighPart};
  SYSTEMTIME utc{};
  SYSTEMTIME local{};
  if (::FileTimeToSystemTime(&moment, &utc) == FALSE ||
      ::SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local) == FALSE)
    return {};
  std::array<char, 64> text{};
  const int length =
      std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d", local.wYear, local.wMonth,
                    local.wDay, local.wHour, local.wMinute);
  return {text.data(), static_cast<std::size_t>(length)};
}

#else

std::string LocalTimeText(std::int64_t nanoseconds)
{
  using namespace std::chrono;
  const std::time_t moment = floor<seconds>(std::chrono::nanoseconds(nanoseconds)).count();
  std::tm local{};
  if (localtime_r(&moment, &local) == nullptr) return {};
  std::array<char, 64> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local)};
}

#endif

}  // namespace velquist::platform
