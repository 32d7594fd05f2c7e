// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <span>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "app/MainForm.h"

namespace velquist::app {

/// The event of a row: a member function of MainWindow, which takes the control's index or
/// nothing.
template <auto kHandler>
void On(MainWindow& window, int index)
{
  if constexpr (std::is_invocable_v<decltype(kHandler), MainWindow&, int>)
    (window.*kHandler)(index);
  else
    (window.*kHandler)();
}

/// Collects the rows of a layout and refuses a wrong one: at compile time the build fails and its
/// trace shows the row, at run time std::logic_error names it.
class FormDesigner {
 public:
  /// A frame, or a picture box, around the controls that follow.
  constexpr void Frame(ControlDesign row)
  {
    NoFrame();
    Add(row);
    around_ = row;
  }
  constexpr void NoFrame() { around_ = {}; }

  /// A control in the frame.
  constexpr void Add(ControlDesign row)
  {
    row.frame = around_.name;
    row.frame_index = around_.index;
    Take(row, around_.name.empty() ? nullptr : &around_);
  }

  /// A menu that opens: of the bar, or in the menu that its frame names.
  constexpr void Menu(const ControlDesign& row)
  {
    Need(row, row.event == nullptr, "a menu that opens has an event");
    TakeMenu(row);
  }

  /// What is chosen in the menu that its frame names.
  constexpr void MenuItem(const ControlDesign& row)
  {
    Need(row, row.event != nullptr, "nothing happens on it");
    Need(row, !row.frame.empty(), "a menu item outside a menu");
    TakeMenu(row);
  }

  /// Call it behind the last row.
  constexpr void Finish() const
  {
    for (const auto& row : Rows()) {
      const bool opens = row.kind == ControlKind::kMenu && row.event == nullptr;
      Need(row,
           !opens || std::ranges::find(Rows(), row.name, &ControlDesign::frame) != Rows().end(),
           "a menu without items");
    }
  }

  [[nodiscard]] constexpr std::span<const ControlDesign> Rows() const
  {
    return {rows_.data(), count_};
  }

  /// Places of all members that have rows; a member without rows makes the form larger than that.
  [[nodiscard]] constexpr std::size_t Places() const { return places_; }

 private:
  [[noreturn]] static void Refuse(const ControlDesign& row, const char* why)
  {
    const auto index = row.index < 0 ? "" : "(" + std::to_string(row.index) + ")";
    throw std::logic_error(std::string(row.name) + index + ": " + why);
  }

  static constexpr void Need(const ControlDesign& row, bool right, const char* why)
  {
    if (!right) Refuse(row, why);
  }

  constexpr void TakeMenu(ControlDesign row)
  {
    row.kind = ControlKind::kMenu;
    const auto around = std::ranges::find(Rows(), row.frame, &ControlDesign::name);
    const bool found = around != Rows().end();
    Need(row, found != row.frame.empty(), "the menu around it has no row before it");
    Need(row, !found || around->event == nullptr, "what is around it does not open");
    Take(row, found ? &*around : nullptr);
  }

  /// `around` is the frame or menu around it, null at the top.
  constexpr void Take(const ControlDesign& row, const ControlDesign* around)
  {
    CheckMember(row);
    CheckPlace(row, around);
    CheckEvent(row);
    CheckGroup(row);
    CheckShape(row, around);
    Need(row, count_ < rows_.size(), "there is no room for another row");
    rows_[count_++] = row;
  }

  constexpr void CheckMember(const ControlDesign& row)
  {
    const auto [places, count] = row.member;
    Need(row, places != nullptr, "it is no member of the form");
    Need(row, count == 0 ? row.index == -1 : row.index >= 0 && row.index < count,
         "its member has no such index");
    bool known = false;
    for (std::size_t at = 0; at < count_; ++at) {  // a compiler's patience with iterators is short
      const auto& other = rows_.data()[at];
      if (other.member.places != places) continue;
      known = true;
      Need(row, other.index != row.index, "it has a row already");
    }
    if (!known) places_ += static_cast<std::size_t>(std::max(count, 1));
  }

  static constexpr void CheckPlace(const ControlDesign& row, const ControlDesign* around)
  {
    const bool menu = row.kind == ControlKind::kMenu;
    Need(row, around == nullptr || (around->kind == ControlKind::kMenu) == menu,
         "menus lie in menus, and nothing else does");
    Need(row, menu ? row.place == Place{} : row.place.width > 0 && row.place.height > 0,
         "all but menus have a place");
    Need(row, row.font_size > 0, "it has no letter height");
  }

  static constexpr void CheckEvent(const ControlDesign& row)
  {
    switch (row.kind) {
      case ControlKind::kButton:
      case ControlKind::kList:
      case ControlKind::kCheck:
      case ControlKind::kOption: Need(row, row.event != nullptr, "nothing happens on it"); break;
      case ControlKind::kLabel:
      case ControlKind::kFrame:
      case ControlKind::kPicture:
        Need(row, row.event == nullptr, "nobody can press it, and it has an event");
        break;
      case ControlKind::kMenu: break;  // see Menu and MenuItem
    }
  }

  constexpr void CheckGroup(const ControlDesign& row) const
  {
    const bool entry = row.kind == ControlKind::kMenu && !row.frame.empty();
    const bool item = entry && row.event != nullptr;
    const bool option = row.kind == ControlKind::kOption;
    Need(row, row.shortcut.empty() || item || row.kind == ControlKind::kFrame,
         "only a menu item has a shortcut");
    Need(row, row.other_shortcut.empty() || !row.shortcut.empty(), "a second shortcut alone");
    Need(row, !row.exclusive || item, "only a menu item is exclusive");
    Need(row, !row.chosen_again || row.exclusive, "only an exclusive item is chosen again");
    Need(row, !row.begins_group || entry || option, "it cannot begin a group");
    Need(row,
         !option || row.begins_group ||
             (count_ > 0 && Rows().back().member.places == row.member.places),
         "an option button without a group");
  }

  static constexpr void CheckShape(const ControlDesign& row, const ControlDesign* around)
  {
    const bool label = row.kind == ControlKind::kLabel;
    const bool picture = row.kind == ControlKind::kPicture;
    const bool chart = row.shape == Shape::kChart;
    const bool list = row.kind == ControlKind::kList;
    Need(row, label || row.alignment == Alignment::kCentre, "only a label has an alignment");
    Need(row, label || list || !row.ellipsis, "only a label or a list has an ellipsis");
    Need(row, list || !row.opens_first, "only a list opens first");
    Need(row, chart == (row.chart != nullptr), "a chart, and nothing else, has a recorder");
    switch (row.shape) {
      case Shape::kOfKind: Need(row, !picture, "a picture box without a picture"); break;
      case Shape::kStepButton:
        Need(row, row.kind == ControlKind::kButton && row.index >= 0, "no button of a slot");
        break;
      case Shape::kChart:
      case Shape::kCarPicture:
      case Shape::kMarquee: Need(row, picture, "only a picture box has a picture"); break;
      case Shape::kNone:
        Need(row, around != nullptr && around->shape == Shape::kMarquee, "nothing shows it");
        break;
    }
  }

  static constexpr std::size_t kMostRows = 320;

  std::array<ControlDesign, kMostRows> rows_{};
  std::size_t count_ = 0;
  std::size_t places_ = 0;
  ControlDesign around_;
};

}  // namespace velquist::app
