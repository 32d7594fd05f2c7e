// SPDX-License-Identifier: MIT
// What is opened and saved comes back: random setups value for value, the examples byte for byte.
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <random>

#include <gtest/gtest.h>

#include "MemoryFiles.h"
#include "Nothing.h"
#include "ScriptedEditor.h"
#include "data/GearData.h"
#include "platform/HostFileSystem.h"
#include "runner/SourceDirectory.h"
#include "runner/Texts.h"
#include "setup/BinarySubs.h"
#include "setup/Identification.h"
#include "setup/SlotTable.h"

namespace velquist::testing {
namespace {

namespace fs = std::filesystem;

/// Answers with what the test set; tells what it must not be asked.
class SetAnswers final : public app::Dialogs {
 public:
  std::string path;  ///< chosen in both file dialogs
  int year_button = 2;

  platform::Answer ShowMessage(std::string_view text, platform::Icon /*icon*/,
                               platform::Buttons /*buttons*/) override
  {
    ADD_FAILURE() << text;
    return platform::Answer::kNo;
  }
  std::optional<std::string> AskOpenFile(const platform::OpenRequest& /*request*/) override
  {
    return path;
  }
  std::optional<std::string> AskSaveFile(const platform::SaveRequest& /*request*/) override
  {
    return path;
  }
  std::optional<int> AskModYear(app::ModYearForm /*form*/, std::string_view /*message*/) override
  {
    return year_button;
  }
  void ShowInstallDelete(app::InstallDeleteForm& /*form*/) override {}
  void ShowHelp() override {}
};

std::size_t OffsetOf(int slot)
{
  return static_cast<std::size_t>(setup::SlotOffset[static_cast<std::size_t>(slot)]);
}

/// The bytes that no command but a conversion may touch.
setup::Bytes Unknown(const setup::Bytes& bytes)
{
  constexpr std::array<std::pair<std::size_t, std::size_t>, 5> kRanges = {
      {{0, 4}, {5, 8}, {10, 20}, {48, 56}, {172, 204}}};
  setup::Bytes unknown;
  for (const auto& [from, to] : kRanges)
    unknown.insert(unknown.end(), bytes.begin() + static_cast<std::ptrdiff_t>(from),
                   bytes.begin() + static_cast<std::ptrdiff_t>(to));
  return unknown;
}

/// The editor on files in memory.
class RoundTrip : public ::testing::Test {
 protected:
  RoundTrip()
      : window_({files_, dialogs_, nothing_, nothing_, nothing_, nothing_, nothing_, nothing_,
                 nothing_, "C:\\Velquist"})
  {
    for (const auto& entry :
         fs::directory_iterator(velquist::testing::SourceDirectory() / "assets" / "program"))
      if (entry.is_regular_file())
        files_.Put("C:\\Velquist\\" + entry.path().filename().string(),
                   platform::HostFileSystem().ReadWhole(entry.path().string()));
    for (const auto& marker : setup::ModMarkers())
      files_.WriteText("C:\\GPL" + std::string(marker.file), "");
    files_.WriteText("C:\\GPL\\Players\\Jim\\Setups\\monza\\note.txt", "");
    files_.WriteText("C:\\Velquist\\Velquist Program Settings.ini",
                     "\"C:\\GPL\"\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n\"C:\\GPL\"\r\n");
    window_.Form_Load("");
  }

  int Roll(int least, int most)
  {
    return least + static_cast<int>(random_() % static_cast<unsigned>(most - least + 1));
  }

  /// A number of any size that a setup may hold, now and then one that it should not.
  float AnySingle()
  {
    constexpr std::array kOdd = {0.0F,     -0.0F,     1e-40F, 3.4e38F,     -3.4e38F,
                                 INFINITY, -INFINITY, NAN,    16777216.0F, 1e7F};
    if (Roll(0, 19) == 0) return kOdd[static_cast<std::size_t>(Roll(0, kOdd.size() - 1))];
    return std::ldexp(static_cast<float>(Roll(-9999999, 9999999)), -Roll(0, 24));
  }

  /// A setup of random values and random bytes wherever no value lies.
  setup::Bytes AnySetup(bool long_layout)
  {
    setup::Bytes bytes(long_layout ? setup::kLongLayoutSize : setup::kShortLayoutSize);
    for (auto& byte : bytes) byte = static_cast<std::byte>(random_() & 0xFFU);
    constexpr std::string_view kMagic = "PGTS";
    std::ranges::copy(std::as_bytes(std::span(kMagic)), bytes.begin());
    for (int slot = 0; slot < setup::kSlots; ++slot) {
      const bool wing = slot == setup::kFrontWing || slot == setup::kRearWing;
      if (wing && !long_layout) continue;
      if (setup::IsWholeSlot(slot))
        setup::WriteLongAt(bytes, Roll(-9999999, 9999999), OffsetOf(slot));
      else
        setup::WriteSingleAt(bytes, AnySingle(), OffsetOf(slot));
    }
    for (int gear = 0; gear < setup::kGearPairs - 1; ++gear)
      setup::WriteLongAt(bytes, Roll(0, 89), OffsetOf(setup::kFirstGear + gear));
    // What the lists offer, in every mod year; the angles also between the items.
    setup::WriteLongAt(bytes, Roll(74, 89), OffsetOf(setup::kFinalDrive));
    setup::WriteSingleAt(bytes, 20.0F, OffsetOf(setup::kFirstRatio + setup::kGearPairs - 1));
    for (const int slot : {setup::kCoastAngle, setup::kPowerAngle})
      setup::WriteSingleAt(bytes, static_cast<float>(Roll(3000, 8500)) / 100, OffsetOf(slot));
    setup::WriteLongAt(bytes, Roll(1, 5), OffsetOf(setup::kClutches));
    return bytes;
  }

  void Open(const std::string& path)
  {
    dialogs_.path = path;
    window_.Click("MnuOpen");
    ASSERT_EQ(window_.Form().Label4.text, path.substr(path.rfind('\\') + 1));
  }

  [[nodiscard]] std::array<std::string, setup::kSlots> Values() const
  {
    std::array<std::string, setup::kSlots> values;
    for (int slot = 0; slot < setup::kSlots; ++slot)
      values[static_cast<std::size_t>(slot)] =
          runner::Hex8(window_.Car().SetupData().Value(setup::RowOf(slot), data::kCurrent));
    return values;
  }

  /// The values that a Save must have written: ratio numbers after the gear IDs, angles of the list
  /// items, and no wings but in 1969.
  [[nodiscard]] std::array<std::string, setup::kSlots> Written() const
  {
    auto values = Values();
    const auto put = [&](int slot, double value) {
      values[static_cast<std::size_t>(slot)] = runner::Hex8(static_cast<float>(value));
    };
    for (int pair = 0; pair < setup::kGearPairs; ++pair) {
      const auto id =
          window_.Car().SetupData().Value(setup::RowOf(setup::kFirstGear + pair), data::kCurrent);
      put(setup::kFirstRatio + pair,
          std::stod(window_.Car().Gears().Text(static_cast<int>(id), 2)));
    }
    put(setup::kPowerAngle, std::stod(window_.Form().Combo1[1].text));
    put(setup::kCoastAngle, std::stod(window_.Form().Combo1[2].text));
    return values;
  }

  std::mt19937 random_{20240607};
  MemoryFiles files_;
  SetAnswers dialogs_;
  Nothing nothing_;
  app::MainWindow window_;
};

TEST_F(RoundTrip, TenThousandRandomSetupsOfBothLayoutsComeBack)
{
  constexpr int kSetups = 10'000;
  constexpr std::array<std::string_view, 5> kNames = {"any.bb1", "any.ea2", "any.mc3", "any.lo1",
                                                      "any.ga1"};
  const std::string track = "C:\\GPL\\players\\Jim\\setups\\monza\\";
  int opened_long = 0;
  int converted = 0;
  for (int i = 0; i < kSetups && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const bool long_layout = Roll(0, 1) == 1;
    // 1965, 1966 or 1967 by the user's answer, or 1969 where there is room for its wings.
    dialogs_.year_button = Roll(0, long_layout ? 3 : 2);
    const auto bytes = AnySetup(long_layout);
    const auto name = track + std::string(kNames[static_cast<std::size_t>(Roll(0, 4))]);
    files_.Put(name, bytes);
    window_.Click(Roll(0, 1) == 1 ? "MnuLongFormat" : "MnuShortFormat");
    Open(name);
    ASSERT_EQ(window_.Car().SetupBuffer(), bytes);
    const auto expected = Written();
    const bool asymmetric = window_.Form().AsymmetricCheck.checked;
    EXPECT_EQ(asymmetric, bytes[260] == std::byte{0});

    dialogs_.path = track + "saved";
    window_.Click("MnuSaveAs");
    const auto saved_path = track + window_.Form().Label4.text;
    ASSERT_TRUE(files_.Exists(saved_path));
    const auto saved = files_.ReadWhole(saved_path);
    EXPECT_EQ(saved, window_.Car().SetupBuffer());
    EXPECT_EQ(Unknown(saved), Unknown(bytes));
    const bool kept = saved.size() == bytes.size();
    if (kept) {
      EXPECT_EQ(saved[4], bytes[4]);
      EXPECT_EQ(saved[8], bytes[8]);
      EXPECT_EQ(saved[9], bytes[9]);
      EXPECT_TRUE(std::equal(saved.end() - 3, saved.end(), bytes.end() - 3));
    }
    opened_long += long_layout ? 1 : 0;
    converted += kept ? 0 : 1;

    // The same year, since nothing in the bytes tells it for sure.
    const auto year = window_.Car().ModYearIndex();
    constexpr std::array kButtonOfYear = {2, 0, 1, 3};
    if (year < data::ModYear::kGT)
      dialogs_.year_button = kButtonOfYear[static_cast<std::size_t>(year)];
    Open(saved_path);
    ASSERT_EQ(window_.Car().ModYearIndex(), year);
    EXPECT_EQ(Values(), expected);
    EXPECT_EQ(window_.Form().AsymmetricCheck.checked, asymmetric);
    files_.Remove(name);
    files_.Remove(saved_path);
  }
  // Both layouts and both conversions had their share.
  EXPECT_GT(opened_long, kSetups / 3);
  EXPECT_LT(opened_long, kSetups * 2 / 3);
  EXPECT_GT(converted, kSetups / 10);
}

TEST_F(RoundTrip, DroppedFileOpensWithoutADialog)
{
  const std::string path = "C:\\GPL\\Players\\Jim\\Setups\\monza\\dropped.lp1";
  const auto bytes = AnySetup(true);
  files_.Put(path, bytes);
  window_.FileDropped(path);
  EXPECT_EQ(window_.Form().Label4.text, "dropped.lp1");
  EXPECT_EQ(window_.Form().Combo2.text, "1966");
  EXPECT_EQ(window_.Car().SetupBuffer(), bytes);
  EXPECT_FALSE(window_.Car().Changed());
}

/// Slots whose fields differ between two files of one size; -1 when any other byte does.
std::vector<int> FieldsThatDiffer(setup::Bytes a, const setup::Bytes& b)
{
  std::vector<int> slots;
  for (int slot = 0; slot < setup::kSlots; ++slot) {
    const auto at = OffsetOf(slot);
    if (at + 4 > b.size() || setup::ReadLongAt(a, at) == setup::ReadLongAt(b, at)) continue;
    slots.push_back(slot);
    setup::WriteLongAt(a, setup::ReadLongAt(b, at), at);
  }
  if (a != b) slots.push_back(-1);
  return slots;
}

TEST(Examples, OpenedAndSavedUntouchedTheyKeepTheirBytes)
{
  ScriptedEditor editor;
  editor.StartWithExamples();
  const auto examples = Examples();
  std::size_t setups = 0;
  for (const auto& entry : fs::recursive_directory_iterator(editor.Path("$G/Players")))
    if (entry.is_regular_file()) ++setups;
  ASSERT_EQ(examples.size(), setups);

  // What saving changes by design: the gear ID and ratio number of 3rd gear; a wing of 1967.
  const std::map<std::string, std::vector<int>> changed = {
      {"closest gear.lo1", {setup::kFirstRatio + 2, setup::kFirstGear + 2}},
      {"wing of 1967.fe1", {setup::kFrontWing}}};
  for (const auto& example : examples) {
    SCOPED_TRACE(example.path);
    const auto original = editor.World().Read("GPL/" + example.path);
    editor.Open(example);
    editor.Play(
        "on message \"This file already exits.  Do you want to overwrite it?\" question -> yes\n"
        "click MnuSave\n");
    const auto saved = editor.World().Read("GPL/" + example.path);
    EXPECT_EQ(saved.size(), original.size());
    const auto expected = changed.find(fs::path(example.path).filename().string());
    EXPECT_EQ(FieldsThatDiffer(saved, original),
              expected == changed.end() ? std::vector<int>{} : expected->second);
  }
}

}  // namespace
}  // namespace velquist::testing
