// SPDX-License-Identifier: MIT
#include "platform/ShippedFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>

#include "platform/HostFileSystem.h"
#include "platform/SystemFiles.h"
#include "runner/SourceDirectory.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;

TEST(ShippedFiles, HoldTheDataFilesThatShip)
{
  const auto folder = velquist::testing::SourceDirectory() / "assets" / "program";
  const HostFileSystem files;
  std::size_t count = 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    ++count;
    const auto name = entry.path().lexically_relative(folder).generic_string();
    const auto sum = SumOf(files.ReadWhole(PathText(entry.path())));
    EXPECT_TRUE(std::ranges::any_of(
        ShippedFiles(),
        [&](const ShippedFile& version) { return version.name == name && version.sum == sum; }))
        << "add a line for the new version of " << name;
  }
  EXPECT_GT(count, 10U);
}

TEST(ShippedFiles, AreToldApartByTheirSums)
{
  EXPECT_EQ(SumOf({}), 0xCBF29CE484222325U);
  EXPECT_EQ(SumOf(std::as_bytes(std::span(std::string_view("foobar")))), 0x85944171F73967E8U);
}

}  // namespace
}  // namespace velquist::platform
