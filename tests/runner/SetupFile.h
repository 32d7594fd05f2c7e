// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

/// Setup files made by scripts. The offsets are kept here once more, so that a mistake in the
/// program's own table shows.
namespace velquist::runner {

inline constexpr int kSetupSlots = 52;
inline constexpr int kFirstWingSlot = 33;
inline constexpr int kLastWingSlot = 34;

/// What a script says about a setup file.
struct SetupFile {
  bool long_layout = false;
  bool symmetric = true;
  /// The four bytes of every slot that is given, as a number.
  std::array<std::optional<std::uint32_t>, kSetupSlots> slots;
};

/// The four bytes of slot 0 to 51 for a value in words; nothing when the slot cannot hold it.
[[nodiscard]] std::optional<std::uint32_t> SlotBits(int slot, std::string_view value);

/// The file: magic, header bytes of the layout, the given slots, blank filler, wings -1.0 unless
/// given, 0 elsewhere.
[[nodiscard]] std::vector<std::byte> MakeSetupFile(const SetupFile& setup);

}  // namespace velquist::runner
