// SPDX-License-Identifier: MIT
#include <span>

#include "runner/Play.h"
#include "runner/SetupFile.h"
#include "runner/Texts.h"

namespace velquist::runner {
namespace {

/// "4=90.5" or "sym=0" of a setup statement.
void ReadField(const WordReader& words, const std::string& field, SetupFile& setup)
{
  const auto equals = field.find('=');
  if (equals == std::string::npos) words.Fail("\"" + field + "\" is no SLOT=VALUE");
  const auto name = field.substr(0, equals);
  const auto value = field.substr(equals + 1);
  if (name == "sym") {
    if (value != "0" && value != "1") words.Fail("sym is 0 or 1");
    setup.symmetric = value == "1";
    return;
  }
  const auto slot = ParseWhole(name);
  if (!slot || *slot < 0 || *slot >= kSetupSlots) words.Fail("\"" + name + "\" is no slot");
  if (!setup.long_layout && *slot >= kFirstWingSlot && *slot <= kLastWingSlot)
    words.Fail("a short setup has no wings");
  const auto bits = SlotBits(static_cast<int>(*slot), value);
  if (!bits) words.Fail("slot " + name + " cannot hold \"" + value + "\"");
  setup.slots[static_cast<std::size_t>(*slot)] = bits;
}

}  // namespace

Step ReadDir(WordReader& words)
{
  return [path = words.Next("a path").text](Play& play) { play.world.MakeDirectory(path); };
}

Step ReadFile(WordReader& words)
{
  const auto path = words.Next("a path").text;
  if (words.Take("text"))
    return [path, text = words.Next("a text").text](Play& play) {
      const auto native = play.world.NativeText(text);
      play.world.Write(path, std::as_bytes(std::span(native)));
    };
  words.Expect("hex");
  return [path, bytes = words.Hex()](Play& play) { play.world.Write(path, bytes); };
}

Step ReadSetup(WordReader& words)
{
  const auto path = words.Next("a path").text;
  SetupFile setup;
  setup.long_layout = words.Take("long");
  if (!setup.long_layout) words.Expect("short");
  while (!words.AtEnd()) ReadField(words, words.Next("a field").text, setup);
  return [path, bytes = MakeSetupFile(setup)](Play& play) { play.world.Write(path, bytes); };
}

Step ReadCopy(WordReader& words)
{
  const auto from = words.Next("what to copy").text;
  const auto to = words.Next("where to copy it").text;
  return [from, to](Play& play) { play.world.Copy(from, to); };
}

Step ReadRemove(WordReader& words)
{
  return [path = words.Next("a path").text](Play& play) { play.world.Remove(path); };
}

Step ReadScreen(WordReader& words)
{
  constexpr int kMost = 100000;
  const int width = words.Whole("width", 1, kMost);
  const int height = words.Whole("height", 1, kMost);
  return [width, height](Play& play) {
    play.next_screen_width = width;
    play.next_screen_height = height;
  };
}

Step ReadClock(WordReader& words)
{
  const auto now = ParseWhole(words.Next("the tick count").text);
  if (!now || *now < 0) words.Fail("the tick count is a whole number from 0 up");
  return [now](Play& play) { play.outside.clock.Set(static_cast<std::uint64_t>(*now)); };
}

Step ReadRandom(WordReader& words)
{
  const auto value = ParseDouble(words.Next("the random value").text);
  if (!value || !(*value >= 0 && *value < 1)) words.Fail("the random value is 0 or more, below 1");
  return [value](Play& play) { play.outside.random.Set(*value); };
}

}  // namespace velquist::runner
