// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/dataview.h>
#include <wx/notebook.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <cmath>
#include <string>

#include "RealWindow.h"
#include "platform_wx/WxText.h"
#include "ui/FrmGearing.h"
#include "ui/Widgets.h"

namespace velquist::testing {
namespace {

class GearingWindow : public RealWindow {
 protected:
  void StartWithGearing(ScreenSize screen = {1280, 1024})
  {
    Start(screen);
    editor.Play("select Combo2 \"1966\"\nclick MnuGearing\n");
    ASSERT_TRUE(WaitUntil([&] { return Gearing().IsShownOnScreen(); }));
    Gearing().Raise();
    LetTimePass(300);
  }
  [[nodiscard]] static ui::FrmGearing& Gearing()
  {
    return dynamic_cast<ui::FrmGearing&>(*wxWindow::FindWindowByName("FrmGearing"));
  }
  template <class Window>
  [[nodiscard]] static Window& Part(const char* name)
  {
    return dynamic_cast<Window&>(*wxWindow::FindWindowByName(name, &Gearing()));
  }
  [[nodiscard]] static wxDataViewListCtrl& Table() { return Part<wxDataViewListCtrl>("Gears"); }
  [[nodiscard]] static std::string Cell(unsigned row, unsigned column)
  {
    return platform::ToText(Table().GetTextValue(row, column));
  }
  [[nodiscard]] static std::string Reading()
  {
    return platform::ToText(Part<wxStaticText>("Reading").GetLabelText());
  }
  void Press(int key, int modifiers = wxMOD_NONE)
  {
    user_.Char(key, modifiers);
    LetTimePass(100);
  }
  void PressButton(const char* name)
  {
    auto& button = Part<wxButton>(name);
    wxCommandEvent pressed(wxEVT_BUTTON, button.GetId());
    button.GetEventHandler()->ProcessEvent(pressed);
  }
  [[nodiscard]] static std::string CopiedText()
  {
    const wxClipboardLocker clipboard;
    wxTextDataObject text;
    return wxTheClipboard->GetData(text) ? platform::ToText(text.GetText()) : std::string();
  }

  wxUIActionSimulator user_;
};

TEST_F(GearingWindow, ShowsARowForEachGearAndWhatTheNumbersShow)
{
  StartWithGearing();
  EXPECT_EQ(Table().GetItemCount(), 5);
  EXPECT_EQ(Cell(1, 0), "2nd");
  EXPECT_EQ(Cell(1, 1), "33/18");
  EXPECT_EQ(Cell(1, 6), "8354");
  const auto remarks = platform::ToText(Part<wxTextCtrl>("Remarks").GetValue());
  EXPECT_TRUE(remarks.starts_with("Top gear reaches maximum rpm at 210 mph")) << remarks;
  EXPECT_NE(Part<wxStaticText>("Heading").GetLabelText().Find("No losses"), wxNOT_FOUND);
}

TEST_F(GearingWindow, FollowsEveryEditOfTheMainWindow)
{
  StartWithGearing();
  Table().SelectRow(2);
  editor.Play("click CmdDec(43)\n");
  EXPECT_EQ(Cell(1, 1), "34/19");
  EXPECT_TRUE(Gearing().View().picture.reference);
  editor.Play("click MnuUndo\n");
  EXPECT_EQ(Cell(1, 1), "33/18");
  EXPECT_EQ(Table().GetSelectedRow(), 2);
  editor.Play("check OptUnits(1)\n");
  EXPECT_EQ(Cell(1, 4), "184.1");
  EXPECT_EQ(platform::ToText(Table().GetColumn(4)->GetTitle()), "km/h at max rpm");
  editor.Play("select Combo3 \"BRM P83-BRM H16 3.0L\"\n");
  EXPECT_EQ(Table().GetItemCount(), 6);
  editor.Play("select Combo3 #0\n");
  EXPECT_EQ(Table().GetItemCount(), 5);
}

TEST_F(GearingWindow, ClosedComputesNothingAndOpenedAgainIsInLine)
{
  StartWithGearing();
  Gearing().Close();
  EXPECT_TRUE(WaitUntil([&] { return !Gearing().IsShown(); }));
  editor.Play("click CmdDec(43)\n");
  EXPECT_NEAR(Gearing().View().picture.gearing.gears[1].ratio, 1.833, 1e-6);
  EXPECT_EQ(Cell(1, 1), "33/18");
  editor.Play("click MnuGearing\n");
  EXPECT_TRUE(WaitUntil([&] { return Gearing().IsShown(); }));
  EXPECT_NEAR(Gearing().View().picture.gearing.gears[1].ratio, 1.789, 1e-6);
  EXPECT_EQ(Cell(1, 1), "34/19");
}

TEST_F(GearingWindow, IsNotMadeBeforeItIsAskedFor)
{
  Start();
  EXPECT_EQ(wxWindow::FindWindowByName("FrmGearing"), nullptr);
}

TEST_F(GearingWindow, PlusAndMinusStepTheSelectedGearAsOneStepEach)
{
  StartWithGearing();
  Table().SelectRow(1);
  Table().SetFocus();
  LetTimePass(200);
  Press('-');
  EXPECT_EQ(Cell(1, 1), "34/19");
  EXPECT_EQ(Reading(), "2nd: 34/19 (1.789)");
  Press('-');
  EXPECT_NE(Cell(1, 1), "34/19");
  editor.Play("click MnuUndo\n");
  EXPECT_EQ(Cell(1, 1), "34/19");
  Press('+');
  EXPECT_EQ(Cell(1, 1), "33/18");
  PressButton("StepDown");
  EXPECT_EQ(Cell(1, 1), "34/19");
  PressButton("StepUp");
  EXPECT_EQ(Cell(1, 1), "33/18");
  EXPECT_EQ(Table().GetSelectedRow(), 1);
}

TEST_F(GearingWindow, ArrowKeysMoveTheCursorAndTheReadingIsShown)
{
  StartWithGearing();
  auto& chart = Part<ui::GearingChartBox>("ThrustChart");
  chart.SetFocus();
  ASSERT_TRUE(WaitUntil([&] { return chart.HasFocus(); }));
  Press(WXK_HOME);
  EXPECT_EQ(Reading(), "0 mph");
  for (int i = 0; i < 6; ++i) Press(WXK_PAGEUP);
  const auto lines = charts::ReadGearing(Gearing().View().picture, 60);
  ASSERT_GT(lines.size(), 2U);
  EXPECT_TRUE(Reading().starts_with(lines[0] + "; " + lines[1] + "; ")) << Reading();
  Press(WXK_RIGHT);
  EXPECT_TRUE(Reading().starts_with("61 mph")) << Reading();
  Press(WXK_LEFT);
  Press(WXK_LEFT);
  EXPECT_TRUE(Reading().starts_with("59 mph")) << Reading();
  editor.Play("check OptUnits(1)\n");
  EXPECT_TRUE(Reading().starts_with("59 km/h; ")) << Reading();
  editor.Play("check OptUnits(0)\n");
  Press(WXK_END);
  EXPECT_EQ(Reading(), "220 mph");
  Press(WXK_RIGHT);
  EXPECT_EQ(Reading(), "220 mph");
}

TEST_F(GearingWindow, TheCursorIsABlackLineAndTheFocusAFrameAtTheEdge)
{
  StartWithGearing();
  auto& chart = Part<ui::GearingChartBox>("ThrustChart");
  const wxColour focus(0, 90, 200);
  chart.SetFocus();
  ASSERT_TRUE(WaitUntil([&] { return chart.HasFocus(); }));
  const wxSize size = chart.GetClientSize();
  wxImage image;
  const auto at = [&](int x, int y) {
    return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
  };
  ASSERT_TRUE(WaitUntil([&] {
    image = Seen(chart);
    return at(size.x / 2, 0) == focus;
  }));
  for (const int line : {0, 1}) {
    EXPECT_EQ(at(line, size.y / 2), focus);
    EXPECT_EQ(at(size.x / 2, line), focus);
    EXPECT_EQ(at(size.x - 2 - line, size.y / 2), focus);
    EXPECT_EQ(at(size.x / 2, size.y - 2 - line), focus);
  }
  EXPECT_NE(at(size.x / 2, 2), focus);
  EXPECT_NE(at(size.x / 2, size.y - 4), focus);

  for (const int speed : {60, 61}) {
    Press(WXK_HOME);
    for (int i = 0; i < 6; ++i) Press(WXK_PAGEUP);
    if (speed == 61) Press(WXK_RIGHT);
    const auto box = charts::GearingBox(size.x, size.y);
    const int x =
        static_cast<int>(std::lround(charts::PixelOfSpeed(box, Gearing().View().picture, speed)));
    const auto black = [&](int column) {  // part of the plot box's height
      int pixels = 0;
      for (int y = static_cast<int>(box.top); y < static_cast<int>(box.bottom); ++y)
        if (at(column, y) == *wxBLACK) ++pixels;
      return pixels / box.Height();
    };
    EXPECT_TRUE(WaitUntil([&] {
      image = Seen(chart);
      return black(x) > 0.95 && black(x - 1) < 0.05 && black(x + 1) < 0.05;
    })) << speed;
  }
}

TEST_F(GearingWindow, ArrowKeysMoveTheCursorFromTheTableToo)
{
  StartWithGearing();
  ASSERT_TRUE(WaitUntil([] { return Table().HasFocus(); }));
  for (int i = 0; i < 3; ++i) Press(WXK_RIGHT);
  EXPECT_TRUE(Reading().starts_with("3 mph")) << Reading();
  Press(WXK_LEFT);
  EXPECT_TRUE(Reading().starts_with("2 mph")) << Reading();
  EXPECT_EQ(Table().GetSelectedRow(), 0);
  Press(WXK_DOWN);
  EXPECT_EQ(Table().GetSelectedRow(), 1);
}

TEST_F(GearingWindow, ScreenReadersAreToldWhatEachPartIsAndWhatTheCursorSays)
{
  StartWithGearing();
  const auto spoken = [](const char* name) {
    const char* const text =
        atk_object_get_name(gtk_widget_get_accessible(Part<wxWindow>(name).GetHandle()));
    return std::string(text == nullptr ? "" : text);
  };
  EXPECT_EQ(spoken("ThrustChart"), "Thrust");
  EXPECT_EQ(spoken("SawToothChart"), "Engine speed");
  EXPECT_EQ(spoken("Gears"), "Gears");
  EXPECT_EQ(spoken("Remarks"), "What the numbers show");
  EXPECT_EQ(spoken("StepUp"), "Increase gear");
  EXPECT_EQ(spoken("StepDown"), "Decrease gear");
  for (const char* const name :
       {"StepUp", "StepDown", "CopyTable", "CopyPicture", "CopySvg", "CloseButton"})
    EXPECT_FALSE(Part<wxWindow>(name).GetToolTipText().empty()) << name;
  auto& chart = Part<ui::GearingChartBox>("ThrustChart");
  chart.SetFocus();
  ASSERT_TRUE(WaitUntil([&] { return chart.HasFocus(); }));
  Press(WXK_HOME);
  EXPECT_EQ(spoken("Reading"), "0 mph");
}

TEST_F(GearingWindow, ThePointerReadsTheSpeedThatItIsAt)
{
  StartWithGearing();
  auto& chart = Part<ui::GearingChartBox>("ThrustChart");
  EXPECT_EQ(chart.Reading(), "");
  const wxSize size = chart.GetClientSize();
  const auto box = charts::GearingBox(size.x, size.y);
  const auto x = static_cast<int>(charts::PixelOfSpeed(box, Gearing().View().picture, 100));
  const wxPoint at = chart.ClientToScreen(wxPoint(x, size.y / 2));
  user_.MouseMove(at.x - 1, at.y);
  LetTimePass(50);
  user_.MouseMove(at.x, at.y);
  EXPECT_TRUE(WaitUntil([&] { return chart.Reading().starts_with("100 mph\n2nd: "); }))
      << chart.Reading();
  user_.MouseClick();
  EXPECT_TRUE(WaitUntil([&] { return Reading().starts_with("100 mph; 2nd: "); })) << Reading();
}

TEST_F(GearingWindow, TheTabKeyLeavesTheChart)
{
  StartWithGearing();
  auto& chart = Part<ui::GearingChartBox>("ThrustChart");
  chart.SetFocus();
  ASSERT_TRUE(WaitUntil([&] { return chart.HasFocus(); }));
  Press(WXK_TAB);
  EXPECT_TRUE(WaitUntil([&] { return !chart.HasFocus(); }));
}

TEST_F(GearingWindow, CopiesTableAndDrawing)
{
  StartWithGearing();
  PressButton("CopyTable");
  EXPECT_EQ(CopiedText(), app::GearingText(Gearing().View()));
  PressButton("CopySvg");
  const auto svg = CopiedText();
  EXPECT_TRUE(svg.starts_with("<?xml")) << svg.substr(0, 40);
  EXPECT_NE(svg.find(">1st 8378</text>"), std::string::npos);
  Part<wxNotebook>("Charts").SetSelection(1);
  LetTimePass(100);
  PressButton("CopySvg");
  EXPECT_NE(CopiedText().find("Engine speed, rpm"), std::string::npos);
  PressButton("CopyPicture");
  const wxClipboardLocker clipboard;
  wxBitmapDataObject picture;
  ASSERT_TRUE(wxTheClipboard->GetData(picture));
  EXPECT_EQ(picture.GetBitmap().GetSize(),
            Part<ui::GearingChartBox>("SawToothChart").GetClientSize());
}

TEST_F(GearingWindow, LettersGrowWithTheWindowAndNothingIsCut)
{
  StartWithGearing({3840, 2160});
  int before = 0;
  for (const wxSize size : {wxSize(580, 440), wxSize(900, 700), wxSize(1800, 1500)}) {
    Gearing().SetClientSize(size);
    auto& panel = *Part<wxWindow>("Heading").GetParent();
    ASSERT_TRUE(WaitUntil([&] { return panel.GetClientSize() == size; }, 30000));
    LetTimePass(300);
    EXPECT_GT(Table().GetFont().GetPixelSize().y, before);
    before = Table().GetFont().GetPixelSize().y;
    EXPECT_GT(Part<ui::GearingChartBox>("ThrustChart").GetClientSize().y, 60);
    for (const char* const name : {"Heading", "Reading", "Remarks", "Gears", "CloseButton"}) {
      const auto& part = Part<wxWindow>(name);
      EXPECT_TRUE(wxRect(part.GetParent()->GetClientSize()).Contains(part.GetRect()))
          << name << " at " << size.x;
    }
  }
}

TEST_F(GearingWindow, LettersAreOfWhicheverSideHasTheLessRoom)
{
  StartWithGearing({3840, 2160});
  struct {
    wxSize client;
    int letters;
  } const sizes[] = {{{900, 1100}, 15}, {{1200, 1520}, 20}, {{1800, 760}, 15}, {{1800, 1014}, 20}};
  for (const auto& [client, letters] : sizes) {
    Gearing().SetClientSize(client);
    const auto expected = ui::ControlFont(letters).GetPixelSize().y;
    EXPECT_TRUE(WaitUntil([&] { return Table().GetFont().GetPixelSize().y == expected; }))
        << client.x << " by " << client.y << ": " << Table().GetFont().GetPixelSize().y;
  }
}

}  // namespace
}  // namespace velquist::testing
