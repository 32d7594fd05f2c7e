// SPDX-License-Identifier: MIT
#include "runner/Play.h"

#include <array>
#include <map>

namespace velquist::runner {
namespace {

const std::map<std::string_view, Step (*)(WordReader&)> kStatements = {
    {"dir", ReadDir},       {"file", ReadFile},     {"setup", ReadSetup},
    {"copy", ReadCopy},     {"remove", ReadRemove}, {"screen", ReadScreen},
    {"clock", ReadClock},   {"random", ReadRandom}, {"start", ReadStart},
    {"click", ReadClick},   {"check", ReadCheck},   {"uncheck", ReadUncheck},
    {"select", ReadSelect}, {"close", ReadClose},   {"tick", ReadTick},
    {"on", ReadOn},         {"expect", ReadExpect}, {"dump", ReadDump},
    {"print", ReadPrint},   {"focus", ReadFocus},   {"library", ReadLibrary},
    {"type", ReadType},
};

constexpr std::array<std::string_view, 8> kKinds = {"button", "label", "list", "check",
                                                    "option", "frame", "menu", "picture"};
static_assert(static_cast<std::size_t>(app::ControlKind::kPicture) == kKinds.size() - 1);

}  // namespace

void Play::NeedRunning() const
{
  if (!started) throw Failure("the program running", "not started");
  if (!driver.Running()) throw Failure("the program running", "ended");
}

SeenControl Play::Seen(const ControlName& control) const
{
  NeedRunning();
  auto seen = driver.Seen(control.name, control.index);
  if (!seen) throw Failure("a control " + control.Text(), "none of that name");
  return *std::move(seen);
}

void Play::NeedNoDialogLeft() const
{
  const auto* const left = outside.announcements.First();
  if (left != nullptr)
    throw Failure(Described(left->dialog) + " of line " + std::to_string(left->line), "no dialog");
}

Step ReadStatement(const Statement& statement)
{
  WordReader words(statement);
  const auto name = words.Next("a statement").text;
  const auto read = kStatements.find(name);
  if (read == kStatements.end()) words.Fail("\"" + name + "\" is no statement");
  auto step = read->second(words);
  words.End();
  return step;
}

std::string_view KindName(app::ControlKind kind)
{
  return kKinds.at(static_cast<std::size_t>(kind));
}

}  // namespace velquist::runner
