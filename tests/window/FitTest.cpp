// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

using app::ControlKind;

constexpr std::array kModes = {
    "check OptUnits(0)\nuncheck FineCheck\n", "check OptUnits(0)\ncheck FineCheck\n",
    "check OptUnits(1)\nuncheck FineCheck\n", "check OptUnits(1)\ncheck FineCheck\n"};

/// A screen, and how many times as large as usual the system's text is on it.
struct Sight {
  ScreenSize screen;
  double text = 1;
};

constexpr std::array kScreens = {Sight{{800, 600}},  Sight{{1024, 768}},  Sight{{1280, 1024}},
                                 Sight{{1366, 768}}, Sight{{1920, 1080}}, Sight{{3840, 2160}}};
constexpr std::array kLargeText = {Sight{{800, 600}, 1.5}, Sight{{1280, 1024}, 1.25},
                                   Sight{{1280, 1024}, 2}, Sight{{1920, 1080}, 1.5}};

class Fit : public RealWindow, public ::testing::WithParamInterface<Sight> {
 protected:
  void StartThere()
  {
    text_.emplace(GetParam().text);
    Start(GetParam().screen);
  }

 private:
  std::optional<SystemText> text_;
};

/// What the toolkit itself wants for the widget with its text, without the size that it was given.
wxSize Wanted(const wxWindow& widget)
{
  GtkWidget* const native = widget.GetHandle();
  int width = 0;
  int height = 0;
  gtk_widget_get_size_request(native, &width, &height);
  gtk_widget_set_size_request(native, -1, -1);
  GtkRequisition wanted;
  gtk_widget_get_preferred_size(native, nullptr, &wanted);
  gtk_widget_set_size_request(native, width, height);
  return {wanted.width, wanted.height};
}

/// The user's own names decide how long these are; they are cut with an ellipsis.
bool HasNamesOfTheUser(const app::ControlDesign& design)
{
  return design.name == "Combo7" || design.name == "Label4" || design.name == "LblMarquee";
}

TEST_P(Fit, TheToolkitNeedsNoMoreRoomThanEveryTextHas)
{
  StartThere();
  for (const char* const year : {"1965", "1966", "1967", "1969", "GT"}) {
    editor.Play(std::string("select Combo2 \"") + year + "\"\n");
    for (const char* const mode : kModes) {
      SCOPED_TRACE(std::string(year) + " " + mode);
      editor.Play(mode);
      LetTimePass(20);  // the system works out other letters later
      for (const auto& design : app::FormControlSettings()) {
        const wxWindow* const widget = Widget(design);
        if (widget == nullptr || !widget->IsShown() || HasNamesOfTheUser(design) ||
            design.kind == ControlKind::kPicture || design.kind == ControlKind::kFrame)
          continue;
        const auto wanted = Wanted(*widget);
        EXPECT_LE(wanted.x, widget->GetSize().x) << NameOf(design);
        EXPECT_LE(wanted.y, widget->GetSize().y) << NameOf(design);
      }
    }
  }
}

TEST_P(Fit, EveryWidgetIsWhereTheLayoutPutsIt)
{
  StartThere();
  for (const auto& design : app::FormControlSettings()) {
    const wxWindow* const widget = Widget(design);
    if (widget == nullptr || !widget->IsShown() || design.name == "LblMarquee") continue;
    const auto& place = editor.Window().Form().Find(design.name, design.index)->place;
    EXPECT_EQ(widget->GetRect(), wxRect(place.left, place.top, place.width, place.height))
        << NameOf(design);
    GtkAllocation allocated;
    gtk_widget_get_allocation(widget->GetHandle(), &allocated);
    EXPECT_EQ(allocated.width, place.width) << NameOf(design);
    EXPECT_EQ(allocated.height, place.height) << NameOf(design);
  }
}

TEST_P(Fit, NoTwoWidgetsOverlap)
{
  StartThere();
  std::vector<const wxWindow*> widgets;
  for (const auto& design : app::FormControlSettings()) {
    const wxWindow* const widget = Widget(design);
    if (widget != nullptr && widget->IsShown() && design.kind != ControlKind::kFrame &&
        design.name != "LblMarquee")
      widgets.push_back(widget);
  }
  ASSERT_GT(widgets.size(), 150U);
  for (std::size_t a = 0; a < widgets.size(); ++a)
    for (std::size_t b = a + 1; b < widgets.size(); ++b)
      EXPECT_FALSE(widgets[a]->GetRect().Intersects(widgets[b]->GetRect()))
          << widgets[a]->GetName() << " and " << widgets[b]->GetName();
}

std::string NameOfSight(const ::testing::TestParamInfo<Sight>& sight)
{
  const auto& [screen, text] = sight.param;
  const auto name = std::to_string(screen.width) + "x" + std::to_string(screen.height);
  return text == 1 ? name : name + "Text" + std::to_string(std::lround(text * 100));
}

INSTANTIATE_TEST_SUITE_P(Screens, Fit, ::testing::ValuesIn(kScreens), NameOfSight);
INSTANTIATE_TEST_SUITE_P(LargeText, Fit, ::testing::ValuesIn(kLargeText), NameOfSight);

}  // namespace
}  // namespace velquist::testing
