// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>
#include <wx/uiaction.h>

#include <string>

#include "NativeBox.h"
#include "RealWindow.h"

namespace velquist::testing {
namespace {

/// The text of the tool tip that is on the screen.
std::string ShownTip()
{
  std::string text;
  GList* const windows = gtk_window_list_toplevels();
  for (const GList* entry = windows; entry != nullptr; entry = entry->next) {
    auto* const window = GTK_WIDGET(entry->data);
    if (std::string(G_OBJECT_TYPE_NAME(window)) != "GtkTooltipWindow" ||
        gtk_widget_get_mapped(window) == FALSE)
      continue;
    for (GtkLabel* const label : LabelsIn(window))
      if (gtk_widget_get_mapped(GTK_WIDGET(label)) != FALSE) text += gtk_label_get_text(label);
  }
  g_list_free(windows);
  return text;
}

class ToolTips : public RealWindow {
 protected:
  void PointAt(const wxWindow& widget)
  {
    const auto at = widget.GetScreenRect();
    const wxPoint middle(at.x + at.width / 2, at.y + at.height / 2);
    mouse_.MouseMove(middle.x - 3, middle.y);
    LetTimePass(50);
    mouse_.MouseMove(middle.x, middle.y);
  }

  wxUIActionSimulator mouse_;
};

TEST_F(ToolTips, AppearOverEveryKindOfControl)
{
  Start();
  Frame().Raise();
  LetTimePass(300);
  for (const char* const name : {"CmdInc(4)", "CmdDec(42)", "Combo2", "Combo1(1)", "FineCheck",
                                 "AsymmetricCheck", "OptUnits(0)", "OptUnits(1)", "Label4"}) {
    const auto* const widget = Widget(name);
    const auto tip = widget->GetToolTipText().utf8_string();
    ASSERT_NE(tip, "") << name;
    PointAt(*widget);
    EXPECT_TRUE(WaitUntil([&] { return ShownTip() == tip; }, 3000)) << name << ": " << ShownTip();
  }
}

}  // namespace
}  // namespace velquist::testing
