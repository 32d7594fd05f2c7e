// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "app/MainForm.h"

/// Choosing and checking as the user does it, each with its event; for the user and for the program
/// itself.
namespace velquist::app {

/// What happens on the control. Nothing happens on a row without an event.
void Fire(MainWindow& window, const Control& control);

/// Throws BoundsError for a position outside the list.
void Choose(MainWindow& window, Control& list, int position);
/// False when the list does not have the text and nothing is chosen now.
bool ChooseText(MainWindow& window, Control& list, std::string_view text);
void ChooseOrAdd(MainWindow& window, Control& list, const std::string& name);
/// Chooses a saved position or the first one; an empty list has no selection.
void ChooseKept(MainWindow& window, Control& list, int saved);
/// A saved position, or the first one where the list is shorter.
[[nodiscard]] int KeptPosition(int saved, const Control& list);

/// An option button is always chosen, the others of its group are not any more.
void SetChecked(MainWindow& window, MainForm& form, Control& box, bool checked);

}  // namespace velquist::app
