// SPDX-License-Identifier: MIT
#include "charts/SpeedBands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "charts/PlotXy.h"

namespace velquist::charts {
namespace {

constexpr int kModYear1965 = 1;
constexpr int kModYearGT = 4;

constexpr int kSearchedBeyondMaximum = 1000;  ///< rpm
constexpr double kPartOfPeak = 0.9;

constexpr double kTyreCircumference = 84.8232;  ///< inches, of a 27-inch tyre
constexpr double kKilometresPerMile = 1.609344;

struct SpeedAxis {
  int maximum;
  int divisions;
};

SpeedAxis AxisFor(int ModYearIndex, bool metric)
{
  if (ModYearIndex == kModYear1965) return metric ? SpeedAxis{320, 8} : SpeedAxis{200, 10};
  return metric ? SpeedAxis{360, 9} : SpeedAxis{220, 11};
}

/// A gear's row: torque above power, the box of maximum rpm over both.
void DrawGear(platform::PictureSurface& surface, const PlotXy& plot, const SpeedBands& bands,
              const GearSpeed& gear, double top, double height)
{
  constexpr double kMaximumBox = 3;  ///< half its side, pixels
  const double middle = top + height / 2;
  const double thickness = height * 0.3;
  const auto pixel = [&](int rpm) {
    return std::min(plot.PixelX(rpm * gear.speed_per_rpm), plot.Right());
  };
  const auto band = [&](const Band& limits, double band_top, platform::Colour colour) {
    if (pixel(limits.low) < plot.Right())
      surface.Box(pixel(limits.low), band_top, pixel(limits.high), band_top + thickness, colour,
                  colour);
  };
  band(bands.torque, middle - thickness - 1, kBlue);
  band(bands.power, middle + 1, kGreen);
  const double limit = plot.PixelX(bands.maximum_rpm * gear.speed_per_rpm);
  if (limit <= plot.Right())
    surface.Box(limit - kMaximumBox, middle - kMaximumBox, limit + kMaximumBox,
                middle + kMaximumBox, kRed, kRed);
}

}  // namespace

Band FindBand(std::span<const float> rpm, std::span<const float> values, int maximum_rpm)
{
  float peak = 0;
  std::size_t peak_at = 0;
  for (std::size_t i = 0; i < rpm.size(); ++i) {
    if (rpm[i] < static_cast<float>(maximum_rpm + kSearchedBeyondMaximum) && values[i] > peak) {
      peak = values[i];
      peak_at = i;
    }
  }
  const auto threshold = static_cast<float>(kPartOfPeak * static_cast<double>(peak));
  const auto whole = [&](std::size_t i) {
    return static_cast<int>(std::nearbyint(static_cast<double>(rpm[i])));
  };
  Band band;
  for (std::size_t i = peak_at + 1; i-- > 0 && threshold <= values[i];) band.low = whole(i);
  for (std::size_t i = peak_at; i < values.size() && threshold < values[i]; ++i)
    band.high = whole(i);
  return band;
}

double MaximumSpeed(int ModYearIndex, int chassis) noexcept
{
  constexpr std::array kGT = {208.0, 206.0, 202.0, 204.0, 194.0, 215.0, 206.0, 196.0, 172.0};
  if (ModYearIndex == kModYear1965) return 180;
  const auto slot = static_cast<std::size_t>(chassis);
  if (ModYearIndex == kModYearGT && slot < kGT.size()) return kGT[slot];
  return 200;
}

SpeedBands ComputeSpeedBands(const data::EngineCurve& curve, int maximum_rpm, int ModYearIndex,
                             int chassis, std::span<const float> ratios, float final_drive,
                             bool metric)
{
  SpeedBands bands;
  bands.torque = FindBand(curve.rpm, curve.torque, maximum_rpm);
  bands.power = FindBand(curve.rpm, curve.power, maximum_rpm);
  bands.maximum_rpm = maximum_rpm;
  bands.maximum_speed =
      MaximumSpeed(ModYearIndex, chassis) * (metric ? kKilometresPerMile : 1.0);
  bands.gear_rows = static_cast<int>(ratios.size());
  bands.metric = metric;
  bands.gears.reserve(ratios.size());
  for (std::size_t i = 0; i < ratios.size(); ++i) {
    if (!(ratios[i] > 0 && final_drive > 0)) continue;
    const double overall = static_cast<double>(ratios[i]) * static_cast<double>(final_drive);
    double speed = (1 / overall) * (kTyreCircumference / 12) * (60.0 / 5280);
    if (metric) speed *= kKilometresPerMile;
    bands.gears.push_back({static_cast<int>(i) + 1, speed});
  }
  return bands;
}

void DrawSpeedBands(platform::PictureSurface& surface, int ModYearIndex, const SpeedBands& bands)
{
  const auto axis = AxisFor(ModYearIndex, bands.metric);
  PlotXy plot(surface, {0, static_cast<double>(axis.maximum), axis.divisions},
              {0, static_cast<double>(std::max(bands.gear_rows, 1)), 0});
  const double height = (plot.Bottom() - plot.Top()) / std::max(bands.gear_rows, 1);
  for (int row = 0; row < bands.gear_rows; ++row) {
    const auto number = std::to_string(row + 1);
    const auto extent = surface.Extent(number);
    const double top = plot.Top() + row * height;
    surface.Text((plot.Left() - extent.width) / 2, top + (height - extent.height) / 2, number);
    const auto gear = std::ranges::find(bands.gears, row + 1, &GearSpeed::gear);
    if (gear != bands.gears.end()) DrawGear(surface, plot, bands, *gear, top, height);
  }
  const double limit = plot.PixelX(bands.maximum_speed);
  surface.Line(limit, plot.Top(), limit, plot.Bottom(), kRed, 1, platform::LineStyle::kSolid);
  plot.DrawTitle(bands.metric ? "90% Torque and Horsepower Bands Versus KPH"
                              : "90% Torque and Horsepower Bands Versus MPH");
}

}  // namespace velquist::charts
