// SPDX-License-Identifier: MIT
// The letters that the system draws are those that the toolkit knows of and measures.
#include <gtk/gtk.h>
#include <wx/frame.h>

#include <string>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

using app::ControlKind;

class Letters : public RealWindow {
 protected:
  /// The font that the system draws `widget` in; its label when it has one.
  static PangoFontDescription* Drawn(GtkWidget* widget)
  {
    if (GTK_IS_FRAME(widget)) widget = gtk_frame_get_label_widget(GTK_FRAME(widget));
    if (GTK_IS_BUTTON(widget) || GTK_IS_COMBO_BOX(widget))
      widget = gtk_bin_get_child(GTK_BIN(widget));
    PangoFontDescription* font = nullptr;
    gtk_style_context_get(gtk_widget_get_style_context(widget), GTK_STATE_FLAG_NORMAL,
                          GTK_STYLE_PROPERTY_FONT, &font, nullptr);
    PangoAttrList* const own =
        GTK_IS_LABEL(widget) ? gtk_label_get_attributes(GTK_LABEL(widget)) : nullptr;
    if (own != nullptr) {
      PangoAttrIterator* const text = pango_attr_list_get_iterator(own);
      pango_attr_iterator_get_font(text, font, nullptr, nullptr);
      pango_attr_iterator_destroy(text);
    }
    return font;
  }

  void ExpectDrawnAsMeasured() const
  {
    for (const auto& design : app::FormControlSettings()) {
      const auto* const widget = Widget(design);
      if (widget == nullptr || design.kind == ControlKind::kPicture) continue;
      const wxFont font = widget->GetFont();
      auto* const drawn = Drawn(widget->GetHandle());
      // The system is told whole points.
      EXPECT_EQ(pango_font_description_get_size(drawn) / PANGO_SCALE,
                static_cast<int>(font.GetFractionalPointSize()))
          << NameOf(design);
      EXPECT_STREQ(pango_font_description_get_family(drawn), font.GetFaceName().utf8_str())
          << NameOf(design);
      EXPECT_EQ(static_cast<int>(pango_font_description_get_weight(drawn)), font.GetNumericWeight())
          << NameOf(design);
      pango_font_description_free(drawn);
    }
  }
};

TEST_F(Letters, AreDrawnAsTheyAreMeasured)
{
  for (const ScreenSize screen : {ScreenSize{800, 600}, {1280, 1024}, {3840, 2160}}) {
    Start(screen);
    SCOPED_TRACE(screen.width);
    ExpectDrawnAsMeasured();
  }
}

TEST_F(Letters, AreDrawnAsTheyAreMeasuredWhenTheWindowIsResizedAndValuesAreMarked)
{
  Start();
  editor.Play("click CmdInc(4)\nclick CmdInc(43)\n");
  ExpectDrawnAsMeasured();
  const int before = Widget("Label1(4)")->GetFont().GetPointSize();
  Frame().SetClientSize(Frame().GetClientSize() * 0.7);
  ASSERT_TRUE(WaitUntil([&] { return Widget("Label1(4)")->GetFont().GetPointSize() < before; }));
  LetTimePass(100);
  ExpectDrawnAsMeasured();
  editor.Play("click CmdDec(4)\nclick CmdDec(43)\n");
  ExpectDrawnAsMeasured();
}

TEST_F(Letters, AreSharedByControlsWhoseLettersAreAlike)
{
  Start();
  const auto classes = [this](const char* name) {
    std::string all;
    GList* const list =
        gtk_style_context_list_classes(gtk_widget_get_style_context(Widget(name)->GetHandle()));
    for (const GList* each = list; each != nullptr; each = each->next)
      all += std::string(static_cast<const char*>(each->data)) + " ";
    g_list_free(list);
    return all;
  };
  EXPECT_EQ(classes("Label1(4)"), classes("Label1(5)"));
  EXPECT_NE(classes("Label1(4)"), classes("Label4"));
}

}  // namespace
}  // namespace velquist::testing
