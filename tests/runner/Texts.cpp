// SPDX-License-Identifier: MIT
#include "runner/Texts.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <system_error>

#include "platform/Paths.h"

namespace velquist::runner {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

void AppendHex(std::string& text, std::uint8_t byte)
{
  text += kHexDigits[byte >> 4U];
  text += kHexDigits[byte & 15U];
}

std::optional<unsigned> HexDigit(char c)
{
  if (c >= 'A' && c <= 'F') c = static_cast<char>(c - 'A' + 'a');
  const auto at = kHexDigits.find(c);
  if (at == std::string_view::npos) return std::nullopt;
  return static_cast<unsigned>(at);
}

/// What std::from_chars makes of all of `text`; a value beyond the range is reported as such.
template <class Number>
std::errc ParseAll(std::string_view text, Number& value)
{
  const auto* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  if (result.ec == std::errc::invalid_argument || result.ptr != end)
    return std::errc::invalid_argument;
  return result.ec;
}

bool SameButForSeparators(std::string_view a, std::string_view b)
{
  return std::ranges::equal(a, b, [](char left, char right) {
    return left == right || (platform::IsSeparator(left) && platform::IsSeparator(right));
  });
}

bool EndsPath(char c)
{
  return static_cast<unsigned char>(c) < ' ' ||
         std::string_view("\"<>|:").find(c) != std::string_view::npos;
}

}  // namespace

std::optional<long long> ParseWhole(std::string_view text)
{
  long long value = 0;
  if (ParseAll(text, value) != std::errc{}) return std::nullopt;
  return value;
}

std::optional<double> ParseDouble(std::string_view text)
{
  double value = 0;
  if (ParseAll(text, value) != std::errc{}) return std::nullopt;
  return value;
}

std::optional<float> ParseSingle(std::string_view text)
{
  float value = 0;
  const auto error = ParseAll(text, value);
  if (error == std::errc{}) return value;
  if (error != std::errc::result_out_of_range) return std::nullopt;
  // Too large for a single or too small: the double says which.
  const auto wide = ParseDouble(text);
  if (!wide) return std::nullopt;
  return static_cast<float>(*wide);
}

std::optional<std::vector<std::byte>> ParseHex(std::string_view text)
{
  std::vector<std::byte> bytes;
  std::optional<unsigned> high;
  for (const char c : text) {
    if (c == ' ' || c == '\t') continue;
    const auto digit = HexDigit(c);
    if (!digit) return std::nullopt;
    if (high) {
      bytes.push_back(static_cast<std::byte>(*high * 16U + *digit));
      high.reset();
    } else {
      high = digit;
    }
  }
  if (high) return std::nullopt;
  return bytes;
}

std::string Hex8(float value)
{
  const auto bits = std::bit_cast<std::uint32_t>(value);
  std::string text;
  for (unsigned shift = 32; shift > 0;) {
    shift -= 8;
    AppendHex(text, static_cast<std::uint8_t>(bits >> shift));
  }
  return text;
}

std::string HexBytes(std::span<const std::byte> bytes)
{
  std::string text;
  for (const std::byte byte : bytes) {
    if (!text.empty()) text += ' ';
    AppendHex(text, std::to_integer<std::uint8_t>(byte));
  }
  return text;
}

std::string Shortest(double value)
{
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return {text.data(), end};
}

std::string Decimal(double value)
{
  // Room for the 309 digits of the largest double, or as many zeros before those of the smallest.
  std::array<char, 1100> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value == 0 ? 0.0 : value,
                                 std::chars_format::fixed)
                       .ptr;
  return {text.data(), end};
}

std::string Quoted(std::string_view text)
{
  std::string quoted = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      quoted += '\\';
      quoted += c;
    } else if (c == '\r') {
      quoted += "\\r";
    } else if (c == '\n') {
      quoted += "\\n";
    } else if (c == '\t') {
      quoted += "\\t";
    } else if (byte < 0x20 || byte == 0x7f) {
      quoted += "\\x";
      AppendHex(quoted, byte);
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

std::string WithSeparators(std::string_view text, std::string_view base, char separator)
{
  std::string result(text);
  for (std::size_t at = 0; at + base.size() <= result.size();) {
    if (base.empty() || !SameButForSeparators(text.substr(at, base.size()), base)) {
      ++at;
      continue;
    }
    const std::size_t behind = at + base.size();
    for (; at < result.size() && (at < behind || !EndsPath(result[at])); ++at)
      if (platform::IsSeparator(result[at])) result[at] = separator;
  }
  return result;
}

}  // namespace velquist::runner
