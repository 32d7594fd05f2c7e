// SPDX-License-Identifier: MIT
// Worlds, announced dialogs and the runner, played on a small driver of its own.
#include "runner/Runner.h"

#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "Nothing.h"
#include "runner/Texts.h"

namespace velquist::runner {
namespace {

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
  void Close() override { closed_ = true; }
  void Tick() override {}
  void Focus() override {}
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
  void SetUp() override
  {
    fs::create_directories(shipped_ / "sub");
    std::ofstream(shipped_ / "sub" / "data.ini") << "data";
    std::ofstream(shipped_ / "Velquist Program Settings.ini") << "old";
  }
  void TearDown() override { fs::remove_all(shipped_); }

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

  fs::path shipped_ =
      fs::temp_directory_path() /
      ("velquist-shipped-" +
       std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
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

TEST_F(ScenarioRunner, AnnouncedDialogsAreAnsweredInOrder)
{
  EXPECT_EQ(Play("start\non message \"Sure?\" question -> yes\non FrmModYear2 -> 1967\n"
                 "click Ask\nclick Year\n"),
            Outcome::kPassed)
      << log_.str();
  EXPECT_EQ(answer_, platform::Answer::kYes);
  EXPECT_EQ(year_, 2);
}

TEST_F(ScenarioRunner, PathsBelowTheScriptsDirectoryCompareWithEitherSeparator)
{
  EXPECT_EQ(Play("start\non message \"In $P/x\" critical -> ok\nclick Tell\n"
                 "on run $P/x.exe\nclick Run\n"),
            Outcome::kPassed)
      << log_.str();
}

TEST_F(ScenarioRunner, AnOpenDialogChecksOnlyWhatIsGiven)
{
  EXPECT_EQ(Play("start\non open -> cancel\nclick Open\n"
                 "on open filter \"All|*.*\" index 2 start $P -> $P/a.lp1\nclick Open\n"),
            Outcome::kPassed)
      << log_.str();
  EXPECT_TRUE(chosen_ && fs::path(*chosen_).is_absolute() && chosen_->ends_with("a.lp1"));
  EXPECT_EQ(Play("start\non open index 3 -> cancel\nclick Open\n"), Outcome::kFailed);
  EXPECT_FALSE(chosen_);
}

TEST_F(ScenarioRunner, ADialogThatWasNotAnnouncedFailsAndIsCancelled)
{
  ExpectFailure("start\nclick Ask\n",
                "2: expected no dialog, got message \"Sure?\" question with Yes/No");
  EXPECT_EQ(answer_, platform::Answer::kNo);
}

TEST_F(ScenarioRunner, AWrongTextIconButtonOrKindFails)
{
  const std::string got = ", got message \"Sure?\" question with Yes/No";
  ExpectFailure("start\non message \"Sure\" question -> yes\nclick Ask\n",
                "3: expected message \"Sure\" question -> yes of line 2" + got);
  ExpectFailure("start\non message \"Sure?\" critical -> no\nclick Ask\n",
                "3: expected message \"Sure?\" critical -> no of line 2" + got);
  ExpectFailure("start\non message \"Sure?\" question -> ok\nclick Ask\n",
                "3: expected message \"Sure?\" question -> ok of line 2" + got);
  ExpectFailure("start\non FrmModYear1 -> close\nclick Ask\n",
                "3: expected FrmModYear1 -> close of line 2" + got);
  ExpectFailure("start\non FrmModYear1 -> close\nclick Year\n",
                "3: expected FrmModYear1 -> close of line 2, got FrmModYear2 \"Which?\"");
}

TEST_F(ScenarioRunner, TheDeleteFormIsUsedStepByStepAndMustBeClosed)
{
  EXPECT_EQ(Play("start\non FrmInstallDelete -> #2 delete #0 cancel\nclick Delete\n"),
            Outcome::kPassed)
      << log_.str();
  EXPECT_EQ(heard_, "#2delete#0");
  EXPECT_EQ(Play("start\non FrmInstallDelete -> delete delete #7\nclick Delete\n"),
            Outcome::kPassed)
      << "closed by the program: " << log_.str();
  ExpectFailure("start\non FrmInstallDelete -> #3 cancel\nclick Delete\n",
                "3: expected FrmInstallDelete to offer #3, got 3 items");
  ExpectFailure("start\non FrmInstallDelete -> delete\nclick Delete\n",
                "3: expected FrmInstallDelete to close, got no more steps");
}

TEST_F(ScenarioRunner, AnAnnouncedDialogMustHaveComeByTheNextStartOrTheEnd)
{
  ExpectFailure("start\non FrmHelp\n", "2: expected FrmHelp of line 2, got no dialog");
  ExpectFailure("start\non FrmHelp\nexpect running\nstart\n",
                "4: expected FrmHelp of line 2, got no dialog");
  EXPECT_EQ(Play("start\non message \"Hello\" information -> ok\nstart Hello\n"), Outcome::kPassed)
      << "raised by the start itself: " << log_.str();
}

TEST_F(ScenarioRunner, OnlyWhatAUserCanReachIsPressedOrChosen)
{
  ExpectFailure("start\nclick Nothing(3)\n",
                "2: expected a control Nothing(3), got none of that name");
  ExpectFailure("start\nclick Hidden\n", "2: expected Hidden shown, got hidden");
  ExpectFailure("start\nclick Disabled\n", "2: expected Disabled enabled, got disabled");
  actions_["Idle"] = {};
  ExpectFailure("start\nclick Idle\n", "2: expected Idle to do something, got nothing");
  ExpectFailure("start\nclick List\n",
                "2: expected List to be a button or a menu item, got a list");
  ExpectFailure("start\nselect List c\n", "2: expected List to offer \"c\", got items \"a\" \"b\"");
  ExpectFailure("start\nselect List #2\n", "2: expected List to offer #2, got 2 items");
  ExpectFailure("click Ask\n", "1: expected the program running, got not started");
  ExpectFailure("start\nclose\nclick Ask\n", "3: expected the program running, got ended");
}

TEST_F(ScenarioRunner, CheckingACheckedBoxIsNoEvent)
{
  EXPECT_EQ(Play("start\ncheck Box\nselect List b\nexpect List #1\n"), Outcome::kPassed);
  EXPECT_EQ(Play("start\nuncheck Box\n"), Outcome::kFailed);
}

TEST_F(ScenarioRunner, ClockRandomAndScreenAreTheScripts)
{
  EXPECT_EQ(Play("clock 1000\nrandom 0.25\nscreen 800 600\nstart\ntick 60\nclick Time\n"),
            Outcome::kPassed)
      << log_.str();
  EXPECT_EQ(heard_, "1060 0.25 800");
}

TEST_F(ScenarioRunner, TheWorldIsWrittenAndComparedByteForByte)
{
  EXPECT_EQ(Play("expect file $P/sub/data.ini text data\n"
                 "expect file \"$P/Velquist Program Settings.ini\" missing\n"
                 "expect file $G missing\n"
                 "dir $G/Players/\xc3\x84\n"
                 "expect file $G/players/\xc3\x84 exists\n"
                 "file $G/players/a.txt text \"1\\r\\n\\x00\"\n"
                 "expect file $G/Players/A.TXT hex 0 \"31 0d0a 00\"\n"
                 "file $T/b hex \"31 0D 0A 00\"\n"
                 "expect file $T/b size 4\n"
                 "expect file $T/b same $G/Players/a.txt\n"
                 "copy $G $T/Other/GPL\n"
                 "expect file $T/Other/GPL/Players/a.txt exists\n"
                 "remove $G\nexpect file $G missing\n"
                 "setup $T/s/x.lp1 long 33=4 sym=0\n"
                 "expect file $T/s/x.lp1 hex 260 \"00 00008040\"\n"
                 "start \"$G/x\"\nexpect caption $G/x\nprint \"a b\"\n"),
            Outcome::kPassed)
      << log_.str();
  EXPECT_EQ(out_.str(), "a b\n");
}

TEST_F(ScenarioRunner, WhatIsSeenIsReportedBesideWhatWasExpected)
{
  ExpectFailure("start now\nexpect caption \"no\"\n", "2: expected caption \"no\", got \"now\"");
  ExpectFailure("start\nexpect ended\n", "2: expected the program ended, got running");
  ExpectFailure("start\nexpect List items a\n",
                "2: expected List items \"a\", got items \"a\" \"b\"");
  ExpectFailure("start\nexpect Box unchecked\n", "2: expected Box unchecked, got checked");
  ExpectFailure("start\nexpect Box at 1 2 3 4\n", "2: expected Box at 1 2 3 4, got 0 0 0 0");
  ExpectFailure("file a hex 01\nexpect file a hex 0 0102\n",
                "2: expected file a 01 02 at 0, got 01 and the end");
  ExpectFailure("expect file b size 1\n", "1: expected file b exists, got missing");
  ExpectFailure("file a text x\nfile b text y\nexpect file a same b\n",
                "3: expected file a same b, got 1 bytes against 1, the first difference at 0");
}

TEST_F(ScenarioRunner, NothingOutsideTheScriptsDirectoryIsChanged)
{
  for (const std::string statement : {"remove $T", "remove $T/../x", "dir /velquist-outside",
                                      "file ../x text \"\"", "copy $P $T/.."}) {
    SCOPED_TRACE(statement);
    EXPECT_EQ(Play(statement), Outcome::kFailed);
  }
}

TEST_F(ScenarioRunner, TheDirectoryGoesWhenTheScriptPassed)
{
  EXPECT_EQ(Play("print $T\n"), Outcome::kPassed);
  const auto directory = out_.str().substr(0, out_.str().size() - 1);
  EXPECT_FALSE(directory.empty() || fs::exists(directory));
}

TEST_F(ScenarioRunner, TheDirectoryStaysWhenItIsToBeKept)
{
  Runner runner(
      {true, shipped_}, [this] { return std::make_unique<ButtonDriver>(actions_); }, resources_,
      out_, log_);
  EXPECT_EQ(runner.PlayScript("file $T/a text b\nprint $T\n", "test.scn"), Outcome::kPassed);
  const fs::path directory = out_.str().substr(0, out_.str().size() - 1);
  EXPECT_EQ(log_.str(), "test.scn: files kept in " + directory.string() + "\n");
  EXPECT_TRUE(fs::exists(directory / "a"));
  RemoveKept();
}

TEST_F(ScenarioRunner, UnknownStatementsAndWrongWordsAreFoundBeforeAnythingIsPlayed)
{
  for (const std::string statement : {"jump",
                                      "click",
                                      "click A B",
                                      "click A(x)",
                                      "click (3)",
                                      "select L #x",
                                      "tick -1",
                                      "tick",
                                      "setup x",
                                      "setup x wide",
                                      "setup x short 52=0",
                                      "setup x short 33=1",
                                      "setup x long 8=0.5",
                                      "setup x long sym=2",
                                      "file x hex 5",
                                      "file x hex zz",
                                      "random 1",
                                      "random -0.1",
                                      "clock x",
                                      "screen 800",
                                      "on message \"x\" loud -> ok",
                                      "on message \"x\" critical -> maybe",
                                      "on message \"x\" critical",
                                      "on open filter",
                                      "on dance",
                                      "on FrmModYear1 -> 1968",
                                      "on FrmInstallDelete ->",
                                      "on FrmInstallDelete -> cancel delete",
                                      "expect slot 52 = 0",
                                      "expect slot 1 0",
                                      "expect slot 1 = x",
                                      "expect file x",
                                      "expect file x size y",
                                      "expect",
                                      "expect chart PictureChart3 text a",
                                      "dump",
                                      "dump all",
                                      "dump chart",
                                      "print"}) {
    SCOPED_TRACE(statement);
    out_.str("");
    EXPECT_EQ(Play("print played\n" + statement + "\n"), Outcome::kUnreadable);
    EXPECT_EQ(out_.str(), "");
    EXPECT_TRUE(Reason().starts_with("test.scn:2: could not be read: ")) << Reason();
  }
}

TEST_F(ScenarioRunner, FilesAreCountedAndTheExitCodeSaysTheWorst)
{
  const auto scripts = shipped_ / "scripts";
  fs::create_directories(scripts / "b");
  std::ofstream(scripts / "a.scn") << "print a\n";
  std::ofstream(scripts / "b" / "c.scn") << "print c\n";
  std::ofstream(scripts / "notes.txt") << "none\n";
  std::ofstream(shipped_ / "fails.scn") << "expect running\n";
  std::ofstream(shipped_ / "wrong.scn") << "nonsense\n";
  const auto play = [this](const std::vector<fs::path>& paths) {
    log_.str("");
    Runner runner(
        {false, shipped_}, [this] { return std::make_unique<ButtonDriver>(actions_); }, resources_,
        out_, log_);
    for (const auto& path : paths) runner.PlayPath(path);
    const int code = runner.Finish();
    RemoveKept();
    return code;
  };
  const auto closing = [this](const std::string& line) { return log_.str().ends_with(line); };

  EXPECT_EQ(play({scripts}), kAllPassed);
  EXPECT_EQ(out_.str(), "a\nc\n");
  EXPECT_TRUE(closing("2 passed, 0 failed\n")) << log_.str();
  EXPECT_EQ(play({scripts, shipped_ / "fails.scn"}), kSomeFailed);
  EXPECT_TRUE(closing("2 passed, 1 failed\n")) << log_.str();
  EXPECT_EQ(play({shipped_ / "wrong.scn", shipped_ / "fails.scn"}), kNotRead);
  EXPECT_EQ(play({shipped_ / "missing.scn"}), kNotRead);
  EXPECT_EQ(play({shipped_ / "sub"}), kNotRead);
}

}  // namespace
}  // namespace velquist::runner
