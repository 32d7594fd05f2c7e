// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <string>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

class ValueFields : public RealWindow {
 protected:
  void StartWithFocus(const char* name)
  {
    Start();
    Frame().Raise();
    LetTimePass(300);
    Widget(name)->SetFocus();
    EXPECT_TRUE(WaitUntil([&] { return wxWindow::FindFocus() == Widget(name); }));
  }
  void Key(int key)
  {
    user_.Char(key);
    LetTimePass(60);
  }
  void Keys(const std::string& characters)
  {
    for (const char each : characters) Key(each);
  }
  /// Opens the field from the button that has the focus.
  void Open()
  {
    Key(WXK_RETURN);
    EXPECT_TRUE(WaitUntil([&] { return IsOpen() && Number().HasFocus(); }));
  }
  [[nodiscard]] bool IsOpen() const
  {
    return Widget("Typing") != nullptr && Widget("Typing")->IsShownOnScreen();
  }
  [[nodiscard]] wxTextCtrl& Number() const { return dynamic_cast<wxTextCtrl&>(*Widget("Typed")); }
  [[nodiscard]] std::string Range() const
  {
    return dynamic_cast<wxStaticText&>(*Widget("TypedRange")).GetLabelText().utf8_string();
  }
  [[nodiscard]] bool RangeIsSetOff() const
  {
    return Widget("TypedRange")->GetFont().GetWeight() >= wxFONTWEIGHT_BOLD;
  }
  [[nodiscard]] bool HasFocus(const char* name) const
  {
    return wxWindow::FindFocus() == Widget(name);
  }
  [[nodiscard]] float Value(int slot) const { return editor.Window().Car().Value(slot); }
  void DoubleClick(const char* name)
  {
    const auto at = Widget(name)->GetScreenRect();
    user_.MouseMove(at.x + at.width / 2, at.y + at.height / 2);
    LetTimePass(50);
    user_.MouseDblClick();
    LetTimePass(150);
  }

  wxUIActionSimulator user_;
};

TEST_F(ValueFields, EnterOpensTheFieldWhatIsTypedIsTakenAndTheFocusGoesBack)
{
  StartWithFocus("CmdDec(5)");
  Open();
  EXPECT_EQ(Number().GetValue(), "90");
  EXPECT_EQ(Number().GetStringSelection(), "90");
  EXPECT_EQ(Range(), "From 40 to 300 lbs/in.");
  EXPECT_FALSE(RangeIsSetOff());
  EXPECT_TRUE(
      Widget("CmdInc(4)")->GetParent()->GetClientRect().Contains(Widget("Typing")->GetRect()));
  Keys("123");
  Key(WXK_RETURN);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Value(5), 123);
  EXPECT_EQ(Value(4), 123);
  EXPECT_EQ(Widget("Label1(5)")->GetLabel(), "123");
  EXPECT_TRUE(HasFocus("CmdDec(5)"));
  Key(WXK_SPACE);
  EXPECT_EQ(Value(5), 118);
}

TEST_F(ValueFields, EscapeLeavesTheValueAsItWas)
{
  StartWithFocus("CmdInc(4)");
  Open();
  Keys("123");
  Key(WXK_ESCAPE);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Value(4), 90);
  EXPECT_FALSE(editor.Window().Car().Changed());
  EXPECT_TRUE(HasFocus("CmdInc(4)"));
  EXPECT_TRUE(Frame().IsShown());
}

TEST_F(ValueFields, ARefusedNumberStaysWithTheRangeSetOffUntilItIsRight)
{
  StartWithFocus("CmdInc(0)");
  Open();
  Keys("99");
  Key(WXK_RETURN);
  ASSERT_TRUE(IsOpen());
  EXPECT_EQ(Range(), "From 12 to 40 psi.");
  EXPECT_TRUE(RangeIsSetOff());
  EXPECT_EQ(Value(0), 22);
  EXPECT_TRUE(Number().HasFocus());
  EXPECT_EQ(Number().GetStringSelection(), "99");
  Keys("23,5");  // in the place of what is selected
  Key(WXK_RETURN);
  EXPECT_FALSE(IsOpen());
  EXPECT_NEAR(Value(0), 23.5, 0.001);
  Key(WXK_RETURN);
  EXPECT_FALSE(RangeIsSetOff());
  EXPECT_EQ(Number().GetValue(), "23.5");
}

TEST_F(ValueFields, ADoubleClickOnAValueOpensTheField)
{
  StartWithFocus("CmdInc(0)");
  DoubleClick("Label1(30)");
  ASSERT_TRUE(IsOpen());
  EXPECT_EQ(Range(), "From 1 to 60 gals.");
  Keys("7");
  Key(WXK_RETURN);
  EXPECT_EQ(Value(30), 7);
  EXPECT_TRUE(HasFocus("CmdDec(30)") || HasFocus("CmdInc(30)"));
}

TEST_F(ValueFields, TheFieldClosesWhenTheFocusGoesElsewhere)
{
  StartWithFocus("CmdInc(4)");
  Open();
  Keys("123");
  Widget("FineCheck")->SetFocus();
  EXPECT_TRUE(WaitUntil([&] { return !IsOpen(); }));
  EXPECT_TRUE(HasFocus("FineCheck"));
  EXPECT_EQ(Value(4), 90);
}

TEST_F(ValueFields, AnotherFieldTakesTheFirstOnesPlace)
{
  StartWithFocus("CmdInc(4)");
  Open();
  DoubleClick("Label1(28)");
  ASSERT_TRUE(IsOpen());
  EXPECT_TRUE(WaitUntil([&] { return Number().HasFocus(); }));
  EXPECT_EQ(Range(), "From 2.5 to 7 in.");
  EXPECT_EQ(Number().GetValue(), "3.25");
}

TEST_F(ValueFields, AGearIsTypedByItsRatio)
{
  StartWithFocus("CmdDec(43)");
  Open();
  EXPECT_EQ(Number().GetValue(), "1.833");
  EXPECT_EQ(Range(), "From 0.690 to 2.923.");
  Keys("1.7");
  Key(WXK_RETURN);
  EXPECT_EQ(Widget("Label1(43)")->GetLabel(), "32/19");
}

TEST_F(ValueFields, NothingShowsThroughIt)
{
  StartWithFocus("CmdDec(4)");
  Open();
  LetTimePass(200);
  const wxRect margin(Widget("TypedRange")->GetRect().x - 3, Widget("TypedRange")->GetRect().y, 3,
                      Widget("TypedRange")->GetRect().height);
  const auto pixels = Pixels("Typing");
  const int width = Widget("Typing")->GetClientSize().x;
  const auto at = [&](int x, int y) {
    const auto first = pixels.begin() + 3 * (y * width + x);
    return std::vector<unsigned char>(first, first + 3);
  };
  const auto colour = Widget("Typing")->GetBackgroundColour();
  const std::vector<unsigned char> expected = {colour.Red(), colour.Green(), colour.Blue()};
  for (int x = margin.x; x < margin.GetRight(); ++x)  // over the buttons of the next row
    for (int y = margin.y; y < margin.GetBottom(); ++y) EXPECT_EQ(at(x, y), expected) << x << y;
}

TEST_F(ValueFields, OnASmallScreenItIsNoLargerThanTheValueAndItsRangeNeed)
{
  Start({800, 600});
  Frame().Raise();
  LetTimePass(300);
  Widget("CmdDec(8)")->SetFocus();
  Open();
  ASSERT_EQ(Range(), "From 1 to 5.");
  const wxRect value = Widget("Label1(8)")->GetRect();
  const wxRect field = Widget("Typing")->GetRect();
  EXPECT_LE(Number().GetSize().y, value.height + 1);
  EXPECT_LE(field.height, 5 * value.height / 2);
  EXPECT_LE(field.width,
            Widget("CmdInc(8)")->GetRect().GetRight() - Widget("CmdDec(8)")->GetRect().x);
  EXPECT_TRUE(Widget("Frame1(1)")->GetRect().Contains(field));
  EXPECT_LE(Number().GetTextExtent("0").y, Number().GetSize().y);
}

TEST_F(ValueFields, AnotherSizeOfTheWindowMovesTheFieldWithItsValue)
{
  StartWithFocus("CmdDec(8)");
  Open();
  const int before = Number().GetSize().y;
  Frame().SetClientSize(Frame().GetClientSize() * 0.7);
  EXPECT_TRUE(WaitUntil([&] {
    return Widget("Typing")->GetRect().Intersects(Widget("Label1(8)")->GetRect()) &&
           Number().GetSize().y < before;
  }));
  EXPECT_TRUE(IsOpen());
}

TEST_F(ValueFields, AScreenReaderIsToldTheValueAndTheRange)
{
  StartWithFocus("CmdDec(4)");
  Open();
  AtkObject* const spoken = gtk_widget_get_accessible(Number().GetHandle());
  EXPECT_STREQ(atk_object_get_name(spoken), "Left front wheel rate");
  EXPECT_STREQ(atk_object_get_description(spoken), "From 40 to 300 lbs/in.");
}

}  // namespace
}  // namespace velquist::testing
