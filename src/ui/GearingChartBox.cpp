// SPDX-License-Identifier: MIT
#include "ui/GearingChartBox.h"

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>

#include <cmath>
#include <utility>

#include "platform_wx/WxText.h"
#include "ui/ChartPainting.h"

namespace velquist::ui {
namespace {

constexpr double kStep = 1;  ///< of the cursor, mph or km/h
constexpr double kLargeStep = 10;

}  // namespace

GearingChartBox::GearingChartBox(wxWindow* parent, const wxString& name, app::GearingChart chart,
                                 Moved moved)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxSize(1, 1),
               wxFULL_REPAINT_ON_RESIZE | wxWANTS_CHARS, name),
      chart_(chart),
      moved_(std::move(moved))
{
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
  Bind(wxEVT_MOTION, [this](wxMouseEvent& event) { OnPointer(event.GetPosition()); });
  Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) { OnPointer(std::nullopt); });
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    SetFocus();
    pointer_ = event.GetPosition();
    if (const auto speed = PointedSpeed()) moved_(*speed);
  });
  Bind(wxEVT_KEY_DOWN, &GearingChartBox::OnKey, this);
  for (const auto focus : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS})
    Bind(focus, [this](wxFocusEvent& event) {
      event.Skip();
      Refresh(false);
    });
}

void GearingChartBox::ShowView(const app::GearingView& view)
{
  view_ = &view;
  is_recorded_ = false;
  Refresh(false);
}

void GearingChartBox::ShowCursor(double speed)
{
  cursor_ = speed;
  Refresh(false);
}

const charts::PictureRecorder& GearingChartBox::Recorded()
{
  const wxSize size = GetClientSize();
  if (is_recorded_ &&
      size == wxSize(static_cast<int>(recorded_.Width()), static_cast<int>(recorded_.Height())))
    return recorded_;
  recorded_.Resize(size.x, size.y);
  if (view_ != nullptr) app::DrawGearing(recorded_, *view_, chart_);
  is_recorded_ = true;
  painted_ = wxBitmap();
  return recorded_;
}

wxBitmap GearingChartBox::Painted()
{
  const auto& recorded = Recorded();
  const double scale = GetContentScaleFactor();
  if (!painted_.IsOk() || painted_.GetScaleFactor() != scale) {
    painted_.CreateScaled(static_cast<int>(recorded.Width()), static_cast<int>(recorded.Height()),
                          wxBITMAP_SCREEN_DEPTH, scale);
    wxMemoryDC memory(painted_);
    DrawPicture(memory, recorded);
  }
  return painted_;
}

void GearingChartBox::OnPointer(std::optional<wxPoint> pointer)
{
  if (pointer == pointer_) return;
  pointer_ = pointer;
  Refresh(false);
}

charts::PlotBox GearingChartBox::Plot() const
{
  const wxSize size = GetClientSize();
  return charts::GearingBox(size.x, size.y);
}

std::optional<double> GearingChartBox::PointedSpeed() const
{
  if (!pointer_ || view_ == nullptr) return std::nullopt;
  return charts::SpeedAt(Plot(), view_->picture, pointer_->x, pointer_->y);
}

std::string GearingChartBox::Reading() const
{
  const auto pointed = PointedSpeed();
  if (view_ == nullptr || !(pointed || HasFocus())) return {};
  return app::ReadingText(*view_, pointed.value_or(Cursor()), "\n");
}

void GearingChartBox::OnPaint()
{
  static const wxColour kFocusColour(0, 90, 200);
  static const wxColour kPointerColour(118, 118, 118);
  wxAutoBufferedPaintDC paint(this);
  const wxSize size = GetClientSize();
  if (size.x < 1 || size.y < 1 || view_ == nullptr) return;
  paint.DrawBitmap(Painted(), 0, 0);
  const auto box = Plot();
  if (box.IsEmpty()) return;
  const auto line_at = [&](double x) {
    const int at = static_cast<int>(std::lround(x));
    paint.DrawLine(at, static_cast<int>(box.top) + 1, at, static_cast<int>(box.bottom));
  };
  if (HasFocus() || cursor_) {
    paint.SetPen(wxPen(*wxBLACK, 1));
    line_at(charts::PixelOfSpeed(box, view_->picture, Cursor()));
  }
  if (HasFocus()) {
    paint.SetBrush(*wxTRANSPARENT_BRUSH);
    paint.SetPen(wxPen(kFocusColour, 2));
    paint.DrawRectangle(wxRect(size).Deflate(1, 1));
  }
  // That of the cursor at the right, where no curve is so high.
  wxPoint beside(static_cast<int>(box.right),
                 static_cast<int>(box.top + 2 * charts::GearingLetters(size.x, size.y)));
  if (PointedSpeed()) {
    beside = *pointer_;
    paint.SetPen(wxPen(kPointerColour, 1, wxPENSTYLE_DOT));
    line_at(beside.x);
  }
  if (const auto reading = Reading(); !reading.empty())
    DrawReading(paint, platform::FromText(reading), beside, size);
}

void GearingChartBox::OnKey(wxKeyEvent& event)
{
  if (view_ == nullptr) return event.Skip();
  const double end = charts::SpeedAxis(view_->picture).maximum;
  const double step = event.ControlDown() || event.ShiftDown() ? kLargeStep : kStep;
  switch (event.GetKeyCode()) {
    case WXK_LEFT: moved_(Cursor() - step); break;
    case WXK_RIGHT: moved_(Cursor() + step); break;
    case WXK_PAGEUP: moved_(Cursor() + kLargeStep); break;
    case WXK_PAGEDOWN: moved_(Cursor() - kLargeStep); break;
    case WXK_HOME: moved_(0); break;
    case WXK_END: moved_(end); break;
    case WXK_TAB:
      if (!HandleAsNavigationKey(event)) event.Skip();
      break;
    default: event.Skip();
  }
}

}  // namespace velquist::ui
