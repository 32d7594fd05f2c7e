// SPDX-License-Identifier: MIT
#include "charts/PictureRecorder.h"

#include <array>

namespace velquist::charts {
namespace {

/// Advance widths of Arial's characters 32 to 126, in 1/2048 of the letter height.
constexpr std::array<int, 95> kArialWidths = {
    569,  569,  727,  1139, 1139, 1821, 1366, 391,  682,  682,   // space to )
    797,  1196, 569,  682,  569,  569,  1139, 1139, 1139, 1139,  // * to 3
    1139, 1139, 1139, 1139, 1139, 1139, 569,  569,  1196, 1196,  // 4 to =
    1196, 1139, 2079, 1366, 1366, 1479, 1479, 1366, 1251, 1593,  // > to G
    1479, 569,  1024, 1366, 1139, 1706, 1479, 1593, 1366, 1593,  // H to Q
    1479, 1366, 1251, 1479, 1366, 1933, 1366, 1366, 1251, 569,   // R to [
    569,  569,  961,  1139, 682,  1139, 1139, 1024, 1139, 1139,  // \ to e
    569,  1139, 1139, 455,  455,  1024, 455,  1706, 1139, 1139,  // f to o
    1139, 1139, 682,  1024, 569,  1139, 1024, 1479, 1024, 1024,  // p to y
    1024, 684,  532,  684,  1196,                                // z to ~
};
constexpr double kUnitsPerEm = 2048;

// Of the letter height:
constexpr double kLineHeight = 1.15;
constexpr double kCapitalHeight = 0.716;

/// Of one byte of UTF-8 text. A character beyond ASCII counts with its first byte: letters of two
/// bytes as wide as most letters, symbols of three as wide as they are high.
int AdvanceWidth(char c)
{
  const auto byte = static_cast<unsigned char>(c);
  if (byte < ' ' || (byte & 0xC0U) == 0x80U) return 0;
  if (byte >= 0xE0U) return static_cast<int>(kUnitsPerEm);
  const auto at = static_cast<std::size_t>(byte - ' ');
  return at < kArialWidths.size() ? kArialWidths[at] : kArialWidths['n' - ' '];
}

}  // namespace

bool GoesOn(const Primitive& line, const Primitive& next)
{
  return next.kind == Primitive::Kind::kLine && next.x1 == line.x2 && next.y1 == line.y2 &&
         next.colour == line.colour && next.width == line.width && next.style == line.style;
}

void PictureRecorder::Resize(double width, double height)
{
  width_ = width;
  height_ = height;
  drawn_.clear();
  ++version_;
}

void PictureRecorder::Clear(platform::Colour background)
{
  background_ = background;
  drawn_.clear();
  ++version_;
}

void PictureRecorder::Line(double x1, double y1, double x2, double y2, platform::Colour colour,
                           double width, platform::LineStyle style)
{
  drawn_.push_back({.kind = Primitive::Kind::kLine,
                    .x1 = x1,
                    .y1 = y1,
                    .x2 = x2,
                    .y2 = y2,
                    .colour = colour,
                    .width = width,
                    .style = style,
                    .fill = {},
                    .text = {}});
}

void PictureRecorder::Box(double left, double top, double right, double bottom,
                          platform::Colour colour, std::optional<platform::Colour> fill)
{
  drawn_.push_back({.kind = Primitive::Kind::kBox,
                    .x1 = left,
                    .y1 = top,
                    .x2 = right,
                    .y2 = bottom,
                    .colour = colour,
                    .fill = fill,
                    .text = {}});
}

void PictureRecorder::Dot(double x, double y, platform::Colour colour)
{
  drawn_.push_back(
      {.kind = Primitive::Kind::kDot, .x1 = x, .y1 = y, .colour = colour, .fill = {}, .text = {}});
}

void PictureRecorder::Text(double x, double y, std::string_view text)
{
  const auto extent = Extent(text);
  drawn_.push_back({.kind = Primitive::Kind::kText,
                    .x1 = x,
                    .y1 = y,
                    .x2 = x + extent.width,
                    .y2 = y + extent.height,
                    .colour = {},
                    .fill = {},
                    .text = std::string(text),
                    .letter_height = letter_height_});
}

platform::TextExtent PictureRecorder::Extent(std::string_view text) const
{
  int units = 0;
  for (const char c : text) units += AdvanceWidth(c);
  return {units * letter_height_ / kUnitsPerEm, letter_height_ * kLineHeight,
          letter_height_ * (kBaseline - kCapitalHeight), letter_height_ * kBaseline};
}

}  // namespace velquist::charts
