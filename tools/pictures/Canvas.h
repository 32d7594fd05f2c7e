// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace velquist::pictures {

// Everything here is made of + - * / and square roots of doubles, which every compiler and C
// library rounds alike: the pixels are the same everywhere.

inline constexpr double kPi = 3.14159265358979323846;

[[nodiscard]] double Sine(double radians);
[[nodiscard]] double Cosine(double radians);

struct Point {
  double x = 0;
  double y = 0;
};

/// Channels 0 to 1, not premultiplied.
struct Color {
  double r = 0;
  double g = 0;
  double b = 0;
  double a = 1;
};

/// From 0xRRGGBB.
[[nodiscard]] Color Hex(std::uint32_t rgb, double alpha = 1);
/// `a` at 0, `b` at 1.
[[nodiscard]] Color Mix(const Color& a, const Color& b, double share);
[[nodiscard]] Color Lighter(const Color& color, double share);
[[nodiscard]] Color Darker(const Color& color, double share);
[[nodiscard]] Color WithAlpha(const Color& color, double alpha);

/// Scales, then moves.
struct Transform {
  double scale = 1;
  double dx = 0;
  double dy = 0;

  [[nodiscard]] Point operator()(Point p) const { return {p.x * scale + dx, p.y * scale + dy}; }
};

/// Outlines made of straight lines; curves are broken into lines as they are added.
class Path {
 public:
  Path& MoveTo(double x, double y);
  Path& LineTo(double x, double y);
  Path& QuadTo(double cx, double cy, double x, double y);
  Path& CubicTo(double c1x, double c1y, double c2x, double c2y, double x, double y);
  /// A smooth line from the last point through all of `points`.
  Path& Through(std::initializer_list<Point> points);
  Path& Add(const Path& other);

  /// The area that a round pen of this width covers along the outlines, which stay open.
  [[nodiscard]] Path Stroked(double width) const;
  /// Likewise, each outline closed first.
  [[nodiscard]] Path StrokedClosed(double width) const;
  [[nodiscard]] Path Moved(double dx, double dy) const;

  [[nodiscard]] static Path Ellipse(double cx, double cy, double rx, double ry);
  [[nodiscard]] static Path Circle(double cx, double cy, double r);
  [[nodiscard]] static Path Ring(double cx, double cy, double outer, double inner);
  [[nodiscard]] static Path Rect(double left, double top, double width, double height);
  [[nodiscard]] static Path RoundRect(double left, double top, double width, double height,
                                      double radius);
  [[nodiscard]] static Path Polygon(std::initializer_list<Point> points);
  [[nodiscard]] static Path Line(double x1, double y1, double x2, double y2);

  [[nodiscard]] const std::vector<std::vector<Point>>& Outlines() const { return outlines_; }
  /// The path data of an SVG file for stroking: open lines, at most two decimals.
  [[nodiscard]] std::string SvgData() const;

 private:
  std::vector<std::vector<Point>> outlines_;
};

struct Stop {
  double at = 0;
  Color color;
};

/// One colour, or a run of colours along a line or outwards from a centre.
class Paint {
 public:
  Paint(const Color& color);  // NOLINT(google-explicit-constructor): a colour is a paint
  [[nodiscard]] static Paint Linear(Point from, Point to, std::vector<Stop> stops);
  [[nodiscard]] static Paint Vertical(double top, double bottom, std::vector<Stop> stops);
  /// `flatness` is the height of the ellipses of equal colour over their width.
  [[nodiscard]] static Paint Radial(Point centre, double radius, std::vector<Stop> stops,
                                    double flatness = 1);

  [[nodiscard]] Color At(Point p) const;

 private:
  enum class Kind { kSolid, kLinear, kRadial };

  Paint(Kind kind, Point from, Point to, std::vector<Stop> stops);

  Kind kind_ = Kind::kSolid;
  Point from_;
  Point to_;  ///< of a radial paint: the two radii
  std::vector<Stop> stops_;
};

/// A picture with transparency. Paths are given in user units, which `transform` turns into
/// pixels.
class Canvas {
 public:
  Canvas(int width, int height, Transform transform = {});

  /// Non-zero winding rule.
  void Fill(const Path& path, const Paint& paint);
  /// A soft line: several pens on top of each other, the widest faintest.
  void SoftStroke(const Path& path, double width, const Color& color);
  /// Limits what follows to the area of `path` (which replaces an earlier limit).
  void Clip(const Path& path);
  void Unclip();

  void SetTransform(Transform transform) { transform_ = transform; }
  [[nodiscard]] int Width() const { return width_; }
  [[nodiscard]] int Height() const { return height_; }

  /// Rows from the top, red green blue alpha, not premultiplied.
  [[nodiscard]] std::vector<std::uint8_t> Rgba() const;
  /// Rows from the top, red green blue, on white.
  [[nodiscard]] std::vector<std::uint8_t> Rgb() const;

 private:
  struct Coverage;

  [[nodiscard]] Coverage Cover(const Path& path) const;

  int width_;
  int height_;
  Transform transform_;
  std::vector<Color> pixels_;  ///< premultiplied
  std::vector<double> clip_;   ///< empty: no limit
};

}  // namespace velquist::pictures
