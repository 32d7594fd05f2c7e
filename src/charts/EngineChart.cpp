// SPDX-License-Identifier: MIT
#include "charts/EngineChart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <vector>

#include "charts/Legend.h"
#include "charts/PlotXy.h"

namespace velquist::charts {
namespace {

struct EngineAxes {
  int rpm_maximum;
  int rpm_divisions;
  int value_maximum;  ///< horsepower and lb-ft
  int value_divisions;
};

constexpr std::array<EngineAxes, data::kModYearCount> kAxes = {{
    {12000, 6, 450, 9},   // 1967
    {14000, 7, 300, 6},   // 1965
    {12000, 6, 450, 9},   // 1966
    {12000, 6, 450, 9},   // 1969
    {10000, 5, 550, 11},  // GT
}};

constexpr std::array<LegendEntry, 4> kLegend = {{
    {"Horsepower", Sample::kBox, kGreen, 1.3, 0.17},
    {"Torque, lb-ft", Sample::kBox, kBlue, 1.3, 0.17},
    {"Versus RPM", Sample::kNone, kBlack, 0, 0},
    {"Max RPM", Sample::kBox, kRed, 0.17, 0.9},
}};
constexpr std::size_t kLegendKept = 3;
constexpr double kLegendMargin = 4;  ///< at the sides of the picture, pixels
constexpr double kLegendMiddle = 8;  ///< above its bottom

double CurveWidth(const PlotBox& box)
{
  constexpr double kPart = 1.0 / 250;
  return std::clamp(std::round(box.Height() * kPart), 2.0, 4.0);
}

const EngineAxes* AxesOf(data::ModYear ModYearIndex)
{
  const auto year = static_cast<std::size_t>(ModYearIndex);
  return year < kAxes.size() ? &kAxes[year] : nullptr;
}

std::size_t SampleCount(const EngineAxes& axes)
{
  return static_cast<std::size_t>(axes.rpm_maximum / data::EngineCurve::kRpmStep + 1);
}

/// Draws the parts of a curve up to `top`, cut where the curve crosses it.
void DrawUpTo(float top, PlotXy& plot, std::span<const float> rpm, std::span<const float> values,
              platform::Colour colour)
{
  const double width = CurveWidth(plot.Box());
  std::vector<float> x;
  std::vector<float> y;
  x.reserve(values.size() + 1);
  y.reserve(values.size() + 1);
  const auto crossing = [&](std::size_t i) {
    const double part = (static_cast<double>(top) - static_cast<double>(values[i - 1])) /
                        (static_cast<double>(values[i]) - static_cast<double>(values[i - 1]));
    x.push_back(static_cast<float>(rpm[i - 1] + part * (rpm[i] - rpm[i - 1])));
    y.push_back(top);
  };
  for (std::size_t i = 0; i < values.size(); ++i) {
    const bool above = values[i] > top;
    const bool was_above = i > 0 && values[i - 1] > top;
    if (above && !was_above && i > 0 && values[i - 1] >= 0) crossing(i);
    if (above) {
      plot.DrawSeries(x, y, colour, width);
      x.clear();
      y.clear();
      continue;
    }
    if (was_above && values[i] >= 0) crossing(i);
    x.push_back(rpm[i]);
    y.push_back(values[i]);
  }
  plot.DrawSeries(x, y, colour, width);
}

/// rpm and what the chart shows of the values there, each behind a `separator`.
std::string SampleText(const EngineAxes& axes, const data::EngineCurve& curve, std::size_t sample,
                       std::string_view separator)
{
  std::string text = WholeText(curve.rpm[sample]) + " RPM";
  const auto value = [&](float shown, std::string_view unit) {
    if (shown >= 0 && shown <= static_cast<float>(axes.value_maximum))
      text.append(separator).append(WholeText(shown)).append(unit);
  };
  value(curve.power[sample], " horsepower");
  value(curve.torque[sample], " lb-ft torque");
  return text;
}

}  // namespace

void DrawEngineChart(platform::PictureSurface& surface, data::ModYear ModYearIndex,
                     const data::EngineCurve& curve, int maximum_rpm)
{
  const auto* const axes = AxesOf(ModYearIndex);
  if (axes == nullptr) return;
  PlotXy plot(surface, {0, static_cast<double>(axes->rpm_maximum), axes->rpm_divisions},
              {0, static_cast<double>(axes->value_maximum), axes->value_divisions});
  const auto& box = plot.Box();
  if (box.IsEmpty()) return;
  if (maximum_rpm > 0 && maximum_rpm <= axes->rpm_maximum)
    surface.Line(plot.PixelX(maximum_rpm), box.top, plot.PixelX(maximum_rpm), box.bottom, kRed, 1,
                 platform::LineStyle::kDotted);
  const auto samples = SampleCount(*axes);
  const auto rpm = std::span(curve.rpm).first(samples);
  const auto top = static_cast<float>(axes->value_maximum);
  DrawUpTo(top, plot, rpm, std::span(curve.power).first(samples), kGreen);
  DrawUpTo(top, plot, rpm, std::span(curve.torque).first(samples), kBlue);
  DrawLegend(surface, kLegend, kLegendKept,
             {.left = kLegendMargin,
              .right = surface.Width() - kLegendMargin,
              .middle = surface.Height() - kLegendMiddle,
              .largest_letters = LettersFor(surface.Height()),
              .centred = true});
}

std::string ReadEngineChart(double width, double height, data::ModYear ModYearIndex,
                            const data::EngineCurve& curve, double x, double y)
{
  const auto* const axes = AxesOf(ModYearIndex);
  const PlotBox box(width, height);
  if (axes == nullptr || box.IsEmpty() || !box.Holds(x, y)) return {};
  const double rpm = (x - box.left) / box.Width() * axes->rpm_maximum;
  const auto sample =
      std::min(static_cast<std::size_t>(std::lround(rpm / data::EngineCurve::kRpmStep)),
               SampleCount(*axes) - 1);
  return SampleText(*axes, curve, sample, "\n");
}

std::string TellEngineChart(data::ModYear ModYearIndex, const data::EngineCurve& curve,
                            int maximum_rpm)
{
  const auto* const axes = AxesOf(ModYearIndex);
  if (axes == nullptr) return {};
  constexpr std::size_t kTold = 1000 / data::EngineCurve::kRpmStep;
  std::string text = "Max RPM " + WholeText(maximum_rpm) + ".";
  for (std::size_t sample = kTold; sample < SampleCount(*axes); sample += kTold)
    text.append(" ").append(SampleText(*axes, curve, sample, ", ")).append(".");
  return text;
}

}  // namespace velquist::charts
