// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>
#include <wx/uiaction.h>

#include <string>
#include <vector>

#include "RealWindow.h"

namespace velquist::testing {

/// The window of the comparison and the count that leads to it.
class CompareWindow : public RealWindow {
 protected:
  void Open()
  {
    editor.Play("click MnuCompare\n");
    ASSERT_TRUE(WaitUntil([&] { return Window() != nullptr && Window()->IsShown(); }));
  }
  [[nodiscard]] static wxTopLevelWindow* Window()
  {
    return dynamic_cast<wxTopLevelWindow*>(wxWindow::FindWindowByName("FrmCompare"));
  }
  [[nodiscard]] static bool IsActive() { return Window() != nullptr && Window()->IsActive(); }
  [[nodiscard]] bool IsOpen() const { return Window() != nullptr && Window()->IsShown(); }
  template <class Widget = wxWindow>
  [[nodiscard]] Widget& Part(const char* name) const
  {
    return dynamic_cast<Widget&>(*wxWindow::FindWindowByName(name, Window()));
  }
  [[nodiscard]] wxDataViewCtrl& Table() const { return Part<wxDataViewCtrl>("Comparison"); }
  [[nodiscard]] const wxDataViewVirtualListModel& Lines() const
  {
    return dynamic_cast<const wxDataViewVirtualListModel&>(*Table().GetModel());
  }
  [[nodiscard]] std::string Cell(unsigned line, unsigned column) const
  {
    wxVariant value;
    Lines().GetValueByRow(value, line, column);
    return value.GetString().Trim(false).utf8_string();
  }
  [[nodiscard]] std::vector<std::string> Parameters() const
  {
    std::vector<std::string> names;
    for (unsigned line = 0; line < Lines().GetCount(); ++line) names.push_back(Cell(line, 0));
    return names;
  }
  /// As a user's click does, behind which the table tells of it.
  void SelectLine(unsigned line, bool others_too = false)
  {
    if (!others_too) Table().UnselectAll();
    Table().Select(Lines().GetItem(line));
    wxDataViewEvent event(wxEVT_DATAVIEW_SELECTION_CHANGED, &Table(), Lines().GetItem(line));
    Table().ProcessWindowEvent(event);
  }
  void Press(const char* name)
  {
    auto& button = Part(name);
    ASSERT_TRUE(button.IsEnabled()) << name;
    wxCommandEvent event(wxEVT_BUTTON, button.GetId());
    event.SetEventObject(&button);
    button.ProcessWindowEvent(event);
    LetTimePass(30);
  }
  void Key(int key, int with = wxMOD_NONE)
  {
    wxUIActionSimulator().Char(key, with);
    LetTimePass(100);
  }
  void FocusTable()
  {
    Window()->Raise();
    ASSERT_TRUE(WaitUntil([&] { return IsActive(); }));
    Table().SetFocus();
    LetTimePass(100);
  }
  [[nodiscard]] std::string Summary() const { return Part("Summary").GetLabel().utf8_string(); }
  [[nodiscard]] wxWindow& Count() const { return *Widget("DifferenceCount"); }

  using Texts = std::vector<std::string>;
};

}  // namespace velquist::testing
