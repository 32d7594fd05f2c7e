// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/PictureSurface.h"

namespace velquist::text_export {

/// `text` as the content of an element or attribute. What is no UTF-8 is taken as Windows-1252,
/// what no such document may hold is replaced.
[[nodiscard]] std::string Escaped(std::string_view text);

/// A picture as an SVG element of a page. Texts are measured as in Helvetica, which other
/// sans-serif faces of print hardly differ from.
class SvgSurface final : public platform::PictureSurface {
 public:
  SvgSurface(double width, double height) : width_(width), height_(height) {}

  [[nodiscard]] double Width() const override { return width_; }
  [[nodiscard]] double Height() const override { return height_; }
  void Clear(platform::Colour background) override;
  void Line(double x1, double y1, double x2, double y2, platform::Colour colour, double width,
            platform::LineStyle style) override;
  void Box(double left, double top, double right, double bottom, platform::Colour colour,
           std::optional<platform::Colour> fill) override;
  void Dot(double x, double y, platform::Colour colour) override;
  void SetLetterHeight(double pixels) override { letters_ = pixels; }
  void Text(double x, double y, std::string_view text) override;
  [[nodiscard]] platform::TextExtent Extent(std::string_view text) const override;

  /// All that was drawn, named `title` for those who do not see it.
  [[nodiscard]] std::string Element(std::string_view title) const;

 private:
  double width_;
  double height_;
  double letters_ = 10;
  std::string drawn_;
};

}  // namespace velquist::text_export
