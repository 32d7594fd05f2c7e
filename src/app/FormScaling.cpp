// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "app/FormControlSettings.h"

namespace velquist::app {
namespace {

/// Pixels; smaller letters cannot be read on any screen.
constexpr int kSmallestLetters = 9;

int Scaled(int value, float factor)
{
  return static_cast<int>(std::lround(static_cast<float>(value) * factor));
}

}  // namespace

Scale ScaleFor(int screen_width, int screen_height) noexcept
{
  return {static_cast<float>(screen_width) / kDesignScreenWidth,
          static_cast<float>(screen_height) / kDesignScreenHeight};
}

void ScaleControls(MainForm& form, Scale scale)
{
  for (const auto& design : FormControlSettings()) {
    Control& control = design.In(form);
    // Both edges are rounded, so that neighbours that touch in the design touch here.
    const auto& place = design.place;
    control.place.left = Scaled(place.left, scale.fx);
    control.place.top = Scaled(place.top, scale.fy);
    control.place.width = Scaled(place.left + place.width, scale.fx) - control.place.left;
    control.place.height = Scaled(place.top + place.height, scale.fy) - control.place.top;
    control.font_size =
        std::max(kSmallestLetters, Scaled(design.font_size, std::min(scale.fx, scale.fy)));
  }
}

}  // namespace velquist::app
