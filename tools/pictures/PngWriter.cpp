// SPDX-License-Identifier: MIT
#include "PngWriter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <string_view>

namespace velquist::pictures {
namespace {

using Bytes = std::vector<std::uint8_t>;

void PutBig(Bytes& bytes, std::uint32_t value)
{
  for (const unsigned shift : {24U, 16U, 8U, 0U}) {
    bytes.push_back(static_cast<std::uint8_t>(value >> shift));
  }
}

std::uint32_t Crc(const Bytes& bytes, std::size_t from)
{
  std::uint32_t crc = 0xFFFFFFFFU;
  for (std::size_t i = from; i < bytes.size(); ++i) {
    crc ^= bytes[i];
    for (int bit = 0; bit < 8; ++bit) {
      crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
  }
  return ~crc;
}

void PutChunk(Bytes& file, std::string_view type, const Bytes& data)
{
  PutBig(file, static_cast<std::uint32_t>(data.size()));
  const std::size_t start = file.size();
  file.insert(file.end(), type.begin(), type.end());
  file.insert(file.end(), data.begin(), data.end());
  PutBig(file, Crc(file, start));
}

/// Deflate with one block of fixed codes and a greedy search over hash chains.
class Deflater {
 public:
  Bytes Pack(const Bytes& data)
  {
    constexpr std::size_t kWindow = 32768;
    constexpr std::size_t kShortest = 3;
    constexpr std::size_t kLongest = 258;
    constexpr int kTries = 128;
    std::vector<std::ptrdiff_t> heads(1U << 15U, -1);
    std::vector<std::ptrdiff_t> before(data.size(), -1);
    const auto hash = [&](std::size_t i) {
      return ((static_cast<std::size_t>(data[i]) << 10U) ^
              (static_cast<std::size_t>(data[i + 1]) << 5U) ^ data[i + 2]) &
             0x7FFFU;
    };
    const auto remember = [&](std::size_t i) {
      if (i + kShortest <= data.size()) {
        before[i] = heads[hash(i)];
        heads[hash(i)] = static_cast<std::ptrdiff_t>(i);
      }
    };

    Bits(1, 1);
    Bits(1, 2);
    for (std::size_t i = 0; i < data.size();) {
      std::size_t best = 0;
      std::size_t distance = 0;
      if (i + kShortest <= data.size()) {
        const std::size_t limit = std::min(kLongest, data.size() - i);
        std::ptrdiff_t at = heads[hash(i)];
        for (int tries = 0; at >= 0 && tries < kTries; ++tries) {
          const auto from = static_cast<std::size_t>(at);
          if (i - from > kWindow) {
            break;
          }
          std::size_t length = 0;
          while (length < limit && data[from + length] == data[i + length]) {
            ++length;
          }
          if (length > best) {
            best = length;
            distance = i - from;
          }
          at = before[from];
        }
      }
      const std::size_t step = best >= kShortest ? best : 1;
      if (best >= kShortest) {
        Match(best, distance);
      } else {
        Symbol(data[i]);
      }
      for (std::size_t k = 0; k < step; ++k) {
        remember(i + k);
      }
      i += step;
    }
    Symbol(256);
    Bits(0, 7);  // fills the last byte
    return packed_;
  }

 private:
  void Bits(std::uint32_t value, int count)
  {
    for (int i = 0; i < count; ++i) {
      hold_ |= ((value >> static_cast<unsigned>(i)) & 1U) << static_cast<unsigned>(held_);
      if (++held_ == 8) {
        packed_.push_back(static_cast<std::uint8_t>(hold_));
        hold_ = 0;
        held_ = 0;
      }
    }
  }

  /// Codes are stored from their highest bit.
  void Code(std::uint32_t value, int count)
  {
    for (int i = count; i-- > 0;) {
      Bits((value >> static_cast<unsigned>(i)) & 1U, 1);
    }
  }

  void Symbol(std::uint32_t symbol)
  {
    if (symbol < 144) {
      Code(0x30 + symbol, 8);
    } else if (symbol < 256) {
      Code(0x190 + symbol - 144, 9);
    } else if (symbol < 280) {
      Code(symbol - 256, 7);
    } else {
      Code(0xC0 + symbol - 280, 8);
    }
  }

  void Match(std::size_t length, std::size_t distance)
  {
    constexpr std::array<std::uint32_t, 29> kLengths{3,  4,  5,  6,   7,   8,   9,   10,  11, 13,
                                                     15, 17, 19, 23,  27,  31,  35,  43,  51, 59,
                                                     67, 83, 99, 115, 131, 163, 195, 227, 258};
    constexpr std::array<int, 29> kLengthBits{0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                              2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
    constexpr std::array<std::uint32_t, 30> kDistances{
        1,   2,   3,   4,   5,   7,    9,    13,   17,   25,   33,   49,   65,    97,    129,
        193, 257, 385, 513, 769, 1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
    std::size_t code = kLengths.size() - 1;
    while (kLengths[code] > length) {
      --code;
    }
    Symbol(static_cast<std::uint32_t>(257 + code));
    Bits(static_cast<std::uint32_t>(length) - kLengths[code], kLengthBits[code]);
    code = kDistances.size() - 1;
    while (kDistances[code] > distance) {
      --code;
    }
    Code(static_cast<std::uint32_t>(code), 5);
    Bits(static_cast<std::uint32_t>(distance) - kDistances[code],
         code < 4 ? 0 : static_cast<int>(code / 2) - 1);
  }

  Bytes packed_;
  std::uint32_t hold_ = 0;
  int held_ = 0;
};

Bytes Zlib(const Bytes& data)
{
  Bytes stream{0x78, 0x01};
  const Bytes packed = Deflater().Pack(data);
  stream.insert(stream.end(), packed.begin(), packed.end());
  std::uint32_t a = 1;
  std::uint32_t b = 0;
  for (const std::uint8_t byte : data) {
    a = (a + byte) % 65521;
    b = (b + a) % 65521;
  }
  PutBig(stream, b << 16U | a);
  return stream;
}

/// One row with its filter's number in front; of no filter, left, up and Paeth the one with the
/// smallest differences.
Bytes FilteredRow(const std::uint8_t* row, const std::uint8_t* above, std::size_t length)
{
  constexpr std::size_t kPixel = 4;
  Bytes best;
  long best_sum = 0;
  for (const int filter : {0, 1, 2, 4}) {
    Bytes bytes{static_cast<std::uint8_t>(filter)};
    long sum = 0;
    for (std::size_t i = 0; i < length; ++i) {
      const int left = i >= kPixel ? row[i - kPixel] : 0;
      const int up = above != nullptr ? above[i] : 0;
      const int corner = above != nullptr && i >= kPixel ? above[i - kPixel] : 0;
      int guess = 0;
      if (filter == 1) {
        guess = left;
      } else if (filter == 2) {
        guess = up;
      } else if (filter == 4) {
        const int to_left = std::abs(up - corner);
        const int to_up = std::abs(left - corner);
        const int to_corner = std::abs(left + up - 2 * corner);
        guess = to_left <= to_up && to_left <= to_corner ? left : to_up <= to_corner ? up : corner;
      }
      const auto difference = static_cast<std::uint8_t>(row[i] - guess);
      sum += difference < 128 ? difference : 256 - difference;
      bytes.push_back(difference);
    }
    if (best.empty() || sum < best_sum) {
      best = bytes;
      best_sum = sum;
    }
  }
  return best;
}

}  // namespace

std::vector<std::uint8_t> EncodePng(int width, int height, const std::vector<std::uint8_t>& rgba)
{
  Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  Bytes header;
  PutBig(header, static_cast<std::uint32_t>(width));
  PutBig(header, static_cast<std::uint32_t>(height));
  header.insert(header.end(), {8, 6, 0, 0, 0});  // 8 bits, RGBA, deflate, no interlacing
  PutChunk(file, "IHDR", header);
  Bytes rows;
  const std::size_t length = static_cast<std::size_t>(width) * 4;
  for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
    const std::uint8_t* const row = &rgba[y * length];
    const Bytes filtered = FilteredRow(row, y > 0 ? row - length : nullptr, length);
    rows.insert(rows.end(), filtered.begin(), filtered.end());
  }
  PutChunk(file, "IDAT", Zlib(rows));
  PutChunk(file, "IEND", {});
  return file;
}

}  // namespace velquist::pictures
