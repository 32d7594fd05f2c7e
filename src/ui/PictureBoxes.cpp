// SPDX-License-Identifier: MIT
#include "ui/PictureBoxes.h"

#include <wx/dcbuffer.h>
#include <wx/graphics.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "platform/wx/WxText.h"
#include "ui/Widgets.h"

namespace velquist::ui {
namespace {

using app::Primitive;

constexpr double kMostEnlarged = 2;

wxColour ToWx(const platform::Colour& colour)
{
  return {colour.red, colour.green, colour.blue};
}

/// Lines that run along the pixels are put on them, so that they are drawn crisp; others are
/// smoothed.
void DrawLine(wxGraphicsContext& context, const Primitive& line)
{
  const auto style =
      line.style == platform::LineStyle::kDotted ? wxPENSTYLE_DOT : wxPENSTYLE_SOLID;
  context.SetPen(context.CreatePen(
      wxGraphicsPenInfo(ToWx(line.colour)).Width(line.width).Style(style).Cap(wxCAP_BUTT)));
  if (line.x1 == line.x2 || line.y1 == line.y2) {
    context.SetAntialiasMode(wxANTIALIAS_NONE);
    context.StrokeLine(std::round(line.x1), std::round(line.y1), std::round(line.x2),
                       std::round(line.y2));
    context.SetAntialiasMode(wxANTIALIAS_DEFAULT);
  } else {
    context.StrokeLine(line.x1, line.y1, line.x2, line.y2);
  }
}

void DrawBox(wxGraphicsContext& context, const Primitive& box)
{
  const double left = std::round(box.x1);
  const double top = std::round(box.y1);
  const double width = std::max(std::round(box.x2) - left, 1.0);
  const double height = std::max(std::round(box.y2) - top, 1.0);
  context.SetAntialiasMode(wxANTIALIAS_NONE);
  context.SetPen(*wxTRANSPARENT_PEN);
  if (box.fill) {
    context.SetBrush(wxBrush(ToWx(*box.fill)));
    context.DrawRectangle(left, top, width + 1, height + 1);
  }
  context.SetBrush(wxBrush(ToWx(box.colour)));
  context.DrawRectangle(left, top, width + 1, 1);
  context.DrawRectangle(left, top + height, width + 1, 1);
  context.DrawRectangle(left, top, 1, height + 1);
  context.DrawRectangle(left + width, top, 1, height + 1);
  context.SetAntialiasMode(wxANTIALIAS_DEFAULT);
}

void DrawDot(wxGraphicsContext& context, const Primitive& dot)
{
  context.SetPen(*wxTRANSPARENT_PEN);
  context.SetBrush(wxBrush(ToWx(dot.colour)));
  context.DrawRectangle(std::round(dot.x1), std::round(dot.y1), 1, 1);
}

void DrawShapes(wxGraphicsContext& context, const app::PictureRecorder& picture)
{
  for (const auto& drawn : picture.Drawn()) {
    switch (drawn.kind) {
      case Primitive::Kind::kLine: DrawLine(context, drawn); break;
      case Primitive::Kind::kBox: DrawBox(context, drawn); break;
      case Primitive::Kind::kDot: DrawDot(context, drawn); break;
      case Primitive::Kind::kText: break;
    }
  }
}

/// Above all shapes, with the system's own text, which finds a font in place of a missing one.
void DrawTexts(wxDC& dc, const app::PictureRecorder& picture)
{
  dc.SetFont(ControlFont(static_cast<int>(std::lround(picture.FontSize()))));
  dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
  for (const auto& drawn : picture.Drawn()) {
    if (drawn.kind != Primitive::Kind::kText) continue;
    dc.SetTextForeground(ToWx(drawn.colour));
    dc.DrawText(platform::FromText(drawn.text), static_cast<int>(std::lround(drawn.x1)),
                static_cast<int>(std::lround(drawn.y1)));
  }
}

/// `image` in a bitmap that fills `box` device pixels in one direction; `scale` device pixels
/// make one of the window's.
wxBitmap Fitted(const wxImage& image, wxSize box, double scale)
{
  const double fit = std::min(static_cast<double>(box.x) / image.GetWidth(),
                              static_cast<double>(box.y) / image.GetHeight());
  const double factor = std::min(fit, kMostEnlarged * scale);
  const auto scaled = [factor](int length) {
    return std::max(static_cast<int>(std::lround(length * factor)), 1);
  };
  return {image.Scale(scaled(image.GetWidth()), scaled(image.GetHeight()), wxIMAGE_QUALITY_HIGH),
          wxBITMAP_SCREEN_DEPTH, scale};
}

}  // namespace

ChartBox::ChartBox(wxWindow* parent, wxWindowID id, const wxString& name,
                   const app::PictureRecorder& picture)
    : wxWindow(parent, id, wxDefaultPosition, wxSize(1, 1), wxFULL_REPAINT_ON_RESIZE, name),
      picture_(picture)
{
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
}

void ChartBox::BringInLine()
{
  if (picture_.Version() != version_) Refresh();
}

void ChartBox::OnPaint()
{
  version_ = picture_.Version();
  wxAutoBufferedPaintDC paint(this);
  paint.SetBackground(wxBrush(ToWx(picture_.Background())));
  paint.Clear();
  if (const std::unique_ptr<wxGraphicsContext> context(
          wxGraphicsContext::CreateFromUnknownDC(paint));
      context)
    DrawShapes(*context, picture_);
  DrawTexts(paint, picture_);
}

CarPictureBox::CarPictureBox(wxWindow* parent, wxWindowID id, const wxString& name,
                             platform::WxPictureLoader& pictures)
    : wxPanel(parent, id, wxDefaultPosition, wxSize(1, 1),
              wxFULL_REPAINT_ON_RESIZE | wxBORDER_NONE, name),
      pictures_(pictures)
{
  SetDoubleBuffered(true);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
}

void CarPictureBox::ShowPicture(const std::string& path)
{
  if (path == path_) return;
  path_ = path;
  scaled_ = wxBitmap();
  Refresh();
}

void CarPictureBox::OnPaint()
{
  wxPaintDC paint(this);
  const wxSize size = GetClientSize();
  const double scale = GetContentScaleFactor();
  const wxSize device = size * scale;
  if (device.x < 1 || device.y < 1) return;
  if (!scaled_.IsOk() || scaled_for_ != device) {
    const wxImage& image = pictures_.Picture(path_);
    if (!image.IsOk()) return;
    scaled_ = Fitted(image, device, scale);
    scaled_for_ = device;
  }
  const wxSize shown(scaled_.GetLogicalSize());
  paint.DrawBitmap(scaled_, (size.x - shown.x) / 2, (size.y - shown.y) / 2);
}

MarqueeBox::MarqueeBox(wxWindow* parent, wxWindowID id, const wxString& name)
    : wxPanel(parent, id, wxDefaultPosition, wxSize(1, 1), wxBORDER_NONE, name)
{
  SetDoubleBuffered(true);
}

}  // namespace velquist::ui
