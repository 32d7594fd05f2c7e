// SPDX-License-Identifier: MIT
// How values that differ from the reference look, in the theme that GTK_THEME names.
#include <gtk/gtk.h>
#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/image.h>
#include <wx/settings.h>
#include <wx/utils.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "RealWindow.h"
#include "ui/MarkColour.h"

namespace velquist::testing {
namespace {

class Mark : public RealWindow {
 protected:
  /// The colours on the screen of a widget and how many pixels have each.
  [[nodiscard]] std::map<unsigned, int> Colours(const char* name) const
  {
    const wxRect area = Widget(name)->GetScreenRect().Deflate(2);
    wxScreenDC screen;
    wxBitmap shown(area.width, area.height);
    wxMemoryDC memory(shown);
    memory.Blit(0, 0, area.width, area.height, &screen, area.x, area.y);
    memory.SelectObject(wxNullBitmap);
    const auto image = shown.ConvertToImage();
    std::map<unsigned, int> colours;
    for (int y = 0; y < area.height; ++y)
      for (int x = 0; x < area.width; ++x)
        ++colours[wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)).GetRGB()];
    return colours;
  }
  /// The one that most pixels have.
  [[nodiscard]] wxColour Background(const char* name) const
  {
    wxColour colour;
    int most = 0;
    for (const auto& [rgb, count] : Colours(name)) {
      if (count <= most) continue;
      most = count;
      colour.SetRGB(rgb);
    }
    return colour;
  }
  /// The best contrast that any pixel has with the background.
  [[nodiscard]] double ContrastSeen(const char* name) const
  {
    const auto background = Background(name);
    double best = 1;
    for (const auto& [rgb, count] : Colours(name)) {
      wxColour colour;
      colour.SetRGB(rgb);
      best = std::max(best, ui::Contrast(colour, background));
    }
    return best;
  }
  void MarkAll()
  {
    Start();
    Frame().Raise();
    editor.Play("click CmdInc(4)\nclick CmdInc(30)\nclick CmdInc(43)\n");
    const int at = editor.Window().Form().Combo1[3].selection;
    editor.Play("select Combo1(3) #" + std::to_string(at + 1) + "\n");
    LetTimePass(300);
  }

  static constexpr const char* kMarked[] = {"Label1(4)", "Label1(30)", "Label1(43)", "Combo1(3)",
                                            "DifferenceCount"};
};

TEST_F(Mark, CanBeReadOnItsBackground)
{
  MarkAll();
  for (const char* const name : kMarked) {
    const auto background = Background(name);
    const auto ink = Widget(name)->GetForegroundColour();
    EXPECT_GE(ui::Contrast(ink, background), 4.5)
        << name << ": " << ink.GetAsString() << " on " << background.GetAsString();
    EXPECT_GE(ContrastSeen(name), 4.5) << name;
    // What is computed is what is on the screen.
    EXPECT_EQ(Colours(name).count(ink.GetRGB()), 1U) << name << " " << ink.GetAsString();
  }
}

TEST_F(Mark, IsOfTheThemeThatIsAskedFor)
{
  MarkAll();
  const char* const theme = std::getenv("GTK_THEME");
  const std::string_view name = theme == nullptr ? "" : theme;
  const bool dark =
      name.find("dark") != std::string_view::npos || name.find("Inverse") != std::string_view::npos;
  EXPECT_EQ(Background("Label1(4)").GetLuminance() < 0.5, dark);
}

TEST_F(Mark, TakesTheColourOfAnotherThemeOfTheDesktop)
{
  wxString settled;
  const bool was_settled = wxGetEnv("GTK_THEME", &settled);
  if (was_settled && settled != "Adwaita") GTEST_SKIP() << "begins with the light theme";
  wxUnsetEnv("GTK_THEME");
  MarkAll();
  for (const char* const theme : {"HighContrastInverse", "Adwaita"}) {
    const auto before = Widget("Label1(4)")->GetForegroundColour();
    g_object_set(gtk_settings_get_default(), "gtk-theme-name", theme, nullptr);
    const auto wanted = [] {
      return ui::MarkColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
    };
    EXPECT_TRUE(WaitUntil([&] { return wanted() != before; })) << theme;
    for (const char* const name : kMarked)
      EXPECT_TRUE(WaitUntil([&] { return Widget(name)->GetForegroundColour() == wanted(); }))
          << theme << ", " << name;
  }
  if (was_settled) wxSetEnv("GTK_THEME", settled);
}

TEST_F(Mark, IsWeightAndColourAndMovesNothing)
{
  Start();
  const auto places = [&] {
    std::vector<wxRect> all;
    for (const auto& design : app::FormControlSettings())
      if (const auto* const widget = Widget(design)) all.push_back(widget->GetRect());
    return all;
  };
  const auto before = places();
  const auto ink = Widget("Label1(4)")->GetForegroundColour();
  editor.Play("click CmdInc(4)\nexpect Label1(4) marked\nexpect Label1(6) unmarked\n");
  EXPECT_GE(Widget("Label1(4)")->GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
  EXPECT_NE(Widget("Label1(4)")->GetForegroundColour(), ink);
  EXPECT_EQ(places(), before);
  editor.Play("click MnuUndo\nexpect Label1(4) unmarked\n");
  EXPECT_LT(Widget("Label1(4)")->GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
  EXPECT_EQ(Widget("Label1(4)")->GetForegroundColour(), ink);
}

TEST_F(Mark, IsKeptWhenTheWindowIsMadeSmaller)
{
  Start();
  editor.Play("click CmdInc(4)\n");
  Frame().SetClientSize(900, 620);
  LetTimePass(200);
  editor.Play("expect Label1(4) marked\n");
  EXPECT_GE(Widget("Label1(4)")->GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
}

TEST(MarkColour, IsReadableOnAnyGrey)
{
  for (int grey = 0; grey < 256; ++grey) {
    const auto level = static_cast<unsigned char>(grey);
    const wxColour background(level, level, level);
    EXPECT_GE(ui::Contrast(ui::MarkColour(background), background), 4.5) << grey;
  }
}

TEST(MarkColour, IsBlueWhereThatCanBeRead)
{
  EXPECT_EQ(ui::MarkColour(*wxWHITE), wxColour(0, 60, 150));
  EXPECT_EQ(ui::MarkColour(*wxBLACK), wxColour(150, 195, 255));
  EXPECT_EQ(ui::MarkColour(wxColour(96, 96, 96)), *wxWHITE);
}

TEST(OtherRowColour, IsAnotherThatTextOfTheTableCanBeReadOn)
{
  for (const wxColour& background :
       {*wxBLACK, *wxWHITE, wxColour(45, 45, 45), wxColour(0, 0, 60)}) {
    const wxColour other = ui::OtherRowColour(background);
    const wxColour& text = background == *wxWHITE ? *wxBLACK : *wxWHITE;
    EXPECT_GE(ui::Contrast(other, text), 7) << background.GetAsString();
    EXPECT_GE(ui::Contrast(other, background), 1.05) << background.GetAsString();
  }
}

TEST(Contrast, IsThatOfTheGuidelines)
{
  EXPECT_DOUBLE_EQ(ui::Contrast(*wxBLACK, *wxWHITE), 21);
  EXPECT_DOUBLE_EQ(ui::Contrast(*wxWHITE, *wxBLACK), 21);
  EXPECT_DOUBLE_EQ(ui::Contrast(*wxRED, *wxRED), 1);
  EXPECT_NEAR(ui::Contrast(wxColour(119, 119, 119), *wxWHITE), 4.48, 0.01);
}

}  // namespace
}  // namespace velquist::testing
