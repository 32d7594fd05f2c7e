// SPDX-License-Identifier: MIT
#include "platform/LetterCase.h"

#include <algorithm>
#include <array>

namespace velquist::platform {
namespace {

/// Capitals from `first` to `last` whose small letters lie `distance` higher; `every_other` where
/// capital and small letter alternate.
struct Capitals {
  unsigned first;
  unsigned last;
  unsigned distance;
  bool every_other;
};

// clang-format off
constexpr std::array<Capitals, 22> kCapitals = {{
    {0x00C0, 0x00D6, 32, false},  // Latin-1
    {0x00D8, 0x00DE, 32, false},
    {0x0100, 0x012E, 1, true},    // Latin Extended-A, but for the Turkish i
    {0x0132, 0x0136, 1, true},
    {0x0139, 0x0147, 1, true},
    {0x014A, 0x0176, 1, true},
    {0x0179, 0x017D, 1, true},
    {0x01CD, 0x01DB, 1, true},    // Latin Extended-B
    {0x01DE, 0x01EE, 1, true},
    {0x01F8, 0x021E, 1, true},
    {0x0222, 0x0232, 1, true},
    {0x0386, 0x0386, 38, false},  // Greek
    {0x0388, 0x038A, 37, false},
    {0x038C, 0x038C, 64, false},
    {0x038E, 0x038F, 63, false},
    {0x0391, 0x03AB, 32, false},
    {0x0400, 0x040F, 80, false},  // Cyrillic
    {0x0410, 0x042F, 32, false},
    {0x0460, 0x0480, 1, true},
    {0x048A, 0x04BE, 1, true},
    {0x04C1, 0x04CD, 1, true},
    {0x04D0, 0x052E, 1, true},
}};
// clang-format on

constexpr unsigned kAsciiEnd = 0x80;  // most names are nothing else: those need no table

unsigned Small(unsigned letter)
{
  if (letter < kAsciiEnd) return letter >= 'A' && letter <= 'Z' ? letter + 32 : letter;
  constexpr unsigned kCapitalYDiaeresis = 0x0178;  // the one whose small letter lies below it
  if (letter == kCapitalYDiaeresis) return 0x00FF;
  for (const auto& range : kCapitals)
    if (letter >= range.first && letter <= range.last &&
        !(range.every_other && (letter - range.first) % 2 != 0))
      return letter + range.distance;
  return letter;
}

unsigned Capital(unsigned letter)
{
  if (letter < kAsciiEnd) return letter >= 'a' && letter <= 'z' ? letter - 32 : letter;
  constexpr unsigned kSmallYDiaeresis = 0x00FF;
  if (letter == kSmallYDiaeresis) return 0x0178;
  for (const auto& range : kCapitals)
    if (letter >= range.first + range.distance && letter <= range.last + range.distance &&
        !(range.every_other && (letter - range.distance - range.first) % 2 != 0))
      return letter - range.distance;
  return letter;
}

/// `text` with each letter of ASCII and each that takes two bytes made another one that takes as
/// many.
std::string EachLetter(std::string_view text, unsigned (*other)(unsigned letter))
{
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    if (lead < kAsciiEnd) {
      result += static_cast<char>(other(lead));
      continue;
    }
    // All letters of the table that are not ASCII take two bytes.
    const bool pair = lead >= 0xC2 && lead < 0xE0 && i + 1 < text.size() &&
                      (static_cast<unsigned char>(text[i + 1]) & 0xC0U) == 0x80;
    if (!pair) {
      result += text[i];
      continue;
    }
    const unsigned letter =
        other((lead & 0x1FU) << 6 | (static_cast<unsigned char>(text[++i]) & 0x3FU));
    result += static_cast<char>(0xC0U | letter >> 6);
    result += static_cast<char>(0x80U | (letter & 0x3FU));
  }
  return result;
}

}  // namespace

std::string FoldCase(std::string_view text)
{
  return EachLetter(text, Small);
}

int CompareNames(std::string_view a, std::string_view b)
{
  const auto length = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < length; ++i) {
    const unsigned x = static_cast<unsigned char>(a[i]);
    const unsigned y = static_cast<unsigned char>(b[i]);
    if (x >= kAsciiEnd || y >= kAsciiEnd)
      return EachLetter(a.substr(i), Capital).compare(EachLetter(b.substr(i), Capital));
    if (x != y && Capital(x) != Capital(y)) return Capital(x) < Capital(y) ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

}  // namespace velquist::platform
