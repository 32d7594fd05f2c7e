// SPDX-License-Identifier: MIT
// The text table: numbers, print zones, every line, and the kept texts of the example setups.
#include "export/TextExport.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>

#include <gtest/gtest.h>

#include "ScriptedEditor.h"
#include "platform/Errors.h"
#include "runner/SourceDirectory.h"
#include "setup/SlotTable.h"

namespace velquist::text_export {
namespace {

namespace fs = std::filesystem;

// --- Numbers -----------------------------------------------------------------------------------

struct NumberText {
  float value;
  const char* text;
};

class Numbers : public ::testing::TestWithParam<NumberText> {};

TEST_P(Numbers, HaveABlankOrMinusInFrontAndABlankBehind)
{
  EXPECT_EQ(NumberItem(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    TextExport, Numbers,
    ::testing::Values(
        // whole numbers
        NumberText{0, " 0 "}, NumberText{2, " 2 "}, NumberText{-1, "-1 "}, NumberText{54, " 54 "},
        NumberText{300, " 300 "}, NumberText{1000000, " 1000000 "},
        NumberText{9999999, " 9999999 "},
        // fractions, in their shortest form
        NumberText{1.5F, " 1.5 "}, NumberText{-1.5F, "-1.5 "}, NumberText{3.444F, " 3.444 "},
        NumberText{110.25F, " 110.25 "}, NumberText{22.1F, " 22.1 "},
        // the 0 before the point
        NumberText{0.5F, " 0.5 "}, NumberText{-0.75F, "-0.75 "}, NumberText{0.05F, " 0.05 "},
        NumberText{-0.025F, "-0.025 "}, NumberText{0.69F, " 0.69 "},
        // seven digits at most
        NumberText{0.1234567F, " 0.1234567 "}, NumberText{1.0F / 3, " 0.3333333 "},
        NumberText{2.0F / 3, " 0.6666667 "}, NumberText{123456.78F, " 123456.8 "},
        NumberText{22.099998F, " 22.1 "}, NumberText{-99.99999F, "-99.99999 "},
        NumberText{0.001F, " 0.001 "},
        // the sign of zero is not shown
        NumberText{-0.0F, " 0 "},
        // beyond seven digits
        NumberText{1e7F, " 1E+07 "}, NumberText{16777216.0F, " 1.677722E+07 "},
        NumberText{-2.5e20F, "-2.5E+20 "}, NumberText{1e-5F, " 1E-05 "}));

TEST(TextExport, NumbersOfDamagedSetupsAreStillWritten)
{
  EXPECT_EQ(NumberItem(std::numeric_limits<float>::infinity()), " inf ");
  EXPECT_EQ(NumberItem(-std::numeric_limits<float>::infinity()), "-inf ");
  EXPECT_EQ(NumberItem(std::numeric_limits<float>::quiet_NaN()), " nan ");
}

// --- File names --------------------------------------------------------------------------------

TEST(TextExport, FileNameEndsInTxtBehindTheLastDot)
{
  EXPECT_EQ(ExportFileName("monza.br1"), "monza.txt");
  EXPECT_EQ(ExportFileName("67 Velquist Default.vqset"), "67 Velquist Default.txt");
  EXPECT_EQ(ExportFileName("very.fast.bb1"), "very.fast.txt");
  EXPECT_EQ(ExportFileName("name"), "name.txt");
  EXPECT_EQ(ExportFileName("monza."), "monza.txt");
  EXPECT_EQ(ExportFileName(".bb1"), ".txt");
}

// --- The table ---------------------------------------------------------------------------------

constexpr std::size_t kRows = 53;
constexpr std::size_t kLeftColumn = 42;  ///< counted from 0
constexpr std::size_t kRightColumn = 56;

/// Values that tell every slot from every other: slot + a quarter.
data::SetupData EverySlotItsOwn()
{
  data::SetupData values;
  values.SetupDataText.resize(kRows);
  values.SetupDataValues.resize(kRows);
  for (int slot = 0; slot < setup::kSlots; ++slot)
    values.Current(setup::RowOf(slot)) = static_cast<float>(slot) + 0.25F;
  for (int pair = 0; pair < setup::kGearPairs; ++pair)
    values.Current(setup::RowOf(setup::kFirstGear + pair)) = static_cast<float>(10 + pair);
  return values;
}

data::GearData EveryRowItsOwn()
{
  data::GearData gears;
  for (int row = 0; row < data::kGearRows; ++row)
    gears.SetRow(row, {"label", "t" + std::to_string(row), std::to_string(row) + ".5"});
  return gears;
}

std::vector<std::string> Lines(const std::string& text)
{
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const auto end = text.find("\r\n", begin);
    if (end == std::string::npos) {
      ADD_FAILURE() << "a line without its end: " << text.substr(begin);
      break;
    }
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 2;
  }
  return lines;
}

struct ExpectedLine {
  const char* label;
  const char* left;
  const char* right;
};

/// All lines between the two of the head and those of the gears.
constexpr std::array<ExpectedLine, 38> kLines = {{
    {"", "", ""},
    {"", "Left", "Right"},
    {"", "-----", "-----"},
    {"Front Tire Pressure, psi", " 0.25 ", " 1.25 "},
    {"Front Wheel Rate, lbs/inch", " 4.25 ", " 5.25 "},
    {"Front Bump", " 8.25 ", " 9.25 "},
    {"Front Rebound", " 12.25 ", " 13.25 "},
    {"Front Camber, degrees", " 16.25 ", " 17.25 "},
    {"Front Bump Rubber, inches", " 20.25 ", " 21.25 "},
    {"", "", ""},
    {"Front Toe In, inches", " 24.25 ", ""},
    {"Front Roll Bar, lbs/inch", " 26.25 ", ""},
    {"Front Ride Height, inches", " 28.25 ", ""},
    {"", "", ""},
    {"Front Brake Bias", " 32.25 ", ""},
    {"Steering Ratio", " 31.25 ", ""},
    {"Fuel Level, gallons", " 30.25 ", ""},
    {"", "", ""},
    {"Rear Toe In, inches", " 25.25 ", ""},
    {"Rear Roll Bar, lbs/inch", " 27.25 ", ""},
    {"Rear Ride Height, inches", " 29.25 ", ""},
    {"", "", ""},
    {"", "Left", "Right"},
    {"", "-----", "-----"},
    {"Rear Tire Pressure, psi", " 2.25 ", " 3.25 "},
    {"Rear Wheel Rate, lbs/inch", " 6.25 ", " 7.25 "},
    {"Rear Bump", " 10.25 ", " 11.25 "},
    {"Rear Rebound", " 14.25 ", " 15.25 "},
    {"Rear Camber, degrees", " 18.25 ", " 19.25 "},
    {"Rear Bump Rubber, inches", " 22.25 ", " 23.25 "},
    {"", "", ""},
    {"Front Wing Setting, degrees ", " 33.25 ", ""},
    {"Rear Wing Setting, degrees ", " 34.25 ", ""},
    {"", "", ""},
    {"Power Angle, degrees", " 50.25 ", ""},
    {"Coast Angle, degrees", " 49.25 ", ""},
    {"Clutches", " 51.25 ", ""},
    {"", "", ""},
}};

void ExpectLine(const std::string& line, const ExpectedLine& expected)
{
  std::string text = expected.label;
  if (*expected.left != '\0') {
    text.resize(kLeftColumn, ' ');
    text += expected.left;
  }
  if (*expected.right != '\0') {
    text.resize(kRightColumn, ' ');
    text += expected.right;
  }
  EXPECT_EQ(line, text);
}

TEST(TextExport, EveryLineHasItsLabelAndItsSlots)
{
  const Subject subject{"monza.br1", "1967", "BRM P115-BRM H16", 1, 6};
  const auto lines = Lines(ExportText(subject, EverySlotItsOwn(), EveryRowItsOwn()));
  ASSERT_EQ(lines.size(), 2 + kLines.size() + 7);
  EXPECT_EQ(lines[0], "FileName: monza.br1");
  EXPECT_EQ(lines[1], "Chassis: 1967 BRM P115-BRM H16 F1");
  for (std::size_t i = 0; i < kLines.size(); ++i) {
    SCOPED_TRACE(i + 3);
    ExpectLine(lines[i + 2], kLines[i]);
  }
  ExpectLine(lines[40], {"1st Gear", "t10", " 10.5 "});
  ExpectLine(lines[41], {"2nd Gear", "t11", " 11.5 "});
  ExpectLine(lines[42], {"3rd Gear", "t12", " 12.5 "});
  ExpectLine(lines[43], {"4th Gear", "t13", " 13.5 "});
  ExpectLine(lines[44], {"5th Gear", "t14", " 14.5 "});
  ExpectLine(lines[45], {"6th Gear", "t15", " 15.5 "});
  ExpectLine(lines[46], {"Gear Differential", "t16", " 16.5 "});
}

TEST(TextExport, GearLinesAreAsManyAsTheCarsGearsSixAtMost)
{
  for (const int gears : {3, 4, 5, 6, 7}) {
    const Subject subject{"a.ga3", "GT", "Any", 3, gears};
    const auto lines = Lines(ExportText(subject, EverySlotItsOwn(), EveryRowItsOwn()));
    EXPECT_EQ(lines.size(), 40U + static_cast<std::size_t>(std::min(gears, 6)) + 1);
    EXPECT_EQ(lines[1], "Chassis: GT Any F3");
    EXPECT_TRUE(lines.back().starts_with("Gear Differential "));
  }
}

TEST(TextExport, LongItemPushesTheNextOneZoneOn)
{
  const auto line_of = [](const std::string& display) {
    auto gears = EveryRowItsOwn();
    gears.SetRow(10, {"label", display, "2.5"});
    const Subject subject{"a.bb1", "1967", "Any", 1, 5};
    return Lines(ExportText(subject, EverySlotItsOwn(), gears)).at(40);
  };
  const std::string label = "1st Gear" + std::string(34, ' ');
  EXPECT_EQ(line_of("1234567890123"), label + "1234567890123  2.5 ");
  // The zone in column 57 is reached: on to column 71.
  EXPECT_EQ(line_of("12345678901234"), label + "12345678901234" + std::string(14, ' ') + " 2.5 ");
  EXPECT_EQ(line_of("123456789012345"), label + "123456789012345" + std::string(13, ' ') + " 2.5 ");
}

TEST(TextExport, GearRowsAreRoundedToEvenAndMustExist)
{
  const Subject subject{"a.bb1", "1967", "Any", 1, 5};
  auto values = EverySlotItsOwn();
  values.Current(setup::RowOf(setup::kFirstGear)) = 12.5F;
  const auto lines = Lines(ExportText(subject, values, EveryRowItsOwn()));
  ExpectLine(lines[40], {"1st Gear", "t12", " 12.5 "});
  values.Current(setup::RowOf(setup::kFinalDrive)) = 90;
  EXPECT_THROW((void)ExportText(subject, values, EveryRowItsOwn()), BoundsError);
  EXPECT_THROW((void)ExportText(subject, data::SetupData{}, EveryRowItsOwn()), BoundsError);
}

// --- The examples ------------------------------------------------------------------------------

std::string Bytes(const fs::path& path)
{
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

TEST(TextExport, ExamplesExportAsKept)
{
  const auto root = velquist::testing::SourceDirectory();
  testing::ScriptedEditor editor;
  editor.StartWithExamples();
  const auto examples = testing::Examples();
  for (const auto& example : examples) {
    SCOPED_TRACE(example.path);
    editor.Open(example);
    editor.Play("click MnuExport\n");
    const fs::path path(example.path);
    const auto name = path.filename().string();
    const auto text = (path.parent_path() / ExportFileName(name)).generic_string();
    EXPECT_EQ(Bytes(editor.Path("$G/" + text)),
              Bytes(root / "tests" / "fixtures" / "export" / (name + ".txt")));
  }
  // Nothing is kept of an example that has gone.
  const fs::directory_iterator kept(root / "tests" / "fixtures" / "export");
  EXPECT_EQ(static_cast<std::size_t>(std::distance(kept, fs::directory_iterator{})),
            examples.size());
}

}  // namespace
}  // namespace velquist::text_export
