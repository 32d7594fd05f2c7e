// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "charts/PictureRecorder.h"

namespace velquist::platform {

inline std::ostream& operator<<(std::ostream& out, Colour colour)
{
  return out << '(' << int{colour.red} << ", " << int{colour.green} << ", " << int{colour.blue}
             << ')';
}

}  // namespace velquist::platform

/// What chart tests look for among the primitives of a recorded picture.
namespace velquist::testing {

using charts::Primitive;

struct PictureSize {
  int width;
  int height;
};

/// From smaller than any window gives the charts to four times what the design does.
inline constexpr PictureSize kPictureSizes[] = {
    {240, 110}, {222, 128}, {375, 155}, {356, 218}, {600, 264}, {1125, 557}, {2400, 1100},
};

inline std::vector<Primitive> Having(const charts::PictureRecorder& picture, Primitive::Kind kind)
{
  std::vector<Primitive> found;
  std::ranges::copy_if(picture.Drawn(), std::back_inserter(found),
                       [kind](const Primitive& drawn) { return drawn.kind == kind; });
  return found;
}

inline std::vector<Primitive> Having(const charts::PictureRecorder& picture, Primitive::Kind kind,
                                     platform::Colour colour)
{
  auto found = Having(picture, kind);
  std::erase_if(found, [colour](const Primitive& drawn) { return !(drawn.colour == colour); });
  return found;
}

inline std::vector<Primitive> Lines(const charts::PictureRecorder& picture, platform::Colour colour,
                                    platform::LineStyle style)
{
  auto found = Having(picture, Primitive::Kind::kLine, colour);
  std::erase_if(found, [style](const Primitive& drawn) { return drawn.style != style; });
  return found;
}

inline std::vector<std::string> Texts(const charts::PictureRecorder& picture)
{
  std::vector<std::string> texts;
  for (const auto& drawn : Having(picture, Primitive::Kind::kText)) texts.push_back(drawn.text);
  return texts;
}

struct Area {
  double left;
  double top;
  double right;
  double bottom;
  friend bool operator==(const Area&, const Area&) = default;
};

/// What the letters of a text cover, without the empty space of the line.
inline Area Covered(const Primitive& text)
{
  constexpr double kCapitalTop = 0.189;
  constexpr double kBaseline = 0.905;
  constexpr double kDescent = 0.212;
  const bool descends = text.text.find_first_of("gjpqy,") != std::string::npos;
  return {text.x1, text.y1 + kCapitalTop * text.letter_height, text.x2,
          text.y1 + (kBaseline + (descends ? kDescent : 0)) * text.letter_height};
}

inline bool Overlap(const Area& a, const Area& b)
{
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// The texts that are not whole within the picture, and the pairs that overlap.
inline std::vector<std::string> TextFaults(const charts::PictureRecorder& picture)
{
  std::vector<std::string> faults;
  const auto texts = Having(picture, Primitive::Kind::kText);
  for (auto text = texts.begin(); text != texts.end(); ++text) {
    const auto area = Covered(*text);
    if (area.left < 0 || area.top < 0 || area.right > picture.Width() ||
        area.bottom > picture.Height())
      faults.push_back("\"" + text->text + "\" is not whole");
    for (auto other = texts.begin(); other != text; ++other)
      if (Overlap(area, Covered(*other)))
        faults.push_back("\"" + text->text + "\" touches \"" + other->text + "\"");
  }
  return faults;
}

}  // namespace velquist::testing
