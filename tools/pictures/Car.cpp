// SPDX-License-Identifier: MIT
#include "Car.h"

#include <algorithm>
#include <vector>

namespace velquist::pictures {
namespace {

const Color kRubber = Hex(0x1C1E22);
const Color kSteel = Hex(0xC9CCCB);
const Color kIron = Hex(0x3A3E44);

void DrawShadow(Canvas& canvas)
{
  const Color dark = Hex(0x0E1418);
  canvas.Fill(Path::Ellipse(265, 4, 470, 26), Paint::Radial({265, 4}, 470,
                                                            {{0, WithAlpha(dark, 0.62)},
                                                             {0.72, WithAlpha(dark, 0.5)},
                                                             {1, WithAlpha(dark, 0)}},
                                                            26.0 / 470));
  for (const double x : {0.0, kWheelbase}) {
    canvas.Fill(
        Path::Ellipse(x, 1, 66, 9),
        Paint::Radial({x, 1}, 66, {{0, WithAlpha(dark, 0.85)}, {1, WithAlpha(dark, 0)}}, 9.0 / 66));
  }
}

/// Points around a centre, from an angle in degrees and a distance.
Point Around(Point centre, double degrees, double distance)
{
  return {centre.x + Cosine(degrees * kPi / 180) * distance,
          centre.y + Sine(degrees * kPi / 180) * distance};
}

void DrawWheel(Canvas& canvas, Point c, double r, const Color& rim)
{
  canvas.Fill(Path::Circle(c.x, c.y, r), kRubber);
  // Tread and shoulder, then the sidewall, lit from above.
  canvas.Fill(Path::Circle(c.x, c.y, r * 0.965),
              Paint::Vertical(c.y - r, c.y + r,
                              {{0, Hex(0x50555B)}, {0.45, Hex(0x2B2E33)}, {1, Hex(0x191B1E)}}));
  canvas.Fill(Path::Circle(c.x, c.y, r * 0.86),
              Paint::Vertical(c.y - r, c.y + r,
                              {{0, Hex(0x33373C)}, {0.5, Hex(0x25282C)}, {1, Hex(0x202226)}}));
  canvas.Fill(Path::Ring(c.x, c.y, r * 0.745, r * 0.73), WithAlpha(Hex(0xFFFFFF), 0.14));

  // Rim: bright lip, dished disc, eight windows, hub with a three-eared nut.
  const double lip = r * 0.59;
  canvas.Fill(Path::Circle(c.x, c.y, lip + r * 0.035), Hex(0x0F1113));
  canvas.Fill(Path::Circle(c.x, c.y, lip),
              Paint::Linear({c.x - lip, c.y - lip}, {c.x + lip, c.y + lip},
                            {{0, Lighter(rim, 0.65)}, {0.5, rim}, {1, Darker(rim, 0.35)}}));
  canvas.Fill(
      Path::Circle(c.x, c.y, lip * 0.88),
      Paint::Linear(
          {c.x - lip, c.y - lip}, {c.x + lip, c.y + lip},
          {{0.1, Darker(rim, 0.45)}, {0.55, Darker(rim, 0.12)}, {0.95, Lighter(rim, 0.35)}}));
  for (int i = 0; i < 8; ++i) {
    const double degrees = i * 45 + 22.5;
    Path window;
    bool first = true;
    for (const auto& [turn, distance] : std::vector<std::pair<double, double>>{
             {-15, 0.76}, {0, 0.80}, {15, 0.76}, {11, 0.48}, {0, 0.43}, {-11, 0.48}}) {
      const Point p = Around(c, degrees + turn, distance * lip);
      if (first) {
        window.MoveTo(p.x, p.y);
      } else {
        window.LineTo(p.x, p.y);
      }
      first = false;
    }
    canvas.Fill(window.StrokedClosed(lip * 0.07).Add(window), Hex(0x14171A));
  }
  canvas.Fill(Path::Ring(c.x, c.y, lip * 0.9, lip * 0.865), WithAlpha(Hex(0x000000), 0.35));
  const double hub = lip * 0.27;
  canvas.Fill(Path::Circle(c.x, c.y, hub * 1.15), Darker(rim, 0.45));
  canvas.Fill(Path::Circle(c.x, c.y, hub),
              Paint::Linear({c.x - hub, c.y - hub}, {c.x + hub, c.y + hub},
                            {{0, Hex(0xFFFFFF)}, {1, Hex(0x7D8385)}}));
  for (int ear = 0; ear < 3; ++ear) {
    const Point tip = Around(c, ear * 120.0 - 70, hub * 1.35);
    canvas.Fill(Path::Line(c.x, c.y, tip.x, tip.y).Stroked(hub * 0.5), Hex(0xE4E6E2));
  }
  canvas.Fill(Path::Circle(c.x, c.y, hub * 0.42), Hex(0x9AA0A2));
}

/// A tube: dark edge, metal, and a light line along its upper side.
void DrawTube(Canvas& canvas, const Path& line, double width, const Color& metal)
{
  canvas.Fill(line.Stroked(width + 1.6), Darker(metal, 0.7));
  canvas.Fill(line.Stroked(width), metal);
  canvas.Fill(line.Moved(0, -width * 0.18).Stroked(width * 0.3), Lighter(metal, 0.6));
}

Path Digit(int number, double x, double y, double h)
{
  const double w = h * 0.52;
  const double l = x - w / 2;
  const double r = x + w / 2;
  const double t = y - h / 2;
  const double b = y + h / 2;
  Path path;
  switch (number) {
    case 1:
      path.MoveTo(x - w * 0.35, t + h * 0.2).LineTo(x + w * 0.08, t).LineTo(x + w * 0.08, b);
      break;
    case 2:
      path.MoveTo(l, t + h * 0.24);
      path.CubicTo(l, t - h * 0.08, r, t - h * 0.08, r, t + h * 0.27);
      path.CubicTo(r, t + h * 0.5, l + w * 0.1, t + h * 0.7, l, b).LineTo(r, b);
      break;
    case 3:
      path.MoveTo(l, t).LineTo(r, t).LineTo(x, t + h * 0.4);
      path.CubicTo(r + w * 0.3, t + h * 0.42, r + w * 0.12, b + h * 0.02, x - w * 0.05, b);
      path.CubicTo(x - w * 0.3, b, l, b - h * 0.08, l, b - h * 0.2);
      break;
    case 4:
      path.MoveTo(r, b - h * 0.28).LineTo(l, b - h * 0.28).LineTo(x + w * 0.2, t);
      path.LineTo(x + w * 0.2, b);
      break;
    case 5:
      path.MoveTo(r, t).LineTo(l + w * 0.06, t).LineTo(l, t + h * 0.44);
      path.CubicTo(x, t + h * 0.28, r + w * 0.12, t + h * 0.4, r, t + h * 0.68);
      path.CubicTo(r - w * 0.05, b + h * 0.06, l + w * 0.1, b + h * 0.06, l, b - h * 0.14);
      break;
    case 6:
      path.MoveTo(r - w * 0.1, t);
      path.CubicTo(l + w * 0.1, t + h * 0.1, l, t + h * 0.5, l, t + h * 0.68);
      path.CubicTo(l, b + h * 0.11, r, b + h * 0.11, r, t + h * 0.68);
      path.CubicTo(r, t + h * 0.32, l, t + h * 0.32, l, t + h * 0.68);
      break;
    case 8:
      path.Add(Path::Ellipse(x, t + h * 0.23, w * 0.42, h * 0.23));
      path.Add(Path::Ellipse(x, b - h * 0.27, w * 0.5, h * 0.27));
      break;
    case 9:
      path.MoveTo(r, t + h * 0.32).CubicTo(r, t - h * 0.11, l, t - h * 0.11, l, t + h * 0.32);
      path.CubicTo(l, t + h * 0.68, r, t + h * 0.68, r, t + h * 0.32);
      path.CubicTo(r, t + h * 0.5, r - w * 0.1, t + h * 0.9, l + w * 0.1, b);
      break;
    default:
      path.MoveTo(l, t).LineTo(r, t).CubicTo(x + w * 0.1, t + h * 0.4, x - w * 0.1, t + h * 0.7,
                                             x - w * 0.12, b);
      break;
  }
  return number == 8 ? path.StrokedClosed(h * 0.17) : path.Stroked(h * 0.17);
}

void DrawNumber(Canvas& canvas, int number, Point c, double r)
{
  canvas.Fill(Path::Ellipse(c.x, c.y, r * 1.06, r), Hex(0xF7F3E6));
  canvas.Fill(Digit(number, c.x, c.y, r * 1.2), Hex(0x17191C));
}

void DrawDriver(Canvas& canvas, const CarStyle& style, double x, double y)
{
  // Overalls, arm to the wheel, neck, face, helmet with peak and goggles. (x, y) is the head's
  // centre.
  const Color cloth = Hex(0xDCE3EA);
  Path torso;
  torso.MoveTo(x - 30, y + 66).CubicTo(x - 36, y + 40, x - 22, y + 28, x - 2, y + 25);
  torso.CubicTo(x + 26, y + 26, x + 40, y + 44, x + 42, y + 70).LineTo(x - 30, y + 70);
  canvas.Fill(torso, Paint::Linear({x - 34, y + 20}, {x + 42, y + 66},
                                   {{0, cloth}, {1, Darker(cloth, 0.35)}}));
  Path arm;
  arm.MoveTo(x + 18, y + 42).CubicTo(x + 4, y + 62, x - 22, y + 66, x - 52, y + 50);
  canvas.Fill(arm.Stroked(17), Darker(cloth, 0.28));
  canvas.Fill(arm.Moved(0, -1.5).Stroked(13), Darker(cloth, 0.06));
  canvas.Fill(Path::Ellipse(x - 54, y + 48, 9, 8), Hex(0x6B4A2F));

  Path neck;
  neck.MoveTo(x - 8, y + 14).LineTo(x - 10, y + 34).LineTo(x + 14, y + 34).LineTo(x + 16, y + 10);
  canvas.Fill(neck, Hex(0xB98160));
  Path face;
  face.MoveTo(x - 20, y - 6).CubicTo(x - 24, y + 6, x - 25, y + 8, x - 27, y + 12);
  face.LineTo(x - 22, y + 14).CubicTo(x - 22, y + 26, x - 12, y + 28, x - 2, y + 26);
  face.LineTo(x + 12, y + 12).LineTo(x + 8, y - 8);
  canvas.Fill(
      face, Paint::Linear({x - 24, y}, {x + 10, y + 20}, {{0, Hex(0xE2AE88)}, {1, Hex(0xB98160)}}));
  Path shell;
  shell.MoveTo(x - 25, y - 2).CubicTo(x - 28, y - 36, x + 26, y - 38, x + 29, y - 3);
  shell.CubicTo(x + 30, y + 8, x + 27, y + 16, x + 22, y + 19);
  shell.CubicTo(x + 8, y + 20, x + 2, y + 12, x - 2, y + 3).LineTo(x - 25, y - 2);
  canvas.Fill(shell.StrokedClosed(1.6), Darker(style.helmet, 0.55));
  canvas.Fill(shell, Paint::Radial({x - 8, y - 20}, 52,
                                   {{0, Lighter(style.helmet, 0.45)},
                                    {0.45, style.helmet},
                                    {1, Darker(style.helmet, 0.45)}}));
  Path stripe;
  stripe.MoveTo(x - 25, y - 8).CubicTo(x - 10, y - 12, x + 14, y - 11, x + 29, y - 5);
  canvas.Fill(stripe.Stroked(4.5), style.trim);
  Path peak;
  peak.MoveTo(x - 24, y - 7).LineTo(x - 38, y - 4).QuadTo(x - 36, y + 1, x - 24, y);
  canvas.Fill(peak, Hex(0x23262B));
  canvas.Fill(Path::RoundRect(x - 27, y + 0.5, 17, 10, 4.5), Hex(0x23262B));
  canvas.Fill(Path::RoundRect(x - 25.5, y + 2, 12, 7, 3), Hex(0x8FB7C4));
  canvas.Fill(Path::Line(x - 10, y + 5, x + 24, y + 4).Stroked(3.2), Hex(0x2C2622));
  canvas.Fill(Path::Line(x - 1, y + 4, x - 7, y + 25).Stroked(2.6), Hex(0x2C2622));
}

void DrawEngine(Canvas& canvas)
{
  // Gearbox behind, block, near cam cover, trumpets, ignition leads.
  Path gearbox;
  gearbox.MoveTo(424, -112).LineTo(520, -104).LineTo(600, -98).LineTo(618, -84).LineTo(616, -62);
  gearbox.LineTo(560, -46).LineTo(424, -40);
  canvas.Fill(
      gearbox,
      Paint::Vertical(-112, -40, {{0, Hex(0x888E92)}, {0.4, Hex(0x5A6066)}, {1, Hex(0x2B2F34)}}));
  for (int i = 0; i < 5; ++i) {
    canvas.Fill(Path::Line(548 + i * 12, -96 + i * 1.5, 548 + i * 12, -56 - i * 2).Stroked(2.4),
                WithAlpha(Hex(0x16191C), 0.55));
  }
  Path block;
  block.MoveTo(312, -122).LineTo(436, -122).LineTo(440, -44).LineTo(420, -32).LineTo(312, -32);
  canvas.Fill(
      block,
      Paint::Vertical(-122, -32, {{0, Hex(0xB7BBBB)}, {0.5, Hex(0x83898C)}, {1, Hex(0x43484D)}}));
  for (int i = 0; i < 4; ++i) {
    canvas.Fill(Path::RoundRect(326 + i * 26, -74, 15, 26, 4), WithAlpha(Hex(0x2A2E32), 0.45));
  }
  canvas.Fill(Path::Line(316, -86, 436, -86).Stroked(2), WithAlpha(Hex(0x22262A), 0.5));

  for (const bool near_side : {false, true}) {
    const double dx = near_side ? 0 : 9;
    const double dy = near_side ? 0 : -8;
    for (int i = 0; i < 4; ++i) {
      const double x = 336 + i * 27 + dx;
      Path trumpet;
      trumpet.MoveTo(x - 6, -140 + dy).LineTo(x - 6.5, -166 + dy);
      trumpet.CubicTo(x - 7, -174 + dy, x - 11, -177 + dy, x - 12, -179 + dy);
      trumpet.LineTo(x + 12, -179 + dy);
      trumpet.CubicTo(x + 11, -177 + dy, x + 7, -174 + dy, x + 6.5, -166 + dy);
      trumpet.LineTo(x + 6, -140 + dy);
      const double dull = near_side ? 0 : 0.35;
      canvas.Fill(trumpet.StrokedClosed(1.4), Hex(0x3B3F42));
      canvas.Fill(trumpet, Paint::Linear({x - 10, 0}, {x + 10, 0},
                                         {{0, Darker(Hex(0x9EA4A5), dull)},
                                          {0.3, Darker(Hex(0xFAFAF4), dull)},
                                          {0.6, Darker(Hex(0xB5BABA), dull)},
                                          {1, Darker(Hex(0x6F7577), dull)}}));
      canvas.Fill(Path::Ellipse(x, -179 + dy, 12, 2.6), Darker(Hex(0x53585A), dull));
    }
  }
  canvas.Fill(Path::RoundRect(318, -146, 118, 30, 9), Hex(0x1B1E21));
  canvas.Fill(
      Path::RoundRect(320, -144.5, 114, 27, 8),
      Paint::Vertical(-145, -117, {{0, Hex(0x6A7076)}, {0.35, Hex(0x3B4046)}, {1, Hex(0x24272B)}}));
  for (int i = 0; i < 6; ++i) {
    canvas.Fill(Path::Circle(329 + i * 19.4, -140, 1.9), Hex(0xC6CACB));
    canvas.Fill(Path::Circle(329 + i * 19.4, -122, 1.9), Hex(0x9BA0A2));
  }
  for (int i = 0; i < 4; ++i) {
    Path lead;
    lead.MoveTo(338 + i * 27, -130);
    lead.CubicTo(334 + i * 27, -108, 326 + i * 24, -104, 318, -104 + i * 2);
    canvas.Fill(lead.Stroked(2.2), Hex(0xC9762A));
  }
}

void DrawExhaust(Canvas& canvas)
{
  const Color pipe = Hex(0xB9A68E);
  for (int i = 3; i >= 0; --i) {
    Path header;
    const double x = 340 + i * 27;
    header.MoveTo(x, -114).CubicTo(x + 4, -84, x + 22, -88 + i * 2, x + 52, -86);
    header.CubicTo(x + 80, -84, 470, -88, 486, -92);
    DrawTube(canvas, header, 9, pipe);
  }
  for (const bool near_side : {false, true}) {
    const double dy = near_side ? 0 : -15;
    const Color metal = near_side ? Hex(0xC6BCAE) : Hex(0x8D857A);
    Path tail;
    tail.MoveTo(478, -90 + dy).CubicTo(540, -108 + dy, 600, -108 + dy, 634, -107 + dy);
    DrawTube(canvas, tail, 12, metal);
    Path megaphone;
    megaphone.MoveTo(630, -113.5 + dy).LineTo(700, -117 + dy).LineTo(700, -96 + dy);
    megaphone.LineTo(630, -100.5 + dy);
    canvas.Fill(megaphone.StrokedClosed(1.6), Darker(metal, 0.7));
    canvas.Fill(
        megaphone,
        Paint::Vertical(
            -117 + dy, -96 + dy,
            {{0, metal}, {0.3, Lighter(metal, 0.7)}, {0.55, metal}, {1, Darker(metal, 0.5)}}));
    canvas.Fill(Path::Ellipse(700, -106.5 + dy, 4, 10.5), Hex(0x17191B));
  }
}

Path FormulaBody(Shape shape)
{
  Path body;
  body.MoveTo(-170, -84).CubicTo(-178, -100, -174, -114, -156, -119);
  body.CubicTo(-100, -136, -40, -147, 30, -154);
  body.CubicTo(70, -158, 105, -163, 132, -167);
  body.CubicTo(150, -169, 158, -164, 168, -156).CubicTo(186, -146, 236, -140, 262, -146);
  if (shape == Shape::kOpenEngine) {
    body.CubicTo(272, -149, 272, -180, 284, -182).CubicTo(304, -182, 314, -162, 318, -128);
    body.LineTo(324, -34);
  } else {
    body.CubicTo(272, -149, 272, -186, 286, -188).CubicTo(340, -182, 420, -166, 500, -142);
    body.CubicTo(560, -124, 610, -106, 640, -88).CubicTo(650, -80, 648, -66, 636, -62);
    body.CubicTo(580, -44, 470, -32, 324, -28);
  }
  body.CubicTo(250, -24, 60, -22, -20, -30).CubicTo(-90, -38, -146, -54, -170, -84);
  return body;
}

void ShadeBody(Canvas& canvas, const Path& body, const CarStyle& style, double tail)
{
  const Color& paint = style.body;
  canvas.Fill(body.StrokedClosed(2.2), Darker(paint, 0.72));
  canvas.Fill(body, Paint::Vertical(-190, -22,
                                    {{0, Lighter(paint, 0.30)},
                                     {0.3, Lighter(paint, 0.08)},
                                     {0.52, paint},
                                     {0.76, Darker(paint, 0.30)},
                                     {0.93, Darker(paint, 0.55)},
                                     {1, Darker(paint, 0.45)}}));
  canvas.Clip(body);
  // Band around the nose and line along the flank.
  Path band;
  band.MoveTo(-134, -140).CubicTo(-146, -110, -142, -70, -118, -30).LineTo(-84, -30);
  band.CubicTo(-108, -70, -112, -110, -98, -150);
  canvas.Fill(band, Paint::Vertical(-150, -30,
                                    {{0, Lighter(style.trim, 0.25)},
                                     {0.45, style.trim},
                                     {1, Darker(style.trim, 0.45)}}));
  Path flank;
  flank.MoveTo(-116, -95).CubicTo(-10, -110, 150, -112, tail, -104);
  canvas.Fill(flank.Stroked(9), style.trim);
  // Soft light along the shoulder, sheen from the road below.
  Path shoulder;
  shoulder.MoveTo(-168, -102).CubicTo(-100, -125, 0, -138, 60, -142);
  shoulder.CubicTo(130, -148, 180, -136, 260, -134).LineTo(tail, -138);
  canvas.SoftStroke(shoulder, 26, WithAlpha(Hex(0xFFFFFF), 0.55));
  Path sheen;
  sheen.MoveTo(-120, -50).CubicTo(-20, -40, 160, -34, tail, -40);
  canvas.SoftStroke(sheen, 14, WithAlpha(Hex(0xFFF3DA), 0.22));
  canvas.Unclip();
}

void DrawDetails(Canvas& canvas, const CarStyle& style)
{
  // Intake, panel joints with rivets, filler cap.
  Path intake;
  intake.MoveTo(-166, -86).CubicTo(-174, -98, -171, -110, -158, -114);
  intake.CubicTo(-150, -104, -152, -94, -154, -80);
  canvas.Fill(intake, Hex(0x121417));
  canvas.Fill(Path::Line(-163, -88, -153, -86)
                  .Add(Path::Line(-165, -98, -153, -98))
                  .Add(Path::Line(-161, -107, -154, -108))
                  .Stroked(1.4),
              Hex(0x565C60));
  const Color joint = WithAlpha(Darker(style.body, 0.75), 0.75);
  Path joints;
  joints.MoveTo(-62, -139).CubicTo(-68, -110, -66, -70, -56, -36);
  joints.MoveTo(126, -164).CubicTo(118, -120, 118, -70, 122, -26);
  joints.MoveTo(-62, -68).CubicTo(0, -66, 60, -66, 119, -66);
  canvas.Fill(joints.Stroked(1.5), joint);
  for (int i = 0; i < 13; ++i) {
    const Color rivet = WithAlpha(Lighter(style.body, 0.55), 0.8);
    canvas.Fill(Path::Circle(134 + i * 14.4, -38 - i * 0.1, 1.5), rivet);
    canvas.Fill(Path::Circle(129, -150 + i * 9, 1.5), rivet);
  }
  canvas.Fill(Path::Ellipse(96, -158.5, 13, 3.4), Hex(0x7F8688));
  canvas.Fill(Path::Ellipse(96, -160.2, 12, 2.8), Hex(0xE2E4E0));
}

void DrawScreen(Canvas& canvas)
{
  Path screen;
  screen.MoveTo(112, -163).CubicTo(130, -184, 152, -200, 176, -204);
  screen.CubicTo(196, -190, 206, -172, 210, -147).CubicTo(190, -148, 178, -150, 168, -156);
  screen.CubicTo(156, -166, 140, -170, 112, -163);
  canvas.Fill(screen,
              Paint::Linear(
                  {120, -200}, {205, -150},
                  {{0, Hex(0xE9F6FA, 0.62)}, {0.5, Hex(0xB9DCE6, 0.38)}, {1, Hex(0xE3F2F5, 0.5)}}));
  Path rim;
  rim.MoveTo(112, -163).CubicTo(130, -184, 152, -200, 176, -204);
  rim.CubicTo(196, -190, 206, -172, 210, -147);
  canvas.Fill(rim.Stroked(2.4), Hex(0xF4FAFB, 0.85));
  Path gleam;
  gleam.MoveTo(142, -176).CubicTo(152, -185, 160, -190, 170, -193);
  canvas.Fill(gleam.Stroked(4), Hex(0xFFFFFF, 0.6));
}

void DrawWings(Canvas& canvas, const CarStyle& style)
{
  struct Wing {
    double x;
    double y;
    double chord;
    double foot;
  };
  for (const Wing& wing : {Wing{10, -268, 92, -140}, Wing{498, -300, 128, -92}}) {
    for (const double dx : {-18.0, 20.0}) {
      DrawTube(canvas, Path::Line(wing.x + dx * 0.6, wing.foot, wing.x + dx, wing.y), 4.5, kSteel);
    }
    const double front = wing.x - wing.chord / 2;
    const double back = wing.x + wing.chord / 2;
    Path foil;
    foil.MoveTo(front, wing.y + 2)
        .CubicTo(front + 4, wing.y - 6, wing.x, wing.y - 8, back, wing.y - 24);
    foil.LineTo(back + 1, wing.y - 20)
        .CubicTo(wing.x + 10, wing.y + 6, front + 14, wing.y + 12, front, wing.y + 2);
    Path plate;
    plate.MoveTo(front - 3, wing.y + 8).LineTo(front + 2, wing.y - 14);
    plate.LineTo(back + 4, wing.y - 34).LineTo(back + 2, wing.y - 8);
    plate.LineTo(front + 10, wing.y + 14);
    canvas.Fill(plate.StrokedClosed(2), Darker(style.body, 0.7));
    canvas.Fill(plate, Paint::Vertical(wing.y - 34, wing.y + 14,
                                       {{0, Lighter(style.body, 0.35)},
                                        {0.6, style.body},
                                        {1, Darker(style.body, 0.3)}}));
    canvas.Fill(foil, style.trim);
  }
}

void DrawFormulaCar(Canvas& canvas, const CarStyle& style)
{
  const double front = 62 * style.tyre_size;
  const double rear = 70 * style.tyre_size;
  const bool open = style.shape == Shape::kOpenEngine;

  // Far side: wheels, pipes.
  canvas.Fill(Path::Circle(14, -front - 5, front), Hex(0x14161A));
  canvas.Fill(Path::Circle(kWheelbase + 15, -rear - 6, rear), Hex(0x14161A));
  DrawTube(canvas, Path::Line(60, -112, -6, -front - 20), 6, Darker(kSteel, 0.5));

  // Roll hoop and its stay.
  Path hoop;
  hoop.MoveTo(286, -150).LineTo(290, -226).CubicTo(291, -240, 306, -240, 309, -228);
  hoop.LineTo(316, -150);
  DrawTube(canvas, Path::Line(302, -232, open ? 384 : 398, -146), 5, kSteel);
  DrawTube(canvas, hoop, 6.5, kSteel);

  DrawDriver(canvas, style, 240, -206);
  Path wheel;
  wheel.MoveTo(178, -178).LineTo(196, -140);
  canvas.Fill(wheel.Stroked(6), Hex(0x2B2019));

  if (open) {
    DrawEngine(canvas);
  } else {
    for (int i = 0; i < 4; ++i) {
      const double x = 350 + i * 24;
      const double y = -172 + i * 4.6;
      Path trumpet;
      trumpet.MoveTo(x - 6, y + 12).LineTo(x - 6, y - 8).LineTo(x - 10, y - 17);
      trumpet.LineTo(x + 10, y - 17).LineTo(x + 6, y - 8).LineTo(x + 6, y + 12);
      canvas.Fill(trumpet.StrokedClosed(1.4), Hex(0x3B3F42));
      canvas.Fill(trumpet,
                  Paint::Linear({x - 10, 0}, {x + 10, 0},
                                {{0, Hex(0x9EA4A5)}, {0.3, Hex(0xFAFAF4)}, {1, Hex(0x6F7577)}}));
    }
  }
  const Path body = FormulaBody(style.shape);
  ShadeBody(canvas, body, style, open ? 330 : 620);
  DrawDetails(canvas, style);
  if (open) {
    canvas.Fill(Path::Line(319, -128, 324, -36).Stroked(4), Darker(style.body, 0.6));
    DrawExhaust(canvas);
  } else {
    Path joint;
    joint.MoveTo(318, -184).CubicTo(312, -130, 312, -80, 318, -28);
    canvas.Fill(joint.Stroked(1.5), WithAlpha(Darker(style.body, 0.75), 0.75));
    for (int i = 0; i < 5; ++i) {  // louvres
      Path louvre;
      louvre.MoveTo(338 + i * 15, -132 + i * 2).LineTo(332 + i * 15, -106 + i * 1.2);
      canvas.Fill(louvre.Stroked(4), WithAlpha(Darker(style.body, 0.8), 0.8));
    }
    for (const double y : {-84.0, -70.0}) {
      Path pipe;
      pipe.MoveTo(352, y + 14).CubicTo(380, y, 440, y - 6, 520, y - 8);
      pipe.CubicTo(580, y - 9, 640, y - 10, 690, y - 12);
      DrawTube(canvas, pipe, 9.5, Hex(0xC6BCAE));
      canvas.Fill(Path::Ellipse(692, y - 12, 2.8, 5.4), Hex(0x17191B));
    }
  }
  canvas.Fill(Path::Ellipse(226, -93, 33, 32), WithAlpha(Darker(style.body, 0.7), 0.5));
  DrawNumber(canvas, style.number, {226, -94}, 31);
  DrawScreen(canvas);
  // Mirror.
  canvas.Fill(Path::Line(150, -166, 144, -182).Stroked(2.6), kSteel);
  canvas.Fill(Path::RoundRect(128, -194, 24, 13, 6), Darker(kSteel, 0.45));
  canvas.Fill(Path::RoundRect(129.5, -192.8, 21, 9, 4.5), kSteel);

  // Near side suspension, then the wheels over its ends.
  DrawTube(canvas, Path::Line(112, -104, 0, -front - 14), 6, kSteel);
  DrawTube(canvas, Path::Line(112, -46, 0, -front + 22), 6, kSteel);
  DrawTube(canvas, Path::Line(318, -112, kWheelbase, -rear - 22), 6, kSteel);
  DrawTube(canvas, Path::Line(322, -44, kWheelbase, -rear + 24), 6, kSteel);
  if (style.wings) {
    DrawWings(canvas, style);
  }
  DrawWheel(canvas, {0, -front}, front, style.rim);
  DrawWheel(canvas, {kWheelbase, -rear}, rear, style.rim);
}

void DrawCoupe(Canvas& canvas, const CarStyle& style)
{
  const double r = 64 * style.tyre_size;
  const Color& paint = style.body;
  Path body;
  body.MoveTo(-172, -52).CubicTo(-176, -72, -166, -82, -150, -88);
  body.CubicTo(-110, -108, -60, -132, -6, -136).CubicTo(40, -138, 84, -124, 116, -128);
  body.CubicTo(150, -156, 190, -184, 226, -190).CubicTo(262, -196, 300, -194, 326, -188);
  body.CubicTo(366, -178, 392, -160, 420, -150).CubicTo(470, -158, 540, -158, 600, -144);
  body.CubicTo(640, -134, 662, -128, 676, -132).LineTo(682, -126).LineTo(668, -108);
  body.CubicTo(668, -84, 662, -60, 652, -44).LineTo(596, -36).CubicTo(400, -24, 120, -22, -84, -26);
  body.CubicTo(-130, -28, -162, -34, -172, -52);
  canvas.Fill(Path::Rect(-92, -40, 700, 22), Hex(0x111316));
  canvas.Fill(body.StrokedClosed(2.2), Darker(paint, 0.72));
  canvas.Fill(body, Paint::Vertical(-194, -24,
                                    {{0, Lighter(paint, 0.35)},
                                     {0.3, Lighter(paint, 0.10)},
                                     {0.55, paint},
                                     {0.8, Darker(paint, 0.32)},
                                     {1, Darker(paint, 0.55)}}));
  canvas.Clip(body);
  Path stripe;
  stripe.MoveTo(-172, -70).CubicTo(-60, -84, 300, -86, 680, -104).LineTo(680, -90);
  stripe.CubicTo(300, -70, -60, -68, -172, -56);
  canvas.Fill(
      stripe,
      Paint::Vertical(-104, -56, {{0, Lighter(style.trim, 0.1)}, {1, Darker(style.trim, 0.15)}}));
  for (const double x : {0.0, kWheelbase}) {  // light on the wings
    Path hump;
    hump.MoveTo(x - 110, -104).CubicTo(x - 60, -128, x + 50, -136, x + 100, -122);
    canvas.SoftStroke(hump.Moved(0, x > 0 ? -14 : 2), 22, WithAlpha(Hex(0xFFFFFF), 0.6));
  }
  Path roof;
  roof.MoveTo(176, -176).CubicTo(220, -188, 290, -190, 356, -174);
  canvas.SoftStroke(roof, 12, WithAlpha(Hex(0xFFFFFF), 0.7));
  Path sheen;
  sheen.MoveTo(-120, -42).CubicTo(60, -36, 400, -38, 640, -56);
  canvas.SoftStroke(sheen, 14, WithAlpha(Hex(0xFFF3DA), 0.24));
  canvas.Unclip();

  // Windows.
  Path window;
  window.MoveTo(140, -132).CubicTo(166, -156, 194, -174, 222, -179);
  window.CubicTo(250, -184, 284, -183, 304, -179).LineTo(312, -138);
  window.CubicTo(260, -134, 190, -130, 140, -132);
  const Paint glass = Paint::Linear(
      {150, -184}, {300, -130},
      {{0, Hex(0xBFDDE4)}, {0.4, Hex(0x5F7F8B)}, {0.41, Hex(0x4B6976)}, {1, Hex(0x22333B)}});
  canvas.Fill(window.StrokedClosed(3), Darker(paint, 0.75));
  canvas.Fill(window, glass);
  canvas.Clip(window);
  canvas.Fill(Path::Circle(256, -150, 22), Hex(0x10171B, 0.75));  // the driver's helmet
  canvas.Fill(Path::Ellipse(252, -156, 12, 8), WithAlpha(style.helmet, 0.55));
  canvas.Fill(Path::Polygon({{206, -190}, {226, -190}, {190, -128}, {162, -128}}),
              WithAlpha(Hex(0xFFFFFF), 0.22));
  canvas.Unclip();
  canvas.Fill(Path::Line(196, -172, 190, -131).Stroked(3.4), Darker(paint, 0.5));
  Path quarter;
  quarter.MoveTo(324, -176).CubicTo(352, -168, 372, -156, 388, -145).LineTo(326, -139);
  canvas.Fill(quarter.StrokedClosed(3), Darker(paint, 0.75));
  canvas.Fill(quarter, Hex(0x2A3C45));

  // Joints, intakes, lamps.
  Path joints;
  joints.MoveTo(130, -131).CubicTo(124, -100, 128, -60, 138, -30);
  joints.MoveTo(318, -138).CubicTo(326, -100, 322, -64, 316, -30).LineTo(138, -30);
  joints.MoveTo(-84, -118).CubicTo(-74, -112, -70, -108, -72, -96);
  joints.MoveTo(424, -149).CubicTo(410, -120, 404, -80, 406, -30);
  canvas.Fill(joints.Stroked(1.7), WithAlpha(Darker(paint, 0.8), 0.75));
  Path scoop;
  scoop.MoveTo(340, -120).CubicTo(360, -128, 384, -128, 396, -122).LineTo(390, -98);
  scoop.CubicTo(376, -98, 356, -104, 340, -120);
  canvas.Fill(scoop, Hex(0x121417));
  Path lamp;
  lamp.MoveTo(-142, -90)
      .CubicTo(-128, -100, -112, -108, -98, -112)
      .CubicTo(-96, -98, -108, -86, -142, -90);
  canvas.Fill(lamp.StrokedClosed(2), Darker(paint, 0.6));
  canvas.Fill(lamp,
              Paint::Linear({-142, -110}, {-98, -88}, {{0, Hex(0xFFFFFF)}, {1, Hex(0x9FB6BD)}}));
  canvas.Fill(Path::Circle(-114, -98, 6.5), Hex(0xFFF1B8));
  canvas.Fill(Path::RoundRect(660, -122, 9, 16, 3), Hex(0xD5341F));
  canvas.Fill(Path::RoundRect(152, -104, 20, 4.5, 2), Darker(paint, 0.6));
  Path pipe;
  pipe.MoveTo(360, -34).LineTo(436, -30);
  DrawTube(canvas, pipe, 9, Hex(0xB9B2A6));
  DrawNumber(canvas, style.number, {228, -82}, 33);

  for (const double x : {0.0, kWheelbase}) {
    const double arch = r + 9;
    canvas.Clip(body);
    canvas.Fill(Path::Circle(x, -r + 1, arch), Hex(0x0B0D0F));
    canvas.Unclip();
    DrawWheel(canvas, {x, -r}, r, style.rim);
    Path edge;  // the body's lip above the tyre
    const Point start = Around({x, -r + 1}, 196, arch);
    edge.MoveTo(start.x, start.y);
    for (int degrees = 202; degrees <= 344; degrees += 6) {
      const Point p = Around({x, -r + 1}, degrees, arch);
      edge.LineTo(p.x, p.y);
    }
    canvas.Fill(edge.Stroked(3), Darker(paint, 0.35));
  }
}

}  // namespace

void DrawCar(Canvas& canvas, const CarStyle& style)
{
  DrawShadow(canvas);
  if (style.shape == Shape::kSportsCoupe) {
    DrawCoupe(canvas, style);
  } else {
    DrawFormulaCar(canvas, style);
  }
}

}  // namespace velquist::pictures
