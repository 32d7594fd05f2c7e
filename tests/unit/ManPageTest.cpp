// SPDX-License-Identifier: MIT
// The manual page of the window program against what the program takes.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "TemporaryFolder.h"
#include "app/FormControlSettings.h"
#include "platform/CommandLine.h"
#include "runner/SourceDirectory.h"

namespace velquist {
namespace {

/// As a reader sees it: without the marks of the page's language.
std::string Page()
{
  auto text =
      samples::ContentOf(testing::SourceDirectory() / "packaging" / "linux" / "velquist.1.in");
  std::erase(text, '\\');
  return text;
}

/// The lines that follow a heading, up to the next one.
std::string Section(const std::string& heading)
{
  const auto page = Page();
  const auto begin = page.find(".SH " + heading + "\n");
  EXPECT_NE(begin, std::string::npos) << heading;
  return page.substr(begin, page.find("\n.SH", begin) - begin);
}

/// All words of the text that begin so, as far as letters, digits and "-+" go.
std::set<std::string> WordsWith(const std::string& text, std::string_view start)
{
  std::set<std::string> words;
  for (auto at = text.find(start); at != std::string::npos; at = text.find(start, at + 1)) {
    const auto end = text.find_first_not_of(
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-+", at);
    words.insert(text.substr(at, end - at));
  }
  return words;
}

TEST(ManPage, ItsOptionsAreThoseOfTheProgram)
{
  const std::map<std::string, std::string> values = {{"--program-directory", "/opt"},
                                                     {"--window-at", "20,30"}};
  std::set<std::string> known;
  for (const auto& [option, value] : values) {
    known.insert(option);
    const auto line = platform::FromWords({option + "=" + value, "/GPL/a.lo1"});
    EXPECT_EQ(line.text, "/GPL/a.lo1") << option;
    EXPECT_TRUE(line.program_directory || line.window_at) << option;
  }
  EXPECT_EQ(WordsWith(Section("OPTIONS"), "--"), known);
  // The source of the program knows no other one.
  const auto source =
      samples::ContentOf(testing::SourceDirectory() / "src" / "platform" / "CommandLine.cpp");
  EXPECT_EQ(WordsWith(source, "--").size(), known.size());
}

TEST(ManPage, ItsKeysAreThoseOfTheWindow)
{
  std::set<std::string> known = {"Ctrl+F"};  // of the manual's window
  for (const auto& design : app::FormControlSettings())
    for (const auto shortcut : {design.shortcut, design.other_shortcut})
      if (!shortcut.empty()) known.emplace(shortcut);
  const auto keys = WordsWith(Section("KEYS"), "Ctrl+");
  EXPECT_GE(keys.size(), 10U);
  for (const auto& key : keys) EXPECT_TRUE(known.contains(key)) << key;
}

}  // namespace
}  // namespace velquist
