// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "runner/SourceDirectory.h"

namespace velquist {
namespace {

namespace fs = std::filesystem;

const fs::path kProject = velquist::testing::SourceDirectory();

std::vector<std::string> LinesOf(const fs::path& file)
{
  std::ifstream in(file);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// The cells of a line of a table, without the blanks and quotes around them.
std::vector<std::string> Cells(const std::string& line)
{
  std::vector<std::string> cells;
  std::istringstream in(line);
  for (std::string cell; std::getline(in, cell, '|');) {
    const auto first = cell.find_first_not_of(" `");
    const auto last = cell.find_last_not_of(" `");
    cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
  }
  return cells;
}

/// Folder to the folders it may use, from the page on the architecture.
std::map<std::string, std::set<std::string>> AllowedUses()
{
  std::map<std::string, std::set<std::string>> allowed;
  for (const auto& line : LinesOf(kProject / "docs" / "architecture.md")) {
    if (!line.starts_with("| `")) continue;
    const auto cells = Cells(line);
    auto& uses = allowed[cells.at(1)];
    std::istringstream in(cells.at(3));
    for (std::string use; std::getline(in, use, ',');) {
      use.erase(0, use.find_first_not_of(' '));
      if (use == "all of the above")
        for (const auto& [folder, of_folder] : allowed) uses.insert(folder);
      else
        uses.insert(use);
    }
    uses.insert(cells.at(1));
  }
  return allowed;
}

struct Include {
  fs::path file;       ///< below src
  std::string folder;  ///< the including file's
  std::string what;    ///< between the quotes or brackets
  bool system = false;
};

std::vector<Include> Includes()
{
  std::vector<Include> includes;
  for (const auto& entry : fs::recursive_directory_iterator(kProject / "src")) {
    const auto extension = entry.path().extension();
    if (extension != ".h" && extension != ".cpp") continue;
    const auto file = fs::relative(entry.path(), kProject / "src");
    if (!file.has_parent_path()) continue;  // main.cpp puts the parts together
    for (const auto& line : LinesOf(entry.path())) {
      if (!line.starts_with("#include ")) continue;
      const auto end = line.find_last_of("\">");
      includes.push_back(
          {file, file.parent_path().generic_string(), line.substr(10, end - 10), line[9] == '<'});
    }
  }
  return includes;
}

TEST(Architecture, EveryFolderHasItsLine)
{
  const auto allowed = AllowedUses();
  std::set<std::string> folders;
  for (const auto& include : Includes()) folders.insert(include.folder);
  std::set<std::string> lines;
  for (const auto& [folder, uses] : allowed) lines.insert(folder);
  EXPECT_EQ(folders, lines);
}

TEST(Architecture, NoFolderIncludesWhatItsLineDoesNotAllow)
{
  const auto allowed = AllowedUses();
  for (const auto& include : Includes()) {
    if (include.system) continue;
    const auto used = fs::path(include.what).parent_path().generic_string();
    EXPECT_TRUE(allowed.at(include.folder).contains(used)) << include.file << ": " << include.what;
  }
}

TEST(Architecture, OnlyTheWindowAndItsPlatformKnowTheToolkit)
{
  for (const auto& include : Includes()) {
    const bool toolkit = include.what.starts_with("wx/") || include.what.starts_with("gtk/");
    EXPECT_TRUE(!toolkit || include.folder == "ui" || include.folder == "platform_wx")
        << include.file << ": " << include.what;
  }
}

TEST(Architecture, TheReadingListOfTheReadmeNamesHeadersThatExist)
{
  int named = 0;
  std::string folder;
  for (const auto& line : LinesOf(kProject / "README.md")) {
    if (!line.starts_with("| `src/")) continue;
    std::istringstream in(Cells(line).at(1));
    for (std::string header; std::getline(in, header, ',');) {
      std::erase(header, '`');
      std::erase(header, ' ');
      if (header.starts_with("src/")) folder = fs::path(header).parent_path().generic_string();
      const auto path = header.starts_with("src/") ? header : folder + "/" + header;
      EXPECT_TRUE(fs::exists(kProject / path)) << path;
      ++named;
    }
  }
  EXPECT_GT(named, 10);
}

}  // namespace
}  // namespace velquist
