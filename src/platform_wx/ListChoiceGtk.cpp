// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include <algorithm>
#include <array>
#include <memory>

#include "platform_wx/ListChoice.h"
#include "platform_wx/TypeAhead.h"

namespace velquist::platform {
namespace {

/// The item that the user chooses of `combo` in a window; -1 for none. Rows of one height, of which
/// only those in sight are measured, make it as quick with thousands as with three.
int AskInWindow(GtkComboBox* combo, const wxString& title, int current)
{
  constexpr int kWidth = 480;
  constexpr int kHeight = 360;
  auto* const owner = GTK_WINDOW(gtk_widget_get_toplevel(GTK_WIDGET(combo)));
  GtkWidget* const window =
      gtk_dialog_new_with_buttons(title.utf8_str(), owner, GTK_DIALOG_MODAL, "_Cancel",
                                  GTK_RESPONSE_CANCEL, "_OK", GTK_RESPONSE_OK, nullptr);
  gtk_dialog_set_default_response(GTK_DIALOG(window), GTK_RESPONSE_OK);
  gtk_window_set_default_size(GTK_WINDOW(window), kWidth, kHeight);
  GtkWidget* const rows = gtk_tree_view_new_with_model(gtk_combo_box_get_model(combo));
  auto* const view = GTK_TREE_VIEW(rows);
  GtkTreeViewColumn* const column = gtk_tree_view_column_new_with_attributes(
      "", gtk_cell_renderer_text_new(), "text", 0, nullptr);
  gtk_tree_view_column_set_sizing(column, GTK_TREE_VIEW_COLUMN_FIXED);
  gtk_tree_view_append_column(view, column);
  gtk_tree_view_set_headers_visible(view, FALSE);
  gtk_tree_view_set_fixed_height_mode(view, TRUE);
  gtk_tree_view_set_search_column(view, 0);
  atk_object_set_name(gtk_widget_get_accessible(rows), title.utf8_str());
  g_signal_connect_swapped(
      rows, "row-activated",
      G_CALLBACK(+[](GtkDialog* dialog) { gtk_dialog_response(dialog, GTK_RESPONSE_OK); }), window);
  GtkWidget* const scrolled = gtk_scrolled_window_new(nullptr, nullptr);
  gtk_container_add(GTK_CONTAINER(scrolled), rows);
  gtk_box_pack_start(GTK_BOX(gtk_dialog_get_content_area(GTK_DIALOG(window))), scrolled, TRUE, TRUE,
                     0);
  gtk_widget_show_all(scrolled);
  if (current >= 0) {
    GtkTreePath* const path = gtk_tree_path_new_from_indices(current, -1);
    gtk_tree_view_set_cursor(view, path, nullptr, FALSE);
    gtk_tree_view_scroll_to_cell(view, path, nullptr, TRUE, 0.5F, 0);
    gtk_tree_path_free(path);
  }
  int chosen = -1;
  GtkTreePath* path = nullptr;
  if (gtk_dialog_run(GTK_DIALOG(window)) == GTK_RESPONSE_OK) {
    gtk_tree_view_get_cursor(view, &path, nullptr);
    if (path != nullptr) chosen = gtk_tree_path_get_indices(path)[0];
    gtk_tree_path_free(path);
  }
  gtk_widget_destroy(window);
  return chosen;
}

/// The list's own keys are the arrows alone, and it tells only of a choice that differs. Goes away
/// with the list.
class Chooser {
 public:
  Chooser(wxChoice& list, ListKeys keys) : list_(list), keys_(keys)
  {
    g_signal_connect(list.GetHandle(), "notify::popup-shown", G_CALLBACK(OnPopupShown), this);
    g_signal_connect(list.GetHandle(), "popup", G_CALLBACK(OnPopup), this);
    WatchButton(list.GetHandle(), this);
  }

  void OnKeyDown(wxKeyEvent& event)
  {
    constexpr std::array kMoving = {
        WXK_UP,          WXK_DOWN,        WXK_LEFT,          WXK_RIGHT,
        WXK_HOME,        WXK_END,         WXK_PAGEUP,        WXK_PAGEDOWN,
        WXK_NUMPAD_UP,   WXK_NUMPAD_DOWN, WXK_NUMPAD_LEFT,   WXK_NUMPAD_RIGHT,
        WXK_NUMPAD_HOME, WXK_NUMPAD_END,  WXK_NUMPAD_PAGEUP, WXK_NUMPAD_PAGEDOWN};
    if (keys_ == ListKeys::kOpen && !event.AltDown() &&
        std::ranges::find(kMoving, event.GetKeyCode()) != kMoving.end())
      Open();
    else
      event.Skip();
  }

  void OnChar(wxKeyEvent& event)
  {
    const wxChar letter = event.GetUnicodeKey();
    if (letter <= WXK_SPACE || (event.GetModifiers() & ~wxMOD_SHIFT) != 0) {
      event.Skip();
      return;
    }
    if (keys_ == ListKeys::kOpen) Open();
    const int found = Find(letter, event.GetTimestamp(), list_.GetSelection());
    if (found < 0) return;
    if (keys_ == ListKeys::kOpen)
      GoTo(found);
    else if (found != list_.GetSelection())
      Choose(found);
  }

 private:
  [[nodiscard]] GtkComboBox* Combo() const { return GTK_COMBO_BOX(list_.GetHandle()); }

  void Open() { gtk_combo_box_popup(Combo()); }

  /// The system makes a widget of every item when a list is opened: thousands take it seconds.
  [[nodiscard]] bool IsLong() const
  {
    constexpr unsigned kMost = 300;
    return list_.GetCount() > kMost;
  }

  /// Lets the user choose from a long list in a window of its own, once this event is over.
  void ChooseInWindow()
  {
    list_.CallAfter([this] {
      const int current = list_.GetSelection();
      const int chosen = AskInWindow(Combo(), list_.GetToolTipText().BeforeFirst('\n'), current);
      if (chosen >= 0 && chosen != current) Choose(chosen);
    });
  }

  /// Asked for by keys.
  static void OnPopup(GtkComboBox* combo, gpointer self)
  {
    auto& chooser = *static_cast<Chooser*>(self);
    if (!chooser.IsLong()) return;
    g_signal_stop_emission_by_name(combo, "popup");
    Release(GTK_WIDGET(combo), nullptr);
    chooser.ChooseInWindow();
  }

  /// Asked for by the mouse.
  static gboolean OnButtonEvent(GtkWidget* /*button*/, GdkEvent* event, gpointer self)
  {
    auto& chooser = *static_cast<Chooser*>(self);
    if (gdk_event_get_event_type(event) != GDK_BUTTON_PRESS || !chooser.IsLong()) return FALSE;
    chooser.ChooseInWindow();
    return TRUE;
  }

  /// The button stands somewhere in the list.
  static void WatchButton(GtkWidget* widget, gpointer self)
  {
    if (GTK_IS_TOGGLE_BUTTON(widget))
      g_signal_connect(widget, "event", G_CALLBACK(OnButtonEvent), self);
    else if (GTK_IS_CONTAINER(widget))
      gtk_container_forall(GTK_CONTAINER(widget), WatchButton, self);
  }

  /// Lets the button come up again that a key has pressed.
  static void Release(GtkWidget* widget, gpointer self)
  {
    if (GTK_IS_TOGGLE_BUTTON(widget))
      gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(widget), FALSE);
    else if (GTK_IS_CONTAINER(widget))
      gtk_container_forall(GTK_CONTAINER(widget), Release, self);
  }

  int Find(wxChar letter, long milliseconds, int current)
  {
    return type_ahead_.Type(letter, milliseconds, list_.GetStrings(), current);
  }

  void Choose(int item)
  {
    list_.SetSelection(item);
    wxCommandEvent event(wxEVT_CHOICE, list_.GetId());
    event.SetEventObject(&list_);
    event.SetInt(item);
    event.SetString(list_.GetString(static_cast<unsigned>(item)));
    list_.GetEventHandler()->AddPendingEvent(event);
  }

  /// In the open list.
  void GoTo(int item)
  {
    if (menu_ == nullptr) return;
    GList* const items = gtk_container_get_children(GTK_CONTAINER(menu_));
    auto* const widget = static_cast<GtkWidget*>(g_list_nth_data(items, static_cast<guint>(item)));
    g_list_free(items);
    if (widget != nullptr) gtk_menu_shell_select_item(menu_, widget);
  }

  [[nodiscard]] int Highlighted() const
  {
    GtkWidget* const item = gtk_menu_shell_get_selected_item(menu_);
    if (item == nullptr) return -1;
    GList* const items = gtk_container_get_children(GTK_CONTAINER(menu_));
    const int at = g_list_index(items, item);
    g_list_free(items);
    return at;
  }

  /// The list's own handler of keys takes every one.
  static gboolean OnMenuEvent(GtkWidget*, GdkEvent* event, gpointer self)
  {
    if (gdk_event_get_event_type(event) != GDK_KEY_PRESS) return FALSE;
    const GdkEventKey& key = event->key;
    auto& chooser = *static_cast<Chooser*>(self);
    const guint32 letter = gdk_keyval_to_unicode(key.keyval);
    constexpr guint kCommands = GDK_CONTROL_MASK | GDK_MOD1_MASK;
    if (letter <= WXK_SPACE || (key.state & kCommands) != 0) return FALSE;
    const int found = chooser.Find(static_cast<wxChar>(letter), static_cast<long>(key.time),
                                   chooser.Highlighted());
    if (found >= 0) chooser.GoTo(found);
    return TRUE;
  }

  /// Called for every choice.
  static void OnMenuActivate(GtkWidget*, const char* path, gpointer self)
  {
    auto& chooser = *static_cast<Chooser*>(self);
    long chosen = -1;
    if (!wxString::FromUTF8(path).ToLong(&chosen)) return;
    GdkEvent* const cause = gtk_get_current_event();
    const bool by_key = cause != nullptr && (gdk_event_get_event_type(cause) == GDK_KEY_PRESS ||
                                             gdk_event_get_event_type(cause) == GDK_KEY_RELEASE);
    if (cause != nullptr) gdk_event_free(cause);
    if (by_key && chooser.keys_ == ListKeys::kOpen) return;
    if (chosen == chooser.at_opening_ && chosen == chooser.list_.GetSelection())
      chooser.Choose(static_cast<int>(chosen));
  }

  static void OnPopupShown(GObject* combo, GParamSpec*, gpointer self)
  {
    auto& chooser = *static_cast<Chooser*>(self);
    gboolean shown = FALSE;
    g_object_get(combo, "popup-shown", &shown, nullptr);
    if (shown == FALSE) return;
    chooser.at_opening_ = gtk_combo_box_get_active(chooser.Combo());
    AtkObject* spoken = gtk_combo_box_get_popup_accessible(chooser.Combo());
    if (spoken == nullptr || !GTK_IS_ACCESSIBLE(spoken)) return;
    GtkWidget* menu = gtk_accessible_get_widget(GTK_ACCESSIBLE(spoken));
    if (menu == nullptr || g_signal_lookup("menu-activate", G_OBJECT_TYPE(menu)) == 0) return;
    if (GTK_MENU_SHELL(menu) == chooser.menu_) return;
    chooser.menu_ = GTK_MENU_SHELL(menu);
    g_signal_connect_after(menu, "menu-activate", G_CALLBACK(OnMenuActivate), self);
    g_signal_connect(menu, "event", G_CALLBACK(OnMenuEvent), self);
  }

  wxChoice& list_;
  ListKeys keys_;
  TypeAhead type_ahead_;
  int at_opening_ = -1;           ///< the item chosen then
  GtkMenuShell* menu_ = nullptr;  ///< the list when it is open; none before it is first
};

}  // namespace

void SetUpChoice(wxChoice& list, ListKeys keys)
{
  const auto chooser = std::make_shared<Chooser>(list, keys);
  list.Bind(wxEVT_MOUSEWHEEL, [](wxMouseEvent&) {});
  list.Bind(wxEVT_KEY_DOWN, [chooser](wxKeyEvent& event) { chooser->OnKeyDown(event); });
  list.Bind(wxEVT_CHAR, [chooser](wxKeyEvent& event) { chooser->OnChar(event); });
}

void CutItemsAtStart(wxChoice& list)
{
  GList* const cells = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(list.GetHandle()));
  for (const GList* cell = cells; cell != nullptr; cell = cell->next)
    g_object_set(cell->data, "ellipsize", PANGO_ELLIPSIZE_START, nullptr);
  g_list_free(cells);
}

}  // namespace velquist::platform
