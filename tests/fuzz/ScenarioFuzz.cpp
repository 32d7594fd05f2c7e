// SPDX-License-Identifier: MIT
// The input is a scenario script.
#include <algorithm>
#include <cstdint>
#include <string>

#include "Fuzz.h"
#include "runner/Script.h"

namespace {

using namespace velquist;
using fuzz::Require;

/// Takes words as each kind of thing in turn.
void Read(const runner::Statement& statement)
{
  runner::WordReader words(statement);
  try {
    for (int kind = statement.line; !words.AtEnd(); ++kind) {
      int index = -1;
      switch (kind % 6) {
        case 0: Require(words.Whole("a number", -5, 1000) <= 1000, "within its range"); break;
        case 1: (void)words.Single("a single"); break;
        case 2: Require(!words.Control().Text().empty(), "a control has a name"); break;
        case 3: (void)words.TakeIndex(index); break;
        case 4: (void)words.Take("expect"); break;
        default: (void)words.Next("a word"); break;
      }
    }
    words.End();
  } catch (const runner::ScriptError& error) {
    Require(error.Line() == statement.line, "the statement's line");
  }
  try {
    runner::WordReader hex(statement);
    (void)hex.Hex();
    Require(hex.AtEnd(), "all words are taken");
  } catch (const runner::ScriptError&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  const auto text = fuzz::TextOf(data, size);
  const auto lines = static_cast<int>(std::count(text.begin(), text.end(), '\n')) + 1;
  try {
    int last = 0;
    for (const auto& statement : runner::ReadScript(text, {"/t", "/t/program", "/t/game"})) {
      Require(statement.line > last && statement.line <= lines, "statements by rising lines");
      last = statement.line;
      Require(!statement.words.empty(), "a statement has words");
      Read(statement);
    }
  } catch (const runner::ScriptError& error) {
    Require(error.Line() >= 1 && error.Line() <= lines, "an error has its line");
  }
  return 0;
}
