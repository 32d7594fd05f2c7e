// SPDX-License-Identifier: MIT
#include "data/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/Errors.h"

namespace velquist::data {
namespace {

bool IsDigit(char c) noexcept
{
  return c >= '0' && c <= '9';
}

/// What a number beyond the range of a double comes to: infinity or 0, by the power of ten of its
/// first digit that is not 0.
double TooLargeOrTooSmall(std::string_view number) noexcept
{
  const auto mantissa = number.substr(0, number.find_first_of("eE"));
  const auto point = std::min(mantissa.find('.'), mantissa.size());
  const auto first = std::min(mantissa.find_first_not_of("0."), mantissa.size());
  const auto places = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);

  auto exponent = number.substr(std::min(mantissa.size() + 1, number.size()));
  const bool negative = exponent.starts_with('-');
  if (negative || exponent.starts_with('+')) exponent.remove_prefix(1);
  constexpr std::int64_t kBeyondAnyText = std::int64_t{1} << 62;
  std::int64_t power = 0;
  const auto [end, error] =
      std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
  if (error == std::errc::result_out_of_range || power > kBeyondAnyText) power = kBeyondAnyText;
  return places + (negative ? -power : power) > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

template <class Whole>
Whole ToWhole(double value)
{
  const double nearest = std::nearbyint(value);
  if (!(nearest >= std::numeric_limits<Whole>::min() &&
        nearest <= std::numeric_limits<Whole>::max()))
    throw BoundsError("whole number out of range");
  return static_cast<Whole>(nearest);
}

}  // namespace

double LeadingNumber(std::string_view text) noexcept
{
  const auto start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  const bool negative = text.front() == '-';
  if (negative || text.front() == '+') text.remove_prefix(1);
  // from_chars also takes another sign, "inf" and "nan", which are no numbers here.
  if (text.empty() || !(IsDigit(text.front()) || text.front() == '.')) return 0;
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::invalid_argument) return 0;
  if (error == std::errc::result_out_of_range)
    value = TooLargeOrTooSmall(text.substr(0, static_cast<std::size_t>(end - text.data())));
  return negative ? -value : value;
}

std::int16_t ToInt16(double value)
{
  return ToWhole<std::int16_t>(value);
}

std::int32_t ToInt32(double value)
{
  return ToWhole<std::int32_t>(value);
}

std::vector<std::string_view> SplitLines(std::string_view text)
{
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const auto end = text.find_first_of("\r\n");
    lines.push_back(text.substr(0, end));
    if (end == std::string_view::npos) break;
    const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
    text.remove_prefix(end + (pair ? 2 : 1));
  }
  return lines;
}

}  // namespace velquist::data
