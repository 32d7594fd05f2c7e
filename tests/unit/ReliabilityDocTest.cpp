// SPDX-License-Identifier: MIT
// Every promise of docs/reliability.md has tests, and they exist.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "TemporaryFolder.h"
#include "runner/SourceDirectory.h"

namespace velquist {
namespace {

namespace fs = std::filesystem;
const fs::path kSources = velquist::testing::SourceDirectory();

/// "Suite.Test" of every unit test in the sources.
std::set<std::string> UnitTests()
{
  const std::regex test(R"(\nTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\))");
  std::set<std::string> tests;
  for (const auto* folder : {"tests/unit", "tests/toolkit"})
    for (const auto& entry : fs::directory_iterator(kSources / folder)) {
      const auto text = samples::ContentOf(entry.path());
      for (std::sregex_iterator match(text.begin(), text.end(), test), end; match != end; ++match)
        tests.insert((*match)[1].str() + "." + (*match)[2].str());
    }
  return tests;
}

TEST(ReliabilityDoc, NamesTestsThatExistForEveryPromise)
{
  const auto tests = UnitTests();
  ASSERT_GT(tests.size(), 500U);
  const std::regex quoted("`([^`]+)`");
  std::istringstream page(samples::ContentOf(kSources / "docs" / "reliability.md"));
  std::size_t promises = 0;
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with("| ") || line.starts_with("| promise") || line.starts_with("| ---"))
      continue;
    ++promises;
    const auto cell = line.substr(line.find(" | "));
    std::size_t named = 0;
    for (std::sregex_iterator match(cell.begin(), cell.end(), quoted), end; match != end; ++match) {
      const auto name = (*match)[1].str();
      const bool is_there = name.find('/') == std::string::npos
                                ? tests.contains(name)
                                : fs::is_regular_file(kSources / name);
      EXPECT_TRUE(is_there) << name;
      ++named;
    }
    EXPECT_GT(named, 0U) << line;
  }
  EXPECT_GT(promises, 20U);
}

}  // namespace
}  // namespace velquist
