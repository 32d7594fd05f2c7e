// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "ScriptedEditor.h"
#include "app/FormControlSettings.h"
#include "charts/PictureRecorder.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

using Rows = std::vector<const ControlDesign*>;

/// The frames of the form and what stands in each.
std::vector<std::pair<const ControlDesign*, Rows>> Frames()
{
  std::vector<std::pair<const ControlDesign*, Rows>> frames;
  for (const auto& design : FormControlSettings()) {
    if (design.kind == ControlKind::kFrame) frames.push_back({&design, {}});
    const auto around = std::ranges::find_if(frames, [&](const auto& frame) {
      return frame.first->name == design.frame && frame.first->index == design.frame_index;
    });
    if (around != frames.end()) around->second.push_back(&design);
  }
  return frames;
}

int Right(const Place& place)
{
  return place.left + place.width;
}

int Bottom(const Place& place)
{
  return place.top + place.height;
}

/// Where the control ends to the eye: a box or option with its text.
int SeenRight(const ControlDesign& design)
{
  if (design.kind != ControlKind::kCheck && design.kind != ControlKind::kOption)
    return Right(design.place);
  constexpr double kMark = 1.4;  // letter heights
  auto text = std::string(design.caption);
  std::erase(text, '&');
  charts::PictureRecorder measure;
  measure.SetLetterHeight(design.font_size);
  const double width = measure.Extent(text).width + kMark * design.font_size;
  return design.place.left + static_cast<int>(width);
}

TEST(FrameLayout, HasTheSameMarginAtBothSidesOfAFrameAndBetweenFrames)
{
  constexpr int kMargin = 8;
  const auto frames = Frames();
  ASSERT_EQ(frames.size(), 10U);
  for (const auto& each : frames) {
    const auto* const frame = each.first;
    const auto& rows = each.second;
    SCOPED_TRACE(std::string(frame->name) + std::to_string(frame->index));
    int left = Right(frame->place);
    int right = 0;
    int bottom = 0;
    bool boxes = false;
    for (const auto* const row : rows) {
      left = std::min(left, row->place.left);
      right = std::max(right, SeenRight(*row));
      bottom = std::max(bottom, Bottom(row->place));
      boxes |= row->kind == ControlKind::kCheck || row->kind == ControlKind::kOption;
    }
    const int margin = left - frame->place.left;
    EXPECT_GE(margin, kMargin);
    if (boxes) {
      EXPECT_LE(right, Right(frame->place) - margin);  // and text that ends where it does
      EXPECT_LE(bottom, Bottom(frame->place) - 6);
    } else {
      EXPECT_EQ(right, Right(frame->place) - margin);
      EXPECT_LE(bottom, Bottom(frame->place) - kMargin);
    }
    EXPECT_LE(Bottom(frame->place) - bottom, 2 * kMargin);
    EXPECT_TRUE(frame->place.left == kMargin || std::ranges::any_of(frames, [&](const auto& other) {
                  return Right(other.first->place) + kMargin == frame->place.left;
                }));
  }
}

TEST(FrameLayout, WritesNoTitleAndNoFileNameSmallerThanTheCaptions)
{
  int smallest = 100;
  for (const auto& design : FormControlSettings())
    if (design.kind == ControlKind::kLabel && !design.caption.empty())
      smallest = std::min(smallest, design.font_size);
  EXPECT_EQ(smallest, kUsualLetters);
  for (const auto& design : FormControlSettings())
    if (design.kind == ControlKind::kFrame || design.name == "Label4") {
      EXPECT_GE(design.font_size, smallest) << design.name << design.index;
    }
}

TEST(FrameLayout, PutsTheValuesOfBothAxlesInThreeColumns)
{
  for (const char* const array : {"CmdDec", "Label1", "CmdInc"}) {
    std::set<int> lefts;
    for (const auto& design : FormControlSettings())
      if (design.name == array && (design.frame_index == 1 || design.frame_index == 2))
        lefts.insert(design.place.left);
    EXPECT_EQ(lefts.size(), 3U) << array;
  }
}

TEST(FrameLayout, MakesAllStepButtonsOfTheRowWithTheWingsAlike)
{
  std::set<int> widths;
  for (const auto& design : FormControlSettings())
    if (design.shape == Shape::kStepButton && (design.frame == "Wings" || design.frame_index == 3))
      widths.insert(design.place.width);
  ASSERT_EQ(widths.size(), 1U);
  EXPECT_GE(*widths.begin(), 30);
}

/// Whether what is shown beside `control` stands before it, in its row or above it.
void ExpectLast(const MainForm& form, const Control& control)
{
  for (const auto& design : FormControlSettings()) {
    const auto& other = design.In(form);
    if (design.frame != control.design->frame ||
        design.frame_index != control.design->frame_index || !form.IsShown(other) ||
        (design.kind == ControlKind::kFrame) != (control.design->kind == ControlKind::kFrame))
      continue;
    EXPECT_TRUE(Right(other.place) <= control.place.left ||
                Bottom(other.place) <= control.place.top)
        << design.name << design.index << " behind " << control.design->name;
  }
}

TEST(FrameLayout, PutsLastWhatSomeModYearsHide)
{
  testing::ScriptedEditor editor;
  editor.StartWithGame();
  const auto& form = editor.Window().Form();
  int hidden = 0;
  for (const char* const year : {"1967", "GT"}) {
    editor.Play(std::string("select Combo2 \"") + year + "\"\n");
    for (const auto& design : FormControlSettings()) {
      const bool of_gear = setup::IsGear(design.index);  // they are in the order of the gears
      if (design.kind == ControlKind::kMenu || of_gear || design.In(form).shown) continue;
      ++hidden;
      ExpectLast(form, design.In(form));
    }
  }
  EXPECT_EQ(hidden, 5);  // the wings twice, the formula and its caption, a box
}

}  // namespace
}  // namespace velquist::app
