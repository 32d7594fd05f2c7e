// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>
#include <wx/display.h>
#include <wx/utils.h>

#include <algorithm>
#include <array>

#include "platform_wx/MessageBox.h"

namespace velquist::platform {
namespace {

struct Look {
  GtkMessageType type;
  const char* icon;
};

/// In the order of Icon.
constexpr std::array<Look, 4> kLooks = {{{GTK_MESSAGE_INFO, "dialog-information"},
                                         {GTK_MESSAGE_WARNING, "dialog-warning"},
                                         {GTK_MESSAGE_QUESTION, "dialog-question"},
                                         {GTK_MESSAGE_ERROR, "dialog-error"}}};

/// Where the text may stand, beside the icon and above the buttons.
constexpr int kAroundText = 160;  ///< pixels

/// The system's own box shows no icon.
void AddIcon(GtkWidget* box, const char* name)
{
  GtkWidget* const beside =
      gtk_widget_get_parent(gtk_message_dialog_get_message_area(GTK_MESSAGE_DIALOG(box)));
  GtkWidget* const icon = gtk_image_new_from_icon_name(name, GTK_ICON_SIZE_DIALOG);
  gtk_widget_set_valign(icon, GTK_ALIGN_START);
  gtk_box_pack_start(GTK_BOX(beside), icon, FALSE, FALSE, 0);
  gtk_box_reorder_child(GTK_BOX(beside), icon, 0);
  gtk_widget_show(icon);
}

GtkLabel* TextLabel(GtkWidget* box)
{
  GList* const labels = gtk_container_get_children(
      GTK_CONTAINER(gtk_message_dialog_get_message_area(GTK_MESSAGE_DIALOG(box))));
  auto* const label = GTK_LABEL(labels->data);
  g_list_free(labels);
  return label;
}

/// Keeps the box within the desktop, whatever the text: long words are broken, and what is too high
/// is scrolled.
void Wrap(GtkWidget* box, const wxSize& desktop)
{
  GtkLabel* const label = TextLabel(box);
  gtk_label_set_line_wrap_mode(label, PANGO_WRAP_WORD_CHAR);
  PangoContext* const context = gtk_widget_get_pango_context(GTK_WIDGET(label));
  PangoFontMetrics* const metrics = pango_context_get_metrics(context, nullptr, nullptr);
  const int letter =
      std::max(1, PANGO_PIXELS(pango_font_metrics_get_approximate_char_width(metrics)));
  pango_font_metrics_unref(metrics);
  const int fitting = (desktop.x - kAroundText) / letter;
  gtk_label_set_max_width_chars(label,
                                std::clamp(fitting, 1, gtk_label_get_max_width_chars(label)));

  int least = 0;
  int wanted = 0;
  gtk_widget_get_preferred_width(GTK_WIDGET(label), nullptr, &wanted);
  gtk_widget_get_preferred_height_for_width(GTK_WIDGET(label), wanted, &least, nullptr);
  const int highest = desktop.y - kAroundText;
  if (least <= highest) return;
  GtkWidget* const area = gtk_message_dialog_get_message_area(GTK_MESSAGE_DIALOG(box));
  GtkWidget* const scrolled = gtk_scrolled_window_new(nullptr, nullptr);
  gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scrolled), GTK_POLICY_NEVER,
                                 GTK_POLICY_ALWAYS);
  gtk_widget_set_size_request(scrolled, -1, highest);
  g_object_ref(label);
  gtk_container_remove(GTK_CONTAINER(area), GTK_WIDGET(label));
  gtk_container_add(GTK_CONTAINER(scrolled), GTK_WIDGET(label));
  g_object_unref(label);
  gtk_box_pack_start(GTK_BOX(area), scrolled, TRUE, TRUE, 0);
  gtk_widget_show(scrolled);
}

GtkWindow* TopLevel(wxWindow* owner)
{
  if (owner == nullptr) return nullptr;
  return GTK_WINDOW(gtk_widget_get_toplevel(owner->GetHandle()));
}

wxSize DesktopOf(wxWindow* owner)
{
  const int at = owner != nullptr ? wxDisplay::GetFromWindow(owner) : wxNOT_FOUND;
  return wxDisplay(at == wxNOT_FOUND ? 0U : static_cast<unsigned>(at)).GetClientArea().GetSize();
}

}  // namespace

Answer ShowMessageBox(wxWindow* owner, const wxString& text, const wxString& caption, Icon icon,
                      Buttons buttons)
{
  const wxBusyCursorSuspender arrow;
  if (owner != nullptr) owner->GTKReleaseMouseAndNotify();
  const auto& look = kLooks.at(static_cast<std::size_t>(icon));
  const bool asks = buttons != Buttons::kOk;
  const auto shown = text.utf8_str();
  GtkWidget* const box =
      gtk_message_dialog_new(TopLevel(owner), GTK_DIALOG_MODAL, look.type,
                             asks ? GTK_BUTTONS_YES_NO : GTK_BUTTONS_OK, "%s", shown.data());
  gtk_window_set_title(GTK_WINDOW(box), caption.utf8_str());
  gtk_window_set_position(GTK_WINDOW(box),
                          owner != nullptr ? GTK_WIN_POS_CENTER_ON_PARENT : GTK_WIN_POS_CENTER);
  AddIcon(box, look.icon);
  Wrap(box, DesktopOf(owner));
  if (asks)
    gtk_dialog_set_default_response(
        GTK_DIALOG(box), buttons == Buttons::kYesNo ? GTK_RESPONSE_YES : GTK_RESPONSE_NO);
  AtkObject* const spoken = gtk_widget_get_accessible(box);
  atk_object_set_name(spoken, caption.utf8_str());
  atk_object_set_description(spoken, shown.data());
  const int response = gtk_dialog_run(GTK_DIALOG(box));
  gtk_widget_destroy(box);
  if (!asks) return Answer::kOk;
  return response == GTK_RESPONSE_YES ? Answer::kYes : Answer::kNo;
}

}  // namespace velquist::platform
