// SPDX-License-Identifier: MIT
// The window of the library: what it opens, and the scan beneath it.
#include <filesystem>

#include "LibraryWindow.h"

namespace velquist::testing {
namespace {

TEST_F(LibraryWindow, OpensByADoubleClick)
{
  StartWithSetups();
  Open();
  Choose(1);
  wxDataViewEvent event(wxEVT_DATAVIEW_ITEM_ACTIVATED, &Table(), Table().GetSelection());
  Table().ProcessWindowEvent(event);
  editor.Play("expect Label4 b.lp2\nexpect unchanged\n");
  EXPECT_TRUE(IsOpen());
}

TEST_F(LibraryWindow, AsksBeforeItDropsChanges)
{
  StartWithSetups();
  Open();
  editor.Play(
      "library open $G/Players/Jim/Setups/monza/a.lp1\nclick CmdInc(30)\n"
      "on message \"Do you want to save the current settings first?\" question -> no\n"
      "library open $G/Players/Jim/Setups/monza/b.lp2\nexpect Label4 b.lp2\nexpect unchanged\n");
  EXPECT_EQ(Chosen(), "b.lp2");
}

TEST_F(LibraryWindow, StaysWithTheSetupWhenTheChangesCannotBeSaved)
{
  StartWithSetups();
  Open();
  editor.Play(
      "library open $G/Players/Jim/Setups/monza/a.lp1\nclick CmdInc(30)\n"
      "remove $G/Players/Jim/Setups\n"
      "setup $G/Players/Ann/Setups/spa/b.lp2 long" +
      std::string(kSetupValues) +
      "on message \"Do you want to save the current settings first?\" question -> yes\n"
      "on message \"The setup was not saved.\\n$G/Players/Jim/setups/monza/a.lp1\\nThe folder is "
      "gone.\" exclamation -> ok\n"
      "library open $G/Players/Ann/Setups/spa/b.lp2\nexpect Label4 a.lp1\nexpect changed\n");
}

TEST_F(LibraryWindow, StaysWithTheSetupWhenTheFileHasVanished)
{
  StartWithSetups();
  Open();
  editor.Play("library open $G/Players/Jim/Setups/monza/a.lp1\n");
  Choose(1);
  std::filesystem::remove(editor.Path("$G/Players/Jim/Setups/monza/b.lp2"));
  LetTimePass(30);
  Refocus();
  EXPECT_EQ(Files(), (Texts{"a.lp1", "c.lq1"}));
  EXPECT_EQ(Chosen(), "");
}

TEST_F(LibraryWindow, NoticesFilesThatComeAndGoAtTheFocus)
{
  StartWithSetups();
  Open();
  Choose(2);
  Put("b2.lp1");
  editor.Play("remove $G/Players/Jim/Setups/monza/a.lp1\n");
  EXPECT_EQ(Files(), (Texts{"a.lp1", "b.lp2", "c.lq1"}));
  Refocus();
  EXPECT_EQ(Files(), (Texts{"b.lp2", "b2.lp1", "c.lq1"}));
  EXPECT_EQ(Chosen(), "c.lq1");
  EXPECT_EQ(Label("DifferenceCount").substr(Label("DifferenceCount").size() - 5), "c.lq1");
}

/// The lines that a model says have changed.
class ChangedLines final : public wxDataViewModelNotifier {
 public:
  explicit ChangedLines(std::vector<wxDataViewItem>& items) : items_(items) {}

  bool ItemAdded(const wxDataViewItem&, const wxDataViewItem&) override { return true; }
  bool ItemDeleted(const wxDataViewItem&, const wxDataViewItem&) override { return true; }
  bool ItemChanged(const wxDataViewItem& item) override
  {
    items_.push_back(item);
    return true;
  }
  bool ValueChanged(const wxDataViewItem&, unsigned) override { return true; }
  bool Cleared() override { return true; }
  void Resort() override {}

 private:
  std::vector<wxDataViewItem>& items_;
};

TEST_F(LibraryWindow, ShowsALineAnewWhoseFileHasChanged)
{
  const Texts names = {"a.lp1", "b.lp2", "c.lq1"};
  StartWithSetups(names);
  Open();
  std::vector<wxDataViewItem> changed;
  Table().GetModel()->AddNotifier(new ChangedLines(changed));  // which it deletes
  for (unsigned line = 0; line < names.size(); ++line) {
    editor.Play("remove $G/Players/Jim/Setups/monza/" + names[line] + "\n");
    Put(names[line], " 0=25");
    Refocus();
    ASSERT_EQ(changed.size(), 1U) << names[line];
    EXPECT_EQ(Lines("Setups").GetRow(changed.front()), line);
    changed.clear();
  }
}

TEST_F(LibraryWindow, ScansAgainWhenAnInstallationIsAdded)
{
  StartWithSetups();
  editor.Play("setup $T/Second/Players/Ann/Setups/spa/x.lp1 long" + std::string(kSetupValues) +
              "file $T/Second/gpl_ai.ini text \"\"\nfile $T/Second/gpl.exe text \"\"\n");
  Open();
  EXPECT_EQ(Files().size(), 3U);
  editor.Play("on open -> $T/Second/gpl.exe\nclick MnuAddInstall\n");
  EXPECT_TRUE(WaitUntil([] { return Files().size() == 4; }));
  EXPECT_TRUE(Label("Progress").starts_with("4 setups in 2 installations"));
}

TEST_F(LibraryWindow, ScansThoughNoOtherWindowOfTheProgramDoesAnythingWhenItIsIdle)
{
  wxIdleEvent::SetMode(wxIDLE_PROCESS_SPECIFIED);
  StartWithSetups();
  editor.Play("click MnuLibrary\n");
  EXPECT_TRUE(WaitUntil([] { return Files().size() == 3; }));
  wxIdleEvent::SetMode(wxIDLE_PROCESS_ALL);
}

TEST_F(LibraryWindow, StopsByEscapeFirstAndClosesThen)
{
  StartWithSetups();
  Open();
  Activate();
  Library().Library().Scan();
  ASSERT_TRUE(Library().Library().IsScanning());
  const auto escape = [] {
    wxKeyEvent event(wxEVT_CHAR_HOOK);
    event.m_keyCode = WXK_ESCAPE;
    event.SetEventObject(&Library());
    Library().ProcessWindowEvent(event);
  };
  escape();
  EXPECT_FALSE(Library().Library().IsScanning());
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Label("Progress"), "Stopped: 3 setups, there may be more");
  // What was stopped is not begun again unasked.
  Put("d.lp1");
  Refocus();
  EXPECT_EQ(Files().size(), 3U);
  Key(WXK_F5);
  EXPECT_TRUE(WaitUntil([] { return Files().size() == 4; }));
  escape();
  EXPECT_TRUE(WaitUntil([] { return !IsOpen(); }));
}

TEST_F(LibraryWindow, LeavesNothingGoingOnWhenItIsClosed)
{
  Texts names;
  for (int number = 0; number < 300; ++number) names.push_back(std::to_string(number) + ".lp1");
  StartWithSetups(names);
  Open();
  Library().Library().Scan();
  Library().Close();
  ASSERT_TRUE(WaitUntil([] { return !IsOpen(); }));
  EXPECT_FALSE(Library().Library().IsScanning());
  Put("new.lp1");
  LetTimePass(100);
  EXPECT_EQ(Library().Library().Table().RowCount(), 300U);
  Open();
  EXPECT_EQ(Files().size(), 301U);
}

TEST_F(LibraryWindow, ChangesNothingByBeingOpen)
{
  StartWithSetups();
  editor.Play("click CmdInc(4)\n");
  const auto before = editor.Everything(WithBuffer::kYes);
  Open();
  Choose(1);
  Filter("b");
  Library().Close();
  LetTimePass(50);
  EXPECT_EQ(editor.Everything(WithBuffer::kYes), before);
}

}  // namespace
}  // namespace velquist::testing
