// SPDX-License-Identifier: MIT
#include "ui/LargerLetters.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "platform_wx/NativeLook.h"

namespace velquist::ui {
namespace {

/// The arrows of step buttons are no text, and pictures have letters of their own.
bool HasLetters(const app::ControlDesign& design)
{
  return design.kind != app::ControlKind::kButton && design.kind != app::ControlKind::kPicture;
}

}  // namespace

int LargerLetters::Wanted(const app::Control& control, double text_scale)
{
  // A large screen has made the letters larger already.
  const int usual = std::min(control.font_size, control.design->font_size);
  return std::max(control.font_size, static_cast<int>(std::lround(usual * text_scale)));
}

void LargerLetters::FindAlike()
{
  std::map<std::tuple<std::string_view, int, app::ControlKind, int, int>, std::size_t> places;
  for (auto& widget : widgets_) {
    const auto& design = widget.Design();
    if (!HasLetters(design)) continue;
    const auto [place, is_new] = places.try_emplace(
        {design.frame, design.frame_index, design.kind, design.place.height, design.font_size},
        alike_.size());
    if (is_new) alike_.emplace_back();
    alike_[place->second].push_back(&widget);
  }
}

void LargerLetters::BringInLine()
{
  if (widgets_.empty()) return;
  const double scale = platform::TextScale(widgets_.front().Window());
  if (scale <= 1) return;
  if (alike_.empty()) FindAlike();
  for (const auto& group : alike_) {
    // All of them, since each asks for its own news.
    if (std::ranges::count_if(group, [](auto* widget) { return widget->TakeNews(); }) == 0)
      continue;
    int letters = Wanted(group.front()->Shown(), scale);
    for (const auto* const widget : group) letters = widget->LettersThatFit(letters);
    for (auto* const widget : group) widget->Enlarge(letters);
  }
}

}  // namespace velquist::ui
