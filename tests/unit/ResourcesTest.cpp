// SPDX-License-Identifier: MIT
#include "platform/EmbeddedResources.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "app/FormControlSettings.h"
#include "data/ChassisCatalogue.h"
#include "runner/SourceDirectory.h"
#include "setup/Identification.h"

namespace velquist::platform {
namespace {

std::string ReadAsset(const char* name)
{
  const auto path = velquist::testing::SourceDirectory() / "assets/resources" / name;
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << path;
  std::ostringstream content;
  content << in.rdbuf();
  return content.str();
}

std::string Manual()
{
  return EmbeddedResources().Help();
}

std::string Lower(std::string text)
{
  std::ranges::transform(text, text.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

/// `wanted` stands in the manual, letter case aside.
void ExpectMentioned(std::string_view wanted)
{
  static const std::string kManual = Lower(Manual());
  EXPECT_NE(kManual.find(Lower(std::string(wanted))), std::string::npos)
      << "the manual does not mention " << wanted;
}

/// A caption as the user reads it.
std::string Plain(std::string_view caption)
{
  std::string text(caption);
  std::erase(text, '&');
  if (text.ends_with("...")) text.resize(text.size() - 3);
  return text;
}

TEST(Resources, AreTheFilesOfTheProjectByteForByte)
{
  EXPECT_EQ(Manual(), ReadAsset("manual.txt"));
  const auto picture = EmbeddedResources().Picture();
  const std::string bytes(reinterpret_cast<const char*>(picture.data()), picture.size());
  EXPECT_TRUE(bytes == ReadAsset("about.jpg"));
  EXPECT_GT(bytes.size(), 10'000U);
}

TEST(Manual, SaysHowWorkIsKept)
{
  for (const char* const wanted :
       {"A dot before the name of the setup file", "The line at the foot of the window",
        "whole path that Save writes to", "When another program writes the setup",
        ".LO1 is not .lo1", "Players and players", "No to a question", "The setup was not saved.",
        "renews the data files and default setups"})
    ExpectMentioned(wanted);
}

TEST(Manual, IsOfAFewPagesAndPlain)
{
  const auto manual = Manual();
  EXPECT_GE(manual.size(), 12'000U);
  EXPECT_LE(manual.size(), 24'000U);
  for (const char c : manual) {
    const auto byte = static_cast<unsigned char>(c);
    EXPECT_TRUE(byte >= ' ' || c == '\t' || c == '\r' || c == '\n') << int{byte};
    EXPECT_LT(byte, 0x80) << "reads alike in every code page";
  }
}

TEST(Manual, EndsEveryLineWithCarriageReturnAndLineFeed)
{
  const auto manual = Manual();
  ASSERT_TRUE(manual.ends_with("\r\n"));
  for (std::size_t at = 0; at < manual.size(); ++at) {
    const bool feed = manual[at] == '\n';
    const bool after_return = at > 0 && manual[at - 1] == '\r';
    EXPECT_EQ(feed, after_return) << "at " << at;
  }
}

TEST(Manual, MentionsEveryMenuCheckBoxOptionListAndFrame)
{
  using app::ControlKind;
  for (const auto& design : app::FormControlSettings()) {
    const bool has_caption = design.kind == ControlKind::kMenu ||
                             design.kind == ControlKind::kCheck ||
                             design.kind == ControlKind::kOption ||
                             (design.kind == ControlKind::kFrame && design.index > 6);
    const bool of_list = design.name == "Label5" || (design.name == "Label3" && design.index > 47);
    if (has_caption || of_list) ExpectMentioned(Plain(design.caption));
  }
}

TEST(Manual, NamesEveryChassisCodeOfEachYearWithItsCar)
{
  const auto manual = Manual();
  for (const auto year : data::kModYears) {
    const auto begin = manual.find("\r\n" + std::string(data::ModYearText(year)) + "\r\n\t");
    ASSERT_NE(begin, std::string::npos) << data::ModYearText(year);
    // The year's lines are those that a tab begins.
    auto end = manual.find("\r\n\t", begin);
    while (end != std::string::npos && manual.compare(end + 2, 1, "\t") == 0)
      end = manual.find("\r\n", end + 2);
    const auto lines = manual.substr(begin, end - begin) + "\r\n";
    const auto codes = setup::ChassisCodeTable(year);
    ASSERT_EQ(static_cast<int>(codes.size()), data::ChassisCount(year));
    for (int slot = 0; slot < data::ChassisCount(year); ++slot) {
      const auto line = "\r\n\t" + std::string(codes[static_cast<std::size_t>(slot)]) + "\t" +
                        std::string(data::ChassisName(year, slot)) + "\r\n";
      EXPECT_NE(lines.find(line), std::string::npos) << line;
    }
    EXPECT_EQ(std::ranges::count(lines, '\n') - 2, data::ChassisCount(year))
        << data::ModYearText(year);
  }
}

TEST(Manual, NamesTheFilesAndWhereTheyAre)
{
  for (const char* const wanted :
       {"65 Setup Data.ini", "67 Setup Data.ini", "GT Setup Data.ini", "65 Gear Data.ini",
        "67 Gear Data.ini", "67 Velquist Default.vqset", "Velquist Program Settings.ini",
        "GEMPic.jpg", "gpla65.ini", "gpla66.ini", "gpl_ai.ini", "gpla69.ini", "gplaGT.ini",
        "The folder Metric", "%LOCALAPPDATA%\\Velquist", "$XDG_DATA_HOME/velquist"})
    ExpectMentioned(wanted);
}

TEST(Manual, SaysWhatTheMouseDoesBesidesPressing)
{
  for (const char* const wanted :
       {"All Files", "drop a file", "mouse pointer on a chart", "hold the button down"})
    ExpectMentioned(wanted);
}

TEST(Manual, NamesEveryShortcut)
{
  for (const auto& design : app::FormControlSettings()) {
    ExpectMentioned(design.shortcut);
    ExpectMentioned(design.other_shortcut);
  }
}

}  // namespace
}  // namespace velquist::platform
