// SPDX-License-Identifier: MIT
// The windows where the user has told the system to show larger text.
#include <gtk/gtk.h>
#include <wx/dataview.h>
#include <wx/display.h>
#include <wx/statusbr.h>

#include <array>
#include <optional>
#include <string>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

class TextSize : public RealWindow {
 protected:
  /// Starts anew where text is that many times as large as usual.
  void StartAt(double scale, ScreenSize screen = {1280, 1024})
  {
    text_.emplace(scale);
    Start(screen);
  }

  /// The letters that the system draws the label in, pixels.
  [[nodiscard]] double Drawn(const char* name) const
  {
    GtkWidget* widget = Widget(name)->GetHandle();
    if (GTK_IS_FRAME(widget)) widget = gtk_frame_get_label_widget(GTK_FRAME(widget));
    if (GTK_IS_BUTTON(widget)) widget = gtk_bin_get_child(GTK_BIN(widget));
    if (GTK_IS_COMBO_BOX(widget)) widget = gtk_bin_get_child(GTK_BIN(widget));
    PangoFontDescription* font = nullptr;
    gtk_style_context_get(gtk_widget_get_style_context(widget), GTK_STATE_FLAG_NORMAL,
                          GTK_STYLE_PROPERTY_FONT, &font, nullptr);
    constexpr double kPointsPerInch = 72;
    const double points = static_cast<double>(pango_font_description_get_size(font)) / PANGO_SCALE;
    pango_font_description_free(font);
    return points * gdk_screen_get_resolution(gdk_screen_get_default()) / kPointsPerInch;
  }

  [[nodiscard]] wxWindow& Open(const char* item, const char* window)
  {
    editor.Play("click " + std::string(item) + "\n");
    LetTimePass(200);
    auto* const opened = wxWindow::FindWindowByName(window);
    EXPECT_NE(opened, nullptr) << window;
    return *opened;
  }

 private:
  std::optional<SystemText> text_;
};

constexpr std::array kSomeOfEachKind = {"Label1(4)", "Label3(0)", "Label3(12)",      "Label2(42)",
                                        "Label4",    "Combo1(1)", "AsymmetricCheck", "OptUnits(0)",
                                        "Frame1(1)", "CmdInc(4)", "Label5(0)",       "Combo3"};

TEST_F(TextSize, LettersAreAsLargeAsTheyAreWhereTheSystemsTextIsSmallerThanUsual)
{
  std::array<double, kSomeOfEachKind.size()> usual{};
  StartAt(1);
  for (std::size_t i = 0; i < usual.size(); ++i) usual.at(i) = Drawn(kSomeOfEachKind.at(i));
  StartAt(0.75);
  for (std::size_t i = 0; i < usual.size(); ++i)
    EXPECT_NEAR(Drawn(kSomeOfEachKind.at(i)), usual.at(i), 0.1) << kSomeOfEachKind.at(i);
}

TEST_F(TextSize, LettersGrowWithTheSystemsWhereTheirControlsHaveRoom)
{
  StartAt(1);
  const double value = Drawn("Label1(4)");
  const double caption = Drawn("Label3(0)");
  const double list = Drawn("Combo1(1)");
  const double arrow = Drawn("CmdInc(4)");
  const auto place = Widget("Label1(4)")->GetRect();
  StartAt(1.25);
  EXPECT_NEAR(Drawn("Label1(4)"), 1.25 * value, 1.4);
  EXPECT_NEAR(Drawn("Label3(0)"), 1.25 * caption, 1.4);
  EXPECT_NEAR(Drawn("Combo1(1)"), 1.25 * list, 1.4);
  EXPECT_NEAR(Drawn("CmdInc(4)"), arrow, 0.1);
  EXPECT_EQ(Widget("Label1(4)")->GetRect(), place);
  StartAt(3);
  EXPECT_GT(Drawn("Label1(4)"), 1.3 * value);
}

TEST_F(TextSize, ALargerSystemFontCountsAsLargerText)
{
  StartAt(1);
  const double value = Drawn("Label1(4)");
  auto* const settings = gtk_settings_get_default();
  gchar* before = nullptr;
  g_object_get(settings, "gtk-font-name", &before, nullptr);
  g_object_set(settings, "gtk-font-name", "Sans 14", nullptr);
  StartAt(1);
  EXPECT_NEAR(Drawn("Label1(4)"), value * 14 / 11, 1.4);
  g_object_set(settings, "gtk-font-name", before, nullptr);
  g_free(before);
}

TEST_F(TextSize, ALargeScreenWithLargeTextHasTheLettersOfTheScreen)
{
  StartAt(1, {3840, 2160});
  const double value = Drawn("Label1(4)");
  StartAt(2, {3840, 2160});
  EXPECT_NEAR(Drawn("Label1(4)"), value, 0.1);
}

TEST_F(TextSize, ValuesOfAFrameKeepLettersOfOneSizeWhenSomeAreMarkedAndTheWindowIsResized)
{
  StartAt(1.5);
  editor.Play("click CmdInc(4)\nclick CmdInc(43)\n");
  const double front = Drawn("Label1(4)");
  for (const char* const name : {"Label1(0)", "Label1(1)", "Label1(5)", "Label1(16)"})
    EXPECT_NEAR(Drawn(name), front, 0.1) << name;
  const double gear = Drawn("Label1(43)");
  EXPECT_NEAR(Drawn("Label1(42)"), gear, 0.1);
  Frame().SetClientSize(Frame().GetClientSize() * 0.7);
  ASSERT_TRUE(WaitUntil([&] { return Drawn("Label1(4)") < front - 1; }));
  EXPECT_NEAR(Drawn("Label1(0)"), Drawn("Label1(4)"), 0.1);
  EXPECT_NEAR(Drawn("Label1(42)"), Drawn("Label1(43)"), 0.1);
}

TEST_F(TextSize, TitlesOfFramesStayAboveWhatStandsInThem)
{
  StartAt(3);
  int titles = 0;
  for (const auto& frame : app::FormControlSettings()) {
    if (frame.kind != app::ControlKind::kFrame || frame.caption.empty()) continue;
    const auto* const window = Widget(frame);
    if (!window->IsShownOnScreen()) continue;
    ++titles;
    const double letters = Drawn(testing::NameOf(frame).c_str());
    for (const auto& design : app::FormControlSettings()) {
      if (design.frame != frame.name || design.frame_index != frame.index) continue;
      EXPECT_LE(letters, (Widget(design)->GetPosition() - window->GetPosition()).y)
          << testing::NameOf(design);
    }
  }
  EXPECT_GT(titles, 4);
}

TEST_F(TextSize, TheStatusLineFollowsWholly)
{
  StartAt(1);
  const int usual = Frame().GetStatusBar()->GetCharHeight();
  StartAt(2);
  EXPECT_NEAR(Frame().GetStatusBar()->GetCharHeight(), 2 * usual, 2);
  EXPECT_GE(Frame().GetStatusBar()->GetSize().y, Frame().GetStatusBar()->GetCharHeight());
  EXPECT_NEAR(Drawn("DifferenceCount"), 30, 1.4);
}

TEST_F(TextSize, WindowsBesideTheMainOneFollowWhollyAndFitTheScreen)
{
  for (const double scale : {1.0, 2.0}) {
    StartAt(scale, {1920, 1080});
    const auto desktop = wxDisplay(0U).GetClientArea();
    struct Item {
      const char* name;
      const char* window;
      int usual_width;
    };
    for (const auto& item : {Item{"MnuCompare", "FrmCompare", 620},
                             {"MnuGearing", "FrmGearing", 900},
                             {"MnuLibrary", "FrmLibrary", 1180}}) {
      const auto& window = Open(item.name, item.window);
      EXPECT_TRUE(desktop.Contains(window.GetRect())) << item.window << " " << scale;
      EXPECT_GE(window.GetClientSize().x, std::min(item.usual_width * scale, 0.9 * desktop.width))
          << item.window << " " << scale;
      EXPECT_GE(window.GetCharHeight(), 15 * scale) << item.window;
    }
  }
}

TEST_F(TextSize, ListsOfTheWindowsBesideItAreAsHighAsTheirLetters)
{
  StartAt(2, {1920, 1080});
  for (const auto& [item, window, list] : {std::array{"MnuCompare", "FrmCompare", "Reference"},
                                           {"MnuLibrary", "FrmLibrary", "SortBy"}}) {
    auto& shown = Open(item, window);
    auto* const choice = wxWindow::FindWindowByName(list, &shown);
    ASSERT_NE(choice, nullptr);
    GtkRequisition wanted;
    gtk_widget_set_size_request(choice->GetHandle(), -1, -1);
    gtk_widget_get_preferred_size(choice->GetHandle(), nullptr, &wanted);
    EXPECT_LE(wanted.height, choice->GetSize().y) << list;
  }
}

TEST_F(TextSize, ColumnsOfTheComparisonAreAsWideAsTheirTexts)
{
  StartAt(2, {1920, 1080});
  editor.Play("click CmdInc(4)\n");
  auto& window = Open("MnuCompare", "FrmCompare");
  auto& table = *static_cast<wxDataViewCtrl*>(wxWindow::FindWindowByName("Comparison", &window));
  EXPECT_GE(table.GetColumn(0)->GetWidth(),
            table.GetTextExtent("    Left front tire pressure, psi").x);
}

}  // namespace
}  // namespace velquist::testing
