// SPDX-License-Identifier: MIT
#include "charts/PlotXy.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace velquist::charts {
namespace {

using platform::LineStyle;

// Pixels.
constexpr double kLabelGap = 4;       ///< between an axis and its labels
constexpr double kBetweenLabels = 3;  ///< at least, side by side
constexpr double kBetweenLines = 2;   ///< at least, from digit to digit one above the other

double DivisionValue(const Axis& axis, int division)
{
  return axis.minimum + (axis.maximum - axis.minimum) * division / axis.divisions;
}

/// In plain digits, whatever the size.
std::string PlainText(double value)
{
  constexpr std::size_t kLongestNumber = 330;
  std::array<char, kLongestNumber> text;  // NOLINT(*-member-init): filled up to its end
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  return end.ec == std::errc() ? std::string(text.data(), end.ptr) : std::string();
}

double WidestLabel(const platform::PictureSurface& surface, const Axis& axis)
{
  double widest = 0;
  for (int i = 0; i <= axis.divisions; ++i)
    widest = std::max(widest, surface.Extent(PlainText(DivisionValue(axis, i))).width);
  return widest;
}

/// Every how manieth division is labelled when labels need `needed` of the `length` of an axis.
int LabelledEvery(const Axis& axis, double length, double needed)
{
  const double pitch = length / axis.divisions;
  return std::clamp(static_cast<int>(std::ceil(needed / pitch)), 1, axis.divisions);
}

}  // namespace

double LettersFor(double picture_height) noexcept
{
  constexpr double kPart = 0.075;
  return std::clamp(std::round(picture_height * kPart), kSmallestLetters, kLargestLetters);
}

void FitLetters(platform::PictureSurface& surface, std::string_view text, double width,
                double largest)
{
  surface.SetLetterHeight(largest);
  const double needed = surface.Extent(text).width;
  if (needed > width) surface.SetLetterHeight(std::max(std::floor(largest * width / needed), 1.0));
}

std::string WholeText(double value)
{
  return PlainText(std::nearbyint(value) + 0.0);  // no -0
}

Axis RoundAxis(double value, int most_divisions, double least)
{
  constexpr std::array<double, 3> kTimes = {2, 2, 2.5};  // 1, 2, 4, 10, 20, 40, 100, ...
  double step = least;
  for (std::size_t i = 0; value > step * most_divisions; ++i) step *= kTimes.at(i % kTimes.size());
  const int divisions = std::max(static_cast<int>(std::ceil(value / step)), 1);
  return {0, step * divisions, divisions};
}

PlotXy::PlotXy(platform::PictureSurface& surface, Axis x, Axis y)
    : PlotXy(surface, x, y, PlotBox(surface.Width(), surface.Height()),
             LettersFor(surface.Height()))
{
}

PlotXy::PlotXy(platform::PictureSurface& surface, Axis x, Axis y, const PlotBox& box,
               double letters)
    : surface_(surface), x_(x), y_(y), box_(box), letters_(letters)
{
  surface_.Clear(kWhite);
  if (box_.IsEmpty()) return;
  DrawGrid();
  surface_.Box(box_.left, box_.top, box_.right, box_.bottom, kBlack, std::nullopt);
  DrawLabels();
}

double PlotXy::PixelX(double x) const noexcept
{
  return box_.left + (x - x_.minimum) * box_.Width() / (x_.maximum - x_.minimum);
}

double PlotXy::PixelY(double y) const noexcept
{
  return box_.bottom - (y - y_.minimum) * box_.Height() / (y_.maximum - y_.minimum);
}

void PlotXy::DrawGrid()
{
  for (int i = 0; i <= x_.divisions && x_.divisions > 0; ++i) {
    const double at = PixelX(DivisionValue(x_, i));
    surface_.Line(at, box_.top, at, box_.bottom, kGridGrey, 1, LineStyle::kDotted);
  }
  for (int i = 0; i <= y_.divisions && y_.divisions > 0; ++i) {
    const double at = PixelY(DivisionValue(y_, i));
    surface_.Line(box_.left, at, box_.right, at, kGridGrey, 1, LineStyle::kDotted);
  }
}

/// In the largest letters at which neighbours stay clear of each other.
void PlotXy::DrawLabels()
{
  const double largest = letters_;
  surface_.SetLetterHeight(largest);
  const auto large = surface_.Extent("0");
  const double large_digits = large.baseline - large.capital_top;
  const double large_width = x_.divisions > 0 ? WidestLabel(surface_, x_) : 0;
  double fit = 1;
  if (x_.divisions > 0)
    fit = std::min(fit, (box_.Width() / x_.divisions - kBetweenLabels) / large_width);
  if (y_.divisions > 0)
    fit = std::min(fit, (box_.Height() / y_.divisions - kBetweenLines) / large_digits);
  const double letters = std::max(std::floor(largest * fit), kSmallestLetters);
  surface_.SetLetterHeight(letters);

  if (x_.divisions > 0) {
    const double width = large_width * letters / largest;
    const int every = LabelledEvery(x_, box_.Width(), width + kBetweenLabels);
    for (int i = 0; i <= x_.divisions; i += every) {
      const auto label = PlainText(DivisionValue(x_, i));
      const auto extent = surface_.Extent(label);
      surface_.Text(PixelX(DivisionValue(x_, i)) - extent.width / 2,
                    box_.bottom + kLabelGap - extent.capital_top + 1, label);
    }
  }
  if (y_.divisions > 0) {
    const double digits = large_digits * letters / largest;
    const int every = LabelledEvery(y_, box_.Height(), digits + kBetweenLines);
    for (int i = 0; i <= y_.divisions; i += every) {
      const auto label = PlainText(DivisionValue(y_, i));
      const auto extent = surface_.Extent(label);
      surface_.Text(box_.left - kLabelGap - extent.width,
                    PixelY(DivisionValue(y_, i)) - (extent.capital_top + extent.baseline) / 2,
                    label);
    }
  }
}

void PlotXy::DrawSeries(std::span<const float> x, std::span<const float> y, platform::Colour colour,
                        double line_width)
{
  bool started = false;
  double last_x = 0;
  double last_y = 0;
  for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i) {
    if (!(x[i] >= x_.minimum && y[i] >= y_.minimum)) {
      started = false;
      continue;
    }
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
  // Letters drawn on whole pixels are up to a twelfth wider than measured.
  constexpr double kRoom = 0.92;
  FitLetters(surface_, text, surface_.Width() * kRoom, letters_);
  const auto extent = surface_.Extent(text);
  const double middle = (box_.left + box_.right) / 2;
  const double left =
      std::clamp(middle - extent.width / 2, 0.0, std::max(surface_.Width() - extent.width, 0.0));
  surface_.Text(left, surface_.Height() - extent.height, text);
}

}  // namespace velquist::charts
