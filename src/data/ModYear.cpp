// SPDX-License-Identifier: MIT
#include "data/ModYear.h"

#include <algorithm>

namespace velquist::data {

std::optional<ModYear> ModYearOfNumber(int number) noexcept
{
  if (number < 0 || static_cast<std::size_t>(number) >= kModYearCount) return std::nullopt;
  return static_cast<ModYear>(number);
}

std::string_view ModYearText(ModYear ModYearIndex) noexcept
{
  switch (ModYearIndex) {
    case ModYear::k1967: return "1967";
    case ModYear::k1965: return "1965";
    case ModYear::k1966: return "1966";
    case ModYear::k1969: return "1969";
    case ModYear::kGT: return "GT";
  }
  return {};
}

std::optional<ModYear> ModYearOfText(std::string_view text) noexcept
{
  const auto* const found = std::ranges::find(kModYears, text, ModYearText);
  if (found == kModYears.end()) return std::nullopt;
  return *found;
}

}  // namespace velquist::data
