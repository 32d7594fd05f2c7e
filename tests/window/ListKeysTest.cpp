// SPDX-License-Identifier: MIT
// What the keyboard and the wheel do to the lists.
#include <gtk/gtk.h>
#include <wx/choice.h>
#include <wx/uiaction.h>

#include <ctime>
#include <initializer_list>
#include <string>

#include "NativeBox.h"
#include "RealWindow.h"
#include "platform_wx/NativeLook.h"
#include "setup/SlotTable.h"

namespace velquist::testing {
namespace {

class ListsByKey : public RealWindow {
 protected:
  /// With a change that is not saved, which a choice of year or installation would drop.
  void StartWithAChange()
  {
    Start();
    editor.Play("click CmdInc(4)\nexpect changed\n");
    rate_ = Rate();
    Frame().Raise();
    LetTimePass(300);
  }
  [[nodiscard]] float Rate() const { return editor.Window().Car().Value(setup::kWheelRate); }
  [[nodiscard]] bool ChangeIsThere() const
  {
    return Rate() == rate_ && editor.Window().Car().Changed();
  }
  [[nodiscard]] wxChoice& List(const char* name) const
  {
    return *static_cast<wxChoice*>(Widget(name));
  }
  [[nodiscard]] bool IsOpen(const char* name) const
  {
    gboolean shown = FALSE;
    g_object_get(List(name).GetHandle(), "popup-shown", &shown, nullptr);
    return shown != FALSE;
  }
  void Focus(const char* name)
  {
    List(name).SetFocus();
    LetTimePass(100);
  }
  void Press(int key)
  {
    user_.Char(key);
    LetTimePass(150);
  }
  void Type(const char* letters)
  {
    for (; *letters != '\0'; ++letters) {
      user_.Char(*letters);
      LetTimePass(20);
    }
    LetTimePass(100);
  }
  void Close(const char* name)
  {
    Press(WXK_ESCAPE);
    EXPECT_TRUE(WaitUntil([&] { return !IsOpen(name); }));
  }

  wxUIActionSimulator user_;
  float rate_ = 0;
};

TEST_F(ListsByKey, TheFocusIsOnAStepButtonAtStart)
{
  Start();
  Frame().Raise();
  EXPECT_TRUE(WaitUntil([&] { return Widget("CmdDec(0)")->HasFocus(); }));
}

TEST_F(ListsByKey, KeysOpenTheListsThatWouldDropTheSetupAndEscapeChoosesNothing)
{
  StartWithAChange();
  for (const char* const list : {"Combo2", "Combo7"})
    for (const int key : {WXK_DOWN + 0, WXK_UP + 0, WXK_LEFT + 0, WXK_RIGHT + 0, WXK_PAGEDOWN + 0,
                          WXK_PAGEUP + 0, WXK_HOME + 0, WXK_END + 0, WXK_RETURN + 0, int{'1'}}) {
      SCOPED_TRACE(std::string(list) + " " + std::to_string(key));
      Focus(list);
      Press(key);
      EXPECT_TRUE(WaitUntil([&] { return IsOpen(list); }, 1000));
      EXPECT_TRUE(ChangeIsThere());
      Close(list);
      EXPECT_TRUE(ChangeIsThere());
    }
}

TEST_F(ListsByKey, TheWheelChoosesNothing)
{
  StartWithAChange();
  for (const char* const name : {"Combo2", "Combo7", "Combo3"}) {
    const auto at = List(name).GetScreenRect();
    const int chosen = List(name).GetSelection();
    user_.MouseMove(at.x + at.width / 2, at.y + at.height / 2);
    LetTimePass(100);
    GdkEvent* const turn = gdk_event_new(GDK_SCROLL);
    turn->scroll.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(List(name).GetHandle())));
    turn->scroll.direction = GDK_SCROLL_DOWN;
    gdk_event_set_device(
        turn, gdk_seat_get_pointer(gdk_display_get_default_seat(gdk_display_get_default())));
    gtk_widget_event(List(name).GetHandle(), turn);
    gdk_event_free(turn);
    LetTimePass(100);
    EXPECT_EQ(List(name).GetSelection(), chosen) << name;
  }
  EXPECT_TRUE(ChangeIsThere());
}

TEST_F(ListsByKey, TakingTheChosenYearAgainWithAKeyIsNoChoice)
{
  StartWithAChange();
  for (const char* const list : {"Combo2", "Combo7"}) {
    Focus(list);
    Press(WXK_RETURN);
    EXPECT_TRUE(WaitUntil([&] { return IsOpen(list); }, 1000));
    Press(WXK_RETURN);
    EXPECT_TRUE(WaitUntil([&] { return !IsOpen(list); }, 1000));
    LetTimePass(200);
    EXPECT_TRUE(ChangeIsThere()) << list;
  }
}

TEST_F(ListsByKey, TakingTheChosenYearAgainWithTheMouseDropsTheChanges)
{
  StartWithAChange();
  const auto at = Widget("Combo2")->GetScreenRect();
  user_.MouseMove(at.x + at.width / 2, at.y + at.height / 2);
  LetTimePass(100);
  user_.MouseClick();
  EXPECT_TRUE(WaitUntil([&] { return IsOpen("Combo2"); }, 1000));
  LetTimePass(700);    // a quick second press counts as the first one's
  user_.MouseClick();  // the chosen item lies over the list
  EXPECT_TRUE(WaitUntil([&] { return !editor.Window().Car().Changed(); }));
}

TEST_F(ListsByKey, AnotherYearIsChosenInTheOpenList)
{
  StartWithAChange();
  EXPECT_EQ(List("Combo2").GetStringSelection(), "1967");
  Focus("Combo2");
  Press(WXK_DOWN);
  EXPECT_TRUE(WaitUntil([&] { return IsOpen("Combo2"); }, 1000));
  Press(WXK_DOWN);
  Press(WXK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return List("Combo2").GetStringSelection() == "1969"; }));
  EXPECT_TRUE(WaitUntil([&] { return !editor.Window().Car().Changed(); }));
}

TEST_F(ListsByKey, WhatIsTypedIsFoundInTheOpenList)
{
  StartWithAChange();
  Focus("Combo2");
  Type("1966");
  EXPECT_TRUE(IsOpen("Combo2"));
  EXPECT_TRUE(ChangeIsThere());
  Press(WXK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return List("Combo2").GetStringSelection() == "1966"; }));
}

TEST_F(ListsByKey, ALetterTypedAgainIsFoundFurtherOnInTheOpenList)
{
  StartWithAChange();
  Focus("Combo2");
  auto& list = List("Combo2");
  const auto count = list.GetCount();
  auto at = static_cast<unsigned>(list.GetSelection());
  for (int time = 0; time < 2; ++time) do
      at = (at + 1) % count;
    while (!list.GetString(at).StartsWith("1"));
  Type("11");
  Press(WXK_RETURN);
  EXPECT_TRUE(WaitUntil([&] { return list.GetSelection() == static_cast<int>(at); }))
      << list.GetStringSelection() << " is not " << list.GetString(at);
}

TEST_F(ListsByKey, WhatIsTypedIsChosenFromTheOtherLists)
{
  editor.Play(
      "dir $G/Players/Jim/Setups/kyalami\ndir $G/Players/Jim/Setups/mexico\n"
      "dir $G/Players/Jim/Setups/mosport\n");
  Start();
  Frame().Raise();
  LetTimePass(300);
  editor.Play("select Combo4 \"Jim\"\nselect Combo5 \"kyalami\"\n");
  Focus("Combo5");
  Type("mon");
  editor.Play("expect Combo5 \"monza\"\n");
  EXPECT_EQ(editor.Window().Form().Combo5.text, "monza");
  LetTimePass(1100);
  Type("m");
  editor.Play("expect Combo5 \"mosport\"\n");
  LetTimePass(1100);
  Type("mm");
  editor.Play("expect Combo5 \"monza\"\n");
  LetTimePass(1100);
  Type("x");
  editor.Play("expect Combo5 \"monza\"\n");
}

TEST_F(ListsByKey, ThreeThousandInstallationsOpenAtOnceByKeyAndMouse)
{
  constexpr int kMany = 3000;
  StartWithAChange();
  auto& list = List("Combo7");
  wxArrayString items;
  for (int i = 0; i < kMany; ++i) items.Add(wxString::Format("/games/installation %d/GPL", i));
  platform::SetItems(list, items);
  list.SetSelection(7);
  int chosen = -1;
  list.Bind(wxEVT_CHOICE, [&](wxCommandEvent& event) { chosen = event.GetInt(); });
  const auto answer = [&](std::initializer_list<int> keys, const auto& open) {
    const AtNativeBox at_window([&](GtkWidget* box) {
      EXPECT_STREQ(gtk_window_get_title(GTK_WINDOW(box)), "Game installation");
      for (const int key : keys) user_.Char(key);
    });
    open();
    LetTimePass(500);
  };
  const auto by_key = [&](int key) {
    return [this, key] {
      Focus("Combo7");
      Press(key);
    };
  };
  for (const int key : {WXK_RETURN + 0, WXK_DOWN + 0, WXK_SPACE + 0})
    answer({WXK_ESCAPE}, by_key(key));
  answer({WXK_ESCAPE}, [&] {
    const auto at = list.GetScreenRect();
    user_.MouseMove(at.x + at.width / 2, at.y + at.height / 2);
    LetTimePass(100);
    user_.MouseClick();
  });
  answer({WXK_RETURN}, by_key(WXK_RETURN));  // the one that is chosen
  EXPECT_EQ(list.GetSelection(), 7);
  EXPECT_EQ(chosen, -1);
  answer({WXK_END, WXK_RETURN}, by_key(WXK_RETURN));
  EXPECT_TRUE(WaitUntil([&] { return chosen == kMany - 1; })) << chosen;
  EXPECT_EQ(list.GetSelection(), kMany - 1);

  const auto seconds = [](const auto& open) {
    const auto begin = std::clock();
    open();
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
  };
  const double many = seconds([&] { answer({WXK_ESCAPE}, by_key(WXK_RETURN)); });
  items.resize(3);
  platform::SetItems(list, items);
  const double three = seconds([&] {
    by_key(WXK_RETURN)();
    LetTimePass(500);
    Close("Combo7");
  });
  EXPECT_LT(many, three + 0.5);
}

}  // namespace
}  // namespace velquist::testing
