// SPDX-License-Identifier: MIT
#include "charts/Legend.h"

#include <algorithm>
#include <cmath>

namespace velquist::charts {
namespace {

constexpr double kComfortableLetters = 9;  ///< pixels

// Letter heights.
constexpr double kBehindSample = 0.4;
constexpr double kBetweenEntries = 1;

/// Of one entry, with the surface's letters of that height.
double EntryWidth(const platform::PictureSurface& surface, const LegendEntry& entry, double letters)
{
  const double sample =
      entry.sample == Sample::kNone ? 0 : (entry.length + kBehindSample) * letters;
  return sample + surface.Extent(entry.text).width;
}

double TotalWidth(const platform::PictureSurface& surface, std::span<const LegendEntry> entries,
                  double letters)
{
  double width = 0;
  for (const auto& entry : entries)
    width += EntryWidth(surface, entry, letters) + kBetweenEntries * letters;
  return width - kBetweenEntries * letters;
}

void DrawSample(platform::PictureSurface& surface, const LegendEntry& entry, double left,
                double middle, double letters)
{
  const double length = std::round(entry.length * letters);
  const double thickness = std::max(std::round(entry.thickness * letters), 1.0);
  const double centre = std::round(middle);
  if (entry.sample == Sample::kStroke) {
    surface.Line(left, centre, left + length, centre, entry.colour, thickness,
                 platform::LineStyle::kSolid);
  } else if (entry.sample == Sample::kBox) {
    const double top = centre - std::floor((thickness - 1) / 2);
    surface.Box(left, top, left + length - 1, top + thickness - 1, entry.colour, entry.colour);
  }
}

}  // namespace

void DrawLegend(platform::PictureSurface& surface, std::span<const LegendEntry> entries,
                std::size_t kept, const LegendPlace& place)
{
  const double room = place.right - place.left;
  surface.SetLetterHeight(place.largest_letters);
  const auto fitting = [&] {
    const double width = TotalWidth(surface, entries, place.largest_letters);
    return std::floor(place.largest_letters * std::min(room / width, 1.0));
  };
  while (entries.size() > kept && fitting() < kComfortableLetters)
    entries = entries.first(entries.size() - 1);
  const double letters = std::max(fitting(), 1.0);
  surface.SetLetterHeight(letters);

  double x = place.left;
  if (place.centred) x += std::max((room - TotalWidth(surface, entries, letters)) / 2, 0.0);
  for (const auto& entry : entries) {
    const auto extent = surface.Extent(entry.text);
    const double width = EntryWidth(surface, entry, letters);
    DrawSample(surface, entry, std::round(x), place.middle, letters);
    surface.Text(x + width - extent.width,
                 place.middle - (extent.capital_top + extent.baseline) / 2, entry.text);
    x += width + kBetweenEntries * letters;
  }
}

}  // namespace velquist::charts
