// SPDX-License-Identifier: MIT
#include "charts/GearingPicture.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace velquist::charts {
namespace {

constexpr double kNewtonsPerPound = 4.4482216152605;

constexpr double kLeastLetters = 9;
constexpr double kMostLetters = 22;
constexpr double kLettersOfHeight = 0.037;
constexpr double kLettersOfWidth = 0.021;

// Letter heights.
constexpr double kLeftMargin = 3.6;
constexpr double kRightMargin = 1.6;
constexpr double kTopMargin = 1.2;
constexpr double kBottomMargin = 3.4;

constexpr int kMostSpeedDivisions = 13;
constexpr double kBeyondFastest = 1.03;  ///< how far the speed axis goes on, at least

double FastestSpeed(const Gearing& gearing)
{
  double fastest = 0;
  for (const auto& gear : gearing.gears) fastest = std::max(fastest, gear.speed.value_or(0));
  return fastest;
}

}  // namespace

Axis SpeedAxis(const GearingPicture& picture)
{
  const auto& gearing = picture.gearing;
  double fastest = std::max(gearing.maximum_speed, FastestSpeed(gearing));
  if (picture.reference) fastest = std::max(fastest, FastestSpeed(*picture.reference));
  return RoundAxis(fastest * kBeyondFastest, kMostSpeedDivisions, gearing.metric ? 40 : 20);
}

double ShownThrust(const GearingPicture& picture, const GearOfCar& gear, double rpm)
{
  return ThrustAt(picture.curve, rpm, gear.overall) *
         (picture.gearing.metric ? kNewtonsPerPound : 1.0);
}

std::optional<double> RpmAt(const GearOfCar& gear, double speed)
{
  if (!gear.speed || speed > *gear.speed || speed < kIdleRpm * gear.per_rpm) return std::nullopt;
  return speed / gear.per_rpm;
}

const GearOfCar* BestGear(const GearingPicture& picture, double speed)
{
  const GearOfCar* best = nullptr;
  double most = 0;
  for (const auto& gear : picture.gearing.gears) {
    const auto rpm = RpmAt(gear, speed);
    if (!rpm) continue;
    const double thrust = ShownThrust(picture, gear, *rpm);
    if (best != nullptr && thrust <= most) continue;
    best = &gear;
    most = thrust;
  }
  return best;
}

double GearingLetters(double width, double height)
{
  return std::clamp(std::round(std::min(height * kLettersOfHeight, width * kLettersOfWidth)),
                    kLeastLetters, kMostLetters);
}

PlotBox GearingBox(double width, double height)
{
  const double letters = GearingLetters(width, height);
  PlotBox box(width, height);
  box.left = std::round(kLeftMargin * letters);
  box.top = std::round(kTopMargin * letters);
  box.right = std::round(width - kRightMargin * letters);
  box.bottom = std::round(height - kBottomMargin * letters);
  return box;
}

std::optional<double> SpeedAt(const PlotBox& box, const GearingPicture& picture, double x, double y)
{
  if (box.IsEmpty() || !box.Holds(x, y)) return std::nullopt;
  return (x - box.left) / box.Width() * SpeedAxis(picture).maximum;
}

double PixelOfSpeed(const PlotBox& box, const GearingPicture& picture, double speed)
{
  return box.left + speed / SpeedAxis(picture).maximum * box.Width();
}

std::vector<std::string> ReadGearing(const GearingPicture& picture, double speed)
{
  const auto& gearing = picture.gearing;
  std::vector<std::string> lines = {WholeText(speed) + " " + SpeedUnit(gearing)};
  const auto* const best = BestGear(picture, speed);
  for (const auto& gear : gearing.gears)
    if (const auto rpm = RpmAt(gear, speed))
      lines.push_back(Ordinal(gear.gear) + ": " + WholeText(*rpm) + " rpm, " +
                      WholeText(ShownThrust(picture, gear, *rpm)) + " " + ThrustUnit(gearing) +
                      (&gear == best ? ", most" : ""));
  return lines;
}

std::string Ordinal(int gear)
{
  constexpr std::array<const char*, 3> kEndings = {"st", "nd", "rd"};
  const auto at = static_cast<std::size_t>(gear - 1);
  return std::to_string(gear) + (at < kEndings.size() ? kEndings.at(at) : "th");
}

std::string SpeedUnit(const Gearing& gearing)
{
  return gearing.metric ? "km/h" : "mph";
}

std::string ThrustUnit(const Gearing& gearing)
{
  return gearing.metric ? "N" : "lb";
}

}  // namespace velquist::charts
