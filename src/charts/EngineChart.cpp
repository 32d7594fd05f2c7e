// SPDX-License-Identifier: MIT
#include "charts/EngineChart.h"

#include <array>
#include <span>

#include "charts/PlotXy.h"

namespace velquist::charts {
namespace {

struct EngineAxes {
  int rpm_maximum;
  int rpm_divisions;
  int value_maximum;  ///< horsepower and lb-ft
  int value_divisions;
};

constexpr std::array<EngineAxes, 5> kAxes = {{
    {12000, 6, 450, 9},   // 1967
    {14000, 7, 300, 6},   // 1965
    {12000, 6, 450, 9},   // 1966
    {12000, 6, 450, 9},   // 1969
    {10000, 5, 550, 11},  // GT
}};

constexpr int kRpmPerSample = 200;
constexpr double kCurveWidth = 2;

/// Line samples with their names, in the upper left corner of the plot box.
void DrawLegend(platform::PictureSurface& surface)
{
  constexpr double kSample = 16;
  constexpr double kGap = 5;
  const auto entry = [&](int row, platform::Colour colour, std::string_view name) {
    const double height = surface.Extent(name).height;
    const double top = PlotXy::kTop + kGap + row * (height + 1);
    const double left = PlotXy::kLeft + 2 * kGap;
    const double middle = top + height / 2;
    surface.Line(left, middle, left + kSample, middle, colour, kCurveWidth,
                 platform::LineStyle::kSolid);
    surface.Text(left + kSample + kGap, top, name);
  };
  entry(0, kGreen, "Horsepower");
  entry(1, kBlue, "Torque, lb-ft");
}

}  // namespace

void DrawEngineChart(platform::PictureSurface& surface, int ModYearIndex,
                     const data::EngineCurve& curve)
{
  const auto year = static_cast<std::size_t>(ModYearIndex);
  if (year >= kAxes.size()) return;
  const auto& axes = kAxes[year];
  PlotXy plot(surface, {0, static_cast<double>(axes.rpm_maximum), axes.rpm_divisions},
              {0, static_cast<double>(axes.value_maximum), axes.value_divisions});
  const auto samples = static_cast<std::size_t>(axes.rpm_maximum / kRpmPerSample + 1);
  const auto rpm = std::span(curve.rpm).first(samples);
  plot.DrawSeries(rpm, std::span(curve.power).first(samples), kGreen, kCurveWidth);
  plot.DrawSeries(rpm, std::span(curve.torque).first(samples), kBlue, kCurveWidth);
  DrawLegend(surface);
  plot.DrawTitle("Torque and Horsepower Versus RPM");
}

}  // namespace velquist::charts
