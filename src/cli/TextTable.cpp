// SPDX-License-Identifier: MIT
#include "cli/TextTable.h"

#include <algorithm>
#include <cstddef>
#include <ostream>

namespace velquist::cli {
namespace {

/// In characters, of UTF-8.
std::size_t WidthOf(std::string_view text)
{
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

}  // namespace

void TextTable::Write(std::ostream& out, std::string_view indent) const
{
  std::vector<std::size_t> widths(columns_.size());
  for (const auto& row : rows_)
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], WidthOf(row[i]));
  for (const auto& row : rows_) {
    std::string line(indent);
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string gap(widths[i] - WidthOf(row[i]), ' ');
      line += columns_[i] == Align::kRight ? gap + row[i] : row[i] + gap;
      line += "  ";
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  }
}

}  // namespace velquist::cli
