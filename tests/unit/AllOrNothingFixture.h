// SPDX-License-Identifier: MIT
// What the tests of Open, the imports and Revert share: an edited setup that may not change by
// halves, and files that are good or just not.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "ScriptedEditor.h"
#include "runner/SetupFile.h"
#include "setup/BinarySubs.h"
#include "setup/SlotTable.h"

namespace velquist::testing {

namespace fs = std::filesystem;

inline constexpr std::string_view kNoSetup =
    "on message \"This is not a valid GPL setup file.  Please select another file.\" information "
    "-> ok\n";
inline constexpr std::string_view kDoNotSave =
    "on message \"Do you want to save the current settings first?\" question -> no\n";

/// Bytes of a setup that any mod year opens and imports.
inline setup::Bytes GoodSetup(bool long_layout)
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

inline void PutWhole(setup::Bytes& bytes, int slot, std::int32_t bits)
{
  const auto offset = setup::SlotOffset[static_cast<std::size_t>(slot)];
  setup::WriteLongAt(bytes, bits, static_cast<std::size_t>(offset));
}

/// Values that the lists do not offer, by slot.
struct OutOfReach {
  int slot;
  std::string_view value;
};
inline constexpr std::array<OutOfReach, 10> kOutOfReach = {{
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

/// A good setup but for that value.
inline setup::Bytes SetupWith(const OutOfReach& wrong)
{
  auto bytes = GoodSetup(true);
  PutWhole(bytes, wrong.slot,
           static_cast<std::int32_t>(*runner::SlotBits(wrong.slot, wrong.value)));
  // The ratio number of that row, so that the row is not searched anew.
  if (wrong.slot == setup::kFinalDrive) setup::WriteSingleAt(bytes, 2.923F, 44);
  return bytes;
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

}  // namespace velquist::testing
