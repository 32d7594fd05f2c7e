// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/PictureSurface.h"

namespace velquist::charts {

/// Colours of the charts; green and blue are colours 2 and 1 of the 16-colour palette.
inline constexpr platform::Colour kWhite{255, 255, 255};
inline constexpr platform::Colour kBlack{0, 0, 0};
inline constexpr platform::Colour kGreen{0, 128, 0};
inline constexpr platform::Colour kBlue{0, 0, 128};
inline constexpr platform::Colour kRed{255, 0, 0};
inline constexpr platform::Colour kGridGrey{192, 192, 192};

/// Letter heights, pixels. Labels are no larger than the margins have room for, and no smaller than
/// can be read.
inline constexpr double kLargestLetters = 12;
inline constexpr double kSmallestLetters = 7;

/// What suits a picture of that height.
[[nodiscard]] double LettersFor(double picture_height) noexcept;

struct Axis {
  double minimum = 0;
  double maximum = 1;
  int divisions = 1;  ///< 0: no grid lines and no labels
};

/// From 0 to `value` or a little more, in at most so many divisions of `least` or of a round
/// multiple of it.
[[nodiscard]] Axis RoundAxis(double value, int most_divisions, double least);

/// The plot box of a picture of some size, pixels. Below it there is room for the labels of the
/// x axis and one line of text under them.
struct PlotBox {
  double left = 30;
  double top = 10;
  double right = 0;
  double bottom = 0;

  PlotBox(double picture_width, double picture_height)
      : right(picture_width - 20), bottom(picture_height - 30)
  {
  }

  [[nodiscard]] double Width() const noexcept { return right - left; }
  [[nodiscard]] double Height() const noexcept { return bottom - top; }
  [[nodiscard]] bool IsEmpty() const noexcept { return !(right > left && bottom > top); }
  [[nodiscard]] bool Holds(double x, double y) const noexcept
  {
    return x >= left && x <= right && y >= top && y <= bottom;
  }
};

/// Gives the surface the largest whole letter height up to `largest` at which `text` is no wider
/// than `width`.
void FitLetters(platform::PictureSurface& surface, std::string_view text, double width,
                double largest);

/// The nearest whole number in plain digits.
[[nodiscard]] std::string WholeText(double value);

/// One picture box prepared as an x-y chart.
class PlotXy {
 public:
  /// Clears the picture and draws plot box, grid and the value of every division. Where the labels
  /// of an axis would touch even in the smallest letters, every second, third, … is written. A
  /// picture without room for a plot box stays empty.
  PlotXy(platform::PictureSurface& surface, Axis x, Axis y);
  /// The same with another plot box and in letters up to that height.
  PlotXy(platform::PictureSurface& surface, Axis x, Axis y, const PlotBox& box, double letters);

  /// Draws the points as a connected line. Points below either minimum are skipped, and the line
  /// starts anew behind them; points beyond the maxima are not clipped.
  void DrawSeries(std::span<const float> x, std::span<const float> y, platform::Colour colour,
                  double line_width);

  /// Draws `text` in the middle under the labels of the x axis.
  void DrawTitle(std::string_view text);

  [[nodiscard]] const PlotBox& Box() const noexcept { return box_; }
  [[nodiscard]] double PixelX(double x) const noexcept;
  [[nodiscard]] double PixelY(double y) const noexcept;

 private:
  void DrawGrid();
  void DrawLabels();

  platform::PictureSurface& surface_;
  Axis x_;
  Axis y_;
  PlotBox box_;
  double letters_;
};

}  // namespace velquist::charts
