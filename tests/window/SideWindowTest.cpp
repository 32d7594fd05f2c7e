// SPDX-License-Identifier: MIT
// Where windows beside the main one come up.
#include <wx/display.h>

#include <string>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

class SideWindows : public RealWindow {
 protected:
  [[nodiscard]] wxWindow& Open(const char* item, const char* window)
  {
    editor.Play("click " + std::string(item) + "\n");
    LetTimePass(200);
    auto* const opened = wxWindow::FindWindowByName(window);
    EXPECT_NE(opened, nullptr) << window;
    return *opened;
  }

  /// Where the comparison comes up alone, the main window being there.
  [[nodiscard]] wxPoint PlaceOfComparison(wxPoint main)
  {
    Start();
    Move(Frame(), main);
    return Open("MnuCompare", "FrmCompare").GetPosition();
  }

  /// The comparison beside a window that stands there already.
  [[nodiscard]] wxPoint PlaceOfComparisonOverAnother(wxPoint main, wxPoint other)
  {
    Start();
    Move(Frame(), main);
    Move(Open("MnuGearing", "FrmGearing"), other);
    return Open("MnuCompare", "FrmCompare").GetPosition();
  }

 private:
  static void Move(wxWindow& window, wxPoint to)
  {
    window.Move(to);
    LetTimePass(200);
  }
};

TEST_F(SideWindows, TheComparisonStepsAsideOfAnotherThatItWouldCover)
{
  const wxPoint main(100, 100);
  const auto alone = PlaceOfComparison(main);
  const auto aside = PlaceOfComparisonOverAnother(main, alone);
  EXPECT_GT(aside.x, alone.x + 10);
  EXPECT_GT(aside.y, alone.y + 10);
}

TEST_F(SideWindows, StepAsideToTheLeftWhereThereIsNoRoomToTheRight)
{
  const auto desktop = wxDisplay(0U).GetClientArea();
  Start();
  const wxPoint main(desktop.GetRight() - Frame().GetSize().x, 100);
  const auto alone = PlaceOfComparison(main);
  const auto aside = PlaceOfComparisonOverAnother(main, alone);
  EXPECT_LT(aside.x, alone.x - 10);
  EXPECT_GT(aside.y, alone.y + 10);
}

TEST_F(SideWindows, ALargerOneLeavesASmallerInSight)
{
  Start();
  const auto alone = Open("MnuLibrary", "FrmLibrary").GetRect();
  Start();
  auto& gearing = Open("MnuGearing", "FrmGearing");
  gearing.SetSize(wxRect(alone).Deflate(100, 100));
  LetTimePass(200);
  auto& again = Open("MnuLibrary", "FrmLibrary");
  EXPECT_FALSE(again.GetRect().Contains(gearing.GetRect()));
  EXPECT_GE(again.GetSize().x, alone.width);
}

TEST_F(SideWindows, TheGearingWindowHasItsPartsAboveEachOther)
{
  Start();
  const auto& gearing = Open("MnuGearing", "FrmGearing");
  const auto place = [&](const char* name) {
    return wxWindow::FindWindowByName(name, &gearing)->GetRect();
  };
  int bottom = 0;
  for (const char* const name : {"Heading", "Charts", "Reading", "Gears", "Remarks", "StepUp"}) {
    EXPECT_GE(place(name).y, bottom) << name;
    bottom = place(name).GetBottom();
  }
  EXPECT_LT(bottom, gearing.GetClientSize().y);
  int right = 0;
  for (const char* const name : {"StepUp", "StepDown", "CopyTable", "CopyPicture", "CopySvg"}) {
    EXPECT_EQ(place(name).GetBottom(), bottom) << name;
    EXPECT_GT(place(name).x, right) << name;
    right = place(name).GetRight();
  }
}

}  // namespace
}  // namespace velquist::testing
