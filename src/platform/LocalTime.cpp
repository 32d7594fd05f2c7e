// SPDX-License-Identifier: MIT
#include "platform/LocalTime.h"

#include <array>
#include <chrono>
#include <ctime>

namespace velquist::platform {

std::string LocalTimeText(std::int64_t nanoseconds)
{
  using namespace std::chrono;
  const std::time_t moment = floor<seconds>(std::chrono::nanoseconds(nanoseconds)).count();
  std::tm local{};
#ifdef _WIN32
  if (localtime_s(&local, &moment) != 0) return {};
#else
  if (localtime_r(&moment, &local) == nullptr) return {};
#endif
  std::array<char, 64> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local)};
}

}  // namespace velquist::platform
