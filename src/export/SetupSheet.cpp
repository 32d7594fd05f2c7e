// SPDX-License-Identifier: MIT
#include "export/SetupSheet.h"

#include <array>
#include <optional>
#include <vector>

#include "charts/EngineChart.h"
#include "charts/SpeedBandsChart.h"
#include "data/ModYear.h"
#include "edit/Display.h"
#include "edit/Drivetrain.h"
#include "export/CarGearing.h"
#include "export/Markup.h"
#include "export/PictureSvg.h"
#include "export/ValueGroups.h"
#include "export/Values.h"
#include "setup/SlotNames.h"

namespace velquist::text_export {
namespace {

constexpr double kChartWidth = 480;
constexpr double kChartHeight = 260;

/// What fits on both sheets: the width of A4, the height of Letter.
constexpr std::string_view kStyle = R"(
@page { margin: 10mm }
* { box-sizing: border-box }
body { font: 8.5pt/1.25 Helvetica, Arial, "Liberation Sans", sans-serif; color: #111; margin: 0 auto;
  max-width: 190mm }
h1 { font-size: 15pt; margin: 0 }
h2 { font-size: 9pt; margin: 2.5mm 0 0.5mm; border-bottom: 0.3mm solid #888 }
p { margin: 0 0 1mm }
table { border-collapse: collapse; width: 100% }
td, th { padding: 0.15mm 1mm; text-align: right; font-weight: normal }
th { color: #555 }
td:first-child, th:first-child { text-align: left; padding-left: 0 }
td.unit { text-align: left; width: 12mm; color: #555 }
tr + tr { border-top: 0.1mm solid #ddd }
.pair { display: table; width: 100%; table-layout: fixed }
.pair > div { display: table-cell; vertical-align: top; padding-right: 3mm }
.pair > div + div { padding: 0 0 0 3mm }
.differences { column-count: 3; column-gap: 4mm; font-size: 7pt }
.differences div { display: flex; justify-content: space-between; white-space: nowrap;
  break-inside: avoid; border-bottom: 0.1mm solid #ddd }
svg { width: 100%; height: auto; display: block }
svg text { font-family: Helvetica, Arial, "Liberation Sans", sans-serif }
svg line, svg rect { shape-rendering: crispEdges }
)";

std::string Element(std::string_view name, std::string_view text, std::string_view attributes = "")
{
  std::string element = "<" + std::string(name);
  if (!attributes.empty()) element.append(" ").append(attributes);
  return element + ">" + Escaped(text) + "</" + std::string(name) + ">";
}

std::string TableLine(std::string_view cell, const std::vector<std::string>& texts)
{
  std::string line = "<tr>";
  for (const auto& text : texts) line += Element(cell, text);
  return line + "</tr>\n";
}

/// "None" and counts stand without a unit.
std::string GroupTable(const ValueGroup& group, const edit::CarSetup& car, int units)
{
  const bool has_sides = !group.left.empty();
  std::string table = Element("h2", group.title) + "\n<table>\n";
  if (has_sides)
    table += "<tr>" + Element("th", "") + Element("th", group.left) + Element("th", group.right) +
             Element("th", "") + "</tr>\n";
  for (const auto& value : group.values) {
    table += "<tr>" + Element("td", value.name) + Element("td", TextOf(car, value.left, units));
    if (has_sides) table += Element("td", TextOf(car, value.right, units));
    table += Element("td", UnitOf(value.left, units), "class=\"unit\"") + "</tr>\n";
  }
  return table + "</table>\n";
}

std::string Pair(const std::string& left, const std::string& right)
{
  return "<div class=\"pair\">\n<div>\n" + left + "</div>\n<div>\n" + right + "</div>\n</div>\n";
}

std::string Decimals(const std::optional<double>& value, int decimals)
{
  return value ? edit::FormatNumber(*value, decimals) : std::string();
}

std::string GearTable(const edit::CarSetup& car, const CarGearing& made)
{
  constexpr int kRatioDecimals = 3;
  const std::string speed = made.gearing.metric ? "km/h" : "mph";
  std::string table =
      Element("h2", "Gears") + "\n<table>\n" +
      TableLine("th", {"", "Teeth", "Ratio", "Overall",
                       speed + " at " + std::to_string(made.gearing.maximum_rpm) + " rpm", "Step",
                       "Shift at", "To"});
  for (const auto& gear : made.gearing.gears) {
    const int row = edit::GearRowOf(car.SetupData(), setup::kFirstGear + gear.gear - 1);
    const auto step = Decimals(gear.step, 1);
    table += TableLine(
        "td", {std::to_string(gear.gear), car.Gears().DisplayText(row),
               edit::FormatNumber(gear.ratio, kRatioDecimals), edit::FormatRatio(gear.overall),
               Decimals(gear.speed, 1), step.empty() ? step : step + " %",
               gear.shift ? std::to_string(gear.shift->rpm) + " rpm" : "",
               gear.shift ? std::to_string(gear.shift->after) + " rpm" : ""});
  }
  const int final_drive = edit::GearRowOf(car.SetupData(), setup::kFinalDrive);
  table += TableLine("td", {"Final drive", car.Gears().DisplayText(final_drive),
                            edit::FormatNumber(car.Gears().Ratio(final_drive), kRatioDecimals), "",
                            "", "", "", ""});
  return table + "</table>\n";
}

std::string Charts(const edit::CarSetup& car, const CarGearing& made)
{
  charts::PictureRecorder engine;
  engine.Resize(kChartWidth, kChartHeight);
  charts::DrawEngineChart(engine, car.ModYearIndex(), made.curve, made.gearing.maximum_rpm);
  charts::PictureRecorder bands;
  bands.Resize(kChartWidth, kChartHeight);
  charts::DrawSpeedBands(bands, car.ModYearIndex(), made.bands);
  return Pair(
      Element("h2", "Torque and power") + "\n" + SvgElement(engine, "Torque and power by rpm"),
      Element("h2", "90% speed bands") + "\n" +
          SvgElement(bands, "Speeds at which each gear gives 90% of torque and power"));
}

std::string DifferencesFrom(const edit::Reference& reference, const edit::CarSetup& car,
                            std::string_view name, int units)
{
  const auto differences = edit::Differences(reference, car);
  auto part = Element("h2", "Differences from " + std::string(name)) + "\n";
  if (differences.empty()) return part + Element("p", "None") + "\n";
  part += "<div class=\"differences\">\n";
  for (const auto& difference : differences) {
    const int slot = difference.slot;
    auto values = edit::ReferenceText(reference, car, slot, units) + " \u2192 " +
                  edit::CurrentText(car, slot, units);
    if (const auto unit = UnitOf(slot, units); !unit.empty()) values.append(" ").append(unit);
    part += "<div>" + Element("span", setup::SlotName(slot)) + Element("span", values) + "</div>\n";
  }
  return part + "</div>\n";
}

std::string Heading(const edit::CarSetup& car, const SheetSubject& subject)
{
  auto text = std::string(data::ModYearText(car.ModYearIndex())) + " " +
              std::string(subject.chassis_name) + " F" + std::to_string(car.FormulaIndex() + 1) +
              ", " + (car.Options().asymmetric ? "asymmetric" : "symmetric");
  if (!subject.layout.empty()) text.append(", ").append(subject.layout).append(" layout");
  std::string heading = Element("h1", subject.file_name) + "\n" + Element("p", text) + "\n";
  if (!subject.track.empty()) {
    const auto where =
        "Track " + std::string(subject.track) + ", player " + std::string(subject.player);
    heading += Element("p", where) + "\n";
  }
  return heading;
}

}  // namespace

std::string SetupSheet(const edit::CarSetup& car, const SheetSubject& subject,
                       const edit::Reference* reference, int units)
{
  const auto made = GearingOf(car, units == edit::kMetric);
  const auto group = [&](std::size_t at) { return GroupTable(kValueGroups.at(at), car, units); };
  std::string page =
      "<!DOCTYPE html>\n<html xmlns=\"http://www.w3.org/1999/xhtml\" lang=\"en\">\n<head>\n"
      "<meta charset=\"utf-8\"/>\n" +
      Element("title", "Setup sheet: " + std::string(subject.file_name)) + "\n<style>" +
      std::string(kStyle) + "</style>\n</head>\n<body>\n" + Heading(car, subject);
  page += Pair(group(0), group(1));
  page += Pair(group(2), group(3) + group(4));
  page += GearTable(car, made);
  page += Charts(car, made);
  if (reference != nullptr) page += DifferencesFrom(*reference, car, subject.reference, units);
  return page + "</body>\n</html>\n";
}

std::string SheetFileName(std::string_view file_name)
{
  return std::string(file_name.substr(0, file_name.rfind('.'))) + ".html";
}

}  // namespace velquist::text_export
