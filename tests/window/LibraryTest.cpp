// SPDX-License-Identifier: MIT
// The window of the library: its table, its preview, its keys.
#include <gtk/gtk.h>
#include <wx/checkbox.h>
#include <wx/checklst.h>
#include <wx/choice.h>
#include <wx/dialog.h>

#include <algorithm>

#include "LibraryWindow.h"

namespace velquist::testing {
namespace {

TEST_F(LibraryWindow, ListsAllSetupsAndSaysHowMany)
{
  StartWithSetups();
  Open();
  EXPECT_EQ(Files(), (Texts{"a.lp1", "b.lp2", "c.lq1"}));
  EXPECT_EQ(Column("Setups", app::kTrackColumn), (Texts{"monza", "monza", "monza"}));
  EXPECT_EQ(Column("Setups", app::kYearColumn), (Texts{"1966", "1966", "1966"}));
  EXPECT_TRUE(Label("Progress").starts_with("3 setups in 1 installation"));
  EXPECT_EQ(Label("Stop"), "&Scan Again");
  EXPECT_EQ(Chosen(), "");
  EXPECT_FALSE(PartOf("Open").IsEnabled());
}

TEST_F(LibraryWindow, IsWorkedWithByKeyboardAlone)
{
  StartWithSetups();
  Open();
  Activate();
  EXPECT_TRUE(PartOf("Filter").HasFocus());
  Type("lp");
  EXPECT_EQ(Files(), (Texts{"a.lp1", "b.lp2"}));
  EXPECT_EQ(Chosen(), "a.lp1");
  Key(WXK_DOWN);
  EXPECT_TRUE(Table().HasFocus());
  Key(WXK_DOWN);
  EXPECT_EQ(Chosen(), "b.lp2");
  Key(WXK_RETURN);
  editor.Play("expect Label4 b.lp2\nexpect Combo2 \"1966\"\n");
  Key('R', wxMOD_CONTROL);
  editor.Play("expect MnuReferenceFile checked\n");
  Key('E', wxMOD_CONTROL);
  editor.Play("expect file $G/Players/Jim/Setups/monza/b.txt exists\n");
  Key('F', wxMOD_CONTROL);
  EXPECT_TRUE(PartOf("Filter").HasFocus());
  Type("lq1");
  EXPECT_EQ(Files(), (Texts{"c.lq1"}));
  Key(WXK_RETURN);
  editor.Play("expect Label4 c.lq1\n");
  Key(WXK_ESCAPE);
  EXPECT_TRUE(WaitUntil([] { return !IsOpen(); }));
  EXPECT_TRUE(WaitUntil([&] { return Frame().IsActive(); }));
}

TEST_F(LibraryWindow, SortsByAHeadingAndByTheList)
{
  StartWithSetups();
  Open();
  Choose(0);
  Head(app::kFileColumn);
  Head(app::kFileColumn);
  EXPECT_EQ(Files(), (Texts{"c.lq1", "b.lp2", "a.lp1"}));
  EXPECT_EQ(Chosen(), "a.lp1");
  auto& order = PartOf<wxChoice>("SortBy");
  EXPECT_EQ(order.GetStringSelection(), "File");
  EXPECT_TRUE(PartOf<wxCheckBox>("Descending").GetValue());
  order.SetStringSelection("Formula");
  wxCommandEvent event(wxEVT_CHOICE, order.GetId());
  event.SetEventObject(&order);
  order.ProcessWindowEvent(event);
  EXPECT_EQ(Files(), (Texts{"b.lp2", "c.lq1", "a.lp1"}));
  order.SetSelection(0);
  order.ProcessWindowEvent(event);
  EXPECT_EQ(Files(), (Texts{"a.lp1", "b.lp2", "c.lq1"}));
  EXPECT_FALSE(PartOf("Descending").IsEnabled());
}

TEST_F(LibraryWindow, PreviewsTheChosenSetupAndFollowsEdits)
{
  StartWithSetups();
  Put("d.lp1", "30=12");
  Open();
  Choose(0);
  Press("Open");
  EXPECT_EQ(Label("DifferenceCount"), "Nothing differs from a.lp1");
  Choose(3);
  EXPECT_EQ(Label("DifferenceCount"), "1 value differs from d.lp1");
  EXPECT_EQ(Differences(), (Texts{"Fuel, Steering and Brakes", "Fuel level, gals"}));
  EXPECT_EQ(Column("Differences", 1).back(), "12");
  editor.Play("click CmdInc(31)\n");
  EXPECT_EQ(Label("DifferenceCount"), "2 values differ from d.lp1");
  editor.Play("check OptUnits(1)\n");
  EXPECT_EQ(Differences().at(1), "Fuel level, ltrs");
}

TEST_F(LibraryWindow, WhatIsSaidOfThePreviewHasTheWholeRow)
{
  StartWithSetups();
  Open();
  Choose(0);
  const auto& said = PartOf("DifferenceCount");
  EXPECT_EQ(said.GetSize().x, said.GetParent()->GetClientSize().x);
}

TEST_F(LibraryWindow, SaysWhyASetupCannotBePreviewed)
{
  StartWithSetups();
  editor.Play("setup $T/Second/Players/Ann/Setups/spa/x.lp1 long" + std::string(kSetupValues) +
              "file $T/Second/gpl_ai.ini text \"\"\nfile $T/Second/gpl.exe text \"\"\n"
              "on open -> $T/Second/gpl.exe\nclick MnuAddInstall\n");
  Open();
  ASSERT_EQ(Files().back(), "x.lp1");
  Choose(3);
  EXPECT_EQ(Label("DifferenceCount"),
            "You are attempting to load a setup file for a mod that isn't installed.");
  EXPECT_EQ(Differences(), Texts{});
}

TEST_F(LibraryWindow, ShowsValuesAsColumnsInTheUnitsOfTheMainWindow)
{
  StartWithSetups({"a.lp1"});
  Put("b.lp1", "30=12");
  Open();
  Library().Library().Table().SetValueSlots({30});
  Library().BringInLine();
  EXPECT_TRUE(WaitUntil([] { return !Library().Library().IsBusy(); }));
  EXPECT_EQ(Column("Setups", app::kFirstValueColumn + 30).back(), "12");
  editor.Play("check OptUnits(1)\n");
  EXPECT_TRUE(WaitUntil([] {
    const auto cell = Column("Setups", app::kFirstValueColumn + 30).back();
    return cell != "12" && !cell.empty();
  }));
}

TEST_F(LibraryWindow, AsksWhichValuesAreColumns)
{
  StartWithSetups({"a.lp1"});
  Put("b.lp1", "30=12");
  Open();
  const auto before = Table().GetColumnCount();
  const auto slots = app::LibrarySlots();
  const auto fuel = static_cast<unsigned>(std::ranges::find(slots, 30) - slots.begin());
  const auto answer = [&](unsigned chosen, bool checked, int button) {
    Library().CallAfter([=] {
      auto* const question = dynamic_cast<wxDialog*>(wxWindow::FindWindowByName("FrmColumns"));
      ASSERT_NE(question, nullptr);
      auto& list = dynamic_cast<wxCheckListBox&>(*wxWindow::FindWindowByName("Values", question));
      EXPECT_EQ(list.IsChecked(chosen), !checked);
      EXPECT_GE(list.GetMinSize().x, list.FromDIP(320)) << "the longest value is not cut";
      EXPECT_GE(list.GetMinSize().y, list.FromDIP(360)) << "a dozen values are in sight";
      list.SetSelection(static_cast<int>(chosen));
      wxKeyEvent space(wxEVT_KEY_DOWN);
      space.m_keyCode = WXK_SPACE;
      list.ProcessWindowEvent(space);
      EXPECT_EQ(list.IsChecked(chosen), checked);
      question->EndModal(button);
    });
    Press("Columns");
    ASSERT_TRUE(WaitUntil([] { return !Library().Library().IsBusy(); }));
  };
  answer(fuel, true, wxID_OK);
  ASSERT_EQ(Table().GetColumnCount(), before + 1);
  EXPECT_EQ(Table().GetColumn(before - 1)->GetTitle(), "Fuel level, gals");
  EXPECT_EQ(Table().GetColumn(before)->GetTitle(), "Problem");
  EXPECT_EQ(Column("Setups", app::kFirstValueColumn + 30).back(), "12");
  editor.Play("check OptUnits(1)\n");
  EXPECT_EQ(Table().GetColumn(before - 1)->GetTitle(), "Fuel level, ltrs");
  answer(fuel, false, wxID_CANCEL);
  EXPECT_EQ(Table().GetColumnCount(), before + 1);
  answer(fuel, false, wxID_OK);
  EXPECT_EQ(Table().GetColumnCount(), before);
}

TEST_F(LibraryWindow, IsToldToAScreenReader)
{
  StartWithSetups();
  Open();
  const auto spoken = [](const char* name) {
    return gtk_widget_get_accessible(PartOf(name).GetHandle());
  };
  for (const char* const name :
       {"Open", "Reference", "Export", "Show", "CloseButton", "Stop", "Columns"}) {
    const char* const said = atk_object_get_name(spoken(name));
    EXPECT_TRUE(said != nullptr && *said != '\0') << name;
    EXPECT_STREQ(atk_object_get_description(spoken(name)),
                 PartOf(name).GetToolTipText().utf8_str());
  }
  EXPECT_STREQ(atk_object_get_name(spoken("Filter")), "Filter");
  EXPECT_STREQ(atk_object_get_name(spoken("SortBy")), "Sort by");
  EXPECT_STREQ(atk_object_get_name(spoken("Setups")), "Setups of all installations");
  EXPECT_STREQ(atk_object_get_name(spoken("Differences")), "What differs from the chosen setup");
}

TEST_F(LibraryWindow, CoversNoOtherWindowThatIsOpen)
{
  StartWithSetups();
  editor.Play("click MnuGearing\n");
  Open();
  const auto* const gearing = wxWindow::FindWindowByName("FrmGearing");
  ASSERT_NE(gearing, nullptr);
  EXPECT_TRUE(WaitUntil([&] { return gearing->GetPosition() != Library().GetPosition(); }));
}

TEST_F(LibraryWindow, FitsASmallScreen)
{
  for (const auto screen : {ScreenSize{800, 600}, ScreenSize{1280, 1024}}) {
    Start(screen);
    Open();
    Library().SetClientSize(Library().GetMinClientSize());
    LetTimePass(100);
    const auto window = Library().GetClientSize();
    const auto hint = PartOf("Hint").GetLabel();
    EXPECT_NE(hint.find("Escape: close"), wxString::npos);
    for (const wxString& line : wxSplit(hint, '\n'))
      EXPECT_LE(PartOf("Hint").GetTextExtent(line).x, PartOf("Hint").GetSize().x) << line;
    EXPECT_GE(PartOf("Hint").GetSize().y, PartOf("Hint").GetBestSize().y);
    for (const char* const name : {"Open", "Reference", "Export", "Show", "CloseButton", "Stop",
                                   "Columns", "Filter", "Setups", "Differences", "Hint"}) {
      const auto corner = Library().ScreenToClient(PartOf(name).GetScreenRect().GetBottomRight());
      EXPECT_LE(corner.x, window.x) << name;
      EXPECT_LE(corner.y, window.y) << name;
      EXPECT_GT(PartOf(name).GetSize().y, 10) << name;
    }
  }
}

}  // namespace
}  // namespace velquist::testing
