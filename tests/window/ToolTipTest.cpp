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
    PointAt(wxPoint(at.x + at.width / 2, at.y + at.height / 2));
  }
  void PointAt(const wxPoint& place)
  {
    mouse_.MouseMove(place.x - 3, place.y);
    LetTimePass(50);
    mouse_.MouseMove(place.x, place.y);
  }

  wxUIActionSimulator mouse_;
};

TEST_F(ToolTips, AppearOverEveryKindOfControl)
{
  Start();
  Frame().Raise();
  LetTimePass(300);
  for (const char* const name :
       {"CmdInc(4)", "CmdDec(42)", "Combo2", "Combo1(1)", "FineCheck", "AsymmetricCheck",
        "OptUnits(0)", "OptUnits(1)", "Label4", "Label1(4)"}) {
    const auto* const widget = Widget(name);
    const auto tip = widget->GetToolTipText().utf8_string();
    ASSERT_NE(tip, "") << name;
    PointAt(*widget);
    EXPECT_TRUE(WaitUntil([&] { return ShownTip() == tip; }, 8000)) << name << ": " << ShownTip();
  }
}

TEST_F(ToolTips, OfAGroupTellTheKeysThatLeadThere)
{
  Start();
  Frame().Raise();
  LetTimePass(300);
  const auto at = Widget("Frame1(1)")->GetScreenRect();
  PointAt(wxPoint(at.x + 8, at.y + at.height / 2));  // beside the controls
  EXPECT_TRUE(WaitUntil([&] { return ShownTip() == "Ctrl+1 comes here"; }, 3000)) << ShownTip();
}

TEST_F(ToolTips, OfAValueTellItsRangeItsStepAndItsEffect)
{
  Start();
  const auto tip = [&](const char* name) { return Widget(name)->GetToolTipText().utf8_string(); };
  const std::string line = "12 to 40 psi, step 1, both sides. Higher: less grip, quicker response";
  EXPECT_EQ(tip("Label1(0)"), line);
  EXPECT_EQ(tip("CmdInc(1)"), "Increase right front tire pressure\n" + line);
  EXPECT_EQ(tip("Combo1(3)"),
            "Clutch plates of the differential\n1 to 5, step 1. More: both angles lock more");
  editor.Play("click CmdInc(0)\ncheck FineCheck\ncheck AsymmetricCheck\n");
  EXPECT_EQ(tip("CmdDec(0)"),
            "Decrease left front tire pressure\n12 to 40 psi, step 0.1. Higher: less grip, quicker "
            "response\nwas 22.0, now 23.0 (+1.0)");
  editor.Play("check OptUnits(1)\nselect Combo2 \"GT\"\n");
  EXPECT_EQ(tip("Label1(0)").substr(0, 18), "110.3 to 310.3 kPa");
  // What has a text of its own keeps it.
  EXPECT_EQ(tip("FineCheck"), "Up and down edits are smaller");
  EXPECT_EQ(tip("AsymmetricCheck"), "Left and right sides can differ");
  EXPECT_EQ(tip("RollBarConstTotal"), "Total roll bar stiffness is constant");
  EXPECT_EQ(tip("SpringStiffnessProportional"),
            "Spring stiffness proportional to weight distribution");
}

}  // namespace
}  // namespace velquist::testing
