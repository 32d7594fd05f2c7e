// SPDX-License-Identifier: MIT
#include "app/Library.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "ScriptedEditor.h"
#include "app/LibraryPreview.h"
#include "data/ModYear.h"

namespace velquist::app {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

constexpr char kValues[] = " 4=90 30=10 35=2.692 42=70 48=80 49=45 50=60 51=3\n";

class LibraryTest : public ::testing::Test {
 protected:
  /// Starts with these installations registered.
  void Start(const Texts& installations)
  {
    std::string list;
    for (const auto& installation : installations) list += "\\\"" + installation + "\\\"\\r\\n";
    editor.Play(
        "dir $G/Players/Jim/Setups/monza\nfile $G/gpl_ai.ini text \"\"\n"
        "file \"$P/Velquist Program Settings.ini\" text "
        "\"\\\"$G\\\"\\r\\n0\\r\\n0\\r\\n0\\r\\n0\\r\\n0\\r\\n0"
        "\\r\\n0\\r\\n" +
        list + "\"\nstart\n");
  }
  void PutSetup(const std::string& path, const std::string& values = kValues)
  {
    editor.Play("setup \"" + path + "\" short" + values);
  }
  /// One without a problem.
  void Healthy(const std::string& path)
  {
    editor.Play("copy \"$P/67 Velquist Default.vqset\" \"" + path + "\"\n");
  }
  /// Paths below the script's own directory.
  [[nodiscard]] Texts Paths(const Library& library) const
  {
    Texts paths;
    for (std::size_t line = 0; line < library.Table().Count(); ++line)
      paths.push_back(Below(library.Table().At(line).Path()));
    return paths;
  }
  [[nodiscard]] std::string Below(const std::string& path) const
  {
    const auto root = editor.Path("$T").string();
    return path.starts_with(root) ? fs::path(path.substr(root.size() + 1)).generic_string() : path;
  }
  [[nodiscard]] Texts Found()
  {
    Library library(editor.Window());
    library.Scan();
    library.Finish();
    return Paths(library);
  }

  testing::ScriptedEditor editor;
};

TEST_F(LibraryTest, FindsTheSetupsOfAllInstallations)
{
  Texts all;
  Texts wanted;
  for (int number = 0; number < 10; ++number) {
    const auto name = "Game" + std::to_string(number);
    PutSetup("$T/" + name + "/Players/Ann/Setups/spa/a.lo1");
    PutSetup("$T/" + name + "/outside.lo1");
    all.push_back("$T/" + name);
    wanted.push_back(name + "/Players/Ann/Setups/spa/a.lo1");
  }
  Start(all);
  EXPECT_EQ(Found(), wanted);
}

TEST_F(LibraryTest, HasNothingOfInstallationsThatAreGone)
{
  Healthy("$G/Players/Jim/Setups/monza/a.lo1");
  Start({"$T/Gone", "$G"});
  Library library(editor.Window());
  library.Scan();
  library.Finish();
  EXPECT_EQ(Paths(library), (Texts{"GPL/Players/Jim/Setups/monza/a.lo1"}));
  EXPECT_EQ(library.Progress(), "1 setup in 1 installation");
}

TEST_F(LibraryTest, HasNothingWithoutASetup)
{
  Start({"$G"});
  Library library(editor.Window());
  library.Scan();
  EXPECT_EQ(library.Progress(), "0 setups so far...");
  library.Finish();
  EXPECT_EQ(library.Table().Count(), 0U);
  EXPECT_EQ(library.Progress(), "0 setups in 1 installation");
}

#ifndef _WIN32
TEST_F(LibraryTest, CountsOneDirectoryOnce)
{
  PutSetup("$G/Players/Jim/Setups/monza/a.lo1");
  fs::create_directory_symlink(editor.Path("$G"), editor.Path("$T/Same"));
  Start({"$G", "$T/Same", "$G/"});
  EXPECT_EQ(Found(), (Texts{"GPL/Players/Jim/Setups/monza/a.lo1"}));
}

TEST_F(LibraryTest, ShowsOfTwinsThatDifferInLetterCaseTheOneThatOpens)
{
  PutSetup("$G/Players/Jim/Setups/monza/a.lo1");
  const auto players = editor.Path("$G") / "Players";
  const auto other = players / "jim" / "Setups" / "monza";
  fs::create_directories(other);
  fs::copy_file(players / "Jim/Setups/monza/a.lo1", other / "a.lo1");
  fs::copy_file(players / "Jim/Setups/monza/a.lo1", other / "only.lo1");
  Start({"$G"});
  EXPECT_EQ(Found(),
            (Texts{"GPL/Players/Jim/Setups/monza/a.lo1", "GPL/Players/jim/Setups/monza/only.lo1"}));
}
#endif

TEST_F(LibraryTest, TellsProblemsAndHowMany)
{
  PutSetup("$G/Players/Jim/Setups/monza/a.lo1", " 4=9999 48=80 49=45 50=60 51=3\n");
  Start({"$G"});
  Library library(editor.Window());
  library.Scan();
  library.Finish();
  EXPECT_EQ(library.Progress(), "1 setup in 1 installation, 1 with a problem");
  EXPECT_NE(library.Table().Cell(0, kProblemColumn), "");
}

TEST_F(LibraryTest, GivesTheSameRowsInSlicesAsInOneGo)
{
  for (int number = 0; number < 40; ++number)
    PutSetup("$G/Players/Jim/Setups/monza/" + std::to_string(number) + ".lo1");
  Start({"$G"});
  const auto whole = Found();
  ASSERT_EQ(whole.size(), 40U);
  for (const unsigned seed : {1U, 2U, 3U, 4U, 5U}) {
    std::mt19937 random(seed);
    Library library(editor.Window());
    library.Table().SetValueSlots({30, 42});
    library.Scan();
    std::size_t most = 0;
    while (library.Work([&] { return random() % 5 == 0; })) {
      // Rows never go while more are found.
      ASSERT_GE(library.Table().RowCount(), most);
      most = library.Table().RowCount();
    }
    EXPECT_EQ(Paths(library), whole);
    for (std::size_t line = 0; line < whole.size(); ++line)
      EXPECT_EQ(library.Table().Cell(line, kFirstValueColumn + 30), "10");
  }
}

TEST_F(LibraryTest, ShowsRowsFromTheFirstSliceOn)
{
  for (int number = 0; number < 9; ++number)
    PutSetup("$G/Players/Jim/Setups/monza/" + std::to_string(number) + ".lo1");
  Start({"$G"});
  Library library(editor.Window());
  library.Scan();
  EXPECT_TRUE(library.Work([] { return true; }));
  EXPECT_EQ(library.Table().Count(), 1U);
  EXPECT_EQ(library.Progress(), "1 setup so far...");
  library.Stop();
  EXPECT_FALSE(library.IsScanning());
  EXPECT_TRUE(library.IsStopped());
  EXPECT_EQ(library.Table().Count(), 1U);
  EXPECT_EQ(library.Progress(), "Stopped: 1 setup, there may be more");
  library.Scan();
  library.Finish();
  EXPECT_EQ(library.Table().Count(), 9U);
}

TEST_F(LibraryTest, KeepsItsRowsUntilANewScanIsDone)
{
  PutSetup("$G/Players/Jim/Setups/monza/a.lo1");
  PutSetup("$G/Players/Jim/Setups/monza/b.lo1");
  Start({"$G"});
  Library library(editor.Window());
  library.Scan();
  library.Finish();
  editor.Play("remove $G/Players/Jim/Setups/monza/a.lo1\n");
  PutSetup("$G/Players/Jim/Setups/monza/c.lo1");
  library.Scan();
  while (library.Work([] { return true; }) && library.IsScanning())
    EXPECT_EQ(Paths(library).front(), "GPL/Players/Jim/Setups/monza/a.lo1");
  EXPECT_EQ(Paths(library),
            (Texts{"GPL/Players/Jim/Setups/monza/b.lo1", "GPL/Players/Jim/Setups/monza/c.lo1"}));
  library.Scan();
  library.Stop();
  EXPECT_EQ(library.Table().Count(), 2U);
}

TEST_F(LibraryTest, ReadsNoFileAgainThatHasNotChanged)
{
  PutSetup("$G/Players/Jim/Setups/monza/a.lo1");
  PutSetup("$G/Players/Jim/Setups/monza/b.lo1");
  Start({"$G"});
  Library library(editor.Window());
  library.Scan();
  library.Finish();
  const auto first = library.Table().SharedAt(0);
  const auto second = library.Table().SharedAt(1);
  PutSetup("$G/Players/Jim/Setups/monza/b.lo1", " 4=9999 48=80 49=45 50=60 51=3\n");
  library.Scan();
  library.Finish();
  EXPECT_EQ(library.Table().SharedAt(0), first);
  EXPECT_NE(library.Table().SharedAt(1), second);
  EXPECT_NE(library.Table().Cell(1, kProblemColumn), "");
}

TEST_F(LibraryTest, FollowsTheInstallationList)
{
  Healthy("$G/Players/Jim/Setups/monza/a.lo1");
  Healthy("$T/Second/Players/Ann/Setups/spa/b.lo1");
  editor.Play("file $T/Second/gpl.exe text \"\"\nfile $T/Second/gpl_ai.ini text \"\"\n");
  Start({"$G"});
  Library library(editor.Window());
  library.BringInLine();
  library.Finish();
  EXPECT_EQ(library.Table().Count(), 1U);
  library.BringInLine();
  EXPECT_FALSE(library.IsScanning());
  editor.Play("on open -> $T/Second/gpl.exe\nclick MnuAddInstall\n");
  library.BringInLine();
  EXPECT_TRUE(library.IsScanning());
  library.Finish();
  EXPECT_EQ(library.Table().Count(), 2U);
  EXPECT_EQ(library.Progress(), "2 setups in 2 installations");
}

TEST_F(LibraryTest, ShowsValuesAsTheMainWindowDoes)
{
  PutSetup("$G/Players/Jim/Setups/monza/a.lo1");
  Start({"$G"});
  Library library(editor.Window());
  const auto slots = LibrarySlots();
  library.Table().SetValueSlots(slots);
  library.Scan();
  library.Finish();
  editor.Play(
      "on open -> $G/Players/Jim/Setups/monza/a.lo1\non FrmModYear2 -> 1967\nclick MnuOpen\n");
  const auto compare = [&] {
    for (const int slot : slots) {
      const auto* const shown = editor.Window().Form().ValueOf(slot);
      const bool is_shown = shown != nullptr && editor.Window().Form().IsShown(*shown);
      auto text = is_shown ? shown->text : std::string();
      text.erase(0, text.find_first_not_of(' '));
      EXPECT_EQ(library.Table().Cell(0, kFirstValueColumn + slot), text) << slot;
    }
  };
  compare();
  editor.Play("check OptUnits(1)\n");
  library.BringInLine();
  library.Finish();
  compare();
  editor.Play("check FineCheck\n");
  library.BringInLine();
  library.Finish();
  compare();
}

TEST_F(LibraryTest, SaysHowManyAreShown)
{
  Healthy("$G/Players/Jim/Setups/monza/a.lo1");
  Healthy("$G/Players/Jim/Setups/monza/b.lo1");
  Start({"$G"});
  Library library(editor.Window());
  library.Scan();
  library.Finish();
  EXPECT_EQ(library.Progress(), "2 setups in 1 installation");
  library.Table().SetFilter("b.lo1");
  EXPECT_EQ(library.Progress(), "1 shown of 2 setups in 1 installation");
  EXPECT_EQ(SetupCount(1234), "1,234 setups");
}

TEST_F(LibraryTest, PreviewsADifferenceThatFollowsEdits)
{
  PutSetup("$G/Players/Jim/Setups/monza/a.lo1");
  Start({"$G"});
  editor.Play(
      "on open -> $G/Players/Jim/Setups/monza/a.lo1\non FrmModYear2 -> 1967\nclick MnuOpen\n");
  Library library(editor.Window());
  library.Scan();
  library.Finish();
  LibraryPreviews previews(editor.Window());
  EXPECT_TRUE(previews.Of(nullptr).rows.empty());
  EXPECT_EQ(previews.Of(nullptr).text,
            "Choose a setup to see what differs from the one being edited");
  const auto row = library.Table().SharedAt(0);
  EXPECT_EQ(previews.Of(row).text, "Nothing differs from a.lo1");
  editor.Play("click CmdInc(30)\n");
  const auto preview = previews.Of(row);
  ASSERT_EQ(preview.rows.size(), 1U);
  EXPECT_EQ(preview.text, "1 value differs from a.lo1");
  EXPECT_EQ(preview.rows[0].reference, "10");
  EXPECT_EQ(preview.rows[0].now, editor.Window().Form().Label1[30].text);
  editor.Play("click MnuUndo\n");
  EXPECT_EQ(previews.Of(row).rows.size(), 0U);
}

TEST_F(LibraryTest, SaysWhyASetupCannotBePreviewed)
{
  PutSetup("$G/Players/Jim/Setups/monza/a.lp1");
  editor.Play("file $G/Players/Jim/Setups/monza/cut.lo1 hex \"50 47 54 53 03\"\n");
  PutSetup("$G/Players/Jim/Setups/monza/gone.lo1");
  Start({"$G"});
  Library library(editor.Window());
  library.Scan();
  library.Finish();
  editor.Play("remove $G/Players/Jim/Setups/monza/gone.lo1\n");
  LibraryPreviews previews(editor.Window());
  const auto text = [&](std::size_t line) {
    const auto preview = previews.Of(library.Table().SharedAt(line));
    EXPECT_TRUE(preview.rows.empty());
    return preview.text;
  };
  EXPECT_EQ(text(0), "You are attempting to load a setup file for a mod that isn't installed.");
  EXPECT_EQ(text(1), "There is something wrong with this setup file.");
  EXPECT_TRUE(text(2).starts_with("This file cannot be read: "));
}

}  // namespace
}  // namespace velquist::app
