// SPDX-License-Identifier: MIT
#pragma once

namespace velquist::edit {

/// The four check boxes of the frame "Edit Options".
struct EditOptions {
  bool asymmetric = false;            ///< left and right of a corner pair are edited on their own
  bool fine = false;                  ///< steps are the fine steps
  bool constant_roll_bars = false;    ///< front + rear roll bar stiffness stays as it is
  bool proportional_springs = false;  ///< wheel rates follow the weight distribution

  /// 0 for normal steps and their decimals, 1 for fine ones.
  [[nodiscard]] constexpr int FineIndex() const noexcept { return fine ? 1 : 0; }
};

}  // namespace velquist::edit
