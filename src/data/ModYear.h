// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace velquist::data {

/// The mod years; the order of every table by mod year. Saved in the settings file: never renumber.
/// A saved number that is none of these stays what it is: a mod year outside kModYears.
enum class ModYear : std::int16_t { k1967 = 0, k1965 = 1, k1966 = 2, k1969 = 3, kGT = 4 };

inline constexpr std::array kModYears = {ModYear::k1967, ModYear::k1965, ModYear::k1966,
                                         ModYear::k1969, ModYear::kGT};
inline constexpr std::size_t kModYearCount = kModYears.size();

/// The number as it is saved.
[[nodiscard]] constexpr std::int16_t NumberOf(ModYear ModYearIndex) noexcept
{
  return static_cast<std::int16_t>(ModYearIndex);
}

/// The mod year of a saved number; nothing outside 0 to 4.
[[nodiscard]] std::optional<ModYear> ModYearOfNumber(int number) noexcept;

/// "1967", "1965", "1966", "1969" or "GT"; empty outside kModYears.
[[nodiscard]] std::string_view ModYearText(ModYear ModYearIndex) noexcept;

/// The mod year of such a text.
[[nodiscard]] std::optional<ModYear> ModYearOfText(std::string_view text) noexcept;

}  // namespace velquist::data
