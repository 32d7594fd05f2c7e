// SPDX-License-Identifier: MIT
#include "Monkey.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>
#include <variant>

#include "app/FormControlSettings.h"
#include "runner/SourceDirectory.h"
#include "runner/Texts.h"
#include "setup/SlotTable.h"

namespace velquist::monkey {
namespace {

using app::ControlKind;
using runner::Quoted;
using testing::Dice;

constexpr std::array kFiles = {"$G/Players/Jim/Setups/monza/good.bb1",
                               "$G/Players/Jim/Setups/monza/wings.lo1",
                               "$G/Players/Jim/Setups/spa/odd.br2",
                               "$G/Players/Ann/Setups/monza/cut.lp1",
                               "$G/Players/Ann/Setups/spa/text.lo3",
                               "$G/Players/Jim/Setups/monza/empty.bb1",
                               "$G/Players/Jim/Setups/spa/long.fo1",
                               "$T/Second/Players/Bob/Setups/rouen/other.ga1",
                               "$T/download.bb1",
                               "$G/Players/Jim/Setups/monza/fresh.bb2",
                               "$G/Players/Ann/Setups/monza/name",
                               "$T/Second/Players/Bob/Setups/rouen/new.lo2"};
constexpr std::array kElsewhere = {"$G/Players/Jim/Setups/gone/a.bb1", "$G/Players/Jim",
                                   "$T/nothing.txt", "$G/gpl.exe", "$T/Second/gpl.exe"};

/// Values that setups have, and some that none has.
std::string RollField(Dice& dice, int slot)
{
  constexpr std::array kOdd = {"-1", "1e30", "nan", "inf", "-0", "0.333", "99999"};
  const bool whole = setup::IsWholeSlot(slot);
  std::string value;
  if (slot >= 42 && slot <= 48)
    value = std::to_string(dice.OneIn(9) ? dice.Between(-2, 120) : dice.Below(90));
  else if (slot >= 49 && slot <= 50)
    value = std::to_string(dice.OneIn(9) ? dice.Between(-9, 99) : dice.Between(6, 17) * 5);
  else if (slot == 51)
    value = std::to_string(dice.Between(0, 7));
  else if (dice.OneIn(20) && !whole)
    value = dice.OneOf(kOdd);
  else
    value = std::to_string(dice.Between(-3, 150));
  return " " + std::to_string(slot) + "=" + value;
}

std::string RollSetup(Dice& dice, const std::string& path)
{
  const bool is_long = dice.OneIn(2);
  auto statement = "setup " + path + (is_long ? " long" : " short");
  if (dice.OneIn(3)) statement += " sym=0";
  for (int slot = 0; slot < 52; ++slot) {
    if ((slot >= 35 && slot < 42) || ((slot == 33 || slot == 34) && !is_long)) continue;
    if (slot >= 42 || dice.OneIn(2)) statement += RollField(dice, slot);
  }
  return statement;
}

std::string RollBytes(Dice& dice)
{
  constexpr std::array kSizes = {0, 1, 4, 100, 263, 264, 265, 272, 300, 5000};
  std::vector<std::byte> bytes(static_cast<std::size_t>(dice.OneOf(kSizes)));
  for (auto& byte : bytes) byte = static_cast<std::byte>(dice.Below(256));
  if (bytes.size() >= 4 && !dice.OneIn(3))
    for (std::size_t at = 0; at < 4; ++at) bytes[at] = static_cast<std::byte>("PGTS"[at]);
  return bytes.empty() ? "text \"\"" : "hex " + runner::HexBytes(bytes);
}

std::string ControlText(const app::ControlDesign& design)
{
  return std::string(design.name) +
         (design.index < 0 ? "" : "(" + std::to_string(design.index) + ")");
}

/// Rolls one of the controls that a user can reach.
const app::ControlDesign* RollControl(Dice& dice, const app::MainForm& form,
                                      std::initializer_list<ControlKind> kinds)
{
  std::vector<const app::ControlDesign*> reachable;
  for (const auto& design : app::FormControlSettings()) {
    const auto* const control = form.Find(design.name, design.index);
    const bool acts = design.event != nullptr || design.kind == ControlKind::kList;
    if (std::ranges::find(kinds, design.kind) != kinds.end() && acts && control->enabled &&
        form.IsShown(*control) && design.name != "MnuExit")
      reachable.push_back(&design);
  }
  return reachable.empty() ? nullptr : dice.OneOf(reachable);
}

void Replace(std::string& text, const std::string& what, const std::string& with)
{
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
    text.replace(at, what.size(), with);
}

}  // namespace

Monkey::Monkey(std::unique_ptr<runner::Driver> driver, std::uint32_t seed)
    : world_(testing::SourceDirectory() / "assets" / "program"),
      driver_(std::move(driver)),
      outside_([this](std::string_view a, std::string_view b) { return world_.SameText(a, b); },
               *driver_),
      play_{world_, outside_, resources_, *driver_, out_}
{
  outside_.announcements.Improvised([this](runner::Dialog asked) { return Answer(asked); });
  Dice dice(seed);
  MakeWorld(dice);
  if (Do({"start", seed}) != Outcome::kFine) throw std::runtime_error("no start: " + what_);
}

Monkey::~Monkey()
{
  if (play_.started) driver_->Stop();
}

void Monkey::MakeWorld(Dice& dice)
{
  const auto put = [this](const std::string& statement) { PlayStatement(statement); };
  for (const auto* directory :
       {"$G/Players/Jim/Setups/monza", "$G/Players/Jim/Setups/spa", "$G/Players/Ann/Setups/monza",
        "$G/Players/Ann/Setups/spa", "$T/Second/Players/Bob/Setups/rouen"})
    put(std::string("dir ") + directory);
  for (const auto* marker : {"gpl_ai.ini", "gpla65.ini", "gpla66.ini", "gpla69.ini", "gplaGT.ini"})
    if (std::string_view(marker) == "gpl_ai.ini" || !dice.OneIn(5))
      put("file $G/" + std::string(marker) + " text \"\"");
  for (const auto* file : {"$G/gpl.exe", "$T/Second/gpl.exe", "$T/Second/gpl_ai.ini"})
    put(std::string("file ") + file + " text \"\"");
  std::string settings = "file \"$P/Velquist Program Settings.ini\" text \"\\\"$G\\\"\\r\\n";
  for (int number = 0; number < 7; ++number)
    settings += number == 6 ? std::to_string(dice.Below(2)) + "\\r\\n" : "0\\r\\n";
  put(settings + "\\\"$G\\\"\\r\\n" + (dice.OneIn(2) ? "\\\"$T/Second\\\"\\r\\n" : "") + "\"");
  for (const auto* file : kFiles) {
    if (dice.OneIn(4)) continue;
    if (dice.OneIn(4))
      put(std::string("file ") + file + " " + RollBytes(dice));
    else
      put(RollSetup(dice, file));
  }
}

void Monkey::PlayStatement(const std::string& statement)
{
  for (const auto& each : runner::ReadScript(statement + "\n", world_.Names()))
    runner::ReadStatement(each)(play_);
  script_.push_back(statement);
}

std::string Monkey::RollPath(Dice& dice) const
{
  return dice.OneIn(8) ? dice.OneOf(kElsewhere) : dice.OneOf(kFiles);
}

std::string Monkey::RollClick(Dice& dice)
{
  const auto& form = driver_->Window().Form();
  const int kind = dice.Below(100);
  if (kind < 55) {
    const auto* const button = RollControl(dice, form, {ControlKind::kButton});
    return button == nullptr ? "focus" : "click " + ControlText(*button);
  }
  if (kind < 75) {
    const auto* const item = RollControl(dice, form, {ControlKind::kMenu});
    return item == nullptr ? "focus" : "click " + ControlText(*item);
  }
  if (kind < 85) {
    const auto* const box = RollControl(dice, form, {ControlKind::kCheck, ControlKind::kOption});
    if (box == nullptr) return "focus";
    const bool checked = form.Find(box->name, box->index)->checked;
    const bool uncheck = checked && box->kind == ControlKind::kCheck;
    return (uncheck ? "uncheck " : "check ") + ControlText(*box);
  }
  const auto* const list = RollControl(dice, form, {ControlKind::kList});
  const auto count =
      list == nullptr ? 0 : static_cast<int>(form.Find(list->name, list->index)->items.size());
  if (count == 0) return "focus";
  return "select " + ControlText(*list) + " #" + std::to_string(dice.Below(count));
}

std::string Monkey::WithPlaces(std::string path) const
{
  const auto& names = world_.Names();
  Replace(path, "$G", names.game);
  Replace(path, "$T", names.temporary);
  return path;
}

/// Another program at work on the files.
std::string Monkey::RollChange(Dice& dice) const
{
  const std::string file = dice.OneOf(kFiles);
  switch (dice.Below(4)) {
    case 0: return world_.Exists(WithPlaces(file)) ? "remove " + file : "focus";
    case 1: return "file " + file + " " + RollBytes(dice);
    default: return RollSetup(dice, file);
  }
}

Event Monkey::Roll(Dice& dice)
{
  std::string statement;
  const int kind = dice.Below(1000);
  if (!driver_->Running())
    statement = dice.OneIn(2) ? "start" : "start " + Quoted("\"" + RollPath(dice) + "\"");
  else if (kind < 4)
    statement = "close";
  else if (kind < 6)
    statement = "start";
  else if (kind < 20)
    statement = RollChange(dice);
  else if (kind < 40)
    statement = "focus";
  else if (kind < 60)
    statement = "tick " + std::to_string(dice.Below(100));
  else if (kind < 130)
    statement = RollTyping(dice);
  else
    statement = RollClick(dice);
  return {statement, static_cast<std::uint32_t>(dice.Below(1 << 30))};
}

runner::Dialog Monkey::Answer(runner::Dialog asked)
{
  auto& dice = *answers_;
  const auto path = [&]() -> std::optional<std::string> {
    if (dice.OneIn(5)) return std::nullopt;
    return world_.Native(WithPlaces(RollPath(dice)));
  };
  if (auto* const message = std::get_if<runner::AnnouncedMessage>(&asked)) {
    if (message->answer != platform::Answer::kOk)
      message->answer = dice.OneIn(2) ? platform::Answer::kYes : platform::Answer::kNo;
  } else if (auto* const open = std::get_if<runner::AnnouncedOpen>(&asked)) {
    open->chosen = path();
  } else if (auto* const save = std::get_if<runner::AnnouncedSave>(&asked)) {
    save->chosen = path();
  } else if (auto* const question = std::get_if<runner::AnnouncedModYear>(&asked)) {
    if (!dice.OneIn(5)) question->button = dice.Below(4);
  } else if (auto* const form = std::get_if<runner::AnnouncedInstallDelete>(&asked)) {
    using Kind = runner::Driver::DeleteStep::Kind;
    if (dice.OneIn(3)) form->steps.insert(form->steps.begin(), {{Kind::kSelect}, {Kind::kDelete}});
  }
  auto announcement = "on " + runner::Described(asked);
  dialogs_.push_back(announcement);
  script_.push_back(std::move(announcement));
  return asked;
}

Monkey::Outcome Monkey::Do(const Event& event)
{
  dialogs_.clear();
  answers_.emplace(event.seed);
  try {
    if (event.statement.starts_with("type"))
      PlayTyping(event.statement);
    else
      PlayStatement(event.statement);
  } catch (const std::exception& error) {
    what_ = event.statement + ": " + error.what();
    const auto& failed = outside_.announcements.Failed();
    if (!failed) return Outcome::kImpossible;
    what_ += std::string("; ") + failed->what();
    return Outcome::kWrong;
  }
  what_ = Wrong(event);
  if (what_.empty()) return Outcome::kFine;
  what_ = event.statement + ": " + what_;
  return Outcome::kWrong;
}

std::string Monkey::Scenario() const
{
  std::string text;
  for (const auto& statement : script_) text += statement + "\n";
  const auto& names = world_.Names();
  Replace(text, names.game, "$G");
  Replace(text, names.program, "$P");
  Replace(text, names.temporary, "$T");
  return text;
}

std::vector<Event> Shortest(const std::vector<Event>& events,
                            const std::function<bool(const std::vector<Event>& events)>& goes_wrong)
{
  auto shortest = events;
  for (auto part = shortest.size() / 2; part > 0; part /= 2) {
    for (std::size_t from = 0; from + 1 < shortest.size();) {
      auto without = shortest;
      const auto begin = without.begin() + static_cast<std::ptrdiff_t>(from);
      const auto end = static_cast<std::ptrdiff_t>(std::min(part, without.size() - 1 - from));
      without.erase(begin, begin + end);
      if (goes_wrong(without))
        shortest = std::move(without);
      else
        from += part;
    }
  }
  return shortest;
}

}  // namespace velquist::monkey
