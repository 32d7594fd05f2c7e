// SPDX-License-Identifier: MIT
#include <gdk/gdkx.h>
#include <gtk/gtk.h>

#include "platform_wx/KeptPicture.h"

namespace velquist::platform {

struct KeptPicture::Kept {
  explicit Kept(cairo_surface_t* own) : surface(own) {}
  ~Kept() { cairo_surface_destroy(surface); }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;

  void Draw(cairo_t* drawing, wxPoint at) const
  {
    cairo_set_source_surface(drawing, surface, at.x, at.y);
    cairo_paint(drawing);
  }

  cairo_surface_t* surface;
};

KeptPicture::KeptPicture(const wxWindow& window, const wxBitmap& picture)
    : scale_(picture.GetScaleFactor())
{
  const wxSize size(picture.GetLogicalSize());
  kept_ = std::make_shared<Kept>(gdk_window_create_similar_surface(
      gtk_widget_get_window(window.GetHandle()), CAIRO_CONTENT_COLOR, size.x, size.y));
  cairo_t* const drawing = cairo_create(kept_->surface);
  picture.Draw(drawing, 0, 0, false);
  cairo_destroy(drawing);
}

void KeptPicture::Draw(wxDC& dc, wxPoint at) const
{
  kept_->Draw(static_cast<cairo_t*>(dc.GetHandle()), at);
}

// A wxClientDC would ask for the window's size, colours and font each time, and what the library
// below recommends instead takes room for a picture of the whole window.
bool KeptPicture::DrawAtOnce(wxWindow& window, wxPoint at) const
{
  if (!GDK_IS_X11_DISPLAY(gdk_display_get_default())) return false;
  G_GNUC_BEGIN_IGNORE_DEPRECATIONS
  cairo_t* const drawing = gdk_cairo_create(window.GTKGetDrawingWindow());
  G_GNUC_END_IGNORE_DEPRECATIONS
  kept_->Draw(drawing, at);
  cairo_destroy(drawing);
  return true;
}

}  // namespace velquist::platform
