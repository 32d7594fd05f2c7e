// SPDX-License-Identifier: MIT
#include "charts/PlotXy.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace velquist::charts {
namespace {

using platform::LineStyle;

constexpr double kLabelGap = 3;  ///< between an axis and its labels, pixels

double DivisionValue(const Axis& axis, int division)
{
  return axis.minimum + (axis.maximum - axis.minimum) * division / axis.divisions;
}

std::string LabelText(double value)
{
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), end.ptr};
}

}  // namespace

PlotXy::PlotXy(platform::PictureSurface& surface, Axis x, Axis y)
    : surface_(surface),
      x_(x),
      y_(y),
      right_(surface.Width() - kRight),
      bottom_(surface.Height() - kBottom)
{
  surface_.Clear(kWhite);
  DrawGrid();
  surface_.Box(kLeft, kTop, right_, bottom_, kBlack, std::nullopt);
}

double PlotXy::PixelX(double x) const noexcept
{
  return kLeft + (x - x_.minimum) * (right_ - kLeft) / (x_.maximum - x_.minimum);
}

double PlotXy::PixelY(double y) const noexcept
{
  return bottom_ - (y - y_.minimum) * (bottom_ - kTop) / (y_.maximum - y_.minimum);
}

void PlotXy::DrawGrid()
{
  for (int i = 0; i <= x_.divisions && x_.divisions > 0; ++i) {
    const double value = DivisionValue(x_, i);
    const double at = PixelX(value);
    surface_.Line(at, kTop, at, bottom_, kGridGrey, 1, LineStyle::kDotted);
    const auto label = LabelText(value);
    surface_.Text(at - surface_.Extent(label).width / 2, bottom_ + kLabelGap, label);
  }
  for (int i = 0; i <= y_.divisions && y_.divisions > 0; ++i) {
    const double value = DivisionValue(y_, i);
    const double at = PixelY(value);
    surface_.Line(kLeft, at, right_, at, kGridGrey, 1, LineStyle::kDotted);
    const auto label = LabelText(value);
    const auto extent = surface_.Extent(label);
    surface_.Text(kLeft - kLabelGap - extent.width, at - extent.height / 2, label);
  }
}

void PlotXy::DrawSeries(std::span<const float> x, std::span<const float> y,
                        platform::Colour colour, double line_width)
{
  bool started = false;
  double last_x = 0;
  double last_y = 0;
  for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i) {
    if (!(x[i] >= x_.minimum && y[i] >= y_.minimum)) continue;
    const double px = PixelX(x[i]);
    const double py = PixelY(y[i]);
    if (started)
      surface_.Line(last_x, last_y, px, py, colour, line_width, LineStyle::kSolid);
    else
      surface_.Dot(px, py, colour);
    started = true;
    last_x = px;
    last_y = py;
  }
}

void PlotXy::DrawTitle(std::string_view text)
{
  const auto extent = surface_.Extent(text);
  surface_.Text((kLeft + right_ - extent.width) / 2, surface_.Height() - extent.height - 1, text);
}

}  // namespace velquist::charts
