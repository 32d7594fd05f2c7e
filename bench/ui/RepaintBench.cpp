// SPDX-License-Identifier: MIT
// What a full repaint of the speed bands chart costs (under 2 milliseconds), beside the same number
// of lines, boxes and texts drawn straight with the toolkit; at most 1.3 times as much.
#include <benchmark/benchmark.h>
#include <wx/app.h>
#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/graphics.h>
#include <wx/init.h>

#include <array>
#include <cstdio>
#include <memory>

#include "charts/EngineChart.h"
#include "charts/PictureRecorder.h"
#include "charts/SpeedBandsChart.h"
#include "data/EngineCurve.h"
#include "ui/ChartPainting.h"

namespace {

using namespace velquist;
using charts::Primitive;
using data::ModYear;

constexpr int kWidth = 600;
constexpr int kHeight = 300;

charts::PictureRecorder SpeedBandsPicture()
{
  constexpr int kMaximumRpm = 11200;
  data::EngineCurve curve;
  data::ComputeEngineCurve(ModYear::k1967, 1, curve);
  const std::array<float, 6> ratios = {2.4F, 1.9F, 1.5F, 1.25F, 1.05F, 0.9F};
  charts::PictureRecorder picture;
  picture.Resize(kWidth, kHeight);
  charts::DrawSpeedBands(
      picture, ModYear::k1967,
      charts::ComputeSpeedBands(curve, kMaximumRpm, ModYear::k1967, 1, ratios, 3.6F, false));
  return picture;
}

charts::PictureRecorder EnginePicture()
{
  data::EngineCurve curve;
  data::ComputeEngineCurve(ModYear::k1967, 1, curve);
  charts::PictureRecorder picture;
  picture.Resize(kWidth, kHeight);
  charts::DrawEngineChart(picture, ModYear::k1967, curve, 11200);
  return picture;
}

void Repaint(benchmark::State& state, const charts::PictureRecorder& picture)
{
  wxBitmap bitmap(kWidth, kHeight);
  for (auto _ : state) {
    wxMemoryDC dc(bitmap);
    ui::DrawPicture(dc, picture);
  }
}

wxColour Colour(const platform::Colour& colour)
{
  return {colour.red, colour.green, colour.blue};
}

/// The toolkit's own way of doing the same: pen, brush and font per call, nothing else.
void DrawStraight(wxMemoryDC& dc, const charts::PictureRecorder& picture)
{
  dc.SetBackground(*wxWHITE_BRUSH);
  dc.Clear();
  const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
  for (const auto& drawn : picture.Drawn()) {
    switch (drawn.kind) {
      case Primitive::Kind::kLine:
        context->SetPen(
            wxPen(Colour(drawn.colour), static_cast<int>(drawn.width),
                  drawn.style == platform::LineStyle::kDotted ? wxPENSTYLE_DOT : wxPENSTYLE_SOLID));
        context->StrokeLine(drawn.x1, drawn.y1, drawn.x2, drawn.y2);
        break;
      case Primitive::Kind::kBox:
        context->SetPen(wxPen(Colour(drawn.colour)));
        context->SetBrush(drawn.fill ? wxBrush(Colour(*drawn.fill)) : *wxTRANSPARENT_BRUSH);
        context->DrawRectangle(drawn.x1, drawn.y1, drawn.x2 - drawn.x1, drawn.y2 - drawn.y1);
        break;
      default: break;
    }
  }
  const wxFont font(wxFontInfo(9).FaceName("Arial"));
  dc.SetFont(font);
  for (const auto& drawn : picture.Drawn())
    if (drawn.kind == Primitive::Kind::kText)
      dc.DrawText(wxString::FromUTF8(drawn.text), static_cast<int>(drawn.x1),
                  static_cast<int>(drawn.y1));
}

void Straight(benchmark::State& state, const charts::PictureRecorder& picture)
{
  wxBitmap bitmap(kWidth, kHeight);
  for (auto _ : state) {
    wxMemoryDC dc(bitmap);
    DrawStraight(dc, picture);
  }
}

}  // namespace

int main(int argc, char** argv)
{
  benchmark::Initialize(&argc, argv);
  wxApp::SetInstance(new wxApp);
  const wxInitializer toolkit(argc, argv);
  if (!toolkit.IsOk()) {
    std::fputs("there is no display to draw for\n", stderr);
    return 1;
  }
  const auto bands = SpeedBandsPicture();
  const auto engine = EnginePicture();
  benchmark::RegisterBenchmark("SpeedBands/Repaint", Repaint, bands);
  benchmark::RegisterBenchmark("SpeedBands/Straight", Straight, bands);
  benchmark::RegisterBenchmark("Engine/Repaint", Repaint, engine);
  benchmark::RegisterBenchmark("Engine/Straight", Straight, engine);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
