// SPDX-License-Identifier: MIT
#include "app/ChartPictures.h"

#include <string>
#include <vector>

#include "charts/EngineChart.h"
#include "charts/SpeedBandsChart.h"
#include "data/ChassisCatalogue.h"
#include "data/Numbers.h"
#include "edit/Drivetrain.h"

namespace velquist::app {
namespace {

bool IsEngineChart(const ControlDesign& chart)
{
  return chart.chart == &MainForm::chart;
}

/// `text` and what the reference says in its place, without the first line, which both have.
std::string WithReference(std::string text, const std::string& reference)
{
  if (text.empty() || text == reference) return text;
  const auto line_end = reference.find('\n');
  if (line_end == std::string::npos) return text;
  return text + "\nReference:" + reference.substr(line_end);
}

struct Engine {
  data::EngineCurve curve;
  charts::SpeedBands bands;
};

/// The reference in its own car, or in the current one where it may be any; in as many rows as the
/// current one has gears.
Engine ReferenceEngine(const MainWindow& window)
{
  const auto& car = window.Car();
  const auto& reference = car.ComparedWith();
  const edit::CarWithEngine current{car.ModYearIndex(), car.ChassisIndex(), car.EngineSlot()};
  const auto its = reference.car.value_or(current);
  const auto ratios = edit::RatiosOf(reference, data::GearCount(its.year, its.engine_slot))
                          .value_or(edit::GearRatios{});
  Engine engine;
  data::ComputeEngineCurve(its.year, its.engine_slot, engine.curve);
  engine.bands = charts::ComputeSpeedBands(
      engine.curve, data::ToInt32(data::EngineOf(its.year, its.engine_slot).maximum_rpm), its.year,
      its.chassis, ratios.Gears(), ratios.final_drive, window.State().Units != 0);
  const int rows = window.State().bands.gear_rows;
  std::erase_if(engine.bands.gears, [rows](const auto& gear) { return gear.gear > rows; });
  engine.bands.gear_rows = rows;
  return engine;
}

}  // namespace

charts::PictureRecorder ChartPicture(const MainWindow& window, const ControlDesign& chart,
                                     double width, double height)
{
  const auto year = window.Car().ModYearIndex();
  const auto& state = window.State();
  charts::PictureRecorder picture;
  picture.Resize(width, height);
  if (IsEngineChart(chart))
    charts::DrawEngineChart(picture, year, state.curve, state.bands.maximum_rpm);
  else
    charts::DrawSpeedBands(picture, year, state.bands);
  return picture;
}

charts::PictureRecorder ReferencePicture(const MainWindow& window, const ControlDesign& chart,
                                         double width, double height)
{
  const auto year = window.Car().ModYearIndex();
  const auto& state = window.State();
  const auto engine = ReferenceEngine(window);
  charts::PictureRecorder picture;
  picture.Resize(width, height);
  if (IsEngineChart(chart)) {
    if (engine.curve != state.curve || engine.bands.maximum_rpm != state.bands.maximum_rpm)
      charts::DrawEngineChart(picture, year, engine.curve, engine.bands.maximum_rpm);
  } else if (engine.bands != state.bands) {
    charts::DrawSpeedBands(picture, year, engine.bands);
  }
  return picture;
}

std::string ChartReading(const MainWindow& window, const ControlDesign& chart, double width,
                         double height, double x, double y)
{
  const auto read = [&](const data::EngineCurve& curve, const charts::SpeedBands& bands) {
    return IsEngineChart(chart)
               ? charts::ReadEngineChart(width, height, window.Car().ModYearIndex(), curve, x, y)
               : charts::ReadSpeedBands(width, height, bands, x, y);
  };
  const auto engine = ReferenceEngine(window);
  return WithReference(read(window.State().curve, window.State().bands),
                       read(engine.curve, engine.bands));
}

}  // namespace velquist::app
