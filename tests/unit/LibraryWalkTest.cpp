// SPDX-License-Identifier: MIT
#include "library/Walk.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/SystemFiles.h"

namespace velquist::library {
namespace {

namespace fs = std::filesystem;
using samples::TemporaryFolder;
using samples::WriteFile;

/// A folder, and what a walk through it comes to.
class LibraryWalk : public ::testing::Test {
 protected:
  void Put(std::string_view name) const
  {
    fs::create_directories((folder_ / name).parent_path());
    WriteFile(folder_ / name, "x");
  }
  /// Paths below the folder, with / between their parts.
  std::vector<std::string> Walked(const std::vector<fs::path>& from)
  {
    std::vector<std::string> paths;
    for (const auto& path : from) paths.push_back(platform::PathText(path));
    Walk walk(paths, [this](std::string_view path, std::string_view reason) {
      told_.push_back(Below(path) + ": " + std::string(reason));
    });
    std::vector<std::string> files;
    while (const auto found = walk.Next())
      files.push_back(Below(found->path) + (found->is_named ? " (named)" : ""));
    return files;
  }
  [[nodiscard]] std::string Below(std::string_view path) const
  {
    const auto relative = platform::PathFromText(path).lexically_relative(folder_.Path());
    return platform::PathText(fs::path(relative.generic_u8string()));
  }

  TemporaryFolder folder_;
  std::vector<std::string> told_;
};

using Names = std::vector<std::string>;

#ifndef _WIN32
TEST_F(LibraryWalk, ComesToFilesInTheOrderOfTheirPathsBytes)
{
  for (const auto* name : {"a/z", "a.lo1", "a b", "a-/x", "B", "\xC3\xA9", "a/b/c"}) Put(name);
  EXPECT_EQ(Walked({folder_.Path()}),
            (Names{"B", "a b", "a-/x", "a.lo1", "a/b/c", "a/z", "\xC3\xA9"}));
  EXPECT_TRUE(told_.empty());
}
#endif

TEST_F(LibraryWalk, VisitsWhatIsGivenTwiceOnce)
{
  for (const auto* name : {"a/b/one", "a/two", "c/three"}) Put(name);
  EXPECT_EQ(Walked({folder_ / "c", folder_ / "a", folder_ / "a/b", folder_ / "a", folder_ / "a/"}),
            (Names{"a/b/one", "a/two", "c/three"}));
}

TEST_F(LibraryWalk, HandsOverNamedFilesThereOrNot)
{
  Put("a");
  EXPECT_EQ(Walked({folder_ / "b", folder_ / "a"}), (Names{"a (named)", "b (named)"}));
}

TEST_F(LibraryWalk, OpensNoDirectoryBeforeItsTurn)
{
  Put("a/one");
  Put("b/two");
  Walk walk({platform::PathText(folder_.Path())}, [](std::string_view, std::string_view) {});
  EXPECT_EQ(Below(walk.Next()->path), "a/one");
  Put("b/three");
  EXPECT_EQ(Below(walk.Next()->path), "b/three");
}

TEST_F(LibraryWalk, TellsOfADirectoryThatVanishes)
{
  Put("a/one");
  Put("b/two");
  Walk walk({platform::PathText(folder_.Path())},
            [this](std::string_view path, std::string_view) { told_.emplace_back(Below(path)); });
  EXPECT_EQ(Below(walk.Next()->path), "a/one");
  fs::remove_all(folder_ / "b");
  EXPECT_FALSE(walk.Next());
  EXPECT_EQ(told_, Names{"b"});
}

#ifndef _WIN32
TEST_F(LibraryWalk, FollowsLinksButNotBackUp)
{
  Put("a/one");
  fs::create_directory_symlink("..", folder_ / "a/up");
  fs::create_directory_symlink("a", folder_ / "beside");
  EXPECT_EQ(Walked({folder_.Path()}), (Names{"a/one", "beside/one"}));
  EXPECT_EQ(told_, (Names{"a/up: This link leads back to a folder above it",
                          "beside/up: This link leads back to a folder above it"}));
}
#endif

}  // namespace
}  // namespace velquist::library
