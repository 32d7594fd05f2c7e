// SPDX-License-Identifier: MIT
// The runner on a small driver of its own, whose buttons do what a test says.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "Nothing.h"
#include "TemporaryFolder.h"
#include "runner/Runner.h"
#include "runner/Texts.h"

namespace velquist::runner {

namespace fs = std::filesystem;
using app::ControlKind;
using app::Outside;

/// A program whose buttons do what a test says.
using Actions = std::map<std::string, std::function<void(const Outside&)>>;

class ButtonDriver final : public Driver {
 public:
  explicit ButtonDriver(const Actions& actions) : actions_(actions) {}

  void Start(const Outside& outside, std::string_view command_line) override
  {
    outside_.emplace(outside);
    command_line_ = command_line;
    if (command_line == "Hello")
      (void)outside.dialogs.ShowMessage(command_line, platform::Icon::kInformation,
                                        platform::Buttons::kOk);
  }
  void Stop() override { outside_.reset(); }
  [[nodiscard]] bool Running() const override { return outside_ && !closed_; }
  [[nodiscard]] std::optional<SeenControl> Seen(std::string_view name, int /*index*/) override
  {
    SeenControl seen;
    seen.kind = ControlKind::kButton;
    seen.shown = name != "Hidden";
    seen.enabled = name != "Disabled";
    if (name == "List") {
      seen.kind = ControlKind::kList;
      seen.items = {"a", "b"};
      seen.selection = selection_;
    } else if (name == "Box") {
      seen.kind = ControlKind::kCheck;
      seen.checked = true;
    } else if (seen.shown && seen.enabled && !actions_.contains(std::string(name))) {
      return std::nullopt;
    }
    return seen;
  }
  [[nodiscard]] std::string Caption() override { return command_line_; }
  [[nodiscard]] std::string Status() override { return {}; }
  [[nodiscard]] bool Click(std::string_view name, int /*index*/) override
  {
    const auto& action = actions_.at(std::string(name));
    if (action) action(*outside_);
    return static_cast<bool>(action);
  }
  void Check(std::string_view /*name*/, int /*index*/, bool /*checked*/) override
  {
    throw std::logic_error("no event was due");
  }
  void Select(std::string_view /*name*/, int /*index*/, int position) override
  {
    selection_ = position;
  }
  [[nodiscard]] std::string Type(int /*slot*/, const std::string& text) override { return text; }
  void Close() override { closed_ = true; }
  void Tick() override {}
  void Focus() override {}
  [[nodiscard]] app::Library& Library() override { throw std::logic_error("no library"); }
  void FilterLibrary(std::string_view /*text*/) override {}
  void SortLibrary(int /*column*/) override {}
  void UseOfLibrary(LibraryCommand /*command*/, const std::string& /*path*/) override {}
  [[nodiscard]] const app::MainWindow& Window() const override
  {
    throw std::logic_error("no window");
  }

 private:
  const Actions& actions_;
  std::optional<Outside> outside_;
  std::string command_line_;
  int selection_ = -1;
  bool closed_ = false;
};

/// Three installations that write down what is done with them.
class ThreeInstallations final : public app::InstallDeleteForm {
 public:
  [[nodiscard]] const std::vector<std::string>& Items() const override { return items_; }
  [[nodiscard]] int Selection() const override { return 0; }
  void Combo1_Click(int position) override { done += "#" + std::to_string(position); }
  void DeleteButton_Click() override
  {
    done += "delete";
    if (items_.size() > 1) items_.pop_back();
  }
  [[nodiscard]] bool MustClose() const override { return items_.size() == 1; }

  std::string done;

 private:
  std::vector<std::string> items_ = {"a", "b", "c"};
};

/// Plays scripts on a ButtonDriver.
class ScenarioRunner : public ::testing::Test {
 protected:
  ScenarioRunner()
  {
    fs::create_directory(shipped_ / "sub");
    samples::WriteFile(shipped_ / "sub" / "data.ini", "data");
    samples::WriteFile(shipped_ / "Velquist Program Settings.ini", "old");
  }

  Outcome Play(const std::string& script)
  {
    log_.str("");
    Runner runner(
        {false, shipped_}, [this] { return std::make_unique<ButtonDriver>(actions_); }, resources_,
        out_, log_);
    const auto outcome = runner.PlayScript(script, "test.scn");
    RemoveKept();
    return outcome;
  }
  /// The first line of the log, which says why the script failed.
  [[nodiscard]] std::string Reason() const { return log_.str().substr(0, log_.str().find('\n')); }

  void ExpectFailure(const std::string& script, const std::string& reason)
  {
    SCOPED_TRACE(script);
    EXPECT_EQ(Play(script), Outcome::kFailed);
    EXPECT_EQ(Reason(), "test.scn:" + reason);
  }

  /// A failed script leaves its directory, which the log names.
  void RemoveKept()
  {
    constexpr std::string_view kKept = "files kept in ";
    const auto log = log_.str();
    const auto at = log.find(kKept);
    if (at == std::string::npos) return;
    const auto from = at + kKept.size();
    const fs::path kept = log.substr(from, log.find('\n', from) - from);
    EXPECT_TRUE(fs::is_directory(kept / "program"));
    fs::remove_all(kept);
  }

  samples::TemporaryFolder folder_;
  const fs::path shipped_ = folder_.Path();
  Actions actions_{
      {"Ask",
       [this](const Outside& outside) {
         answer_ = outside.dialogs.ShowMessage("Sure?", platform::Icon::kQuestion,
                                               platform::Buttons::kYesNo);
       }},
      {"Tell",
       [this](const Outside& outside) {
         answer_ = outside.dialogs.ShowMessage("In " + outside.program_directory + "\\x",
                                               platform::Icon::kCritical, platform::Buttons::kOk);
       }},
      {"Open",
       [this](const Outside& outside) {
         chosen_ = outside.dialogs.AskOpenFile({"All|*.*", 2, "", outside.program_directory});
       }},
      {"Run",
       [](const Outside& outside) {
         outside.process.Start(outside.program_directory + "\\x.exe");
       }},
      {"Year",
       [this](const Outside& outside) {
         year_ = outside.dialogs.AskModYear(app::ModYearForm::kFrmModYear2, "Which?");
       }},
      {"Delete",
       [this](const Outside& outside) {
         ThreeInstallations form;
         outside.dialogs.ShowInstallDelete(form);
         heard_ = form.done;
       }},
      {"Time",
       [this](const Outside& outside) {
         heard_ = std::to_string(outside.clock.TickCount()) + " " +
                  Shortest(outside.random.Next()) + " " + std::to_string(outside.screen.Width());
       }},
  };
  velquist::testing::NoResources resources_;
  std::ostringstream out_;
  std::ostringstream log_;
  std::optional<platform::Answer> answer_;
  std::optional<std::string> chosen_;
  std::optional<int> year_;
  std::string heard_;
};

}  // namespace velquist::runner
