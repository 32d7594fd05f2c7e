// SPDX-License-Identifier: MIT
#include "platform/LocalTime.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>

namespace velquist::platform {
namespace {

constexpr std::int64_t kSecond = 1'000'000'000;

#ifndef _WIN32
TEST(LocalTime, IsThatOfThisMachine)
{
  const auto in = [](const char* zone) {
    ::setenv("TZ", zone, 1);
    ::tzset();
    return LocalTimeText(1'500'000'000 * kSecond);
  };
  EXPECT_EQ(in("UTC"), "2017-07-14 02:40");
  EXPECT_EQ(in("XYZ-5:30"), "2017-07-14 08:10");
  ::unsetenv("TZ");
  ::tzset();
}
#endif

TEST(LocalTime, KnowsTimesBefore1970)
{
  EXPECT_EQ(LocalTimeText(-400 * 24 * 3600 * kSecond).substr(0, 5), "1968-");
}

}  // namespace
}  // namespace velquist::platform
