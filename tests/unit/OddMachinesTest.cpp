// SPDX-License-Identifier: MIT
// Machines that are not as most are: a wrong clock, thousands of players, two programs on one file,
// other ways of writing numbers.
#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "CommaLocale.h"
#include "OwnTime.h"
#include "ScriptedEditor.h"
#include "TemporaryFolder.h"
#include "platform/AtomicFile.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace velquist::testing {
namespace {

namespace fs = std::filesystem;
using namespace velquist::samples;
using namespace std::chrono_literals;

const std::string kSetup = "$G/Players/Jim/Setups/monza/mine.bb1";
const std::string kSave =
    "on message \"This file already exits.  Do you want to overwrite it?\" question -> yes\n"
    "click MnuSave\nexpect unchanged\n";

void Open(ScriptedEditor& editor)
{
  editor.Play("on open -> " + kSetup + "\non FrmModYear2 -> 1967\nclick MnuOpen\n");
}

void OpenNew(ScriptedEditor& editor)
{
  editor.StartWithGame();
  editor.Play("setup " + kSetup + " short 0=20 1=20 42=65 48=82 49=45 50=60 51=3\n");
  Open(editor);
}

TEST(OddMachines, AClockThatWasSetBackIsNoChangeByAnotherProgram)
{
  ScriptedEditor editor;
  OpenNew(editor);
  fs::last_write_time(editor.Path(kSetup), fs::file_time_type::clock::now() + 9000h);
  Open(editor);
  for (int save = 0; save < 2; ++save) editor.Play("click CmdInc(0)\n" + kSave);
  // What a program left while the clock was ahead is nobody's to remove.
  const auto left = editor.Path("$G/Players/Jim/Setups/monza/.velquist-99999-0");
  WriteFile(left, "left");
  fs::last_write_time(left, fs::file_time_type::clock::now() + 9000h);
  editor.Play("click CmdInc(0)\n" + kSave);
  EXPECT_TRUE(fs::exists(left));
}

TEST(OddMachines, TwentyThousandPlayersAreListedInLessThanASecond)
{
  ScriptedEditor editor;
  editor.StartWithGame();
  editor.Play("close\n");
  for (int player = 0; player < 20'000; ++player)
    fs::create_directory(editor.Path("$G/Players") / ("P" + std::to_string(player)));
  const auto begun = std::clock();
  editor.Play("start\nexpect Combo4 \"Jim\"\n");
  EXPECT_LT(std::clock() - begun, kSecondOfOwnTime);
  EXPECT_EQ(editor.Window().Form().Combo4.items.size(), 1001U);
}

TEST(OddMachines, ACommaInNumbersChangesNoByteOfAnyFile)
{
  const auto written = [] {
    ScriptedEditor editor;
    OpenNew(editor);
    editor.Play("click CmdInc(0)\ncheck OptUnits(1)\nclick CmdInc(4)\n" + kSave +
                "click MnuExport\nclose\n");
    const auto monza = editor.Path("$G/Players/Jim/Setups/monza");
    const auto root = TemporaryFolder::InUtf8(editor.Path("$T"));
    auto settings = ContentOf(editor.Path("$P/Velquist Program Settings.ini"));
    for (auto at = settings.find(root); at != std::string::npos; at = settings.find(root))
      settings.replace(at, root.size(), "T");
    return std::vector<std::string>{ContentOf(monza / "mine.bb1"), ContentOf(monza / "mine.txt"),
                                    settings};
  };
  const auto usual = written();
  const CommaLocale comma;
  EXPECT_EQ(written(), usual);
}

#ifndef _WIN32

TEST(OddMachines, TwoProgramsThatSaveAtOnceLeaveOneWholeFile)
{
  const TemporaryFolder folder;
  const auto target = folder / "a.lo1";
  const std::string mine(5000, 'm');
  const std::string theirs(9000, 't');
  const auto save = [&](const std::string& bytes) {
    for (int times = 0; times < 200; ++times)
      platform::WriteAtomically(target, AsBytes(bytes), "the shown path");
  };
  save(mine);
  const pid_t other = ::fork();
  if (other == 0) {
    save(theirs);
    ::_exit(0);
  }
  for (int times = 0; times < 200; ++times) {
    platform::WriteAtomically(target, AsBytes(mine), "the shown path");
    const auto found = ContentOf(target);
    ASSERT_TRUE(found == mine || found == theirs) << found.size();
  }
  int status = 0;
  ASSERT_EQ(::waitpid(other, &status, 0), other);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.lo1"});
}

#endif

}  // namespace
}  // namespace velquist::testing
