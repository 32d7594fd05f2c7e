// SPDX-License-Identifier: MIT
// What a save leaves on a disk whose power goes at any moment.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/AtomicFile.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;
using namespace velquist::samples;
using Error = std::error_code;
using Contents = std::set<std::string>;

/// A disk that keeps back what it may. Of a file's bytes those that were flushed are on it, and any
/// number of those that were written since. Names are kept in a journal: those up to the last flush
/// of the directory are on it, and any number of the changes since, in their order; a file's flush
/// says nothing of its name.
class Disk {
 public:
  Disk(const fs::path& old, std::string_view content)
  {
    files_.push_back({.bytes = std::string(content), .flushed = content.size()});
    journal_.push_back({{old, 0}});
  }

  std::size_t at_once = 3;  ///< bytes that one call writes
  bool has_nameless = true;
  bool flushes_files = true;
  bool flushes_directories = true;
  std::vector<Contents> moments;  ///< after each call what may be found at the target
  std::set<fs::path> names;       ///< that may have been found at any moment

  [[nodiscard]] SaveCalls Calls(const fs::path& target)
  {
    const auto nothing = [](const fs::path&, int) { return Error{}; };
    return {
        .open_nameless =
            [this](const fs::path&, int& file) {
              if (!has_nameless) return std::make_error_code(std::errc::operation_not_supported);
              file = Open();
              return Error{};
            },
        .open_new =
            [=, this](const fs::path& path, int& file) {
              file = Open();
              return Name(target, path, file);
            },
        .write =
            [=, this](int file, std::span<const std::byte> bytes, std::size_t& written) {
              written = std::min(bytes.size(), at_once);
              for (const auto byte : bytes.first(written))
                Opened(file).bytes += static_cast<char>(byte);
              return Done(target);
            },
        .keep_owner = nothing,
        .keep_rights = nothing,
        .keep_access_list = nothing,
        .keep_attributes = nothing,
        .flush =
            [=, this](int file) {
              if (flushes_files) Opened(file).flushed = Opened(file).bytes.size();
              return Done(target);
            },
        .give_name = [=, this](int file, const fs::path& path) { return Name(target, path, file); },
        .close = [=, this](int) { return Done(target); },
        .rename =
            [=, this](const fs::path& from, const fs::path& to) {
              auto directory = journal_.back();
              directory[to] = directory.at(from);
              directory.erase(from);
              journal_.push_back(std::move(directory));
              return Done(target);
            },
        .flush_directory =
            [=, this](const fs::path&) {
              if (flushes_directories) journal_.erase(journal_.begin(), journal_.end() - 1);
              return Done(target);
            },
        .remove =
            [=, this](const fs::path& path) {
              auto directory = journal_.back();
              directory.erase(path);
              journal_.push_back(std::move(directory));
              return Done(target);
            },
        .is_running = [](unsigned long) { return true; },
    };
  }

 private:
  struct File {
    std::string bytes;
    std::size_t flushed = 0;
  };

  int Open()
  {
    files_.push_back({});
    return static_cast<int>(files_.size()) - 1;
  }
  File& Opened(int file) { return files_.at(static_cast<std::size_t>(file)); }

  Error Name(const fs::path& target, const fs::path& path, int file)
  {
    auto directory = journal_.back();
    directory[path] = static_cast<std::size_t>(file);
    journal_.push_back(std::move(directory));
    return Done(target);
  }

  /// After a call: writes down what may be found now.
  Error Done(const fs::path& target)
  {
    Contents found;
    for (const auto& directory : journal_) {
      for (const auto& entry : directory) names.insert(entry.first);
      const auto at = directory.find(target);
      if (at == directory.end()) {
        found.insert("no file");
        continue;
      }
      const auto& file = files_.at(at->second);
      for (auto size = file.flushed; size <= file.bytes.size(); ++size)
        found.insert(file.bytes.substr(0, size));
    }
    moments.push_back(std::move(found));
    return {};
  }

  std::vector<File> files_;
  std::vector<std::map<fs::path, std::size_t>> journal_;  ///< of the directory, oldest first
};

class PowerLoss : public ::testing::TestWithParam<bool> {
 protected:
  PowerLoss() : target(folder / "a.lo1"), disk(target, "old bytes")
  {
    WriteFile(target, "old bytes");
    disk.has_nameless = GetParam();
  }
  void Save(std::string_view bytes)
  {
    disk.moments.clear();
    WriteAtomically(target, AsBytes(bytes), "shown", disk.Calls(target));
  }
  /// What may be found at any of the moments.
  [[nodiscard]] Contents Found() const
  {
    Contents all;
    for (const auto& moment : disk.moments) all.insert(moment.begin(), moment.end());
    return all;
  }

  TemporaryFolder folder;
  fs::path target;
  Disk disk;
};

INSTANTIATE_TEST_SUITE_P(WithAndWithoutFilesWithoutAName, PowerLoss, ::testing::Bool(),
                         [](const auto& test) { return test.param ? "Nameless" : "Named"; });

TEST_P(PowerLoss, LeavesTheOldFileOrTheNewOneAtEveryMomentOfASave)
{
  for (const std::size_t at_once : {1U, 3U, 1000U}) {
    disk.at_once = at_once;
    Save("what is new");
    EXPECT_EQ(Found(), (Contents{"old bytes", "what is new"}));
    Save("old bytes");
    EXPECT_EQ(Found(), (Contents{"old bytes", "what is new"}));
  }
}

TEST_P(PowerLoss, AfterASaveThatIsDoneLeavesTheNewFile)
{
  Save("what is new");
  EXPECT_EQ(disk.moments.back(), Contents{"what is new"});
}

TEST_P(PowerLoss, LeavesNothingElseButWhatTheNextSaveRemoves)
{
  Save("what is new");
  disk.names.erase(target);
  ASSERT_EQ(disk.names.size(), 1U);
  EXPECT_TRUE(disk.names.begin()->filename().string().starts_with(".velquist-"));
}

/// The disk above would show it.
TEST_P(PowerLoss, WouldTearAFileThatIsNotFlushed)
{
  disk.flushes_files = false;
  Save("what is new");
  EXPECT_TRUE(Found().contains(""));
  EXPECT_TRUE(Found().contains("what"));
}

TEST_P(PowerLoss, WouldTakeBackASaveWhoseDirectoryIsNotFlushed)
{
  disk.flushes_directories = false;
  Save("what is new");
  EXPECT_EQ(disk.moments.back(), (Contents{"old bytes", "what is new"}));
}

}  // namespace
}  // namespace velquist::platform
