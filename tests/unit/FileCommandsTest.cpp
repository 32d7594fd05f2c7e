// SPDX-License-Identifier: MIT
// The imports and Revert change everything or nothing, at whatever point they stop; and so do
// dialogs that are cancelled.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "AllOrNothingFixture.h"

namespace velquist::testing {
namespace {

constexpr std::string_view kDoesNotFit =
    "on message \"This setup file does not fit the current mod year.  Please select another "
    "file.\" information -> ok\n";

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

}  // namespace
}  // namespace velquist::testing
