// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velquist::platform {

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  friend bool operator==(const Colour&, const Colour&) = default;
};

enum class LineStyle { kSolid, kDotted };

struct TextExtent {
  double width = 0;
  double height = 0;       ///< of the line
  double capital_top = 0;  ///< from the top of the line to the top of capitals and digits
  double baseline = 0;     ///< from the top of the line to what they stand on
};

/// A picture box to draw in. Coordinates are pixels from the top left corner and may be fractions.
class PictureSurface {
 public:
  virtual ~PictureSurface() = default;

  [[nodiscard]] virtual double Width() const = 0;
  [[nodiscard]] virtual double Height() const = 0;

  /// Drops all that was drawn and fills the box with `background`.
  virtual void Clear(Colour background) = 0;
  virtual void Line(double x1, double y1, double x2, double y2, Colour colour, double width,
                    LineStyle style) = 0;
  /// A frame in `colour`, filled with `fill` when there is one.
  virtual void Box(double left, double top, double right, double bottom, Colour colour,
                   std::optional<Colour> fill) = 0;
  virtual void Dot(double x, double y, Colour colour) = 0;
  /// Letter height of the texts measured and drawn from now on, pixels.
  virtual void SetLetterHeight(double pixels) = 0;
  /// Text with its top left corner at (x, y).
  virtual void Text(double x, double y, std::string_view text) = 0;
  [[nodiscard]] virtual TextExtent Extent(std::string_view text) const = 0;
};

}  // namespace velquist::platform
