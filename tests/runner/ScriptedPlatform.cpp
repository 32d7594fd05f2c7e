// SPDX-License-Identifier: MIT
#include "runner/ScriptedPlatform.h"

#include <array>

#include "platform/Errors.h"
#include "platform/JpegHeader.h"
#include "runner/Texts.h"

namespace velquist::runner {
namespace {

using platform::Answer;
using platform::Buttons;

constexpr std::array<std::string_view, 4> kIconNames = {"information", "exclamation", "question",
                                                        "critical"};
constexpr std::array<std::string_view, 3> kAnswerNames = {"ok", "yes", "no"};
constexpr std::array<std::string_view, 3> kButtons = {"OK", "Yes/No", "Yes/No"};
constexpr std::array<std::string_view, 4> kModYears = {"1965", "1966", "1967", "1969"};

template <std::size_t N, class Enum>
std::string Name(const std::array<std::string_view, N>& names, Enum value)
{
  return std::string(names.at(static_cast<std::size_t>(value)));
}

std::string Described(std::string_view keyword, const std::optional<std::string>& text)
{
  return text ? " " + std::string(keyword) + " " + Quoted(*text) : "";
}

std::string ChosenPath(const std::optional<std::string>& chosen)
{
  return " -> " + (chosen ? Quoted(*chosen) : "cancel");
}

std::string FormName(app::ModYearForm form)
{
  return form == app::ModYearForm::kFrmModYear1 ? "FrmModYear1" : "FrmModYear2";
}

std::string Message(std::string_view text, platform::Icon icon)
{
  return "message " + Quoted(text) + " " + Name(kIconNames, icon);
}

struct Describer {
  std::string operator()(const AnnouncedMessage& message) const
  {
    return Message(message.text, message.icon) + " -> " + Name(kAnswerNames, message.answer);
  }
  std::string operator()(const AnnouncedOpen& open) const
  {
    return "open" + Described("filter", open.filter) +
           (open.index ? " index " + std::to_string(*open.index) : "") +
           Described("start", open.start) + ChosenPath(open.chosen);
  }
  std::string operator()(const AnnouncedSave& save) const
  {
    return "save" + Described("filter", save.filter) + Described("start", save.start) +
           ChosenPath(save.chosen);
  }
  std::string operator()(const AnnouncedModYear& question) const
  {
    return FormName(question.form) + " -> " +
           (question.button ? Name(kModYears, *question.button) : "close");
  }
  std::string operator()(const AnnouncedInstallDelete& form) const
  {
    std::string text = "FrmInstallDelete ->";
    for (const auto& step : form.steps) text += " " + Step(step);
    return text;
  }
  std::string operator()(const AnnouncedHelp& /*help*/) const { return "FrmHelp"; }
  std::string operator()(const AnnouncedRun& run) const { return "run " + Quoted(run.path); }
  std::string operator()(const AnnouncedFileManager& shown) const
  {
    return "filemanager " + Quoted(shown.path);
  }

  static std::string Step(const Driver::DeleteStep& step)
  {
    switch (step.kind) {
      case Driver::DeleteStep::Kind::kSelect: return "#" + std::to_string(step.position);
      case Driver::DeleteStep::Kind::kDelete: return "delete";
      case Driver::DeleteStep::Kind::kCancel: return "cancel";
    }
    return {};
  }
};

/// The form for deleting installations, refusing positions that a user could not choose.
class CheckedForm final : public app::InstallDeleteForm {
 public:
  CheckedForm(app::InstallDeleteForm& form, Announcements& announcements)
      : form_(form), announcements_(announcements)
  {
  }

  [[nodiscard]] const std::vector<std::string>& Items() const override { return form_.Items(); }
  [[nodiscard]] int Selection() const override { return form_.Selection(); }
  void Combo1_Click(int position) override
  {
    const auto count = static_cast<int>(Items().size());
    if (position >= 0 && position < count) return form_.Combo1_Click(position);
    announcements_.Fail({"FrmInstallDelete to offer #" + std::to_string(position),
                         std::to_string(count) + " items"});
  }
  void DeleteButton_Click() override { form_.DeleteButton_Click(); }
  [[nodiscard]] bool MustClose() const override { return form_.MustClose(); }

 private:
  app::InstallDeleteForm& form_;
  Announcements& announcements_;
};

}  // namespace

std::string Described(const Dialog& dialog)
{
  return std::visit(Describer{}, dialog);
}

template <class Kind>
std::optional<Kind> Announcements::Take(const std::string& got, const Kind& asked,
                                        const std::function<bool(const Kind&)>& fits)
{
  if (failure_) return std::nullopt;
  if (waiting_.empty() && improvise_) Announce(0, improvise_(asked));
  if (waiting_.empty()) {
    Fail({"no dialog", got});
    return std::nullopt;
  }
  const Announced& first = waiting_.front();
  const auto* const expected = std::get_if<Kind>(&first.dialog);
  if (expected == nullptr || !fits(*expected)) {
    Fail({Described(first.dialog) + " of line " + std::to_string(first.line), got});
    return std::nullopt;
  }
  auto taken = *expected;
  waiting_.pop_front();
  return taken;
}

void ScriptedDialogs::Guarded(const std::string& form, const std::function<void()>& answer)
{
  try {
    answer();
  } catch (const std::exception& error) {
    announcements_.Fail({form + " to be answered", error.what()});
  }
}

Answer ScriptedDialogs::ShowMessage(std::string_view text, platform::Icon icon, Buttons buttons)
{
  title_ = platform::kMessageTitle;
  const auto got = Message(text, icon) + " with " + Name(kButtons, buttons);
  const AnnouncedMessage asked{std::string(text), icon,
                               buttons == Buttons::kOk ? Answer::kOk : Answer::kNo};
  const auto taken = announcements_.Take<AnnouncedMessage>(got, asked, [&](const auto& expected) {
    return announcements_.Same(expected.text, text) && expected.icon == icon &&
           (expected.answer == Answer::kOk) == (buttons == Buttons::kOk);
  });
  if (taken) return taken->answer;
  return buttons == Buttons::kOk ? Answer::kOk : Answer::kNo;
}

std::optional<std::string> ScriptedDialogs::AskOpenFile(const platform::OpenRequest& request)
{
  title_ = request.title;
  const auto& start = request.start.empty() ? request.directory : request.start;
  const auto got = "open filter " + Quoted(request.filter) + " index " +
                   std::to_string(request.filter_index) + " start " + Quoted(start);
  const AnnouncedOpen asked{request.filter, request.filter_index, start, std::nullopt};
  const auto taken = announcements_.Take<AnnouncedOpen>(got, asked, [&](const auto& expected) {
    return announcements_.Same(expected.filter.value_or(request.filter), request.filter) &&
           expected.index.value_or(request.filter_index) == request.filter_index &&
           announcements_.Same(expected.start.value_or(start), start);
  });
  return taken ? taken->chosen : std::nullopt;
}

std::optional<std::string> ScriptedDialogs::AskSaveFile(const platform::SaveRequest& request)
{
  title_ = request.title;
  const auto got = "save filter " + Quoted(request.filter) + " start " + Quoted(request.start);
  const AnnouncedSave asked{request.filter, request.start, std::nullopt};
  const auto taken = announcements_.Take<AnnouncedSave>(got, asked, [&](const auto& expected) {
    return announcements_.Same(expected.filter.value_or(request.filter), request.filter) &&
           announcements_.Same(expected.start.value_or(request.start), request.start);
  });
  return taken ? taken->chosen : std::nullopt;
}

std::optional<int> ScriptedDialogs::AskModYear(app::ModYearForm form, std::string_view message)
{
  title_ = app::kModYearTitle;
  const auto got = FormName(form) + " " + Quoted(message);
  const auto taken = announcements_.Take<AnnouncedModYear>(
      got, {form, std::nullopt}, [form](const auto& expected) { return expected.form == form; });
  if (!taken) return std::nullopt;
  std::optional<int> answer;
  Guarded(got, [&] { answer = driver_.AnswerModYear(form, message, taken->button); });
  return answer;
}

void ScriptedDialogs::ShowInstallDelete(app::InstallDeleteForm& form)
{
  title_ = app::kInstallDeleteTitle;
  const AnnouncedInstallDelete asked{{Driver::DeleteStep{}}};
  const auto taken = announcements_.Take<AnnouncedInstallDelete>("FrmInstallDelete", asked,
                                                                 [](const auto&) { return true; });
  if (!taken) return;
  CheckedForm checked(form, announcements_);
  Guarded("FrmInstallDelete", [&] { driver_.AnswerInstallDelete(checked, taken->steps); });
  if (taken->steps.back().kind != Driver::DeleteStep::Kind::kCancel && !form.MustClose())
    announcements_.Fail({"FrmInstallDelete to close", "no more steps"});
}

void ScriptedDialogs::ShowHelp()
{
  title_ = app::kHelpTitle;
  if (announcements_.Take<AnnouncedHelp>("FrmHelp", {}, [](const auto&) { return true; }))
    Guarded("FrmHelp", [&] { driver_.AnswerHelp(); });
}

void ScriptedProcess::Start(std::string_view path)
{
  const AnnouncedRun asked{std::string(path)};
  (void)announcements_.Take<AnnouncedRun>("run " + Quoted(path), asked, [&](const auto& expected) {
    return announcements_.Same(expected.path, path);
  });
}

void ScriptedFileManager::Show(std::string_view path)
{
  const AnnouncedFileManager asked{std::string(path)};
  (void)announcements_.Take<AnnouncedFileManager>(
      "filemanager " + Quoted(path), asked,
      [&](const auto& expected) { return announcements_.Same(expected.path, path); });
}

platform::PictureLoader::Size PictureSizes::Load(std::string_view path)
{
  try {
    return platform::ShowableJpegSize(files_.ReadWhole(path));
  } catch (const FileError&) {
    return {};
  }
}

}  // namespace velquist::runner
