// SPDX-License-Identifier: MIT
#include "export/SvgSurface.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "platform/TextEncoding.h"

namespace velquist::text_export {
namespace {

using platform::Colour;

/// Of the letter height.
constexpr double kLineHeight = 1.15;
constexpr double kBaseline = 0.92;
constexpr double kCapitals = 0.72;

/// At most two decimals.
std::string Number(double value)
{
  std::array<char, 64> text{};
  const double rounded = std::round(value * 100) / 100 + 0.0;  // no -0
  const auto end = std::to_chars(text.data(), text.data() + text.size(), rounded);
  return {text.data(), end.ptr};
}

std::string Attribute(std::string_view name, double value)
{
  return " " + std::string(name) + "=\"" + Number(value) + "\"";
}

std::string ColourText(Colour colour)
{
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text = "#";
  for (const unsigned part : {colour.red, colour.green, colour.blue}) {
    text += kDigits[part >> 4U];
    text += kDigits[part & 0xFU];
  }
  return text;
}

std::string Paint(std::string_view name, Colour colour)
{
  return " " + std::string(name) + "=\"" + ColourText(colour) + "\"";
}

/// Width of a character in Helvetica, of the letter height.
double WidthOf(char c)
{
  constexpr std::string_view kNarrow = "fijlt.,:;!'()|/ -";
  constexpr std::string_view kWide = "mwMWGOQ%@";
  if (kNarrow.find(c) != std::string_view::npos) return 0.3;
  if (kWide.find(c) != std::string_view::npos) return 0.85;
  return c >= 'A' && c <= 'Z' ? 0.69 : 0.556;
}

}  // namespace

std::string Escaped(std::string_view text)
{
  std::string escaped;
  for (const char c : platform::InUtf8(text)) {
    switch (c) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      case '"': escaped += "&quot;"; break;
      default:
        if (static_cast<unsigned char>(c) < ' ')
          escaped += "\xEF\xBF\xBD";
        else
          escaped += c;
    }
  }
  return escaped;
}

void SvgSurface::Clear(Colour background)
{
  drawn_ = "<rect" + Attribute("width", width_) + Attribute("height", height_) +
           Paint("fill", background) + "/>\n";
}

void SvgSurface::Line(double x1, double y1, double x2, double y2, Colour colour, double width,
                      platform::LineStyle style)
{
  drawn_ += "<line" + Attribute("x1", x1) + Attribute("y1", y1) + Attribute("x2", x2) +
            Attribute("y2", y2) + Paint("stroke", colour) + Attribute("stroke-width", width);
  if (style == platform::LineStyle::kDotted) drawn_ += " stroke-dasharray=\"2 3\"";
  drawn_ += "/>\n";
}

void SvgSurface::Box(double left, double top, double right, double bottom, Colour colour,
                     std::optional<Colour> fill)
{
  drawn_ += "<rect" + Attribute("x", left) + Attribute("y", top) +
            Attribute("width", std::max(right - left, 0.0)) +
            Attribute("height", std::max(bottom - top, 0.0)) + Paint("stroke", colour);
  drawn_ += fill ? Paint("fill", *fill) : std::string(" fill=\"none\"");
  drawn_ += "/>\n";
}

void SvgSurface::Dot(double x, double y, Colour colour)
{
  drawn_ += "<rect" + Attribute("x", x) + Attribute("y", y) + Attribute("width", 1) +
            Attribute("height", 1) + Paint("fill", colour) + "/>\n";
}

void SvgSurface::Text(double x, double y, std::string_view text)
{
  drawn_ += "<text" + Attribute("x", x) + Attribute("y", y + kBaseline * letters_) +
            Attribute("font-size", letters_) + ">" + Escaped(text) + "</text>\n";
}

platform::TextExtent SvgSurface::Extent(std::string_view text) const
{
  double width = 0;
  for (const char c : text) width += WidthOf(c);
  return {width * letters_, kLineHeight * letters_, (kBaseline - kCapitals) * letters_,
          kBaseline * letters_};
}

std::string SvgSurface::Element(std::string_view title) const
{
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" role=\"img\" viewBox=\"0 0 " + Number(width_) +
         " " + Number(height_) + "\">\n<title>" + Escaped(title) + "</title>\n" + drawn_ +
         "</svg>\n";
}

}  // namespace velquist::text_export
