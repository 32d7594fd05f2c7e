// SPDX-License-Identifier: MIT
#include "export/PictureSvg.h"

#include <array>
#include <charconv>
#include <cmath>

#include "export/Markup.h"

namespace velquist::text_export {
namespace {

using charts::Primitive;
using platform::Colour;

/// Up to two decimals, whatever the locale.
std::string Number(double value)
{
  constexpr double kHundredths = 100;
  constexpr std::size_t kLongestNumber = 330;
  std::array<char, kLongestNumber> text;  // NOLINT(*-member-init): filled up to its end
  const double rounded = std::nearbyint(value * kHundredths) / kHundredths + 0.0;
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), rounded, std::chars_format::fixed);
  return end.ec == std::errc() ? std::string(text.data(), end.ptr) : std::string("0");
}

std::string Attribute(std::string_view name, std::string_view value)
{
  return " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

std::string Attribute(std::string_view name, double value)
{
  return Attribute(name, Number(value));
}

std::string ColourText(Colour colour)
{
  return "rgb(" + std::to_string(colour.red) + "," + std::to_string(colour.green) + "," +
         std::to_string(colour.blue) + ")";
}

std::string Point(double x, double y)
{
  return Number(x) + "," + Number(y);
}

/// The lines from `first` on that make one curve; `first` becomes the last of them.
std::string LineElement(const std::vector<Primitive>& drawn, std::size_t& first)
{
  const auto& line = drawn[first];
  auto points = Point(line.x1, line.y1) + " " + Point(line.x2, line.y2);
  for (; first + 1 < drawn.size() && charts::GoesOn(drawn[first], drawn[first + 1]); ++first)
    points += " " + Point(drawn[first + 1].x2, drawn[first + 1].y2);
  return "<polyline" + Attribute("points", points) + Attribute("fill", "none") +
         Attribute("stroke", ColourText(line.colour)) + Attribute("stroke-width", line.width) +
         Attribute("stroke-linejoin", "round") +
         (line.style == platform::LineStyle::kDotted ? Attribute("stroke-dasharray", "1 2") : "") +
         "/>\n";
}

std::string BoxElement(const Primitive& box)
{
  return "<rect" + Attribute("x", box.x1) + Attribute("y", box.y1) +
         Attribute("width", box.x2 - box.x1) + Attribute("height", box.y2 - box.y1) +
         Attribute("fill", box.fill ? ColourText(*box.fill) : "none") +
         Attribute("stroke", ColourText(box.colour)) + "/>\n";
}

std::string DotElement(const Primitive& dot)
{
  return "<rect" + Attribute("x", dot.x1) + Attribute("y", dot.y1) + Attribute("width", 1) +
         Attribute("height", 1) + Attribute("fill", ColourText(dot.colour)) + "/>\n";
}

/// As wide as it was measured, whatever letters the viewer has.
std::string TextElement(const Primitive& text)
{
  return "<text" + Attribute("x", text.x1) +
         Attribute("y", text.y1 + charts::kBaseline * text.letter_height) +
         Attribute("font-size", text.letter_height) + Attribute("textLength", text.x2 - text.x1) +
         Attribute("lengthAdjust", "spacingAndGlyphs") +
         Attribute("fill", ColourText(text.colour)) + ">" + Escaped(text.text) + "</text>\n";
}

}  // namespace

std::string SvgElement(const charts::PictureRecorder& picture, std::string_view title)
{
  const auto size = Attribute("width", picture.Width()) + Attribute("height", picture.Height());
  std::string svg =
      "<svg xmlns=\"http://www.w3.org/2000/svg\" role=\"img\"" + size +
      Attribute("viewBox", "0 0 " + Number(picture.Width()) + " " + Number(picture.Height())) +
      Attribute("font-family", "Arial, Liberation Sans, Helvetica, sans-serif") + ">\n<title>" +
      Escaped(title) + "</title>\n<rect" + size +
      Attribute("fill", ColourText(picture.Background())) + "/>\n";
  const auto& drawn = picture.Drawn();
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    switch (drawn[i].kind) {
      case Primitive::Kind::kLine: svg += LineElement(drawn, i); break;
      case Primitive::Kind::kBox: svg += BoxElement(drawn[i]); break;
      case Primitive::Kind::kDot: svg += DotElement(drawn[i]); break;
      case Primitive::Kind::kText: svg += TextElement(drawn[i]); break;
    }
  }
  return svg + "</svg>\n";
}

std::string SvgDocument(const charts::PictureRecorder& picture, std::string_view title)
{
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + SvgElement(picture, title);
}

}  // namespace velquist::text_export
