// SPDX-License-Identifier: MIT
#include "setup/SlotTable.h"

#include <string>

#include "platform/Errors.h"

namespace velquist::setup {

// clang-format off
const std::array<std::int16_t, kSlots> SlotRow = {
    16, 17, 18, 19,                      // tire pressure
    20, 21, 22, 23,                      // wheel rate
    24, 25, 26, 27,                      // bump
    28, 29, 30, 31,                      // rebound
    32, 33, 34, 35,                      // camber
    36, 37, 38, 39,                      // bump rubber
    40, 41,                              // toe in
    42, 43,                              // roll bar
    44, 45,                              // static ride height
    47,                                  // fuel
    48,                                  // steering ratio
    49,                                  // front brake bias
    51, 52,                              // wings
    0, 1, 2, 3, 4, 5, 6,                 // ratio numbers
    7, 8, 9, 10, 11, 12, 13,             // gear IDs
    14,                                  // coast angle
    15,                                  // power angle
    46,                                  // clutches
};

const std::array<std::int32_t, kSlots> SlotOffset = {
    92, 96, 100, 104,                    // tire pressure
    108, 112, 116, 120,                  // wheel rate
    124, 128, 132, 136,                  // bump
    140, 144, 148, 152,                  // rebound
    156, 160, 164, 168,                  // camber
    204, 208, 212, 216,                  // bump rubber
    220, 224,                            // toe in
    228, 232,                            // roll bar
    236, 240,                            // static ride height
    248,                                 // fuel
    252,                                 // steering ratio
    256,                                 // front brake bias
    261, 265,                            // wings
    20, 24, 28, 32, 36, 40, 44,          // ratio numbers
    56, 60, 64, 68, 72, 76, 80,          // gear IDs
    84,                                  // coast angle
    88,                                  // power angle
    244,                                 // clutches
};
// clang-format on

std::size_t RowOf(int slot)
{
  if (slot < 0 || slot >= kSlots) throw BoundsError("parameter slot " + std::to_string(slot));
  return static_cast<std::size_t>(SlotRow[static_cast<std::size_t>(slot)]);
}

}  // namespace velquist::setup
