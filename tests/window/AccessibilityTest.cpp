// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

using app::ControlKind;

AtkObject* Spoken(const wxWindow& widget)
{
  return gtk_widget_get_accessible(widget.GetHandle());
}

std::string SpokenName(AtkObject* spoken)
{
  const char* const name = atk_object_get_name(spoken);
  return name == nullptr ? "" : name;
}

/// The names of those that label it.
std::vector<std::string> LabelsOf(AtkObject* spoken)
{
  std::vector<std::string> names;
  AtkRelationSet* const relations = atk_object_ref_relation_set(spoken);
  AtkRelation* const labelled =
      atk_relation_set_get_relation_by_type(relations, ATK_RELATION_LABELLED_BY);
  if (labelled != nullptr) {
    const GPtrArray* const labels = atk_relation_get_target(labelled);
    for (guint i = 0; i < labels->len; ++i)
      names.push_back(SpokenName(ATK_OBJECT(labels->pdata[i])));
  }
  g_object_unref(relations);
  return names;
}

/// The name itself, or that of the label that the control belongs to.
std::string NameOrLabel(AtkObject* spoken)
{
  auto name = SpokenName(spoken);
  if (!name.empty()) return name;
  AtkRelationSet* const relations = atk_object_ref_relation_set(spoken);
  AtkRelation* const labelled =
      atk_relation_set_get_relation_by_type(relations, ATK_RELATION_LABELLED_BY);
  if (labelled != nullptr) {
    GPtrArray* const labels = atk_relation_get_target(labelled);
    if (labels->len > 0) name = SpokenName(ATK_OBJECT(labels->pdata[0]));
  }
  g_object_unref(relations);
  return name;
}

/// What is written on a frame.
GtkWidget* LabelOfFrame(const wxWindow& frame)
{
  return gtk_frame_get_label_widget(GTK_FRAME(frame.GetHandle()));
}

const std::map<ControlKind, AtkRole> kRoles = {{ControlKind::kButton, ATK_ROLE_PUSH_BUTTON},
                                               {ControlKind::kList, ATK_ROLE_COMBO_BOX},
                                               {ControlKind::kCheck, ATK_ROLE_CHECK_BOX},
                                               {ControlKind::kOption, ATK_ROLE_RADIO_BUTTON}};

/// Sets `can` when the focus can come to the widget or to something in it.
void SeeWhetherItCanFocus(GtkWidget* widget, gpointer can)
{
  if (gtk_widget_get_can_focus(widget) != FALSE) *static_cast<bool*>(can) = true;
  if (GTK_IS_CONTAINER(widget))
    gtk_container_forall(GTK_CONTAINER(widget), SeeWhetherItCanFocus, can);
}

bool CanFocus(const wxWindow& window)
{
  bool can = false;
  SeeWhetherItCanFocus(window.GetHandle(), &can);
  return can;
}

class Accessibility : public RealWindow {};

TEST_F(Accessibility, EveryControlThatTheUserWorksWithHasItsRoleAndANameOfItsOwn)
{
  Start();
  std::set<std::string> names;
  for (const auto& design : app::FormControlSettings()) {
    if (!IsInteractive(design)) continue;
    SCOPED_TRACE(testing::NameOf(design));
    AtkObject* const spoken = Spoken(*Widget(design));
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(atk_object_get_role(spoken), kRoles.at(design.kind));
    const auto name = NameOrLabel(spoken);
    EXPECT_FALSE(name.empty());
    EXPECT_TRUE(names.insert(name).second) << name << " is the name of two controls";
  }
}

TEST_F(Accessibility, EveryControlThatTheUserWorksWithHasAToolTipAndSaysMoreThanItsName)
{
  Start();
  for (const auto& design : app::FormControlSettings()) {
    if (!IsInteractive(design)) continue;
    SCOPED_TRACE(testing::NameOf(design));
    EXPECT_FALSE(Widget(design)->GetToolTipText().empty());
    const char* const more = atk_object_get_description(Spoken(*Widget(design)));
    EXPECT_TRUE(more != nullptr && *more != '\0');
  }
}

TEST_F(Accessibility, BoxesAndOptionsAreCalledAsTheyAreLabelled)
{
  Start();
  for (const auto& design : app::FormControlSettings()) {
    if (design.kind != ControlKind::kCheck && design.kind != ControlKind::kOption) continue;
    std::string caption(design.caption);
    std::erase(caption, '&');
    EXPECT_EQ(SpokenName(Spoken(*Widget(design))), caption);
    EXPECT_EQ(LabelsOf(Spoken(*Widget(design))), (std::vector<std::string>{})) << caption;
  }
}

TEST_F(Accessibility, PicturesHaveNames)
{
  Start();
  for (const char* const name : {"PictureChart", "PictureChart2", "GEMPic1"})
    EXPECT_FALSE(SpokenName(Spoken(*Widget(name))).empty()) << name;
}

TEST_F(Accessibility, TheRampAnglesTellTheLockingPercentBesideThem)
{
  Start();
  for (const int position : {0, 1}) {
    editor.Play("select Combo1(1) #" + std::to_string(position) + "\nselect Combo1(2) #0\n");
    for (const auto& [list, percent] :
         {std::pair("Combo1(1)", "Label2(50)"), std::pair("Combo1(2)", "Label2(49)")}) {
      const auto beside = Widget(percent)->GetLabel().utf8_string();
      EXPECT_NE(beside, "");
      const std::string told = atk_object_get_description(Spoken(*Widget(list)));
      EXPECT_NE((told + ",").find("locking percent " + beside + ","), std::string::npos) << told;
    }
  }
}

TEST_F(Accessibility, StepButtonsTellTheValueThatTheyHaveChanged)
{
  Start();
  const auto description = [&](const char* name) {
    return std::string(atk_object_get_description(Spoken(*Widget(name))));
  };
  EXPECT_EQ(description("CmdInc(4)"), "90 lbs/in");
  editor.Play("click CmdInc(4)\nexpect Label1(4) \"95\"\n");
  for (const char* const name : {"CmdInc(4)", "CmdDec(4)"}) {
    AtkObject* const spoken = Spoken(*Widget(name));
    EXPECT_EQ(description(name), "95 lbs/in, was 90, now 95 (+5)");
    EXPECT_NE(SpokenName(spoken).find("left front wheel rate"), std::string::npos);
  }
}

TEST_F(Accessibility, TheTabKeyGoesThroughEveryControlAndChartInTheOrderOfTheLayout)
{
  Start();
  wxWindow* const panel = Widget("CmdInc(4)")->GetParent();
  std::vector<std::string> expected;
  for (const auto& design : app::FormControlSettings())
    if (IsInteractive(design) || design.shape == app::Shape::kChart)
      expected.push_back(testing::NameOf(design));
  std::vector<std::string> found;
  for (const wxWindow* child : panel->GetChildren())
    if (CanFocus(*child)) found.push_back(child->GetName().ToStdString());
  EXPECT_EQ(found, expected);
}

TEST_F(Accessibility, AFrameWithoutALabelHasNoneToComeUpon)
{
  Start();
  int without = 0;
  for (const auto& design : app::FormControlSettings()) {
    if (design.kind != ControlKind::kFrame) continue;
    const auto& control = design.In(editor.Window().Form());
    EXPECT_EQ(gtk_widget_get_visible(LabelOfFrame(*Widget(design))) != FALSE, !control.text.empty())
        << testing::NameOf(design);
    if (control.text.empty()) ++without;
  }
  EXPECT_GT(without, 0);
}

}  // namespace
}  // namespace velquist::testing
