// SPDX-License-Identifier: MIT
#include "data/Numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "platform/Errors.h"

namespace velquist::data {
namespace {

bool IsDigit(char c) noexcept
{
  return c >= '0' && c <= '9';
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
  if (error == std::errc::result_out_of_range) {
    // Too large or too small for a double: the sign of the exponent tells which.
    const auto number = text.substr(0, static_cast<std::size_t>(end - text.data()));
    value = number.find("e-") == std::string_view::npos && number.find("E-") == number.npos
                ? std::numeric_limits<double>::infinity()
                : 0.0;
  }
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
