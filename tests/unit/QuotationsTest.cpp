// SPDX-License-Identifier: MIT
#include "app/Quotations.h"

#include <algorithm>
#include <set>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/Errors.h"

namespace velquist::app {
namespace {

constexpr std::string_view kSeparator = " -- ";

TEST(Quotations, ThereAreTwentyThreeAndAllDiffer)
{
  std::set<std::string_view> seen;
  for (int i = 0; i < kQuotationCount; ++i) {
    seen.insert(Quotation(i));
  }
  EXPECT_EQ(kQuotationCount, 23);
  EXPECT_EQ(seen.size(), 23U);
}

TEST(Quotations, EachEndsInItsSpeakerBehindTheOnlySeparator)
{
  for (int i = 0; i < kQuotationCount; ++i) {
    const std::string_view line = Quotation(i);
    SCOPED_TRACE(line);
    const auto place = line.find(kSeparator);
    ASSERT_NE(place, std::string_view::npos);
    EXPECT_EQ(place, line.rfind(kSeparator));
    const std::string_view text = line.substr(0, place);
    const std::string_view speaker = line.substr(place + kSeparator.size());
    ASSERT_FALSE(text.empty());
    EXPECT_NE(std::string_view(".!?'").find(text.back()), std::string_view::npos);
    ASSERT_FALSE(speaker.empty());
    EXPECT_TRUE(speaker.front() >= 'A' && speaker.front() <= 'Z');
    EXPECT_NE(speaker.find(' '), std::string_view::npos);
    EXPECT_TRUE(speaker.back() >= 'a' && speaker.back() <= 'z');
  }
}

TEST(Quotations, EachIsOneLineOfPlainAsciiWithoutStrayBlanks)
{
  for (int i = 0; i < kQuotationCount; ++i) {
    const std::string_view line = Quotation(i);
    SCOPED_TRACE(line);
    EXPECT_TRUE(std::all_of(line.begin(), line.end(), [](char c) { return c >= ' ' && c <= '~'; }));
    EXPECT_EQ(line.find("  "), std::string_view::npos);
    EXPECT_NE(line.front(), ' ');
    EXPECT_NE(line.back(), ' ');
  }
}

TEST(Quotations, AnIndexOutsideTheListThrows)
{
  EXPECT_THROW((void)Quotation(-1), BoundsError);
  EXPECT_THROW((void)Quotation(kQuotationCount), BoundsError);
}

}  // namespace
}  // namespace velquist::app
