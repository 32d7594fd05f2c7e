// SPDX-License-Identifier: MIT
#pragma once

namespace velquist::runner {

/// Lets the toolkit do all that is waiting: events, repaints, and windows that have gone. Throws
/// when a box came up that nobody expected.
void LetWindowSystemWork();

/// Lets boxes of the system come up from now on, or again takes each for one that nobody expected.
void LetBoxesThrough(bool through);

}  // namespace velquist::runner
