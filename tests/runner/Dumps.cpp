// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <iomanip>
#include <map>
#include <sstream>

#include "app/FormControlSettings.h"
#include "charts/Gearing.h"
#include "edit/Drivetrain.h"
#include "runner/Play.h"
#include "runner/Texts.h"
#include "setup/SlotTable.h"

namespace velquist::runner {
namespace {

using app::ControlKind;
using charts::Primitive;

const app::Globals& StateOf(const Play& play)
{
  return play.driver.Window().State();
}

const edit::CarSetup& CarOf(const Play& play)
{
  return play.driver.Window().Car();
}

void DumpSlots(Play& play)
{
  for (int slot = 0; slot < setup::kSlots; ++slot) {
    const auto row = setup::RowOf(slot);
    play.out << "slot " << slot << ' ' << row << ' ' << Hex8(CarOf(play).Value(slot)) << '\n';
  }
}

void DumpBuffer(Play& play)
{
  constexpr std::size_t kBytesALine = 16;
  const std::span<const std::byte> bytes = CarOf(play).SetupBuffer();
  play.out << "buffer " << bytes.size() << '\n';
  for (std::size_t offset = 0; offset < bytes.size(); offset += kBytesALine) {
    std::ostringstream line;
    line << std::hex << std::setw(4) << std::setfill('0') << offset;
    play.out << line.str() << ": "
             << HexBytes(bytes.subspan(offset, std::min(kBytesALine, bytes.size() - offset)))
             << '\n';
  }
}

void DumpData(Play& play)
{
  const auto& data = CarOf(play).SetupData();
  play.out << "data " << data.SetupDataValues.size() << '\n';
  for (std::size_t row = 0; row < data.SetupDataValues.size(); ++row) {
    play.out << row;
    for (const auto column : {data::kMinimum, data::kMaximum, data::kStep, data::kFineStep})
      play.out << ' ' << Hex8(data.Value(row, column));
    play.out << '\n' << row << " text";
    for (const auto& field : data.SetupDataText.at(row)) play.out << ' ' << Quoted(field);
    play.out << '\n';
  }
}

void DumpGears(Play& play)
{
  constexpr int kFields = 3;
  for (int row = 0; row < data::kGearRows; ++row) {
    play.out << "gear " << row;
    for (int field = 0; field < kFields; ++field)
      play.out << ' ' << Quoted(CarOf(play).Gears().Text(row, field));
    play.out << '\n';
  }
}

void DumpCurve(Play& play)
{
  const auto& curve = StateOf(play).curve;
  for (std::size_t sample = 0; sample < curve.rpm.size(); ++sample)
    play.out << "sample " << sample << ' ' << Hex8(curve.rpm[sample]) << ' '
             << Hex8(curve.power[sample]) << ' ' << Hex8(curve.torque[sample]) << '\n';
}

void DumpBands(Play& play)
{
  const auto& bands = StateOf(play).bands;
  play.out << "torque " << bands.torque.low << ' ' << bands.torque.high << '\n'
           << "power " << bands.power.low << ' ' << bands.power.high << '\n'
           << "maxrpm " << bands.maximum_rpm << '\n'
           << "maxspeed " << Shortest(bands.maximum_speed) << '\n';
  for (const auto& gear : bands.gears)
    play.out << "gear " << gear.gear << ' ' << Shortest(gear.speed_per_rpm) << '\n';
}

std::string NumberOrNone(const std::optional<double>& number)
{
  return number ? Shortest(*number) : "-";
}

void DumpGearing(Play& play)
{
  const auto& car = CarOf(play);
  const auto ratios = edit::RatiosOf(car.SetupData(), car.Gears(), car.GearCount());
  const auto gearing = charts::ComputeGearing(StateOf(play).curve, StateOf(play).bands,
                                              ratios.Gears(), ratios.final_drive);
  play.out << "maxrpm " << gearing.maximum_rpm << '\n';
  for (const auto& gear : gearing.gears) {
    play.out << "gear " << gear.gear << ' ' << Shortest(gear.ratio) << ' ' << Shortest(gear.overall)
             << ' ' << NumberOrNone(gear.speed) << ' ' << NumberOrNone(gear.step) << ' ';
    if (gear.shift)
      play.out << gear.shift->rpm << ' ' << gear.shift->after << '\n';
    else
      play.out << "- -\n";
  }
}

std::string ColourText(platform::Colour colour)
{
  const std::array bytes = {std::byte{colour.red}, std::byte{colour.green}, std::byte{colour.blue}};
  auto digits = HexBytes(bytes);
  std::erase(digits, ' ');
  return "#" + digits;
}

std::string PrimitiveText(const Primitive& drawn)
{
  const auto from = Decimal(drawn.x1) + " " + Decimal(drawn.y1);
  const auto to = Decimal(drawn.x2) + " " + Decimal(drawn.y2);
  const auto colour = ColourText(drawn.colour);
  switch (drawn.kind) {
    case Primitive::Kind::kLine:
      return "line " + from + " " + to + " " + colour + " " + Decimal(drawn.width) +
             (drawn.style == platform::LineStyle::kSolid ? " solid" : " dotted");
    case Primitive::Kind::kBox:
      return "box " + from + " " + to + " " + colour + " " +
             (drawn.fill ? ColourText(*drawn.fill) : "none");
    case Primitive::Kind::kDot: return "dot " + from + " " + colour;
    case Primitive::Kind::kText: return "text " + from + " " + Quoted(drawn.text);
  }
  return {};
}

void DumpChart(Play& play, bool second)
{
  const auto& form = play.driver.Window().Form();
  for (const auto& drawn : (second ? form.chart2 : form.chart).Drawn())
    play.out << PrimitiveText(drawn) << '\n';
}

bool HasCheckMark(const app::ControlDesign& design)
{
  return design.kind == ControlKind::kCheck || design.kind == ControlKind::kOption ||
         design.exclusive;
}

void DumpControls(Play& play)
{
  std::vector<const app::ControlDesign*> designs;
  for (const auto& design : app::FormControlSettings()) designs.push_back(&design);
  std::ranges::sort(designs, [](const auto* a, const auto* b) {
    return std::tie(a->name, a->index) < std::tie(b->name, b->index);
  });
  for (const auto* const design : designs) {
    const ControlName control = {std::string(design->name), design->index};
    const auto seen = play.Seen(control);
    play.out << control.Text() << ' ' << KindName(seen.kind) << (seen.shown ? " shown" : " hidden")
             << (seen.enabled ? " enabled" : " disabled");
    if (HasCheckMark(*design)) play.out << (seen.checked ? " checked" : " unchecked");
    if (seen.kind == ControlKind::kList) play.out << " #" << seen.selection;
    play.out << ' ' << Quoted(seen.text);
    if (seen.kind == ControlKind::kList) {
      play.out << " items";
      for (const auto& item : seen.items) play.out << ' ' << Quoted(item);
    }
    play.out << '\n';
  }
}

void DumpState(Play& play)
{
  const auto& car = CarOf(play);
  const auto& state = StateOf(play);
  const auto whole = [](bool value) { return value ? -1 : 0; };
  play.out << "modyear " << data::NumberOf(car.ModYearIndex()) << '\n'
           << "chassis " << car.ChassisIndex() << '\n'
           << "formula " << car.FormulaIndex() << '\n'
           << "player " << state.player_index << '\n'
           << "track " << state.track_index << '\n'
           << "units " << state.Units << '\n'
           << "fine " << whole(car.Options().fine) << '\n'
           << "asymmetric " << whole(car.Options().asymmetric) << '\n'
           << "rollbars " << whole(car.Options().constant_roll_bars) << '\n'
           << "springs " << whole(car.Options().proportional_springs) << '\n'
           << "changed " << whole(car.Changed()) << '\n'
           << "installation " << Quoted(state.installation) << '\n'
           << "file " << Quoted(car.FileName()) << '\n';
}

void DumpReference(Play& play)
{
  const auto& car = CarOf(play);
  const auto& reference = car.ComparedWith();
  switch (reference.source) {
    case edit::ReferenceSource::kLoaded: play.out << "reference loaded\n"; break;
    case edit::ReferenceSource::kDefault: play.out << "reference default\n"; break;
    case edit::ReferenceSource::kFile:
      play.out << "reference file " << Quoted(reference.path) << '\n';
      break;
  }
  for (const auto& [slot, was, is] : edit::Differences(reference, car))
    play.out << "differs " << slot << ' ' << Hex8(was) << ' ' << Hex8(is) << '\n';
}

void DumpHistory(Play& play)
{
  const auto& history = CarOf(play).Steps();
  const auto dump = [&play](const char* word, auto step_number) {
    const edit::HistoryStep* step = nullptr;
    for (std::size_t count = 1; (step = step_number(count)) != nullptr; ++count)
      play.out << word << ' ' << count << ' ' << Quoted(step->name) << '\n';
  };
  dump("undo", [&](std::size_t count) { return history.UndoStep(count); });
  dump("redo", [&](std::size_t count) { return history.RedoStep(count); });
}

const std::map<std::string_view, void (*)(Play&)> kDumps = {
    {"slots", DumpSlots},     {"buffer", DumpBuffer},     {"data", DumpData},
    {"gears", DumpGears},     {"curve", DumpCurve},       {"bands", DumpBands},
    {"state", DumpState},     {"controls", DumpControls}, {"reference", DumpReference},
    {"history", DumpHistory}, {"gearing", DumpGearing},
};

}  // namespace

Step ReadDump(WordReader& words)
{
  if (words.Take("chart")) {
    const bool second = words.Take("PictureChart2");
    if (!second) words.Expect("PictureChart");
    return [second](Play& play) {
      play.NeedRunning();
      DumpChart(play, second);
    };
  }
  if (words.Take("library")) return DumpLibrary();
  const auto name = words.Next("what to dump").text;
  const auto dump = kDumps.find(name);
  if (dump == kDumps.end()) words.Fail("\"" + name + "\" is nothing to dump");
  return [function = dump->second](Play& play) {
    play.NeedRunning();
    function(play);
  };
}

Step ReadPrint(WordReader& words)
{
  return [text = words.Next("a text").text](Play& play) { play.out << text << '\n'; };
}

}  // namespace velquist::runner
