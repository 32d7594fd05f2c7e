// SPDX-License-Identifier: MIT
// What the tests of setup files and data files share: the field map written down once more by hand,
// sample setups and tables.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/GearData.h"
#include "data/SetupData.h"
#include "setup/BinarySubs.h"

namespace velquist::samples {

struct Fact {
  int slot;
  std::size_t row;
  std::size_t offset;
  bool whole;  ///< signed 32-bit integer, else a single
};

// clang-format off
inline constexpr std::array<Fact, 52> kFacts = {{
    { 0, 16,  92, false}, { 1, 17,  96, false}, { 2, 18, 100, false}, { 3, 19, 104, false},
    { 4, 20, 108, false}, { 5, 21, 112, false}, { 6, 22, 116, false}, { 7, 23, 120, false},
    { 8, 24, 124, true},  { 9, 25, 128, true},  {10, 26, 132, true},  {11, 27, 136, true},
    {12, 28, 140, true},  {13, 29, 144, true},  {14, 30, 148, true},  {15, 31, 152, true},
    {16, 32, 156, false}, {17, 33, 160, false}, {18, 34, 164, false}, {19, 35, 168, false},
    {20, 36, 204, false}, {21, 37, 208, false}, {22, 38, 212, false}, {23, 39, 216, false},
    {24, 40, 220, false}, {25, 41, 224, false},
    {26, 42, 228, false}, {27, 43, 232, false},
    {28, 44, 236, false}, {29, 45, 240, false},
    {30, 47, 248, false}, {31, 48, 252, false}, {32, 49, 256, true},
    {33, 51, 261, false}, {34, 52, 265, false},
    {35,  0,  20, false}, {36,  1,  24, false}, {37,  2,  28, false}, {38,  3,  32, false},
    {39,  4,  36, false}, {40,  5,  40, false}, {41,  6,  44, false},
    {42,  7,  56, true},  {43,  8,  60, true},  {44,  9,  64, true},  {45, 10,  68, true},
    {46, 11,  72, true},  {47, 12,  76, true},  {48, 13,  80, true},
    {49, 14,  84, false}, {50, 15,  88, false}, {51, 46, 244, true},
}};
// clang-format on

using enum data::ModYear;

inline std::uint32_t BitsOf(float value)
{
  return std::bit_cast<std::uint32_t>(value);
}

// --- Bytes of a setup file, put and taken without the code under test ---------------------------

inline void Put(setup::Bytes& bytes, std::size_t offset, std::uint32_t word)
{
  for (std::size_t i = 0; i < 4; ++i)
    bytes.at(offset + i) = static_cast<std::byte>(word >> (8 * i) & 0xFFU);
}
inline void PutSingle(setup::Bytes& bytes, std::size_t offset, float value)
{
  Put(bytes, offset, BitsOf(value));
}
inline void PutWhole(setup::Bytes& bytes, std::size_t offset, std::int32_t value)
{
  Put(bytes, offset, static_cast<std::uint32_t>(value));
}
inline std::uint32_t Take(std::span<const std::byte> bytes, std::size_t offset)
{
  std::uint32_t word = 0;
  for (std::size_t i = 0; i < 4; ++i)
    word |= std::to_integer<std::uint32_t>(bytes[offset + i]) << (8 * i);
  return word;
}
inline float TakeSingle(std::span<const std::byte> bytes, std::size_t offset)
{
  return std::bit_cast<float>(Take(bytes, offset));
}
inline std::int32_t TakeWhole(std::span<const std::byte> bytes, std::size_t offset)
{
  return static_cast<std::int32_t>(Take(bytes, offset));
}
inline setup::Bytes BytesOf(std::string_view text)
{
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

// --- Tables ------------------------------------------------------------------------------------

/// Ratio of a row of SampleGears in thousandths: 500, 550, 600 and so on.
inline int SampleThousandths(int row)
{
  return 500 + 50 * row;
}
inline std::string ThousandthsText(int thousandths)
{
  const auto text = std::to_string(thousandths % 1000 + 1000).substr(1);
  return std::to_string(thousandths / 1000) + "." + text;
}

inline data::GearData SampleGears()
{
  data::GearData gears;
  for (int row = 0; row < data::kGearRows; ++row)
    gears.SetRow(row, {"gear", std::to_string(row), ThousandthsText(SampleThousandths(row))});
  return gears;
}

/// 53 rows; the lists start at gear row 70, 30 degrees, 40 degrees and 1 plate.
inline data::SetupData SampleData()
{
  data::SetupData data;
  data.SetupDataValues.resize(53);
  data.SetupDataText.assign(53, {"row", "0", "0", "89", "1", "1"});
  data.SetupDataText[13] = {"final drive", "70", "76", "89", "1", "1"};
  data.SetupDataText[14] = {"coast", "30", "45", "85", "5", "5"};
  data.SetupDataText[15] = {"power", "40", "60", "85", "5", "5"};
  data.SetupDataText[46] = {"clutches", "1", "3", "5", "1", "1"};
  return data;
}

/// A table in which every slot's current value is its number and a half.
inline data::SetupData NumberedData()
{
  auto data = SampleData();
  for (const auto& fact : kFacts) data.Current(fact.row) = static_cast<float>(fact.slot) + 0.5F;
  return data;
}

/// A setup of `size` bytes with the magic, every other byte different from its neighbours, and
/// gears that agree with SampleGears: gear k has row 10 + k, the final drive row 76.
inline setup::Bytes SampleSetup(std::size_t size)
{
  setup::Bytes bytes(size < 272 ? 272 : size);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::byte>(i * 37 + 11);
  const auto magic = BytesOf("PGTS");
  std::copy(magic.begin(), magic.end(), bytes.begin());
  for (const auto& fact : kFacts) {
    if (fact.whole)
      PutWhole(bytes, fact.offset, fact.slot + 1);
    else
      PutSingle(bytes, fact.offset, static_cast<float>(fact.slot) + 0.25F);
  }
  for (int pair = 0; pair < 7; ++pair) {
    const int row = pair == 6 ? 76 : 10 + pair;
    const auto ratio = static_cast<float>(SampleThousandths(row) / 1000.0);
    PutSingle(bytes, 20 + 4 * static_cast<std::size_t>(pair), ratio);
    PutWhole(bytes, 56 + 4 * static_cast<std::size_t>(pair), row);
  }
  bytes.resize(size);
  return bytes;
}

}  // namespace velquist::samples
