// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdint>

#include "app/CarPictures.h"
#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "app/Quotations.h"
#include "charts/EngineChart.h"
#include "charts/SpeedBandsChart.h"
#include "data/ChassisCatalogue.h"
#include "data/Numbers.h"
#include "edit/Drivetrain.h"

namespace velquist::app {
namespace {

using platform::Icon;

constexpr std::uint64_t kMarqueePause = 30000;  ///< ms from a new quotation to its first step
constexpr std::uint64_t kMarqueePeriod = 40;    ///< ms from one step to the next
constexpr int kMarqueeStep = 10;                ///< units to the left
constexpr int kUnitsPerPixel = 15;

}  // namespace

void MainWindow::DrawCharts()
{
  DrawSpeedBands();
  DrawEngineChart();
}

void MainWindow::DrawEngineChart()
{
  charts::DrawEngineChart(form_.chart, car_.ModYearIndex(), globals_.curve,
                          globals_.bands.maximum_rpm);
}

std::string MainWindow::PictureChart_MouseMove(double x, double y) const
{
  return charts::ReadEngineChart(form_.chart.Width(), form_.chart.Height(), car_.ModYearIndex(),
                                 globals_.curve, x, y);
}

std::string MainWindow::PictureChart2_MouseMove(double x, double y) const
{
  return charts::ReadSpeedBands(form_.chart2.Width(), form_.chart2.Height(), globals_.bands, x, y);
}

/// Recomputes the engine curve, too.
void MainWindow::DrawSpeedBands()
{
  const int engine_slot = car_.EngineSlot();
  const auto& engine = data::EngineOf(car_.ModYearIndex(), engine_slot);
  data::ComputeEngineCurve(car_.ModYearIndex(), engine_slot, globals_.curve);
  const auto ratios = edit::RatiosOf(car_.SetupData(), car_.Gears(), car_.GearCount());
  globals_.bands = charts::ComputeSpeedBands(
      globals_.curve, data::ToInt32(engine.maximum_rpm), car_.ModYearIndex(), car_.ChassisIndex(),
      ratios.Gears(), ratios.final_drive, globals_.Units != 0);
  charts::DrawSpeedBands(form_.chart2, car_.ModYearIndex(), globals_.bands);
}

void MainWindow::ShowCarPicture()
{
  const auto path = CarPicturePath(globals_.installation, car_.ModYearIndex(), car_.ChassisIndex());
  if (!path.empty() && outside_.pictures.Load(path).width > 0) {
    form_.car_picture = path;
    return;
  }
  form_.car_picture.clear();
  const auto temporary = outside_.program_directory + "\\MyPicture.tmp";
  try {
    const auto picture = outside_.resources.Picture();
    outside_.files.WriteText(temporary,
                             {reinterpret_cast<const char*>(picture.data()), picture.size()});
    form_.car_picture = temporary;
  } catch (const FileError&) {
    // Without a place for the file the window takes the picture from the program itself.
  }
}

/// Picks a quotation and lets it wait beyond the right edge, then moves it to the left until it has
/// passed the left edge.
void MainWindow::MoveMarquee()
{
  auto& marquee = globals_.marquee;
  const auto now = outside_.clock.TickCount();
  Control& label = form_.LblMarquee;
  if (!marquee.scrolling) {
    outside_.random.Seed(now);
    label.text = Quotation(static_cast<int>(outside_.random.Next() * kQuotationCount));
    marquee = {.scrolling = true,
               .left = form_.Picture1.place.width * kUnitsPerPixel,
               .next_step = now + kMarqueePause};
  }
  PlaceMarquee();
  for (; marquee.scrolling && now >= marquee.next_step; marquee.next_step += kMarqueePeriod) {
    marquee.left -= kMarqueeStep;
    PlaceMarquee();
    if (label.place.left + label.place.width < form_.Picture1.place.left) marquee.scrolling = false;
  }
}

int MainWindow::UntilTick() const
{
  const auto& marquee = globals_.marquee;
  const auto now = outside_.clock.TickCount();
  if (!marquee.scrolling || marquee.next_step <= now) return 0;
  // The step that comes next may not move it by a pixel yet.
  int left = marquee.left - kMarqueeStep;
  auto due = marquee.next_step;
  for (; left / kUnitsPerPixel == marquee.left / kUnitsPerPixel; left -= kMarqueeStep)
    due += kMarqueePeriod;
  return static_cast<int>(due - now);
}

/// The quotation stays where it was as seen from the right edge, beyond which it waits.
void MainWindow::ResizeMarquee(int width_before)
{
  globals_.marquee.left += (form_.Picture1.place.width - width_before) * kUnitsPerPixel;
  PlaceMarquee();
}

void MainWindow::PlaceMarquee()
{
  Control& label = form_.LblMarquee;
  PictureRecorder measure;
  measure.SetLetterHeight(label.font_size);
  label.place.left = form_.Picture1.place.left + globals_.marquee.left / kUnitsPerPixel;
  label.place.width = static_cast<int>(std::ceil(measure.Extent(label.text).width)) + 2;
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
