// SPDX-License-Identifier: MIT
#include <string>

#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "charts/EngineChart.h"
#include "charts/SpeedBandsChart.h"

namespace velquist::app {
namespace {

using platform::Icon;

}  // namespace

std::string MainWindow::PictureChart_MouseMove(double x, double y) const
{
  return charts::ReadEngineChart(form_.chart.Width(), form_.chart.Height(), car_.ModYearIndex(),
                                 globals_.curve, x, y);
}

std::string MainWindow::PictureChart2_MouseMove(double x, double y) const
{
  return charts::ReadSpeedBands(form_.chart2.Width(), form_.chart2.Height(), globals_.bands, x, y);
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
