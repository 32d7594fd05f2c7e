// SPDX-License-Identifier: MIT
// Start-up, the lists of the top row and shut-down, seen from the files and
// messages.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "ScriptedEditor.h"
#include "WatchedProgram.h"
#include "platform/FileReason.h"
#include "platform/HostPath.h"

namespace velquist::testing {
namespace {

namespace fs = std::filesystem;
using Messages = std::vector<RecordingDialogs::Message>;

class Lifecycle : public ::testing::Test {
 protected:
  void MakeGame()
  {
    program_.world.MakeDirectory(Track("Jim", "monza"));
    program_.world.Write(program_.Game() + "/gpl_ai.ini", {});
  }
  [[nodiscard]] std::string Track(const std::string& player, const std::string& track) const
  {
    return program_.Game() + "/Players/" + player + "/Setups/" + track;
  }
  [[nodiscard]] std::string InProgram(const std::string& name) const
  {
    return program_.world.Names().program + "\\" + name;
  }

  WatchedProgram program_;
};

TEST_F(Lifecycle, SettingsCutAtAnyByteStartProperlyOrEndWithTheSpecifiedText)
{
  MakeGame();
  const auto game = program_.Game();
  const std::string header = "\"" + game + "\"\r\n0\r\n0\r\n1\r\n6\r\n2\r\n12\r\n1";
  const std::string whole = header + "\r\n\"" + game + "\"\r\n\"C:\\GPL 2\"\r\n";
  program_.files.writing = false;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    SCOPED_TRACE(length);
    program_.WriteSettingsText(std::string_view(whole).substr(0, length));
    const auto& window = program_.Start();
    if (length < header.size()) {
      EXPECT_TRUE(window.Ended());
      EXPECT_EQ(program_.dialogs.messages, Messages{WatchedProgram::NotValid()});
      EXPECT_TRUE(program_.files.written.empty());
    } else {
      EXPECT_FALSE(window.Ended());
      EXPECT_EQ(program_.dialogs.messages, Messages{});
      EXPECT_EQ(window.Form().Combo7.text, game);
      EXPECT_EQ(window.Car().ChassisIndex(), 6);
      EXPECT_EQ(window.State().Units, 1);
    }
  }
}

TEST_F(Lifecycle, StartUpReadsInTheOrderSettingsListsSetupData)
{
  MakeGame();
  program_.WriteSettings();
  program_.Start();
  const std::vector<std::string> expected = {
      "read " + program_.SettingsPath(),
      "list " + program_.Game() + "\\Players\\",
      "list " + program_.Game() + "\\Players\\Jim\\Setups\\",
      "read " + InProgram("67 Velquist Default.vqset"),
      "read " + InProgram("67 Setup Data.ini"),
      "read " + InProgram("67 Gear Data.ini"),
  };
  ASSERT_GE(program_.files.log.size(), expected.size());
  program_.files.log.resize(expected.size());
  EXPECT_EQ(program_.files.log, expected);
}

TEST_F(Lifecycle, StartUpReadsTheNamedFileInPlaceOfTheDefaultSetup)
{
  MakeGame();
  program_.WriteSettings();
  program_.world.Write(program_.Game() + "/gpla66.ini", {});
  program_.world.Copy(InProgram("66 Velquist Default.vqset"), Track("Jim", "monza") + "/a.lp1");
  const auto path = Track("Jim", "monza") + "/a.lp1";
  const auto& window = program_.Start(path);
  EXPECT_EQ(window.Car().FileName(), "a.lp1");
  const auto read = [&](const std::string& file) {
    return std::ranges::count(program_.files.read, file);
  };
  EXPECT_EQ(read(path), 1);
  EXPECT_EQ(read(InProgram("66 Velquist Default.vqset")), 0);
  EXPECT_EQ(read(InProgram("67 Velquist Default.vqset")), 0);
  EXPECT_EQ(read(InProgram("65 Setup Data.ini")), 1);
}

TEST_F(Lifecycle, OnlyThePlayersAndTheShownPlayersTracksAreListed)
{
  constexpr int kPlayers = 40;
  for (int player = 0; player < kPlayers; ++player) {
    const auto setups =
        fs::path(program_.Game()) / "Players" / ("player" + std::to_string(player)) / "Setups";
    for (const char* track : {"monza", "spa", "rouen"}) fs::create_directories(setups / track);
  }
  program_.world.Write(program_.Game() + "/gpl_ai.ini", {});
  program_.WriteSettings("25,0,0,0,0,1,0");
  auto& window = program_.Start();
  EXPECT_EQ(window.Form().Combo4.items.size(), 40U);
  EXPECT_EQ(window.Form().Combo4.selection, 25);
  const auto tracks = [&] {
    return program_.Game() + "\\Players\\" + window.Form().Combo4.text + "\\Setups\\";
  };
  EXPECT_EQ(program_.files.listed, (std::vector{program_.Game() + "\\Players\\", tracks()}));

  program_.files.listed.clear();
  window.Select("Combo4", -1, 7);
  EXPECT_EQ(program_.files.listed, std::vector{tracks()});

  program_.files.listed.clear();
  window.Select("Combo5", -1, 2);
  window.Select("Combo3", -1, 2);
  window.Select("Combo2", -1, 0);
  EXPECT_EQ(program_.files.listed, std::vector<std::string>{});
}

TEST_F(Lifecycle, NoMoreThan1001TracksAreOffered)
{
  MakeGame();
  const auto setups = fs::path(program_.Game()) / "Players" / "Jim" / "Setups";
  for (int track = 0; track < 1005; ++track)
    fs::create_directory(setups / ("t" + std::to_string(track)));
  program_.WriteSettings("0,0,0,0,0,1000,0");
  EXPECT_EQ(program_.Start().Form().Combo5.items.size(), 1001U);
  EXPECT_EQ(program_.window->Form().Combo5.selection, 1000);
  program_.WriteSettings("0,0,0,0,0,1001,0");
  EXPECT_EQ(program_.Start().Form().Combo5.selection, 0);
  EXPECT_EQ(program_.window->State().track_index, 1001);
}

TEST_F(Lifecycle, HandlersDoNothingUntilTheStartUpIsDone)
{
  MakeGame();
  program_.world.MakeDirectory(Track("Jim", "spa"));
  program_.world.Copy(InProgram("67 Velquist Default.vqset"), Track("Jim", "monza") + "/a.fe1");
  program_.WriteSettings("5,0,0,3,1,7,1");
  std::string before;
  program_.dialogs.while_asked_for_mod_year = [&] {
    // The lists of players and tracks are filled, the others are not yet.
    before = Everything(*program_.window, WithBuffer::kYes);
    for (const char* list : {"Combo3", "Combo4", "Combo5", "Combo6", "Combo7"})
      program_.window->Click(list, -1);
    EXPECT_EQ(Everything(*program_.window, WithBuffer::kYes), before);
  };
  program_.Start(Track("Jim", "monza") + "/a.fe1");
  EXPECT_FALSE(before.empty());
  EXPECT_EQ(program_.dialogs.messages, Messages{});
  EXPECT_EQ(program_.window->State().player_index, 5);
  EXPECT_EQ(program_.window->State().track_index, 7);
  EXPECT_EQ(program_.window->Car().ChassisIndex(), 4);
  EXPECT_EQ(program_.window->State().Units, 1);
}

TEST_F(Lifecycle, FatalMessagesComeAloneAndWriteNothing)
{
  MakeGame();
  struct Case {
    std::string settings;
    std::string removed;
    RecordingDialogs::Message message;
  };
  const auto fatal = [](const std::string& text) {
    return RecordingDialogs::Message{text, platform::Icon::kCritical};
  };
  const std::string good = program_.Game() + ",0,0,0,0,0,0,0";
  const std::vector<Case> cases = {
      {program_.Game(), "", WatchedProgram::NotValid()},
      {program_.Game() + "/nowhere,0,0,0,0,0,0,0", "", WatchedProgram::Bad()},
      {program_.Game() + ",0,0,0,0,0,0,9", "", WatchedProgram::Corrupted()},
      {program_.Game() + ",0,9,0,0,0,0,0", "", WatchedProgram::Corrupted()},
      {good, "67 Gear Data.ini",
       fatal("You are missing the program's saved gearset data file.  Please "
             "reinstall Velquist.")},
      {good, "67 Setup Data.ini",
       fatal("You are missing the program's saved setup data file.  Please "
             "reinstall Velquist.")},
      {good, "67 Velquist Default.vqset",
       fatal("You are missing the program's saved default setup file for this "
             "mod year.  Please "
             "reinstall Velquist.")},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.message.text);
    program_.WriteSettingsText(each.settings);
    if (!each.removed.empty()) program_.world.Remove(InProgram(each.removed));
    auto& window = program_.Start();
    EXPECT_TRUE(window.Ended());
    EXPECT_EQ(program_.dialogs.messages, Messages{each.message});
    EXPECT_TRUE(program_.files.written.empty());

    // A program that has ended does nothing more.
    EXPECT_FALSE(window.Click("MnuSave"));
    EXPECT_FALSE(window.Select("Combo7", -1, 0));
    EXPECT_TRUE(window.CloseRequested());
    EXPECT_EQ(program_.dialogs.messages.size(), 1U);
    EXPECT_TRUE(program_.files.written.empty());
  }
}

TEST_F(Lifecycle, StartUpWithADamagedDefaultSetupEndsWithOneMessage)
{
  MakeGame();
  program_.WriteSettings();
  const auto whole = program_.world.Read(InProgram("67 Velquist Default.vqset"));
  program_.world.Write(InProgram("67 Velquist Default.vqset"), std::span(whole).first(100));
  EXPECT_TRUE(program_.Start().Ended());
  EXPECT_EQ(program_.dialogs.messages.size(), 1U);
  EXPECT_TRUE(program_.files.written.empty());
}

TEST_F(Lifecycle, SettingsThatCannotBeWrittenAreToldAndTheWindowCloses)
{
  MakeGame();
  program_.WriteSettings();
  for (const bool by_menu : {false, true}) {
    SCOPED_TRACE(by_menu);
    auto& window = program_.Start();
    const auto before = program_.world.Read(program_.SettingsPath());
    fs::permissions(platform::HostPath(program_.SettingsPath()), fs::perms(0444));
    window.Select("Combo3", -1, 4);
    if (by_menu)
      window.Click("MnuExit");
    else
      EXPECT_TRUE(window.CloseRequested());
    EXPECT_TRUE(window.Ended());
    ASSERT_EQ(program_.dialogs.messages.size(), 1U);
    EXPECT_EQ(program_.dialogs.messages[0].icon, platform::Icon::kExclamation);
    EXPECT_EQ(program_.dialogs.messages[0].text,
              platform::ToldPath(program_.SettingsPath()) + "\n" +
                  platform::ReasonOf(std::make_error_code(std::errc::permission_denied)) + ".");
    EXPECT_EQ(program_.world.Read(program_.SettingsPath()), before);
    fs::permissions(platform::HostPath(program_.SettingsPath()), fs::perms(0644));
  }
}

TEST_F(Lifecycle, AnInstallationWithATrailingSeparatorWorksAsWithoutOne)
{
  MakeGame();
  for (const char* end : {"/", "\\"}) {
    SCOPED_TRACE(end);
    const auto game = program_.Game() + end;
    program_.WriteSettingsText(game + ",0,0,0,0,0,0,0," + game);
    auto& window = program_.Start();
    EXPECT_FALSE(window.Ended());
    EXPECT_EQ(window.Form().Combo7.text, game);
    EXPECT_EQ(window.Form().Combo4.text, "Jim");
    EXPECT_EQ(window.Form().Combo5.text, "monza");
    EXPECT_EQ(window.Form().Combo2.text, "1967");
  }
}

#ifndef _WIN32  // which has no such names
TEST_F(Lifecycle, AnInstallationThatTheSettingsCannotHoldSpoilsNoLaterStart)
{
  MakeGame();
  program_.WriteSettings();
  const std::string other = program_.world.Names().temporary + "/G\x01PL";
  const auto setup = other + "/Players/Ann/Setups/spa/a.lp1";
  fs::create_directories(fs::path(setup).parent_path());
  fs::copy(platform::HostPath(InProgram("66 Velquist Default.vqset")), setup);
  for (const char* marker : {"/gpl_ai.ini", "/gpla66.ini"}) std::ofstream(other + marker) << "\n";
  EXPECT_TRUE(program_.Start(setup).CloseRequested());
  EXPECT_EQ(program_.dialogs.messages, Messages{});
  EXPECT_FALSE(program_.Start().Ended());
  EXPECT_EQ(program_.window->Form().Combo7.items, std::vector<std::string>{program_.Game()});
}
#endif

TEST(SelectionChanges, WithDamagedFilesLeaveEverythingAsItWas)
{
  constexpr std::string_view kNotDone =
      "on message \"This cannot be done: the setup or one of the program's "
      "data files is damaged or "
      "incomplete.  Nothing was changed.\" exclamation -> ok\n";
  ScriptedEditor editor;
  editor.StartWithGame();
  editor.Play(R"(
dir $T/Other/Players/Ann/Setups/spa
file $T/Other/gpl_ai.ini text ""
file $T/Other/gpl.exe text ""
copy $T/Other $T/Third
on open -> $T/Other/gpl.exe
click MnuAddInstall
select Combo7 #0
select Combo2 "1966"
select Combo3 #14
select Combo6 "F2"
check OptUnits(1)
click CmdInc(0)
remove "$P/67 Velquist Default.vqset"
file "$P/67 Velquist Default.vqset" hex "50 47 54 53 00 00 00 00"
remove "$P/GT Setup Data.ini"
file "$P/GT Setup Data.ini" text "cut short,1,2,3,4,5\r\n"
)");
  const auto before = editor.Everything(WithBuffer::kYes);
  const auto refused = [&](const std::string& statements) {
    SCOPED_TRACE(statements);
    editor.Play(std::string(kNotDone) + statements);
    EXPECT_EQ(editor.Everything(WithBuffer::kYes), before);
  };
  refused("select Combo2 \"1967\"");
  editor.Play(
      "on message \"This cannot be done: the data file $P/GT Setup Data.ini is incomplete.  "
      "Nothing "
      "was changed.\" exclamation -> ok\nselect Combo2 \"GT\"");
  EXPECT_EQ(editor.Everything(WithBuffer::kYes), before);
  refused("select Combo7 #1");
  refused("select Combo7 #0");
  editor.Play("on FrmInstallDelete -> #1 delete cancel\n" + std::string(kNotDone) +
              "click MnuDeleteInstall\n");
  EXPECT_EQ(editor.Everything(WithBuffer::kYes), before);
  editor.Play(
      "on message \"Do you want to save the current settings first?\" question -> no\n"
      "on open -> $T/Third/gpl.exe\n" +
      std::string(kNotDone) + "click MnuAddInstall\n");
  EXPECT_EQ(editor.Everything(WithBuffer::kYes), before);
}

}  // namespace
}  // namespace velquist::testing
