// SPDX-License-Identifier: MIT
#include "export/SetupSheet.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "ScriptedEditor.h"
#include "edit/CarSetup.h"
#include "edit/Display.h"
#include "platform/HostFileSystem.h"
#include "platform/SystemFiles.h"
#include "runner/SourceDirectory.h"

namespace velquist::text_export {
namespace {

std::string Shipped(std::string_view name)
{
  return platform::PathText(velquist::testing::SourceDirectory() / "assets" / "program" / name);
}

/// The default setup of 1967.
void Load(edit::CarSetup& car)
{
  const platform::HostFileSystem files;
  ASSERT_FALSE(car.ReadDataFiles(files, Shipped("")));
  ASSERT_TRUE(car.ReadFile(files, Shipped("67 Velquist Default.vqset")));
  car.LoadValues();
  car.LoadLists();
}

std::size_t Count(std::string_view text, std::string_view part)
{
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

TEST(SetupSheet, HasEveryPart)
{
  edit::CarSetup car;
  Load(car);
  const SheetSubject subject = {.file_name = "x & y.bb1",
                                .chassis_name = "Brabham",
                                .player = "Jim",
                                .track = "monza",
                                .reference = "other.bb1",
                                .layout = "short"};
  const auto page = SetupSheet(car, subject, nullptr, edit::kMetric);
  EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n"));
  for (const auto* part : {"<h1>x &amp; y.bb1</h1>", "1967 Brabham F1, symmetric, short layout",
                           "Track monza, player Jim", "Front wheels", "Rear wheels", "Axles",
                           "Differential", "Gears", "km/h at 8700 rpm"})
    EXPECT_NE(page.find(part), std::string::npos) << part;
  // 2.5 is 36.36 % above 33/18, and times 37/11 it is 8.409.
  EXPECT_NE(page.find("<td>35/14</td><td>2.500</td><td>8.41</td><td>133.7</td><td>36.4 %</td>"),
            std::string::npos)
      << page;
  EXPECT_EQ(Count(page, "<svg "), 2U);
  EXPECT_EQ(page.find("Differences"), std::string::npos);
  EXPECT_NE(SetupSheet(car, subject, nullptr, edit::kEnglish).find("mph at"), std::string::npos);
}

TEST(SetupSheet, TellsTheDifferencesFromAReference)
{
  edit::CarSetup car;
  Load(car);
  const auto reference = edit::ReferenceOf(car, edit::ReferenceSource::kFile, "other.bb1", 5);
  const SheetSubject subject = {.file_name = "x.bb1",
                                .chassis_name = "Brabham",
                                .player = {},
                                .track = {},
                                .reference = "other.bb1",
                                .layout = {}};
  auto page = SetupSheet(car, subject, &reference, edit::kEnglish);
  EXPECT_NE(page.find("<h2>Differences from other.bb1</h2>\n<p>None</p>"), std::string::npos);
  (void)car.Step(30, edit::Direction::kIncrease, false);
  page = SetupSheet(car, subject, &reference, edit::kEnglish);
  EXPECT_NE(page.find("<span>fuel level</span><span>20 \xE2\x86\x92 21 gal</span>"),
            std::string::npos)
      << page;
}

TEST(SetupSheet, IsNamedAfterTheSetup)
{
  EXPECT_EQ(SheetFileName("monza.lo1"), "monza.html");
  EXPECT_EQ(SheetFileName("monza"), "monza.html");
}

/// The page that the window saves.
std::string SavedPage(testing::ScriptedEditor& editor)
{
  editor.Play("on save -> $T/page.html\nclick MnuSheet\n");
  const auto bytes = editor.World().Read(editor.Path("$T/page.html").string());
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

TEST(SetupSheetOfTheWindow, ShowsTheValuesInTheUnitsShown)
{
  testing::ScriptedEditor editor;
  editor.StartWithExamples();
  editor.Open(testing::Examples().front());
  const auto page = SavedPage(editor);
  EXPECT_NE(page.find("<h1>" + editor.Window().Car().FileName() + "</h1>"), std::string::npos);
  EXPECT_NE(page.find("Track " + editor.Window().Form().Combo5.text + ", player " +
                      editor.Window().Form().Combo4.text),
            std::string::npos);
  EXPECT_NE(page.find("mph at"), std::string::npos);
  editor.Play("check OptUnits(1)\n");
  EXPECT_NE(SavedPage(editor).find("km/h at"), std::string::npos);
  editor.Play("check OptUnits(0)\nclick CmdInc(30)\n");
  const auto edited = SavedPage(editor);
  EXPECT_NE(edited, page);
  editor.Play("click MnuUndo\n");
  EXPECT_EQ(SavedPage(editor), page);
}

TEST(SetupSheetOfTheWindow, ShowsDifferencesFromAReferenceThatWasChosen)
{
  testing::ScriptedEditor editor;
  editor.StartWithExamples();
  editor.Open(testing::Examples().front());
  editor.Play("click CmdInc(30)\n");
  EXPECT_EQ(SavedPage(editor).find("Differences"), std::string::npos);
  editor.Play("click MnuReferenceDefault\n");
  EXPECT_NE(SavedPage(editor).find("Differences from the default setup of " +
                                   editor.Window().Form().Combo2.text),
            std::string::npos);
}

}  // namespace
}  // namespace velquist::text_export
