// SPDX-License-Identifier: MIT
#include "charts/SpeedBandsChart.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "charts/Legend.h"
#include "charts/PlotXy.h"

namespace velquist::charts {
namespace {

struct SpeedAxis {
  int maximum;
  int divisions;
};

SpeedAxis AxisFor(data::ModYear ModYearIndex, bool metric)
{
  if (ModYearIndex == data::ModYear::k1965) return metric ? SpeedAxis{320, 8} : SpeedAxis{200, 10};
  return metric ? SpeedAxis{360, 9} : SpeedAxis{220, 11};
}

constexpr std::array<LegendEntry, 4> kBandsLegend = {{
    {"Torque", Sample::kStroke, kBlue, 1.2, 0.55},
    {"Horsepower", Sample::kStroke, kGreen, 1.2, 0.55},
    {"Max RPM", Sample::kStroke, kRed, 0.6, 0.6},
    {"Max Speed", Sample::kStroke, kRed, 1.2, 0},
}};
constexpr std::size_t kBandsLegendKept = 2;

/// The plot box is a strip with the legend above one row a gear. Whole pixels.
struct Rows {
  double top;     ///< of the first gear's row, the bottom of the strip
  double height;  ///< of one row, not whole
  int count;

  Rows(const PlotBox& box, int gears) : count(std::max(gears, 1))
  {
    const double strip =
        std::clamp(box.Height() * 0.11, 9.0, std::clamp(box.Height() * 0.05, 20.0, 40.0));
    top = box.top + std::round(strip);
    height = (box.bottom - top) / count;
  }
  [[nodiscard]] double Top(int row) const { return std::round(top + row * height); }
  [[nodiscard]] double Middle(int row) const { return std::floor((Top(row) + Top(row + 1)) / 2); }
};

/// A gear's row: torque above power, the box of maximum rpm over both.
void DrawGear(platform::PictureSurface& surface, const PlotXy& plot, const SpeedBands& bands,
              const GearSpeed& gear, double middle, double height)
{
  const double right = plot.Box().right - 1;
  const double thickness = std::clamp(std::floor(height * 0.3), 2.0, 36.0);
  const double half_box = std::clamp(std::round(height * 0.12), 2.0, std::max(5.0, height * 0.06));
  const auto pixel = [&](int rpm) { return plot.PixelX(rpm * gear.speed_per_rpm); };
  const auto band = [&](const Band& limits, double top, platform::Colour colour) {
    if (pixel(limits.low) < right)
      surface.Box(pixel(limits.low), top, std::min(pixel(limits.high), right), top + thickness - 1,
                  colour, colour);
  };
  band(bands.torque, middle - thickness, kBlue);
  band(bands.power, middle + 1, kGreen);
  const double limit = pixel(bands.maximum_rpm);
  if (limit <= plot.Box().right)
    surface.Box(limit - half_box, middle - half_box, std::min(limit + half_box, right),
                middle + half_box, kRed, kRed);
}

/// Letter height of the gears' numbers.
double NumberLetters(double row_height, double picture_height)
{
  const double suiting =
      std::min(picture_height * 0.08, std::clamp(picture_height * 0.04, 16.0, 28.0));
  return std::max(std::floor(std::min(row_height * 0.6, suiting)), kSmallestLetters - 1);
}

void DrawNumber(platform::PictureSurface& surface, const PlotBox& box, int gear, double middle)
{
  constexpr double kGap = 9;
  const auto number = std::to_string(gear);
  const auto extent = surface.Extent(number);
  surface.Text(box.left - kGap - extent.width, middle - (extent.capital_top + extent.baseline) / 2,
               number);
}

void DrawStrip(platform::PictureSurface& surface, const PlotXy& plot, const Rows& rows,
               const SpeedBands& bands)
{
  constexpr double kMargin = 6;
  const auto& box = plot.Box();
  const double middle = std::round((box.top + rows.top) / 2);
  const double letters =
      std::max(std::min(rows.top - box.top - 2, 14.0), std::floor((rows.top - box.top) * 0.65));
  surface.Box(box.left + 1, box.top + 1, box.right - 1, rows.top - 1, kWhite, kWhite);
  DrawLegend(surface, kBandsLegend, kBandsLegendKept,
             {.left = box.left + kMargin,
              .right = std::min(plot.PixelX(bands.maximum_speed), box.right) - kMargin,
              .middle = middle,
              .largest_letters = letters});
}

std::string Ordinal(int number)
{
  constexpr std::array kEndings = {"th", "st", "nd", "rd"};
  const auto at = static_cast<std::size_t>(number);
  return std::to_string(number) + (at < kEndings.size() ? kEndings[at] : kEndings[0]);
}

std::string UnitOf(const SpeedBands& bands)
{
  return bands.metric ? " KPH" : " MPH";
}

/// The figures of a gear's row, each behind a `separator`.
std::string GearText(const SpeedBands& bands, int row, std::string_view separator)
{
  std::string text = Ordinal(row + 1) + " gear";
  const auto gear = std::ranges::find(bands.gears, row + 1, &GearSpeed::gear);
  if (gear == bands.gears.end()) return text.append(separator).append("no ratio");
  const auto speed = [&](int rpm) { return WholeText(rpm * gear->speed_per_rpm); };
  const auto range = [&](std::string_view name, const Band& band) {
    text.append(separator).append(name).append(speed(band.low)).append(" to ");
    text.append(speed(band.high)).append(UnitOf(bands));
  };
  range("Torque ", bands.torque);
  range("Horsepower ", bands.power);
  text.append(separator).append("Max RPM ").append(speed(bands.maximum_rpm));
  return text.append(UnitOf(bands));
}

}  // namespace

void DrawSpeedBands(platform::PictureSurface& surface, data::ModYear ModYearIndex,
                    const SpeedBands& bands)
{
  const auto axis = AxisFor(ModYearIndex, bands.metric);
  PlotXy plot(surface, {0, static_cast<double>(axis.maximum), axis.divisions}, {0, 1, 0});
  const auto& box = plot.Box();
  if (box.IsEmpty()) return;
  const Rows rows(box, bands.gear_rows);
  DrawStrip(surface, plot, rows, bands);
  surface.SetLetterHeight(NumberLetters(rows.height, surface.Height()));
  for (int row = 0; row < bands.gear_rows; ++row) {
    surface.Line(box.left + 1, rows.Top(row), box.right, rows.Top(row), kGridGrey, 1,
                 platform::LineStyle::kDotted);
    DrawNumber(surface, box, row + 1, rows.Middle(row));
    const auto gear = std::ranges::find(bands.gears, row + 1, &GearSpeed::gear);
    if (gear != bands.gears.end())
      DrawGear(surface, plot, bands, *gear, rows.Middle(row), rows.height);
  }
  const double limit = plot.PixelX(bands.maximum_speed);
  surface.Line(limit, box.top, limit, box.bottom, kRed, 1, platform::LineStyle::kSolid);
  plot.DrawTitle(bands.metric ? "90% Torque and Horsepower Bands Versus KPH"
                              : "90% Torque and Horsepower Bands Versus MPH");
}

std::string ReadSpeedBands(double width, double height, const SpeedBands& bands, double x, double y)
{
  const PlotBox box(width, height);
  if (box.IsEmpty() || !box.Holds(x, y) || bands.gear_rows < 1) return {};
  const Rows rows(box, bands.gear_rows);
  if (y < rows.top) return {};
  int row = 0;
  while (row + 1 < rows.count && y >= rows.Top(row + 1)) ++row;
  return GearText(bands, row, "\n");
}

std::string TellSpeedBands(const SpeedBands& bands)
{
  std::string text;
  for (int row = 0; row < bands.gear_rows; ++row) text += GearText(bands, row, ", ") + ". ";
  return text + "Max Speed " + WholeText(bands.maximum_speed) + UnitOf(bands) + ".";
}

}  // namespace velquist::charts
