// SPDX-License-Identifier: MIT
#include "platform/TextEncoding.h"

#include <array>

namespace velquist::platform {
namespace {

// Windows-1252 is Latin-1 but for the bytes from 0x80 to 0x9F.
constexpr unsigned kFirst = 0x80;
constexpr std::array<unsigned, 32> kCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// How many bytes the character at the start of `text` takes; 0 when it is no UTF-8.
std::size_t LengthOfCharacter(std::string_view text)
{
  const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned lead = byte(0);
  if (lead < 0x80) return 1;
  const std::size_t length = lead < 0xC2   ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
  if (length == 0 || text.size() < length) return 0;
  for (std::size_t at = 1; at < length; ++at)
    if ((byte(at) & 0xC0U) != 0x80) return 0;
  // Too long a form, a half of a surrogate pair, beyond the last character.
  if ((lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) >= 0xA0) ||
      (lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) >= 0x90))
    return 0;
  return length;
}

bool IsUtf8(std::string_view text)
{
  while (!text.empty()) {
    const auto length = LengthOfCharacter(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

/// Appends a character below U+10000 that is not ASCII.
void Append(std::string& text, unsigned character)
{
  const auto tail = [](unsigned bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
  if (character < 0x800) {
    text += static_cast<char>(0xC0U | character >> 6U);
  } else {
    text += static_cast<char>(0xE0U | character >> 12U);
    text += tail(character >> 6U);
  }
  text += tail(character);
}

}  // namespace

std::string InUtf8(std::string_view text)
{
  if (IsUtf8(text)) return std::string(text);
  std::string result;
  result.reserve(text.size() * 2);
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < kFirst)
      result += c;
    else
      Append(result,
             byte < kFirst + kCharacters.size() ? kCharacters[byte - kFirst] : unsigned{byte});
  }
  return result;
}

std::string_view WithoutByteOrderMark(std::string_view text) noexcept
{
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
}

}  // namespace velquist::platform
