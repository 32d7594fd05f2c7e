// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "runner/Play.h"

namespace velquist::runner {
namespace {

template <class Value, std::size_t N>
using Names = std::array<std::pair<std::string_view, Value>, N>;

constexpr Names<platform::Icon, 4> kIcons = {{
    {"information", platform::Icon::kInformation},
    {"exclamation", platform::Icon::kExclamation},
    {"question", platform::Icon::kQuestion},
    {"critical", platform::Icon::kCritical},
}};
constexpr Names<platform::Answer, 3> kAnswers = {{
    {"ok", platform::Answer::kOk},
    {"yes", platform::Answer::kYes},
    {"no", platform::Answer::kNo},
}};
constexpr Names<std::optional<int>, 5> kModYearButtons = {{
    {"1965", 0},
    {"1966", 1},
    {"1967", 2},
    {"1969", 3},
    {"close", std::nullopt},
}};

template <class Value, std::size_t N>
Value OneOf(WordReader& words, const Names<Value, N>& names, std::string_view what)
{
  const auto word = words.Next(what).text;
  const auto* const found =
      std::ranges::find(names, std::string_view(word), &std::pair<std::string_view, Value>::first);
  if (found == names.end()) words.Fail("\"" + word + "\" is no " + std::string(what));
  return found->second;
}

/// "-> PATH" or "-> cancel".
std::optional<std::string> ChosenPath(WordReader& words)
{
  words.Expect("->");
  if (words.Take("cancel")) return std::nullopt;
  return words.Next("a path or cancel").text;
}

void MakeNative(const World& world, std::optional<std::string>& path)
{
  if (path) path = world.Native(*path);
}

Step Announce(const WordReader& words, Dialog dialog)
{
  return [line = words.Line(), dialog = std::move(dialog)](Play& play) {
    auto announced = dialog;
    if (auto* const open = std::get_if<AnnouncedOpen>(&announced))
      MakeNative(play.world, open->chosen);
    if (auto* const save = std::get_if<AnnouncedSave>(&announced))
      MakeNative(play.world, save->chosen);
    play.outside.announcements.Announce(line, std::move(announced));
  };
}

Step ReadMessage(WordReader& words)
{
  AnnouncedMessage message;
  message.text = words.Next("the message").text;
  message.icon = OneOf(words, kIcons, "icon");
  words.Expect("->");
  message.answer = OneOf(words, kAnswers, "answer");
  return Announce(words, message);
}

Step ReadOpen(WordReader& words)
{
  AnnouncedOpen open;
  for (;;) {
    if (words.Take("filter"))
      open.filter = words.Next("the filter").text;
    else if (words.Take("index"))
      open.index = words.Whole("filter index", 0, std::numeric_limits<int>::max());
    else if (words.Take("start"))
      open.start = words.Next("the start name").text;
    else
      break;
  }
  open.chosen = ChosenPath(words);
  return Announce(words, open);
}

Step ReadSave(WordReader& words)
{
  AnnouncedSave save;
  for (;;) {
    if (words.Take("filter"))
      save.filter = words.Next("the filter").text;
    else if (words.Take("start"))
      save.start = words.Next("the start name").text;
    else
      break;
  }
  save.chosen = ChosenPath(words);
  return Announce(words, save);
}

Step ReadModYear(WordReader& words, app::ModYearForm form)
{
  words.Expect("->");
  return Announce(words, AnnouncedModYear{form, OneOf(words, kModYearButtons, "mod year")});
}

Step ReadInstallDelete(WordReader& words)
{
  using Kind = Driver::DeleteStep::Kind;
  words.Expect("->");
  AnnouncedInstallDelete form;
  do {
    int position = 0;
    if (words.TakeIndex(position)) {
      form.steps.push_back({Kind::kSelect, position});
    } else if (words.Take("delete")) {
      form.steps.push_back({Kind::kDelete});
    } else {
      words.Expect("cancel");
      form.steps.push_back({Kind::kCancel});
      break;
    }
  } while (!words.AtEnd());
  return Announce(words, form);
}

}  // namespace

Step ReadOn(WordReader& words)
{
  if (words.Take("message")) return ReadMessage(words);
  if (words.Take("open")) return ReadOpen(words);
  if (words.Take("save")) return ReadSave(words);
  if (words.Take("FrmModYear1")) return ReadModYear(words, app::ModYearForm::kFrmModYear1);
  if (words.Take("FrmModYear2")) return ReadModYear(words, app::ModYearForm::kFrmModYear2);
  if (words.Take("FrmInstallDelete")) return ReadInstallDelete(words);
  if (words.Take("FrmHelp")) return Announce(words, AnnouncedHelp{});
  if (words.Take("run")) return Announce(words, AnnouncedRun{words.Next("a path").text});
  if (words.Take("filemanager"))
    return Announce(words, AnnouncedFileManager{words.Next("a path").text});
  words.Fail("\"" + words.Next("a dialog").text + "\" is no dialog");
}

}  // namespace velquist::runner
