// SPDX-License-Identifier: MIT
#include "platform/WinePrefixes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/HostFileSystem.h"

namespace velquist::platform {
namespace {

class Prefixes : public ::testing::Test {
 protected:
  Prefixes() { variables_["HOME"] = Home(); }

  [[nodiscard]] std::string Home() const { return PathText(folder_.Path()); }
  void Make(const std::string& prefix)
  {
    std::filesystem::create_directories(folder_.Path() / prefix / "drive_c");
  }
  void Set(const std::string& name, const std::string& value) { variables_[name] = value; }

  /// The directories that are found, from the home directory.
  [[nodiscard]] std::vector<std::string> Found() const
  {
    std::vector<std::string> found;
    for (const auto& prefix : Search()) found.push_back(prefix.directory.substr(Home().size() + 1));
    return found;
  }
  [[nodiscard]] std::vector<WinePrefix> Search() const
  {
    const auto environment = [this](std::string_view name) -> std::optional<std::string> {
      const auto at = variables_.find(std::string(name));
      if (at == variables_.end()) return std::nullopt;
      return at->second;
    };
    return WinePrefixes(environment, files_);
  }

  samples::TemporaryFolder folder_;
  std::map<std::string, std::string> variables_;
  HostFileSystem files_;
};

using Names = std::vector<std::string>;

TEST_F(Prefixes, AreNoneWhereNoneExist)
{
  std::filesystem::create_directories(folder_.Path() / ".wine");
  std::filesystem::create_directories(folder_.Path() / "Games/something");
  EXPECT_EQ(Found(), Names{});
}

TEST_F(Prefixes, AreNoneWithoutAHome)
{
  Make(".wine");
  Set("HOME", "");
  EXPECT_TRUE(Search().empty());
}

TEST_F(Prefixes, TheUsualOneIsTheFirst)
{
  Make("Games/gpl");
  Make(".wine");
  EXPECT_EQ(Found(), (Names{".wine", "Games/gpl"}));
  EXPECT_EQ(Search().front().drive, Home() + "/.wine/drive_c");
}

TEST_F(Prefixes, TheOneOfTheEnvironmentGoesBeforeAndComesOnce)
{
  Make(".wine");
  Make("elsewhere");
  Set("WINEPREFIX", Home() + "/elsewhere");
  EXPECT_EQ(Found(), (Names{"elsewhere", ".wine"}));
  Set("WINEPREFIX", Home() + "/.wine");
  EXPECT_EQ(Found(), Names{".wine"});
}

TEST_F(Prefixes, OfEveryProgramAreFound)
{
  const Names all = {".local/share/lutris/runner-prefix",
                     ".local/share/lutris/prefixes/gpl",
                     ".local/share/bottles/bottles/Racing",
                     "Games/gpl",
                     ".var/app/com.usebottles.bottles/data/bottles/bottles/Flat",
                     "Games/Heroic/Prefixes/Plain",
                     "Games/Heroic/Prefixes/default/Game"};
  for (const auto& prefix : all) Make(prefix);
  EXPECT_EQ(Found(), all);
}

TEST_F(Prefixes, OfSteamAreKnownByTheirNumber)
{
  const Names all = {".local/share/Steam/steamapps/compatdata/1234",
                     ".steam/steam/steamapps/compatdata/99",
                     ".var/app/com.valvesoftware.Steam/.local/share/Steam/steamapps/compatdata/7"};
  for (const auto& prefix : all) Make(prefix + "/pfx");
  EXPECT_EQ(Found(), all);
  EXPECT_EQ(Search().front().drive, Home() + "/" + all.front() + "/pfx/drive_c");
}

TEST_F(Prefixes, OfSteamComeOnceThoughTheirFolderHasTwoPaths)
{
  Make(".local/share/Steam/steamapps/compatdata/1234/pfx");
  Make(".steam/steam/steamapps/compatdata/1234/pfx");
  EXPECT_EQ(Found(), Names{".local/share/Steam/steamapps/compatdata/1234"});
}

TEST_F(Prefixes, AreLookedForWhereTheUsersDataAre)
{
  Make("data/lutris/prefixes/gpl");
  Make(".local/share/lutris/prefixes/gpl");
  Set("XDG_DATA_HOME", Home() + "/data");
  EXPECT_EQ(Found(), Names{"data/lutris/prefixes/gpl"});
}

TEST_F(Prefixes, OfOneProgramAreSortedByName)
{
  for (const char* const name : {"b", "c", "a"}) Make(std::string("Games/") + name);
  EXPECT_EQ(Found(), (Names{"Games/a", "Games/b", "Games/c"}));
}

}  // namespace
}  // namespace velquist::platform
