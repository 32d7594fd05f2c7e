// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velquist::runner {

/// What stands for $T, $P and $G in a script: absolute paths as the host writes them.
struct Places {
  std::string temporary;  ///< $T, the script's own directory
  std::string program;    ///< $P, the program directory
  std::string game;       ///< $G, the game's directory
};

struct Word {
  std::string text;
  bool quoted = false;  ///< stood in quotes, so it is no keyword
};

struct Statement {
  int line = 0;             ///< counted from 1; the first line of a continued one
  std::vector<Word> words;  ///< never empty
};

/// A script that is not written in the language.
class ScriptError : public std::runtime_error {
 public:
  ScriptError(int line, const std::string& reason) : std::runtime_error(reason), line_(line) {}

  [[nodiscard]] int Line() const noexcept { return line_; }

 private:
  int line_;
};

/// Splits a script into statements and words. Throws ScriptError.
[[nodiscard]] std::vector<Statement> ReadScript(std::string_view text, const Places& places);

/// A control as scripts write it: "CmdInc(4)", "Combo2".
struct ControlName {
  std::string name;
  int index = -1;  ///< -1 for a single control

  [[nodiscard]] std::string Text() const;
};

/// Takes a statement's words one by one. Whatever does not fit throws ScriptError; `what` names in
/// its text what was looked for.
class WordReader {
 public:
  explicit WordReader(const Statement& statement) : statement_(statement) {}

  [[nodiscard]] bool AtEnd() const noexcept { return next_ == statement_.words.size(); }
  [[nodiscard]] int Line() const noexcept { return statement_.line; }

  const Word& Next(std::string_view what);
  /// Takes the next word when it is `keyword`, unquoted.
  bool Take(std::string_view keyword);
  void Expect(std::string_view keyword);

  /// The next word as a whole number from `least` to `most`.
  int Whole(std::string_view what, int least, int most);
  float Single(std::string_view what);
  ControlName Control();
  /// True when the next word is "#N", unquoted; takes it and sets `index` then.
  bool TakeIndex(int& index);
  /// All the words that are left, as pairs of hexadecimal digits.
  std::vector<std::byte> Hex();

  void End() const;
  [[noreturn]] void Fail(const std::string& reason) const;

 private:
  const Statement& statement_;
  std::size_t next_ = 0;
};

}  // namespace velquist::runner
