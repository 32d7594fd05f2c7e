// SPDX-License-Identifier: MIT
#include "ui/ChartPainting.h"

#include <wx/font.h>
#include <wx/graphics.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

#include "charts/PlotXy.h"
#include "platform_wx/NativeLook.h"
#include "platform_wx/WxText.h"
#include "ui/Widgets.h"

namespace velquist::ui {
namespace {

using charts::Primitive;

wxColour ToWx(const platform::Colour& colour)
{
  return {colour.red, colour.green, colour.blue};
}

bool IsAlongPixels(const Primitive& line)
{
  return line.x1 == line.x2 || line.y1 == line.y2;
}

void FillRectangle(wxGraphicsContext& context, const platform::Colour& colour, double left,
                   double top, double width, double height)
{
  context.SetPen(*wxTRANSPARENT_PEN);
  context.SetBrush(wxBrush(ToWx(colour)));
  context.DrawRectangle(left, top, width, height);
}

void DrawDottedLine(wxGraphicsContext& context, const Primitive& line)
{
  constexpr double kPixelMiddle = 0.5;
  static const std::array<wxDash, 2> kDots = {1, 2};
  context.SetPen(context.CreatePen(wxGraphicsPenInfo(ToWx(line.colour))
                                       .Width(line.width)
                                       .Style(wxPENSTYLE_USER_DASH)
                                       .Dashes(static_cast<int>(kDots.size()), kDots.data())
                                       .Cap(wxCAP_BUTT)));
  const double x = line.x1 == line.x2 ? kPixelMiddle : 0;
  const double y = line.x1 == line.x2 ? 0 : kPixelMiddle;
  context.StrokeLine(std::round(line.x1) + x, std::round(line.y1) + y, std::round(line.x2) + x,
                     std::round(line.y2) + y);
}

void DrawStraightLine(wxGraphicsContext& context, const Primitive& line)
{
  const double before = std::floor((line.width - 1) / 2);
  const double left = std::round(std::min(line.x1, line.x2));
  const double top = std::round(std::min(line.y1, line.y2));
  if (line.x1 == line.x2)
    FillRectangle(context, line.colour, left - before, top, line.width,
                  std::round(std::max(line.y1, line.y2)) - top);
  else
    FillRectangle(context, line.colour, left, top - before,
                  std::round(std::max(line.x1, line.x2)) - left, line.width);
}

/// Draws the lines from `first` on that make one curve and returns the last of them.
std::size_t DrawCurve(wxGraphicsContext& context, const std::vector<Primitive>& drawn,
                      std::size_t first)
{
  auto path = context.CreatePath();
  path.MoveToPoint(drawn[first].x1, drawn[first].y1);
  path.AddLineToPoint(drawn[first].x2, drawn[first].y2);
  std::size_t last = first;
  for (; last + 1 < drawn.size() && charts::GoesOn(drawn[last], drawn[last + 1]); ++last)
    path.AddLineToPoint(drawn[last + 1].x2, drawn[last + 1].y2);
  context.SetPen(context.CreatePen(wxGraphicsPenInfo(ToWx(drawn[first].colour))
                                       .Width(drawn[first].width)
                                       .Join(wxJOIN_ROUND)
                                       .Cap(wxCAP_BUTT)));
  context.StrokePath(path);
  return last;
}

void DrawBox(wxGraphicsContext& context, const Primitive& box)
{
  const double left = std::round(box.x1);
  const double top = std::round(box.y1);
  const double width = std::max(std::round(box.x2) - left, 0.0) + 1;
  const double height = std::max(std::round(box.y2) - top, 0.0) + 1;
  if (box.fill) FillRectangle(context, *box.fill, left, top, width, height);
  if (box.fill == box.colour) return;
  FillRectangle(context, box.colour, left, top, width, 1);
  FillRectangle(context, box.colour, left, top + height - 1, width, 1);
  FillRectangle(context, box.colour, left, top, 1, height);
  FillRectangle(context, box.colour, left + width - 1, top, 1, height);
}

void DrawShapes(wxGraphicsContext& context, const std::vector<Primitive>& drawn)
{
  context.EnableOffset(false);  // all coordinates here are edges of pixels
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    switch (drawn[i].kind) {
      case Primitive::Kind::kLine:
        if (drawn[i].style == platform::LineStyle::kDotted)
          DrawDottedLine(context, drawn[i]);
        else if (IsAlongPixels(drawn[i]) &&
                 !(i + 1 < drawn.size() && charts::GoesOn(drawn[i], drawn[i + 1])))
          DrawStraightLine(context, drawn[i]);
        else
          i = DrawCurve(context, drawn, i);
        break;
      case Primitive::Kind::kBox: DrawBox(context, drawn[i]); break;
      case Primitive::Kind::kDot:
        FillRectangle(context, drawn[i].colour, std::round(drawn[i].x1), std::round(drawn[i].y1), 1,
                      1);
        break;
      case Primitive::Kind::kText: break;
    }
  }
}

/// The coloured shapes of a chart as thin outlines, paler than what is drawn over them. Axes, grid
/// and texts are those of the other chart.
std::vector<Primitive> Outlines(const std::vector<Primitive>& drawn)
{
  const auto pale = [](platform::Colour colour) {
    const auto part = [](unsigned char value) {
      return static_cast<unsigned char>(value + (255 - value) / 4);
    };
    return platform::Colour{part(colour.red), part(colour.green), part(colour.blue)};
  };
  std::vector<Primitive> outlines;
  for (auto shape : drawn) {
    const auto& [red, green, blue] = shape.colour;
    const bool grey = red == green && green == blue;
    if (grey || shape.kind == Primitive::Kind::kText) continue;
    shape.colour = pale(shape.colour);
    shape.fill.reset();
    shape.width = 1;
    outlines.push_back(std::move(shape));
  }
  return outlines;
}

/// Above all shapes, with the system's own text, which finds a font in place of a missing one.
void DrawTexts(wxDC& dc, const std::vector<Primitive>& drawn)
{
  double letter_height = 0;
  dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
  for (const auto& text : drawn) {
    if (text.kind != Primitive::Kind::kText) continue;
    if (text.letter_height != letter_height)
      dc.SetFont(platform::LetterFont(dc, LetterFace(), text.letter_height));
    letter_height = text.letter_height;
    dc.SetTextForeground(ToWx(text.colour));
    const wxString shown = platform::FromText(text.text);
    // Letters put on whole pixels are not quite as wide as measured, nor their lines as high.
    int width = 0;
    int height = 0;
    int descent = 0;
    dc.GetTextExtent(shown, &width, &height, &descent);
    const double left = (text.x1 + text.x2 - width) / 2;
    const double top = text.y1 + charts::kBaseline * text.letter_height - (height - descent);
    dc.DrawText(shown, static_cast<int>(std::lround(left)), static_cast<int>(std::lround(top)));
  }
}

/// With lines and letters, but for frames, which stay one pixel wide.
std::vector<Primitive> Enlarged(std::vector<Primitive> drawn, double zoom)
{
  for (auto& shape : drawn) {
    const double last_pixel = shape.kind == Primitive::Kind::kBox && shape.fill ? 1 : 0;
    shape.x1 *= zoom;
    shape.y1 *= zoom;
    shape.x2 = (shape.x2 + last_pixel) * zoom - last_pixel;
    shape.y2 = (shape.y2 + last_pixel) * zoom - last_pixel;
    shape.width = std::max(std::round(shape.width * zoom), 1.0);
    shape.letter_height *= zoom;
  }
  return drawn;
}

/// One above the other, the texts of all of them last.
void DrawLayers(wxDC& dc, platform::Colour background,
                const std::vector<std::vector<Primitive>>& layers)
{
  dc.SetBackground(wxBrush(ToWx(background)));
  dc.Clear();
  if (const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::CreateFromUnknownDC(dc));
      context)
    for (const auto& layer : layers) DrawShapes(*context, layer);
  for (const auto& layer : layers) DrawTexts(dc, layer);
}

}  // namespace

void DrawPicture(wxDC& dc, const charts::PictureRecorder& picture)
{
  DrawLayers(dc, picture.Background(), {picture.Drawn()});
}

void DrawChart(wxDC& dc, const charts::PictureRecorder& chart,
               const charts::PictureRecorder& outlined, double zoom)
{
  DrawLayers(dc, chart.Background(),
             {Enlarged(BeyondLimit(chart), zoom), Enlarged(Outlines(outlined.Drawn()), zoom),
              Enlarged(chart.Drawn(), zoom)});
}

std::vector<Primitive> BeyondLimit(const charts::PictureRecorder& chart)
{
  static constexpr platform::Colour kShade{236, 236, 236};
  static constexpr char kName[] = "Max RPM";
  constexpr double kBeside = 3;
  const auto limit = std::ranges::find_if(chart.Drawn(), [](const Primitive& line) {
    return line.kind == Primitive::Kind::kLine && line.style == platform::LineStyle::kDotted &&
           line.colour == charts::kRed && line.x1 == line.x2;
  });
  if (limit == chart.Drawn().end()) return {};
  const charts::PlotBox plot(chart.Width(), chart.Height());
  charts::PictureRecorder beyond;
  if (limit->x1 + 1 < plot.right)
    beyond.Box(limit->x1, plot.top, plot.right, plot.bottom, kShade, kShade);
  const auto text = [](const Primitive& drawn) { return drawn.kind == Primitive::Kind::kText; };
  const auto label = std::ranges::find_if(chart.Drawn(), text);  // of an axis
  const bool named =
      std::ranges::find(chart.Drawn(), kName, &Primitive::text) != chart.Drawn().end();
  if (!named && label != chart.Drawn().end()) {
    beyond.SetLetterHeight(label->letter_height);
    const auto extent = beyond.Extent(kName);
    beyond.Text(limit->x1 - kBeside - extent.width, plot.bottom - extent.height - 1, kName);
  }
  return beyond.Drawn();
}

void DrawCrossHair(wxDC& dc, wxPoint at, wxRect plot)
{
  static const wxColour kColour(118, 118, 118);
  dc.SetPen(wxPen(kColour));
  dc.DrawLine(plot.GetLeft(), at.y, plot.GetRight() + 1, at.y);
  dc.DrawLine(at.x, plot.GetTop(), at.x, plot.GetBottom() + 1);
}

void DrawReading(wxDC& dc, const wxString& text, wxPoint pointer, wxSize size)
{
  const double letters = std::round(std::clamp(size.y * 0.035, 12.0, 20.0));
  constexpr int kPadding = 5;
  constexpr int kBeside = 12;  ///< from the pointer to the box
  static const wxColour kPaper(255, 255, 225);
  static const wxColour kFrame(118, 118, 118);
  dc.SetFont(platform::LetterFont(dc, LetterFace(), letters));
  wxSize box = dc.GetMultiLineTextExtent(text);
  box.IncBy(2 * kPadding, 2 * kPadding - 4);
  const auto place = [](int at, int length, int room) {
    const int beyond = at + kBeside;
    const int wanted = beyond + length <= room ? beyond : at - kBeside - length;
    return std::clamp(wanted, 0, std::max(room - length, 0));
  };
  const wxPoint corner(place(pointer.x, box.x, size.x), place(pointer.y, box.y, size.y));
  dc.SetPen(wxPen(kFrame));
  dc.SetBrush(wxBrush(kPaper));
  dc.DrawRectangle(corner, box);
  dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
  dc.SetTextForeground(*wxBLACK);
  dc.DrawLabel(text, wxRect(corner, box).Deflate(kPadding, kPadding - 2));
}

}  // namespace velquist::ui
