// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/PictureSurface.h"

namespace velquist::charts {

/// One thing drawn on a picture box.
struct Primitive {
  enum class Kind { kLine, kBox, kDot, kText };
  Kind kind = Kind::kLine;
  double x1 = 0, y1 = 0;  ///< start, left and top, or a dot's place
  double x2 = 0, y2 = 0;  ///< end, or right and bottom
  platform::Colour colour;
  double width = 1;
  platform::LineStyle style = platform::LineStyle::kSolid;
  std::optional<platform::Colour> fill;
  std::string text;
  double letter_height = 0;  ///< of a text
};

/// The line `next` begins where `line` ends and looks alike: both are parts of one curve.
[[nodiscard]] bool GoesOn(const Primitive& line, const Primitive& next);

/// What letters stand on, from the top of a text's line, in letter heights.
inline constexpr double kBaseline = 0.905;

/// A picture box that remembers what was drawn, so that the window repaints it at any time.
/// Text is measured with the advance widths of Arial, which its metric twins share, so that every
/// platform places labels alike.
class PictureRecorder final : public platform::PictureSurface {
 public:
  /// Sets the box's size in pixels; what was drawn is dropped.
  void Resize(double width, double height);

  [[nodiscard]] double Width() const override { return width_; }
  [[nodiscard]] double Height() const override { return height_; }
  [[nodiscard]] platform::Colour Background() const noexcept { return background_; }
  [[nodiscard]] const std::vector<Primitive>& Drawn() const noexcept { return drawn_; }
  /// Grows with every Clear, so that a repaint can tell a new picture from the last one.
  [[nodiscard]] unsigned Version() const noexcept { return version_; }

  void Clear(platform::Colour background) override;
  void Line(double x1, double y1, double x2, double y2, platform::Colour colour, double width,
            platform::LineStyle style) override;
  void Box(double left, double top, double right, double bottom, platform::Colour colour,
           std::optional<platform::Colour> fill) override;
  void Dot(double x, double y, platform::Colour colour) override;
  void SetLetterHeight(double pixels) override { letter_height_ = pixels; }
  void Text(double x, double y, std::string_view text) override;
  [[nodiscard]] platform::TextExtent Extent(std::string_view text) const override;

 private:
  double width_ = 0;
  double height_ = 0;
  double letter_height_ = 12;
  platform::Colour background_{255, 255, 255};
  std::vector<Primitive> drawn_;
  unsigned version_ = 0;
};

}  // namespace velquist::charts
