// SPDX-License-Identifier: MIT
#include "app/MainForm.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "app/FormControlSettings.h"
#include "edit/Drivetrain.h"

namespace velquist::app {
namespace {

std::string WithoutMnemonic(std::string_view caption)
{
  std::string text(caption);
  std::erase(text, '&');
  return text;
}

/// By index first, which is compared faster.
std::pair<int, std::string_view> NameOf(const ControlDesign* design)
{
  return {design->index, design->name};
}

std::vector<const ControlDesign*> RowsByName()
{
  std::vector<const ControlDesign*> rows;
  for (const auto& design : FormControlSettings()) rows.push_back(&design);
  std::ranges::sort(rows, {}, NameOf);
  return rows;
}

}  // namespace

Control& ControlDesign::In(MainForm& form) const noexcept
{
  return member.places(form)[static_cast<std::size_t>(std::max(index, 0))];
}

const Control& ControlDesign::In(const MainForm& form) const noexcept
{
  return In(const_cast<MainForm&>(form));
}

MainForm::MainForm()
{
  for (const auto& design : FormControlSettings()) {
    Control& control = design.In(*this);
    control.design = &design;
    control.text = WithoutMnemonic(design.caption);
  }
  ScaleControls(*this, {});
}

Control* MainForm::Find(std::string_view name, int index) noexcept
{
  static const auto kRows = RowsByName();
  const std::pair wanted(index, name);
  const auto row = std::ranges::lower_bound(kRows, wanted, {}, NameOf);
  return row == kRows.end() || NameOf(*row) != wanted ? nullptr : &(*row)->In(*this);
}

const Control* MainForm::Find(std::string_view name, int index) const noexcept
{
  return const_cast<MainForm*>(this)->Find(name, index);
}

Control* MainForm::ValueOf(int slot) noexcept
{
  Control& label = Label1[static_cast<std::size_t>(slot)];
  if (label.design != nullptr) return &label;
  const auto list = edit::ListOfSlot(slot);
  return list ? &Combo1[static_cast<std::size_t>(*list)] : nullptr;
}

const Control* MainForm::ValueOf(int slot) const noexcept
{
  return const_cast<MainForm*>(this)->ValueOf(slot);
}

int MainForm::DifferenceCount() const noexcept
{
  int count = 0;
  for (int slot = 0; slot < kSlotControls; ++slot) {
    const auto* const value = ValueOf(slot);
    if (value != nullptr && value->marked) ++count;
  }
  return count;
}

std::optional<int> SlotOf(const ControlDesign& design)
{
  if (design.name == "Combo1") return edit::SlotOfList(design.index);
  const bool of_slot = design.shape == Shape::kStepButton || design.name == "Label1";
  return of_slot ? std::optional(design.index) : std::nullopt;
}

bool MainForm::IsShown(const Control& control) const noexcept
{
  if (!control.shown) return false;
  const auto& design = *control.design;
  if (design.frame.empty()) return true;
  const Control* frame = Find(design.frame, design.frame_index);
  return frame == nullptr || IsShown(*frame);
}

}  // namespace velquist::app
