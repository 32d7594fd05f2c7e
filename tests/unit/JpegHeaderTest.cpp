// SPDX-License-Identifier: MIT
#include "platform/JpegHeader.h"

#include <cstddef>
#include <initializer_list>
#include <vector>

#include <gtest/gtest.h>

namespace velquist::platform {
namespace {

using Bytes = std::vector<std::byte>;

Bytes Of(std::initializer_list<unsigned> values)
{
  Bytes bytes;
  for (const unsigned value : values) bytes.push_back(std::byte(value));
  return bytes;
}

/// Start of image, `between`, and a frame header of 640 x 480 of the kind `frame`.
Bytes Jpeg(std::initializer_list<unsigned> between, unsigned frame = 0xC0)
{
  auto bytes = Of({0xFF, 0xD8});
  for (const unsigned value : between) bytes.push_back(std::byte(value));
  for (const unsigned value : {0xFFU, frame, 0U, 11U, 8U, 1U, 0xE0U, 2U, 0x80U, 1U, 1U, 17U, 0U})
    bytes.push_back(std::byte(value));
  return bytes;
}

void ExpectSize(const Bytes& bytes, int width, int height)
{
  const auto size = JpegSize(bytes);
  EXPECT_EQ(size.width, width);
  EXPECT_EQ(size.height, height);
}

TEST(JpegHeader, TellsWidthAndHeight)
{
  ExpectSize(Jpeg({}), 640, 480);
}

TEST(JpegHeader, IsFoundBehindOtherSegmentsFillBytesAndLoneMarkers)
{
  ExpectSize(Jpeg({0xFF, 0xE0, 0, 4, 'J', 'F'}), 640, 480);
  ExpectSize(Jpeg({0xFF, 0xFF, 0xFF, 0xFE, 0, 2}), 640, 480);
  ExpectSize(Jpeg({0xFF, 0x01, 0xFF, 0xD0, 0xFF, 0xD7}), 640, 480);
  // What looks like a frame header within another segment is none.
  ExpectSize(Jpeg({0xFF, 0xE1, 0, 12, 0xFF, 0xC0, 0, 11, 8, 0, 1, 0, 1, 1}), 640, 480);
}

TEST(JpegHeader, IsAnyOfTheFrameKinds)
{
  for (unsigned kind = 0xC0; kind <= 0xCF; ++kind) {
    SCOPED_TRACE(kind);
    const bool is_frame = kind != 0xC4 && kind != 0xC8 && kind != 0xCC;
    ExpectSize(Jpeg({}, kind), is_frame ? 640 : 0, is_frame ? 480 : 0);
  }
}

TEST(JpegHeader, EveryCutInFrontOfItsEndGivesNoSize)
{
  const auto whole = Jpeg({0xFF, 0xE0, 0, 4, 'J', 'F'});
  const std::size_t end_of_width = 2 + 6 + 9;
  for (std::size_t length = 0; length < end_of_width; ++length) {
    SCOPED_TRACE(length);
    ExpectSize({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)}, 0, 0);
  }
}

TEST(JpegHeader, IsNotLookedForInWhatIsNoJpeg)
{
  ExpectSize(Of({0x89, 'P', 'N', 'G', 13, 10, 26, 10}), 0, 0);
  ExpectSize(Of({0xFF, 0xD8, 0x00, 0xC0, 0, 11, 8, 1, 1, 1, 1, 1}), 0, 0);
  ExpectSize(Jpeg({0xFF, 0xE0, 0, 1}), 0, 0);  // length too small
  ExpectSize(Jpeg({0xFF, 0xDA, 0, 2}), 0, 0);  // scan in front of it
  ExpectSize(Jpeg({0xFF, 0xD9}), 0, 0);        // end in front of it
}

Bytes Sized(unsigned width, unsigned height)
{
  auto bytes = Jpeg({});
  bytes[7] = std::byte(height >> 8U);
  bytes[8] = std::byte(height & 0xFFU);
  bytes[9] = std::byte(width >> 8U);
  bytes[10] = std::byte(width & 0xFFU);
  return bytes;
}

TEST(JpegHeader, SixteenMillionPixelsAreTheMostThatAreShown)
{
  EXPECT_EQ(ShowableJpegSize(Sized(16'000, 1'000)).width, 16'000);
  EXPECT_EQ(ShowableJpegSize(Sized(16'000, 1'001)).width, 0);
  EXPECT_EQ(ShowableJpegSize(Sized(65'535, 65'535)).width, 0);
  EXPECT_EQ(ShowableJpegSize(Sized(0, 10)).height, 0);
  EXPECT_EQ(ShowableJpegSize(Sized(10, 0)).width, 0);
}

void AddScan(Bytes& bytes)
{
  for (const unsigned value : {0xFFU, 0xDAU, 0U, 2U, 7U, 0xFFU, 0U, 9U})
    bytes.push_back(std::byte(value));
}

TEST(JpegHeader, ScansAreCountedUpToTheEndOfThePicture)
{
  auto bytes = Jpeg({0xFF, 0xE1, 0, 6, 0xFF, 0xDA, 0xFF, 0xDA});
  EXPECT_EQ(ScanCount(bytes), 0);
  AddScan(bytes);
  EXPECT_EQ(ScanCount(bytes), 1);
  for (const unsigned value : {0xFFU, 0xC4U, 0U, 3U, 1U}) bytes.push_back(std::byte(value));
  AddScan(bytes);
  EXPECT_EQ(ScanCount(bytes), 2);
  bytes.push_back(std::byte{0xFF});
  bytes.push_back(std::byte{0xD9});
  AddScan(bytes);
  EXPECT_EQ(ScanCount(bytes), 2);
}

TEST(JpegHeader, APictureOfManyPixelsInManyScansIsNotShown)
{
  auto large = Sized(10'000, 1'000);
  auto small = Sized(1'000, 100);
  for (int scan = 0; scan < 10; ++scan) {
    EXPECT_EQ(ShowableJpegSize(large).width, 10'000) << scan;
    AddScan(large);
    AddScan(small);
  }
  EXPECT_EQ(ShowableJpegSize(large).width, 10'000);
  AddScan(large);
  EXPECT_EQ(ShowableJpegSize(large).width, 0);
  EXPECT_EQ(ShowableJpegSize(small).width, 1'000);
}

TEST(JpegHeader, ALongFileIsNotShown)
{
  auto bytes = Sized(1'000, 1'000);
  bytes.resize(32'000'000);
  EXPECT_EQ(ShowableJpegSize(bytes).width, 1'000);
  bytes.push_back(std::byte{});
  EXPECT_EQ(ShowableJpegSize(bytes).width, 0);
}

TEST(JpegHeader, APictureWithoutItsEndIsCutShort)
{
  auto bytes = Jpeg({});
  EXPECT_TRUE(IsCutShort(bytes));
  for (const unsigned value : {0xFFU, 0xDAU, 0U, 2U, 7U, 0xFFU, 0U, 9U})
    bytes.push_back(std::byte(value));
  EXPECT_TRUE(IsCutShort(bytes));
  bytes.push_back(std::byte{0xFF});
  EXPECT_TRUE(IsCutShort(bytes));
  bytes.push_back(std::byte{0xD9});
  EXPECT_FALSE(IsCutShort(bytes));
  bytes.push_back(std::byte{0});  // rubbish behind it does no harm
  EXPECT_FALSE(IsCutShort(bytes));
}

TEST(JpegHeader, TheEndOfASmallPictureInAnotherSegmentIsNoEnd)
{
  auto bytes = Jpeg({0xFF, 0xE1, 0, 6, 0xFF, 0xDA, 0xFF, 0xD9});
  for (const unsigned value : {0xFFU, 0xDAU, 0U, 2U, 7U}) bytes.push_back(std::byte(value));
  EXPECT_TRUE(IsCutShort(bytes));
}

}  // namespace
}  // namespace velquist::platform
