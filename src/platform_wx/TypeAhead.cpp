// SPDX-License-Identifier: MIT
#include "platform_wx/TypeAhead.h"

namespace velquist::platform {
namespace {

constexpr long kPause = 1000;  ///< milliseconds after which a word begins anew

/// The first item from `start` on, and then from the first one, that begins with `word`.
int FindFrom(int start, const wxString& word, const wxArrayString& items)
{
  const int count = static_cast<int>(items.size());
  for (int step = 0; step < count; ++step) {
    const int at = (start + step) % count;
    if (items[static_cast<std::size_t>(at)].Lower().StartsWith(word)) return at;
  }
  return -1;
}

}  // namespace

int TypeAhead::Type(wxChar letter, long milliseconds, const wxArrayString& items, int current)
{
  if (milliseconds - last_ > kPause) typed_.clear();
  last_ = milliseconds;
  const wxString lower = wxString(letter).Lower();
  typed_ += lower;
  // A word may go on in the item that it has come to.
  if (typed_.length() > 1) {
    const int found = FindFrom(current < 0 ? 0 : current, typed_, items);
    if (found >= 0 || typed_ != wxString(lower[0], typed_.length())) return found;
  }
  return FindFrom(current + 1, lower, items);
}

}  // namespace velquist::platform
