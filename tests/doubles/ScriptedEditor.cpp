// SPDX-License-Identifier: MIT
#include "ScriptedEditor.h"

#include <fstream>
#include <span>
#include <utility>

#include <gtest/gtest.h>

#include "app/FormControlSettings.h"
#include "edit/Drivetrain.h"
#include "platform/HostFileSystem.h"
#include "runner/SourceDirectory.h"
#include "runner/Texts.h"
#include "setup/Identification.h"

namespace velquist::testing {
namespace {

using runner::Hex8;
using runner::Quoted;
using runner::Shortest;

void Show(std::ostream& out, const char* name, std::span<const float> values)
{
  out << name;
  for (const float value : values) out << ' ' << Hex8(value);
  out << '\n';
}

void Show(std::ostream& out, const data::SetupData& setup_data, const data::GearData& gears)
{
  for (const auto& texts : setup_data.SetupDataText) {
    out << "text";
    for (const auto& text : texts) out << ' ' << Quoted(text);
    out << '\n';
  }
  for (const auto& values : setup_data.SetupDataValues) Show(out, "values", values);
  for (int row = 0; row < data::kGearRows; ++row)
    out << "gear " << Quoted(gears.Text(row, 0)) << ' ' << Quoted(gears.Text(row, 1)) << ' '
        << Quoted(gears.Text(row, 2)) << ' ' << Hex8(gears.Ratio(row)) << '\n';
}

void Show(std::ostream& out, const charts::SpeedBands& bands)
{
  out << "bands " << bands.torque.low << ' ' << bands.torque.high << ' ' << bands.power.low << ' '
      << bands.power.high << ' ' << bands.maximum_rpm << ' ' << Shortest(bands.maximum_speed) << ' '
      << bands.gear_rows << ' ' << bands.metric << '\n';
  for (const auto& gear : bands.gears)
    out << "band " << gear.gear << ' ' << Shortest(gear.speed_per_rpm) << '\n';
}

void Show(std::ostream& out, const edit::CarSetup& car)
{
  Show(out, car.SetupData(), car.Gears());
  out << "car " << data::NumberOf(car.ModYearIndex()) << ' ' << car.ChassisIndex() << ' '
      << car.FormulaIndex() << '\n'
      << "options " << car.Options().asymmetric << car.Options().fine
      << car.Options().constant_roll_bars << car.Options().proportional_springs << '\n'
      << "lists";
  for (int list = 0; list < edit::kDrivetrainLists; ++list) out << ' ' << car.ListSelection(list);
  out << "\nfile " << Quoted(car.FileName()) << ' ' << car.Changed() << '\n';
  const edit::HistoryStep* step = nullptr;
  for (std::size_t at = 1; (step = car.Steps().UndoStep(at)) != nullptr; ++at)
    out << "undo " << step->name << '\n';
  for (std::size_t at = 1; (step = car.Steps().RedoStep(at)) != nullptr; ++at)
    out << "redo " << step->name << '\n';
  out << "reference " << static_cast<int>(car.ComparedWith().source) << ' '
      << Quoted(car.ComparedWith().path) << '\n';
}

void Show(std::ostream& out, const app::Globals& globals)
{
  Show(out, "rpm", globals.curve.rpm);
  Show(out, "power", globals.curve.power);
  Show(out, "torque", globals.curve.torque);
  Show(out, globals.bands);
  out << "indices " << globals.player_index << ' ' << globals.track_index << ' ' << globals.Units
      << '\n'
      << "installation " << Quoted(globals.installation) << '\n'
      << "flags " << globals.from_command_line << globals.ready << globals.filling_mod_years << ' '
      << Quoted(globals.command_line) << '\n'
      << "marquee " << globals.marquee.scrolling << ' ' << globals.marquee.left << ' '
      << globals.marquee.next_step << '\n';
}

void Show(std::ostream& out, const app::Control& control)
{
  out << control.design->name << ' ' << control.design->index << ' ' << Quoted(control.text) << ' '
      << control.selection << ' ' << control.shown << control.enabled << control.checked
      << control.marked << ' ' << control.place.left << ' ' << control.place.top << ' '
      << control.place.width << ' ' << control.place.height << ' ' << control.font_size;
  for (const auto& item : control.items) out << ' ' << Quoted(item);
  out << '\n';
}

void Show(std::ostream& out, const charts::PictureRecorder& chart)
{
  out << "chart " << Shortest(chart.Width()) << ' ' << Shortest(chart.Height()) << '\n';
  for (const auto& drawn : chart.Drawn()) {
    out << "drawn " << static_cast<int>(drawn.kind) << ' ' << Shortest(drawn.x1) << ' '
        << Shortest(drawn.y1) << ' ' << Shortest(drawn.x2) << ' ' << Shortest(drawn.y2) << ' '
        << int{drawn.colour.red} << ' ' << int{drawn.colour.green} << ' ' << int{drawn.colour.blue}
        << ' ' << Shortest(drawn.width) << ' ' << static_cast<int>(drawn.style) << ' '
        << drawn.fill.has_value() << ' ' << Quoted(drawn.text) << '\n';
  }
}

}  // namespace

std::string Everything(const app::MainWindow& window, WithBuffer with_buffer)
{
  std::ostringstream out;
  Show(out, window.Car());
  Show(out, window.State());
  if (with_buffer == WithBuffer::kYes)
    out << "buffer " << runner::HexBytes(window.Car().SetupBuffer()) << '\n';
  const auto& form = window.Form();
  out << "caption " << Quoted(form.caption) << '\n' << "status " << Quoted(form.status) << '\n';
  for (const auto& design : app::FormControlSettings())
    Show(out, *form.Find(design.name, design.index));
  Show(out, form.chart);
  Show(out, form.chart2);
  out << "car " << Quoted(form.car_picture) << '\n' << "ended " << window.Ended() << '\n';
  return std::move(out).str();
}

std::vector<Example> Examples()
{
  std::ifstream readme(velquist::testing::SourceDirectory() / "examples" / "README.md");
  std::vector<Example> examples;
  constexpr std::string_view kRow = "| `";
  constexpr std::string_view kNextCell = "` | ";
  for (std::string line; std::getline(readme, line);) {
    if (!line.starts_with("| `Players/")) continue;
    const auto path_end = line.find('`', kRow.size());
    const auto year = path_end + kNextCell.size();
    examples.push_back({line.substr(kRow.size(), path_end - kRow.size()),
                        line.substr(year, line.find(' ', year) - year)});
  }
  return examples;
}

ScriptedEditor::ScriptedEditor(std::unique_ptr<runner::Driver> driver)
    : world_(velquist::testing::SourceDirectory() / "assets" / "program"),
      driver_(std::move(driver)),
      outside_([this](std::string_view a, std::string_view b) { return world_.SameText(a, b); },
               *driver_),
      play_{world_, outside_, resources_, *driver_, out_}
{
}

void ScriptedEditor::Play(const std::string& script)
{
  try {
    for (const auto& statement : runner::ReadScript(script, world_.Names())) {
      SCOPED_TRACE("line " + std::to_string(statement.line) + " of:\n" + script);
      try {
        runner::ReadStatement(statement)(play_);
      } catch (const std::exception& error) {
        FAIL() << error.what();
      }
      if (outside_.announcements.Failed()) FAIL() << outside_.announcements.Failed()->what();
    }
    play_.NeedNoDialogLeft();
  } catch (const std::exception& error) {
    FAIL() << error.what() << " in:\n" << script;
  }
}

void ScriptedEditor::StartWithGame()
{
  Play(R"(
dir $G/Players/Jim/Setups/monza
file $G/gpl_ai.ini text ""
file $G/gpla65.ini text ""
file $G/gpla66.ini text ""
file $G/gpla69.ini text ""
file $G/gplaGT.ini text ""
file "$P/Velquist Program Settings.ini" text \
  "\"$G\"\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n\"$G\"\r\n"
start
)");
}

void ScriptedEditor::StartWithExamples()
{
  namespace fs = std::filesystem;
  fs::copy(velquist::testing::SourceDirectory() / "examples" / "GPL", Path("$G"),
           fs::copy_options::recursive);
  Play(R"(
on message \
  "You are missing the program's saved Program Settings file.  Please select your gpl.exe file." \
  exclamation -> ok
on open filter "GPL .exe Files|*.exe" start $P -> $G/gpl.exe
start
)");
}

void ScriptedEditor::Open(const Example& example)
{
  std::string script = "on open -> \"$G/" + example.path + "\"\n";
  const auto identity = setup::Identify(example.path, world_.Read("GPL/" + example.path));
  if (identity.question == setup::ModYearQuestion::kLongFile)
    script += "on FrmModYear1 -> " + example.year + "\n";
  else if (identity.question)
    script += "on FrmModYear2 -> " + example.year + "\n";
  const auto name = std::filesystem::path(example.path).filename().string();
  Play(script + "click MnuOpen\nexpect Label4 \"" + name + "\"\nexpect Combo2 \"" + example.year +
       "\"\nexpect unchanged\n");
}

std::filesystem::path ScriptedEditor::Path(const std::string& path) const
{
  auto absolute = path;
  if (absolute.starts_with("$G")) absolute.replace(0, 2, world_.Names().game);
  if (absolute.starts_with("$P")) absolute.replace(0, 2, world_.Names().program);
  if (absolute.starts_with("$T")) absolute.replace(0, 2, world_.Names().temporary);
  return platform::HostPath(absolute);
}

}  // namespace velquist::testing
