// SPDX-License-Identifier: MIT
#include "platform/JpegHeader.h"

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

struct Segment {
  unsigned marker = kEndOfImage;
  std::size_t at = 0;  ///< of the marker
};

/// The first segment at or behind `at` that is a frame header, the start of the scan or the end;
/// the end also where the bytes are none of a JPEG.
Segment Find(std::span<const std::byte> bytes, std::size_t at) noexcept
{
  while (at + 4 <= bytes.size() && Byte(bytes, at) == kMarker) {
    const unsigned marker = Byte(bytes, at + 1);
    if (marker == kMarker) {  // fill byte
      ++at;
    } else if (StandsAlone(marker)) {
      at += 2;
    } else if (marker == kStartOfScan || marker == kEndOfImage || IsFrameHeader(marker)) {
      return {marker, at};
    } else {
      const unsigned length = Word(bytes, at + 2);
      if (length < 2) return {};
      at += 2 + length;
    }
  }
  return {};
}

}  // namespace

PictureLoader::Size JpegSize(std::span<const std::byte> bytes) noexcept
{
  if (bytes.size() < 4 || Word(bytes, 0) != (kMarker << 8U | kStartOfImage)) return {};
  const auto [marker, at] = Find(bytes, 2);
  // length, precision, height, width
  if (!IsFrameHeader(marker) || at + 9 > bytes.size()) return {};
  return {static_cast<int>(Word(bytes, at + 7)), static_cast<int>(Word(bytes, at + 5))};
}

bool IsCutShort(std::span<const std::byte> bytes) noexcept
{
  auto segment = Find(bytes, 2);
  if (IsFrameHeader(segment.marker))
    segment = Find(bytes, segment.at + 2 + Word(bytes, segment.at + 2));
  if (segment.marker != kStartOfScan) return true;
  // Within a scan a byte of all bits is never followed by this marker's number.
  for (std::size_t at = segment.at + 2; at + 2 <= bytes.size(); ++at)
    if (Byte(bytes, at) == kMarker && Byte(bytes, at + 1) == kEndOfImage) return false;
  return true;
}

int ScanCount(std::span<const std::byte> bytes) noexcept
{
  int scans = 0;
  const auto frame = Find(bytes, 2);
  // From the frame header on, markers of scans stand nowhere else.
  for (std::size_t at = frame.at + 2; at + 2 <= bytes.size(); ++at) {
    if (Byte(bytes, at) != kMarker) continue;
    const unsigned marker = Byte(bytes, at + 1);
    if (marker == kEndOfImage) break;
    if (marker == kStartOfScan) ++scans;
  }
  return scans;
}

PictureLoader::Size ShowableJpegSize(std::span<const std::byte> bytes) noexcept
{
  if (bytes.size() > kMostBytes) return {};
  const auto size = JpegSize(bytes);
  const long long pixels = static_cast<long long>(size.width) * size.height;
  if (pixels <= 0 || pixels > kMostPixels) return {};
  return pixels * ScanCount(bytes) <= kMostScannedPixels ? size : PictureLoader::Size{};
}

}  // namespace velquist::platform
