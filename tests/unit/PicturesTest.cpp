// SPDX-License-Identifier: MIT
#include "Pictures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Canvas.h"
#include "Icon.h"
#include "runner/SourceDirectory.h"

namespace velquist::pictures {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Size = std::pair<unsigned, unsigned>;

const std::filesystem::path kRoot = velquist::testing::SourceDirectory();

const std::vector<PictureFile>& Pictures()
{
  static const std::vector<PictureFile> pictures = BuildPictures();
  return pictures;
}

const Bytes& Built(std::string_view path)
{
  for (const PictureFile& file : Pictures()) {
    if (file.path == path) {
      return file.bytes;
    }
  }
  ADD_FAILURE() << "no picture " << path;
  static const Bytes none;
  return none;
}

Bytes Committed(const std::filesystem::path& path)
{
  std::ifstream in(kRoot / path, std::ios::binary);
  EXPECT_TRUE(in) << path;
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

unsigned Big(const Bytes& bytes, std::size_t at, std::size_t count)
{
  unsigned value = 0;
  for (std::size_t i = 0; i < count; ++i) {
    value = value << 8U | bytes.at(at + i);
  }
  return value;
}

unsigned Little(const Bytes& bytes, std::size_t at, std::size_t count)
{
  unsigned value = 0;
  for (std::size_t i = count; i-- > 0;) {
    value = value << 8U | bytes.at(at + i);
  }
  return value;
}

/// Width and height from the frame header, found by walking the segments.
Size JpegSize(const Bytes& bytes)
{
  EXPECT_EQ(Big(bytes, 0, 2), 0xFFD8U);
  std::size_t at = 2;
  while (at + 9 < bytes.size()) {
    const unsigned marker = Big(bytes, at, 2);
    if (marker == 0xFFC0) {
      return {Big(bytes, at + 7, 2), Big(bytes, at + 5, 2)};
    }
    at += 2 + Big(bytes, at + 2, 2);
  }
  ADD_FAILURE() << "no frame header";
  return {};
}

Size PngSize(const Bytes& bytes, std::size_t at = 0)
{
  EXPECT_EQ(Big(bytes, at, 4), 0x89504E47U);
  return {Big(bytes, at + 16, 4), Big(bytes, at + 20, 4)};
}

TEST(Pictures, RebuildingGivesEveryCommittedFileBitForBit)
{
  for (const PictureFile& file : Pictures()) {
    EXPECT_TRUE(file.bytes == Committed(file.path)) << file.path << " is not what is drawn now";
  }
}

TEST(Pictures, NoPictureIsCommittedThatIsNotDrawnHere)
{
  std::set<std::string> drawn;
  for (const PictureFile& file : Pictures()) {
    drawn.insert(file.path);
  }
  for (const char* folder : {"assets/icon", "assets/resources", "examples/GPL/cars"}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kRoot / folder)) {
      const std::string kind = entry.path().extension().string();
      if (kind == ".jpg" || kind == ".png" || kind == ".ico" || kind == ".svg") {
        const std::string path = entry.path().lexically_relative(kRoot).generic_string();
        EXPECT_EQ(drawn.count(path), 1U) << path;
      }
    }
  }
}

TEST(Pictures, TheBuiltInPictureIs1024By753AndSmall)
{
  const Bytes& about = Built("assets/resources/about.jpg");
  EXPECT_EQ(JpegSize(about), Size(1024, 753));
  EXPECT_LT(about.size(), 200'000U);
}

TEST(Pictures, ExamplesAreWideSquareAndTall)
{
  int wide = 0;
  int square = 0;
  int tall = 0;
  for (const PictureFile& file : Pictures()) {
    if (file.path.ends_with("/GEMPic.jpg")) {
      const auto [width, height] = JpegSize(file.bytes);
      ++(width > height ? wide : width == height ? square : tall);
    }
  }
  EXPECT_EQ(wide + square + tall, 7);
  EXPECT_GT(wide, 0);
  EXPECT_GT(square, 0);
  EXPECT_GT(tall, 0);
}

TEST(Pictures, EachIconPngHasTheSizeOfItsName)
{
  for (const int size : kIconSizes) {
    const auto side = static_cast<unsigned>(size);
    EXPECT_EQ(PngSize(Built("assets/icon/velquist-" + std::to_string(size) + ".png")),
              Size(side, side));
  }
}

TEST(Pictures, TheIconFileHoldsAllSizes)
{
  const Bytes& ico = Built("assets/icon/velquist.ico");
  ASSERT_EQ(Little(ico, 0, 2), 0U);
  ASSERT_EQ(Little(ico, 2, 2), 1U);
  ASSERT_EQ(Little(ico, 4, 2), kIconSizes.size());
  std::size_t expected_offset = 6 + 16 * kIconSizes.size();
  for (std::size_t i = 0; i < kIconSizes.size(); ++i) {
    const auto size = static_cast<unsigned>(kIconSizes[i]);
    SCOPED_TRACE(size);
    const std::size_t entry = 6 + 16 * i;
    EXPECT_EQ(Little(ico, entry, 1), size % 256);
    EXPECT_EQ(Little(ico, entry + 1, 1), size % 256);
    EXPECT_EQ(Little(ico, entry + 6, 2), 32U);
    const std::size_t length = Little(ico, entry + 8, 4);
    const std::size_t offset = Little(ico, entry + 12, 4);
    EXPECT_EQ(offset, expected_offset);
    if (Big(ico, offset, 4) == 0x89504E47U) {
      EXPECT_EQ(PngSize(ico, offset), Size(size, size));
    } else {
      EXPECT_EQ(Little(ico, offset + 4, 4), size);
      EXPECT_EQ(Little(ico, offset + 8, 4), 2 * size);  // pixels and mask
    }
    expected_offset += length;
  }
  EXPECT_EQ(ico.size(), expected_offset);
}

TEST(Pictures, TheIconIsClearInTheCornersAndFullInTheMiddle)
{
  for (const int size : kIconSizes) {
    SCOPED_TRACE(size);
    const Bytes rgba = DrawIcon(size).Rgba();
    const auto side = static_cast<std::size_t>(size);
    EXPECT_LT(rgba[3], 128);
    EXPECT_EQ(rgba[(side / 2 * side + side / 2) * 4 + 3], 255);
  }
}

TEST(PictureCanvas, SineAndCosineAgreeWithTheLibrary)
{
  for (double angle = -20; angle < 20; angle += 0.37) {
    EXPECT_NEAR(Sine(angle), std::sin(angle), 1e-12);
    EXPECT_NEAR(Cosine(angle), std::cos(angle), 1e-12);
  }
}

TEST(PictureCanvas, AnEdgeThroughAPixelCoversItByItsShare)
{
  Canvas canvas(4, 1);
  canvas.Fill(Path::Rect(0.5, 0, 2.25, 1), Hex(0x000000));
  const Bytes rgba = canvas.Rgba();
  EXPECT_EQ(rgba[3], 128);
  EXPECT_EQ(rgba[7], 255);
  EXPECT_EQ(rgba[11], 191);
  EXPECT_EQ(rgba[15], 0);
}

TEST(PictureCanvas, OverlappingStrokesStaySolidAndARingKeepsItsHole)
{
  Canvas canvas(9, 9);
  Path cross = Path::Line(0, 4.5, 9, 4.5).Add(Path::Line(4.5, 0, 4.5, 9));
  canvas.Fill(cross.Stroked(3), Hex(0xFF0000));
  EXPECT_EQ(canvas.Rgba()[(4 * 9 + 4) * 4 + 3], 255);

  Canvas ring(9, 9);
  ring.Fill(Path::Ring(4.5, 4.5, 4, 2), Hex(0xFF0000));
  EXPECT_EQ(ring.Rgba()[(4 * 9 + 4) * 4 + 3], 0);
  EXPECT_EQ(ring.Rgba()[(4 * 9 + 1) * 4 + 3], 255);
}

TEST(PictureCanvas, AClipLimitsWhatIsDrawn)
{
  Canvas canvas(2, 1);
  canvas.Clip(Path::Rect(0, 0, 1, 1));
  canvas.Fill(Path::Rect(0, 0, 2, 1), Hex(0x000000));
  canvas.Unclip();
  EXPECT_EQ(canvas.Rgba(), (Bytes{0, 0, 0, 255, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace velquist::pictures
