// SPDX-License-Identifier: MIT
#include "platform/FileDialogText.h"

#include <gtest/gtest.h>

namespace velquist::platform {
namespace {

TEST(FileDialogStart, IsDirectoryAndName)
{
  const auto start = SplitStart("C:\\GPL\\Players\\Jim\\Setups\\monza\\fast.lo1");
  EXPECT_EQ(start.directory, "C:\\GPL\\Players\\Jim\\Setups\\monza");
  EXPECT_EQ(start.name, "fast.lo1");
}

TEST(FileDialogStart, LeavesPatternsOut)
{
  for (const char* const name : {"*.lo1", "*", "a?.lo1"}) {
    const auto start = SplitStart(std::string("C:\\GPL\\monza\\") + name);
    EXPECT_EQ(start.directory, "C:\\GPL\\monza") << name;
    EXPECT_EQ(start.name, "") << name;
  }
}

TEST(FileDialogFilter, MatchesEitherLetterCase)
{
  EXPECT_EQ(AnyCaseFilter("GPL .exe Files|*.exe"), "GPL .exe Files|*.[eE][xX][eE]");
  EXPECT_EQ(AnyCaseFilter("A|*.LP1"), "A|*.[lL][pP]1");
}

TEST(FileDialogFilter, KeepsNamesAndDropsEmptyPatterns)
{
  EXPECT_EQ(AnyCaseFilter("F1 (*.lp1;)|*.lp1;*.bb1;|F2|*.lp2"),
            "F1 (*.lp1;)|*.[lL][pP]1;*.[bB][bB]1|F2|*.[lL][pP]2");
  EXPECT_EQ(AnyCaseFilter("A|;;*.b;;"), "A|*.[bB]");
  EXPECT_EQ(AnyCaseFilter(""), "");
}

TEST(FileDialogFilter, LeavesOtherCharactersAsTheyAre)
{
  EXPECT_EQ(AnyCaseFilter("All|*.*"), "All|*.*");
  EXPECT_EQ(AnyCaseFilter("N|12-_.3"), "N|12-_.3");
}

}  // namespace
}  // namespace velquist::platform
