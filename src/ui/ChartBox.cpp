// SPDX-License-Identifier: MIT
#include "ui/ChartBox.h"

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "app/ChartPictures.h"
#include "charts/PlotXy.h"
#include "platform_wx/WxText.h"
#include "ui/ChartPainting.h"

namespace velquist::ui {
namespace {

// Steps of the keys, parts of the plot box.
constexpr int kSteps = 100;
constexpr int kLargeSteps = 10;

}  // namespace

ChartSource SourceOf(const app::MainWindow& window, const app::ControlDesign& chart)
{
  return {.recorded = &(window.Form().*chart.chart),
          .designed = {chart.place.width, chart.place.height},
          .picture = [&window, &chart](
                         double width,
                         double height) { return app::ChartPicture(window, chart, width, height); },
          .outlines =
              [&window, &chart](double width, double height) {
                return app::ReferencePicture(window, chart, width, height);
              },
          .read = [&window, &chart](
                      double width, double height, double x,
                      double y) { return app::ChartReading(window, chart, width, height, x, y); }};
}

ChartBox::ChartBox(wxWindow* parent, wxWindowID id, const wxString& name, ChartSource source)
    : wxWindow(parent, id, wxDefaultPosition, wxSize(1, 1),
               wxFULL_REPAINT_ON_RESIZE | wxWANTS_CHARS, name),
      source_(std::move(source))
{
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
  for (const auto at : {wxEVT_ENTER_WINDOW, wxEVT_MOTION})
    Bind(at, [this](wxMouseEvent& event) { OnPointer(event.GetPosition()); });
  Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) { OnPointer(std::nullopt); });
  Bind(wxEVT_KEY_DOWN, &ChartBox::OnKey, this);
  Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
    OnFocus(true);
    event.Skip();
  });
  Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
    OnFocus(false);
    event.Skip();
  });
}

void ChartBox::BringInLine(const std::shared_ptr<const void>& reference)
{
  if (source_.recorded->Version() == version_ && reference == reference_) return;
  version_ = source_.recorded->Version();
  reference_ = reference;
  painted_ = wxBitmap();
  Read();  // what is pointed at may be something else now
  Refresh(false);
}

double ChartBox::Zoom() const
{
  const wxSize size = GetClientSize();
  return std::max(1.0, std::min(static_cast<double>(size.x) / source_.designed.x,
                                static_cast<double>(size.y) / source_.designed.y));
}

wxRealPoint ChartBox::PictureSize() const
{
  const double zoom = Zoom();
  if (zoom <= 1) return {source_.recorded->Width(), source_.recorded->Height()};
  const wxSize size = GetClientSize();
  return {size.x / zoom, size.y / zoom};
}

wxRect ChartBox::Plot() const
{
  const auto size = PictureSize();
  const charts::PlotBox box(size.x, size.y);
  const auto shown = [zoom = Zoom()](double at) {
    return static_cast<int>(std::lround(at * zoom));
  };
  if (box.IsEmpty()) return {};
  return {wxPoint(shown(box.left), shown(box.top)), wxPoint(shown(box.right), shown(box.bottom))};
}

std::optional<wxPoint> ChartBox::CrossHair() const
{
  if (reading_.empty()) return std::nullopt;
  return pointer_ ? pointer_ : keyed_;
}

/// What is said where the pointer is, or the keys are without one.
void ChartBox::Read()
{
  const auto at = pointer_ ? pointer_ : keyed_;
  reading_.clear();
  if (!at) return;
  const double zoom = Zoom();
  const auto size = PictureSize();
  reading_ = source_.read(size.x, size.y, at->x / zoom, at->y / zoom);
}

void ChartBox::OnPointer(std::optional<wxPoint> pointer)
{
  const auto before = CrossHair();
  pointer_ = pointer;
  const std::string said = std::exchange(reading_, {});
  Read();
  if (before != CrossHair() || said != reading_) Refresh(false);
}

void ChartBox::OnFocus(bool has_focus)
{
  const wxRect plot = Plot();
  keyed_.reset();
  if (has_focus) keyed_ = wxPoint(plot.x + plot.width / 2, plot.y + plot.height / 2);
  Read();
  Refresh(false);
}

void ChartBox::OnKey(wxKeyEvent& event)
{
  const wxRect plot = Plot();
  const auto step = [&](int length) {
    const int steps = event.ControlDown() || event.ShiftDown() ? kLargeSteps : kSteps;
    return std::max(length / steps, 1);
  };
  wxPoint at = keyed_.value_or(plot.GetPosition());
  switch (event.GetKeyCode()) {
    case WXK_LEFT: at.x -= step(plot.width); break;
    case WXK_RIGHT: at.x += step(plot.width); break;
    case WXK_UP: at.y -= step(plot.height); break;
    case WXK_DOWN: at.y += step(plot.height); break;
    case WXK_HOME: at.x = plot.GetLeft(); break;
    case WXK_END: at.x = plot.GetRight(); break;
    case WXK_TAB:
      if (!HandleAsNavigationKey(event)) event.Skip();
      return;
    default: event.Skip(); return;
  }
  keyed_ = wxPoint(std::clamp(at.x, plot.GetLeft(), plot.GetRight()),
                   std::clamp(at.y, plot.GetTop(), plot.GetBottom()));
  pointer_.reset();  // until it moves again
  Read();
  Refresh(false);
}

void ChartBox::OnPaint()
{
  wxAutoBufferedPaintDC paint(this);
  const wxSize size = GetClientSize();
  if (size.x < 1 || size.y < 1) return;
  const auto cross = CrossHair();
  if (cross) {
    paint.DrawBitmap(Painted(), 0, 0);
  } else {
    painted_ = wxBitmap();
    Draw(paint);
  }
  paint.SetBrush(*wxTRANSPARENT_BRUSH);
  if (HasFocus()) {
    paint.SetPen(wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), 2));
    paint.DrawRectangle(wxRect(size).Deflate(1, 1));
  }
  if (cross) {
    DrawCrossHair(paint, *cross, Plot());
    DrawReading(paint, platform::FromText(reading_), *cross, size);
  }
}

void ChartBox::Draw(wxDC& dc) const
{
  const double zoom = Zoom();
  const auto size = PictureSize();
  DrawChart(dc, zoom > 1 ? source_.picture(size.x, size.y) : *source_.recorded,
            source_.outlines(size.x, size.y), zoom);
}

/// Kept while the cross hair has it painted again and again.
const wxBitmap& ChartBox::Painted()
{
  const wxSize size = GetClientSize();
  const double scale = GetContentScaleFactor();
  if (painted_.IsOk() && painted_.GetSize() == size * scale) return painted_;
  painted_.CreateScaled(size.x, size.y, wxBITMAP_SCREEN_DEPTH, scale);
  wxMemoryDC memory(painted_);
  Draw(memory);
  return painted_;
}

}  // namespace velquist::ui
