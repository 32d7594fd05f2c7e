// SPDX-License-Identifier: MIT
// Every command that writes, with every one of the system's calls that it makes failing in turn.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "FailingCalls.h"
#include "ScriptedEditor.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"
#include "cli/Commands.h"
#include "platform/FileReason.h"
#include "platform/SystemFiles.h"
#include "runner/SourceDirectory.h"

namespace velquist::testing {
namespace {

namespace fs = std::filesystem;
using namespace velquist::samples;
using Names = std::vector<std::string>;

/// Runs `attempt` with each call that it makes failing in each way: it is given the number of the
/// call, its name, an error, and what is to come of it. `good` is a run in which nothing fails.
void WithEachCallFailing(
    const std::function<void()>& good,
    const std::function<void(std::size_t, const std::string&, int, Outcome)>& attempt)
{
  Names made;
  {
    const SystemCalls calls;
    good();
    made = calls.names;
  }
  std::size_t attempts = 0;
  for (std::size_t at = 0; at < made.size(); ++at) {
    for (const auto& failing : FailingCalls()) {
      if (!failing.name.empty() && failing.name != made[at]) continue;
      for (const int error : failing.errors) {
        SCOPED_TRACE("call " + std::to_string(at) + ", " + made[at] + ": " +
                     ReasonWhy(made[at], error).message());
        attempt(at, made[at], error, failing.outcome);
        ++attempts;
      }
    }
  }
  EXPECT_GE(attempts, 20U);
}

/// What the directory holds but for what Wine leaves of the system's own.
Names Left(const fs::path& directory)
{
  auto names = TemporaryFolder::NamesIn(directory);
  std::erase_if(names, [](const auto& name) { return name.starts_with("rf"); });
  return names;
}

/// A setup that is edited, over and over.
class FailingCommand : public ::testing::Test {
 protected:
  FailingCommand()
  {
    editor_.StartWithGame();
    editor_.Play(R"(
setup $G/Players/Jim/Setups/monza/mine.bb1 short 0=20 1=20 42=65 48=82 49=45 50=60 51=3
on open -> $G/Players/Jim/Setups/monza/mine.bb1
on FrmModYear2 -> 1967
click MnuOpen
)");
  }

  /// The command, which writes the file of that name, with each of its calls failing. `dialogs` are
  /// raised whether it fails or not, `shown` is how the message of a failure begins before the
  /// name.
  void EachCallFails(const std::string& command, const std::string& dialogs,
                     const std::string& name, const std::string& shown)
  {
    const auto directory = editor_.Path(kDirectory);
    const auto script = dialogs + "click " + command + "\n";
    const auto save_other = [&] {
      editor_.Play("focus\nclick CmdInc(0)\n" + dialogs + "click " + command +
                   "\nclick CmdDec(0)\n");
    };
    const auto attempt = [&](std::size_t at, const std::string& call, int error, Outcome outcome) {
      save_other();
      const auto old = ContentOf(directory / name);
      const auto left = Left(directory);
      const auto before = editor_.Everything(WithBuffer::kYes);
      const bool is_told = outcome != Outcome::kSaved;
      const auto message = "on message \"" + shown + name + "\\n" +
                           platform::ReasonOf(ReasonWhy(call, error)) + ".\" exclamation -> ok\n";
      SystemCalls calls;
      calls.failing_index = at;
      calls.error = error;
      editor_.Play((is_told ? dialogs + message : dialogs) + "click " + command + "\n");
      EXPECT_EQ(calls.names.at(at), call);
      EXPECT_EQ(Left(directory), left);
      EXPECT_EQ(ContentOf(directory / name) == old, outcome == Outcome::kNotSaved);
      EXPECT_EQ(editor_.Everything(WithBuffer::kYes) == before, is_told || command == "MnuExport");
      EXPECT_EQ(editor_.Window().Car().Changed(), is_told || command == "MnuExport");
    };
    editor_.Play(script);
    save_other();
    WithEachCallFailing([&] { editor_.Play(script); }, attempt);
  }

  const std::string kDirectory = "$G/Players/Jim/Setups/monza";
  ScriptedEditor editor_;
};

constexpr std::string_view kOverwriteIt =
    "on message \"This file already exits.  Do you want to overwrite it?\" question -> yes\n";

TEST_F(FailingCommand, SaveIsWholeOrNotAtAll)
{
  EachCallFails("MnuSave", std::string(kOverwriteIt), "mine.bb1",
                "The setup was not saved.\\n" + kDirectory + "/");
}

TEST_F(FailingCommand, SaveAsIsWholeOrNotAtAll)
{
  EachCallFails("MnuSaveAs", "on save -> " + kDirectory + "/other\n", "other.bb1",
                "The setup was not saved.\\n" + kDirectory + "/");
}

TEST_F(FailingCommand, ExportIsWholeOrNotAtAll)
{
  EachCallFails("MnuExport", "", "mine.txt", "$G/players/Jim/setups/monza/");
}

TEST_F(FailingCommand, SettingsAreWholeOrNotAtAll)
{
  const auto directory = editor_.Path("$P");
  const std::string name = "Velquist Program Settings.ini";
  const auto start = [&](bool metric) {
    editor_.Play(std::string("start\ncheck OptUnits(") + (metric ? "1" : "0") + ")\n");
  };
  const auto attempt = [&](std::size_t at, const std::string& call, int error, Outcome outcome) {
    start(false);
    editor_.Play("close\n");
    start(true);
    const auto old = ContentOf(directory / name);
    const auto left = Left(directory);
    // The installations are those known when the file cannot be read.
    if (call.ends_with("read")) outcome = Outcome::kSaved;
    const auto message = "on message \"$P/" + name + "\\n" +
                         platform::ReasonOf(ReasonWhy(call, error)) + ".\" exclamation -> ok\n";
    SystemCalls calls;
    calls.failing_index = at;
    calls.error = error;
    editor_.Play((outcome == Outcome::kSaved ? "" : message) + "close\nexpect ended\n");
    EXPECT_EQ(calls.names.at(at), call);
    EXPECT_EQ(Left(directory), left);
    EXPECT_EQ(ContentOf(directory / name) == old, outcome == Outcome::kNotSaved);
  };
  editor_.Play("close\n");
  start(true);
  WithEachCallFailing([&] { editor_.Play("close\n"); }, attempt);
}

/// One run of the command line program.
struct Ran {
  int status = 0;
  std::string err;
};
Ran RunCommand(const std::vector<std::string>& words)
{
  std::ostringstream out;
  std::ostringstream err;
  const auto source = SourceDirectory();
  const int status = cli::Run(
      words, {.out = out,
              .err = err,
              .interrupted = [] { return false; },
              .program_directory = [&] { return platform::PathText(source / "assets/program"); }});
  return {status, err.str()};
}

class FailingCommandLine : public ::testing::TestWithParam<std::vector<std::string>> {};

INSTANTIATE_TEST_SUITE_P(Of, FailingCommandLine,
                         ::testing::Values(std::vector<std::string>{"export", "mine.txt"},
                                           std::vector<std::string>{"sheet", "mine.html"},
                                           std::vector<std::string>{"convert", "other.bb1",
                                                                    "--long"}),
                         [](const auto& test) { return test.param.front(); });

TEST_P(FailingCommandLine, WritesWholeFilesOrNoneAndTellsWhy)
{
  const TemporaryFolder folder;
  const auto words = [&]() -> std::vector<std::string> {
    const auto setup = folder.Text() + "/mine.bb1";
    const auto target = folder.Text() + "/" + GetParam().at(1);
    if (GetParam().front() == "convert")
      return {"convert", "--force", "--year", "1967", "--long", setup, "--to", target};
    return {GetParam().front(), "--force", "--year", "1967", setup};
  }();
  const auto target = folder / GetParam().at(1);
  fs::copy_file(SourceDirectory() / "examples/GPL/Players/okoro__linde/Setups/rouen/junior.bb3",
                folder / "mine.bb1");
  const auto attempt = [&](std::size_t at, const std::string& call, int error, Outcome outcome) {
    WriteFile(target, "old bytes");
    const auto left = Left(folder.Path());
    Ran ran;
    {
      SystemCalls calls;
      calls.failing_index = at;
      calls.error = error;
      ran = RunCommand(words);
      EXPECT_EQ(calls.names.at(at), call);
    }
    const bool is_told = outcome != Outcome::kSaved;
    EXPECT_EQ(ran.status, is_told ? cli::kTrouble : cli::kDone) << ran.err;
    EXPECT_EQ(!ran.err.empty(), is_told) << ran.err;
    EXPECT_EQ(ContentOf(target) == "old bytes", outcome == Outcome::kNotSaved);
    EXPECT_EQ(Left(folder.Path()), left);
  };
  WriteFile(target, "old bytes");
  WithEachCallFailing([&] { ASSERT_EQ(RunCommand(words).status, cli::kDone); }, attempt);
}

}  // namespace
}  // namespace velquist::testing
