// SPDX-License-Identifier: MIT
#include "platform/ShippedFiles.h"

#include <array>

namespace velquist::platform {
namespace {

// Lines are added when a data file changes, and never taken away: whoever skips a version has
// copies of an older one.
// clang-format off
constexpr std::array<ShippedFile, 34> kShipped = {{
    // 1.0.0
    {"65 Gear Data.ini",                 0x1D499AD3807651FA},
    {"65 Setup Data.ini",                0xD954A4446AC1651B},
    {"65 Velquist Default.vqset",        0xD8793436342F7133},
    {"66 Velquist Default.vqset",        0x865196156E4CBDE2},
    {"67 Gear Data.ini",                 0x62CBAF941A22072F},
    {"67 Setup Data.ini",                0x2B9BFA2E3E790041},
    {"67 Velquist Default.vqset",        0x7A7C09C490DACBAF},
    {"69 Velquist Default.vqset",        0x6B8D0D2A224F2883},
    {"GT Setup Data.ini",                0xDB6306AB98D489D8},
    {"GT Velquist Default.vqset",        0x5F327D89AC1BD4F6},
    {"Metric/65 Setup Data.ini",         0xB05C80C097FFA23C},
    {"Metric/65 Velquist Default.vqset", 0x27FA5A30F6C79BF0},
    {"Metric/66 Velquist Default.vqset", 0x4A5E2C63B6A60BC1},
    {"Metric/67 Setup Data.ini",         0xBE3C28AFD00CBC58},
    {"Metric/67 Velquist Default.vqset", 0x104DBDD5902464B3},
    {"Metric/69 Velquist Default.vqset", 0x5398219904778140},
    {"Metric/GT Setup Data.ini",         0x1E94D1CF15EA1DA8},
    {"Metric/GT Velquist Default.vqset", 0x3E38EC9A3FF90096},
    // not released yet
    {"65 Setup Data.ini",                0xF6B41253E2BFFC9C},
    {"65 Velquist Default.vqset",        0x5CFDFC439CF8AEE5},
    {"66 Velquist Default.vqset",        0x79B86D3321787889},
    {"67 Setup Data.ini",                0xE8510909DE6FF4CF},
    {"67 Velquist Default.vqset",        0x1992CD2B3DD6CBB0},
    {"69 Velquist Default.vqset",        0x330AD1AA944EB949},
    {"GT Setup Data.ini",                0x10108E3F51D1CE3F},
    {"GT Velquist Default.vqset",        0x01E56609C834E0A8},
    {"Metric/65 Setup Data.ini",         0x2DAAEF658871FCF3},
    {"Metric/65 Velquist Default.vqset", 0x885511DD32F4C3C2},
    {"Metric/66 Velquist Default.vqset", 0xBF6CC5D1E3288AE6},
    {"Metric/67 Setup Data.ini",         0x40614B8AF6E2B362},
    {"Metric/67 Velquist Default.vqset", 0x18C0D6248E788788},
    {"Metric/69 Velquist Default.vqset", 0x94DCF05DFB4E93DF},
    {"Metric/GT Setup Data.ini",         0x2020A4D73EF4D60F},
    {"Metric/GT Velquist Default.vqset", 0xBF441D493C5DC91C},
}};
// clang-format on

}  // namespace

std::uint64_t SumOf(std::span<const std::byte> bytes) noexcept
{
  std::uint64_t sum = 0xCBF29CE484222325;
  for (const auto byte : bytes) sum = (sum ^ std::to_integer<std::uint64_t>(byte)) * 0x100000001B3;
  return sum;
}

std::span<const ShippedFile> ShippedFiles() noexcept
{
  return kShipped;
}

}  // namespace velquist::platform
