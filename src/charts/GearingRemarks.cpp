// SPDX-License-Identifier: MIT
#include "charts/GearingRemarks.h"

#include "charts/GearingPicture.h"
#include "charts/PlotXy.h"

namespace velquist::charts {
namespace {

std::string Between(const GearOfCar& gear)
{
  return Ordinal(gear.gear) + " to " + Ordinal(gear.gear + 1);
}

void RemarkRatio(const Gearing& gearing, std::size_t at, std::vector<GearingRemark>& remarks)
{
  const auto& gear = gearing.gears[at];
  if (!gear.speed)
    remarks.push_back({Ordinal(gear.gear) + " has no ratio",
                       "the ratio of the gear or that of the final drive is not above 0"});
  else if (at > 0 && gearing.gears[at - 1].speed && !gearing.gears[at - 1].shift)
    remarks.push_back({Ordinal(gear.gear) + " is not below " + Ordinal(gear.gear - 1),
                       "its ratio is not smaller than that of the gear before"});
}

void RemarkShift(const Gearing& gearing, const GearOfCar& gear, std::vector<GearingRemark>& remarks)
{
  if (!gear.shift) return;
  const auto& [rpm, after, in_torque_band, in_power_band] = *gear.shift;
  const auto from = " from " + std::to_string(rpm) + " to " + std::to_string(after) + " rpm";
  if (after < gearing.power.low)
    remarks.push_back({Between(gear) + " falls out of the power band," + from,
                       "the best shift ends below " + std::to_string(gearing.power.low) +
                           " rpm, where 90% of the best horsepower begin"});
  else if (after > gearing.power.high)
    remarks.push_back({Between(gear) + " ends above the power band," + from,
                       "the best shift ends above " + std::to_string(gearing.power.high) +
                           " rpm, where 90% of the best horsepower end"});
}

void RemarkTop(const Gearing& gearing, std::vector<GearingRemark>& remarks)
{
  if (gearing.gears.empty() || !gearing.gears.back().speed) return;
  const auto& top = gearing.gears.back();
  const auto unit = " " + SpeedUnit(gearing);
  const std::string text = "Top gear reaches maximum rpm at " + WholeText(*top.speed) + unit +
                           ", the car's limit is about " + WholeText(gearing.maximum_speed);
  remarks.push_back(
      {text,
       "the speed of the last gear at maximum rpm, beside about the greatest speed that the "
       "car reaches on a level track, which is " +
           WholeText(gearing.maximum_speed / top.per_rpm) + " rpm in that gear"});
}

}  // namespace

std::vector<GearingRemark> GearingRemarks(const Gearing& gearing)
{
  std::vector<GearingRemark> remarks;
  for (std::size_t at = 0; at < gearing.gears.size(); ++at) RemarkRatio(gearing, at, remarks);
  for (const auto& gear : gearing.gears) RemarkShift(gearing, gear, remarks);
  RemarkTop(gearing, remarks);
  return remarks;
}

}  // namespace velquist::charts
