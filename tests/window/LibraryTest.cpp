// SPDX-License-Identifier: MIT
// The window of the library: its table, what is done with a setup, and the scan beneath it.
#include <gtk/gtk.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dataview.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <filesystem>
#include <string>
#include <vector>

#include "RealWindow.h"
#include "platform_wx/WxText.h"
#include "ui/FrmLibrary.h"

namespace velquist::testing {
namespace {

using Texts = std::vector<std::string>;
using platform::FromText;

constexpr char kMonza[] = "$G/Players/Jim/Setups/monza/";
constexpr char kValues[] = " 48=80 49=45 50=60 51=3\n";

class LibraryWindow : public RealWindow {
 protected:
  /// Starts with a few setups of 1966, which the program asks nothing about.
  void StartWithSetups(const Texts& names = {"a.lp1", "b.lp2", "c.lq1"})
  {
    editor.Play("file $G/gpla66.ini text \"\"\n");
    for (const auto& name : names) Put(name);
    Start();
  }
  void Put(const std::string& name, const std::string& values = {})
  {
    editor.Play("setup " + (kMonza + name) + " long " + values + kValues);
  }
  void Open()
  {
    editor.Play("click MnuLibrary\n");
    ASSERT_TRUE(WaitUntil([&] { return IsOpen() && !Library().Library().IsBusy(); }));
    LetTimePass(50);
  }
  [[nodiscard]] static ui::FrmLibrary& Library()
  {
    return dynamic_cast<ui::FrmLibrary&>(*wxWindow::FindWindowByName("FrmLibrary"));
  }
  [[nodiscard]] static bool IsOpen()
  {
    const auto* const window = wxWindow::FindWindowByName("FrmLibrary");
    return window != nullptr && window->IsShown();
  }
  template <class Part = wxWindow>
  [[nodiscard]] static Part& PartOf(const char* name)
  {
    return dynamic_cast<Part&>(*wxWindow::FindWindowByName(name, &Library()));
  }
  [[nodiscard]] static wxDataViewCtrl& Table() { return PartOf<wxDataViewCtrl>("Setups"); }
  [[nodiscard]] static const wxDataViewVirtualListModel& Lines(const char* name)
  {
    return dynamic_cast<const wxDataViewVirtualListModel&>(
        *PartOf<wxDataViewCtrl>(name).GetModel());
  }
  /// A column as the native table asks for it.
  [[nodiscard]] static Texts Column(const char* table, unsigned column)
  {
    Texts cells;
    for (unsigned line = 0; line < Lines(table).GetCount(); ++line) {
      wxVariant value;
      Lines(table).GetValueByRow(value, line, column);
      cells.push_back(value.GetString().Trim(false).utf8_string());
    }
    return cells;
  }
  [[nodiscard]] static Texts Files() { return Column("Setups", app::kFileColumn); }
  [[nodiscard]] static Texts Differences() { return Column("Differences", 0); }
  /// The file of the chosen line; empty for none.
  [[nodiscard]] static std::string Chosen()
  {
    const auto item = Table().GetSelection();
    return item.IsOk() ? Files().at(Lines("Setups").GetRow(item)) : std::string();
  }
  static void Choose(unsigned line)
  {
    Table().Select(Lines("Setups").GetItem(line));
    wxDataViewEvent event(wxEVT_DATAVIEW_SELECTION_CHANGED, &Table(), Table().GetSelection());
    Table().ProcessWindowEvent(event);
  }
  static void Press(const char* name)
  {
    auto& button = PartOf(name);
    ASSERT_TRUE(button.IsEnabled()) << name;
    wxCommandEvent event(wxEVT_BUTTON, button.GetId());
    event.SetEventObject(&button);
    button.ProcessWindowEvent(event);
    LetTimePass(30);
  }
  static void Filter(const std::string& words)
  {
    PartOf<wxTextCtrl>("Filter").SetValue(FromText(words));
  }
  /// A click on the heading of a column.
  static void Head(int column)
  {
    for (unsigned at = 0; at < Table().GetColumnCount(); ++at) {
      auto* const heading = Table().GetColumn(at);
      if (static_cast<int>(heading->GetModelColumn()) != column) continue;
      wxDataViewEvent event(wxEVT_DATAVIEW_COLUMN_HEADER_CLICK, &Table(), heading);
      Table().ProcessWindowEvent(event);
    }
  }
  static void Key(int key, int with = wxMOD_NONE)
  {
    wxUIActionSimulator().Char(key, with);
    LetTimePass(100);
  }
  static void Type(const char* text)
  {
    wxUIActionSimulator().Text(text);
    LetTimePass(150);
  }
  static void Activate()
  {
    Library().Raise();
    ASSERT_TRUE(WaitUntil([] { return Library().IsActive(); }));
    LetTimePass(50);
  }
  static void Refocus()
  {
    wxActivateEvent event(wxEVT_ACTIVATE, true, Library().GetId());
    Library().ProcessWindowEvent(event);
    ASSERT_TRUE(WaitUntil([] { return !Library().Library().IsBusy(); }));
    LetTimePass(30);
  }
  [[nodiscard]] static std::string Label(const char* name)
  {
    return PartOf(name).GetLabel().utf8_string();
  }
};

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
      std::string(kValues) +
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

TEST_F(LibraryWindow, SaysWhyASetupCannotBePreviewed)
{
  StartWithSetups();
  editor.Play("setup $T/Second/Players/Ann/Setups/spa/x.lp1 long" + std::string(kValues) +
              "file $T/Second/gpl_ai.ini text \"\"\nfile $T/Second/gpl.exe text \"\"\n"
              "on open -> $T/Second/gpl.exe\nclick MnuAddInstall\n");
  Open();
  ASSERT_EQ(Files().back(), "x.lp1");
  Choose(3);
  EXPECT_EQ(Label("DifferenceCount"),
            "You are attempting to load a setup file for a mod that isn't installed.");
  EXPECT_EQ(Differences(), Texts{});
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

TEST_F(LibraryWindow, ScansAgainWhenAnInstallationIsAdded)
{
  StartWithSetups();
  editor.Play("setup $T/Second/Players/Ann/Setups/spa/x.lp1 long" + std::string(kValues) +
              "file $T/Second/gpl_ai.ini text \"\"\nfile $T/Second/gpl.exe text \"\"\n");
  Open();
  EXPECT_EQ(Files().size(), 3U);
  editor.Play("on open -> $T/Second/gpl.exe\nclick MnuAddInstall\n");
  EXPECT_TRUE(WaitUntil([] { return Files().size() == 4; }));
  EXPECT_TRUE(Label("Progress").starts_with("4 setups in 2 installations"));
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

TEST_F(LibraryWindow, FitsASmallScreen)
{
  for (const auto screen : {ScreenSize{800, 600}, ScreenSize{1280, 1024}}) {
    Start(screen);
    Open();
    Library().SetClientSize(Library().GetMinClientSize());
    LetTimePass(100);
    const auto window = Library().GetClientSize();
    for (const char* const name : {"Open", "Reference", "Export", "Show", "CloseButton", "Stop",
                                   "Columns", "Filter", "Setups", "Differences"}) {
      const auto corner = Library().ScreenToClient(PartOf(name).GetScreenRect().GetBottomRight());
      EXPECT_LE(corner.x, window.x) << name;
      EXPECT_LE(corner.y, window.y) << name;
      EXPECT_GT(PartOf(name).GetSize().y, 10) << name;
    }
  }
}

}  // namespace
}  // namespace velquist::testing
