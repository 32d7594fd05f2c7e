// SPDX-License-Identifier: MIT
#include "charts/GearingChart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>
#include <vector>

#include "charts/Legend.h"

namespace velquist::charts {
namespace {

using platform::Colour;
using platform::LineStyle;
using platform::PictureSurface;

/// Of the gears, to be told apart by everyone.
constexpr std::array<Colour, 6> kGearColours = {
    {{0, 114, 178}, {213, 94, 0}, {0, 128, 96}, {166, 76, 128}, {150, 100, 0}, {60, 60, 60}}};
constexpr Colour kBestGear{255, 221, 110};
constexpr Colour kReference{150, 150, 150};

// Letter heights.
constexpr double kTitleMiddle = 0.8;  ///< above the bottom
constexpr double kGapByLetters = 0.3;
constexpr double kBandWidth = 0.4;
constexpr double kTooth = 0.2;
constexpr double kThrustStroke = 0.17;

constexpr int kMostValueDivisions = 10;
constexpr int kMostRpmDivisions = 15;
constexpr double kRpmForLabels = 1000;    ///< above maximum rpm
constexpr double kBeyondMost = 1.06;      ///< how far the thrust axis goes on, at least
constexpr double kLeastThrustStep = 100;  ///< of the axis, lb
constexpr double kLeastForceStep = 500;   ///< the same in N

Colour ColourOf(const GearOfCar& gear)
{
  return kGearColours.at(static_cast<std::size_t>(gear.gear - 1) % kGearColours.size());
}

double MostThrust(const GearingPicture& picture, const Gearing& gearing)
{
  double most = 0;
  for (const auto& gear : gearing.gears)
    for (const float rpm : picture.curve.rpm)
      if (gear.speed && rpm >= kIdleRpm && rpm <= static_cast<float>(gearing.maximum_rpm))
        most = std::max(most, ShownThrust(picture, gear, static_cast<double>(rpm)));
  return most;
}

Axis ThrustAxis(const GearingPicture& picture)
{
  double most = MostThrust(picture, picture.gearing);
  if (picture.reference) most = std::max(most, MostThrust(picture, *picture.reference));
  return RoundAxis(most * kBeyondMost, kMostValueDivisions,
                   picture.gearing.metric ? kLeastForceStep : kLeastThrustStep);
}

/// Joins points within the plot box; what lies below it breaks the line.
class Curve {
 public:
  Curve(PictureSurface& surface, const PlotXy& plot, Colour colour, double width)
      : surface_(surface), plot_(plot), colour_(colour), width_(width)
  {
  }

  void To(double speed, double value)
  {
    const double x = plot_.PixelX(speed);
    const double y = plot_.PixelY(value);
    if (!plot_.Box().Holds(x, y)) return Break();
    if (started_) surface_.Line(x_, y_, x, y, colour_, width_, LineStyle::kSolid);
    started_ = true;
    x_ = x;
    y_ = y;
  }
  void Break() { started_ = false; }

 private:
  PictureSurface& surface_;
  const PlotXy& plot_;
  Colour colour_;
  double width_;
  bool started_ = false;
  double x_ = 0;
  double y_ = 0;
};

/// Idle, the samples between, and maximum rpm.
std::vector<double> DrawnSpeeds(const GearingPicture& picture)
{
  const double maximum = picture.gearing.maximum_rpm;
  std::vector<double> speeds;
  speeds.reserve(picture.curve.rpm.size());
  for (const float sample : picture.curve.rpm) {
    const auto rpm = static_cast<double>(sample);
    if (rpm >= kIdleRpm && rpm < maximum) speeds.push_back(rpm);
  }
  speeds.push_back(maximum);
  return speeds;
}

void DrawThrustOf(const GearingPicture& picture, const GearOfCar& gear, Curve curve)
{
  for (const double rpm : DrawnSpeeds(picture))
    curve.To(rpm * gear.per_rpm, ShownThrust(picture, gear, rpm));
}

void DrawBestGears(PictureSurface& surface, const PlotXy& plot, const GearingPicture& picture,
                   double letters)
{
  Curve line(surface, plot, kBestGear, std::round(letters * 0.6));
  const double end = SpeedAxis(picture).maximum;
  const int points = static_cast<int>(plot.Box().Width());
  for (int point = 0; point <= points; ++point) {
    const double speed = end * point / points;
    const auto* const gear = BestGear(picture, speed);
    if (gear == nullptr)
      line.Break();
    else
      line.To(speed, ShownThrust(picture, *gear, speed / gear->per_rpm));
  }
}

/// Texts within a plot box, none over another.
class Labels {
 public:
  Labels(PictureSurface& surface, const PlotBox& box) : surface_(surface), box_(box) {}

  /// The letters begin at `x` and stand on `y`, or where there is room above or beside that.
  void Put(double x, double y, const std::string& text)
  {
    const auto extent = surface_.Extent(text);
    Place place = {std::clamp(x, box_.left, std::max(box_.right - extent.width, box_.left)),
                   std::clamp(y - extent.baseline, box_.top, box_.bottom - extent.height),
                   extent.width, extent.height};
    const double lowest = place.top;
    while (std::ranges::any_of(places_, [&](const Place& other) { return place.Covers(other); })) {
      place.top -= extent.height;
      if (place.top >= box_.top) continue;
      place.top = lowest;
      place.left -= extent.width;
      if (place.left < box_.left) break;
    }
    places_.push_back(place);
    surface_.Text(place.left, place.top, text);
  }

 private:
  struct Place {
    double left;
    double top;
    double width;
    double height;

    [[nodiscard]] bool Covers(const Place& other) const
    {
      return left < other.left + other.width && other.left < left + width &&
             top < other.top + other.height && other.top < top + height;
    }
  };

  PictureSurface& surface_;
  const PlotBox& box_;
  std::vector<Place> places_;
};

void DrawMark(PictureSurface& surface, double x, double y, double letters, Colour colour)
{
  const double half = std::max(std::round(letters * 0.25), 2.0);
  surface.Box(x - half, y - half, x + half, y + half, kBlack, colour);
}

void DrawMaximumSpeed(PictureSurface& surface, const PlotXy& plot, const Gearing& gearing,
                      double letters)
{
  const auto& box = plot.Box();
  const double x = plot.PixelX(gearing.maximum_speed);
  surface.Line(x, box.top, x, box.bottom, kRed, 1, LineStyle::kSolid);
  surface.SetLetterHeight(letters);
  const auto text = "about " + WholeText(gearing.maximum_speed) + " " + SpeedUnit(gearing);
  const auto extent = surface.Extent(text);
  const double gap = kGapByLetters * letters;
  const bool fits = x + gap + extent.width < box.right;
  surface.Text(fits ? x + gap : x - gap - extent.width, box.top + gap, text);
}

/// "1st 8400", "5th" where there is no shift.
std::string ShiftText(const GearOfCar& gear)
{
  return Ordinal(gear.gear) + (gear.shift ? " " + std::to_string(gear.shift->rpm) : "");
}

/// The bands beside the axis, with a line where each begins.
void DrawBands(PictureSurface& surface, const PlotXy& plot, const Gearing& gearing, double letters)
{
  const auto& box = plot.Box();
  const auto draw = [&](const Band& band, Colour colour, double place) {
    if (band.high <= band.low) return;
    const double left = box.left + place * letters;
    const double top = std::max(plot.PixelY(band.high), box.top);
    const double bottom = plot.PixelY(band.low);
    surface.Box(left, top, left + kBandWidth * letters, bottom, colour, colour);
    surface.Line(box.left, bottom, box.right, bottom, colour, 1, LineStyle::kDotted);
  };
  draw(gearing.torque, kBlue, kBandWidth / 2);
  draw(gearing.power, kGreen, kBandWidth * 2);
}

/// Up in each gear and down at its shift. A gear that nothing shifts into has no tooth.
void DrawTeeth(PictureSurface& surface, const PlotXy& plot, const Gearing& gearing, double letters)
{
  const double stroke = std::max(std::round(letters * kTooth), 2.0);
  const double beside = kGapByLetters * letters + stroke;
  Labels labels(surface, plot.Box());
  double from = kIdleRpm;  // engine speed that a gear is entered with
  for (std::size_t at = 0; at < gearing.gears.size(); ++at) {
    const auto& gear = gearing.gears[at];
    if (!gear.speed) {
      from = kIdleRpm;
      continue;
    }
    const double to = gear.shift ? gear.shift->rpm : gearing.maximum_rpm;
    const double x = plot.PixelX(to * gear.per_rpm);
    const bool entered = at == 0 || !gearing.gears[at - 1].speed || gearing.gears[at - 1].shift;
    Curve tooth(surface, plot, ColourOf(gear), stroke);
    if (entered) tooth.To(from * gear.per_rpm, from);
    tooth.To(to * gear.per_rpm, to);
    const auto text = ShiftText(gear);
    labels.Put(x - surface.Extent(text).width / 2, plot.PixelY(gearing.maximum_rpm) - beside, text);
    if (!gear.shift) continue;
    from = to * gear.per_rpm / gearing.gears[at + 1].per_rpm;
    const double after = plot.PixelY(from);
    surface.Line(x, plot.PixelY(to), x, after, ColourOf(gear), stroke, LineStyle::kSolid);
    labels.Put(x + beside, after + letters + beside, std::to_string(gear.shift->after));
  }
}

void DrawTitle(PictureSurface& surface, std::span<const LegendEntry> entries, double letters)
{
  DrawLegend(surface, entries, 1,
             {.left = letters,
              .right = surface.Width() - letters,
              .middle = surface.Height() - kTitleMiddle * letters,
              .largest_letters = letters,
              .centred = true});
}

}  // namespace

void DrawThrust(PictureSurface& surface, const GearingPicture& picture)
{
  const auto& gearing = picture.gearing;
  const double letters = GearingLetters(surface.Width(), surface.Height());
  const PlotXy plot(surface, SpeedAxis(picture), ThrustAxis(picture),
                    GearingBox(surface.Width(), surface.Height()), letters);
  const auto& box = plot.Box();
  if (box.IsEmpty()) return;
  DrawBestGears(surface, plot, picture, letters);
  if (picture.reference)
    for (const auto& gear : picture.reference->gears)
      if (gear.speed) DrawThrustOf(picture, gear, {surface, plot, kReference, 1});
  const double stroke = std::max(std::round(letters * kThrustStroke), 2.0);
  for (const auto& gear : gearing.gears)
    if (gear.speed) DrawThrustOf(picture, gear, {surface, plot, ColourOf(gear), stroke});
  DrawMaximumSpeed(surface, plot, gearing, letters);

  surface.SetLetterHeight(letters);
  Labels labels(surface, box);
  const double beside = kGapByLetters * letters + stroke;
  for (const auto& gear : gearing.gears) {
    if (!gear.speed) continue;
    const double rpm = gear.shift ? gear.shift->rpm : gearing.maximum_rpm;
    const double x = plot.PixelX(rpm * gear.per_rpm);
    const double y = plot.PixelY(ShownThrust(picture, gear, rpm));
    if (gear.shift && box.Holds(x, y)) DrawMark(surface, x, y, letters, ColourOf(gear));
    labels.Put(x + beside, y - beside, ShiftText(gear));
  }
  const std::string title = std::string("Thrust at the tires, ") + ThrustUnit(gearing) +
                            ", versus " + SpeedUnit(gearing) + ", no losses";
  const std::array<LegendEntry, 4> entries = {{
      {title, Sample::kNone, kBlack, 0, 0},
      {"Best gear", Sample::kBox, kBestGear, 1.3, 0.5},
      {"Best shift, rpm", Sample::kBox, kGearColours[0], 0.5, 0.5},
      {"Reference", Sample::kStroke, kReference, 1.3, 0.1},
  }};
  DrawTitle(surface, std::span(entries).first(picture.reference ? 4 : 3), letters);
}

void DrawSawTooth(PictureSurface& surface, const GearingPicture& picture)
{
  const auto& gearing = picture.gearing;
  const double letters = GearingLetters(surface.Width(), surface.Height());
  const auto rpm_axis = RoundAxis(gearing.maximum_rpm + kRpmForLabels, kMostRpmDivisions, 1000);
  const PlotXy plot(surface, SpeedAxis(picture), rpm_axis,
                    GearingBox(surface.Width(), surface.Height()), letters);
  const auto& box = plot.Box();
  if (box.IsEmpty()) return;
  DrawBands(surface, plot, gearing, letters);
  const double maximum = plot.PixelY(gearing.maximum_rpm);
  surface.Line(box.left, maximum, box.right, maximum, kRed, 1, LineStyle::kDotted);

  for (const auto& gear : gearing.gears) {
    if (!gear.speed) continue;
    Curve whole(surface, plot, kReference, 1);
    whole.To(kIdleRpm * gear.per_rpm, kIdleRpm);
    whole.To(*gear.speed, gearing.maximum_rpm);
  }
  DrawMaximumSpeed(surface, plot, gearing, letters);
  surface.SetLetterHeight(letters);
  DrawTeeth(surface, plot, gearing, letters);
  const std::string title = "Engine speed, rpm, versus " + SpeedUnit(gearing);
  const std::array<LegendEntry, 4> entries = {{
      {title, Sample::kNone, kBlack, 0, 0},
      {"90% torque", Sample::kBox, kBlue, 0.4, 0.8},
      {"90% horsepower", Sample::kBox, kGreen, 0.4, 0.8},
      {"Max rpm", Sample::kStroke, kRed, 1.3, 0.1},
  }};
  DrawTitle(surface, entries, letters);
}

}  // namespace velquist::charts
