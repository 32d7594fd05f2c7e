// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

#include "app/MainForm.h"
#include "setup/SlotNames.h"

namespace velquist::app {

/// A text put together at compile time.
struct StepText {
  std::array<char, 40> letters{};
  std::size_t size = 0;

  constexpr void Append(std::string_view text)
  {
    for (const char letter : text) letters[size++] = letter;
  }
  // NOLINTNEXTLINE(google-explicit-constructor): it stands where a text does
  constexpr operator std::string_view() const { return {letters.data(), size}; }
};

/// What a slot's buttons do, in tool tips and for screen readers: `verb` before its name.
constexpr std::array<StepText, kSlotControls> StepTexts(std::string_view verb)
{
  std::array<StepText, kSlotControls> texts;
  for (std::size_t slot = 0; slot < texts.size(); ++slot) {
    texts[slot].Append(verb);
    texts[slot].Append(setup::SlotName(static_cast<int>(slot)));
  }
  return texts;
}

inline constexpr auto kDecreaseTexts = StepTexts("Decrease ");
inline constexpr auto kIncreaseTexts = StepTexts("Increase ");

}  // namespace velquist::app
