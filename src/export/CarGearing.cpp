// SPDX-License-Identifier: MIT
#include "export/CarGearing.h"

#include "data/ChassisCatalogue.h"
#include "data/Numbers.h"
#include "edit/Drivetrain.h"

namespace velquist::text_export {

CarGearing GearingOf(const edit::CarSetup& car, bool metric)
{
  const auto year = car.ModYearIndex();
  const int engine_slot = car.EngineSlot();
  const int maximum_rpm = data::ToInt32(data::EngineOf(year, engine_slot).maximum_rpm);
  CarGearing made;
  data::ComputeEngineCurve(year, engine_slot, made.curve);
  const auto ratios = edit::RatiosOf(car.SetupData(), car.Gears(), car.GearCount());
  made.bands = charts::ComputeSpeedBands(made.curve, maximum_rpm, year, car.ChassisIndex(),
                                         ratios.Gears(), ratios.final_drive, metric);
  made.gearing = charts::ComputeGearing(made.curve, made.bands, ratios.Gears(), ratios.final_drive);
  return made;
}

}  // namespace velquist::text_export
