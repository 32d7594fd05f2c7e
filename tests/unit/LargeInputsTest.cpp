// SPDX-License-Identifier: MIT
// Ten megabytes of anything are read, or refused, within a second by every reader.
#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "MemoryFiles.h"
#include "OwnTime.h"
#include "SetupSamples.h"
#include "cli/Options.h"
#include "data/GearData.h"
#include "data/SetupData.h"
#include "install/Installations.h"
#include "install/ProgramSettings.h"
#include "library/Row.h"
#include "platform/CommandLine.h"
#include "platform/JpegHeader.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "platform/TextEncoding.h"
#include "runner/Script.h"
#include "setup/Identification.h"

namespace velquist {
namespace {

constexpr std::size_t kSize = samples::kIsWatched ? 1'000'000 : 10'000'000;

/// That text again and again behind a beginning.
std::string Repeated(std::string_view part, std::string_view start)
{
  std::string text(part);
  while (text.size() < kSize) text += text;
  return std::string(start).append(text, 0, kSize - start.size());
}

class LargeInput : public ::testing::TestWithParam<std::string> {
 protected:
  /// Of each beginning, since some readers refuse all others at once.
  void ReadsInASecond(const std::function<void(const std::string& text)>& read,
                      const std::vector<std::string_view>& starts = {""})
  {
    for (const auto start : starts) {
      const auto text = Repeated(GetParam(), start);
      const auto begun = std::clock();
      read(text);
      EXPECT_LT(std::clock() - begun, samples::kSecondOfOwnTime) << "behind \"" << start << "\"";
    }
  }
};

using namespace std::string_literals;
INSTANTIATE_TEST_SUITE_P(Of, LargeInput,
                         ::testing::Values("x"s, "\n"s, "\""s, ","s, "\\"s, " "s, "\0"s, "\xFF"s,
                                           "\xC3\x84"s, "1e9,"s, "\"a\"\r\n"s, "\\\n"s, "#"s,
                                           "$T "s, "/Players"s, "\xFF\xDA\x00\x02\xFF"s,
                                           "\xFF\xD0"s),
                         [](const auto& test) { return std::to_string(test.index); });

TEST_P(LargeInput, OfDataFilesIsReadInASecond)
{
  ReadsInASecond([](const std::string& text) {
    testing::MemoryFiles files;
    files.Put("\\GT Setup Data.ini", text);
    files.Put("\\65 Gear Data.ini", text);
    data::SetupData data;
    EXPECT_TRUE(data::ReadSetupData(files, "", data::ModYear::kGT, data));
    EXPECT_LE(data.SetupDataText.size(), 32'767U);
    auto gears = samples::SampleGears();
    EXPECT_TRUE(data::ReadGearData(files, "", data::ModYear::kGT, gears));
  });
}

TEST_P(LargeInput, OfSettingsIsReadInASecond)
{
  ReadsInASecond(
      [](const std::string& text) {
        try {
          const auto settings = install::ParseProgramSettings(text);
          (void)install::MergeInstallations(settings.installations, settings.installations,
                                            settings.installations);
        } catch (const install::SettingsError&) {
        }
      },
      {"", "\"a\"\n0\n0\n0\n0\n0\n0\n0\n"});
}

TEST_P(LargeInput, OfAScriptIsReadInASecond)
{
  ReadsInASecond([](const std::string& text) {
    try {
      (void)runner::ReadScript(text, {"/t", "/t/p", "/t/g"});
    } catch (const runner::ScriptError&) {
    }
  });
}

TEST_P(LargeInput, OfACommandLineIsReadInASecond)
{
  ReadsInASecond(
      [](const std::string& text) {
        (void)platform::FromWholeText(text);
        (void)platform::FromWords({text});
        cli::Options options;
        (void)cli::ReadOptions({"show", text}, options);
      },
      {"", "--program-directory="});
}

TEST_P(LargeInput, OfAPictureIsReadInASecond)
{
  ReadsInASecond(
      [](const std::string& text) {
        const auto bytes = std::as_bytes(std::span(text));
        (void)platform::JpegSize(bytes);
        (void)platform::ShowableJpegSize(bytes);
        (void)platform::ScanCount(bytes);
        (void)platform::IsCutShort(bytes);
      },
      {"", "\xFF\xD8",
       std::string_view("\xFF\xD8\xFF\xC0\x00\x0B\x08\x01\xE0\x02\x80\x01\x01\x11\x00", 15)});
}

TEST_P(LargeInput, OfAPathIsReadInASecond)
{
  ReadsInASecond([](const std::string& text) {
    (void)platform::FindPart(text, "\\Players");
    (void)platform::FileNameOf(text);
    (void)platform::SamePathText(text, text);
    (void)platform::WithExtension(text, "lo1");
    (void)platform::FoldCase(text);
    (void)platform::CompareNames(text, text);
    (void)platform::InUtf8(text);
    (void)library::PlaceOf(text);
  });
}

TEST_P(LargeInput, OfASetupIsReadInASecond)
{
  ReadsInASecond(
      [](const std::string& text) {
        testing::MemoryFiles files;
        files.Put("x.lo1", text);
        setup::Bytes bytes;
        (void)setup::IsSetupFile(files, "x.lo1", bytes);
        (void)setup::Identify("x.lo1", bytes);
      },
      {"", "PGTS"});
}

}  // namespace
}  // namespace velquist
