// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <span>

#include "runner/Play.h"
#include "runner/Texts.h"
#include "setup/SlotTable.h"

namespace velquist::runner {
namespace {

using app::ControlKind;

/// A single as failures show it: its value and its bits.
std::string Shown(float value)
{
  return Shortest(value) + " (" + Hex8(value) + ")";
}

std::string Listed(const std::vector<std::string>& items)
{
  if (items.empty()) return "no items";
  std::string text = "items";
  for (const auto& item : items) text += " " + Quoted(item);
  return text;
}

bool SameBits(float a, float b)
{
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

void CompareText(const Play& play, const std::string& what, const std::string& expected,
                 const std::string& got)
{
  if (!play.world.SameText(expected, got))
    throw Failure(what + " " + Quoted(expected), Quoted(got));
}

void CompareBytes(const std::string& what, std::span<const std::byte> whole, int offset,
                  std::span<const std::byte> expected)
{
  const auto from = std::min(static_cast<std::size_t>(offset), whole.size());
  const auto got = whole.subspan(from, std::min(expected.size(), whole.size() - from));
  if (!std::ranges::equal(got, expected))
    throw Failure(what + " " + HexBytes(expected) + " at " + std::to_string(offset),
                  HexBytes(got) + (got.size() < expected.size() ? " and the end" : ""));
}

void CompareSize(const std::string& what, std::size_t got, int expected)
{
  if (got != static_cast<std::size_t>(expected))
    throw Failure(what + " size " + std::to_string(expected), std::to_string(got));
}

/// `expect NAME TRUE_WORD|FALSE_WORD`.
Step State(const ControlName& control, bool SeenControl::*state, bool expected,
           std::string_view true_word, std::string_view false_word)
{
  return [=](Play& play) {
    if (play.Seen(control).*state != expected)
      throw Failure(control.Text() + " " + std::string(expected ? true_word : false_word),
                    std::string(expected ? false_word : true_word));
  };
}

Step Checked(const ControlName& control, bool expected)
{
  return [=](Play& play) {
    constexpr std::array kCheckable = {ControlKind::kCheck, ControlKind::kOption,
                                       ControlKind::kMenu};
    const auto seen = play.Seen(control);
    if (std::ranges::find(kCheckable, seen.kind) == kCheckable.end())
      throw Failure(control.Text() + " to be checked or not",
                    "a " + std::string(KindName(seen.kind)));
    if (seen.checked != expected)
      throw Failure(control.Text() + (expected ? " checked" : " unchecked"),
                    seen.checked ? "checked" : "unchecked");
  };
}

Step At(WordReader& words, const ControlName& control)
{
  constexpr int kLeast = std::numeric_limits<int>::min();
  constexpr int kMost = std::numeric_limits<int>::max();
  app::Place place;
  place.left = words.Whole("left", kLeast, kMost);
  place.top = words.Whole("top", kLeast, kMost);
  place.width = words.Whole("width", kLeast, kMost);
  place.height = words.Whole("height", kLeast, kMost);
  return [control, place](Play& play) {
    const auto text = [](const app::Place& p) {
      return std::to_string(p.left) + " " + std::to_string(p.top) + " " + std::to_string(p.width) +
             " " + std::to_string(p.height);
    };
    const auto got = play.Seen(control).place;
    if (!(got == place)) throw Failure(control.Text() + " at " + text(place), text(got));
  };
}

Step Items(WordReader& words, const ControlName& control)
{
  std::vector<std::string> expected;
  while (!words.AtEnd()) expected.push_back(words.Next("an item").text);
  return [control, expected](Play& play) {
    const auto seen = play.Seen(control);
    if (seen.kind != ControlKind::kList)
      throw Failure(control.Text() + " to be a list", "a " + std::string(KindName(seen.kind)));
    if (!std::ranges::equal(seen.items, expected, [&](const auto& got, const auto& item) {
          return play.world.SameText(got, item);
        }))
      throw Failure(control.Text() + " " + Listed(expected), Listed(seen.items));
  };
}

Step ExpectControl(WordReader& words)
{
  const auto control = words.Control();
  if (words.Take("shown")) return State(control, &SeenControl::shown, true, "shown", "hidden");
  if (words.Take("hidden")) return State(control, &SeenControl::shown, false, "shown", "hidden");
  if (words.Take("enabled"))
    return State(control, &SeenControl::enabled, true, "enabled", "disabled");
  if (words.Take("disabled"))
    return State(control, &SeenControl::enabled, false, "enabled", "disabled");
  if (words.Take("checked")) return Checked(control, true);
  if (words.Take("unchecked")) return Checked(control, false);
  if (words.Take("marked")) return State(control, &SeenControl::marked, true, "marked", "unmarked");
  if (words.Take("unmarked"))
    return State(control, &SeenControl::marked, false, "marked", "unmarked");
  if (words.Take("at")) return At(words, control);
  if (words.Take("items")) return Items(words, control);
  if (int index = -1; words.TakeIndex(index))
    return [control, index](Play& play) {
      const auto seen = play.Seen(control);
      if (seen.kind != ControlKind::kList)
        throw Failure(control.Text() + " to be a list", "a " + std::string(KindName(seen.kind)));
      if (seen.selection != index)
        throw Failure(control.Text() + " #" + std::to_string(index),
                      "#" + std::to_string(seen.selection));
    };
  return [control, text = words.Next("what is expected").text](Play& play) {
    CompareText(play, control.Text(), text, play.Seen(control).text);
  };
}

Step ExpectSlot(WordReader& words)
{
  const int slot = words.Whole("slot", 0, setup::kSlots - 1);
  words.Expect("=");
  return [slot, expected = words.Single("number")](Play& play) {
    play.NeedRunning();
    const auto got =
        play.driver.Window().Car().SetupData().Value(setup::RowOf(slot), data::kCurrent);
    if (!SameBits(got, expected))
      throw Failure("slot " + std::to_string(slot) + " = " + Shown(expected), Shown(got));
  };
}

std::vector<std::byte> Contents(const Play& play, const std::string& path)
{
  if (!play.world.Exists(path)) throw Failure("file " + path + " exists", "missing");
  return play.world.Read(path);
}

Step ExpectFile(WordReader& words)
{
  const auto path = words.Next("a path").text;
  const auto what = "file " + path;
  if (words.Take("exists"))
    return [=](Play& play) {
      if (!play.world.Exists(path)) throw Failure(what + " exists", "missing");
    };
  if (words.Take("missing"))
    return [=](Play& play) {
      if (play.world.Exists(path)) throw Failure(what + " missing", "exists");
    };
  if (words.Take("size"))
    return [=, size = words.Whole("size", 0, std::numeric_limits<int>::max())](Play& play) {
      CompareSize(what, Contents(play, path).size(), size);
    };
  if (words.Take("hex")) {
    const int offset = words.Whole("offset", 0, std::numeric_limits<int>::max());
    return [=, bytes = words.Hex()](Play& play) {
      CompareBytes(what, Contents(play, path), offset, bytes);
    };
  }
  if (words.Take("text"))
    return [=, text = words.Next("a text").text](Play& play) {
      const auto bytes = Contents(play, path);
      CompareText(play, what + " text", text,
                  {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    };
  words.Expect("same");
  return [=, other = words.Next("a path").text](Play& play) {
    const auto bytes = Contents(play, path);
    const auto expected = Contents(play, other);
    if (bytes == expected) return;
    const auto differs = std::ranges::mismatch(bytes, expected).in1 - bytes.begin();
    throw Failure(what + " same " + other, std::to_string(bytes.size()) + " bytes against " +
                                               std::to_string(expected.size()) +
                                               ", the first difference at " +
                                               std::to_string(differs));
  };
}

Step ExpectChart(WordReader& words)
{
  const bool second = words.Take("PictureChart2");
  if (!second) words.Expect("PictureChart");
  words.Expect("text");
  return [second, text = words.Next("a text").text](Play& play) {
    play.NeedRunning();
    const auto& form = play.driver.Window().Form();
    std::string others;
    for (const auto& drawn : (second ? form.chart2 : form.chart).Drawn()) {
      if (drawn.kind != charts::Primitive::Kind::kText) continue;
      if (drawn.text == text) return;
      others += " " + Quoted(drawn.text);
    }
    throw Failure("chart text " + Quoted(text), others.empty() ? "no texts" : "texts" + others);
  };
}

Step ExpectBuffer(WordReader& words)
{
  if (words.Take("size"))
    return [size = words.Whole("size", 0, std::numeric_limits<int>::max())](Play& play) {
      play.NeedRunning();
      CompareSize("buffer", play.driver.Window().Car().SetupBuffer().size(), size);
    };
  words.Expect("hex");
  const int offset = words.Whole("offset", 0, std::numeric_limits<int>::max());
  return [offset, bytes = words.Hex()](Play& play) {
    play.NeedRunning();
    CompareBytes("buffer", play.driver.Window().Car().SetupBuffer(), offset, bytes);
  };
}

Step ExpectChanged(bool expected)
{
  return [expected](Play& play) {
    play.NeedRunning();
    if (play.driver.Window().Car().Changed() != expected)
      throw Failure(expected ? "changed" : "unchanged", expected ? "unchanged" : "changed");
  };
}

}  // namespace

Step ReadExpect(WordReader& words)
{
  if (words.Take("running")) return [](Play& play) { play.NeedRunning(); };
  if (words.Take("ended"))
    return [](Play& play) {
      if (!play.started) throw Failure("the program ended", "not started");
      if (play.driver.Running()) throw Failure("the program ended", "running");
    };
  if (words.Take("caption"))
    return [text = words.Next("the caption").text](Play& play) {
      play.NeedRunning();
      CompareText(play, "caption", text, play.driver.Caption());
    };
  if (words.Take("status"))
    return [text = words.Next("the status").text](Play& play) {
      play.NeedRunning();
      CompareText(play, "status", text, play.driver.Status());
    };
  if (words.Take("title"))
    return [text = words.Next("the title").text](Play& play) {
      CompareText(play, "title", text, play.outside.dialogs.Title());
    };
  if (words.Take("changed")) return ExpectChanged(true);
  if (words.Take("unchanged")) return ExpectChanged(false);
  if (words.Take("slot")) return ExpectSlot(words);
  if (words.Take("file")) return ExpectFile(words);
  if (words.Take("library")) return ExpectLibrary(words);
  if (words.Take("chart")) return ExpectChart(words);
  if (words.Take("buffer")) return ExpectBuffer(words);
  return ExpectControl(words);
}

}  // namespace velquist::runner
