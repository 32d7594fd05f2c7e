// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velquist::data {

/// The number at the start of a text: leading blanks, an optional sign, digits, a "." as decimal
/// point whatever the locale, an optional exponent, up to the first other character. No number
/// gives 0.
[[nodiscard]] double LeadingNumber(std::string_view text) noexcept;

/// Nearest whole number, ties to the even one. Throws BoundsError when it does not fit, also for
/// NaN.
[[nodiscard]] std::int16_t ToInt16(double value);
[[nodiscard]] std::int32_t ToInt32(double value);

/// Lines of a text file, ended by CR LF, LF or CR; a last line may lack its end.
[[nodiscard]] std::vector<std::string_view> SplitLines(std::string_view text);

/// Cuts `line` at its commas into the fields of `fields`. A line with fewer fields repeats its
/// last one, further ones are left out.
template <class Fields>
void SplitFields(std::string_view line, Fields& fields)
{
  for (auto& field : fields) {
    const auto comma = line.find(',');
    field = std::string(line.substr(0, comma));
    if (comma != std::string_view::npos) line.remove_prefix(comma + 1);
  }
}

}  // namespace velquist::data
