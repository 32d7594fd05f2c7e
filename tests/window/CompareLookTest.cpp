// SPDX-License-Identifier: MIT
// How the window of the comparison and the count come up, and what they tell.
#include <gtk/gtk.h>

#include "CompareWindow.h"

namespace velquist::testing {
namespace {

class CompareLook : public CompareWindow {};

TEST_F(CompareLook, TheCountIsAsLowAsTheStatusLineWhateverTheThemeHasButtonsBe)
{
  Start();
  GtkRequisition least;
  gtk_widget_get_preferred_size(Count().GetHandle(), &least, nullptr);
  wxRect field;
  ASSERT_TRUE(Frame().GetStatusBar()->GetFieldRect(1, field));
  EXPECT_LE(least.height, field.height);
}

TEST_F(CompareLook, TheCountTakesNoRoomOfTheControlsAndStandsInTheStatusLine)
{
  for (const auto screen : {ScreenSize{800, 600}, ScreenSize{1280, 1024}, ScreenSize{1920, 1080}}) {
    Start(screen);
    editor.Play("click CmdInc(4)\n");
    LetTimePass(100);
    const auto line = Frame().GetStatusBar()->GetScreenRect();
    const auto count = Count().GetScreenRect();
    EXPECT_TRUE(line.Contains(count));
    EXPECT_GE(count.width, Count().GetTextExtent(Count().GetLabel()).x);
    EXPECT_GE(count.height, Count().GetCharHeight());
  }
}

TEST_F(CompareLook, IsPaintedAFewTimesWhenItsButtonsComeIntoUse)
{
  Start();
  Open();
  LetTimePass(300);
  int frames = 0;
  GdkFrameClock* const clock = gtk_widget_get_frame_clock(Window()->GetHandle());
  const auto handler = g_signal_connect(
      clock, "after-paint",
      G_CALLBACK(+[](GdkFrameClock*, gpointer count) { ++*static_cast<int*>(count); }), &frames);
  editor.Play("click CmdInc(30)\n");
  ASSERT_TRUE(Part("TakeAll").IsEnabled());
  LetTimePass(300);
  g_signal_handler_disconnect(clock, handler);
  EXPECT_GT(frames, 0);
  EXPECT_LE(frames, 4);  // and not for as long as a theme lets them fade
}

TEST_F(CompareLook, ComesUpWithAColumnForTheParameterForBothValuesAndForTheirDifference)
{
  Start();
  Open();
  ASSERT_EQ(Table().GetColumnCount(), 4U);
  const auto expect = [this](unsigned at, const char* title, wxAlignment alignment) {
    const auto& column = *Table().GetColumn(at);
    EXPECT_EQ(column.GetTitle(), title);
    EXPECT_EQ(column.GetModelColumn(), at) << title;
    EXPECT_EQ(column.GetAlignment(), alignment) << title;
    EXPECT_TRUE(column.IsResizeable()) << title;
  };
  expect(0, "Parameter", wxALIGN_LEFT);
  expect(1, "Reference", wxALIGN_RIGHT);
  expect(2, "Now", wxALIGN_RIGHT);
  expect(3, "Difference", wxALIGN_RIGHT);
}

TEST_F(CompareLook, ComesUpInThreeFifthsOfTheMainWindowsHeightWithinItsLimits)
{
  Start();
  ASSERT_GT(Frame().GetSize().y * 3 / 5, 520);
  Open();
  EXPECT_TRUE(WaitUntil([] { return Window()->GetClientSize().y == 520; }))
      << Window()->GetClientSize().y;
  EXPECT_GE(Window()->GetClientSize().x, 620);
  // With the window manager's title or without it, which it may not have told yet.
  EXPECT_GE(Window()->GetMinSize().y, 260);
  EXPECT_LE(Window()->GetMinSize().y, 260 + 40);
}

TEST_F(CompareLook, LeavesAnotherWindowInItsPlaceThatDoesNotCoverIt)
{
  Start();
  Open();
  const wxPoint corner = Frame().GetPosition();
  Window()->Move(corner);
  ASSERT_TRUE(WaitUntil([&] { return (Window()->GetPosition() - corner).x < 40; }));
  editor.Play("click MnuGearing\n");
  const auto& other = *wxWindow::FindWindowByName("FrmGearing");
  ASSERT_TRUE(WaitUntil([&] { return other.IsShownOnScreen(); }));
  LetTimePass(300);
  const auto aside = [&] {
    return other.GetRect().GetPosition() -
           other.GetRect().CentreIn(Frame().GetRect()).GetPosition();
  };
  // As far as the window manager has placed both of them by now.
  EXPECT_TRUE(WaitUntil([&] {
    constexpr int kTitle = 40;
    return aside().x < 28 && aside().y < kTitle;
  })) << aside().x
      << ", " << aside().y;
}

TEST_F(CompareLook, IsToldToAScreenReader)
{
  Start();
  Open();
  const auto spoken = [&](const char* name) {
    return gtk_widget_get_accessible(Part(name).GetHandle());
  };
  for (const char* const name :
       {"TakeSelected", "TakeGroup", "TakeAll", "Copy", "CloseButton", "ReferenceFile"}) {
    const char* const said = atk_object_get_name(spoken(name));
    EXPECT_TRUE(said != nullptr && *said != '\0') << name;
    EXPECT_STREQ(atk_object_get_description(spoken(name)), Part(name).GetToolTipText().utf8_str());
  }
  EXPECT_STREQ(atk_object_get_name(spoken("Comparison")), "Comparison with the reference");
  EXPECT_STREQ(atk_object_get_name(spoken("Reference")), "Reference");
}

}  // namespace
}  // namespace velquist::testing
