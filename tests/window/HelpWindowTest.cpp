// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include <algorithm>
#include <string>
#include <vector>

#include "RealWindow.h"
#include "platform/EmbeddedResources.h"
#include "platform_wx/WxText.h"
#include "ui/FrmHelp.h"
#include "ui/ProgramDialogs.h"

namespace velquist::testing {
namespace {

class HelpWindow : public ::testing::Test {
 protected:
  HelpWindow() : help_(new ui::FrmHelp(nullptr, manual_))
  {
    help_->Show();
    LetTimePass(100);
  }
  ~HelpWindow() override
  {
    if (help_) help_->Destroy();
    LetTimePass(20);
  }

  [[nodiscard]] wxTextCtrl& Text() const
  {
    return *static_cast<wxTextCtrl*>(wxWindow::FindWindowByName("Text1", help_));
  }

  /// Where the words stand first.
  [[nodiscard]] long PositionOf(std::string_view words) const
  {
    const auto at = Text().GetValue().find(platform::FromText(words));
    EXPECT_NE(at, wxString::npos) << words;
    return static_cast<long>(at);
  }

  void Press(int key, int modifiers = wxMOD_NONE)
  {
    wxKeyEvent press(wxEVT_CHAR_HOOK);
    press.m_keyCode = key;
    press.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
    press.SetShiftDown((modifiers & wxMOD_SHIFT) != 0);
    help_->ProcessWindowEvent(press);
  }
  /// Opens the bar and types.
  void LookFor(const wxString& text)
  {
    Press('F', wxMOD_CONTROL);
    Wanted().SetValue(text);
  }
  [[nodiscard]] wxTextCtrl& Wanted() const
  {
    return *static_cast<wxTextCtrl*>(wxWindow::FindWindowByName("FindText", help_));
  }
  [[nodiscard]] wxString Result() const
  {
    return wxWindow::FindWindowByName("FindResult", help_)->GetLabel();
  }
  /// Where the selected text begins, which must be as long as what is looked for.
  [[nodiscard]] long Found() const
  {
    long from = 0;
    long to = 0;
    Text().GetSelection(&from, &to);
    EXPECT_EQ(to - from, static_cast<long>(Wanted().GetValue().length()));
    return from;
  }
  /// Where `text` stands in the manual, whatever its letter case.
  [[nodiscard]] std::vector<long> Places(const wxString& text) const
  {
    std::vector<long> places;
    const wxString manual = Text().GetValue().Lower();
    for (auto at = manual.find(text.Lower()); at != wxString::npos;
         at = manual.find(text.Lower(), at + 1))
      places.push_back(static_cast<long>(at));
    return places;
  }

  std::string manual_ = platform::EmbeddedResources().Help();
  wxWeakRef<ui::FrmHelp> help_;
};

TEST_F(HelpWindow, ShowsTheWholeManualFromItsFirstLine)
{
  // The toolkits keep line ends in ways of their own.
  auto shown = platform::ToText(Text().GetValue());
  auto expected = manual_;
  std::erase(shown, '\r');
  std::erase(expected, '\r');
  EXPECT_EQ(shown, expected);
  EXPECT_EQ(Text().GetInsertionPoint(), 0);
  EXPECT_TRUE(Text().IsShown());
  EXPECT_FALSE(Text().IsEditable());
}

TEST_F(HelpWindow, HasBoldHeadings)
{
  const auto is_bold = [&](std::string_view words) {
    wxTextAttr style;
    EXPECT_TRUE(Text().GetStyle(PositionOf(words), style)) << words;
    return style.HasFontWeight() && style.GetFontWeight() >= wxFONTWEIGHT_BOLD;
  };
  EXPECT_TRUE(is_bold("Velquist User Manual"));
  EXPECT_TRUE(is_bold("FIRST START"));
  EXPECT_FALSE(is_bold("The first time, Velquist asks"));
  EXPECT_FALSE(is_bold("Install Directory"));
}

TEST_F(HelpWindow, LetsTheLinesOfAnItemBeginBelowEachOther)
{
  const auto first = PositionOf("The game installation you");
  const auto begin = Text().PositionToCoords(first);
  auto next = begin;
  for (auto at = first; next.y == begin.y; ++at) next = Text().PositionToCoords(at);
  EXPECT_NEAR(next.x, begin.x, 2);
  EXPECT_GT(begin.x, Text().PositionToCoords(PositionOf("Install Directory\t")).x);
  // Terms of whatever length share one column.
  EXPECT_NEAR(Text().PositionToCoords(PositionOf("First start, Your first")).x, begin.x, 2);
}

TEST(Help, AskedForAgainIsTheSameWindow)
{
  const auto windows = [] {
    return std::ranges::count_if(wxTopLevelWindows, [](const wxWindow* window) {
      return window->GetName() == "FrmHelp" && !window->IsBeingDeleted();
    });
  };
  const platform::EmbeddedResources resources;
  ui::ProgramDialogs dialogs(resources);
  for (int time = 0; time < 2; ++time) {
    dialogs.ShowHelp();
    LetTimePass(100);
    EXPECT_EQ(windows(), 1);
  }
  wxWindow::FindWindowByName("FrmHelp")->Close();
  LetTimePass(100);
  EXPECT_EQ(windows(), 0);
  dialogs.ShowHelp();
  LetTimePass(100);
  EXPECT_EQ(windows(), 1);
  wxWindow::FindWindowByName("FrmHelp")->Close();
  LetTimePass(100);
}

TEST_F(HelpWindow, SearchGoesOnBehindTheLastPlaceWithTheFirst)
{
  const auto places = Places("differential");
  ASSERT_GE(places.size(), 2U);
  LookFor("DiffeRential");
  for (const long place : places) {
    Press(WXK_F3);
    EXPECT_EQ(Found(), place);
  }
  Press(WXK_F3);
  EXPECT_EQ(Found(), places.front());
  EXPECT_EQ(Result(), "");
}

TEST_F(HelpWindow, SearchWithShiftGoesBackAndOnBeforeTheFirstPlaceWithTheLast)
{
  const auto places = Places("differential");
  ASSERT_GE(places.size(), 2U);
  LookFor("differential");
  Press(WXK_F3);
  ASSERT_EQ(Found(), places.front());
  for (auto place = places.rbegin(); place != places.rend(); ++place) {
    Press(WXK_F3, wxMOD_SHIFT);
    EXPECT_EQ(Found(), *place);
  }
}

TEST_F(HelpWindow, SearchGoesOnWhereItWasWhenItsBarIsOpenedAgain)
{
  const auto places = Places("differential");
  ASSERT_GE(places.size(), 3U);
  LookFor("differential");
  LetTimePass(50);
  Press(WXK_F3);
  Press(WXK_ESCAPE);
  LetTimePass(50);
  Press('F', wxMOD_CONTROL);
  LetTimePass(50);
  Press(WXK_F3);
  EXPECT_EQ(Found(), places[1]);
  Press(WXK_F3);
  Press(WXK_ESCAPE);
  LetTimePass(50);
  Press('F', wxMOD_CONTROL);
  LetTimePass(50);
  Press(WXK_F3, wxMOD_SHIFT);
  EXPECT_EQ(Found(), places[1]);
}

TEST_F(HelpWindow, SearchFromAPlaceThatTheUserHasChosenFindsWhatBeginsThere)
{
  const auto places = Places("differential");
  ASSERT_GE(places.size(), 3U);
  LookFor("differential");
  Press(WXK_F3);
  Text().SetInsertionPoint(places[2]);
  Press(WXK_F3);
  EXPECT_EQ(Found(), places[2]);
}

TEST_F(HelpWindow, SearchSaysThatThereIsNoSuchPlaceAndStaysWhereItWas)
{
  LookFor("differential");
  Press(WXK_F3);
  const auto found = Text().GetStringSelection();
  const long place = Found();
  Wanted().SetValue("no such word in it");
  Press(WXK_F3);
  EXPECT_EQ(Result(), "Not found");
  EXPECT_EQ(Text().GetStringSelection(), found);
  Wanted().SetValue("differential");
  EXPECT_EQ(Found(), place);
  Press(WXK_F3);
  EXPECT_EQ(Result(), "");
}

TEST_F(HelpWindow, SearchIsOpenedByItsKeysAndClosedByEscapeWhichThenClosesTheWindow)
{
  EXPECT_FALSE(Wanted().GetParent()->IsShown());
  const int height = Text().GetSize().y;
  Press(WXK_F3);
  EXPECT_TRUE(Wanted().GetParent()->IsShown());
  EXPECT_LT(Text().GetSize().y, height);
  Press(WXK_ESCAPE);
  EXPECT_FALSE(Wanted().GetParent()->IsShown());
  EXPECT_EQ(Text().GetSize().y, height);
  Press('F', wxMOD_CONTROL);
  EXPECT_TRUE(Wanted().GetParent()->IsShown());
  Press(WXK_ESCAPE);
  Press(WXK_ESCAPE);
  EXPECT_TRUE(WaitUntil([&] { return !help_; }));
}

TEST_F(HelpWindow, KeepsItsProportionsWhenItIsResized)
{
  const wxSize before = help_->GetClientSize();
  const wxRect text = Text().GetRect();
  help_->SetClientSize(before.x * 3 / 4, before.y / 2);
  EXPECT_TRUE(WaitUntil([&] { return Text().GetSize().y <= text.height / 2 + 1; }));
  EXPECT_NEAR(Text().GetSize().x, text.width * 3 / 4, 1);
  EXPECT_NEAR(Text().GetSize().y, text.height / 2, 1);
  EXPECT_NEAR(Text().GetPosition().x, text.x * 3 / 4, 1);
  EXPECT_NEAR(Text().GetPosition().y, text.y / 2, 1);
}

TEST_F(HelpWindow, KeepsItsTextWithinTheSmallestWindow)
{
  const wxSize before = Text().GetSize();
  help_->SetClientSize(help_->GetMinClientSize());
  EXPECT_TRUE(WaitUntil(
      [&] { return Text().GetSize().x < before.x / 2 && Text().GetSize().y < before.y / 2; }));
  const wxRect client(Text().GetParent()->GetClientSize());
  EXPECT_TRUE(client.Contains(Text().GetRect()));
}

}  // namespace
}  // namespace velquist::testing
