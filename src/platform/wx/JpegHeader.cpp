// SPDX-License-Identifier: MIT
#include "platform/wx/JpegHeader.h"

namespace velquist::platform {
namespace {

constexpr unsigned kMarker = 0xFF;
constexpr unsigned kStartOfImage = 0xD8;
constexpr unsigned kEndOfImage = 0xD9;
constexpr unsigned kStartOfScan = 0xDA;

unsigned Byte(std::span<const std::byte> bytes, std::size_t at) noexcept
{
  return std::to_integer<unsigned>(bytes[at]);
}

unsigned Word(std::span<const std::byte> bytes, std::size_t at) noexcept
{
  return Byte(bytes, at) << 8U | Byte(bytes, at + 1);
}

/// Markers without a length behind them: TEM and the restart markers.
bool StandsAlone(unsigned marker) noexcept
{
  return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
}

/// SOF0 to SOF15; C4, C8 and CC of that range mean other things.
bool IsFrameHeader(unsigned marker) noexcept
{
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

}  // namespace

PictureLoader::Size JpegSize(std::span<const std::byte> bytes) noexcept
{
  if (bytes.size() < 4 || Word(bytes, 0) != (kMarker << 8U | kStartOfImage)) return {};
  std::size_t at = 2;
  while (at + 4 <= bytes.size()) {
    if (Byte(bytes, at) != kMarker) return {};
    const unsigned marker = Byte(bytes, at + 1);
    if (marker == kMarker) {  // fill byte
      ++at;
      continue;
    }
    if (StandsAlone(marker)) {
      at += 2;
      continue;
    }
    if (marker == kStartOfScan || marker == kEndOfImage) return {};
    if (IsFrameHeader(marker)) {
      // length, precision, height, width
      if (at + 9 > bytes.size()) return {};
      return {static_cast<int>(Word(bytes, at + 7)), static_cast<int>(Word(bytes, at + 5))};
    }
    const unsigned length = Word(bytes, at + 2);
    if (length < 2) return {};
    at += 2 + length;
  }
  return {};
}

PictureLoader::Size ShowableJpegSize(std::span<const std::byte> bytes) noexcept
{
  const auto size = JpegSize(bytes);
  const long long pixels = static_cast<long long>(size.width) * size.height;
  return pixels > 0 && pixels <= kMostPixels ? size : PictureLoader::Size{};
}

}  // namespace velquist::platform
