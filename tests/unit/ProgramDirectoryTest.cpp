// SPDX-License-Identifier: MIT
#include "platform/ProgramDirectory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/Errors.h"
#include "platform/HostFileSystem.h"
#include "platform/SystemFiles.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;
using namespace velquist::samples;

/// A machine in a directory of its own: an executable in bin, a home.
class ProgramDirectories : public ::testing::Test {
 protected:
  ProgramDirectories()
  {
    fs::create_directories(Home());
#ifdef _WIN32
    environment_["LOCALAPPDATA"] = PathText(Home());
#else
    environment_["HOME"] = PathText(Home());
#endif
  }
  ~ProgramDirectories() override
  {
    std::error_code ignored;
    fs::permissions(Bin(), fs::perms::owner_all, ignored);
    fs::permissions(Home(), fs::perms::owner_all, ignored);
  }

  [[nodiscard]] fs::path Bin() const
  {
    return root_ / "bin";
  }
  [[nodiscard]] fs::path Shared() const
  {
    return root_ / "share" / "velquist";
  }
  [[nodiscard]] fs::path Home() const
  {
    return root_ / std::u8string(u8"home of Jürgen");
  }
  [[nodiscard]] fs::path UserDirectory() const
  {
#ifdef _WIN32
    return Home() / "Velquist";
#else
    return Home() / ".local" / "share" / "velquist";
#endif
  }

  static void Write(const fs::path& file, const std::string& text)
  {
    fs::create_directories(file.parent_path());
    WriteFile(file, text);
  }
  static void PutDataInto(const fs::path& directory)
  {
    Write(directory / "67 Setup Data.ini", "ranges");
    Write(directory / "67 Velquist Default.vqset", "setup");
    Write(directory / "Metric" / "67 Velquist Default.vqset", "metric setup");
  }
  /// Relative paths of all files below, sorted.
  static std::vector<std::string> FilesIn(const fs::path& directory)
  {
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(directory))
      if (entry.is_regular_file())
        files.push_back(entry.path().lexically_relative(directory).generic_string());
    std::ranges::sort(files);
    return files;
  }

  [[nodiscard]] std::string Found() const
  {
    return ProgramDirectory(
        Bin() / "velquist",
        [this](std::string_view name) {
          const auto found = environment_.find(std::string(name));
          return found == environment_.end() ? std::nullopt : std::optional(found->second);
        },
        shipped_);
  }
  static std::uint64_t Sum(std::string_view text)
  {
    return SumOf(std::as_bytes(std::span(text)));
  }
  void ExpectFailure(const fs::path& path) const
  {
    try {
      ADD_FAILURE() << Found();
    } catch (const FileError& error) {
      EXPECT_EQ(error.Path(), PathText(path));
      EXPECT_FALSE(error.Reason().empty());
    }
  }

  const std::vector<std::string> data_files_ = {"67 Setup Data.ini", "67 Velquist Default.vqset",
                                                "Metric/67 Velquist Default.vqset"};
  std::vector<ShippedFile> shipped_;
  TemporaryFolder folder_;
  const fs::path root_ = fs::canonical(folder_.Path());
  std::map<std::string, std::string> environment_;
};

TEST_F(ProgramDirectories, WithDataFilesBesideTheExecutableAreItsOwnFolder)
{
  PutDataInto(Bin());
  PutDataInto(Shared());
  EXPECT_EQ(Found(), PathText(Bin()));
  EXPECT_EQ(FilesIn(Bin()), data_files_);
  EXPECT_TRUE(FilesIn(Home()).empty());
}

TEST_F(ProgramDirectories, OfASystemWideInstallAreTheUsersAndFilledOnTheFirstStart)
{
  fs::create_directories(Bin());
  PutDataInto(Shared());
  Write(Shared() / "manual.txt", "not data");
  EXPECT_EQ(Found(), PathText(UserDirectory()));
  EXPECT_EQ(FilesIn(UserDirectory()), data_files_);
  EXPECT_EQ(ContentOf(UserDirectory() / "67 Setup Data.ini"), "ranges");
  EXPECT_EQ(ContentOf(UserDirectory() / "Metric" / "67 Velquist Default.vqset"), "metric setup");
}

TEST_F(ProgramDirectories, MayLieBeyondTheClassicLimit)
{
  fs::create_directories(Bin());
  PutDataInto(Shared());
  const std::string part(100, 'd');
  const auto home = Home() / part / part / part;
  for (auto& [name, value] : environment_) value = PathText(home);
  const auto directory = PathText(home / UserDirectory().lexically_relative(Home()));
  EXPECT_EQ(Found(), directory);
  EXPECT_EQ(Found(), directory) << "filled before";
  const HostFileSystem files;
  for (const auto& file : data_files_)
    EXPECT_FALSE(files.ReadWhole(directory + "/" + file).empty()) << file;
}

TEST_F(ProgramDirectories, KeepWhatTheUserChanged)
{
  fs::create_directories(Bin());
  PutDataInto(Shared());
  (void)Found();
  Write(UserDirectory() / "67 Velquist Default.vqset", "my own default");
  Write(UserDirectory() / "Velquist Program Settings.ini", "my settings");
  Write(Shared() / "67 Setup Data.ini", "of a newer version");
  Write(Shared() / "GT Setup Data.ini", "new");
  EXPECT_EQ(Found(), PathText(UserDirectory()));
  EXPECT_EQ(ContentOf(UserDirectory() / "67 Velquist Default.vqset"), "my own default");
  EXPECT_EQ(ContentOf(UserDirectory() / "Velquist Program Settings.ini"), "my settings");
  EXPECT_EQ(ContentOf(UserDirectory() / "67 Setup Data.ini"), "ranges");
  EXPECT_EQ(ContentOf(UserDirectory() / "GT Setup Data.ini"), "new");
}

TEST_F(ProgramDirectories, RenewCopiesThatTheUserNeverChanged)
{
  fs::create_directories(Bin());
  PutDataInto(Shared());
  (void)Found();
  for (const char* file : {"67 Setup Data.ini", "67 Velquist Default.vqset"})
    Write(Shared() / file, "of a newer version");
  Write(Shared() / "Metric" / "67 Velquist Default.vqset", "newer, too");
  shipped_ = {{"67 Setup Data.ini", Sum("much older")},
              {"67 Setup Data.ini", Sum("ranges")},
              {"67 Velquist Default.vqset", Sum("metric setup")},
              {"Metric/67 Velquist Default.vqset", Sum("metric setup")}};
  EXPECT_EQ(Found(), PathText(UserDirectory()));
  EXPECT_EQ(ContentOf(UserDirectory() / "67 Setup Data.ini"), "of a newer version");
  EXPECT_EQ(ContentOf(UserDirectory() / "67 Velquist Default.vqset"), "setup")
      << "another file's sum";
  EXPECT_EQ(ContentOf(UserDirectory() / "Metric" / "67 Velquist Default.vqset"), "newer, too");
  EXPECT_EQ(FilesIn(UserDirectory()), data_files_);

  Write(UserDirectory() / "67 Setup Data.ini", "much older");
  (void)Found();
  EXPECT_EQ(ContentOf(UserDirectory() / "67 Setup Data.ini"), "of a newer version");
  Write(UserDirectory() / "67 Setup Data.ini", "much older, changed");
  (void)Found();
  EXPECT_EQ(ContentOf(UserDirectory() / "67 Setup Data.ini"), "much older, changed");
}

TEST_F(ProgramDirectories, WithoutAnyDataFilesAreTheExecutablesFolder)
{
  fs::create_directories(Bin());
  EXPECT_EQ(Found(), PathText(Bin()));
  fs::create_directories(Shared());
  Write(Bin() / "other.ini", "of some other program");
  EXPECT_EQ(Found(), PathText(Bin()));
  EXPECT_TRUE(FilesIn(Home()).empty());
}

TEST_F(ProgramDirectories, AreRefusedWhereAFileStandsInTheWay)
{
  fs::create_directories(Bin());
  PutDataInto(Shared());
  Write(UserDirectory(), "a file");
  ExpectFailure(UserDirectory());
}

TEST_F(ProgramDirectories, AreRefusedWithoutAHome)
{
  fs::create_directories(Bin());
  PutDataInto(Shared());
#ifdef _WIN32
  const fs::path shown = "%LOCALAPPDATA%\\Velquist";
#else
  const fs::path shown = "~/.local/share/velquist";
#endif
  for (auto& [name, value] : environment_) value.clear();
  ExpectFailure(shown);
  environment_.clear();
  ExpectFailure(shown);

  // Portable use needs none.
  PutDataInto(Bin());
  EXPECT_EQ(Found(), PathText(Bin()));
}

TEST(EnvironmentVariable, TellsWhetherAVariableIsSet)
{
  EXPECT_TRUE(EnvironmentVariable("PATH").has_value());
  EXPECT_FALSE(EnvironmentVariable("VELQUIST_NEVER_SET").has_value());
}

#ifndef _WIN32

TEST_F(ProgramDirectories, FollowTheDataHomeWhereItIsAnAbsolutePath)
{
  fs::create_directories(Bin());
  PutDataInto(Shared());
  const auto data_home = root_ / std::u8string(u8"Größe/data");
  environment_["XDG_DATA_HOME"] = PathText(data_home);
  EXPECT_EQ(Found(), PathText(data_home / "velquist"));
  EXPECT_EQ(FilesIn(data_home / "velquist"), data_files_);
  EXPECT_TRUE(FilesIn(Home()).empty());
  for (const char* unusable : {"", "relative/data"}) {
    environment_["XDG_DATA_HOME"] = unusable;
    EXPECT_EQ(Found(), PathText(UserDirectory())) << unusable;
  }
}

TEST_F(ProgramDirectories, LeaveCopiesThatTheUserCanChange)
{
  fs::create_directories(Bin());
  PutDataInto(Shared());
  fs::permissions(Shared() / "67 Setup Data.ini", fs::perms(0444));
  (void)Found();
  const auto permissions = fs::status(UserDirectory() / "67 Setup Data.ini").permissions();
  EXPECT_NE(permissions & fs::perms::owner_write, fs::perms::none);
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

TEST_F(ProgramDirectories, OfAFolderThatCannotBeWrittenAreTheUsersFilledFromIt)
{
  PutDataInto(Bin());
  Write(Bin() / "Velquist Program Settings.ini", "settings");
  fs::permissions(Bin(), fs::perms(0555));
  fs::permissions(Home(), fs::perms(0777));
  const OrdinaryUser user;
  EXPECT_EQ(Found(), PathText(UserDirectory()));
  auto expected = data_files_;
  expected.emplace_back("Velquist Program Settings.ini");
  EXPECT_EQ(FilesIn(UserDirectory()), expected);
}

TEST_F(ProgramDirectories, AreRefusedWhereTheHomeCannotBeWritten)
{
  fs::create_directories(Bin());
  PutDataInto(Shared());
  fs::permissions(Home(), fs::perms(0555));
  {
    const OrdinaryUser user;
    ExpectFailure(UserDirectory());
  }
  // Filled before, it can still be read.
  fs::permissions(Home(), fs::perms(0755));
  (void)Found();
  fs::permissions(Home(), fs::perms(0555));
  const OrdinaryUser user;
  EXPECT_EQ(Found(), PathText(UserDirectory()));
}

#endif

}  // namespace
}  // namespace velquist::platform
