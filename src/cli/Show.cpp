// SPDX-License-Identifier: MIT
#include <ostream>
#include <string>

#include "cli/Commands.h"
#include "cli/Facts.h"
#include "cli/Json.h"
#include "cli/OpenedSetup.h"
#include "cli/TextTable.h"
#include "data/ChassisCatalogue.h"
#include "edit/Drivetrain.h"
#include "export/ValueGroups.h"
#include "export/Values.h"
#include "platform/Errors.h"
#include "setup/SlotNames.h"

namespace velquist::cli {
namespace {

using text_export::NumberOf;
using text_export::TextOf;
using text_export::UnitOf;

Json AsJson(const OpenedSetup& setup, int units)
{
  const auto& [file, identity, car] = setup;
  Json facts = {{"file", file.path}, {"layout", LayoutFact(file)}, {"year", nullptr}};
  if (const auto year = identity.Year()) facts["year"] = std::string(data::ModYearText(*year));
  facts["years"] = YearsFact(identity);
  facts["read_as"] = std::string(data::ModYearText(identity.read_as));
  facts["chassis"] = ChassisFact(identity);
  facts["formula"] = FormulaFact(identity);
  facts["symmetric"] = !car.Options().asymmetric;
  auto slots = Json::array();
  auto values = Json::array();
  for (int slot = 0; slot < setup::kSlots; ++slot) {
    slots.push_back(car.Value(slot));
    values.push_back({{"slot", slot},
                      {"name", std::string(setup::SlotName(slot))},
                      {"value", NumberOf(car, slot, units)},
                      {"unit", std::string(UnitOf(slot, units))},
                      {"text", TextOf(car, slot, units)}});
  }
  facts["slots"] = std::move(slots);
  facts["values"] = std::move(values);
  return facts;
}

void WriteGroup(std::ostream& out, const text_export::ValueGroup& group, const edit::CarSetup& car,
                int units)
{
  constexpr std::size_t kNameWidth = 24;
  constexpr std::size_t kValueWidth = 10;
  const auto right = [](std::string text) {
    if (text.size() < kValueWidth) text.insert(0, kValueWidth - text.size(), ' ');
    return text;
  };
  const auto line = [&](std::string name, std::string_view left, std::string_view other,
                        std::string_view unit) {
    if (name.size() < kNameWidth) name.resize(kNameWidth, ' ');
    std::string text = "  " + name + right(std::string(left)) + right(std::string(other));
    text.append("  ").append(unit);
    text.erase(text.find_last_not_of(' ') + 1);
    out << text << '\n';
  };
  line(std::string(group.title), group.left, group.right, "");
  for (const auto& value : group.values)
    line("  " + std::string(value.name), TextOf(car, value.left, units),
         value.right < 0 ? std::string() : TextOf(car, value.right, units),
         UnitOf(value.left, units));
}

void WriteGears(std::ostream& out, const OpenedSetup& setup)
{
  constexpr int kRatioDecimals = 3;
  const auto& car = setup.car;
  const int final_drive = edit::GearRowOf(car.SetupData(), setup::kFinalDrive);
  TextTable table({Align::kLeft, Align::kRight, Align::kRight, Align::kRight});
  table.Add({"Gears", "", "Ratio", "Overall"});
  const int gears = setup.identity.GearCount().value_or(data::kMostGears);
  for (int gear = 0; gear < gears; ++gear) {
    const int row = edit::GearRowOf(car.SetupData(), setup::kFirstGear + gear);
    table.Add({"  " + std::to_string(gear + 1), car.Gears().DisplayText(row),
               edit::FormatNumber(car.Gears().Ratio(row), kRatioDecimals),
               edit::OverallRatioText(car.Gears(), row, final_drive)});
  }
  table.Add({"  Final drive", car.Gears().DisplayText(final_drive),
             edit::FormatNumber(car.Gears().Ratio(final_drive), kRatioDecimals)});
  table.Write(out, "  ");
}

void WriteText(std::ostream& out, const OpenedSetup& setup, int units)
{
  const auto& identity = setup.identity;
  out << setup.file.path << "\n  " << CarText(identity) << ", " << YearsText(identity);
  if (!identity.Year()) out << " (read as " << data::ModYearText(identity.read_as) << ")";
  out << ", " << LayoutText(setup.file) << " layout, "
      << (setup.car.Options().asymmetric ? "asymmetric" : "symmetric") << "\n\n";
  for (const auto& group : text_export::kValueGroups) WriteGroup(out, group, setup.car, units);
  WriteGears(out, setup);
}

}  // namespace

int Show(Session& session)
{
  auto& out = session.Out();
  const bool json = session.Options().form == Form::kJson;
  JsonArray array(out);
  bool first = true;
  for (const auto& path : session.Options().paths) {
    if (session.Interrupted()) break;
    try {
      const auto setup = OpenSetup(session, path);
      if (json) {
        array.Add(AsJson(*setup, session.Options().units));
      } else {
        if (!first) out << '\n';
        first = false;
        WriteText(out, *setup, session.Options().units);
      }
    } catch (const FileError& error) {
      session.Tell(error.Path(), error.Reason());
    }
  }
  if (json) array.End();
  return kDone;
}

}  // namespace velquist::cli
