// SPDX-License-Identifier: MIT
#include "platform/EmbeddedResources.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

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

/// The chapter of that heading, without it.
std::string Chapter(std::string_view heading)
{
  const auto manual = Manual();
  const auto begin = manual.find("\r\n" + std::string(heading) + "\r\n");
  EXPECT_NE(begin, std::string::npos) << heading;
  if (begin == std::string::npos) return {};
  const auto text = begin + heading.size() + 4;
  return manual.substr(text, manual.find("\r\n\r\n", text) - text) + "\r\n";
}

/// The lines that stand behind an empty one and have no small letter.
std::vector<std::string> Headings()
{
  std::istringstream manual(Manual());
  std::vector<std::string> headings;
  bool after_empty = false;
  for (std::string line; std::getline(manual, line); after_empty = line == "\r") {
    const bool has_small =
        std::ranges::any_of(line, [](unsigned char c) { return std::islower(c) != 0; });
    if (after_empty && !has_small) headings.push_back(line.substr(0, line.size() - 1));
  }
  return headings;
}

TEST(Manual, ContentsNameEveryChapterInItsOrder)
{
  auto headings = Headings();
  ASSERT_GT(headings.size(), 20U);
  ASSERT_EQ(headings.front(), "CONTENTS");
  const auto contents = Lower(Chapter("CONTENTS"));
  std::size_t at = 0;
  for (const auto& heading : std::span(headings).subspan(1)) {
    const auto found = contents.find(Lower(heading), at);
    EXPECT_NE(found, std::string::npos) << heading;
    if (found == std::string::npos) continue;
    EXPECT_TRUE(contents[found - 1] == '\t' || contents[found - 1] == ' ') << heading;
    at = found + heading.size();
    EXPECT_TRUE(contents[at] == ',' || contents[at] == '\r') << heading;
  }
}

TEST(Manual, SaysWhatEachSettingDoes)
{
  const auto chapter = Chapter("WHAT EACH SETTING DOES");
  for (const char* const setting :
       {"Tire Pressure", "Wheel Rate", "Bump", "Rebound", "Camber", "Bump Rubber", "Toe In",
        "Roll Bar Stiffness", "Static Ride Height", "Fuel", "Steering Ratio", "Front Brake Bias",
        "Front Wing, Rear Wing", "Power Angle", "Coast Angle", "Clutches"})
    EXPECT_NE(chapter.find("\r\n\t" + std::string(setting) + "\t"), std::string::npos) << setting;
  for (const char* const wanted :
       {"negative camber leans the top of the wheel in", "positive toe in points the fronts",
        "A higher number of bump or rebound is a stiffer damper", "temperatures across the tread",
        "A smaller angle locks more"})
    ExpectMentioned(wanted);
}

TEST(Manual, NamesARemedyAndItsCostForEverySymptom)
{
  const auto chapter = Chapter("WHAT THE CAR DOES WRONG AND WHAT TO CHANGE");
  for (const char* const phase :
       {"Braking in a straight line", "Entry, off the power", "Middle, on an even throttle",
        "Exit, on the power", "Over bumps and crests", "On the straight"})
    EXPECT_NE(chapter.find("\r\n" + std::string(phase) + "\r\n\t"), std::string::npos) << phase;
  std::istringstream lines(chapter);
  int symptoms = 0;
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with('\t')) continue;
    ++symptoms;
    EXPECT_NE(line.find(" Cost: "), std::string::npos) << line;
  }
  EXPECT_GE(symptoms, 20);
}

TEST(Manual, SaysWhatIsEasilyTakenForSomethingElse)
{
  for (const char* const wanted :
       {"Asymmetric Adjust is saved with the setup",
        "the defaults of setup data lines have no effect", "All eight belong together",
        "The dotted red line stands at the engine's maximum rpm", "/usr/share/velquist",
        "Removing the package leaves ~/.local/share/velquist", "show hidden directories",
        "also beyond their own range"})
    ExpectMentioned(wanted);
}

TEST(Manual, IsPlainAndOfALengthThatOneReads)
{
  const auto manual = Manual();
  EXPECT_GE(manual.size(), 12'000U);
  EXPECT_LE(manual.size(), 48'000U);
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
