// SPDX-License-Identifier: MIT
// Random setups through loading and storing: every byte that has to survive survives.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <random>
#include <string>

#include "SetupSamples.h"
#include "platform/HostFileSystem.h"
#include "runner/SourceDirectory.h"
#include "setup/Layouts.h"
#include "setup/SetupRecord.h"

namespace velquist::setup {
namespace {

using namespace velquist::samples;

constexpr int kRounds = 10'000;

class Generator {
 public:
  explicit Generator(std::uint32_t seed) : random_(seed) {}

  std::uint32_t Bits() { return static_cast<std::uint32_t>(random_()); }
  int Below(int end) { return static_cast<int>(Bits() % static_cast<std::uint32_t>(end)); }

  /// A ratio number: of a row, near one, anywhere around the table, or any bits at all.
  float RatioNumber(int row)
  {
    const double ratio = SampleThousandths(row) / 1000.0;
    switch (Below(4)) {
      case 0: return static_cast<float>(ratio);
      case 1: return static_cast<float>(ratio + (Below(2001) - 1000) / 100'000.0);
      case 2: return static_cast<float>(Below(6'000'000) / 1'000'000.0);
      default: return std::bit_cast<float>(Bits());
    }
  }

 private:
  std::mt19937 random_;
};

/// The gear ID after loading, reckoned in thousandths.
int ExpectedId(float ratio_number, int id)
{
  const double thousandths = std::nearbyint(static_cast<double>(ratio_number) * 1000.0);
  if (thousandths == SampleThousandths(id)) return id;
  if (!(thousandths >= SampleThousandths(0))) return id;
  int row = 0;
  while (row + 1 < 90 && SampleThousandths(row + 1) <= thousandths) ++row;
  return row;
}

struct Round {
  Bytes bytes;
  ListSelections lists{};
  data::ModYear year = k1967;
};

Round RandomRound(Generator& generator, std::size_t size)
{
  Round round;
  const auto years = size == kShortLayoutSize ? 3 : data::kModYears.size();
  round.year = data::kModYears[static_cast<std::size_t>(generator.Below(static_cast<int>(years)))];
  for (std::size_t i = 0; i < size; ++i)
    round.bytes.push_back(static_cast<std::byte>(generator.Bits() & 0xFFU));
  for (const auto& fact : kFacts)
    if (fact.whole)  // whole numbers that a single holds exactly
      PutWhole(round.bytes, fact.offset, generator.Below((1 << 25) + 1) - (1 << 24));
  for (std::size_t pair = 0; pair < 7; ++pair) {
    const int id = generator.Below(90);
    PutWhole(round.bytes, 56 + 4 * pair, id);
    PutSingle(round.bytes, 20 + 4 * pair, generator.RatioNumber(id));
  }
  round.lists = {generator.Below(20), generator.Below(10), generator.Below(12), generator.Below(5)};
  return round;
}

/// What storing straight after loading must give.
Bytes Expected(const Round& round)
{
  Bytes bytes = round.bytes;
  for (std::size_t pair = 0; pair < 6; ++pair)
    PutWhole(bytes, 56 + 4 * pair,
             ExpectedId(TakeSingle(bytes, 20 + 4 * pair), TakeWhole(bytes, 56 + 4 * pair)));
  PutWhole(bytes, 80, 70 + round.lists[0]);
  PutSingle(bytes, 84, static_cast<float>(30 + 5 * round.lists[2]));
  PutSingle(bytes, 88, static_cast<float>(40 + 5 * round.lists[1]));
  PutWhole(bytes, 244, 1 + round.lists[3]);
  bytes[260] = bytes[260] == std::byte{0} ? std::byte{0} : std::byte{1};
  if (round.year != k1969 && bytes.size() == kLongLayoutSize) {
    PutSingle(bytes, 261, -1.0F);
    PutSingle(bytes, 265, -1.0F);
  }
  return bytes;
}

void ExpectRoundTrips(std::size_t size, std::uint32_t seed)
{
  Generator generator(seed);
  const auto gears = SampleGears();
  auto data = SampleData();
  for (int i = 0; i < kRounds; ++i) {
    const Round round = RandomRound(generator, size);
    Bytes bytes = round.bytes;
    const bool symmetric = LoadSetupValues(bytes, gears, round.year, data);
    ASSERT_EQ(bytes, round.bytes) << "loading only reads";
    StoreSetupValues(data, ValuesOfLists(data, round.lists), !symmetric, round.year, bytes);
    ASSERT_EQ(bytes, Expected(round)) << "round " << i;

    // Loaded once more it says the same, and stored once more it stays.
    const bool again = LoadSetupValues(bytes, gears, round.year, data);
    ASSERT_EQ(again, symmetric);
    const Bytes once = bytes;
    StoreSetupValues(data, ValuesOfLists(data, round.lists), !again, round.year, bytes);
    ASSERT_EQ(bytes, once) << "round " << i;
  }
}

TEST(SetupRoundTrip, TenThousandRandomShortSetupsKeepTheirBytes)
{
  ExpectRoundTrips(kShortLayoutSize, 1967);
}

TEST(SetupRoundTrip, TenThousandRandomLongSetupsKeepTheirBytes)
{
  ExpectRoundTrips(kLongLayoutSize, 1969);
}

TEST(SetupRoundTrip, EveryShippedDefaultKeepsAllItsBytes)
{
  const platform::HostFileSystem files;
  const std::string program =
      (velquist::testing::SourceDirectory() / "assets" / "program").string();
  const std::pair<const char*, data::ModYear> defaults[] = {
      {"67", k1967}, {"65", k1965}, {"66", k1966}, {"69", k1969}, {"GT", kGT}};
  for (const auto& [prefix, year] : defaults) {
    SCOPED_TRACE(prefix);
    data::SetupData data;
    data::GearData gears;
    ASSERT_TRUE(data::ReadSetupData(files, program, year, data));
    ASSERT_TRUE(data::ReadGearData(files, program, year, gears));
    Bytes bytes;
    ASSERT_TRUE(IsSetupFile(files, program + "/" + prefix + " Velquist Default.vqset", bytes));
    const Bytes before = bytes;
    const bool symmetric = LoadSetupValues(bytes, gears, year, data);
    const auto index = [&](std::size_t row, int step) {
      return (static_cast<int>(data.Current(row)) - data.Whole(row, data::kMinimumField)) / step;
    };
    const ListSelections lists = {index(13, 1), index(15, 5), index(14, 5), index(46, 1)};
    RebuildRatioNumbers(gears, data);
    StoreSetupValues(data, ValuesOfLists(data, lists), !symmetric, year, bytes);
    EXPECT_EQ(bytes, before);
  }
}

}  // namespace
}  // namespace velquist::setup
