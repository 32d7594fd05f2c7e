// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <random>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <wx/imagjpeg.h>
#include <wx/mstream.h>

#include "OwnTime.h"
#include "ScriptedEditor.h"
#include "platform/EmbeddedResources.h"
#include "platform/HostFileSystem.h"
#include "platform_wx/WxPictureLoader.h"
#include "runner/SourceDirectory.h"

namespace velquist::platform {
namespace {

using Bytes = std::vector<std::byte>;

constexpr int kBuiltInWidth = 1024;
constexpr int kBuiltInHeight = 753;

const wxSize kLargeBox(1024, 768);

Bytes ReadFile(const std::filesystem::path& path)
{
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << path;
  std::ostringstream content;
  content << in.rdbuf();
  const auto bytes = std::as_bytes(std::span(content.view()));
  return {bytes.begin(), bytes.end()};
}

/// A picture of the example installation, 320 x 240 or the like.
Bytes WholePicture()
{
  return ReadFile(velquist::testing::SourceDirectory() /
                  "examples/GPL/cars/cars67/lotus/GEMPic.jpg");
}

void Append(Bytes& bytes, std::initializer_list<unsigned> values)
{
  for (const unsigned value : values) bytes.push_back(std::byte(value));
}

/// A grey picture of that many pixels in each direction, a multiple of 8, that grows sharper in
/// `scans` passes over it, each of a few bytes but the first.
Bytes GreyInScans(unsigned side, int scans)
{
  const unsigned high = side >> 8U;
  const unsigned low = side & 0xFFU;
  Bytes bytes;
  Append(bytes, {0xFF, 0xD8, 0xFF, 0xDB, 0, 67, 0});  // quantisation: all ones
  bytes.insert(bytes.end(), 64, std::byte{1});
  Append(bytes, {0xFF, 0xC2, 0, 11, 8, high, low, high, low, 1, 1, 0x11, 0});
  const auto table = [&](unsigned of, unsigned value) {  // one code of one bit
    Append(bytes, {0xFF, 0xC4, 0, 20, of, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, value});
  };
  table(0x00, 0);     // no difference to the block before
  table(0x10, 0xE0);  // 16384 blocks and as many more as the next 14 bits say end here
  Append(bytes, {0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 0, 0});
  const std::size_t blocks = std::size_t{side} / 8 * (side / 8);
  bytes.insert(bytes.end(), (blocks + 7) / 8, std::byte{0});
  for (int scan = 1; scan < scans; ++scan) {
    Append(bytes, {0xFF, 0xDA, 0, 8, 1, 1, 0, 1, 63, 0});
    bytes.insert(bytes.end(), (blocks / 16384 + 1) * 2, std::byte{0});
  }
  Append(bytes, {0xFF, 0xD9});
  return bytes;
}

/// As many bytes as a picture of that many pixels in each direction can have.
Bytes Noise(int side)
{
  wxImage image(side, side, false);
  std::mt19937 random(1);
  const auto size = static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 3;
  std::generate_n(image.GetData(), size, [&] { return static_cast<unsigned char>(random()); });
  image.SetOption(wxIMAGE_OPTION_QUALITY, 90);
  wxMemoryOutputStream out;
  wxJPEGHandler handler;
  EXPECT_TRUE(handler.SaveFile(&image, out, false));
  Bytes bytes(out.GetSize());
  out.CopyTo(bytes.data(), bytes.size());
  return bytes;
}

/// Says in its header that it is of that size, and holds nothing else.
Bytes HeaderOf(unsigned width, unsigned height)
{
  const auto low = [](unsigned value) { return std::byte(value & 0xFFU); };
  const auto high = [](unsigned value) { return std::byte(value >> 8U); };
  const Bytes header{std::byte{0xFF}, std::byte{0xD8}, std::byte{0xFF}, std::byte{0xC0},
                     std::byte{0},    std::byte{17},   std::byte{8},    high(height),
                     low(height),     high(width),     low(width)};
  Bytes bytes(200, std::byte{3});
  std::copy(header.begin(), header.end(), bytes.begin());
  return bytes;
}

class PicturesOfCars : public ::testing::Test {
 protected:
  void Put(const Bytes& bytes) { editor_.World().Write("GEMPic.jpg", bytes); }
  [[nodiscard]] std::string Path() { return editor_.Path("$T/GEMPic.jpg").string(); }

  void ExpectBuiltIn()
  {
    const auto shown = pictures_.Picture(Path(), kLargeBox);
    ASSERT_TRUE(shown.IsOk());
    EXPECT_EQ(shown.GetWidth(), kBuiltInWidth);
    EXPECT_EQ(shown.GetHeight(), kBuiltInHeight);
  }
  void ExpectRefused(const Bytes& bytes)
  {
    Put(bytes);
    const auto size = pictures_.Load(Path());
    EXPECT_EQ(size.width, 0);
    EXPECT_EQ(size.height, 0);
    ExpectBuiltIn();
  }

  testing::ScriptedEditor editor_;
  HostFileSystem files_;
  EmbeddedResources resources_;
  WxPictureLoader pictures_{files_, resources_};
};

TEST_F(PicturesOfCars, WholePicturesAreDecoded)
{
  Put(WholePicture());
  const auto size = pictures_.Load(Path());
  EXPECT_GT(size.width, 0);
  const auto shown = pictures_.Picture(Path(), kLargeBox);
  EXPECT_EQ(shown.GetWidth(), size.width);
  EXPECT_EQ(shown.GetHeight(), size.height);
  EXPECT_NE(shown.GetWidth(), kBuiltInWidth);
}

TEST_F(PicturesOfCars, ThoseOfTheExampleInstallationAreDecodedAndOfEveryShape)
{
  int wide = 0;
  int square = 0;
  int tall = 0;
  const auto cars = velquist::testing::SourceDirectory() / "examples/GPL/cars";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(cars)) {
    if (!entry.is_regular_file()) continue;
    SCOPED_TRACE(entry.path().string());
    EXPECT_EQ(entry.path().filename(), "GEMPic.jpg");
    const auto size = pictures_.Load(entry.path().string());
    EXPECT_GT(size.width, 0);
    ++(size.width > size.height ? wide : size.width == size.height ? square : tall);
  }
  EXPECT_EQ(wide, 5);
  EXPECT_EQ(square, 1);
  EXPECT_EQ(tall, 1);
}

TEST_F(PicturesOfCars, WithoutAPathTheBuiltInOneIsShown)
{
  const auto shown = pictures_.Picture("", kLargeBox);
  EXPECT_EQ(shown.GetWidth(), kBuiltInWidth);
  EXPECT_EQ(shown.GetHeight(), kBuiltInHeight);
}

TEST_F(PicturesOfCars, MissingFilesAndDirectoriesGiveWayToTheBuiltInOne)
{
  EXPECT_EQ(pictures_.Load(Path()).width, 0);
  ExpectBuiltIn();
  std::filesystem::create_directory(Path());
  EXPECT_EQ(pictures_.Load(Path()).width, 0);
  ExpectBuiltIn();
}

TEST_F(PicturesOfCars, WhatIsNoJpegGivesWayToTheBuiltInOne)
{
  ExpectRefused({});
  ExpectRefused(Bytes(5000, std::byte{'x'}));
  ExpectRefused(ReadFile(velquist::testing::SourceDirectory() / "assets/icon/velquist-16.png"));
}

TEST_F(PicturesOfCars, BrokenPicturesGiveWayToTheBuiltInOne)
{
  ExpectRefused(HeaderOf(320, 240));
  const auto whole = WholePicture();
  for (const std::size_t part : {2U, 4U, 50U, 99U}) {
    SCOPED_TRACE(part);
    ExpectRefused(
        {whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(whole.size() * part / 100)});
  }
}

TEST_F(PicturesOfCars, PicturesThatGrowSharperAreDecoded)
{
  Put(GreyInScans(800, 10));
  EXPECT_EQ(pictures_.Load(Path()).width, 800);
}

TEST_F(PicturesOfCars, PicturesThatTakeSecondsToDecodeGiveWayToTheBuiltInOne)
{
  ExpectRefused(GreyInScans(3200, 3000));
  ExpectRefused(GreyInScans(6400, 1));
}

TEST_F(PicturesOfCars, NoPictureIsDecodedForLong)
{
  // The most that the header may promise, in few bytes and in many.
  for (const auto& slow :
       {GreyInScans(4000, 6), GreyInScans(1600, 39), GreyInScans(160, 3900), Noise(4000)}) {
    SCOPED_TRACE(slow.size());
    Put(slow);
    const auto begin = std::clock();
    (void)pictures_.Load(Path());
    EXPECT_LT(std::clock() - begin, samples::kSecondOfOwnTime / 2);
    EXPECT_TRUE(pictures_.Picture(Path(), kLargeBox).IsOk());
  }
}

TEST_F(PicturesOfCars, AreDecodedNoLargerThanTheyAreShown)
{
  Put(GreyInScans(1600, 1));
  EXPECT_EQ(pictures_.Picture(Path(), {300, 200}).GetWidth(), 200);
  EXPECT_EQ(pictures_.Picture(Path(), {1600, 200}).GetWidth(), 200);
  EXPECT_EQ(pictures_.Picture(Path(), {500, 500}).GetWidth(), 800);
  EXPECT_EQ(pictures_.Picture(Path(), {1000, 900}).GetWidth(), 1600);
  EXPECT_EQ(pictures_.Load(Path()).width, 1600) << "the size in the file";
}

TEST_F(PicturesOfCars, AreDecodedOnceWhileTheyAreTheSame)
{
  Put(WholePicture());
  const auto first = pictures_.Picture(Path(), kLargeBox);
  (void)pictures_.Picture("", kLargeBox);
  EXPECT_TRUE(pictures_.Picture(Path(), kLargeBox).IsSameAs(first));
  Put(GreyInScans(800, 1));
  EXPECT_EQ(pictures_.Picture(Path(), kLargeBox).GetWidth(), 800);
  Put(WholePicture());
  EXPECT_TRUE(pictures_.Picture(Path(), kLargeBox).IsSameAs(first));
}

TEST_F(PicturesOfCars, ThoseOfAllCarsOfAYearAreKept)
{
  constexpr unsigned kCars = 16;
  const auto show = [&](unsigned car) {
    Put(GreyInScans(80 + 8 * car, 1));
    return pictures_.Picture(Path(), kLargeBox);
  };
  std::vector<wxImage> first;
  for (unsigned car = 0; car < kCars; ++car) first.push_back(show(car));
  (void)pictures_.Picture("", kLargeBox);
  for (unsigned car = 0; car < kCars; ++car) EXPECT_TRUE(show(car).IsSameAs(first[car])) << car;
}

TEST_F(PicturesOfCars, PicturesOfMoreThanSixteenMillionPixelsAreNotDecoded)
{
  ExpectRefused(HeaderOf(60'000, 60'000));
  auto whole = WholePicture();
  for (std::size_t at = 0; at + 9 < whole.size(); ++at)
    if (whole[at] == std::byte{0xFF} && whole[at + 1] == std::byte{0xC0}) {
      for (std::size_t of_size = 5; of_size < 9; ++of_size) whole[at + of_size] = std::byte{0xFF};
      break;
    }
  ExpectRefused(whole);
}

TEST_F(PicturesOfCars, AreDecodedNoSmallerThanTheirBoxAndNotTwiceAsLarge)
{
  constexpr int kSide = 1024;
  Put(Noise(kSide));
  for (const int box : {1500, 1024, 1023, 600, 512, 511, 300, 200, 130}) {
    SCOPED_TRACE(box);
    const auto shown = pictures_.Picture(Path(), wxSize(box, box));
    EXPECT_GE(shown.GetWidth(), std::min(box, kSide));
    EXPECT_LT(shown.GetWidth(), 2 * box);
  }
}

TEST_F(PicturesOfCars, APictureThatVanishesBeforeItIsShownGivesWayToTheBuiltInOne)
{
  Put(WholePicture());
  std::filesystem::remove(Path());
  ExpectBuiltIn();
}

TEST_F(PicturesOfCars, TheBuiltInOneIsWrittenWholeToMyPictureTmp)
{
  editor_.StartWithGame();
  EXPECT_TRUE(editor_.Window().Form().car_picture.ends_with("\\MyPicture.tmp"));
  EXPECT_TRUE(std::filesystem::exists(editor_.Path("$P/MyPicture.tmp")));
}

TEST_F(PicturesOfCars, ThePictureOfTheChosenChassisIsShownFromItsOwnFile)
{
  editor_.World().Write("GPL/cars/cars67/lotus/GEMPic.jpg", WholePicture());
  editor_.StartWithGame();
  editor_.Play("select Combo3 #5\n");
  EXPECT_TRUE(editor_.Window().Form().car_picture.ends_with("\\cars\\cars67\\lotus\\GEMPic.jpg"));
}

}  // namespace
}  // namespace velquist::platform
