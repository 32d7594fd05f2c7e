// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

#include "charts/PlotXy.h"
#include "platform/PictureSurface.h"

namespace velquist::charts {

/// How a legend shows what an entry's text stands for.
enum class Sample {
  kNone,
  kBox,     ///< a filled box
  kStroke,  ///< a line of the entry's thickness
};

struct LegendEntry {
  std::string_view text;
  Sample sample = Sample::kNone;
  platform::Colour colour;
  double length = 0;     ///< of the sample, in letter heights
  double thickness = 0;  ///< of the sample, in letter heights; at least one pixel
};

struct LegendPlace {
  double left = 0;
  double right = 0;
  double middle = 0;  ///< height that the capitals stand around
  double largest_letters = kLargestLetters;
  bool centred = false;  ///< between left and right, else it begins at the left
};

/// Draws `entries` side by side, in the largest letters that fit. Entries that would make them
/// uncomfortably small are left out from the end, but for the first `kept`.
void DrawLegend(platform::PictureSurface& surface, std::span<const LegendEntry> entries,
                std::size_t kept, const LegendPlace& place);

}  // namespace velquist::charts
