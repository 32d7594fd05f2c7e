// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "TemporaryFolder.h"
#include "platform/ProgramDirectory.h"
#include "platform/SystemFiles.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;

/// Where a program in bin finds its data files; the home is beside it.
std::string Found(const samples::TemporaryFolder& folder, bool has_home = true)
{
  return DataDirectory(folder / "bin" / "program",
                       [&](std::string_view name) -> std::optional<std::string> {
                         const bool is_home = name == "HOME" || name == "LOCALAPPDATA";
                         if (!has_home || !is_home) return std::nullopt;
                         return PathText(folder / "home");
                       });
}

void PutData(const fs::path& directory)
{
  fs::create_directories(directory);
  samples::WriteFile(directory / "67 Velquist Default.vqset", "setup");
}

TEST(DataDirectory, IsTheProgramsOwnFolderWhereTheyLieBesideIt)
{
  const samples::TemporaryFolder folder;
  fs::create_directories(folder / "bin");
  EXPECT_EQ(Found(folder), PathText(folder / "bin")) << "without any";
  PutData(folder / "bin");
  PutData(folder / "share/velquist");
  EXPECT_EQ(Found(folder), PathText(folder / "bin"));
}

TEST(DataDirectory, IsTheUsersOnceItIsFilledAndIsNeverFilledHere)
{
  const samples::TemporaryFolder folder;
  fs::create_directories(folder / "bin");
  fs::create_directories(folder / "home");
  PutData(folder / "share/velquist");
  const auto is_shared = [&](const std::string& found) {
    return fs::equivalent(PathFromText(found), folder / "share/velquist");
  };
  EXPECT_TRUE(is_shared(Found(folder)));
  EXPECT_TRUE(is_shared(Found(folder, false)));
  EXPECT_TRUE(fs::is_empty(folder / "home"));
#ifdef _WIN32
  const auto users = folder / "home" / "Velquist";
#else
  const auto users = folder / "home/.local/share/velquist";
#endif
  PutData(users);
  EXPECT_TRUE(fs::equivalent(PathFromText(Found(folder)), users));
}

}  // namespace
}  // namespace velquist::platform
