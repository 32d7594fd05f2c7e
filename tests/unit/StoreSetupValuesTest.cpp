// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "SetupSamples.h"
#include "platform/Errors.h"
#include "setup/SetupRecord.h"

namespace velquist::setup {
namespace {

using namespace velquist::samples;

constexpr ListSelections kSampleLists = {6, 4, 3, 2};

TEST(StoreSetupValues, PutsEveryValueIntoItsField)
{
  auto data = NumberedData();
  for (const auto& fact : kFacts)
    data.Current(fact.row) = static_cast<float>(fact.slot) + (fact.whole ? 0.0F : 0.375F);
  Bytes bytes = SampleSetup(kLongLayoutSize);
  StoreSetupValues(data, ValuesOfLists(data, kSampleLists), false, k1969, bytes);
  for (const auto& fact : kFacts) {
    if (fact.slot >= 48) continue;
    SCOPED_TRACE(fact.slot);
    if (fact.whole)
      EXPECT_EQ(TakeWhole(bytes, fact.offset), fact.slot);
    else
      EXPECT_EQ(TakeSingle(bytes, fact.offset), static_cast<float>(fact.slot) + 0.375F);
  }
}

TEST(StoreSetupValues, RoundsWholeNumbersHalfToEven)
{
  struct Case {
    float value;
    std::int32_t stored;
  };
  constexpr Case kCases[] = {{7.5F, 8},   {6.5F, 6},   {0.5F, 0},    {1.5F, 2}, {-0.5F, 0},
                             {-1.5F, -2}, {-2.5F, -2}, {2.4999F, 2}, {2.5F, 2}, {2.5001F, 3},
                             {-0.0F, 0},  {3.0F, 3},   {1.0e-40F, 0}};
  for (const auto& fact : kFacts) {
    if (!fact.whole || fact.slot >= 48) continue;
    for (const auto& [value, stored] : kCases) {
      auto data = SampleData();
      data.Current(fact.row) = value;
      Bytes bytes = SampleSetup(kShortLayoutSize);
      StoreSetupValues(data, ValuesOfLists(data, kSampleLists), false, k1967, bytes);
      EXPECT_EQ(TakeWhole(bytes, fact.offset), stored) << "slot " << fact.slot << ", " << value;
    }
  }
}

TEST(StoreSetupValues, RebuildsTheListSlotsFromTheListsAndTheirMinimums)
{
  auto data = NumberedData();
  for (const std::size_t row : {13U, 14U, 15U, 46U}) data.Current(row) = -1234.5F;
  Bytes bytes = SampleSetup(kShortLayoutSize);
  StoreSetupValues(data, ValuesOfLists(data, {6, 4, 3, 2}), false, k1967, bytes);
  EXPECT_EQ(TakeWhole(bytes, 80), 70 + 6);
  EXPECT_EQ(TakeSingle(bytes, 84), 30.0F + 5 * 3) << "coast angle, Combo1(2)";
  EXPECT_EQ(TakeSingle(bytes, 88), 40.0F + 5 * 4) << "power angle, Combo1(1)";
  EXPECT_EQ(TakeWhole(bytes, 244), 1 + 2);

  StoreSetupValues(data, ValuesOfLists(data, {0, 0, 0, 0}), false, k1967, bytes);
  EXPECT_EQ(TakeWhole(bytes, 80), 70);
  EXPECT_EQ(TakeSingle(bytes, 84), 30.0F);
  EXPECT_EQ(TakeSingle(bytes, 88), 40.0F);
  EXPECT_EQ(TakeWhole(bytes, 244), 1);
}

TEST(StoreSetupValues, ReadsMinimumsAsRoundedLeadingNumbers)
{
  auto data = SampleData();
  data.SetupDataText[13][1] = " 70.5 rows";
  data.SetupDataText[14][1] = "31.5";
  data.SetupDataText[15][1] = "none";
  data.SetupDataText[46][1] = "-2";
  Bytes bytes = SampleSetup(kShortLayoutSize);
  StoreSetupValues(data, ValuesOfLists(data, {1, 1, 1, 1}), false, k1967, bytes);
  EXPECT_EQ(TakeWhole(bytes, 80), 71);
  EXPECT_EQ(TakeSingle(bytes, 84), 37.0F);
  EXPECT_EQ(TakeSingle(bytes, 88), 5.0F);
  EXPECT_EQ(TakeWhole(bytes, 244), -1);
}

TEST(StoreSetupValues, SetsTheSymmetryByteToTheOppositeOfTheBox)
{
  for (const int before : {0, 1, 2, 255}) {
    Bytes bytes = SampleSetup(kShortLayoutSize);
    bytes[260] = static_cast<std::byte>(before);
    StoreSetupValues(SampleData(), ValuesOfLists(SampleData(), kSampleLists), true, k1967, bytes);
    EXPECT_EQ(bytes[260], std::byte{0});
    StoreSetupValues(SampleData(), ValuesOfLists(SampleData(), kSampleLists), false, k1967, bytes);
    EXPECT_EQ(bytes[260], std::byte{1});
  }
}

TEST(StoreSetupValues, WritesNoWingsIntoALongFileOfAnotherYear)
{
  for (const auto year : {k1967, k1965, k1966, kGT}) {
    auto data = NumberedData();
    Bytes bytes = SampleSetup(kLongLayoutSize);
    const Bytes before = bytes;
    StoreSetupValues(data, ValuesOfLists(data, kSampleLists), false, year, bytes);
    const Bytes wings(bytes.begin() + 261, bytes.begin() + 269);
    EXPECT_EQ(wings, BytesOf(std::string_view("\0\0\x80\xBF\0\0\x80\xBF", 8)))
        << data::ModYearText(year);
    EXPECT_TRUE(std::equal(bytes.begin() + 269, bytes.end(), before.begin() + 269));
  }
}

TEST(StoreSetupValues, LeavesTheEndOfAShortFile)
{
  for (const auto year : {k1967, k1965, k1966, kGT}) {
    Bytes bytes = SampleSetup(kShortLayoutSize);
    const Bytes before = bytes;
    StoreSetupValues(NumberedData(), ValuesOfLists(NumberedData(), kSampleLists), false, year,
                     bytes);
    EXPECT_EQ(bytes.size(), 264U);
    EXPECT_TRUE(std::equal(bytes.begin() + 261, bytes.end(), before.begin() + 261))
        << data::ModYearText(year);
  }
}

TEST(StoreSetupValues, LeavesTheEndOfAFileOfAnyOtherSize)
{
  for (std::size_t size = 261; size <= 300; ++size) {
    if (size == kLongLayoutSize) continue;
    Bytes bytes = SampleSetup(size);
    const Bytes before = bytes;
    StoreSetupValues(NumberedData(), ValuesOfLists(NumberedData(), kSampleLists), false, k1967,
                     bytes);
    EXPECT_TRUE(std::equal(bytes.begin() + 261, bytes.end(), before.begin() + 261, before.end()))
        << size;
  }
}

TEST(StoreSetupValues, TouchesNoByteThatIsNoField)
{
  for (const auto size : {kShortLayoutSize, kLongLayoutSize}) {
    Bytes bytes = SampleSetup(size);
    const Bytes before = bytes;
    StoreSetupValues(NumberedData(), ValuesOfLists(NumberedData(), kSampleLists), true, k1967,
                     bytes);
    for (std::size_t at = 0; at < size; ++at) {
      const bool kept = at < 20 || (at >= 48 && at < 56) || (at >= 172 && at < 204) ||
                        (at > 260 && (size == kShortLayoutSize || at >= 269));
      if (kept) {
        EXPECT_EQ(bytes[at], before[at]) << at;
      }
    }
  }
}

TEST(StoreSetupValues, FailsForEveryFileThatEndsBeforeAFieldItWrites)
{
  for (const auto year : {k1967, k1969}) {
    const std::size_t needed = year == k1969 ? 269 : 261;
    for (std::size_t size = 0; size <= 280; ++size) {
      SCOPED_TRACE("year " + std::string(data::ModYearText(year)) + ", size " +
                   std::to_string(size));
      Bytes bytes = SampleSetup(size);
      if (size < needed)
        EXPECT_THROW(StoreSetupValues(SampleData(), ValuesOfLists(SampleData(), kSampleLists),
                                      false, year, bytes),
                     BoundsError);
      else
        EXPECT_NO_THROW(StoreSetupValues(SampleData(), ValuesOfLists(SampleData(), kSampleLists),
                                         false, year, bytes));
      EXPECT_EQ(bytes.size(), size);
    }
  }
}

TEST(StoreSetupValues, FailsForAWholeNumberBeyond32Bits)
{
  const float too_large[] = {2'147'483'648.0F,
                             -2'147'483'904.0F,
                             1.0e30F,
                             std::numeric_limits<float>::infinity(),
                             -std::numeric_limits<float>::infinity(),
                             std::numeric_limits<float>::quiet_NaN()};
  for (const auto& fact : kFacts) {
    if (!fact.whole || fact.slot >= 48) continue;
    for (const float value : too_large) {
      auto data = SampleData();
      data.Current(fact.row) = value;
      Bytes bytes = SampleSetup(kShortLayoutSize);
      EXPECT_THROW(StoreSetupValues(data, ValuesOfLists(data, kSampleLists), false, k1967, bytes),
                   BoundsError)
          << "slot " << fact.slot << ", " << value;
    }
  }
}

TEST(StoreSetupValues, FailsWhenAListSumLeaves16Bits)
{
  struct Case {
    std::size_t row;
    const char* minimum;
    ListSelections lists;
  };
  const Case cases[] = {
      {14, "32767", {0, 0, 1, 0}},     {14, "32763", {0, 0, 1, 0}},   {14, "-32768", {0, 0, -1, 0}},
      {15, "32763", {0, 1, 0, 0}},     {15, "-32764", {0, -1, 0, 0}}, {15, "40000", {0, 0, 0, 0}},
      {46, "32767", {0, 0, 0, 1}},     {46, "-32768", {0, 0, 0, -1}}, {46, "1e9", {0, 0, 0, 0}},
      {14, "-32768", {0, 0, 7000, 0}},
  };
  for (const auto& [row, minimum, lists] : cases) {
    auto data = SampleData();
    data.SetupDataText[row][1] = minimum;
    Bytes bytes = SampleSetup(kShortLayoutSize);
    EXPECT_THROW(StoreSetupValues(data, ValuesOfLists(data, lists), false, k1967, bytes),
                 BoundsError)
        << row << ' ' << minimum;
  }
  auto data = SampleData();
  data.SetupDataText[14][1] = "32762";
  data.SetupDataText[46][1] = "32766";
  Bytes bytes = SampleSetup(kShortLayoutSize);
  EXPECT_NO_THROW(StoreSetupValues(data, ValuesOfLists(data, {0, 0, 1, 1}), false, k1967, bytes));
  EXPECT_EQ(TakeSingle(bytes, 84), 32767.0F);
  EXPECT_EQ(TakeWhole(bytes, 244), 32767);
}

TEST(StoreSetupValues, FailsWhenTheDataFileHasTooFewRows)
{
  for (std::size_t rows = 0; rows < 50; ++rows) {
    data::SetupData data = SampleData();
    data.SetupDataValues.resize(rows);
    data.SetupDataText.resize(rows);
    Bytes bytes = SampleSetup(kShortLayoutSize);
    EXPECT_THROW(StoreSetupValues(data, ValuesOfLists(data, kSampleLists), false, k1967, bytes),
                 BoundsError)
        << rows;
  }
}

TEST(StoreSetupValues, KeepsEveryBitOfSinglesThatAreNoNumbers)
{
  Bytes bytes = SampleSetup(kLongLayoutSize);
  for (const auto& fact : kFacts)
    if (!fact.whole && fact.slot < 49)
      Put(bytes, fact.offset, 0x7F800001U + 0x1010U * static_cast<std::uint32_t>(fact.row));
  auto data = SampleData();
  const bool symmetric = LoadSetupValues(bytes, SampleGears(), k1969, data);
  Bytes stored = bytes;
  StoreSetupValues(data, ValuesOfLists(data, {6, 0, 0, 0}), !symmetric, k1969, stored);
  for (const auto& fact : kFacts) {
    if (!fact.whole && fact.slot < 49) {
      EXPECT_EQ(Take(stored, fact.offset), Take(bytes, fact.offset)) << "slot " << fact.slot;
    }
  }
}

}  // namespace
}  // namespace velquist::setup
