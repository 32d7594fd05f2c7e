// SPDX-License-Identifier: MIT
// Open, the imports and Revert change everything or nothing, at whatever point they stop.
#include <array>

#include <gtest/gtest.h>

#include "ScriptedEditor.h"
#include "runner/SetupFile.h"
#include "setup/BinarySubs.h"
#include "setup/SlotTable.h"

namespace velquist::testing {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNoSetup =
    "on message \"This is not a valid GPL setup file.  Please select another file.\" information "
    "-> ok\n";
constexpr std::string_view kWrong =
    "on message \"There is something wrong with this setup file.  Please select another file.\" "
    "information -> ok\n";
constexpr std::string_view kDoesNotFit =
    "on message \"This setup file does not fit the current mod year.  Please select another "
    "file.\" information -> ok\n";
constexpr std::string_view kDoNotSave =
    "on message \"Do you want to save the current settings first?\" question -> no\n";

/// Bytes of a setup that any mod year opens and imports.
setup::Bytes GoodSetup(bool long_layout)
{
  runner::SetupFile file;
  file.long_layout = long_layout;
  const auto give = [&](int slot, std::string_view value) {
    file.slots[static_cast<std::size_t>(slot)] = runner::SlotBits(slot, value);
  };
  for (int slot = setup::kTirePressure; slot < setup::kBump; ++slot) give(slot, "31.5");
  for (int pair = 0; pair < setup::kGearPairs; ++pair) give(setup::kFirstRatio + pair, "0.69");
  give(setup::kFirstRatio + setup::kGearPairs - 1, "4");
  give(setup::kFinalDrive, "80");
  give(setup::kCoastAngle, "50");
  give(setup::kPowerAngle, "65");
  give(setup::kClutches, "4");
  return runner::MakeSetupFile(file);
}

void PutWhole(setup::Bytes& bytes, int slot, std::int32_t bits)
{
  const auto offset = setup::SlotOffset[static_cast<std::size_t>(slot)];
  setup::WriteLongAt(bytes, bits, static_cast<std::size_t>(offset));
}

/// An editor with a setup of 1966 that was edited, with every option set, so that whatever an
/// Open or an import touches shows.
class AllOrNothing : public ::testing::Test {
 protected:
  AllOrNothing()
  {
    editor_.StartWithGame();
    editor_.Play(R"(
dir $G/Players/Ann/Setups/lake
setup $G/Players/Jim/Setups/monza/mine.mc2 long sym=0 0=20 1=21 16=-1 30=12 42=65 \
  48=82 49=45 50=60 51=3
on open -> $G/Players/Jim/Setups/monza/mine.mc2
click MnuOpen
check OptUnits(1)
check FineCheck
check RollBarConstTotal
click CmdInc(0)
select Combo1(1) #9
)");
  }

  void Write(const std::string& name, std::span<const std::byte> bytes)
  {
    editor_.World().Write("GPL/Players/Ann/Setups/lake/" + name, bytes);
  }

  /// Plays `command` on the file, which raises `dialogs`: nothing has changed but the buffer,
  /// which is `buffer`.
  void ExpectNothingChanged(const std::string& name, std::string_view dialogs,
                            const std::string& command, const setup::Bytes& buffer)
  {
    SCOPED_TRACE(name);
    const auto before = editor_.Everything(WithBuffer::kNo);
    editor_.Play(std::string(kDoNotSave) + "on open -> $G/Players/Ann/Setups/lake/" + name + "\n" +
                 std::string(dialogs) + "click " + command + "\n");
    EXPECT_EQ(editor_.Everything(WithBuffer::kNo), before);
    EXPECT_EQ(editor_.Window().Car().SetupBuffer(), buffer);
  }

  ScriptedEditor editor_;
};

TEST_F(AllOrNothing, OpenOfAFileWithoutTheMagic)
{
  for (const std::size_t length : {1U, 2U, 3U, 4U, 264U, 272U}) {
    auto bytes = GoodSetup(true);
    bytes.resize(length);
    bytes[length < 4 ? 0 : 3] = std::byte{'x'};
    Write("none.lp1", bytes);
    ExpectNothingChanged("none.lp1", kNoSetup, "MnuOpen", bytes);
  }
}

TEST_F(AllOrNothing, OpenOfASetupCutOffAtEveryLength)
{
  constexpr std::size_t kMagic = 4;
  constexpr std::size_t kBehindTheFlag = 261;
  for (std::size_t length = kMagic; length < kBehindTheFlag; ++length) {
    auto bytes = GoodSetup(false);
    bytes.resize(length);
    Write("cut.ga1", bytes);
    ExpectNothingChanged("cut.ga1", kWrong, "MnuOpen", bytes);
  }
}

TEST_F(AllOrNothing, OpenOfAWingedSetupCutOffAtEveryLength)
{
  constexpr std::size_t kShort = setup::kShortLayoutSize;
  constexpr std::size_t kBehindTheWings = 269;
  for (std::size_t length = kShort; length < kBehindTheWings; ++length) {
    auto bytes = GoodSetup(true);
    bytes.resize(length);
    Write("cut.lo1", bytes);
    ExpectNothingChanged("cut.lo1", "on FrmModYear2 -> 1969\n" + std::string(kWrong), "MnuOpen",
                         bytes);
  }
}

TEST_F(AllOrNothing, OpenOfASetupWithAGearRowOutsideTheTable)
{
  for (int slot = setup::kFirstGear; slot <= setup::kFinalDrive; ++slot) {
    for (const std::int32_t row : {-1, 90, 91, 65536, -2147483647 - 1, 2147483647}) {
      auto bytes = GoodSetup(true);
      PutWhole(bytes, slot, row);
      Write("row.lp1", bytes);
      ExpectNothingChanged("row.lp1", kWrong, "MnuOpen", bytes);
    }
  }
}

/// Values that the lists do not offer, by slot.
struct OutOfReach {
  int slot;
  std::string_view value;
};
constexpr std::array<OutOfReach, 10> kOutOfReach = {{
    {setup::kFinalDrive, "69"},
    {setup::kCoastAngle, "20"},
    {setup::kCoastAngle, "90"},
    {setup::kCoastAngle, "nan"},
    {setup::kCoastAngle, "1e30"},
    {setup::kPowerAngle, "20"},
    {setup::kPowerAngle, "-inf"},
    {setup::kClutches, "0"},
    {setup::kClutches, "6"},
    {setup::kClutches, "2147483647"},
}};

setup::Bytes SetupWith(const OutOfReach& wrong)
{
  auto bytes = GoodSetup(true);
  PutWhole(bytes, wrong.slot,
           static_cast<std::int32_t>(*runner::SlotBits(wrong.slot, wrong.value)));
  // The ratio number of that row, so that the row is not searched anew.
  if (wrong.slot == setup::kFinalDrive) setup::WriteSingleAt(bytes, 2.923F, 44);
  return bytes;
}

TEST_F(AllOrNothing, OpenOfAValueOutsideItsList)
{
  for (const auto& wrong : kOutOfReach) {
    const auto bytes = SetupWith(wrong);
    Write("list.lp1", bytes);
    ExpectNothingChanged("list.lp1", kWrong, "MnuOpen", bytes);
  }
}

TEST_F(AllOrNothing, OpenForAModThatIsNotInstalled)
{
  for (const char* marker : {"gpla65.ini", "gpl_ai.ini", "gpla69.ini", "gplaGT.ini"})
    editor_.World().Remove(std::string("GPL/") + marker);
  const std::string refused =
      "on message \"You are attempting to load a setup file for a mod that isn't installed.\" "
      "exclamation -> ok\n";
  for (const bool long_layout : {true, false}) {
    const auto bytes = GoodSetup(long_layout);
    Write("sport.ga1", bytes);
    ExpectNothingChanged("sport.ga1", refused, "MnuOpen", bytes);
    Write("asked.bb1", bytes);
    const std::string question = long_layout ? "on FrmModYear1 -> " : "on FrmModYear2 -> ";
    for (const char* year : {"1965", "1967", "1969"})
      ExpectNothingChanged("asked.bb1", question + year + "\n" + refused, "MnuOpen", bytes);
  }
  auto winged = GoodSetup(true);
  setup::WriteSingleAt(winged, 12.0F, 265);
  Write("winged.bb1", winged);
  ExpectNothingChanged("winged.bb1", refused, "MnuOpen", winged);
}

TEST_F(AllOrNothing, OpenOfWhatCannotBeRead)
{
  const auto buffer = editor_.Window().Car().SetupBuffer();
  fs::create_directories(editor_.Path("$G/Players/Ann/Setups/lake/folder.lp1"));
  ExpectNothingChanged("folder.lp1", kWrong, "MnuOpen", buffer);
  ExpectNothingChanged("gone.lp1", kWrong, "MnuOpen", buffer);
  ExpectNothingChanged("gone/gone.lp1", kWrong, "MnuOpen", buffer);
#ifndef _WIN32
  fs::create_symlink("nowhere", editor_.Path("$G/Players/Ann/Setups/lake") / "broken.lp1");
  ExpectNothingChanged("broken.lp1", kWrong, "MnuOpen", buffer);
  fs::create_symlink("loop.lp1", editor_.Path("$G/Players/Ann/Setups/lake") / "loop.lp1");
  ExpectNothingChanged("loop.lp1", kWrong, "MnuOpen", buffer);
#endif
}

TEST_F(AllOrNothing, ImportsOfWhatDoesNotFit)
{
  for (const char* command : {"MnuImportChassis", "MnuImportDrivetrain"}) {
    SCOPED_TRACE(command);
    const bool chassis = std::string_view(command) == "MnuImportChassis";
    auto bytes = GoodSetup(true);
    bytes[0] = std::byte{'p'};
    Write("none.bb1", bytes);
    ExpectNothingChanged("none.bb1", kNoSetup, command, bytes);
    // The last field that the import reads is the brake bias, or the clutches.
    const std::size_t last = chassis ? 256 : 244;
    for (std::size_t length = 4; length < last + 4; ++length) {
      auto cut = GoodSetup(true);
      cut.resize(length);
      Write("cut.bb1", cut);
      ExpectNothingChanged("cut.bb1", kDoesNotFit, command, cut);
    }
  }
  for (const auto& wrong : kOutOfReach) {
    const auto bytes = SetupWith(wrong);
    Write("list.bb1", bytes);
    ExpectNothingChanged("list.bb1", kDoesNotFit, "MnuImportDrivetrain", bytes);
  }
  for (int slot = setup::kFirstGear; slot <= setup::kFinalDrive; ++slot) {
    for (const std::int32_t row : {-1, 90, 65536, 2147483647}) {
      auto bytes = GoodSetup(true);
      PutWhole(bytes, slot, row);
      Write("row.bb1", bytes);
      ExpectNothingChanged("row.bb1", kDoesNotFit, "MnuImportDrivetrain", bytes);
    }
  }
}

TEST_F(AllOrNothing, ChassisImportWithoutRoomForTheWingsOf1969)
{
  editor_.Play(std::string(kDoNotSave) + R"(
setup $G/Players/Ann/Setups/lake/winged.lo1 long 33=4 34=8 48=82 49=45 50=60 51=3
on open -> $G/Players/Ann/Setups/lake/winged.lo1
click MnuOpen
click CmdInc(0)
)");
  for (std::size_t length = setup::kShortLayoutSize; length < 269; ++length) {
    auto bytes = GoodSetup(true);
    bytes.resize(length);
    Write("short.bb1", bytes);
    ExpectNothingChanged("short.bb1", kDoesNotFit, "MnuImportChassis", bytes);
  }
}

TEST_F(AllOrNothing, ImportsOfWhatCannotBeRead)
{
  const auto buffer = editor_.Window().Car().SetupBuffer();
  fs::create_directories(editor_.Path("$G/Players/Ann/Setups/lake/folder.bb1"));
  const std::string lake = "$G/Players/Ann/Setups/lake/";
  for (const char* command : {"MnuImportChassis", "MnuImportDrivetrain"}) {
    ExpectNothingChanged(
        "gone.bb1",
        "on message \"" + lake + "gone.bb1\\nNo such file or directory.\" exclamation -> ok\n",
        command, buffer);
    ExpectNothingChanged(
        "folder.bb1", "on message \"" + lake + "folder.bb1\\nIs a directory.\" exclamation -> ok\n",
        command, buffer);
  }
}

TEST_F(AllOrNothing, RevertToADefaultThatCannotBeTaken)
{
  const auto before = editor_.Everything(WithBuffer::kYes);
  const auto revert = [&](const std::string& message) {
    editor_.Play(std::string(kDoNotSave) + "on message \"" + message +
                 "\" exclamation -> ok\nclick MnuRevert\n");
    EXPECT_EQ(editor_.Everything(WithBuffer::kYes), before);
  };
  for (std::size_t length = 1; length < 261; ++length) {
    SCOPED_TRACE(length);
    auto bytes = GoodSetup(true);
    bytes.resize(length);
    editor_.World().Write("program/66 Velquist Default.vqset", bytes);
    revert(
        "This cannot be done: the setup or one of the program's data files is damaged or "
        "incomplete.  Nothing was changed.");
  }
  for (const auto& wrong : kOutOfReach) {
    editor_.World().Write("program/66 Velquist Default.vqset", SetupWith(wrong));
    revert(
        "This cannot be done: the setup or one of the program's data files is damaged or "
        "incomplete.  Nothing was changed.");
  }
  editor_.World().Remove("program/66 Velquist Default.vqset");
  editor_.World().MakeDirectory("program/66 Velquist Default.vqset");
  revert("$P/66 Velquist Default.vqset\\nIs a directory.");
}

TEST_F(AllOrNothing, CancelledDialogsChangeNothingAtAll)
{
  const auto before = editor_.Everything(WithBuffer::kYes);
  for (const char* command : {"MnuOpen", "MnuImportChassis", "MnuImportDrivetrain"})
    editor_.Play(std::string(kDoNotSave) + "on open -> cancel\nclick " + command + "\n");
  editor_.Play("on save -> cancel\nclick MnuSaveAs\n");
  EXPECT_EQ(editor_.Everything(WithBuffer::kYes), before);
}

TEST_F(AllOrNothing, WhatSucceedsDoesChange)
{
  Write("good.lp1", GoodSetup(true));
  for (const char* command : {"MnuImportChassis", "MnuImportDrivetrain", "MnuOpen"}) {
    SCOPED_TRACE(command);
    const auto before = editor_.Everything(WithBuffer::kNo);
    editor_.Play(std::string(kDoNotSave) +
                 "on open -> $G/Players/Ann/Setups/lake/good.lp1\nclick " + command + "\n");
    EXPECT_NE(editor_.Everything(WithBuffer::kNo), before);
  }
}

TEST(Open, TenMegabytesWithTheRightMagicOpenAndSaveWhole)
{
  ScriptedEditor editor;
  editor.StartWithGame();
  auto bytes = GoodSetup(false);
  constexpr std::size_t kTenMegabytes = 10'000'000;
  bytes.resize(kTenMegabytes, std::byte{0xA5});
  editor.World().Write("GPL/Players/Jim/Setups/monza/large.bb1", bytes);
  editor.Play(R"(
on open -> $G/Players/Jim/Setups/monza/large.bb1
on FrmModYear2 -> 1967
click MnuOpen
expect Label4 large.bb1
expect slot 0 = 31.5
expect buffer size 10000000
click CmdInc(0)
on message "This file already exits.  Do you want to overwrite it?" question -> yes
click MnuSave
expect file $G/Players/Jim/Setups/monza/large.bb1 size 10000000
click MnuLongFormat
on save -> $G/Players/Jim/Setups/monza/large2.bb1
click MnuSaveAs
expect file $G/Players/Jim/Setups/monza/large2.bb1 same $G/Players/Jim/Setups/monza/large.bb1
)");
  const auto written = editor.World().Read("GPL/Players/Jim/Setups/monza/large2.bb1");
  EXPECT_TRUE(std::equal(written.begin() + 264, written.end(), bytes.begin() + 264, bytes.end()));
}

#ifndef _WIN32
TEST(Open, ReadsAndSavesThroughASymbolicLink)
{
  ScriptedEditor editor;
  editor.StartWithGame();
  editor.Play("setup $T/kept/real.bb1 short 0=20 48=80 49=45 50=60 51=3\n");
  const auto link = editor.Path("$G/Players/Jim/Setups/monza") / "link.bb1";
  fs::create_symlink(editor.Path("$T/kept/real.bb1"), link);
  editor.Play(R"(
on open -> $G/Players/Jim/Setups/monza/link.bb1
on FrmModYear2 -> 1967
click MnuOpen
click CmdInc(0)
on message "This file already exits.  Do you want to overwrite it?" question -> yes
click MnuSave
expect file $T/kept/real.bb1 hex 92 "00 00 A8 41"
)");
  EXPECT_TRUE(fs::is_symlink(link));
}
#endif

}  // namespace
}  // namespace velquist::testing
