// SPDX-License-Identifier: MIT
#include "app/Choosing.h"

#include <algorithm>

#include "platform/Errors.h"

namespace velquist::app {

void Fire(MainWindow& window, const Control& control)
{
  control.design->event(window, control.design->index);
}

void Choose(MainWindow& window, Control& list, int position)
{
  if (position < 0 || static_cast<std::size_t>(position) >= list.items.size())
    throw BoundsError("selection " + std::to_string(position));
  list.selection = position;
  list.text = list.items[static_cast<std::size_t>(position)];
  Fire(window, list);
}

bool ChooseText(MainWindow& window, Control& list, std::string_view text)
{
  const auto found = std::ranges::find(list.items, text);
  if (found == list.items.end()) {
    list.selection = -1;
    list.text.clear();
    return false;
  }
  Choose(window, list, static_cast<int>(found - list.items.begin()));
  return true;
}

void ChooseOrAdd(MainWindow& window, Control& list, const std::string& name)
{
  if (std::ranges::find(list.items, name) == list.items.end()) list.items.push_back(name);
  ChooseText(window, list, name);
}

void SetChecked(MainWindow& window, MainForm& form, Control& box, bool checked)
{
  if (box.design->kind == ControlKind::kOption) {
    for (auto& option : box.design->member.places(form)) option.checked = false;
    checked = true;
  }
  box.checked = checked;
  Fire(window, box);
}

void ChooseKept(MainWindow& window, Control& list, int saved)
{
  if (list.items.empty()) {
    list.selection = -1;
    list.text.clear();
  } else {
    Choose(window, list, KeptPosition(saved, list));
  }
}

int KeptPosition(int saved, const Control& list)
{
  return saved >= 0 && static_cast<std::size_t>(saved) < list.items.size() ? saved : 0;
}

}  // namespace velquist::app
