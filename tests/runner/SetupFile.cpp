// SPDX-License-Identifier: MIT
#include "runner/SetupFile.h"

#include <algorithm>
#include <bit>
#include <limits>

#include "runner/Texts.h"

namespace velquist::runner {
namespace {

constexpr std::size_t kShortSize = 264;
constexpr std::size_t kLongSize = 272;
constexpr std::size_t kSymmetryOffset = 260;
constexpr std::size_t kShortFiller = 261;
constexpr std::size_t kLongFiller = 269;

/// Slots whose fields lie one behind the other, four bytes each.
struct FieldGroup {
  int first_slot;
  int last_slot;
  std::size_t offset;
  bool whole;  ///< signed 32-bit integers, else singles
};

constexpr std::array<FieldGroup, 16> kFields = {{
    {0, 3, 92, false},     // tire pressure
    {4, 7, 108, false},    // wheel rate
    {8, 11, 124, true},    // bump
    {12, 15, 140, true},   // rebound
    {16, 19, 156, false},  // camber
    {20, 23, 204, false},  // bump rubber
    {24, 25, 220, false},  // toe in
    {26, 27, 228, false},  // roll bar
    {28, 29, 236, false},  // ride height
    {30, 31, 248, false},  // fuel, steering ratio
    {32, 32, 256, true},   // brake bias
    {33, 34, 261, false},  // wings
    {35, 41, 20, false},   // ratio numbers of the gears and the final drive
    {42, 48, 56, true},    // IDs of the gears and the final drive
    {49, 50, 84, false},   // coast angle, power angle
    {51, 51, 244, true},   // clutches
}};

const FieldGroup& GroupOf(int slot)
{
  return *std::ranges::find_if(kFields, [slot](const FieldGroup& group) {
    return slot >= group.first_slot && slot <= group.last_slot;
  });
}

std::size_t OffsetOf(int slot)
{
  const auto& group = GroupOf(slot);
  return group.offset + 4 * static_cast<std::size_t>(slot - group.first_slot);
}

void Put(std::vector<std::byte>& bytes, std::size_t offset, std::uint32_t bits)
{
  for (std::size_t i = 0; i < 4; ++i)
    bytes[offset + i] = static_cast<std::byte>(bits >> (8 * i) & 0xFFU);
}

}  // namespace

std::optional<std::uint32_t> SlotBits(int slot, std::string_view value)
{
  if (GroupOf(slot).whole) {
    const auto whole = ParseWhole(value);
    if (!whole || *whole < std::numeric_limits<std::int32_t>::min() ||
        *whole > std::numeric_limits<std::int32_t>::max())
      return std::nullopt;
    return static_cast<std::uint32_t>(*whole);
  }
  const auto single = ParseSingle(value);
  if (!single) return std::nullopt;
  return std::bit_cast<std::uint32_t>(*single);
}

std::vector<std::byte> MakeSetupFile(const SetupFile& setup)
{
  constexpr std::byte kBlank{' '};
  std::vector<std::byte> bytes(setup.long_layout ? kLongSize : kShortSize);
  Put(bytes, 0,
      std::uint32_t{'P'} | std::uint32_t{'G'} << 8U | std::uint32_t{'T'} << 16U |
          std::uint32_t{'S'} << 24U);
  bytes[4] = std::byte{setup.long_layout ? std::uint8_t{4} : std::uint8_t{3}};
  bytes[8] = std::byte{setup.long_layout ? std::uint8_t{1} : std::uint8_t{249}};
  bytes[9] = std::byte{setup.long_layout ? std::uint8_t{1} : std::uint8_t{0}};
  bytes[kSymmetryOffset] = std::byte{setup.symmetric};
  const auto filler = setup.long_layout ? kLongFiller : kShortFiller;
  std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(filler), bytes.end(), kBlank);
  for (int slot = 0; slot < kSetupSlots; ++slot) {
    const bool wing = slot >= kFirstWingSlot && slot <= kLastWingSlot;
    if (wing && !setup.long_layout) continue;
    const auto unless_given = wing ? std::bit_cast<std::uint32_t>(-1.0F) : 0U;
    Put(bytes, OffsetOf(slot), setup.slots[static_cast<std::size_t>(slot)].value_or(unless_given));
  }
  return bytes;
}

}  // namespace velquist::runner
