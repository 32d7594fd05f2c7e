// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include <algorithm>

#include "platform_wx/NativeLook.h"

namespace velquist::platform {
namespace {

class LabelledFrame final : public wxStaticBox {
 public:
  LabelledFrame(wxWindow* parent, wxWindowID id, const wxString& name)
      : wxStaticBox(parent, id, wxString(), wxDefaultPosition, wxSize(1, 1), 0, name)
  {
    ShowLabel(wxString());
    g_signal_connect_after(m_widget, "size-allocate", G_CALLBACK(PlaceLabel), nullptr);
  }

  void SetLabel(const wxString& label) override
  {
    wxStaticBox::SetLabel(label);
    ShowLabel(label);
  }

 protected:
  /// The toolkit would give the label to the control behind.
  bool GTKWidgetNeedsMnemonic() const override { return false; }

 private:
  /// An empty one is nothing for a screen reader to come upon.
  void ShowLabel(const wxString& label)
  {
    GtkWidget* const text = gtk_frame_get_label_widget(GTK_FRAME(m_widget));
    if (text != nullptr) gtk_widget_set_visible(text, label.empty() ? FALSE : TRUE);
  }

  /// A little from the corner. A margin would do so, too, but the border leaves it out with the
  /// label, and the corner with it.
  static void PlaceLabel(GtkWidget* frame, GtkAllocation* place, gpointer)
  {
    GtkWidget* const text = gtk_frame_get_label_widget(GTK_FRAME(frame));
    if (text == nullptr || !gtk_widget_get_visible(text)) return;
    GtkRequisition size;
    gtk_widget_get_preferred_size(text, nullptr, &size);
    const int from_corner = std::max(6, size.height / 3);
    const int beside = std::max(place->width - size.width, from_corner);
    gtk_frame_set_label_align(GTK_FRAME(frame),
                              static_cast<float>(from_corner) / static_cast<float>(beside), 0.5F);
  }
};

}  // namespace

wxStaticBox* MakeFrame(wxWindow* parent, wxWindowID id, const wxString& name)
{
  return new LabelledFrame(parent, id, name);
}

}  // namespace velquist::platform
