// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>
#include <wx/choice.h>
#include <wx/display.h>
#include <wx/dnd.h>
#include <wx/frame.h>
#include <wx/modalhook.h>
#include <wx/utils.h>

#include <functional>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "RealWindow.h"
#include "TemporaryFolder.h"
#include "platform_wx/NativeLook.h"
#include "platform_wx/WxSystem.h"
#include "platform_wx/WxText.h"
#include "ui/FitToDesktop.h"

namespace velquist::testing {
namespace {

class Behaviour : public RealWindow {
 protected:
  [[nodiscard]] float Value(int slot) const { return editor.Window().Car().Value(slot); }
};

TEST_F(Behaviour, ThePointerIsBusyWhileADroppedFileIsReadAndNoOtherEventIsTaken)
{
  Start();
  editor.Play(
      "setup $G/Players/Jim/Setups/monza/fast.br2 short 48=80 49=45 50=60 51=3\n"
      "expect unchanged\n");
  const float before = Value(0);
  int boxes = 0;
  const AtBox at_box([&] {
    ++boxes;
    EXPECT_TRUE(wxIsBusy());
    wxCommandEvent click(wxEVT_BUTTON, Widget("CmdInc(0)")->GetId());
    Frame().ProcessWindowEvent(click);
    EXPECT_EQ(Value(0), before);
  });
  auto* const drop = dynamic_cast<wxFileDropTarget*>(Frame().GetDropTarget());
  ASSERT_NE(drop, nullptr);
  wxArrayString dropped;
  dropped.Add(platform::FromText(editor.Path("$G/Players/Jim/Setups/monza/fast.br2").string()));
  EXPECT_TRUE(drop->OnDropFiles(0, 0, dropped));
  editor.Play("on FrmModYear2 -> 1967\ntick 0\nexpect Label4 \"fast.br2\"\nexpect unchanged\n");
  EXPECT_EQ(boxes, 1);
  EXPECT_FALSE(wxIsBusy());
}

TEST_F(Behaviour, TwoFilesThatAreDroppedAtOnceAreNotOpened)
{
  Start();
  editor.Play("setup $G/Players/Jim/Setups/monza/fast.lp1 long 0=25 48=80 49=45 50=60 51=3\n");
  const std::string shown = editor.Window().Car().FileName();
  auto* const drop = dynamic_cast<wxFileDropTarget*>(Frame().GetDropTarget());
  ASSERT_NE(drop, nullptr);
  const wxString file =
      platform::FromText(editor.Path("$G/Players/Jim/Setups/monza/fast.lp1").string());
  wxArrayString dropped;
  EXPECT_FALSE(drop->OnDropFiles(0, 0, dropped));
  dropped.Add(file);
  dropped.Add(file);
  EXPECT_FALSE(drop->OnDropFiles(0, 0, dropped));
  LetTimePass(100);
  EXPECT_EQ(editor.Window().Car().FileName(), shown);
  dropped.pop_back();
  EXPECT_TRUE(drop->OnDropFiles(0, 0, dropped));
  EXPECT_TRUE(WaitUntil([&] { return editor.Window().Car().FileName() == "fast.lp1"; }));
}

TEST_F(Behaviour, ThePointerIsBusyWhileASetupThatAnotherProgramChangedIsReadAgain)
{
  Start();
  const std::string file = "$G/Players/Jim/Setups/monza/fast.br2";
  editor.Play("setup " + file + " short 48=80 49=45 50=60 51=3\non open -> " + file +
              "\non FrmModYear2 -> 1967\nclick MnuOpen\nremove " + file + "\nsetup " + file +
              " long 0=25 48=80 49=45 50=60 51=3\n");
  bool busy = false;
  const AtBox at_box([&] { busy = wxIsBusy(); });  // which asks for the mod year
  editor.Play("on message \"Another program has changed the open setup file:\\n" + file +
              "\\nDo you want to read it again?\" question -> yes\non FrmModYear1 -> 1967\n"
              "focus\nexpect slot 0 = 25\n");
  EXPECT_TRUE(busy);
  EXPECT_FALSE(wxIsBusy());
}

TEST_F(Behaviour, ARestingQuotationWakesTheProgramOnlyWhenItMoves)
{
  Start();
  editor.Play("tick 0\n");
  Frame().RunMarquee();
  constexpr int kRest = 30000;  // milliseconds
  EXPECT_GE(Frame().MarqueeTimer().Interval(), kRest);
}

TEST_F(Behaviour, TheMarqueeLooksUpNoColourEachTimeItIsPainted)
{
  Start();
  const auto& box = *Widget("Picture1");
  EXPECT_TRUE(box.UseForegroundColour());
  EXPECT_TRUE(box.UseBackgroundColour());
  EXPECT_EQ(box.GetBackgroundColour(), Frame().GetDefaultAttributes().colBg);
}

TEST_F(Behaviour, TheMarqueeRestsWhileTheWindowIsMinimised)
{
  Start();
  Frame().RunMarquee();
  EXPECT_TRUE(Frame().MarqueeTimer().IsRunning());
  Frame().Iconize(true);
  EXPECT_TRUE(WaitUntil([&] { return !Frame().MarqueeTimer().IsRunning(); }));
  Frame().Iconize(false);
  EXPECT_TRUE(WaitUntil([&] { return Frame().MarqueeTimer().IsRunning(); }));
}

TEST_F(Behaviour, TheMarqueeMovesAndLeavesNoTrace)
{
  Start();
  editor.Play("random 0\ntick 0\n");
  LetTimePass(300);
  const auto empty = Pixels("Picture1");
  editor.Play("tick 33000\n");  // which is painted anew
  EXPECT_TRUE(WaitUntil([&] { return Pixels("Picture1") != empty; }));
  for (int step = 0; step < 200; ++step) editor.Play("tick 60\n");  // and these at once
  LetTimePass(100);
  const auto moved = Pixels("Picture1");
  Widget("Picture1")->Refresh();
  LetTimePass(100);
  EXPECT_EQ(Pixels("Picture1"), moved);
  EXPECT_NE(moved, empty);
}

TEST_F(Behaviour, TheMarqueeKeepsItsDistanceFromTheRightEdgeOfAResizedWindow)
{
  Start();
  const auto& form = editor.Window().Form();
  const auto distance = [&] {
    const auto& box = form.Picture1.place;
    return box.left + box.width - form.LblMarquee.place.left;
  };
  const auto resize_to = [&](int percent) {
    Frame().SetClientSize(app::kDesignClientWidth * percent / 100,
                          app::kDesignClientHeight * percent / 100);
    const int width = form.Picture1.place.width;
    EXPECT_TRUE(WaitUntil([&] { return form.Picture1.place.width != width; }));
  };
  editor.Play("tick 0\n");
  EXPECT_EQ(distance(), 0);
  for (const int percent : {75, 120, 100}) {
    resize_to(percent);
    EXPECT_EQ(distance(), 0) << percent;
  }
  editor.Play("tick 36000\n");
  const int moved = distance();
  EXPECT_GT(moved, 50);
  resize_to(75);
  EXPECT_EQ(distance(), moved);
}

TEST_F(Behaviour, AResizedWindowKeepsItsProportions)
{
  Start();
  Frame().SetClientSize(app::kDesignClientWidth * 3 / 4, app::kDesignClientHeight * 3 / 4);
  const auto expected = wxRect(492, 252, 450, 198);
  EXPECT_TRUE(WaitUntil([&] { return Widget("PictureChart2")->GetRect() == expected; }));
}

TEST(Desktop, IsAsLargeAsTheSystemSays)
{
  GdkRectangle place;
  gdk_monitor_get_geometry(gdk_display_get_monitor(gdk_display_get_default(), 0), &place);
  const platform::WxScreen screen;
  EXPECT_EQ(screen.Width(), place.width);
  EXPECT_EQ(screen.Height(), place.height);
}

TEST(Desktop, HasEveryWindowWithinItAndInItsMiddle)
{
  const wxRect desktop = wxDisplay(0U).GetClientArea();
  auto* const window = new wxFrame(nullptr, wxID_ANY, "window", desktop.GetPosition());
  const auto comes_to = [&](const wxRect& place) {
    EXPECT_TRUE(WaitUntil([&] { return window->GetRect() == place; }))
        << window->GetPosition().x << " " << window->GetPosition().y << " " << window->GetSize().x
        << " " << window->GetSize().y;
  };
  window->SetSize(desktop.GetSize() + wxSize(100, 100));
  ui::FitToDesktop(*window, std::nullopt);
  EXPECT_EQ(window->GetSize(), desktop.GetSize()) << "the window manager has no part in it yet";
  window->Show();
  comes_to(desktop);

  const wxRect small(desktop.GetPosition(), desktop.GetSize() / 2);
  window->SetSize(small);
  comes_to(small);
  ui::FitToDesktop(*window, std::nullopt);
  comes_to(small.CentreIn(desktop));
  window->Destroy();
  LetTimePass(20);
}

TEST_F(Behaviour, ACopyOfTheWindowStandsWhereItIsTold)
{
  Start({1024, 768});
  const wxRect desktop = wxDisplay(0U).GetClientArea();
  ui::FitToDesktop(Frame(), wxPoint(desktop.x + 48, desktop.y + 99));
  EXPECT_TRUE(WaitUntil([&] {
    return Frame().GetPosition() == desktop.GetPosition() + wxPoint(48, 99);
  })) << Frame().GetPosition().x
      << " " << Frame().GetPosition().y;
  EXPECT_TRUE(desktop.Contains(Frame().GetRect()));
  ui::FitToDesktop(Frame(), desktop.GetBottomRight() - wxPoint(50, 50));
  EXPECT_TRUE(WaitUntil([&] { return Frame().GetPosition() == desktop.GetPosition(); }));
}

TEST_F(Behaviour, ACopyIsOfThisVeryProgramWhateverLiesInTheDirectory)
{
  Start();
  const samples::TemporaryFolder folder;
  const auto other = folder / "Velquist.exe";
  std::ofstream(other) << "#!/bin/sh\necho other > " << (folder / "other").string() << '\n';
  std::filesystem::permissions(other, std::filesystem::perms(0755));
  // This program reports that it was started so, and has no such test.
  const auto report = folder / "report.xml";
  platform::WxProcess process([&]() -> std::vector<std::string> {
    return {"--gtest_filter=None.*", "--gtest_output=xml:" + report.string()};
  });
  process.Start(folder.Text() + "\\Velquist.exe");
  EXPECT_TRUE(WaitUntil([&] { return std::filesystem::exists(report); }, 20000));
  EXPECT_FALSE(std::filesystem::exists(folder / "other"));
}

TEST_F(Behaviour, ALongListIsFilledAtOnce)
{
  Start();
  auto& list = dynamic_cast<wxChoice&>(*Widget("Combo7"));
  wxArrayString items;
  for (int i = 0; i < 3000; ++i) items.Add(wxString::Format("/games/installation %d/GPL", i));
  const auto seconds = [](const auto& fill) {
    const auto begin = std::clock();
    fill();
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
  };
  const double one_by_one = seconds([&] { list.Set(items); });
  const double at_once = seconds([&] { platform::SetItems(list, items); });
  EXPECT_LT(at_once, one_by_one / 5);
  EXPECT_EQ(list.GetStrings(), items);
  EXPECT_EQ(list.GetSelection(), wxNOT_FOUND);
  list.SetSelection(2999);
  EXPECT_EQ(list.GetStringSelection(), items[2999]);
  platform::SetItems(list, {});
  EXPECT_EQ(list.GetCount(), 0U);
}

}  // namespace
}  // namespace velquist::testing
