// SPDX-License-Identifier: MIT
#include "Canvas.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace velquist::pictures {
namespace {

constexpr int kLinesPerCurve = 24;
constexpr int kSubRows = 8;  ///< sampling rows a pixel; along a row the coverage is exact

/// Turned so that its area is positive: outlines of a stroke must not cancel each other.
void Orient(std::vector<Point>& outline)
{
  double area = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Point& a = outline[i];
    const Point& b = outline[(i + 1) % outline.size()];
    area += a.x * b.y - b.x * a.y;
  }
  if (area < 0) {
    std::reverse(outline.begin(), outline.end());
  }
}

std::uint8_t Byte(double channel)
{
  const double scaled = channel * 255 + 0.5;
  return static_cast<std::uint8_t>(std::clamp(scaled, 0.0, 255.0));
}

std::string Decimal(double value)
{
  const auto hundredths = static_cast<std::int64_t>(std::floor(value * 100 + 0.5));
  const std::int64_t size = hundredths < 0 ? -hundredths : hundredths;
  std::string text = hundredths < 0 ? "-" : "";
  text += std::to_string(size / 100);
  if (size % 100 != 0) {
    text += '.';
    text += static_cast<char>('0' + size % 100 / 10);
    if (size % 10 != 0) {
      text += static_cast<char>('0' + size % 10);
    }
  }
  return text;
}

}  // namespace

double Sine(double radians)
{
  const double turns = std::floor(radians / (2 * kPi) + 0.5);
  const double x = radians - turns * 2 * kPi;
  double term = x;
  double sum = x;
  for (int k = 1; k < 14; ++k) {
    term *= -x * x / ((2.0 * k) * (2.0 * k + 1));
    sum += term;
  }
  return sum;
}

double Cosine(double radians)
{
  return Sine(radians + kPi / 2);
}

Color Hex(std::uint32_t rgb, double alpha)
{
  return {((rgb >> 16U) & 0xFFU) / 255.0, ((rgb >> 8U) & 0xFFU) / 255.0, (rgb & 0xFFU) / 255.0,
          alpha};
}

Color Mix(const Color& a, const Color& b, double share)
{
  return {a.r + (b.r - a.r) * share, a.g + (b.g - a.g) * share, a.b + (b.b - a.b) * share,
          a.a + (b.a - a.a) * share};
}

Color Lighter(const Color& color, double share)
{
  return Mix(color, {1, 1, 1, color.a}, share);
}

Color Darker(const Color& color, double share)
{
  return Mix(color, {0, 0, 0, color.a}, share);
}

Color WithAlpha(const Color& color, double alpha)
{
  return {color.r, color.g, color.b, alpha};
}

Path& Path::MoveTo(double x, double y)
{
  outlines_.push_back({{x, y}});
  return *this;
}

Path& Path::LineTo(double x, double y)
{
  outlines_.back().push_back({x, y});
  return *this;
}

Path& Path::QuadTo(double cx, double cy, double x, double y)
{
  const Point from = outlines_.back().back();
  return CubicTo(from.x + (cx - from.x) * 2 / 3, from.y + (cy - from.y) * 2 / 3,
                 x + (cx - x) * 2 / 3, y + (cy - y) * 2 / 3, x, y);
}

Path& Path::CubicTo(double c1x, double c1y, double c2x, double c2y, double x, double y)
{
  const Point from = outlines_.back().back();
  for (int i = 1; i <= kLinesPerCurve; ++i) {
    const double t = static_cast<double>(i) / kLinesPerCurve;
    const double u = 1 - t;
    const double w0 = u * u * u;
    const double w1 = 3 * u * u * t;
    const double w2 = 3 * u * t * t;
    const double w3 = t * t * t;
    LineTo(w0 * from.x + w1 * c1x + w2 * c2x + w3 * x, w0 * from.y + w1 * c1y + w2 * c2y + w3 * y);
  }
  return *this;
}

Path& Path::Through(std::initializer_list<Point> points)
{
  std::vector<Point> all{outlines_.back().back()};
  all.insert(all.end(), points.begin(), points.end());
  for (std::size_t i = 0; i + 1 < all.size(); ++i) {
    const Point& before = all[i == 0 ? 0 : i - 1];
    const Point& from = all[i];
    const Point& to = all[i + 1];
    const Point& after = all[i + 2 < all.size() ? i + 2 : i + 1];
    CubicTo(from.x + (to.x - before.x) / 6, from.y + (to.y - before.y) / 6,
            to.x - (after.x - from.x) / 6, to.y - (after.y - from.y) / 6, to.x, to.y);
  }
  return *this;
}

Path& Path::Add(const Path& other)
{
  outlines_.insert(outlines_.end(), other.outlines_.begin(), other.outlines_.end());
  return *this;
}

Path Path::Stroked(double width) const
{
  const double half = width / 2;
  Path stroke;
  for (const auto& outline : outlines_) {
    for (std::size_t i = 0; i < outline.size(); ++i) {
      stroke.Add(Circle(outline[i].x, outline[i].y, half));
      if (i + 1 == outline.size()) {
        break;
      }
      const Point& a = outline[i];
      const Point& b = outline[i + 1];
      const double length = std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
      if (length <= 0) {
        continue;
      }
      const double nx = -(b.y - a.y) / length * half;
      const double ny = (b.x - a.x) / length * half;
      stroke.Add(Polygon({{a.x + nx, a.y + ny},
                          {b.x + nx, b.y + ny},
                          {b.x - nx, b.y - ny},
                          {a.x - nx, a.y - ny}}));
    }
  }
  for (auto& outline : stroke.outlines_) {
    Orient(outline);
  }
  return stroke;
}

Path Path::StrokedClosed(double width) const
{
  Path closed = *this;
  for (auto& outline : closed.outlines_) {
    outline.push_back(outline.front());
  }
  return closed.Stroked(width);
}

Path Path::Moved(double dx, double dy) const
{
  Path moved = *this;
  for (auto& outline : moved.outlines_) {
    for (Point& p : outline) {
      p.x += dx;
      p.y += dy;
    }
  }
  return moved;
}

Path Path::Ellipse(double cx, double cy, double rx, double ry)
{
  constexpr double kQuarter = 0.5522847498307936;  // control points of a quarter circle
  const double kx = rx * kQuarter;
  const double ky = ry * kQuarter;
  Path path;
  path.MoveTo(cx + rx, cy);
  path.CubicTo(cx + rx, cy + ky, cx + kx, cy + ry, cx, cy + ry);
  path.CubicTo(cx - kx, cy + ry, cx - rx, cy + ky, cx - rx, cy);
  path.CubicTo(cx - rx, cy - ky, cx - kx, cy - ry, cx, cy - ry);
  path.CubicTo(cx + kx, cy - ry, cx + rx, cy - ky, cx + rx, cy);
  return path;
}

Path Path::Circle(double cx, double cy, double r)
{
  return Ellipse(cx, cy, r, r);
}

Path Path::Ring(double cx, double cy, double outer, double inner)
{
  Path ring = Circle(cx, cy, outer);
  Path hole = Circle(cx, cy, inner);
  std::reverse(hole.outlines_.front().begin(), hole.outlines_.front().end());
  return ring.Add(hole);
}

Path Path::Rect(double left, double top, double width, double height)
{
  return Polygon(
      {{left, top}, {left + width, top}, {left + width, top + height}, {left, top + height}});
}

Path Path::RoundRect(double left, double top, double width, double height, double radius)
{
  constexpr double kRest = 1 - 0.5522847498307936;
  const double right = left + width;
  const double bottom = top + height;
  const double k = radius * kRest;
  Path path;
  path.MoveTo(left + radius, top).LineTo(right - radius, top);
  path.CubicTo(right - k, top, right, top + k, right, top + radius);
  path.LineTo(right, bottom - radius);
  path.CubicTo(right, bottom - k, right - k, bottom, right - radius, bottom);
  path.LineTo(left + radius, bottom);
  path.CubicTo(left + k, bottom, left, bottom - k, left, bottom - radius);
  path.LineTo(left, top + radius);
  path.CubicTo(left, top + k, left + k, top, left + radius, top);
  return path;
}

Path Path::Polygon(std::initializer_list<Point> points)
{
  Path path;
  path.outlines_.emplace_back(points);
  return path;
}

Path Path::Line(double x1, double y1, double x2, double y2)
{
  return Polygon({{x1, y1}, {x2, y2}});
}

std::string Path::SvgData() const
{
  std::string data;
  for (const auto& outline : outlines_) {
    for (std::size_t i = 0; i < outline.size(); ++i) {
      data += i == 0 ? 'M' : 'L';
      data += Decimal(outline[i].x) + " " + Decimal(outline[i].y);
    }
  }
  return data;
}

Paint::Paint(const Color& color) : stops_{{0, color}} {}

Paint::Paint(Kind kind, Point from, Point to, std::vector<Stop> stops)
    : kind_(kind), from_(from), to_(to), stops_(std::move(stops))
{
}

Paint Paint::Linear(Point from, Point to, std::vector<Stop> stops)
{
  return {Kind::kLinear, from, to, std::move(stops)};
}

Paint Paint::Vertical(double top, double bottom, std::vector<Stop> stops)
{
  return Linear({0, top}, {0, bottom}, std::move(stops));
}

Paint Paint::Radial(Point centre, double radius, std::vector<Stop> stops, double flatness)
{
  return {Kind::kRadial, centre, {radius, radius * flatness}, std::move(stops)};
}

Color Paint::At(Point p) const
{
  double place = 0;
  if (kind_ == Kind::kLinear) {
    const double dx = to_.x - from_.x;
    const double dy = to_.y - from_.y;
    place = ((p.x - from_.x) * dx + (p.y - from_.y) * dy) / (dx * dx + dy * dy);
  } else if (kind_ == Kind::kRadial) {
    const double dx = (p.x - from_.x) / to_.x;
    const double dy = (p.y - from_.y) / to_.y;
    place = std::sqrt(dx * dx + dy * dy);
  }
  if (place <= stops_.front().at) {
    return stops_.front().color;
  }
  for (std::size_t i = 1; i < stops_.size(); ++i) {
    if (place < stops_[i].at) {
      const double share = (place - stops_[i - 1].at) / (stops_[i].at - stops_[i - 1].at);
      return Mix(stops_[i - 1].color, stops_[i].color, share);
    }
  }
  return stops_.back().color;
}

struct Canvas::Coverage {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  std::vector<double> shares;
};

Canvas::Canvas(int width, int height, Transform transform)
    : width_(width),
      height_(height),
      transform_(transform),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), Color{0, 0, 0, 0})
{
}

Canvas::Coverage Canvas::Cover(const Path& path) const
{
  struct Edge {
    Point top;
    Point bottom;
    int winding;
  };
  std::vector<Edge> edges;
  Point low{1e9, 1e9};
  Point high{-1e9, -1e9};
  for (const auto& outline : path.Outlines()) {
    for (std::size_t i = 0; i < outline.size(); ++i) {
      Point a = transform_(outline[i]);
      Point b = transform_(outline[(i + 1) % outline.size()]);
      low = {std::min(low.x, a.x), std::min(low.y, a.y)};
      high = {std::max(high.x, a.x), std::max(high.y, a.y)};
      if (a.y < b.y) {
        edges.push_back({a, b, 1});
      } else if (b.y < a.y) {
        edges.push_back({b, a, -1});
      }
    }
  }
  Coverage cover;
  cover.left = static_cast<int>(std::floor(std::clamp(low.x, 0.0, static_cast<double>(width_))));
  cover.top = static_cast<int>(std::floor(std::clamp(low.y, 0.0, static_cast<double>(height_))));
  const double right = std::floor(std::clamp(high.x + 1, 0.0, static_cast<double>(width_)));
  const double bottom = std::floor(std::clamp(high.y + 1, 0.0, static_cast<double>(height_)));
  cover.width = std::max(0, static_cast<int>(right) - cover.left);
  cover.height = std::max(0, static_cast<int>(bottom) - cover.top);
  if (cover.width == 0 || cover.height == 0) {
    cover.width = 0;
    cover.height = 0;
    return cover;
  }
  const auto columns = static_cast<std::size_t>(cover.width);
  cover.shares.assign(columns * static_cast<std::size_t>(cover.height), 0);
  std::sort(edges.begin(), edges.end(),
            [](const Edge& a, const Edge& b) { return a.top.y < b.top.y; });

  struct Crossing {
    double x;
    int winding;
  };
  std::vector<Crossing> crossings;
  std::vector<std::size_t> active;
  std::size_t next_edge = 0;
  const auto add_span = [&](int row, double from, double to) {
    from = std::max(from - cover.left, 0.0);
    to = std::min(to - cover.left, static_cast<double>(cover.width));
    if (to <= from) {
      return;
    }
    double* const shares = &cover.shares[static_cast<std::size_t>(row) * columns];
    const auto first = static_cast<std::size_t>(from);
    const auto last = std::min(static_cast<std::size_t>(to), columns - 1);
    for (std::size_t x = first; x <= last; ++x) {
      const auto edge = static_cast<double>(x);
      shares[x] += (std::min(to, edge + 1) - std::max(from, edge)) / kSubRows;
    }
  };
  for (int row = 0; row < cover.height; ++row) {
    for (int sub = 0; sub < kSubRows; ++sub) {
      const double y = cover.top + row + (sub + 0.5) / kSubRows;
      while (next_edge < edges.size() && edges[next_edge].top.y <= y) {
        active.push_back(next_edge++);
      }
      crossings.clear();
      std::erase_if(active, [&](std::size_t i) { return edges[i].bottom.y <= y; });
      for (const std::size_t i : active) {
        const Edge& e = edges[i];
        const double t = (y - e.top.y) / (e.bottom.y - e.top.y);
        crossings.push_back({e.top.x + (e.bottom.x - e.top.x) * t, e.winding});
      }
      std::sort(crossings.begin(), crossings.end(), [](const Crossing& a, const Crossing& b) {
        return a.x < b.x || (!(b.x < a.x) && a.winding < b.winding);
      });
      int winding = 0;
      for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
        winding += crossings[i].winding;
        if (winding != 0) {
          add_span(row, crossings[i].x, crossings[i + 1].x);
        }
      }
    }
  }
  return cover;
}

void Canvas::Fill(const Path& path, const Paint& paint)
{
  const Coverage cover = Cover(path);
  for (int row = 0; row < cover.height; ++row) {
    for (int column = 0; column < cover.width; ++column) {
      const int x = cover.left + column;
      const int y = cover.top + row;
      const auto at = static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                      static_cast<std::size_t>(x);
      double share =
          cover.shares[static_cast<std::size_t>(row) * static_cast<std::size_t>(cover.width) +
                       static_cast<std::size_t>(column)];
      if (!clip_.empty()) {
        share *= clip_[at];
      }
      if (share <= 0) {
        continue;
      }
      const Point user{(x + 0.5 - transform_.dx) / transform_.scale,
                       (y + 0.5 - transform_.dy) / transform_.scale};
      const Color color = paint.At(user);
      const double alpha = std::min(share, 1.0) * color.a;
      Color& pixel = pixels_[at];
      pixel.r = color.r * alpha + pixel.r * (1 - alpha);
      pixel.g = color.g * alpha + pixel.g * (1 - alpha);
      pixel.b = color.b * alpha + pixel.b * (1 - alpha);
      pixel.a = alpha + pixel.a * (1 - alpha);
    }
  }
}

void Canvas::SoftStroke(const Path& path, double width, const Color& color)
{
  constexpr int kPens = 6;
  for (int pen = 0; pen < kPens; ++pen) {
    const double share = static_cast<double>(kPens - pen) / kPens;
    Fill(path.Stroked(width * share), WithAlpha(color, color.a / kPens));
  }
}

void Canvas::Clip(const Path& path)
{
  const Coverage cover = Cover(path);
  clip_.assign(pixels_.size(), 0);
  for (int row = 0; row < cover.height; ++row) {
    for (int column = 0; column < cover.width; ++column) {
      const auto to = static_cast<std::size_t>(cover.top + row) * static_cast<std::size_t>(width_) +
                      static_cast<std::size_t>(cover.left + column);
      const auto from = static_cast<std::size_t>(row) * static_cast<std::size_t>(cover.width) +
                        static_cast<std::size_t>(column);
      clip_[to] = std::min(cover.shares[from], 1.0);
    }
  }
}

void Canvas::Unclip()
{
  clip_.clear();
}

std::vector<std::uint8_t> Canvas::Rgba() const
{
  std::vector<std::uint8_t> bytes;
  bytes.reserve(pixels_.size() * 4);
  for (const Color& pixel : pixels_) {
    const double alpha = pixel.a > 0 ? pixel.a : 1;
    bytes.push_back(Byte(pixel.r / alpha));
    bytes.push_back(Byte(pixel.g / alpha));
    bytes.push_back(Byte(pixel.b / alpha));
    bytes.push_back(Byte(pixel.a));
  }
  return bytes;
}

std::vector<std::uint8_t> Canvas::Rgb() const
{
  std::vector<std::uint8_t> bytes;
  bytes.reserve(pixels_.size() * 3);
  for (const Color& pixel : pixels_) {
    bytes.push_back(Byte(pixel.r + 1 - pixel.a));
    bytes.push_back(Byte(pixel.g + 1 - pixel.a));
    bytes.push_back(Byte(pixel.b + 1 - pixel.a));
  }
  return bytes;
}

}  // namespace velquist::pictures
