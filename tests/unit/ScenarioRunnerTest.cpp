// SPDX-License-Identifier: MIT
// Worlds, announced dialogs and the runner, played on a small driver.
#include "runner/Runner.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ScenarioRunnerFixture.h"

namespace velquist::runner {
namespace {

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
  samples::WriteFile(scripts / "a.scn", "print a\n");
  samples::WriteFile(scripts / "b" / "c.scn", "print c\n");
  samples::WriteFile(scripts / "notes.txt", "none\n");
  samples::WriteFile(shipped_ / "fails.scn", "expect running\n");
  samples::WriteFile(shipped_ / "wrong.scn", "nonsense\n");
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
