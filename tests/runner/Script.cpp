// SPDX-License-Identifier: MIT
#include "runner/Script.h"

#include <algorithm>
#include <limits>

#include "runner/Texts.h"

namespace velquist::runner {
namespace {

bool IsBlank(char c)
{
  return c == ' ' || c == '\t';
}

/// The words of one statement, whose lines are joined already.
class Splitter {
 public:
  Splitter(std::string_view line, int number, const Places& places)
      : line_(line), number_(number), places_(places)
  {
  }

  std::vector<Word> Words()
  {
    std::vector<Word> words;
    for (SkipBlanks(); at_ < line_.size(); SkipBlanks())
      words.push_back(line_[at_] == '"' ? QuotedWord() : PlainWord());
    return words;
  }

 private:
  void SkipBlanks()
  {
    while (at_ < line_.size() && IsBlank(line_[at_])) ++at_;
  }

  Word PlainWord()
  {
    Word word;
    while (at_ < line_.size() && !IsBlank(line_[at_])) {
      if (line_[at_] == '"') Fail("a quote stands inside a word");
      if (!AppendPlace(word.text)) word.text += line_[at_++];
    }
    return word;
  }

  Word QuotedWord()
  {
    Word word{{}, true};
    ++at_;
    for (;;) {
      if (at_ == line_.size()) Fail("a closing quote is missing");
      if (line_[at_] == '"') break;
      if (line_[at_] == '\\')
        AppendEscape(word.text);
      else if (!AppendPlace(word.text))
        word.text += line_[at_++];
    }
    ++at_;
    if (at_ < line_.size() && !IsBlank(line_[at_])) Fail("a blank is missing behind a quote");
    return word;
  }

  /// Takes $T, $P or $G; false when none stands here.
  bool AppendPlace(std::string& text)
  {
    const auto name = line_.substr(at_, 2);
    const std::string* const place = name == "$T"   ? &places_.temporary
                                     : name == "$P" ? &places_.program
                                     : name == "$G" ? &places_.game
                                                    : nullptr;
    if (place == nullptr) return false;
    text += *place;
    at_ += name.size();
    return true;
  }

  void AppendEscape(std::string& text)
  {
    const char kind = at_ + 1 < line_.size() ? line_[at_ + 1] : '\0';
    at_ += 2;
    switch (kind) {
      case '"':
      case '\\': text += kind; return;
      case 'r': text += '\r'; return;
      case 'n': text += '\n'; return;
      case 't': text += '\t'; return;
      case 'x': break;
      default: Fail("an escape is none of \\\" \\\\ \\r \\n \\t \\xNN");
    }
    const auto digits = line_.substr(std::min(at_, line_.size()), 2);
    const auto byte = ParseHex(digits);
    if (!byte || byte->size() != 1) Fail("\\x needs two hexadecimal digits");
    text += static_cast<char>(byte->front());
    at_ += 2;
  }

  [[noreturn]] void Fail(const std::string& reason) const { throw ScriptError(number_, reason); }

  std::string_view line_;
  int number_;
  const Places& places_;
  std::size_t at_ = 0;
};

/// True when the line goes on in the next one: it ends in a single backslash outside quotes.
bool GoesOn(std::string_view line)
{
  if (!line.ends_with('\\') || line.ends_with("\\\\")) return false;
  bool quoted = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] == '"')
      quoted = !quoted;
    else if (quoted && line[at] == '\\')
      ++at;
  }
  return !quoted;
}

/// Takes the next line off `text`, without its line end.
std::string_view TakeLine(std::string_view& text)
{
  const auto end = text.find('\n');
  auto line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

bool IsSkipped(std::string_view line)
{
  const auto first = line.find_first_not_of(" \t");
  return first == std::string_view::npos || line[first] == '#';
}

}  // namespace

std::vector<Statement> ReadScript(std::string_view text, const Places& places)
{
  constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());

  std::vector<Statement> statements;
  for (int number = 1; !text.empty(); ++number) {
    std::string line(TakeLine(text));
    if (IsSkipped(line)) continue;
    Statement statement{number, {}};
    while (GoesOn(line)) {
      if (text.empty()) throw ScriptError(number, "the script ends behind a \\");
      line.pop_back();
      line += TakeLine(text);
      ++number;
    }
    statement.words = Splitter(line, statement.line, places).Words();
    if (!statement.words.empty()) statements.push_back(std::move(statement));
  }
  return statements;
}

std::string ControlName::Text() const
{
  return index < 0 ? name : name + "(" + std::to_string(index) + ")";
}

const Word& WordReader::Next(std::string_view what)
{
  if (AtEnd()) Fail(std::string(what) + " is missing");
  return statement_.words[next_++];
}

bool WordReader::Take(std::string_view keyword)
{
  if (AtEnd()) return false;
  const Word& word = statement_.words[next_];
  if (word.quoted || word.text != keyword) return false;
  ++next_;
  return true;
}

void WordReader::Expect(std::string_view keyword)
{
  if (!Take(keyword)) Fail("\"" + std::string(keyword) + "\" is missing");
}

int WordReader::Whole(std::string_view what, int least, int most)
{
  const Word& word = Next(what);
  const auto number = ParseWhole(word.text);
  if (!number || *number < least || *number > most)
    Fail(word.text + " is no " + std::string(what) + " from " + std::to_string(least) + " to " +
         std::to_string(most));
  return static_cast<int>(*number);
}

float WordReader::Single(std::string_view what)
{
  const Word& word = Next(what);
  const auto number = ParseSingle(word.text);
  if (!number) Fail(word.text + " is no " + std::string(what));
  return *number;
}

ControlName WordReader::Control()
{
  const std::string& text = Next("a control").text;
  const auto bracket = text.find('(');
  ControlName control{text.substr(0, bracket), -1};
  if (bracket != std::string::npos) {
    const auto index =
        text.ends_with(')')
            ? ParseWhole(std::string_view(text).substr(bracket + 1, text.size() - bracket - 2))
            : std::nullopt;
    if (!index || *index < 0 || *index > std::numeric_limits<int>::max())
      Fail(text + " is no control's name");
    control.index = static_cast<int>(*index);
  }
  if (control.name.empty()) Fail("a control's name is missing");
  return control;
}

bool WordReader::TakeIndex(int& index)
{
  if (AtEnd()) return false;
  const Word& word = statement_.words[next_];
  if (word.quoted || !word.text.starts_with('#')) return false;
  const auto number = ParseWhole(std::string_view(word.text).substr(1));
  if (!number || *number < -1 || *number > std::numeric_limits<int>::max())
    Fail(word.text + " is no index");
  index = static_cast<int>(*number);
  ++next_;
  return true;
}

std::vector<std::byte> WordReader::Hex()
{
  std::string digits = Next("hexadecimal digits").text;
  while (!AtEnd()) digits += " " + Next("").text;
  auto bytes = ParseHex(digits);
  if (!bytes) Fail("\"" + digits + "\" are no pairs of hexadecimal digits");
  return *std::move(bytes);
}

void WordReader::End() const
{
  if (!AtEnd()) Fail("\"" + statement_.words[next_].text + "\" is one word too many");
}

void WordReader::Fail(const std::string& reason) const
{
  throw ScriptError(statement_.line, reason);
}

}  // namespace velquist::runner
