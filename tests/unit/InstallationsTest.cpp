// SPDX-License-Identifier: MIT
#include "install/Installations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>

#include "platform/HostFileSystem.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace velquist::install {
namespace {

namespace fs = std::filesystem;

TEST(InstallationOfPath, IsWhatStandsBeforeTheFirstPlayers)
{
  EXPECT_EQ(InstallationOfPath("C:\\GPL\\Players\\Me\\Setups\\monza\\a.fe1"), "C:\\GPL");
  EXPECT_EQ(InstallationOfPath("/home/me/GPL/players/Me/setups/monza/a.fe1"), "/home/me/GPL");
  EXPECT_EQ(InstallationOfPath("C:\\GPL/PLAYERS\\Me"), "C:\\GPL");
  EXPECT_EQ(InstallationOfPath("C:\\Players\\GPL\\Players\\Me\\Setups\\monza\\a.fe1"), "C:");
  EXPECT_EQ(InstallationOfPath("\\Players\\Me"), "");
  EXPECT_EQ(InstallationOfPath("C:\\GPL\\Players"), "C:\\GPL");
}

TEST(InstallationOfPath, IsMissingWithoutPlayers)
{
  for (const char* path : {"", "a.fe1", "Players\\Me\\Setups\\monza\\a.fe1", "C:\\GPL\\Player\\Me",
                           "C:\\GPLPlayers\\Me"})
    EXPECT_EQ(InstallationOfPath(path), std::nullopt) << path;
}

TEST(PlayerOfPath, StandsBetweenPlayersAndSetups)
{
  EXPECT_EQ(PlayerOfPath("C:\\GPL\\Players\\Me\\Setups\\monza\\a.fe1"), "Me");
  EXPECT_EQ(PlayerOfPath("/GPL/PLAYERS/Tobin  Ferrant/sETUPS/monza/a.fe1"), "Tobin  Ferrant");
  EXPECT_EQ(PlayerOfPath("C:\\Setups\\GPL\\Players\\Me\\Setups\\monza\\a.fe1"), "Me");
  EXPECT_EQ(PlayerOfPath("C:\\GPL\\Players\\Setups\\Setups\\monza\\a.fe1"), "Setups");
  EXPECT_EQ(PlayerOfPath("C:\\GPL\\Players\\J\xC3\xBCrgen\\Setups\\a.fe1"), "J\xC3\xBCrgen");
}

TEST(PlayerOfPath, IsMissingWithoutOneOfTheDirectories)
{
  for (const char* path : {"", "C:\\GPL\\Players", "C:\\GPL\\Players\\Me\\a.fe1",
                           "C:\\GPL\\Players2\\Me\\Setups\\a.fe1", "C:\\Setups\\Me\\a.fe1",
                           "C:\\GPL\\Players\\Setups\\a.fe1"})
    EXPECT_EQ(PlayerOfPath(path), std::nullopt) << path;
}

TEST(SetupDirectory, IsMadeOfInstallationPlayerAndTrack)
{
  EXPECT_EQ(SetupDirectory("C:\\GPL", "Me", "monza"), "C:\\GPL\\players\\Me\\setups\\monza");
}

/// An installation in a directory of its own.
class InstallationLists : public ::testing::Test {
 protected:
  InstallationLists()
  {
    std::random_device random;
    root_ =
        fs::canonical(fs::temp_directory_path()) / ("velquist-lists-" + std::to_string(random()));
    fs::create_directories(root_);
    fs::permissions(root_, fs::perms(0755));
  }
  ~InstallationLists() override
  {
    std::error_code ignored;
    for (const char* closed : {"GPL", "GPL/Players", "GPL/Players/Me/Setups"})
      fs::permissions(root_ / closed, fs::perms(0755), ignored);
    fs::remove_all(root_, ignored);
  }

  void Make(const std::string& directory)
  {
    fs::create_directories(platform::HostPath(Text() + "/" + directory));
  }
  void MakeTracks(int first, int end)
  {
    const auto setups = root_ / "GPL" / "Players" / "Me" / "Setups";
    fs::create_directories(setups);
    for (int track = first; track < end; ++track)
      fs::create_directory(setups / ("track" + std::to_string(track)));
  }

  [[nodiscard]] std::string Text() const { return platform::PathText(root_); }
  [[nodiscard]] std::string Game() const { return Text() + "\\GPL"; }
  [[nodiscard]] std::vector<std::string> Players() const
  {
    return Sorted(ListPlayers(files_, Game()));
  }
  [[nodiscard]] std::vector<std::string> Tracks(const std::string& player) const
  {
    return Sorted(ListTracks(files_, Game(), player));
  }

  using Names = std::vector<std::string>;
  fs::path root_;
  platform::HostFileSystem files_;

 private:
  static Names Sorted(Names names)
  {
    std::ranges::sort(names);
    return names;
  }
};

TEST_F(InstallationLists, HoldDirectoriesAlone)
{
  Make("GPL/Players/Me/Setups/monza");
  Make("GPL/Players/You");
  files_.WriteText(Game() + "\\Players\\notes.txt", "");
  files_.WriteText(Game() + "\\Players\\Me\\Setups\\a.fe1", "");
  EXPECT_EQ(Players(), (Names{"Me", "You"}));
  EXPECT_EQ(Tracks("Me"), Names{"monza"});
  EXPECT_EQ(Tracks("You"), Names{});
  EXPECT_EQ(Tracks("Nobody"), Names{});
}

TEST_F(InstallationLists, AreEmptyWhereTheInstallationHasGone)
{
  EXPECT_FALSE(HasPlayers(files_, Game()));
  EXPECT_EQ(Players(), Names{});
  EXPECT_EQ(Tracks("Me"), Names{});
}

TEST_F(InstallationLists, FindDirectoriesOfAnyLetterCase)
{
  Make("GPL/PLAYERS/Me/setups/monza");
  EXPECT_TRUE(HasPlayers(files_, Game()));
  EXPECT_EQ(Players(), Names{"Me"});
  EXPECT_EQ(Tracks("ME"), Names{"monza"});
}

TEST_F(InstallationLists, TakeATrailingSeparator)
{
  Make("GPL/Players/Me/Setups/monza");
  for (const char* end : {"\\", "/", "\\\\"}) {
    SCOPED_TRACE(end);
    EXPECT_TRUE(HasPlayers(files_, Game() + end));
    EXPECT_EQ(ListPlayers(files_, Game() + end), Names{"Me"});
    EXPECT_EQ(ListTracks(files_, Game() + end, "Me"), Names{"monza"});
  }
}

TEST_F(InstallationLists, KeepNamesOfOtherLanguages)
{
  Make("GPL/Players/Jürgen Größe/Setups/Nürburg");
  Make("GPL/Players/Jürgen Größe/Setups/鈴鹿");
  EXPECT_EQ(Players(), Names{"Jürgen Größe"});
  EXPECT_EQ(Tracks("Jürgen Größe"), (Names{"Nürburg", "鈴鹿"}));
}

TEST_F(InstallationLists, HaveAtMost1001Names)
{
  MakeTracks(0, 1000);
  EXPECT_EQ(Tracks("Me").size(), 1000U);
  MakeTracks(1000, 1001);
  EXPECT_EQ(Tracks("Me").size(), 1001U);
  MakeTracks(1001, 5000);
  const auto names = Tracks("Me");
  EXPECT_EQ(names.size(), 1001U);
  EXPECT_EQ(std::ranges::adjacent_find(names), names.end()) << "each name once";
}

#ifndef _WIN32

TEST_F(InstallationLists, FollowLinksToDirectories)
{
  Make("Elsewhere/monza");
  Make("GPL/Players/Me");
  fs::create_directory_symlink(root_ / "Elsewhere", root_ / "GPL/Players/Me/Setups");
  fs::create_directory_symlink(root_ / "nowhere", root_ / "GPL/Players/Lost");
  EXPECT_EQ(Players(), Names{"Me"});
  EXPECT_EQ(Tracks("Me"), Names{"monza"});
}

/// The rights of an ordinary user, whoever runs the test.
class OrdinaryUser {
 public:
  OrdinaryUser()
  {
    constexpr uid_t kNobody = 65534;
    if (::geteuid() == 0 && ::seteuid(kNobody) != 0) ADD_FAILURE() << "cannot drop rights";
  }
  ~OrdinaryUser()
  {
    if (::getuid() == 0 && ::seteuid(0) != 0) ADD_FAILURE() << "cannot regain rights";
  }
};

TEST_F(InstallationLists, AreEmptyWhereTheUserMayNotLook)
{
  Make("GPL/Players/Me/Setups/monza");
  fs::permissions(root_ / "GPL/Players/Me/Setups", fs::perms::none);
  {
    const OrdinaryUser user;
    EXPECT_EQ(Players(), Names{"Me"});
    EXPECT_EQ(Tracks("Me"), Names{});
  }
  fs::permissions(root_ / "GPL/Players", fs::perms::none);
  {
    const OrdinaryUser user;
    EXPECT_TRUE(HasPlayers(files_, Game()));
    EXPECT_EQ(Players(), Names{});
  }
  fs::permissions(root_ / "GPL", fs::perms::none);
  const OrdinaryUser user;
  EXPECT_FALSE(HasPlayers(files_, Game()));
  EXPECT_EQ(Players(), Names{});
}

#endif

}  // namespace
}  // namespace velquist::install
