// SPDX-License-Identifier: MIT
#include "app/Marquee.h"

#include <cmath>

#include "app/Quotations.h"
#include "charts/PictureRecorder.h"

namespace velquist::app {
namespace {

constexpr std::uint64_t kMarqueePause = 30000;  ///< ms from a new quotation to its first step
constexpr std::uint64_t kMarqueePeriod = 40;    ///< ms from one step to the next
constexpr int kMarqueeStep = 10;                ///< units to the left
constexpr int kUnitsPerPixel = 15;

}  // namespace

void Marquee::Move()
{
  const auto now = clock_.TickCount();
  Control& label = form_.LblMarquee;
  if (!state_.scrolling) {
    random_.Seed(now);
    label.text = Quotation(static_cast<int>(random_.Next() * kQuotationCount));
    state_ = {.scrolling = true,
              .left = form_.Picture1.place.width * kUnitsPerPixel,
              .next_step = now + kMarqueePause};
  }
  Place();
  for (; state_.scrolling && now >= state_.next_step; state_.next_step += kMarqueePeriod) {
    state_.left -= kMarqueeStep;
    Place();
    if (label.place.left + label.place.width < form_.Picture1.place.left) state_.scrolling = false;
  }
}

int Marquee::UntilTick() const
{
  const auto now = clock_.TickCount();
  if (!state_.scrolling || state_.next_step <= now) return 0;
  // The step that comes next may not move it by a pixel yet.
  int left = state_.left - kMarqueeStep;
  auto due = state_.next_step;
  for (; left / kUnitsPerPixel == state_.left / kUnitsPerPixel; left -= kMarqueeStep)
    due += kMarqueePeriod;
  return static_cast<int>(due - now);
}

void Marquee::Resized(int width_before)
{
  state_.left += (form_.Picture1.place.width - width_before) * kUnitsPerPixel;
  Place();
}

void Marquee::Place()
{
  Control& label = form_.LblMarquee;
  charts::PictureRecorder measure;
  measure.SetLetterHeight(label.font_size);
  label.place.left = form_.Picture1.place.left + state_.left / kUnitsPerPixel;
  label.place.width = static_cast<int>(std::ceil(measure.Extent(label.text).width)) + 2;
}

}  // namespace velquist::app
