// Mistakes in the tables that the content is made from: each is found and named.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "Content.h"
#include "ContentFiles.h"
#include "TemporaryFolder.h"

namespace {

using namespace velquist::content::testing;
using velquist::content::ContentError;

/// A copy of the tables to make a mistake in.
class BrokenTables : public ::testing::Test {
 protected:
  BrokenTables()
  {
    for (const auto& entry : fs::directory_iterator(kSources)) {
      if (entry.path().extension() == ".txt" && entry.path().filename() != "CMakeLists.txt") {
        fs::copy_file(entry.path(), folder_.Path() / entry.path().filename());
      }
    }
  }

  void Replace(const std::string& name, const std::string& text, const std::string& by)
  {
    std::string content = ReadBytes(folder_ / name);
    const auto found = content.find(text);
    ASSERT_NE(found, std::string::npos) << text;
    content.replace(found, text.size(), by);
    velquist::samples::WriteFile(folder_ / name, content);
  }

  /// What the mistake is reported as, "" for not at all.
  [[nodiscard]] std::string Report() const
  {
    try {
      (void)velquist::content::ProgramFiles(folder_.Path());
      (void)velquist::content::ExampleFiles(folder_.Path());
    } catch (const ContentError& error) {
      return error.what();
    }
    return {};
  }

  velquist::samples::TemporaryFolder folder_;
};

TEST_F(BrokenTables, AreWholeBeforeTheMistake)
{
  EXPECT_EQ(Report(), "");
}

TEST_F(BrokenTables, MissingTableIsNamed)
{
  fs::remove(folder_ / "measures.txt");
  EXPECT_EQ(Report(), "measures.txt: cannot be read");
}

TEST_F(BrokenTables, GearThatDoesNotRiseIsRejectedWithItsLine)
{
  Replace("gears67.txt", "25/25", "20/29");
  EXPECT_EQ(Report().find("gears67.txt:"), 0U) << Report();
  EXPECT_NE(Report().find("the ratio does not rise"), std::string::npos);
}

TEST_F(BrokenTables, MissingGearRowIsRejected)
{
  Replace("gears65.txt", "\n89 | 38/7", "");
  EXPECT_EQ(Report(), "gears65.txt: expected 90 rows, gears and final drives");
}

TEST_F(BrokenTables, DefaultOutsideItsLimitsIsRejected)
{
  Replace("ranges.txt", "12 22 40 1 0.1", "12 42 40 1 0.1");
  EXPECT_NE(Report().find("the default lies outside the limits"), std::string::npos);
}

TEST_F(BrokenTables, ExampleOutsideTheYearsLimitsIsRejected)
{
  Replace("examples.txt", "| 21\n", "| 41\n");
  EXPECT_NE(Report().find("outside the limits"), std::string::npos);
}

TEST_F(BrokenTables, WheelsThatTheYearDoesNotHaveAreRejected)
{
  Replace("defaults.txt", "final  | 37/11", "final  | 31/8");
  EXPECT_NE(Report().find("the year has no wheels 31/8"), std::string::npos);
}

TEST_F(BrokenTables, FinalDriveAmongTheGearsIsRejected)
{
  Replace("defaults.txt", "35/14", "31/10");
  EXPECT_NE(Report().find("31/10 does not belong there"), std::string::npos);
}

TEST_F(BrokenTables, BytesOverAParameterAreRejected)
{
  Replace("examples.txt", "| 172 ", "| 92 ");
  EXPECT_NE(Report().find("byte 92 has a meaning"), std::string::npos);
}

TEST_F(BrokenTables, NumberWithACommaForItsPointIsRejected)
{
  Replace("measures.txt", "6.8947", "6,8947");
  EXPECT_NE(Report().find("\"6,8947\" is no number"), std::string::npos);
}

TEST_F(BrokenTables, YearWithoutDefaultSetupIsRejected)
{
  Replace("defaults.txt", "[GT Velquist Default.vqset]", "[Velquist Default.vqset]");
  EXPECT_EQ(Report(), "defaults.txt: no setup for GT");
}

}  // namespace
