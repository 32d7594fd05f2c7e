// SPDX-License-Identifier: MIT
#include "ui/DifferenceTexts.h"

namespace velquist::ui {

void DifferenceTexts::BringInLine()
{
  const auto& car = window_.Car();
  const int units = window_.State().Units;
  const bool fine = car.Options().fine;
  const bool all = units != units_ || fine != fine_ || &car.ComparedWith() != reference_.get();
  if (all) {
    units_ = units;
    fine_ = fine;
    reference_ = car.SharedReference();
  }
  for (int slot = 0; slot < app::kSlotControls; ++slot) {
    const auto* const value = window_.Form().ValueOf(slot);
    auto& said = slots_.at(static_cast<std::size_t>(slot));
    if (value == nullptr || (!value->marked && !said.marked)) continue;
    if (!all && value->marked == said.marked && value->text == said.value) continue;
    said = {value->marked, value->text, window_.DifferenceText(*value->design)};
  }
}

const std::string& DifferenceTexts::Of(const app::ControlDesign& design) const
{
  static const std::string kNone;
  const auto slot = app::SlotOf(design);
  return slot ? slots_.at(static_cast<std::size_t>(*slot)).difference : kNone;
}

}  // namespace velquist::ui
