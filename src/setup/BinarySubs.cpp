// SPDX-License-Identifier: MIT
#include "setup/BinarySubs.h"

#include <bit>
#include <string>

#include "platform/Errors.h"

namespace velquist::setup {
namespace {

template <class Span>
auto FieldAt(Span buffer, std::size_t offset)
{
  if (buffer.size() < 4 || offset > buffer.size() - 4)
    throw BoundsError("setup buffer offset " + std::to_string(offset));
  return buffer.subspan(offset, 4);
}

}  // namespace

std::int32_t ReadLongAt(std::span<const std::byte> SetupBuffer, std::size_t offset)
{
  const auto field = FieldAt(SetupBuffer, offset);
  std::uint32_t bits = 0;
  for (std::size_t i = 4; i-- > 0;) bits = bits << 8 | std::to_integer<std::uint32_t>(field[i]);
  return static_cast<std::int32_t>(bits);
}

float ReadSingleAt(std::span<const std::byte> SetupBuffer, std::size_t offset)
{
  return std::bit_cast<float>(ReadLongAt(SetupBuffer, offset));
}

void WriteLongAt(std::span<std::byte> SetupBuffer, std::int32_t value, std::size_t offset)
{
  const auto field = FieldAt(SetupBuffer, offset);
  auto bits = static_cast<std::uint32_t>(value);
  for (auto& byte : field) {
    byte = static_cast<std::byte>(bits & 0xFFU);
    bits >>= 8;
  }
}

void WriteSingleAt(std::span<std::byte> SetupBuffer, float value, std::size_t offset)
{
  WriteLongAt(SetupBuffer, std::bit_cast<std::int32_t>(value), offset);
}

}  // namespace velquist::setup
