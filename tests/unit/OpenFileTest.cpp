// SPDX-License-Identifier: MIT
// The open file stays the one that the user means: what another program writes is noticed from the
// moment it was read, and a dropped file takes the place of no edits that were to be saved.
#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "MemoryProgram.h"
#include "WatchedProgram.h"
#include "runner/SourceDirectory.h"

namespace velquist::testing {
namespace {

using platform::Answer;
using platform::Icon;

constexpr std::string_view kSaveFirst = "Do you want to save the current settings first?";
constexpr std::string_view kQuestion = "This file already exits.  Do you want to overwrite it?";
constexpr std::string_view kMine = "/GPL/Players/Jim/Setups/monza/mine.lp1";

class Dropped : public ::testing::Test {
 protected:
  Dropped()
  {
    program_.PutShippedFiles(SourceDirectory() / "assets" / "program");
    const auto setup = program_.files.ReadWhole("/program/66 Velquist Default.vqset");
    for (const auto path : {kMine, std::string_view("/GPL/Players/Jim/Setups/monza/other.lp1")})
      program_.files.Put(path, setup);
    program_.Start({.ModYearIndex = data::ModYear::k1966});
  }
  void Announce(std::string_view text, Answer answer, Icon icon = Icon::kQuestion)
  {
    program_.Announce(runner::AnnouncedMessage{std::string(text), icon, answer});
  }
  void Edit()
  {
    Window().Click("CmdInc", 0);
    ASSERT_TRUE(Window().Car().Changed());
    edited_ = Window().Car().Value(0);
  }
  void DropOther() { Window().FileDropped("/GPL/Players/Jim/Setups/monza/other.lp1"); }
  void ExpectTheEditsStay(std::string_view file)
  {
    EXPECT_EQ(program_.UnexpectedDialog(), "");
    EXPECT_EQ(Window().Form().Label4.text, file);
    EXPECT_TRUE(Window().Car().Changed());
    EXPECT_EQ(Window().Car().Value(0), edited_);
  }
  [[nodiscard]] app::MainWindow& Window() { return program_.Window(); }

  MemoryProgram program_;
  float edited_ = 0;
};

TEST_F(Dropped, ASaveThatIsWantedFirstAndThenNotConfirmedKeepsTheEdits)
{
  Window().FileDropped(kMine);
  Edit();
  Announce(kSaveFirst, Answer::kYes);
  Announce(kQuestion, Answer::kNo);
  DropOther();
  ExpectTheEditsStay("mine.lp1");
}

TEST_F(Dropped, ASaveThatIsWantedFirstAndRefusedForADefaultSetupKeepsTheEdits)
{
  Edit();
  Announce(kSaveFirst, Answer::kYes);
  Announce(
      "You cannot overwrite the default setup file.  Save As to a different setup file name first.",
      Answer::kOk, Icon::kInformation);
  DropOther();
  ExpectTheEditsStay("66 Velquist Default.vqset");
}

TEST_F(Dropped, TakesThePlaceOfEditsThatAreSavedOrNotWanted)
{
  Window().FileDropped(kMine);
  Edit();
  Announce(kSaveFirst, Answer::kYes);
  Announce(kQuestion, Answer::kYes);
  DropOther();
  EXPECT_EQ(Window().Form().Label4.text, "other.lp1");
  const float saved = edited_;
  Edit();
  Announce(kSaveFirst, Answer::kNo);
  Window().FileDropped(kMine);
  EXPECT_EQ(program_.UnexpectedDialog(), "");
  EXPECT_EQ(Window().Form().Label4.text, "mine.lp1");
  EXPECT_EQ(Window().Car().Value(0), saved);
}

/// A short file whose name and bytes leave its year open.
class WhileAsked : public ::testing::Test {
 protected:
  WhileAsked()
  {
    for (const char* marker : {"gpl_ai.ini", "gpla66.ini"})
      program_.world.Write(program_.Game() + "/" + marker, {});
    program_.WriteSettings();
    program_.world.Copy(program_.world.Names().program + "/67 Velquist Default.vqset", path_);
    program_.dialogs.while_asked_for_mod_year = [&] { program_.world.Write(path_, kTheirs); };
  }
  void ExpectTheChangeIsNoticed()
  {
    EXPECT_EQ(program_.window->Form().Label4.text, "fast.br1");
    EXPECT_EQ(program_.world.Read(path_).size(), kTheirs.size());
    EXPECT_TRUE(program_.window->State().open_file.IsChangedOnDisk(program_.files));
  }

  static constexpr std::array<std::byte, 3> kTheirs = {};

  WatchedProgram program_;
  std::string path_ = program_.Game() + "/Players/Jim/Setups/monza/fast.br1";
};

TEST_F(WhileAsked, ForTheYearOfAnOpenedFileAnotherProgramWritesIt)
{
  program_.Start();
  program_.dialogs.chosen = path_;
  program_.window->Click("MnuOpen");
  ExpectTheChangeIsNoticed();
}

TEST_F(WhileAsked, ForTheYearAtTheStartAnotherProgramWritesTheFile)
{
  program_.Start(path_);
  ExpectTheChangeIsNoticed();
}

TEST_F(WhileAsked, ToldPathsAreSpelledAsTheSystemDoes)
{
  program_.Start();
  program_.world.Remove(program_.SettingsPath());
  program_.world.MakeDirectory(program_.SettingsPath());
  program_.world.Remove(program_.Game() + "/Players/Jim/Setups/monza");
  auto& window = *program_.window;
  window.Click("MnuExport");
  EXPECT_TRUE(window.CloseRequested());
  ASSERT_EQ(program_.dialogs.messages.size(), 2U);
  constexpr char kOther = std::filesystem::path::preferred_separator == '/' ? '\\' : '/';
  for (const auto& message : program_.dialogs.messages) {
    EXPECT_NE(message.text.find(program_.world.Names().temporary), std::string::npos)
        << message.text;
    EXPECT_EQ(message.text.find(kOther), std::string::npos) << message.text;
  }
}

}  // namespace
}  // namespace velquist::testing
