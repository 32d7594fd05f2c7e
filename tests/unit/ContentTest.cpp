// What ships is what the tables make.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "Content.h"
#include "ContentFiles.h"

namespace {

using namespace velquist::content::testing;
using velquist::content::ContentFile;

std::map<std::string, std::string> ByPath(const std::vector<ContentFile>& files)
{
  std::map<std::string, std::string> by_path;
  for (const ContentFile& file : files) EXPECT_TRUE(by_path.emplace(file.path, file.bytes).second);
  return by_path;
}

void ExpectSameFiles(const std::vector<ContentFile>& made, const fs::path& folder)
{
  const auto expected = ByPath(made);
  const auto committed = OnDisk(folder);
  EXPECT_EQ(Paths(expected), Paths(committed));
  for (const auto& [path, bytes] : expected) {
    const auto found = committed.find(path);
    if (found == committed.end()) continue;
    EXPECT_TRUE(found->second == bytes) << path << " is not what its table makes";
  }
}

TEST(ShippedContent, ProgramFolderHoldsExactlyWhatTheTablesMake)
{
  ExpectSameFiles(velquist::content::ProgramFiles(kSources), kProgram);
}

TEST(ShippedContent, ExampleInstallationHoldsExactlyWhatTheTablesMake)
{
  ExpectSameFiles(velquist::content::ExampleFiles(kSources), kExamples);
}

}  // namespace
