// SPDX-License-Identifier: MIT
#include <string>
#include <vector>

#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "charts/EngineChart.h"
#include "charts/SpeedBandsChart.h"
#include "data/ChassisCatalogue.h"
#include "data/Numbers.h"
#include "edit/Drivetrain.h"

namespace velquist::app {

namespace {

using platform::Icon;

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
Engine ReferenceEngine(const edit::CarSetup& car, const Globals& globals)
{
  const auto& reference = car.ComparedWith();
  const edit::CarWithEngine current{car.ModYearIndex(), car.ChassisIndex(), car.EngineSlot()};
  const auto its = reference.car.value_or(current);
  const auto ratios = edit::RatiosOf(reference, data::GearCount(its.year, its.engine_slot))
                          .value_or(edit::GearRatios{});
  Engine engine;
  data::ComputeEngineCurve(its.year, its.engine_slot, engine.curve);
  engine.bands = charts::ComputeSpeedBands(
      engine.curve, data::ToInt32(data::EngineOf(its.year, its.engine_slot).maximum_rpm), its.year,
      its.chassis, ratios.Gears(), ratios.final_drive, globals.Units != 0);
  const int rows = globals.bands.gear_rows;
  std::erase_if(engine.bands.gears, [rows](const auto& gear) { return gear.gear > rows; });
  engine.bands.gear_rows = rows;
  return engine;
}

std::string ReadChart(const charts::PictureRecorder& chart, data::ModYear year,
                      const data::EngineCurve& curve, double x, double y)
{
  return charts::ReadEngineChart(chart.Width(), chart.Height(), year, curve, x, y);
}

std::string ReadChart2(const charts::PictureRecorder& chart, const charts::SpeedBands& bands,
                       double x, double y)
{
  return charts::ReadSpeedBands(chart.Width(), chart.Height(), bands, x, y);
}

}  // namespace

std::string MainWindow::PictureChart_MouseMove(double x, double y) const
{
  return ReadChart(form_.chart, car_.ModYearIndex(), globals_.curve, x, y);
}

std::string MainWindow::PictureChart2_MouseMove(double x, double y) const
{
  return ReadChart2(form_.chart2, globals_.bands, x, y);
}

std::string MainWindow::PictureChart_Comparison(double x, double y) const
{
  return WithReference(
      PictureChart_MouseMove(x, y),
      ReadChart(form_.chart, car_.ModYearIndex(), ReferenceEngine(car_, globals_).curve, x, y));
}

std::string MainWindow::PictureChart2_Comparison(double x, double y) const
{
  return WithReference(PictureChart2_MouseMove(x, y),
                       ReadChart2(form_.chart2, ReferenceEngine(car_, globals_).bands, x, y));
}

charts::PictureRecorder MainWindow::ReferenceOfPictureChart() const
{
  const auto engine = ReferenceEngine(car_, globals_);
  charts::PictureRecorder picture;
  picture.Resize(form_.chart.Width(), form_.chart.Height());
  if (engine.curve != globals_.curve || engine.bands.maximum_rpm != globals_.bands.maximum_rpm)
    charts::DrawEngineChart(picture, car_.ModYearIndex(), engine.curve, engine.bands.maximum_rpm);
  return picture;
}

charts::PictureRecorder MainWindow::ReferenceOfPictureChart2() const
{
  const auto engine = ReferenceEngine(car_, globals_);
  charts::PictureRecorder picture;
  picture.Resize(form_.chart2.Width(), form_.chart2.Height());
  if (engine.bands != globals_.bands)
    charts::DrawSpeedBands(picture, car_.ModYearIndex(), engine.bands);
  return picture;
}

void MainWindow::MnuAbout_Click()
{
  Tell("v" + std::to_string(VELQUIST_VERSION_MAJOR) + "." + std::to_string(VELQUIST_VERSION_MINOR) +
           "." + std::to_string(VELQUIST_VERSION_REVISION) + " by Velquist Project",
       Icon::kInformation);
}

void MainWindow::MnuHelp2_Click()
{
  outside_.dialogs.ShowHelp();
}

}  // namespace velquist::app
