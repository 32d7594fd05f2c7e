// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/uiaction.h>

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "NativeBox.h"
#include "RealWindow.h"
#include "platform_wx/WxDialogs.h"

namespace velquist::testing {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

class MessageBoxes : public ::testing::Test {
 protected:
  MessageBoxes()
  {
    owner_->Show();
    dialogs_.SetOwner(owner_);
    LetTimePass(100);
  }
  ~MessageBoxes() override
  {
    owner_->Destroy();
    LetTimePass(20);
  }

  /// What the box answers when the user does that to it.
  Answer Ask(Buttons buttons, const std::function<void(GtkWidget*)>& user,
             const std::string& text = "Do you want to?", Icon icon = Icon::kQuestion)
  {
    const AtNativeBox at_box(user);
    return dialogs_.ShowMessage(text, icon, buttons);
  }

  platform::WxDialogs dialogs_;
  wxFrame* owner_ = new wxFrame(nullptr, wxID_ANY, "owner");
};

void Press(int key)
{
  wxUIActionSimulator().Char(key);
}

std::string TextOf(GtkWidget* box)
{
  gchar* text = nullptr;
  g_object_get(box, "text", &text, nullptr);
  std::string taken(text);
  g_free(text);
  return taken;
}

GtkLabel* LabelWith(GtkWidget* box, const std::string& text)
{
  for (GtkLabel* const label : LabelsIn(box))
    if (gtk_label_get_text(label) == text) return label;
  return nullptr;
}

void ExpectWithinScreen(GtkWidget* box)
{
  int left = 0;
  int top = 0;
  gdk_window_get_origin(gtk_widget_get_window(box), &left, &top);
  const wxSize screen = wxDisplay(0U).GetGeometry().GetSize();
  EXPECT_GE(left, 0);
  EXPECT_GE(top, 0);
  EXPECT_LE(left + gtk_widget_get_allocated_width(box), screen.x);
  EXPECT_LE(top + gtk_widget_get_allocated_height(box), screen.y);
}

TEST_F(MessageBoxes, EscapeMeansNo)
{
  const auto escape = [](GtkWidget*) { Press(WXK_ESCAPE); };
  EXPECT_EQ(Ask(Buttons::kYesNo, escape), Answer::kNo);
  EXPECT_EQ(Ask(Buttons::kNoYes, escape), Answer::kNo);
  EXPECT_EQ(Ask(Buttons::kOk, escape), Answer::kOk);
}

TEST_F(MessageBoxes, ClosingMeansNo)
{
  const auto close = [](GtkWidget* box) { gtk_window_close(GTK_WINDOW(box)); };
  EXPECT_EQ(Ask(Buttons::kYesNo, close), Answer::kNo);
  EXPECT_EQ(Ask(Buttons::kNoYes, close), Answer::kNo);
  EXPECT_EQ(Ask(Buttons::kOk, close), Answer::kOk);
}

TEST_F(MessageBoxes, EnterMeansTheFirstOfTheButtons)
{
  const auto enter = [](GtkWidget*) { Press(WXK_RETURN); };
  EXPECT_EQ(Ask(Buttons::kYesNo, enter), Answer::kYes);
  EXPECT_EQ(Ask(Buttons::kNoYes, enter), Answer::kNo);
  EXPECT_EQ(Ask(Buttons::kOk, enter), Answer::kOk);
}

TEST_F(MessageBoxes, YesMeansYes)
{
  const auto yes = [](GtkWidget* box) {
    gtk_button_clicked(
        GTK_BUTTON(gtk_dialog_get_widget_for_response(GTK_DIALOG(box), GTK_RESPONSE_YES)));
  };
  EXPECT_EQ(Ask(Buttons::kYesNo, yes), Answer::kYes);
  EXPECT_EQ(Ask(Buttons::kNoYes, yes), Answer::kYes);
}

TEST_F(MessageBoxes, AreAlertsThatSayTheirText)
{
  Ask(Buttons::kOk, [](GtkWidget* box) {
    AtkObject* const spoken = gtk_widget_get_accessible(box);
    EXPECT_EQ(atk_object_get_role(spoken), ATK_ROLE_ALERT);
    EXPECT_STREQ(atk_object_get_name(spoken), "Velquist");
    EXPECT_STREQ(atk_object_get_description(spoken), "Do you want to?");
    Press(WXK_ESCAPE);
  });
}

TEST_F(MessageBoxes, ShowTheirIcon)
{
  constexpr std::array<std::pair<Icon, const char*>, 4> kIcons = {
      {{Icon::kInformation, "dialog-information"},
       {Icon::kExclamation, "dialog-warning"},
       {Icon::kQuestion, "dialog-question"},
       {Icon::kCritical, "dialog-error"}}};
  for (const auto& [icon, name] : kIcons)
    Ask(
        Buttons::kOk,
        [name = name](GtkWidget* box) {
          EXPECT_EQ(ImagesIn(box), std::vector<std::string>{name});
          Press(WXK_ESCAPE);
        },
        "Text", icon);
}

TEST_F(MessageBoxes, ShowTheWholeTextWithinTheScreen)
{
  const std::string path = "/home/user/" + std::string(200, 'a') + "/" + std::string(50, 'M');
  for (const std::string& text :
       {std::string("The Velquist Program Settings.ini file is bad.\r"
                    "Delete your program settings .ini file and restart the program to try again."),
        std::string("This is not a valid GPL directory as it is missing the Players directory.  "
                    "Restart the program to try again."),
        path + "\nthe disk is full.", "Some words before " + path + " and behind it."})
    Ask(
        Buttons::kYesNo,
        [&](GtkWidget* box) {
          EXPECT_EQ(TextOf(box), text);
          ExpectWithinScreen(box);
          GtkLabel* const label = LabelWith(box, text);
          ASSERT_NE(label, nullptr);
          int width = 0;
          int height = 0;
          pango_layout_get_pixel_size(gtk_label_get_layout(label), &width, &height);
          EXPECT_LE(width, gtk_widget_get_allocated_width(GTK_WIDGET(label)));
          EXPECT_LE(height, gtk_widget_get_allocated_height(GTK_WIDGET(label)));
          EXPECT_FALSE(pango_layout_is_ellipsized(gtk_label_get_layout(label)));
          Press(WXK_ESCAPE);
        },
        text);
}

TEST_F(MessageBoxes, ScrollATextThatIsHigherThanTheScreen)
{
  std::string text;
  for (int line = 0; line < 300; ++line) text += "line " + std::to_string(line) + "\n";
  EXPECT_EQ(Ask(
                Buttons::kYesNo,
                [](GtkWidget* box) {
                  ExpectWithinScreen(box);
                  Press(WXK_RETURN);
                },
                text),
            Answer::kYes);
}

}  // namespace
}  // namespace velquist::testing
