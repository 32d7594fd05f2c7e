// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "charts/Gearing.h"
#include "charts/PlotXy.h"
#include "data/EngineCurve.h"

namespace velquist::charts {

/// Engine speed that the curves begin at, rpm.
inline constexpr int kIdleRpm = 1000;

/// What both charts of the gearing show. They have the same plot box and the same speed axis.
struct GearingPicture {
  data::EngineCurve curve;
  Gearing gearing;
  std::optional<Gearing> reference;  ///< of the same engine, where the ratios are others
};

[[nodiscard]] Axis SpeedAxis(const GearingPicture& picture);

/// Thrust of a gear at an engine speed in the unit shown, lb or N.
[[nodiscard]] double ShownThrust(const GearingPicture& picture, const GearOfCar& gear, double rpm);

/// Engine speed of a gear at a road speed; none where it is not between idle and maximum rpm.
[[nodiscard]] std::optional<double> RpmAt(const GearOfCar& gear, double speed);

/// The gear that pulls hardest at a road speed; null where none can drive at it.
[[nodiscard]] const GearOfCar* BestGear(const GearingPicture& picture, double speed);

/// Letter height and plot box of a chart in a picture of that size.
[[nodiscard]] double GearingLetters(double width, double height);
[[nodiscard]] PlotBox GearingBox(double width, double height);

/// The road speed at a place in such a picture; none outside the plot box.
[[nodiscard]] std::optional<double> SpeedAt(const PlotBox& box, const GearingPicture& picture,
                                            double x, double y);
/// How far to the right a road speed is.
[[nodiscard]] double PixelOfSpeed(const PlotBox& box, const GearingPicture& picture, double speed);

/// What there is at a road speed: the speed, then for each gear between idle and maximum rpm its
/// engine speed and thrust, one line each. The gear that pulls hardest says so.
[[nodiscard]] std::vector<std::string> ReadGearing(const GearingPicture& picture, double speed);

/// "1st", "2nd", ...
[[nodiscard]] std::string Ordinal(int gear);

/// "mph" or "km/h", "lb" or "N".
[[nodiscard]] std::string SpeedUnit(const Gearing& gearing);
[[nodiscard]] std::string ThrustUnit(const Gearing& gearing);

}  // namespace velquist::charts
