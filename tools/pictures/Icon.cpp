// SPDX-License-Identifier: MIT
#include "Icon.h"

#include <cstddef>

#include "PngWriter.h"

namespace velquist::pictures {
namespace {

// All measures in a square of 256 units.
constexpr double kMiddle = 128;
constexpr double kBossY = 150;
constexpr double kLargestBitmap = 64;  ///< larger sizes of the icon file are PNG

constexpr std::uint32_t kGreenTop = 0x1F7050;
constexpr std::uint32_t kGreenBottom = 0x0B3B2A;
constexpr std::uint32_t kCream = 0xF8F1DE;
constexpr std::uint32_t kSignal = 0xE2552B;

struct Weights {
  double margin;
  double corner;
  double radius;  ///< middle of the rim
  double rim;
  double spoke;
  double boss;
};

Weights WeightsFor(int size)
{
  if (size <= 16) {
    return {0, 48, 88, 32, 34, 30};
  }
  if (size <= 32) {
    return {4, 52, 88, 26, 29, 29};
  }
  return {8, 54, 86, 20, 24, 27};
}

/// Both arms of the V and the short spoke below.
Path Spokes(const Weights& w)
{
  const double reach = w.radius * 0.68;
  Path arms;
  arms.MoveTo(kMiddle - reach, kMiddle - reach * 0.9).LineTo(kMiddle, kBossY);
  arms.LineTo(kMiddle + reach, kMiddle - reach * 0.9);
  arms.MoveTo(kMiddle, kBossY).LineTo(kMiddle, kMiddle + w.radius - 8);
  return arms;
}

std::string Web(std::uint32_t rgb)
{
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text = "#";
  for (int shift = 20; shift >= 0; shift -= 4) {
    text += kDigits[(rgb >> static_cast<unsigned>(shift)) & 15U];
  }
  return text;
}

void Put(std::vector<std::uint8_t>& bytes, std::uint32_t value, int count)
{
  for (int i = 0; i < count; ++i) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8U * static_cast<unsigned>(i))));
  }
}

/// An icon's device-independent bitmap: header, pixels from the bottom, mask of the clear ones.
std::vector<std::uint8_t> Bitmap(const Canvas& icon)
{
  const auto size = static_cast<std::uint32_t>(icon.Width());
  const std::uint32_t mask_row = (size + 31) / 32 * 4;
  std::vector<std::uint8_t> bytes;
  Put(bytes, 40, 4);
  Put(bytes, size, 4);
  Put(bytes, size * 2, 4);
  Put(bytes, 1, 2);
  Put(bytes, 32, 2);
  Put(bytes, 0, 4);
  Put(bytes, size * size * 4 + mask_row * size, 4);
  Put(bytes, 0, 4);
  Put(bytes, 0, 4);
  Put(bytes, 0, 4);
  Put(bytes, 0, 4);
  const std::vector<std::uint8_t> rgba = icon.Rgba();
  const auto pixel = [&](std::uint32_t x, std::uint32_t y) {
    return &rgba[(static_cast<std::size_t>(y) * size + x) * 4];
  };
  for (std::uint32_t row = size; row-- > 0;) {
    for (std::uint32_t x = 0; x < size; ++x) {
      const std::uint8_t* const p = pixel(x, row);
      bytes.insert(bytes.end(), {p[2], p[1], p[0], p[3]});
    }
  }
  for (std::uint32_t row = size; row-- > 0;) {
    std::vector<std::uint8_t> mask(mask_row, 0);
    for (std::uint32_t x = 0; x < size; ++x) {
      if (pixel(x, row)[3] == 0) {
        mask[x / 8] = static_cast<std::uint8_t>(mask[x / 8] | (0x80U >> (x % 8)));
      }
    }
    bytes.insert(bytes.end(), mask.begin(), mask.end());
  }
  return bytes;
}

}  // namespace

Canvas DrawIcon(int size)
{
  const Weights w = WeightsFor(size);
  Canvas canvas(size, size, {size / 256.0, 0, 0});
  const double side = 256 - 2 * w.margin;
  const Path plate = Path::RoundRect(w.margin, w.margin, side, side, w.corner);
  canvas.Fill(plate, Paint::Vertical(w.margin, 256 - w.margin,
                                     {{0, Hex(kGreenTop)}, {1, Hex(kGreenBottom)}}));
  if (size >= 48) {  // a light edge inside the plate
    const double inset = w.margin + 5;
    canvas.Fill(Path::RoundRect(inset, inset, 256 - 2 * inset, 256 - 2 * inset, w.corner - 5)
                    .StrokedClosed(3),
                WithAlpha(Hex(kCream), 0.22));
  }
  const Path rim = Path::Ring(kMiddle, kMiddle, w.radius + w.rim / 2, w.radius - w.rim / 2);
  const Path spokes = Spokes(w).Stroked(w.spoke);
  const Path boss = Path::Circle(kMiddle, kBossY, w.boss);
  if (size >= 48) {
    const Color shade = Hex(0x04140E, 0.35);
    canvas.Fill(rim.Moved(0, 6), shade);
    canvas.Fill(spokes.Moved(0, 6), shade);
  }
  canvas.Fill(spokes, Hex(kCream));
  canvas.Fill(rim, Hex(kCream));
  canvas.Fill(boss, Hex(kSignal));
  if (size >= 48) {
    canvas.Fill(Path::Ring(kMiddle, kBossY, w.boss, w.boss - 5), Hex(0xB73C18));
    canvas.Fill(Path::Circle(kMiddle, kBossY, 7), Hex(kCream));
  }
  return canvas;
}

std::string IconSvg()
{
  const Weights w = WeightsFor(256);
  const auto number = [](double value) { return std::to_string(static_cast<int>(value)); };
  const std::string side = number(256 - 2 * w.margin);
  std::string svg =
      "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 256 256\">\n"
      "  <defs><linearGradient id=\"plate\" gradientUnits=\"userSpaceOnUse\" x1=\"0\" y1=\"8\" "
      "x2=\"0\" y2=\"248\">\n"
      "    <stop offset=\"0\" stop-color=\"" +
      Web(kGreenTop) +
      "\"/>\n"
      "    <stop offset=\"1\" stop-color=\"" +
      Web(kGreenBottom) +
      "\"/>\n"
      "  </linearGradient></defs>\n";
  svg += "  <rect x=\"" + number(w.margin) + "\" y=\"" + number(w.margin) + "\" width=\"" + side +
         "\" height=\"" + side + "\" rx=\"" + number(w.corner) + "\" fill=\"url(#plate)\"/>\n";
  svg += "  <g fill=\"none\" stroke=\"" + Web(kCream) +
         "\" stroke-linecap=\"round\" "
         "stroke-linejoin=\"round\">\n";
  svg += "    <path stroke-width=\"" + number(w.spoke) + "\" d=\"" + Spokes(w).SvgData() + "\"/>\n";
  svg += "    <circle cx=\"128\" cy=\"128\" r=\"" + number(w.radius) + "\" stroke-width=\"" +
         number(w.rim) + "\"/>\n  </g>\n";
  svg += "  <circle cx=\"128\" cy=\"" + number(kBossY) + "\" r=\"" + number(w.boss) + "\" fill=\"" +
         Web(kSignal) + "\"/>\n";
  svg += "  <circle cx=\"128\" cy=\"" + number(kBossY) + "\" r=\"7\" fill=\"" + Web(kCream) +
         "\"/>\n</svg>\n";
  return svg;
}

std::vector<std::uint8_t> IconFile()
{
  std::vector<std::uint8_t> directory;
  std::vector<std::uint8_t> images;
  Put(directory, 0, 2);
  Put(directory, 1, 2);
  Put(directory, static_cast<std::uint32_t>(kIconSizes.size()), 2);
  for (const int size : kIconSizes) {
    const Canvas icon = DrawIcon(size);
    const std::vector<std::uint8_t> image =
        size <= kLargestBitmap ? Bitmap(icon) : EncodePng(size, size, icon.Rgba());
    Put(directory, static_cast<std::uint32_t>(size), 1);  // 256 is written as 0
    Put(directory, static_cast<std::uint32_t>(size), 1);
    Put(directory, 0, 2);
    Put(directory, 1, 2);
    Put(directory, 32, 2);
    Put(directory, static_cast<std::uint32_t>(image.size()), 4);
    Put(directory, static_cast<std::uint32_t>(6 + 16 * kIconSizes.size() + images.size()), 4);
    images.insert(images.end(), image.begin(), image.end());
  }
  directory.insert(directory.end(), images.begin(), images.end());
  return directory;
}

}  // namespace velquist::pictures
