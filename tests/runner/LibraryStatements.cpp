// SPDX-License-Identifier: MIT
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "runner/Play.h"
#include "runner/Texts.h"

namespace velquist::runner {
namespace {

using Command = Driver::LibraryCommand;

constexpr std::array<std::pair<std::string_view, Command>, 4> kCommands = {{
    {"open", Command::kOpen},
    {"reference", Command::kReference},
    {"export", Command::kExport},
    {"show", Command::kShow},
}};

void NeedOpen(const Play& play)
{
  play.NeedRunning();
  if (!play.driver.Window().Form().library.open) throw Failure("the library open", "closed");
}

/// All its files as they are now.
app::LibraryTable& UpToDate(Play& play)
{
  auto& library = play.driver.Library();
  library.Scan();
  library.Finish();
  return library.Table();
}

std::string_view OrDash(std::string_view text)
{
  return text.empty() ? "-" : text;
}

std::string_view LayoutText(const std::optional<setup::Layout>& layout)
{
  if (!layout) return "-";
  return *layout == setup::Layout::kLong ? "long" : "short";
}

Step Use(Command command, const std::string& path)
{
  return [command, path](Play& play) {
    NeedOpen(play);
    const auto native = play.world.Native(path);
    if (!UpToDate(play).Find(native)) throw Failure("the library to show " + native, "no such row");
    play.driver.UseOfLibrary(command, native);
  };
}

}  // namespace

Step ReadLibrary(WordReader& words)
{
  if (words.Take("filter"))
    return [text = words.Next("the words").text](Play& play) {
      NeedOpen(play);
      play.driver.FilterLibrary(text);
    };
  if (words.Take("sort")) {
    const auto name = words.Next("a column").text;
    const auto column = app::LibraryColumnOf(name);
    if (!column) words.Fail("\"" + name + "\" is no column");
    return [column = *column](Play& play) {
      NeedOpen(play);
      play.driver.SortLibrary(column);
    };
  }
  for (const auto& [word, command] : kCommands)
    if (words.Take(word)) return Use(command, words.Next("a path").text);
  words.Fail("\"" + words.Next("what to do").text + "\" is nothing to do in the library");
}

/// All rows shown, in order.
Step ExpectLibrary(WordReader& words)
{
  std::vector<std::string> paths;
  while (!words.AtEnd()) paths.push_back(words.Next("a path").text);
  return [paths](Play& play) {
    play.NeedRunning();
    const auto listed = [](const std::vector<std::string>& all) {
      std::string text = "library";
      for (const auto& path : all) text += " " + Quoted(path);
      return text;
    };
    std::vector<std::string> expected;
    for (const auto& path : paths) expected.push_back(play.world.Native(path));
    const auto& table = UpToDate(play);
    std::vector<std::string> got;
    for (std::size_t line = 0; line < table.Count(); ++line) got.push_back(table.At(line).Path());
    if (got != expected) throw Failure(listed(expected), listed(got));
  };
}

Step DumpLibrary()
{
  return [](Play& play) {
    play.NeedRunning();
    const auto& table = UpToDate(play);
    for (std::size_t line = 0; line < table.Count(); ++line) {
      const auto& [file, identity, place, problem] = table.At(line).Setup();
      const auto formula =
          identity.formula_index ? std::to_string(*identity.formula_index + 1) : std::string();
      play.out << "setup " << Quoted(file.path) << ' ' << OrDash(library::YearsText(identity))
               << ' ' << OrDash(identity.chassis_code) << ' ' << OrDash(formula) << ' '
               << LayoutText(file.Layout()) << '\n';
    }
  };
}

}  // namespace velquist::runner
