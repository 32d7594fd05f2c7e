// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "runner/Driver.h"
#include "runner/Script.h"
#include "runner/ScriptedPlatform.h"
#include "runner/World.h"

namespace velquist::runner {

/// One script at work.
struct Play {
  World& world;
  ScriptedPlatform& outside;
  platform::Resources& resources;
  Driver& driver;
  std::ostream& out;  ///< for dumps alone
  bool started = false;
  int next_screen_width = 1280;
  int next_screen_height = 1024;

  /// Throws Failure unless the program runs.
  void NeedRunning() const;
  /// The control as the user sees it. Throws Failure when there is none or the program has ended.
  [[nodiscard]] SeenControl Seen(const ControlName& control) const;
  /// Throws Failure for a dialog that was announced and has not come.
  void NeedNoDialogLeft() const;
};

/// One statement, ready to be played. Throws Failure for what is not as expected.
using Step = std::function<void(Play&)>;

// What stands behind a statement's first word, read. All throw ScriptError.

[[nodiscard]] Step ReadDir(WordReader& words);
[[nodiscard]] Step ReadFile(WordReader& words);
[[nodiscard]] Step ReadSetup(WordReader& words);
[[nodiscard]] Step ReadCopy(WordReader& words);
[[nodiscard]] Step ReadRemove(WordReader& words);
[[nodiscard]] Step ReadScreen(WordReader& words);
[[nodiscard]] Step ReadClock(WordReader& words);
[[nodiscard]] Step ReadRandom(WordReader& words);

[[nodiscard]] Step ReadStart(WordReader& words);
[[nodiscard]] Step ReadClick(WordReader& words);
[[nodiscard]] Step ReadCheck(WordReader& words);
[[nodiscard]] Step ReadUncheck(WordReader& words);
[[nodiscard]] Step ReadSelect(WordReader& words);
[[nodiscard]] Step ReadType(WordReader& words);
[[nodiscard]] Step ReadClose(WordReader& words);
[[nodiscard]] Step ReadFocus(WordReader& words);
[[nodiscard]] Step ReadTick(WordReader& words);
[[nodiscard]] Step ReadLibrary(WordReader& words);

[[nodiscard]] Step ReadOn(WordReader& words);
[[nodiscard]] Step ReadExpect(WordReader& words);
[[nodiscard]] Step ReadDump(WordReader& words);
[[nodiscard]] Step ExpectLibrary(WordReader& words);
[[nodiscard]] Step DumpLibrary();
[[nodiscard]] Step ReadPrint(WordReader& words);

/// Any whole statement.
[[nodiscard]] Step ReadStatement(const Statement& statement);

/// How a failure names a control's kind: "list".
[[nodiscard]] std::string_view KindName(app::ControlKind kind);

}  // namespace velquist::runner
