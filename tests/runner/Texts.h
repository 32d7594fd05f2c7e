// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// How the runner reads and writes numbers, bytes and texts.
namespace velquist::runner {

/// All of `text` as a whole number; nothing when it is none.
[[nodiscard]] std::optional<long long> ParseWhole(std::string_view text);

/// All of `text` as the nearest double.
[[nodiscard]] std::optional<double> ParseDouble(std::string_view text);

/// All of `text` as the nearest single; "nan", "inf" and "-inf" are numbers too.
[[nodiscard]] std::optional<float> ParseSingle(std::string_view text);

/// Pairs of hexadecimal digits, blanks between them ignored.
[[nodiscard]] std::optional<std::vector<std::byte>> ParseHex(std::string_view text);

/// The eight hexadecimal digits of a single's bits.
[[nodiscard]] std::string Hex8(float value);

/// "50 47 54 53".
[[nodiscard]] std::string HexBytes(std::span<const std::byte> bytes);

/// The shortest text that reads back as `value`.
[[nodiscard]] std::string Shortest(double value);

/// The same without an exponent, and never "-0".
[[nodiscard]] std::string Decimal(double value);

/// `text` in double quotes, escaped as a script writes it.
[[nodiscard]] std::string Quoted(std::string_view text);

/// `text` with the separators of every path that begins with `base` turned into `separator`.
/// `base` is found with either separator. A path ends where no file name goes on: at a control
/// character or one of " < > | :
[[nodiscard]] std::string WithSeparators(std::string_view text, std::string_view base,
                                         char separator);

}  // namespace velquist::runner
