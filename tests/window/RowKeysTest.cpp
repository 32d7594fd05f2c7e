// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

class RowKeys : public RealWindow {
 protected:
  void StartWithFocus(const char* name)
  {
    Start();
    Frame().Raise();
    LetTimePass(300);
    Focus(name);
  }
  void Focus(const char* name)
  {
    Widget(name)->SetFocus();
    EXPECT_TRUE(WaitUntil([&] { return Focused() == name; })) << Focused();
  }
  /// Of what the system has the focus in: the toolkit does not hear of every way to a list.
  [[nodiscard]] std::string Focused() const
  {
    auto* const top = GTK_WINDOW(gtk_widget_get_toplevel(Frame().GetHandle()));
    const std::array<const wxWindow*, 2> arounds = {Widget("CmdInc(4)")->GetParent(),
                                                    Widget("DifferenceCount")->GetParent()};
    for (GtkWidget* at = gtk_window_get_focus(top); at != nullptr; at = gtk_widget_get_parent(at))
      for (const wxWindow* const around : arounds)
        for (const wxWindow* const child : around->GetChildren())
          if (child->GetHandle() == at) return child->GetName().ToStdString();
    return {};
  }
  /// Where the focus is behind the key.
  std::string Key(int key, int with = wxMOD_NONE)
  {
    user_.Char(key, with);
    LetTimePass(60);
    return Focused();
  }
  /// The control that the user works with before or behind another one of the layout.
  [[nodiscard]] static std::string Neighbour(const char* name, int way)
  {
    std::vector<std::string> names;
    for (const auto& design : app::FormControlSettings())
      if (IsInteractive(design)) names.push_back(testing::NameOf(design));
    return *(std::ranges::find(names, std::string(name)) + way);
  }
  [[nodiscard]] float Value(int slot) const { return editor.Window().Car().Value(slot); }
  [[nodiscard]] std::string UndoText() const
  {
    return std::string(editor.Window().Car().UndoText());
  }
  void ExpectOneUndo(float before)
  {
    editor.Play("click MnuUndo\n");
    EXPECT_EQ(Value(4), before);
    EXPECT_EQ(UndoText(), "");
  }

  wxUIActionSimulator user_;
};

TEST_F(RowKeys, TheTabKeyStopsOnceARowAndAtEveryOtherControl)
{
  StartWithFocus("CmdDec(0)");
  const std::vector<std::string> expected = {
      "CmdDec(4)",  "CmdDec(8)",  "CmdDec(12)", "CmdDec(16)",
      "CmdDec(20)", "CmdDec(24)", "CmdDec(2)",  "CmdDec(6)",
      "CmdDec(10)", "CmdDec(14)", "CmdDec(18)", "CmdDec(22)",
      "CmdDec(25)", "CmdDec(30)", "CmdDec(42)", "CmdDec(43)",
      "CmdDec(44)", "CmdDec(45)", "CmdDec(46)", "Combo1(0)",
      "Combo1(1)",  "Combo1(2)",  "Combo1(3)",  Neighbour("Combo1(3)", 1)};
  for (const auto& name : expected) EXPECT_EQ(Key(WXK_TAB), name);
  for (auto name = expected.rbegin() + 1; name != expected.rend(); ++name)
    EXPECT_EQ(Key(WXK_TAB, wxMOD_SHIFT), *name);
  EXPECT_EQ(Key(WXK_TAB, wxMOD_SHIFT), "CmdDec(0)");
  EXPECT_EQ(Key(WXK_TAB, wxMOD_SHIFT), Neighbour("CmdDec(0)", -1));
  EXPECT_EQ(Key(WXK_TAB), "CmdDec(0)");
}

TEST_F(RowKeys, TheTabKeyComesRoundThroughControlsThatDoSomethingAlone)
{
  StartWithFocus("CmdDec(0)");
  std::vector<std::string> found;
  for (int tab = 0; tab < 60 && (found.empty() || found.back() != "CmdDec(0)"); ++tab)
    found.push_back(Key(WXK_TAB));
  EXPECT_EQ(found.back(), "CmdDec(0)");
  std::erase(found, "DifferenceCount");  // opens the comparison
  for (const auto& name : found) {
    const auto row = std::ranges::find(app::FormControlSettings(), name,
                                       [](const auto& each) { return testing::NameOf(each); });
    ASSERT_NE(row, app::FormControlSettings().end()) << name;
    const bool has_cursor = row->shape == app::Shape::kChart;
    EXPECT_TRUE(IsInteractive(*row) || has_cursor) << name;
  }
}

TEST_F(RowKeys, WingsAreARowWhereTheCarHasThem)
{
  StartWithFocus("CmdDec(30)");
  editor.Play("select Combo2 \"1969\"\n");
  Focus("CmdDec(30)");
  EXPECT_EQ(Key(WXK_TAB), "CmdDec(33)");
  EXPECT_EQ(Key(WXK_TAB), "CmdDec(42)");
  EXPECT_EQ(Key(WXK_TAB, wxMOD_SHIFT), "CmdDec(33)");
}

TEST_F(RowKeys, LeftAndRightGoAlongTheRowAsFarAsItsEnds)
{
  StartWithFocus("CmdDec(4)");
  for (const char* const name : {"CmdInc(4)", "CmdDec(5)", "CmdInc(5)", "CmdInc(5)"})
    EXPECT_EQ(Key(WXK_RIGHT), name);
  for (const char* const name : {"CmdDec(5)", "CmdInc(4)", "CmdDec(4)", "CmdDec(4)"})
    EXPECT_EQ(Key(WXK_LEFT), name);
  Focus("CmdInc(24)");
  for (const char* const name : {"CmdDec(26)", "CmdInc(26)", "CmdDec(28)", "CmdInc(28)"})
    EXPECT_EQ(Key(WXK_RIGHT), name);
}

TEST_F(RowKeys, UpAndDownGoToTheRowsAboveAndBelow)
{
  StartWithFocus("CmdInc(1)");
  EXPECT_EQ(Key(WXK_UP), "CmdInc(1)");
  for (const char* const name : {"CmdInc(5)", "CmdInc(9)", "CmdInc(13)", "CmdInc(17)", "CmdInc(21)",
                                 "CmdInc(28)", "CmdInc(3)"})
    EXPECT_EQ(Key(WXK_DOWN), name);
  EXPECT_EQ(Key(WXK_UP), "CmdInc(28)");
  Focus("CmdDec(25)");
  EXPECT_EQ(Key(WXK_DOWN), "CmdDec(30)");
  EXPECT_EQ(Key(WXK_DOWN), "CmdDec(30)");
  Focus("CmdDec(46)");
  EXPECT_EQ(Key(WXK_DOWN), "CmdDec(46)");  // the car has no 6th gear
  EXPECT_EQ(Key(WXK_UP), "CmdDec(45)");
}

TEST_F(RowKeys, ControlAndANumberGoToAGroup)
{
  StartWithFocus("CmdInc(1)");
  const std::vector<std::string> firsts = {"CmdDec(0)",  "CmdDec(2)", "CmdDec(30)",
                                           "CmdDec(42)", "Combo1(0)", Neighbour("Combo1(3)", 1)};
  for (std::size_t at = 0; at < firsts.size(); ++at)
    EXPECT_EQ(Key('1' + static_cast<int>(at), wxMOD_CONTROL), firsts[at]);
  EXPECT_EQ(Key('7', wxMOD_CONTROL), firsts.back());
  EXPECT_EQ(Widget("Frame1(1)")->GetToolTipText(), "Ctrl+1 comes here");
}

TEST_F(RowKeys, PageUpAndPageDownAreFiveStepsAndOneToUndo)
{
  StartWithFocus("CmdDec(4)");
  const float before = Value(4);
  (void)Key(WXK_PAGEUP);
  EXPECT_EQ(Value(4), before + 5 * 5);
  EXPECT_EQ(Value(5), before + 5 * 5);
  (void)Key(WXK_PAGEUP);
  EXPECT_EQ(Value(4), before + 10 * 5);
  EXPECT_EQ(Focused(), "CmdDec(4)");
  editor.Play("click MnuUndo\n");
  EXPECT_EQ(Value(4), before + 5 * 5);
  editor.Play("click MnuUndo\n");
  EXPECT_EQ(Value(4), before);
  EXPECT_EQ(UndoText(), "");
  Focus("CmdInc(4)");
  (void)Key(WXK_PAGEDOWN);
  EXPECT_EQ(Value(4), before - 5 * 5);
}

TEST_F(RowKeys, APageOfStepsEndsAtTheLimit)
{
  StartWithFocus("CmdInc(8)");
  (void)Key(WXK_PAGEUP);
  EXPECT_EQ(Value(8), 5);
  editor.Play("click MnuUndo\n");
  EXPECT_EQ(UndoText(), "");
  (void)Key(WXK_PAGEDOWN);
  EXPECT_EQ(Value(8), 1);
}

TEST_F(RowKeys, AHeldPageKeyIsUndoneAtOnce)
{
  StartWithFocus("CmdInc(4)");
  const float before = Value(4);
  user_.KeyDown(WXK_PAGEUP);
  EXPECT_TRUE(WaitUntil([&] { return Value(4) >= before + 15 * 5; }, 10000));
  user_.KeyUp(WXK_PAGEUP);
  LetTimePass(200);
  ExpectOneUndo(before);
}

TEST_F(RowKeys, TheSpaceBarStepsOnce)
{
  StartWithFocus("CmdInc(4)");
  const float before = Value(4);
  for (int press = 1; press <= 3; ++press) {
    (void)Key(WXK_SPACE);
    EXPECT_EQ(Value(4), before + static_cast<float>(5 * press));
  }
  LetTimePass(500);
  EXPECT_EQ(Value(4), before + 15);
  editor.Play("click MnuUndo\n");
  EXPECT_EQ(Value(4), before + 10);
}

TEST_F(RowKeys, AHeldSpaceBarStepsAsOftenAsAHeldButtonAndIsUndoneAtOnce)
{
  StartWithFocus("CmdInc(4)");
  editor.Play("check FineCheck\n");
  Focus("CmdInc(4)");
  const float before = Value(4);
  user_.KeyDown(WXK_SPACE);
  EXPECT_TRUE(WaitUntil([&] { return Value(4) >= before + 2; }));
  const wxStopWatch watch;
  EXPECT_TRUE(WaitUntil([&] { return Value(4) >= before + 22; }));
  EXPECT_LT(watch.Time(), 1800);  // twenty steps, of which the system's own press makes seven
  user_.KeyUp(WXK_SPACE);
  LetTimePass(200);
  const float released = Value(4);
  LetTimePass(300);
  EXPECT_EQ(Value(4), released);
  ExpectOneUndo(before);
}

TEST_F(RowKeys, AHeldSpaceBarEndsWhereTheFocusGoes)
{
  StartWithFocus("CmdInc(4)");
  const float before = Value(4);
  user_.KeyDown(WXK_SPACE);
  EXPECT_TRUE(WaitUntil([&] { return Value(4) >= before + 10; }));
  Widget("CmdInc(8)")->SetFocus();
  LetTimePass(100);
  const float left = Value(4);
  LetTimePass(300);
  EXPECT_EQ(Value(4), left);
  user_.KeyUp(WXK_SPACE);
  LetTimePass(300);
}

TEST_F(RowKeys, TheFocusGoesToTheNearestControlOfTheFrameWhenItsOwnIsHidden)
{
  StartWithFocus("AsymmetricCheck");
  editor.Play("select Combo2 \"GT\"\n");
  LetTimePass(100);
  ASSERT_FALSE(Widget("AsymmetricCheck")->IsShown());
  EXPECT_EQ(Focused(), "SpringStiffnessProportional");
}

TEST_F(RowKeys, OtherKeysWithControlAreLeftToOthers)
{
  StartWithFocus("CmdInc(4)");
  wxKeyEvent key(wxEVT_CHAR_HOOK);
  key.SetEventObject(Widget("CmdInc(4)"));
  key.SetControlDown(true);
  key.m_keyCode = 'S';
  Frame().ProcessWindowEvent(key);
  EXPECT_TRUE(key.GetSkipped());
  key.Skip(false);
  key.m_keyCode = '1';
  Frame().ProcessWindowEvent(key);
  EXPECT_FALSE(key.GetSkipped());
}

TEST_F(RowKeys, TheFocusGoesToTheNearestControlOfAllWhenItsFrameIsHidden)
{
  StartWithFocus("CmdInc(4)");
  editor.Play("select Combo2 \"1969\"\n");
  Focus("CmdInc(33)");
  editor.Play("select Combo2 \"1967\"\n");
  LetTimePass(100);
  ASSERT_FALSE(Widget("CmdInc(33)")->IsShownOnScreen());
  EXPECT_EQ(Focused(), "CmdDec(29)");
}

TEST_F(RowKeys, TheFocusStaysWhereItIsWhenSomethingElseIsHidden)
{
  StartWithFocus("AsymmetricCheck");
  Focus("Combo2");
  editor.Play("select Combo2 \"GT\"\n");
  LetTimePass(100);
  EXPECT_EQ(Focused(), "Combo2");
}

}  // namespace
}  // namespace velquist::testing
