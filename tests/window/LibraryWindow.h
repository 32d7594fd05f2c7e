// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <string>
#include <vector>

#include "RealWindow.h"
#include "platform_wx/WxText.h"
#include "ui/FrmLibrary.h"

namespace velquist::testing {

using Texts = std::vector<std::string>;

/// Of setups that open without a message.
inline constexpr char kSetupValues[] = " 48=80 49=45 50=60 51=3\n";

/// The window of the library on a few setups.
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
    editor.Play("setup " + ("$G/Players/Jim/Setups/monza/" + name) + " long " + values +
                kSetupValues);
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
    PartOf<wxTextCtrl>("Filter").SetValue(platform::FromText(words));
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

}  // namespace velquist::testing
