// SPDX-License-Identifier: MIT
#pragma once

#include <wx/choice.h>

namespace velquist::platform {

/// What a key does to a closed list.
enum class ListKeys {
  kChoose,  ///< arrows and typed letters choose
  kOpen,    ///< they open the list, where Return chooses and Escape does not
};

/// How the user chooses from `list`. The wheel does not choose, and choosing the item that is
/// chosen already is an event like any other; but with kOpen only the mouse does so, and taking
/// that item with a key is no event.
void SetUpChoice(wxChoice& list, ListKeys keys);

/// Cuts the start of an item that is too long for the closed `list`, where the system lets it:
/// paths differ at their ends.
void CutItemsAtStart(wxChoice& list);

}  // namespace velquist::platform
