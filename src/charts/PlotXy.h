// SPDX-License-Identifier: MIT
#pragma once

#include <span>
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

struct Axis {
  double minimum = 0;
  double maximum = 1;
  int divisions = 1;  ///< 0: no grid lines and no labels
};

/// One picture box prepared as an x-y chart.
class PlotXy {
 public:
  /// Margins between picture and plot box, pixels. Below the plot box there is room for the labels
  /// of the x axis and one line of text under them.
  static constexpr double kLeft = 30;
  static constexpr double kTop = 10;
  static constexpr double kRight = 20;
  static constexpr double kBottom = 30;

  /// Clears the picture and draws plot box, grid and the value of every division.
  PlotXy(platform::PictureSurface& surface, Axis x, Axis y);

  /// Draws the points as a connected line. Points below either minimum are skipped, points beyond
  /// the maxima are not clipped; the line goes on from the last point drawn.
  void DrawSeries(std::span<const float> x, std::span<const float> y, platform::Colour colour,
                  double line_width);

  /// Draws `text` in the middle under the labels of the x axis.
  void DrawTitle(std::string_view text);

  [[nodiscard]] double Left() const noexcept { return kLeft; }
  [[nodiscard]] double Top() const noexcept { return kTop; }
  [[nodiscard]] double Right() const noexcept { return right_; }
  [[nodiscard]] double Bottom() const noexcept { return bottom_; }
  [[nodiscard]] double PixelX(double x) const noexcept;
  [[nodiscard]] double PixelY(double y) const noexcept;

 private:
  void DrawGrid();

  platform::PictureSurface& surface_;
  Axis x_;
  Axis y_;
  double right_;
  double bottom_;
};

}  // namespace velquist::charts
