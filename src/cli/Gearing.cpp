// SPDX-License-Identifier: MIT
#include "charts/Gearing.h"

#include <optional>
#include <ostream>
#include <string>

#include "cli/Commands.h"
#include "cli/Facts.h"
#include "cli/Json.h"
#include "cli/OpenedSetup.h"
#include "cli/TextTable.h"
#include "edit/Display.h"
#include "edit/Drivetrain.h"
#include "export/CarGearing.h"

namespace velquist::cli {
namespace {

Json NumberOrNull(const std::optional<double>& number)
{
  if (!number) return nullptr;
  return static_cast<float>(*number);
}

const std::string& TeethOf(const edit::CarSetup& car, int gear)
{
  return car.Gears().DisplayText(edit::GearRowOf(car.SetupData(), setup::kFirstGear + gear - 1));
}

Json AsJson(const OpenedSetup& setup, const charts::Gearing& gearing)
{
  auto gears = Json::array();
  for (const auto& gear : gearing.gears) {
    Json facts = {{"gear", gear.gear},
                  {"text", TeethOf(setup.car, gear.gear)},
                  {"ratio", static_cast<float>(gear.ratio)},
                  {"overall", static_cast<float>(gear.overall)},
                  {"speed_at_maximum_rpm", NumberOrNull(gear.speed)},
                  {"step_percent", NumberOrNull(gear.step)},
                  {"shift_rpm", nullptr},
                  {"rpm_after_shift", nullptr}};
    if (gear.shift) {
      facts["shift_rpm"] = gear.shift->rpm;
      facts["rpm_after_shift"] = gear.shift->after;
    }
    gears.push_back(std::move(facts));
  }
  return {{"file", setup.file.path},
          {"read_as", std::string(data::ModYearText(setup.identity.read_as))},
          {"chassis", ChassisFact(setup.identity)},
          {"formula", FormulaFact(setup.identity)},
          {"unit", gearing.metric ? "km/h" : "mph"},
          {"maximum_rpm", gearing.maximum_rpm},
          {"maximum_speed", static_cast<float>(gearing.maximum_speed)},
          {"gears", std::move(gears)}};
}

void WriteText(std::ostream& out, const OpenedSetup& setup, const charts::Gearing& gearing)
{
  const std::string unit = gearing.metric ? "km/h" : "mph";
  out << setup.file.path << "\n  " << CarText(setup.identity) << ", "
      << data::ModYearText(setup.identity.read_as) << ", maximum " << gearing.maximum_rpm
      << " rpm and about " << edit::FormatNumber(gearing.maximum_speed, 0) << ' ' << unit << "\n\n";
  TextTable table({Align::kLeft, Align::kRight, Align::kRight, Align::kRight, Align::kRight,
                   Align::kRight, Align::kRight, Align::kRight});
  table.Add({"Gear", "Teeth", "Ratio", "Overall", unit, "Step %", "Shift rpm", "To rpm"});
  const auto number = [](const std::optional<double>& value) {
    return value ? edit::FormatNumber(*value, 1) : std::string("-");
  };
  for (const auto& gear : gearing.gears)
    table.Add({std::to_string(gear.gear), TeethOf(setup.car, gear.gear),
               edit::FormatNumber(gear.ratio, 3), edit::FormatRatio(gear.overall),
               number(gear.speed), number(gear.step),
               gear.shift ? std::to_string(gear.shift->rpm) : "-",
               gear.shift ? std::to_string(gear.shift->after) : "-"});
  table.Write(out, "  ");
}

}  // namespace

int Gearing(Session& session)
{
  const auto setup = OpenSetup(session, session.Options().paths.front());
  NeedCar(*setup);
  const bool metric = session.Options().units == edit::kMetric;
  const auto made = text_export::GearingOf(setup->car, metric);
  if (session.Options().form == Form::kJson)
    session.Out() << JsonText(AsJson(*setup, made.gearing)) << '\n';
  else
    WriteText(session.Out(), *setup, made.gearing);
  return kDone;
}

}  // namespace velquist::cli
