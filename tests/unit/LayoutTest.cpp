// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <string>
#include <vector>

#include "ScriptedEditor.h"
#include "app/FormControlSettings.h"
#include "app/MainForm.h"
#include "charts/PictureRecorder.h"

namespace velquist::app {
namespace {

struct ScreenSize {
  int width;
  int height;
};
constexpr std::array kScreens = {ScreenSize{800, 600},   ScreenSize{1024, 768},
                                 ScreenSize{1280, 1024}, ScreenSize{1366, 768},
                                 ScreenSize{1920, 1080}, ScreenSize{3840, 2160}};

const MainForm& FormOf(const testing::ScriptedEditor& editor)
{
  return editor.Window().Form();
}

/// Controls with a place, that is all but menus.
std::vector<const Control*> PlacedControls(const MainForm& form)
{
  std::vector<const Control*> controls;
  for (const auto& design : FormControlSettings())
    if (design.kind != ControlKind::kMenu) controls.push_back(form.Find(design.name, design.index));
  return controls;
}

std::string NameOf(const Control& control)
{
  const auto name = std::string(control.design->name);
  return control.design->index < 0 ? name
                                   : name + "(" + std::to_string(control.design->index) + ")";
}

bool Contains(const Place& outer, const Place& inner)
{
  return inner.left >= outer.left && inner.top >= outer.top &&
         inner.left + inner.width <= outer.left + outer.width &&
         inner.top + inner.height <= outer.top + outer.height;
}

bool Overlap(const Place& a, const Place& b)
{
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

platform::TextExtent ExtentOf(const std::string& text, int font_size)
{
  charts::PictureRecorder measure;
  measure.SetLetterHeight(font_size);
  return measure.Extent(text);
}

/// What a control draws beside its text: the mark of a box, the arrow of a list.
double WidthBesideText(const Control& control)
{
  switch (control.design->kind) {
    case ControlKind::kCheck:
    case ControlKind::kOption: return 1.4 * control.font_size;
    case ControlKind::kList: return 1.7 * control.font_size;
    default: return 0;
  }
}

void ExpectFits(const Control& control, const std::string& text)
{
  const auto extent = ExtentOf(text, control.font_size);
  EXPECT_LE(extent.width + WidthBesideText(control), control.place.width)
      << NameOf(control) << " \"" << text << "\"";
  EXPECT_LE(std::floor(extent.height), control.place.height) << NameOf(control);
}

/// Texts whose length the user's own names decide are cut with an ellipsis by the list or label.
bool HasNamesOfTheUser(const Control& control)
{
  const auto name = control.design->name;
  return name == "Combo7" || name == "Label4" || name == "LblMarquee";
}

void ExpectTextsFit(const MainForm& form)
{
  for (const Control* control : PlacedControls(form)) {
    if (HasNamesOfTheUser(*control) || control->design->kind == ControlKind::kPicture) continue;
    if (control->design->kind == ControlKind::kList)
      for (const auto& item : control->items) ExpectFits(*control, item);
    else
      ExpectFits(*control, control->text);
  }
}

class Layout : public ::testing::TestWithParam<ScreenSize> {
 protected:
  void Start()
  {
    const auto [width, height] = GetParam();
    // Names as long as the game's own longest ones.
    editor_.Play(
        "dir $G/Players/Jean-Pierre_Bosteile/Setups/nurburgring_24h\n"
        "screen " +
        std::to_string(width) + " " + std::to_string(height) + "\n");
    editor_.StartWithGame();
  }
  testing::ScriptedEditor editor_;
};

TEST_P(Layout, EveryControlLiesWithinItsFrameAndTheWindow)
{
  Start();
  const auto& form = FormOf(editor_);
  const auto [width, height] = GetParam();
  const auto scale = ScaleFor(width, height);
  const Place window = {0, 0, static_cast<int>(std::lround(kDesignClientWidth * scale.fx)),
                        static_cast<int>(std::lround(kDesignClientHeight * scale.fy))};
  for (const Control* control : PlacedControls(form)) {
    if (control->design->name == "LblMarquee") continue;  // it comes in from beyond the edge
    EXPECT_GT(control->place.width, 0) << NameOf(*control);
    EXPECT_GT(control->place.height, 0) << NameOf(*control);
    const Control* frame = form.Find(control->design->frame, control->design->frame_index);
    EXPECT_TRUE(Contains(frame == nullptr ? window : frame->place, control->place))
        << NameOf(*control);
  }
}

TEST_P(Layout, NoTwoControlsOverlap)
{
  Start();
  const auto controls = PlacedControls(FormOf(editor_));
  for (const Control* a : controls)
    for (const Control* b : controls)
      if (a < b && a->design->frame == b->design->frame &&
          a->design->frame_index == b->design->frame_index) {
        EXPECT_FALSE(Overlap(a->place, b->place)) << NameOf(*a) << " and " << NameOf(*b);
      }
}

TEST_P(Layout, EveryTextFitsInBothUnitsAndBothStepModesForEveryModYear)
{
  Start();
  for (const char* const year : {"1965", "1966", "1967", "1969", "GT"}) {
    editor_.Play(std::string("select Combo2 \"") + year + "\"\n");
    for (const char* const mode :
         {"check OptUnits(0)\nuncheck FineCheck\n", "check OptUnits(0)\ncheck FineCheck\n",
          "check OptUnits(1)\nuncheck FineCheck\n", "check OptUnits(1)\ncheck FineCheck\n"}) {
      SCOPED_TRACE(std::string(year) + " " + mode);
      editor_.Play(mode);
      ExpectTextsFit(FormOf(editor_));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Screens, Layout, ::testing::ValuesIn(kScreens), [](const auto& screen) {
  return std::to_string(screen.param.width) + "x" + std::to_string(screen.param.height);
});

TEST(ScaleControls, LeavesNoLettersThatCannotBeRead)
{
  MainForm form;
  ScaleControls(form, ScaleFor(800, 600));
  int smallest = kUsualLetters;
  for (const auto& design : FormControlSettings())
    smallest = std::min(smallest, design.In(form).font_size);
  EXPECT_EQ(smallest, 9);
}

TEST(FormControlSettings, FramesStandInRowsAndColumnsWithEqualGaps)
{
  MainForm form;
  const auto frame = [&](int index) { return form.Find("Frame1", index)->design->place; };
  for (const int beside : {4, 5, 7}) EXPECT_EQ(frame(beside).top, frame(1).top) << beside;
  struct Pair {
    int above;
    int beneath;
  };
  for (const auto& [above, beneath] : {Pair{1, 2}, Pair{2, 3}, Pair{5, 6}, Pair{7, 8}}) {
    EXPECT_EQ(frame(beneath).left, frame(above).left) << beneath;
    EXPECT_EQ(frame(beneath).top, frame(above).top + frame(above).height + 8) << beneath;
  }
  for (const auto& [left, right] : {Pair{1, 4}, Pair{4, 5}, Pair{5, 7}})
    EXPECT_EQ(frame(right).left, frame(left).left + frame(left).width + 8) << right;
}

TEST(FormControlSettings, SaysWhichButtonIncreasesAndWhichDecreases)
{
  int buttons = 0;
  for (const auto& design : FormControlSettings()) {
    if (design.name != "CmdInc" && design.name != "CmdDec") continue;
    ++buttons;
    const std::string does = design.name == "CmdInc" ? "Increase " : "Decrease ";
    EXPECT_TRUE(design.tip.starts_with(does)) << design.tip;
    EXPECT_TRUE(design.spoken.starts_with(does)) << design.spoken;
  }
  EXPECT_GT(buttons, 60);
}

TEST(FormControlSettings, NamesEveryControlOnceAndFramesBeforeWhatTheyHold)
{
  std::vector<std::string> seen;
  for (const auto& design : FormControlSettings()) {
    const auto name = std::string(design.name) + std::to_string(design.index);
    EXPECT_EQ(std::count(seen.begin(), seen.end(), name), 0) << name;
    if (!design.frame.empty()) {
      const auto frame = std::string(design.frame) + std::to_string(design.frame_index);
      EXPECT_EQ(std::count(seen.begin(), seen.end(), frame), 1) << name;
    }
    seen.push_back(name);
  }
}

TEST(FormControlSettings, GivesNoShortcutAndNoMnemonicOfTheWindowTwice)
{
  std::vector<std::string> shortcuts;
  std::string mnemonics;
  for (const auto& design : FormControlSettings()) {
    for (const auto shortcut : {design.shortcut, design.other_shortcut}) {
      if (shortcut.empty()) continue;
      EXPECT_EQ(std::count(shortcuts.begin(), shortcuts.end(), shortcut), 0);
      shortcuts.emplace_back(shortcut);
    }
    const bool in_menu = design.kind == ControlKind::kMenu && !design.frame.empty();
    const auto at = design.caption.find('&');
    if (in_menu || at == std::string_view::npos) continue;
    const auto letter = static_cast<char>(std::tolower(design.caption[at + 1]));
    EXPECT_EQ(mnemonics.find(letter), std::string::npos) << design.name << ' ' << letter;
    mnemonics += letter;
  }
}

TEST(FormControlSettings, DescribesEveryControlThatTheUserWorksWith)
{
  for (const auto& design : FormControlSettings()) {
    const bool interactive =
        design.kind == ControlKind::kButton || design.kind == ControlKind::kList ||
        design.kind == ControlKind::kCheck || design.kind == ControlKind::kOption;
    EXPECT_TRUE(!interactive || !design.tip.empty()) << design.name << design.index;
  }
}

}  // namespace
}  // namespace velquist::app
