// SPDX-License-Identifier: MIT
#include "setup/Layouts.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "MemoryFiles.h"
#include "SetupSamples.h"
#include "platform/Errors.h"

namespace velquist::setup {
namespace {

using namespace velquist::samples;
using velquist::testing::MemoryFiles;

Bytes Converted(Bytes bytes, Layout wanted)
{
  ConvertLayout(bytes, wanted);
  return bytes;
}

Bytes RandomSetup(std::mt19937& random, std::size_t size)
{
  Bytes bytes(size);
  for (auto& byte : bytes) byte = static_cast<std::byte>(random() & 0xFFU);
  return bytes;
}

/// A short file as the game or this program writes it: header and blank filler.
Bytes CleanShortSetup()
{
  Bytes bytes = SampleSetup(kShortLayoutSize);
  bytes[4] = std::byte{3};
  bytes[8] = std::byte{249};
  bytes[9] = std::byte{0};
  for (std::size_t i = 261; i < 264; ++i) bytes[i] = std::byte{0x20};
  return bytes;
}

// --- Reading -----------------------------------------------------------------------------------

TEST(ReadSetupFile, TakesAFileOfAnyLengthWhole)
{
  MemoryFiles files;
  for (std::size_t length = 1; length <= 300; ++length) {
    SCOPED_TRACE(length);
    const std::string content(length, static_cast<char>(length));
    files.Put("x.bb1", content);
    Bytes buffer = BytesOf("before");
    EXPECT_EQ(ReadSetupFile(files, "x.bb1", buffer), length);
    EXPECT_EQ(buffer, BytesOf(content));
  }
}

TEST(ReadSetupFile, OfAnEmptyFileLeavesTheBuffer)
{
  MemoryFiles files;
  files.Put("empty.bb1", "");
  Bytes buffer = BytesOf("before");
  EXPECT_EQ(ReadSetupFile(files, "empty.bb1", buffer), 0U);
  EXPECT_EQ(buffer, BytesOf("before"));
}

TEST(ReadSetupFile, ThatFailsLeavesTheBuffer)
{
  MemoryFiles files;
  files.MakeUnreadable("locked.bb1");
  for (const auto* path : {"missing.bb1", "locked.bb1"}) {
    Bytes buffer = BytesOf("before");
    EXPECT_THROW(ReadSetupFile(files, path, buffer), FileError) << path;
    EXPECT_EQ(buffer, BytesOf("before"));
  }
}

TEST(WriteSetupFile, LeavesTheTailOfALongerFile)
{
  MemoryFiles files;
  files.Put("x.bb1", std::string(272, 'x'));
  const Bytes buffer = SampleSetup(kShortLayoutSize);
  WriteSetupFile(files, "x.bb1", buffer);
  Bytes expected = buffer;
  expected.resize(272, std::byte{'x'});
  EXPECT_EQ(files.ReadWhole("x.bb1"), expected);
}

// --- Telling a setup file ----------------------------------------------------------------------

TEST(HasMagic, IsTrueForTheFourLettersAloneAndWhateverFollows)
{
  EXPECT_TRUE(HasMagic(BytesOf("PGTS")));
  EXPECT_TRUE(HasMagic(BytesOf("PGTSx")));
  EXPECT_TRUE(HasMagic(SampleSetup(1000)));
}

TEST(HasMagic, IsFalseForFewerThanFourBytes)
{
  for (const auto* text : {"", "P", "PG", "PGT"}) EXPECT_FALSE(HasMagic(BytesOf(text))) << text;
}

TEST(HasMagic, IsFalseWhenAnyBitOfTheFourLettersDiffers)
{
  for (std::size_t bit = 0; bit < 32; ++bit) {
    Bytes bytes = SampleSetup(kShortLayoutSize);
    bytes[bit / 8] ^= static_cast<std::byte>(1U << bit % 8);
    EXPECT_FALSE(HasMagic(bytes)) << bit;
  }
  EXPECT_FALSE(HasMagic(BytesOf("pgts")));
  EXPECT_FALSE(HasMagic(BytesOf("STGP")));
}

TEST(IsSetupFile, JudgesTheFileAndLeavesItInTheBuffer)
{
  MemoryFiles files;
  files.Put("good.bb1", "PGTS and more");
  files.Put("bad.bb1", "PGTX and more");
  files.Put("cut.bb1", "PGT");
  Bytes buffer;
  EXPECT_TRUE(IsSetupFile(files, "good.bb1", buffer));
  EXPECT_EQ(buffer, BytesOf("PGTS and more"));
  EXPECT_FALSE(IsSetupFile(files, "bad.bb1", buffer));
  EXPECT_EQ(buffer, BytesOf("PGTX and more"));
  EXPECT_FALSE(IsSetupFile(files, "cut.bb1", buffer));
  EXPECT_EQ(buffer, BytesOf("PGT"));
}

TEST(IsSetupFile, OfAnEmptyFileJudgesTheBufferBefore)
{
  MemoryFiles files;
  files.Put("empty.bb1", "");
  Bytes good = BytesOf("PGTS1");
  EXPECT_TRUE(IsSetupFile(files, "empty.bb1", good));
  EXPECT_EQ(good, BytesOf("PGTS1"));
  Bytes none;
  EXPECT_FALSE(IsSetupFile(files, "empty.bb1", none));
  EXPECT_TRUE(none.empty());
}

TEST(IsSetupFile, ThrowsForAMissingFile)
{
  const MemoryFiles files;
  Bytes buffer = BytesOf("PGTS");
  EXPECT_THROW((void)IsSetupFile(files, "missing.bb1", buffer), FileError);
}

// --- Converting --------------------------------------------------------------------------------

TEST(LayoutConversion, ShortFileGrowsWithBlankFillerAndNoWings)
{
  const Bytes before = SampleSetup(kShortLayoutSize);
  const Bytes after = Converted(before, Layout::kLong);

  Bytes expected = before;
  expected.resize(261);
  expected[4] = std::byte{4};
  expected[8] = std::byte{1};
  expected[9] = std::byte{1};
  const Bytes tail = BytesOf(std::string_view("\0\0\x80\xBF\0\0\x80\xBF   ", 11));
  expected.insert(expected.end(), tail.begin(), tail.end());
  EXPECT_EQ(after.size(), 272U);
  EXPECT_EQ(after, expected);
}

TEST(LayoutConversion, LongFileIsCutAndEndsInThreeBlanks)
{
  const Bytes before = SampleSetup(kLongLayoutSize);
  const Bytes after = Converted(before, Layout::kShort);

  Bytes expected = before;
  expected.resize(261);
  expected[4] = std::byte{3};
  expected[8] = std::byte{249};
  expected[9] = std::byte{0};
  expected.resize(264, std::byte{0x20});
  EXPECT_EQ(after.size(), 264U);
  EXPECT_EQ(after, expected);
}

TEST(LayoutConversion, AFileOfTheWantedLayoutStaysAsItIs)
{
  const Bytes short_setup = SampleSetup(kShortLayoutSize);
  const Bytes long_setup = SampleSetup(kLongLayoutSize);
  EXPECT_EQ(Converted(short_setup, Layout::kShort), short_setup);
  EXPECT_EQ(Converted(long_setup, Layout::kLong), long_setup);
}

TEST(LayoutConversion, AFileOfAnyOtherSizeStaysAsItIs)
{
  for (std::size_t size = 0; size <= 300; ++size) {
    if (size == kShortLayoutSize || size == kLongLayoutSize) continue;
    SCOPED_TRACE(size);
    const Bytes bytes = SampleSetup(size);
    EXPECT_EQ(Converted(bytes, Layout::kShort), bytes);
    EXPECT_EQ(Converted(bytes, Layout::kLong), bytes);
  }
}

TEST(LayoutConversion, ToLongAndBackGivesBackACleanShortFile)
{
  const Bytes clean = CleanShortSetup();
  EXPECT_EQ(Converted(Converted(clean, Layout::kLong), Layout::kShort), clean);
}

TEST(LayoutConversion, ToLongAndBackCleansExactlyHeaderAndFiller)
{
  for (const std::size_t at : {4U, 8U, 9U, 261U, 262U, 263U}) {
    SCOPED_TRACE(at);
    Bytes unclean = CleanShortSetup();
    unclean[at] ^= std::byte{0x55};
    const Bytes back = Converted(Converted(unclean, Layout::kLong), Layout::kShort);
    EXPECT_NE(back, unclean);
    EXPECT_EQ(back, CleanShortSetup());
  }
}

TEST(LayoutConversion, EveryOtherByteSurvivesInTenThousandRandomFiles)
{
  std::mt19937 random(1202);
  for (int i = 0; i < 10'000; ++i) {
    const bool grows = i % 2 == 0;
    const Bytes before = RandomSetup(random, grows ? kShortLayoutSize : kLongLayoutSize);
    const Bytes after = Converted(before, grows ? Layout::kLong : Layout::kShort);
    ASSERT_EQ(after.size(), grows ? kLongLayoutSize : kShortLayoutSize);
    for (std::size_t at = 0; at <= 260; ++at) {
      if (at != 4 && at != 8 && at != 9) {
        ASSERT_EQ(after[at], before[at]) << i << ' ' << at;
      }
    }
  }
}

}  // namespace
}  // namespace velquist::setup
