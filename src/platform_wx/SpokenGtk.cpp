// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include <map>
#include <string>
#include <utility>

#include "platform_wx/Spoken.h"

namespace velquist::platform {
namespace {

/// What a screen reader says of a widget.
struct Spoken {
  std::string name;
  std::string description;
  bool heard = false;  ///< somebody has asked for it
};

constexpr char kSpoken[] = "velquist-spoken";

using GetAccessible = AtkObject* (*)(GtkWidget*);

/// Those of the toolkit, by class.
std::map<GType, GetAccessible>& Accessibles()
{
  static std::map<GType, GetAccessible> accessibles;
  return accessibles;
}

void Tell(AtkObject* object, const Spoken& spoken)
{
  if (object == nullptr) return;
  if (!spoken.name.empty()) atk_object_set_name(object, spoken.name.c_str());
  if (!spoken.description.empty() || object->description != nullptr)
    atk_object_set_description(object, spoken.description.c_str());
}

AtkObject* GetTold(GtkWidget* widget)
{
  GType type = G_OBJECT_TYPE(widget);
  while (!Accessibles().contains(type)) type = g_type_parent(type);
  AtkObject* const object = Accessibles().at(type)(widget);
  auto* const spoken = static_cast<Spoken*>(g_object_get_data(G_OBJECT(widget), kSpoken));
  if (spoken != nullptr && !std::exchange(spoken->heard, true)) Tell(object, *spoken);
  return object;
}

/// Has `widget` told of what it says when it is asked the first time. Objects that nobody asks for
/// would take a good part of the window's memory and of the time until it is there.
void AskWhenHeard(GtkWidget* widget)
{
  GtkWidgetClass* const made = GTK_WIDGET_GET_CLASS(widget);
  if (made->get_accessible == GetTold) return;
  Accessibles().emplace(G_OBJECT_TYPE(widget), made->get_accessible);
  made->get_accessible = GetTold;
}

}  // namespace

void SetSpoken(wxWindow& control, const wxString& name, const wxString& description)
{
  GtkWidget* const widget = control.GetHandle();
  auto* spoken = static_cast<Spoken*>(g_object_get_data(G_OBJECT(widget), kSpoken));
  if (spoken == nullptr) {
    spoken = new Spoken;
    g_object_set_data_full(G_OBJECT(widget), kSpoken, spoken,
                           [](gpointer data) { delete static_cast<Spoken*>(data); });
    AskWhenHeard(widget);
  }
  if (!name.empty()) spoken->name = name.utf8_str();
  spoken->description = description.utf8_str();
  if (spoken->heard) Tell(gtk_widget_get_accessible(widget), *spoken);
}

void Announce(wxWindow& line, const wxString& text)
{
  AtkObject* spoken = gtk_widget_get_accessible(line.GetHandle());
  if (spoken == nullptr) return;
  atk_object_set_role(spoken, ATK_ROLE_STATUSBAR);
  atk_object_set_name(spoken, text.utf8_str());
  constexpr char kAnnouncement[] = "announcement";  // older systems have none
  if (g_signal_lookup(kAnnouncement, G_OBJECT_TYPE(spoken)) != 0)
    g_signal_emit_by_name(spoken, kAnnouncement, static_cast<const char*>(text.utf8_str()));
}

}  // namespace velquist::platform
