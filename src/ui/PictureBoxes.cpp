// SPDX-License-Identifier: MIT
#include "ui/PictureBoxes.h"

#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/toplevel.h>

#include <utility>

#include "app/CarPictures.h"
#include "platform_wx/NativeLook.h"
#include "platform_wx/Spoken.h"
#include "platform_wx/WxText.h"
#include "ui/Widgets.h"

namespace velquist::ui {
namespace {

/// Pixels of background after the quotation, which wipe out its end where it was before.
constexpr int kMarqueeMargin = 8;

/// `image` in a bitmap that fills `box` device pixels in one direction; `scale` device pixels
/// make one of the window's.
wxBitmap Fitted(const wxImage& image, wxSize box, double scale)
{
  const auto fitted = app::FittedPicture({image.GetWidth(), image.GetHeight()}, {box.x, box.y});
  return {image.Scale(fitted.width, fitted.height, wxIMAGE_QUALITY_HIGH), wxBITMAP_SCREEN_DEPTH,
          scale};
}

}  // namespace

CarPictureBox::CarPictureBox(wxWindow* parent, wxWindowID id, const wxString& name,
                             platform::WxPictureLoader& pictures)
    : wxPanel(parent, id, wxDefaultPosition, wxSize(1, 1), wxFULL_REPAINT_ON_RESIZE | wxBORDER_NONE,
              name),
      pictures_(pictures)
{
  SetDoubleBuffered(true);
  SetCanFocus(false);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
}

void CarPictureBox::ShowPicture(const std::string& path)
{
  path_ = path;
  // The file may be another one than last time.
  const wxImage image = pictures_.Picture(path_, GetClientSize() * GetContentScaleFactor());
  if (image.IsSameAs(Picture2_)) return;
  Picture2_ = image;
  Picture3_ = wxBitmap();
  Refresh();
}

void CarPictureBox::OnPaint()
{
  wxPaintDC paint(this);
  const wxSize size = GetClientSize();
  const double scale = GetContentScaleFactor();
  const wxSize device = size * scale;
  if (device.x < 1 || device.y < 1) return;
  if (!Picture3_.IsOk() || shown_for_ != device) {
    Picture2_ = pictures_.Picture(path_, device);
    if (!Picture2_.IsOk()) return;
    Picture3_ = Fitted(Picture2_, device, scale);
    shown_for_ = device;
  }
  const wxSize shown(Picture3_.GetLogicalSize());
  paint.DrawBitmap(Picture3_, (size.x - shown.x) / 2, (size.y - shown.y) / 2);
}

MarqueeBox::MarqueeBox(wxWindow* parent, wxWindowID id, const wxString& name,
                       const app::Control& quotation)
    : wxPanel(parent, id, wxDefaultPosition, wxSize(1, 1), wxBORDER_NONE, name),
      quotation_(quotation)
{
  SetDoubleBuffered(true);
  SetCanFocus(false);
  OnColoursChanged();
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    OnColoursChanged();
    event.Skip();
  });
}

void MarqueeBox::BringInLine()
{
  const wxPoint corner = GetPosition();
  const auto& place = quotation_.place;
  const wxRect at(place.left - corner.x, place.top - corner.y, place.width, place.height);
  const bool same = quotation_.text == text_ && at.GetSize() == at_.GetSize();
  if (same && at == at_) return;
  const wxRect before = std::exchange(at_, at);
  const int moved = before.x - at.x;
  if (same && moved > 0 && moved <= kMarqueeMargin && Painted().DrawAtOnce(*this, at.GetPosition()))
    return;
  if (!same) {
    painted_ = {};
    text_ = quotation_.text;
    platform::SetSpoken(*this, platform::FromText(text_), wxString());
  }
  RefreshRect(before);
  RefreshRect(at);
}

void MarqueeBox::OnPaint()
{
  wxPaintDC paint(this);
  if (text_.empty() || at_.IsEmpty()) return;
  if (painted_.IsOk())
    Painted().Draw(paint, at_.GetPosition());
  else
    Paint(paint, at_.GetPosition());  // it may never run
}

void MarqueeBox::Paint(wxDC& dc, wxPoint at) const
{
  const wxString text = platform::FromText(text_);
  dc.SetFont(ControlFont(quotation_.font_size));
  dc.SetTextForeground(GetForegroundColour());
  dc.DrawText(text, at.x, at.y + (at_.height - dc.GetTextExtent(text).y) / 2);
}

/// A drawing context asks for them, and without being told once they are looked up every time.
void MarqueeBox::OnColoursChanged()
{
  const auto around = wxGetTopLevelParent(this)->GetDefaultAttributes();
  SetFont(around.font);
  SetForegroundColour(around.colFg);
  SetBackgroundColour(around.colBg);
  painted_ = {};
  Refresh();
}

const platform::KeptPicture& MarqueeBox::Painted()
{
  const double scale = GetContentScaleFactor();
  if (painted_.IsOk() && painted_.GetScaleFactor() == scale) return painted_;
  wxBitmap picture;
  picture.CreateScaled(at_.width + kMarqueeMargin, at_.height, wxBITMAP_SCREEN_DEPTH, scale);
  {
    wxMemoryDC memory(picture);
    memory.SetBackground(GetBackgroundColour());
    memory.Clear();
    Paint(memory, wxPoint());
  }
  return painted_ = platform::KeptPicture(*this, picture);
}

}  // namespace velquist::ui
