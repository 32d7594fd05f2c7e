// SPDX-License-Identifier: MIT
#include "app/GearingTable.h"

#include "charts/GearingChart.h"
#include "data/ChassisCatalogue.h"
#include "data/Numbers.h"
#include "edit/Display.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

constexpr int kRatioDecimals = 3;
constexpr int kOverallDecimals = 2;
constexpr int kUsualDecimals = 1;

std::string YesOrNo(bool value)
{
  return value ? "yes" : "no";
}

std::string Decimals(const std::optional<double>& value, int decimals)
{
  return value ? edit::FormatNumber(*value, decimals) : "-";
}

void AddLine(const GearingRow& row, std::string& text)
{
  for (std::size_t column = 0; column < row.size(); ++column)
    text.append(column == 0 ? "" : "\t").append(row.at(column));
  text += '\n';
}

charts::Gearing GearingWith(const GearingInput& input, const data::EngineCurve& curve,
                            const edit::GearRatios& ratios)
{
  const auto& engine = data::EngineOf(input.ModYearIndex, input.engine_slot);
  const auto bands =
      charts::ComputeSpeedBands(curve, data::ToInt32(engine.maximum_rpm), input.ModYearIndex,
                                input.chassis, ratios.Gears(), ratios.final_drive, input.metric);
  return charts::ComputeGearing(curve, bands, ratios.Gears(), ratios.final_drive);
}

}  // namespace

GearingInput GearingInputOf(const edit::CarSetup& car, int units)
{
  GearingInput input = {.ModYearIndex = car.ModYearIndex(),
                        .chassis = car.ChassisIndex(),
                        .engine_slot = car.EngineSlot(),
                        .ratios = edit::RatiosOf(car.SetupData(), car.Gears(), car.GearCount()),
                        .reference = {},
                        .teeth = {},
                        .metric = units == edit::kMetric};
  const auto& reference = car.ComparedWith();
  input.reference = edit::RatiosOf(reference, reference.gear_count.value_or(car.GearCount()));
  if (input.reference == input.ratios) input.reference.reset();
  const auto teeth = [&](int slot) {
    input.teeth.push_back(car.Gears().DisplayText(edit::GearRowOf(car.SetupData(), slot)));
  };
  for (std::size_t gear = 0; gear < input.ratios.gear_count; ++gear)
    teeth(setup::kFirstGear + static_cast<int>(gear));
  teeth(setup::kFinalDrive);
  return input;
}

GearingView ViewGearing(const GearingInput& input)
{
  GearingView view;
  auto& [curve, gearing, reference] = view.picture;
  data::ComputeEngineCurve(input.ModYearIndex, input.engine_slot, curve);
  gearing = GearingWith(input, curve, input.ratios);
  if (input.reference) reference = GearingWith(input, curve, *input.reference);
  view.teeth = input.teeth;
  view.remarks = charts::GearingRemarks(gearing);
  return view;
}

GearingRow GearingHeadings(bool metric)
{
  return {"Gear",
          "Teeth",
          "Ratio",
          "Overall",
          metric ? "km/h at max rpm" : "mph at max rpm",
          "Step %",
          "Shift at rpm",
          "rpm after",
          "In 90% torque",
          "In 90% horsepower"};
}

std::vector<GearingRow> GearingRows(const GearingView& view)
{
  std::vector<GearingRow> rows;
  for (const auto& gear : view.picture.gearing.gears) {
    std::string shift = "-";
    std::string after = "-";
    std::string in_torque_band = "-";
    std::string in_power_band = "-";
    if (gear.shift) {
      shift = std::to_string(gear.shift->rpm);
      after = std::to_string(gear.shift->after);
      in_torque_band = YesOrNo(gear.shift->in_torque_band);
      in_power_band = YesOrNo(gear.shift->in_power_band);
    }
    rows.push_back(
        {charts::Ordinal(gear.gear), view.teeth.at(static_cast<std::size_t>(gear.gear - 1)),
         edit::FormatNumber(gear.ratio, kRatioDecimals),
         edit::FormatNumber(gear.overall, kOverallDecimals), Decimals(gear.speed, kUsualDecimals),
         Decimals(gear.step, kUsualDecimals), shift, after, in_torque_band, in_power_band});
  }
  return rows;
}

int SlotOfGearingRow(int row)
{
  return setup::kFirstGear + row;
}

std::string GearingHeading(const GearingInput& input)
{
  const auto cars = data::CarsOf(input.ModYearIndex);
  const auto at = static_cast<std::size_t>(input.chassis);
  const std::string car(at < cars.size() ? cars[at].name : "");
  const auto ratio = static_cast<double>(input.ratios.final_drive);
  return car + ", final drive " + input.teeth.back() + " (" +
         edit::FormatNumber(ratio, kRatioDecimals) + "). No losses, curves from " +
         std::to_string(charts::kIdleRpm) + " rpm.";
}

void DrawGearing(platform::PictureSurface& surface, const GearingView& view, GearingChart chart)
{
  if (chart == GearingChart::kThrust)
    charts::DrawThrust(surface, view.picture);
  else
    charts::DrawSawTooth(surface, view.picture);
}

std::string ReadingText(const GearingView& view, double speed, std::string_view between)
{
  std::string text;
  for (const auto& line : charts::ReadGearing(view.picture, speed))
    text.append(text.empty() ? "" : between).append(line);
  return text;
}

std::string RemarksText(const GearingView& view)
{
  std::string text;
  for (const auto& remark : view.remarks) text += remark.text + " (" + remark.rule + ").\n";
  return text;
}

std::string GearingText(const GearingView& view)
{
  std::string text;
  AddLine(GearingHeadings(view.picture.gearing.metric), text);
  for (const auto& row : GearingRows(view)) AddLine(row, text);
  return text + "\n" + RemarksText(view);
}

}  // namespace velquist::app
