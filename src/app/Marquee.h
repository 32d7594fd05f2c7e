// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "app/MainForm.h"
#include "platform/System.h"

namespace velquist::app {

struct MarqueeState {
  bool scrolling = false;       ///< a quotation is chosen
  int left = 0;                 ///< of the quotation within its box, 1/15 pixel
  std::uint64_t next_step = 0;  ///< tick count
};

/// The quotation that runs through its box.
class Marquee {
 public:
  /// All of them outlive it.
  Marquee(MarqueeState& state, MainForm& form, const platform::Clock& clock,
          platform::Random& random)
      : state_(state), form_(form), clock_(clock), random_(random)
  {
  }

  /// Picks a quotation and lets it wait beyond the right edge, then moves it to the left until it
  /// has passed the left edge.
  void Move();
  /// Milliseconds until Move has something to show.
  [[nodiscard]] int UntilTick() const;
  /// The box was as wide as this: the quotation stays where it was as seen from the right edge,
  /// beyond which it waits.
  void Resized(int width_before);

 private:
  void Place();

  MarqueeState& state_;
  MainForm& form_;
  const platform::Clock& clock_;
  platform::Random& random_;
};

}  // namespace velquist::app
