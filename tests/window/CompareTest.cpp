// SPDX-License-Identifier: MIT
// The window of the comparison and the count that leads to it.
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/utils.h>

#include <string>
#include <vector>

#include "CompareWindow.h"
#include "app/ComparisonTable.h"
#include "platform_wx/WxText.h"

namespace velquist::testing {
namespace {

class Compare : public CompareWindow {};

TEST_F(Compare, TheCountOfDifferencesIsInTheStatusLineAndLeadsToTheWindow)
{
  Start();
  EXPECT_EQ(Count().GetLabel(), "No differences");
  editor.Play("click CmdInc(4)\n");
  const auto marked = editor.Window().Form().DifferenceCount();
  EXPECT_EQ(Count().GetLabel(),
            std::to_string(marked) + (marked == 1 ? " difference" : " differences"));
  editor.Play("click CmdInc(30)\nclick CmdInc(31)\n");
  EXPECT_EQ(Count().GetLabel(), std::to_string(marked + 2) + " differences");
  EXPECT_GE(Count().GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
  EXPECT_TRUE(Count().AcceptsFocus());
  EXPECT_FALSE(IsOpen());
  wxCommandEvent event(wxEVT_BUTTON, Count().GetId());
  event.SetEventObject(&Count());
  Count().ProcessWindowEvent(event);
  EXPECT_TRUE(WaitUntil([&] { return IsOpen(); }));
  editor.Play("click MnuUndo\nclick MnuUndo\nclick MnuUndo\n");
  EXPECT_EQ(Count().GetLabel(), "No differences");
  EXPECT_LT(Count().GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
}

TEST_F(Compare, FollowsEveryEditWhileItIsOpen)
{
  Start();
  Open();
  EXPECT_EQ(Parameters(), Texts{});
  EXPECT_EQ(Summary(), "Nothing differs from the setup as loaded");
  editor.Play("click CmdInc(30)\n");
  EXPECT_EQ(Parameters(), (Texts{"Fuel, Steering and Brakes", "Fuel level, gals"}));
  EXPECT_EQ(Summary(), "1 value differs from the setup as loaded");
  EXPECT_EQ(Cell(1, 2), editor.Window().Form().Label1[30].text);
  editor.Play("check OptUnits(1)\n");
  EXPECT_EQ(Parameters().back(), "Fuel level, ltrs");
  EXPECT_EQ(Cell(1, 2), editor.Window().Form().Label1[30].text);
  editor.Play("click MnuUndo\n");
  EXPECT_EQ(Parameters(), Texts{});
}

TEST_F(Compare, ShowsAllValuesWhenAsked)
{
  Start();
  Open();
  auto& only = Part<wxCheckBox>("DifferencesOnly");
  EXPECT_TRUE(only.GetValue());
  only.SetValue(false);
  wxCommandEvent event(wxEVT_CHECKBOX, only.GetId());
  event.SetEventObject(&only);
  only.ProcessWindowEvent(event);
  const auto rows = app::ComparisonTable(editor.Window(), app::ComparedRows::kAll);
  EXPECT_EQ(Lines().GetCount(), rows.size() + 6);
}

TEST_F(Compare, TakesTheSelectedRowsAsOneStep)
{
  Start();
  editor.Play("click CmdInc(24)\nclick CmdInc(30)\nclick CmdInc(31)\n");
  Open();
  ASSERT_EQ(Parameters().size(), 5U);
  EXPECT_FALSE(Part("TakeSelected").IsEnabled());
  SelectLine(1);
  SelectLine(3, true);
  Press("TakeSelected");
  EXPECT_EQ(Parameters(), (Texts{"Fuel, Steering and Brakes", "Steering ratio"}));
  editor.Play(
      "expect Label1(24) unmarked\nexpect Label1(31) marked\n"
      "expect MnuUndo \"Undo values of the reference\"\nclick MnuUndo\nexpect Label1(24) marked\n"
      "expect Label1(30) marked\n");
  EXPECT_EQ(Parameters().size(), 5U);
}

TEST_F(Compare, TakesAGroupOrAll)
{
  Start();
  editor.Play("click CmdInc(24)\nclick CmdInc(30)\nclick CmdInc(31)\n");
  Open();
  SelectLine(4);
  Press("TakeGroup");
  EXPECT_EQ(Parameters(), (Texts{"Front", "Front toe in, in"}));
  editor.Play("click MnuUndo\n");
  SelectLine(2);  // the line that names the group
  Press("TakeSelected");
  EXPECT_EQ(Parameters(), (Texts{"Front", "Front toe in, in"}));
  editor.Play("click MnuUndo\n");
  Press("TakeAll");
  EXPECT_EQ(Parameters(), Texts{});
  EXPECT_FALSE(Part("TakeAll").IsEnabled());
  editor.Play("click MnuUndo\n");
  EXPECT_EQ(Parameters().size(), 5U);
}

TEST_F(Compare, KeepsItsSelectionWhenRowsComeAndGo)
{
  Start();
  editor.Play("click CmdInc(30)\nclick CmdInc(31)\n");
  Open();
  SelectLine(2);
  ASSERT_EQ(Cell(2, 0), "Steering ratio");
  editor.Play("click CmdInc(24)\n");
  ASSERT_EQ(Cell(4, 0), "Steering ratio");
  EXPECT_TRUE(Table().IsSelected(Lines().GetItem(4)));
  EXPECT_EQ(Table().GetSelectedItemsCount(), 1);
}

TEST_F(Compare, StaysAtItsPlaceWhenRowsComeAndGo)
{
  Start();
  Open();
  for (int slot = 4; slot < 24; ++slot) editor.Play("click CmdInc(" + std::to_string(slot) + ")\n");
  ASSERT_GT(Lines().GetCount(), 20U);
  Window()->SetClientSize(Window()->GetMinClientSize());
  const auto top = [this] { return Lines().GetRow(Table().GetTopItem()); };
  ASSERT_TRUE(WaitUntil([&] {
    Table().EnsureVisible(Lines().GetItem(Lines().GetCount() - 1));
    return top() > 3;
  }));
  LetTimePass(100);
  const auto before = top();
  for (const auto* const step : {"click CmdInc(30)\n", "click MnuUndo\n"}) {
    editor.Play(step);
    LetTimePass(100);
    EXPECT_NEAR(top(), before, 3) << step;  // two lines came above
  }
}

TEST_F(Compare, CopiesTheRowsShownAsTextAndAsHtml)
{
  Start();
  editor.Play("click CmdInc(30)\n");
  Open();
  Press("Copy");
  const auto rows = app::ComparisonTable(editor.Window(), app::ComparedRows::kDifferences);
  wxTextDataObject text;
  wxHTMLDataObject html;
  const wxClipboardLocker clipboard;
  ASSERT_TRUE(wxTheClipboard->GetData(text));
  EXPECT_EQ(platform::ToText(text.GetText()), app::ComparisonText(rows, "the setup as loaded"));
  ASSERT_TRUE(wxTheClipboard->GetData(html));
  EXPECT_NE(html.GetHTML().Find("Fuel level"), wxNOT_FOUND);
}

TEST_F(Compare, ChoosesTheReference)
{
  Start();
  editor.Play("setup $T/other.bb1 short 4=90 30=3 35=2.5 42=65 48=80 49=45 50=60 51=3\n");
  Open();
  auto& list = Part<wxChoice>("Reference");
  EXPECT_EQ(list.GetStringSelection(), "Setup as loaded");
  EXPECT_EQ(list.GetCount(), 2U);
  editor.Play("on open -> $T/other.bb1\non FrmModYear2 -> 1967\nclick MnuReferenceFile\n");
  EXPECT_EQ(list.GetStringSelection(), "other.bb1");
  EXPECT_GT(Lines().GetCount(), 0U);
  list.SetSelection(1);
  wxCommandEvent event(wxEVT_CHOICE, list.GetId());
  event.SetEventObject(&list);
  event.SetInt(1);
  list.ProcessWindowEvent(event);
  editor.Play("expect MnuReferenceDefault checked\n");
  EXPECT_EQ(list.GetCount(), 2U);
  EXPECT_EQ(Summary(), "Nothing differs from the default setup of 1967");
}

TEST_F(Compare, ShowsABusyPointerWhileAReferenceIsRead)
{
  Start();
  editor.Play("setup $T/other.bb1 short 0=31 48=80 49=45 50=60 51=3\n");
  Open();
  std::vector<bool> busy;
  const AtBox at_box([&] { busy.push_back(wxIsBusy()); });  // which asks for the mod year
  Frame().CallAfter([&] { Press("ReferenceFile"); });
  editor.Play("on open -> $T/other.bb1\non FrmModYear2 -> 1967\ntick 0\n");
  EXPECT_EQ(busy, std::vector{true});
  EXPECT_FALSE(wxIsBusy());
  EXPECT_EQ(Part<wxChoice>("Reference").GetStringSelection(), "other.bb1");
}

TEST_F(Compare, ClosesByEscapeAndComesBackAsItWas)
{
  Start();
  editor.Play("click CmdInc(30)\n");
  Open();
  const auto* const first = Window();
  FocusTable();
  Key(WXK_ESCAPE);
  EXPECT_TRUE(WaitUntil([&] { return !IsOpen(); }));
  EXPECT_TRUE(WaitUntil([&] { return Frame().IsActive(); }));
  Key('D', wxMOD_CONTROL);
  EXPECT_TRUE(WaitUntil([&] { return IsOpen(); }));
  EXPECT_EQ(Window(), first);
  EXPECT_TRUE(WaitUntil([&] { return IsActive(); }));
  Window()->Close();
  EXPECT_TRUE(WaitUntil([&] { return !IsOpen() && Frame().IsActive(); }));
}

TEST_F(Compare, WorksByKeyboard)
{
  Start();
  editor.Play("click CmdInc(24)\nclick CmdInc(30)\n");
  Open();
  FocusTable();
  Key(WXK_END);
  Key(WXK_DELETE);
  EXPECT_EQ(Parameters(), (Texts{"Front", "Front toe in, in"}));
  Key('Z', wxMOD_CONTROL);
  EXPECT_EQ(Parameters().size(), 4U);
  Key(WXK_HOME);
  Key(WXK_DOWN);
  Key(WXK_RETURN);
  EXPECT_EQ(Parameters(), (Texts{"Fuel, Steering and Brakes", "Fuel level, gals"}));
  Key('A', wxMOD_CONTROL);
  Key('C', wxMOD_CONTROL);
  wxTextDataObject text;
  {
    const wxClipboardLocker clipboard;
    ASSERT_TRUE(wxTheClipboard->GetData(text));
  }
  EXPECT_NE(text.GetText().Find("Fuel level"), wxNOT_FOUND);
  Key(WXK_DELETE);
  EXPECT_EQ(Parameters(), Texts{});
}

TEST_F(Compare, TheDeleteAndEnterKeysTakeTheSelectedRowAndNotItsGroup)
{
  Start();
  editor.Play("click CmdInc(30)\nclick CmdInc(31)\nclick CmdInc(32)\n");
  Open();
  ASSERT_EQ(Parameters().size(), 4U);
  FocusTable();
  Key(WXK_END);
  const auto last = Cell(3, 0);
  Key(WXK_DELETE);
  ASSERT_EQ(Parameters().size(), 3U);
  EXPECT_NE(Parameters().back(), last);
  Key(WXK_END);
  Key(WXK_RETURN);
  EXPECT_EQ(Parameters().size(), 2U);
}

TEST_F(Compare, ChangesNothingByBeingOpen)
{
  Start();
  editor.Play("click CmdInc(4)\n");
  const auto before = editor.Everything(WithBuffer::kYes);
  Open();
  Window()->Close();
  LetTimePass(50);
  EXPECT_EQ(editor.Everything(WithBuffer::kYes), before);
}

}  // namespace
}  // namespace velquist::testing
