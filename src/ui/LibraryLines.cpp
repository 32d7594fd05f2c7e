// SPDX-License-Identifier: MIT
#include "ui/LibraryLines.h"

#include <algorithm>
#include <utility>

#include "platform_wx/WxText.h"

namespace velquist::ui {

bool LibraryLines::BringInLine()
{
  std::vector<std::shared_ptr<const app::LibraryRow>> now;
  now.reserve(table_.Count());
  for (std::size_t line = 0; line < table_.Count(); ++line) now.push_back(table_.SharedAt(line));
  const bool same = std::ranges::equal(
      now, shown_, [](const auto& a, const auto& b) { return a == b || a->Path() == b->Path(); });
  const auto before = std::exchange(shown_, std::move(now));
  if (!same) {
    Reset(GetCount());
    return true;
  }
  for (unsigned line = 0; line < shown_.size(); ++line)
    if (shown_[line] != before[line]) RowChanged(line);
  return false;
}

/// The table may be ahead of what is shown.
void LibraryLines::GetValueByRow(wxVariant& value, unsigned line, unsigned column) const
{
  value = line < table_.Count() ? platform::FromText(table_.Cell(line, static_cast<int>(column)))
                                : wxString();
}

}  // namespace velquist::ui
