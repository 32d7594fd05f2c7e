// SPDX-License-Identifier: MIT
#include "ui/ValueTips.h"

#include <utility>

#include "app/ValueTexts.h"

namespace velquist::ui {

void ValueTips::BringInLine()
{
  const auto& car = window_.Car();
  const auto& options = car.Options();
  Cause cause = {car.GearTable(),    window_.State().Units,        options.fine,
                 options.asymmetric, options.proportional_springs, app::MostOfRollBars(window_)};
  if (cause == cause_) return;
  cause_ = std::move(cause);
  for (int slot = 0; slot < app::kSlotControls; ++slot)
    lines_.at(static_cast<std::size_t>(slot)) = app::TipText(window_, slot);
}

const std::string& ValueTips::Of(const app::ControlDesign& design) const
{
  static const std::string kNone;
  const auto slot = app::SlotOf(design);
  return slot ? lines_.at(static_cast<std::size_t>(*slot)) : kNone;
}

}  // namespace velquist::ui
