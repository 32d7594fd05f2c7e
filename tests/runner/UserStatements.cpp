// SPDX-License-Identifier: MIT
#include <algorithm>
#include <limits>

#include "runner/Play.h"
#include "runner/Texts.h"

namespace velquist::runner {
namespace {

using app::ControlKind;

/// The control, which a user can reach and which is of one of these kinds.
SeenControl Reachable(const Play& play, const ControlName& control,
                      std::initializer_list<ControlKind> kinds, const std::string& expected)
{
  auto seen = play.Seen(control);
  if (std::ranges::find(kinds, seen.kind) == kinds.end())
    throw Failure(control.Text() + " to be " + expected, "a " + std::string(KindName(seen.kind)));
  if (!seen.shown) throw Failure(control.Text() + " shown", "hidden");
  if (!seen.enabled) throw Failure(control.Text() + " enabled", "disabled");
  return seen;
}

Step SetCheck(WordReader& words, bool checked)
{
  return [control = words.Control(), checked](Play& play) {
    const auto seen = Reachable(play, control, {ControlKind::kCheck, ControlKind::kOption},
                                "a check box or an option button");
    if (seen.checked == checked) return;
    if (seen.kind == ControlKind::kOption && !checked)
      throw Failure(control.Text() + " unchecked", "an option button, which only another unchecks");
    play.driver.Check(control.name, control.index, checked);
  };
}

/// Where `text` stands in the list.
int PositionOf(const Play& play, const ControlName& control, const SeenControl& list,
               const std::string& text)
{
  const auto found = std::ranges::find_if(
      list.items, [&](const std::string& item) { return play.world.SameText(item, text); });
  if (found != list.items.end()) return static_cast<int>(found - list.items.begin());
  std::string items;
  for (const auto& item : list.items) items += " " + Quoted(item);
  throw Failure(control.Text() + " to offer " + Quoted(text), "items" + items);
}

}  // namespace

Step ReadStart(WordReader& words)
{
  const auto command_line = words.AtEnd() ? std::string() : words.Next("the command line").text;
  return [command_line](Play& play) {
    if (play.started) play.driver.Stop();
    play.started = true;
    play.outside.screen.Set(play.next_screen_width, play.next_screen_height);
    play.driver.Start(play.outside.Outside(play.world.Names().program, play.resources),
                      play.world.NativeText(command_line));
    play.NeedNoDialogLeft();
  };
}

Step ReadClick(WordReader& words)
{
  return [control = words.Control()](Play& play) {
    (void)Reachable(play, control, {ControlKind::kButton, ControlKind::kMenu},
                    "a button or a menu item");
    if (!play.driver.Click(control.name, control.index))
      throw Failure(control.Text() + " to do something", "nothing");
  };
}

Step ReadCheck(WordReader& words)
{
  return SetCheck(words, true);
}

Step ReadUncheck(WordReader& words)
{
  return SetCheck(words, false);
}

Step ReadSelect(WordReader& words)
{
  const auto control = words.Control();
  int position = -1;
  if (words.TakeIndex(position)) {
    return [control, position](Play& play) {
      const auto list = Reachable(play, control, {ControlKind::kList}, "a list");
      const auto count = static_cast<int>(list.items.size());
      if (position < 0 || position >= count)
        throw Failure(control.Text() + " to offer #" + std::to_string(position),
                      std::to_string(count) + " items");
      play.driver.Select(control.name, control.index, position);
    };
  }
  return [control, text = words.Next("an item").text](Play& play) {
    const auto list = Reachable(play, control, {ControlKind::kList}, "a list");
    play.driver.Select(control.name, control.index, PositionOf(play, control, list, text));
  };
}

Step ReadType(WordReader& words)
{
  const auto control = words.Control();
  const auto text = words.Next("a number").text;
  const auto refused = words.Take("refused") ? words.Next("the range").text : std::string();
  return [control, text, refused](Play& play) {
    (void)Reachable(play, control, {ControlKind::kLabel}, "the label of a value");
    if (control.name != "Label1")
      throw Failure(control.Text() + " to be the label of a value", "another label");
    const auto answer = play.driver.Type(control.index, text);
    if (answer != refused)
      throw Failure(
          Quoted(text) + (refused.empty() ? " taken" : " refused with " + Quoted(refused)),
          answer.empty() ? "taken" : Quoted(answer));
  };
}

Step ReadClose(WordReader& /*words*/)
{
  return [](Play& play) {
    play.NeedRunning();
    play.driver.Close();
  };
}

Step ReadFocus(WordReader& /*words*/)
{
  return [](Play& play) {
    play.NeedRunning();
    play.driver.Focus();
  };
}

Step ReadTick(WordReader& words)
{
  const int milliseconds = words.Whole("time", 0, std::numeric_limits<int>::max());
  return [milliseconds](Play& play) {
    // About as often as a timer of the program would go off.
    constexpr int kSlice = 15;
    int left = milliseconds;
    do {
      const int slice = std::min(left, kSlice);
      left -= slice;
      play.outside.clock.Set(play.outside.clock.TickCount() + static_cast<unsigned>(slice));
      if (play.started && play.driver.Running()) play.driver.Tick();
    } while (left > 0 && !play.outside.announcements.Failed());
  };
}

}  // namespace velquist::runner
