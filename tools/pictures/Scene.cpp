// SPDX-License-Identifier: MIT
#include "Scene.h"

#include <algorithm>
#include <cstddef>

namespace velquist::pictures {
namespace {

/// Even numbers from 0 to 1, the same ones on every run.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : state_(seed * 2654435761U + 12345U) {}

  double Next()
  {
    state_ = state_ * 1664525U + 1013904223U;
    return (state_ >> 8U) / 16777216.0;
  }
  double Between(double low, double high) { return low + (high - low) * Next(); }

 private:
  std::uint32_t state_;
};

/// What the picture shows, in the car's units: x from left to right, ground at y = 0.
struct View {
  double left;
  double right;
  double top;
  double bottom;
  double horizon;
};

constexpr double kTrackEdge = -46;  ///< far edge of the track
constexpr double kHorizon = -150;

void DrawSky(Canvas& canvas, const View& view, const Light& light, Dice& dice)
{
  const Path all = Path::Rect(view.left, view.top, view.right - view.left, view.bottom - view.top);
  canvas.Fill(all, Paint::Vertical(view.top, view.horizon,
                                   {{0, light.zenith},
                                    {0.55, Mix(light.zenith, light.horizon, 0.55)},
                                    {1, light.horizon}}));
  const double width = view.right - view.left;
  const double sky = view.horizon - view.top;
  const Point sun{view.left + width * 0.72, view.horizon - std::min(sky * 0.44, 330.0)};
  const double r = 88;
  canvas.Fill(Path::Circle(sun.x, sun.y, r * 4.2),
              Paint::Radial(sun, r * 4.2,
                            {{0.2, WithAlpha(light.sun, 0.55)}, {1, WithAlpha(light.sun, 0)}}));
  canvas.Fill(Path::Circle(sun.x, sun.y, r), light.sun);

  const int clouds = static_cast<int>(width * sky / 110000) + 2;
  for (int i = 0; i < clouds; ++i) {
    const double x = view.left + width * (i + dice.Between(0.1, 0.9)) / clouds;
    const double y = view.top + sky * dice.Between(0.08, 0.62);
    const double size = dice.Between(0.7, 1.25);
    Path cloud;
    cloud.Add(Path::RoundRect(x - 120 * size, y, 240 * size, 17 * size, 8.5 * size));
    cloud.Add(Path::RoundRect(x - 70 * size, y - 15 * size, 130 * size, 22 * size, 11 * size));
    cloud.Add(Path::RoundRect(x - 34 * size, y - 27 * size, 66 * size, 24 * size, 12 * size));
    cloud.Add(Path::RoundRect(x - 10 * size, y + 12 * size, 190 * size, 14 * size, 7 * size));
    canvas.Fill(cloud, Hex(0xFFFFFF, 0.42));
  }
}

void DrawHills(Canvas& canvas, const View& view, const Light& light, Dice& dice)
{
  struct Ridge {
    double height;
    double swing;
    double length;
    Color color;
  };
  const double phase = dice.Between(0, 6);
  for (const Ridge& ridge : {Ridge{150, 52, 250, light.far_hills},
                             Ridge{98, 34, 170, Mix(light.far_hills, light.near_hills, 0.5)},
                             Ridge{58, 20, 215, light.near_hills}}) {
    Path hill;
    hill.MoveTo(view.left - 5, view.horizon + 4);
    for (double x = view.left - 5; x <= view.right + 5; x += 4) {
      const double wave = Sine(x / ridge.length + phase + ridge.height) +
                          0.45 * Sine(x / (ridge.length * 0.43) + phase * 2) +
                          0.12 * Sine(x / (ridge.length * 0.13) + phase);
      hill.LineTo(x, view.horizon - ridge.height - ridge.swing * wave);
    }
    hill.LineTo(view.right + 5, view.horizon + 4);
    canvas.Fill(hill,
                Paint::Vertical(view.horizon - ridge.height - ridge.swing, view.horizon,
                                {{0, ridge.color}, {1, Mix(ridge.color, light.horizon, 0.35)}}));
  }
}

void DrawTrees(Canvas& canvas, const View& view, const Light& light, Dice& dice)
{
  for (const bool front : {false, true}) {
    const Color color = front ? light.trees : Mix(light.trees, light.near_hills, 0.5);
    Path row;
    row.Add(Path::Rect(view.left - 5, view.horizon - (front ? 10 : 22), view.right - view.left + 10,
                       front ? 14 : 26));
    for (double x = view.left - 20; x < view.right + 20; x += dice.Between(16, 34)) {
      const double r = dice.Between(13, front ? 24 : 34);
      row.Add(Path::Ellipse(x, view.horizon - r * 0.75, r, r * dice.Between(0.85, 1.15)));
    }
    canvas.Fill(row, Paint::Vertical(view.horizon - 60, view.horizon,
                                     {{0, Lighter(color, 0.10)}, {1, Darker(color, 0.18)}}));
    if (!front) {
      // Poplars in small groups, each with a light and a shaded side.
      for (double x = view.left + dice.Between(10, 120); x < view.right;
           x += dice.Between(170, 330)) {
        const int group = 1 + static_cast<int>(dice.Between(1, 3.99));
        for (int i = 0; i < group; ++i) {
          const double h = dice.Between(86, 140);
          const double w = dice.Between(11, 15);
          const double px = x + i * dice.Between(24, 32);
          Path tree;
          tree.MoveTo(px, view.horizon - h);
          tree.CubicTo(px + w * 1.2, view.horizon - h * 0.62, px + w * 1.2, view.horizon - h * 0.2,
                       px + w * 0.3, view.horizon);
          tree.LineTo(px - w * 0.3, view.horizon);
          tree.CubicTo(px - w * 1.2, view.horizon - h * 0.2, px - w * 1.2, view.horizon - h * 0.62,
                       px, view.horizon - h);
          canvas.Fill(tree, Paint::Linear({px - w, 0}, {px + w, 0},
                                          {{0, Darker(light.trees, 0.12)},
                                           {0.45, Darker(light.trees, 0.02)},
                                           {1, Lighter(light.trees, 0.16)}}));
        }
      }
    }
  }
}

void DrawStand(Canvas& canvas, const View& view, Dice& dice)
{
  // A roofed stand with people, and flags on top.
  const double x = view.left + (view.right - view.left) * 0.055;
  const double width = 250;
  const double floor = view.horizon + 14;
  const double roof = floor - 104;
  canvas.Fill(
      Path::Polygon(
          {{x, floor}, {x, floor - 30}, {x + width - 20, roof + 26}, {x + width - 20, floor}})
          .Add(Path::Rect(x, floor - 62, width - 20, 62)),
      Hex(0x4A4E55));
  const std::uint32_t coats[] = {0xE9DFC8, 0xC8553D, 0xF2B544, 0x6E9FB5,
                                 0xF7F3E6, 0x7B5E57, 0x3D6B5C};
  for (int row = 0; row < 6; ++row) {
    for (int seat = 0; seat < 24; ++seat) {
      if (dice.Next() < 0.14) {
        continue;
      }
      const auto coat = static_cast<std::size_t>(dice.Next() * 7);
      canvas.Fill(
          Path::Circle(x + 9 + seat * 9.2 + dice.Between(-1.5, 1.5), floor - 54 + row * 9.3, 3.5),
          Mix(Hex(coats[coat]), Hex(0x4A4E55), 0.28 - 0.04 * row));
    }
  }
  canvas.Fill(Path::Rect(x - 3, floor - 8, width - 14, 12), Hex(0xE9E3D2));
  for (int post = 0; post < 4; ++post) {
    canvas.Fill(Path::Rect(x + 4 + post * 72, roof + 8, 4, 96), Hex(0xD8D4C6));
  }
  canvas.Fill(
      Path::Polygon(
          {{x - 16, roof + 14}, {x - 10, roof}, {x + width, roof - 12}, {x + width + 6, roof + 4}}),
      Hex(0xF3EDDC));
  canvas.Fill(Path::Polygon({{x - 16, roof + 14},
                             {x + width + 6, roof + 4},
                             {x + width + 6, roof + 9},
                             {x - 16, roof + 20}}),
              Hex(0xA9A595));
  const std::uint32_t flags[] = {0xC8402F, 0xF2B544, 0x2F6F86, 0xF7F3E6};
  for (int i = 0; i < 4; ++i) {
    const double fx = x + 22 + i * 66;
    const double top = roof - 44 - i * 2.5;
    canvas.Fill(Path::Rect(fx, top, 2.4, 48), Hex(0x6B6A64));
    Path flag;
    flag.MoveTo(fx + 2, top + 1).CubicTo(fx + 14, top - 5, fx + 22, top + 7, fx + 36, top + 1);
    flag.LineTo(fx + 36, top + 19).CubicTo(fx + 22, top + 25, fx + 14, top + 13, fx + 2, top + 19);
    canvas.Fill(flag, Hex(flags[i]));
  }
}

void DrawGround(Canvas& canvas, const View& view, const Light& light)
{
  const double width = view.right - view.left;
  canvas.Fill(Path::Rect(view.left, view.horizon, width, view.bottom - view.horizon),
              Paint::Vertical(view.horizon, kTrackEdge,
                              {{0, Mix(light.grass, light.horizon, 0.28)}, {1, light.grass}}));
  for (int i = 0; i < 3; ++i) {  // mown stripes
    const double y = view.horizon + 22 + i * 26;
    canvas.Fill(Path::Rect(view.left, y, width, 11 + i * 2),
                WithAlpha(Darker(light.grass, 0.4), 0.16));
  }
}

void DrawFence(Canvas& canvas, const View& view, Dice& dice)
{
  const double y = -78;
  for (double x = view.left - 20; x < view.right + 60; x += 66) {
    canvas.Fill(Path::Rect(x + 4, y - 12, 7, 28), Hex(0x8F8A7C));
  }
  canvas.Fill(Path::Rect(view.left, y - 12, view.right - view.left, 13),
              Paint::Vertical(y - 12, y + 1,
                              {{0, Hex(0xFFFDF4)}, {0.5, Hex(0xEDE7D6)}, {1, Hex(0xB9B3A2)}}));
  canvas.Fill(Path::Rect(view.left, y + 15, view.right - view.left, 5), Hex(0x10201A, 0.20));
  // Straw bales in front of it.
  for (double x = view.left + dice.Between(20, 80); x < view.right; x += dice.Between(250, 420)) {
    const int bales = 2 + static_cast<int>(dice.Between(0, 1.99));
    if (x > kCarLeft - 49.0 * bales && x < kCarRight) {
      continue;  // hidden by the car, or looking like a part of it
    }
    for (int i = 0; i < bales; ++i) {
      const double bx = x + i * 49;
      canvas.Fill(Path::Rect(bx - 3, kTrackEdge - 6, 54, 6), Hex(0x10201A, 0.25));
      canvas.Fill(Path::RoundRect(bx, kTrackEdge - 32, 47, 28, 4),
                  Paint::Vertical(kTrackEdge - 32, kTrackEdge - 4,
                                  {{0, Hex(0xEBCB80)}, {0.3, Hex(0xD9B25E)}, {1, Hex(0x9E7A38)}}));
      canvas.Fill(Path::Rect(bx + 12, kTrackEdge - 32, 2, 28)
                      .Add(Path::Rect(bx + 32, kTrackEdge - 32, 2, 28)),
                  Hex(0x7A5A28, 0.7));
    }
  }
}

void DrawTrack(Canvas& canvas, const View& view, const Light& light, Dice& dice)
{
  const double width = view.right - view.left;
  const double near_edge = std::min(92.0, (view.bottom + 60) * 0.62);
  canvas.Fill(
      Path::Rect(view.left, kTrackEdge, width, view.bottom - kTrackEdge),
      Paint::Vertical(
          kTrackEdge, near_edge,
          {{0, Lighter(light.track, 0.20)}, {0.5, light.track}, {1, Darker(light.track, 0.10)}}));
  for (int i = 0; i < 70; ++i) {  // rubber and wear along the road
    const double x = view.left + width * dice.Between(-0.1, 1);
    const double y = dice.Between(kTrackEdge + 8, near_edge - 6);
    const double length = dice.Between(40, 260);
    const Color streak = dice.Next() < 0.6 ? Darker(light.track, 0.5) : Lighter(light.track, 0.6);
    canvas.Fill(Path::RoundRect(x, y, length, 1.8, 0.9), WithAlpha(streak, 0.22));
  }
  canvas.Fill(Path::Rect(view.left, kTrackEdge + 2, width, 4), Hex(0xF7F3E6, 0.85));
  canvas.Fill(Path::Rect(view.left, near_edge - 12, width, 7), Hex(0xF7F3E6, 0.9));
  // Grass before the road, with blades along its edge.
  canvas.Fill(Path::Rect(view.left, near_edge, width, view.bottom - near_edge + 1),
              Paint::Vertical(near_edge, view.bottom,
                              {{0, Darker(light.grass, 0.12)}, {1, Darker(light.grass, 0.46)}}));
  Path blades;
  for (double x = view.left - 5; x < view.right + 5; x += dice.Between(2.5, 6)) {
    const double lean = dice.Between(-4, 4);
    blades.Add(Path::Polygon({{x - 2.2, near_edge + 3},
                              {x + lean, near_edge - dice.Between(4, 13)},
                              {x + 2.2, near_edge + 3}}));
  }
  canvas.Fill(blades, Darker(light.grass, 0.12));
  for (int row = 1; row < 7; ++row) {
    const double base = near_edge + row * row * 4.6;
    if (base > view.bottom + 20) {
      break;
    }
    Path tufts;
    for (double x = view.left - 5; x < view.right + 5; x += dice.Between(26, 90)) {
      const double y = base + dice.Between(-6, 6) * row * 0.7;
      for (int blade = -2; blade <= 2; ++blade) {
        tufts.Add(Path::Polygon({{x + blade * 2 - 1.6, y},
                                 {x + blade * 4.5, y - dice.Between(7, 11) - row},
                                 {x + blade * 2 + 1.6, y}}));
      }
    }
    canvas.Fill(tufts, WithAlpha(Lighter(light.grass, 0.18), 0.35));
  }
}

}  // namespace

Light Afternoon()
{
  return {Hex(0x5FA8BE), Hex(0xFBE9C2), Hex(0xFFF6DC), Hex(0x8DB4B5),
          Hex(0x5E927F), Hex(0x2F5F4A), Hex(0x8AA850), Hex(0x6E7480)};
}

Light Evening()
{
  return {Hex(0x3E5C8A), Hex(0xF9B977), Hex(0xFFE2A6), Hex(0x9A8297),
          Hex(0x6A6784), Hex(0x35465A), Hex(0x7F8A4C), Hex(0x615F6C)};
}

Light Morning()
{
  return {Hex(0x86B7D6), Hex(0xEEF3EA), Hex(0xFFFDF2), Hex(0xA9C4CC),
          Hex(0x7FA79B), Hex(0x4A7A63), Hex(0x97B563), Hex(0x7A7F88)};
}

Canvas DrawScene(const Scene& scene)
{
  const double scale = scene.width * scene.car_share / (kCarRight - kCarLeft);
  const double middle = (kCarLeft + kCarRight) / 2;
  const Transform transform{scale, scene.width / 2.0 - middle * scale,
                            scene.height * scene.ground_share};
  Canvas canvas(scene.width, scene.height, transform);
  const View view{-transform.dx / scale, (scene.width - transform.dx) / scale,
                  -transform.dy / scale, (scene.height - transform.dy) / scale, kHorizon};
  Dice dice(scene.seed);
  DrawSky(canvas, view, scene.light, dice);
  DrawHills(canvas, view, scene.light, dice);
  DrawTrees(canvas, view, scene.light, dice);
  DrawGround(canvas, view, scene.light);
  DrawStand(canvas, view, dice);
  DrawFence(canvas, view, dice);
  DrawTrack(canvas, view, scene.light, dice);
  DrawCar(canvas, scene.car);
  return canvas;
}

}  // namespace velquist::pictures
