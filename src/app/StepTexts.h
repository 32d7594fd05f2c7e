// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

#include "app/MainForm.h"

namespace velquist::app {

/// How a slot's buttons are called in tool tips and for screen readers.
inline constexpr std::array<std::string_view, kSlotControls> kSlotNames = {
    "left front tire pressure",
    "right front tire pressure",
    "left rear tire pressure",
    "right rear tire pressure",
    "left front wheel rate",
    "right front wheel rate",
    "left rear wheel rate",
    "right rear wheel rate",
    "left front bump",
    "right front bump",
    "left rear bump",
    "right rear bump",
    "left front rebound",
    "right front rebound",
    "left rear rebound",
    "right rear rebound",
    "left front camber",
    "right front camber",
    "left rear camber",
    "right rear camber",
    "left front bump rubber",
    "right front bump rubber",
    "left rear bump rubber",
    "right rear bump rubber",
    "front toe in",
    "rear toe in",
    "front roll bar stiffness",
    "rear roll bar stiffness",
    "front static ride height",
    "rear static ride height",
    "fuel level",
    "steering ratio",
    "front brake bias",
    "front wing",
    "rear wing",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "1st gear",
    "2nd gear",
    "3rd gear",
    "4th gear",
    "5th gear",
    "6th gear",
    "",
    "",
    "",
    "",
};

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

/// `verb` before the name of every slot.
constexpr std::array<StepText, kSlotControls> StepTexts(std::string_view verb)
{
  std::array<StepText, kSlotControls> texts;
  for (std::size_t slot = 0; slot < texts.size(); ++slot) {
    texts[slot].Append(verb);
    texts[slot].Append(kSlotNames[slot]);
  }
  return texts;
}

inline constexpr auto kDecreaseTexts = StepTexts("Decrease ");
inline constexpr auto kIncreaseTexts = StepTexts("Increase ");

}  // namespace velquist::app
