// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

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

Bytes ReadFile(const std::filesystem::path& path)
{
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << path;
  const std::string text(std::istreambuf_iterator<char>(in), {});
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

/// A picture of the example installation, 320 x 240 or the like.
Bytes WholePicture()
{
  return ReadFile(velquist::testing::SourceDirectory() /
                  "examples/GPL/cars/cars67/lotus/GEMPic.jpg");
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
    const auto& shown = pictures_.Picture(Path());
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
  const auto& shown = pictures_.Picture(Path());
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
  const auto& shown = pictures_.Picture("");
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

TEST_F(PicturesOfCars, PicturesOfMoreThanFiftyMillionPixelsAreNotDecoded)
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
