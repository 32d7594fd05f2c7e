// SPDX-License-Identifier: MIT
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

namespace velquist::platform {

/// Finds the item of a list that begins with what is typed, key after key, without regard to letter
/// case. One letter again and again goes through the items that begin with it.
class TypeAhead {
 public:
  /// The item to go to from item `current` (-1 for none), -1 when none begins so. `milliseconds` is
  /// the time of the key; after a pause the word begins anew.
  int Type(wxChar letter, long milliseconds, const wxArrayString& items, int current);

 private:
  wxString typed_;
  long last_ = 0;  ///< time of the last key
};

}  // namespace velquist::platform
