// SPDX-License-Identifier: MIT
#include "platform/Paths.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace velquist::platform {
namespace {

constexpr auto kNone = std::string_view::npos;

TEST(Paths, BothSlashesSeparate)
{
  EXPECT_TRUE(IsSeparator('\\'));
  EXPECT_TRUE(IsSeparator('/'));
  for (const char c : {':', '.', ' ', 'a', '\0', '|'}) EXPECT_FALSE(IsSeparator(c)) << c;
}

TEST(SamePathText, LooksAtNeitherAsciiCaseNorKindOfSeparator)
{
  EXPECT_TRUE(SamePathText("", ""));
  EXPECT_TRUE(SamePathText("C:\\GPL\\Players", "c:/gpl/players"));
  EXPECT_TRUE(SamePathText("Z[`{", "z[`{"));
  EXPECT_FALSE(SamePathText("C:\\GPL", "C:\\GPL\\"));
  EXPECT_FALSE(SamePathText("C:\\GPL", "C:\\GPM"));
  EXPECT_FALSE(SamePathText("[", "{"));
  EXPECT_FALSE(SamePathText("@", "`"));
  EXPECT_FALSE(SamePathText("\xC3\x84", "\xC3\xA4")) << "letters beyond ASCII count as they are";
}

TEST(FindPart, FindsTheFirstOneAtOrBehindTheStart)
{
  constexpr std::string_view kPath = "C:\\GPL\\PLAYERS/me\\players\\x.lo1";
  EXPECT_EQ(FindPart(kPath, "\\Players"), 6U);
  EXPECT_EQ(FindPart(kPath, "\\Players", 6), 6U);
  EXPECT_EQ(FindPart(kPath, "\\Players", 7), 17U);
  EXPECT_EQ(FindPart(kPath, "\\Players", 18), kNone);
  EXPECT_EQ(FindPart("/home/me/gpl/players/you/", "\\Players\\"), 12U);
  EXPECT_EQ(FindPart("C:\\GPL", "\\Players"), kNone);
  EXPECT_EQ(FindPart("", "\\Players"), kNone);
  EXPECT_EQ(FindPart("\\Player", "\\Players"), kNone);
  EXPECT_EQ(FindPart("abc", "c", 100), kNone);
}

TEST(PathParts, AreDividedAtTheLastSeparator)
{
  struct Case {
    std::string_view path;
    std::size_t separator;
    std::string_view directory;
    std::string_view name;
  };
  constexpr Case kCases[] = {
      {"C:\\GPL\\x.lo1", 6, "C:\\GPL", "x.lo1"},
      {"C:/GPL/x.lo1", 6, "C:/GPL", "x.lo1"},
      {"C:\\GPL/x.lo1", 6, "C:\\GPL", "x.lo1"},
      {"C:/GPL\\x.lo1", 6, "C:/GPL", "x.lo1"},
      {"x.lo1", kNone, "", "x.lo1"},
      {"C:\\GPL\\", 6, "C:\\GPL", ""},
      {"\\x", 0, "", "x"},
      {"\\", 0, "", ""},
      {"", kNone, "", ""},
  };
  for (const auto& [path, separator, directory, name] : kCases) {
    SCOPED_TRACE(path);
    EXPECT_EQ(LastSeparator(path), separator);
    EXPECT_EQ(DirectoryOf(path), directory);
    EXPECT_EQ(FileNameOf(path), name);
  }
}

TEST(WithoutQuotes, TakesOffAPairAndNothingElse)
{
  EXPECT_EQ(WithoutQuotes("\"C:\\GPL\\x.lo1\""), "C:\\GPL\\x.lo1");
  EXPECT_EQ(WithoutQuotes("C:\\GPL\\x.lo1"), "C:\\GPL\\x.lo1");
  EXPECT_EQ(WithoutQuotes("\"\""), "");
  EXPECT_EQ(WithoutQuotes(""), "");
  EXPECT_EQ(WithoutQuotes("\""), "\"") << "one quote is no pair";
}

TEST(WithExtension, ReplacesAnExtensionOfThreeCharactersAndAppendsOtherwise)
{
  EXPECT_EQ(WithExtension("C:\\s\\fast.txt", "lp1"), "C:\\s\\fast.lp1");
  EXPECT_EQ(WithExtension("C:\\s\\fast", "lp1"), "C:\\s\\fast.lp1");
  EXPECT_EQ(WithExtension("fast.lp1", "lp1"), "fast.lp1");
  EXPECT_EQ(WithExtension("fast.a.txt", "lp1"), "fast.a.lp1");
  EXPECT_EQ(WithExtension("fast.tx", "lp1"), "fast.tx.lp1");
  EXPECT_EQ(WithExtension("fast.text", "lp1"), "fast.text.lp1");
  EXPECT_EQ(WithExtension("fast....", "lp1"), "fast.lp1");
  EXPECT_EQ(WithExtension("a", "lp1"), "a.lp1");
  EXPECT_EQ(WithExtension(".txt", "lp1"), ".lp1");
  EXPECT_EQ(WithExtension("fast.vqset", "lp1"), "fast.vqset.lp1");
}

TEST(WithExtension, LeavesALongerOneThatIsThere)
{
  EXPECT_EQ(WithExtension("C:\\s\\fast.html", "html"), "C:\\s\\fast.html");
  EXPECT_EQ(WithExtension("fast.lp1", "html"), "fast.html");
  EXPECT_EQ(WithExtension("fast.htm", "html"), "fast.html");
  EXPECT_EQ(WithExtension("fasthtml", "html"), "fasthtml.html");
  EXPECT_EQ(WithExtension("C:\\s\\.html", "html"), "C:\\s\\.html.html");
}

TEST(WithExtension, LooksAtTheFileNameAlone)
{
  EXPECT_EQ(WithExtension("C:\\v.1\\a", "lp1"), "C:\\v.1\\a.lp1");
  EXPECT_EQ(WithExtension("/home/v.1/a", "lp1"), "/home/v.1/a.lp1");
  EXPECT_EQ(WithExtension("/home/me.x/ab", "lp1"), "/home/me.x/ab.lp1");
  EXPECT_EQ(WithExtension("/home/me.txt/fast", "lp1"), "/home/me.txt/fast.lp1");
}

}  // namespace
}  // namespace velquist::platform
