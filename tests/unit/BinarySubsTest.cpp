// SPDX-License-Identifier: MIT
#include "setup/BinarySubs.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>

#include "SetupSamples.h"
#include "platform/Errors.h"

namespace velquist::setup {
namespace {

using namespace velquist::samples;

// Not a number, quiet and signalling, of both signs and with payloads.
constexpr std::uint32_t kNotNumbers[] = {0x7FC00000, 0xFFC00000, 0x7F800001, 0xFF800001,
                                         0x7FA5A5A5, 0xFFBFFFFF, 0x7FFFFFFF};

TEST(BinarySubs, SizesOfBothLayouts)
{
  EXPECT_EQ(kShortLayoutSize, 264U);
  EXPECT_EQ(kLongLayoutSize, 272U);
}

TEST(BinarySubs, WholeNumbersStandLowestByteFirst)
{
  const Bytes bytes = BytesOf(std::string_view("\xAA\x78\x56\x34\x12\xFE\xFF\xFF\xFF", 9));
  EXPECT_EQ(ReadLongAt(bytes, 1), 0x12345678);
  EXPECT_EQ(ReadLongAt(bytes, 5), -2);

  Bytes written(6);
  WriteLongAt(written, 0x12345678, 1);
  EXPECT_EQ(written, BytesOf(std::string_view("\0\x78\x56\x34\x12\0", 6)));
  WriteLongAt(written, std::numeric_limits<std::int32_t>::min(), 2);
  EXPECT_EQ(written, BytesOf(std::string_view("\0\x78\0\0\0\x80", 6)));
}

TEST(BinarySubs, SinglesStandLowestByteFirst)
{
  const Bytes bytes = BytesOf(std::string_view("\0\0\x80\xBF", 4));
  EXPECT_EQ(ReadSingleAt(bytes, 0), -1.0F);

  Bytes written(4);
  WriteSingleAt(written, 3.444F, 0);
  EXPECT_EQ(written, BytesOf(std::string_view("\x7F\x6A\x5C\x40", 4)));
}

TEST(BinarySubs, FieldsMayBeUnaligned)
{
  for (std::size_t offset = 0; offset < 8; ++offset) {
    SCOPED_TRACE(offset);
    Bytes bytes(12, std::byte{0xEE});
    WriteSingleAt(bytes, 12.5F, offset);
    EXPECT_EQ(ReadSingleAt(bytes, offset), 12.5F);
    WriteLongAt(bytes, -77, offset);
    EXPECT_EQ(ReadLongAt(bytes, offset), -77);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      if (i < offset || i >= offset + 4) {
        EXPECT_EQ(bytes[i], std::byte{0xEE}) << i;
      }
    }
  }
}

TEST(BinarySubs, EveryBitOfASingleThatIsNoNumberIsKept)
{
  for (const auto bits : kNotNumbers) {
    SCOPED_TRACE(bits);
    Bytes bytes(4);
    Put(bytes, 0, bits);
    const float value = ReadSingleAt(bytes, 0);
    EXPECT_EQ(BitsOf(value), bits);
    Bytes written(4);
    WriteSingleAt(written, value, 0);
    EXPECT_EQ(written, bytes);
  }
}

TEST(BinarySubs, InfinitiesZerosAndTheSmallestSinglesAreKept)
{
  for (const std::uint32_t bits :
       {0x7F800000U, 0xFF800000U, 0x00000000U, 0x80000000U, 0x00000001U, 0x807FFFFFU}) {
    SCOPED_TRACE(bits);
    Bytes bytes(4);
    Put(bytes, 0, bits);
    Bytes written(4);
    WriteSingleAt(written, ReadSingleAt(bytes, 0), 0);
    EXPECT_EQ(written, bytes);
  }
}

TEST(BinarySubs, EveryFieldCutOffByTheEndOfTheBufferThrows)
{
  for (std::size_t length = 0; length <= kLongLayoutSize; ++length) {
    Bytes bytes(length);
    for (std::size_t offset = 0; offset < length + 3; ++offset) {
      const bool inside = offset + 3 < length;
      if (inside) {
        EXPECT_NO_THROW((void)ReadLongAt(bytes, offset)) << length << ' ' << offset;
        EXPECT_NO_THROW(WriteSingleAt(bytes, 1.0F, offset)) << length << ' ' << offset;
        continue;
      }
      const Bytes before = bytes;
      EXPECT_THROW((void)ReadSingleAt(bytes, offset), BoundsError) << length << ' ' << offset;
      EXPECT_THROW((void)ReadLongAt(bytes, offset), BoundsError) << length << ' ' << offset;
      EXPECT_THROW(WriteSingleAt(bytes, 1.0F, offset), BoundsError) << length << ' ' << offset;
      EXPECT_THROW(WriteLongAt(bytes, 1, offset), BoundsError) << length << ' ' << offset;
      EXPECT_EQ(bytes, before);
    }
  }
}

TEST(BinarySubs, AnOffsetThatWrapsAroundThrows)
{
  Bytes bytes(kLongLayoutSize);
  for (std::size_t back = 0; back < 5; ++back) {
    const auto offset = std::numeric_limits<std::size_t>::max() - back;
    EXPECT_THROW((void)ReadLongAt(bytes, offset), BoundsError);
    EXPECT_THROW(WriteLongAt(bytes, 1, offset), BoundsError);
  }
}

}  // namespace
}  // namespace velquist::setup
