// SPDX-License-Identifier: MIT
// What is seen of the frames and of the texts that are too long for their places.
#include <gtk/gtk.h>
#include <wx/statusbr.h>

#include <string>
#include <vector>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

using app::ControlKind;

class Frames : public RealWindow, public ::testing::WithParamInterface<ScreenSize> {};

/// What is on the screen of the window's client area, a row of colours a line.
class Picture {
 public:
  Picture(const std::vector<unsigned char>& bytes, int width) : bytes_(bytes), width_(width) {}

  [[nodiscard]] int At(int x, int y) const
  {
    const auto at = 3 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                         static_cast<std::size_t>(x));
    return bytes_.at(at) * 65536 + bytes_.at(at + 1) * 256 + bytes_.at(at + 2);
  }

 private:
  std::vector<unsigned char> bytes_;
  int width_;
};

TEST_P(Frames, AreWholeUpToTheirCorners)
{
  Start(GetParam());
  editor.Play("select Combo2 \"1969\"\n");
  LetTimePass(500);
  const Picture seen(Pixels("panel"), Widget("panel")->GetClientSize().x);
  int frames = 0;
  for (const auto& design : app::FormControlSettings()) {
    if (design.kind != ControlKind::kFrame) continue;
    SCOPED_TRACE(NameOf(design));
    ++frames;
    const auto& place = design.In(editor.Window().Form()).place;
    const int outside = seen.At(place.left - 2, place.top + place.height / 2);
    const int middle = place.top + place.height / 2;
    EXPECT_NE(seen.At(place.left, middle), outside);
    // The border runs up at the left and then to the right: as many pixels as before the title.
    int top = middle;
    while (top > place.top && seen.At(place.left, top - 1) != outside) --top;
    for (const int beside : {2, 3, 4, 5}) {
      bool drawn = false;
      for (int y = top - 2; y <= top + 2; ++y)
        drawn |= y >= place.top && seen.At(place.left + beside, y) != outside;
      EXPECT_TRUE(drawn) << beside << " pixels from the corner";
    }
  }
  EXPECT_EQ(frames, 10);
}

INSTANTIATE_TEST_SUITE_P(Screens, Frames,
                         ::testing::Values(ScreenSize{800, 600}, ScreenSize{1280, 1024},
                                           ScreenSize{3840, 2160}),
                         [](const auto& screen) { return std::to_string(screen.param.width); });

TEST_P(Frames, HaveALineBelowThatIsAsHighAsItsLetters)
{
  Start(GetParam());
  LetTimePass(500);
  wxStatusBar* const line = Frame().GetStatusBar();
  EXPECT_GE(line->GetClientSize().y, line->GetCharHeight());
  GtkAllocation allocated;
  gtk_widget_get_allocation(line->GetHandle(), &allocated);
  EXPECT_GE(allocated.height, line->GetCharHeight());
  const wxSize client = Frame().GetClientSize();
  EXPECT_EQ(client, Widget("panel")->GetSize());
  EXPECT_LE(client.y + allocated.height, Frame().GetSize().y);
  wxRect field;
  ASSERT_TRUE(line->GetFieldRect(0, field));
  EXPECT_GE(field.height, line->GetCharHeight());
}

class LongPath : public RealWindow {};

TEST_F(LongPath, IsCutAtItsStartAndWholeInTheToolTip)
{
  Start();
  wxWindow* const list = Widget("Combo7");
  GList* const cells = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(list->GetHandle()));
  ASSERT_NE(cells, nullptr);
  PangoEllipsizeMode cut = PANGO_ELLIPSIZE_NONE;
  g_object_get(cells->data, "ellipsize", &cut, nullptr);
  g_list_free(cells);
  EXPECT_EQ(cut, PANGO_ELLIPSIZE_START);
  const auto path = editor.Window().Form().Combo7.text;
  ASSERT_FALSE(path.empty());
  EXPECT_EQ(list->GetToolTipText(), "Game installation\n" + path);
  EXPECT_EQ(Widget("Combo3")->GetToolTipText(), "Car of the setup");
}

}  // namespace
}  // namespace velquist::testing
