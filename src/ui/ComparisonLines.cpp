// SPDX-License-Identifier: MIT
#include "ui/ComparisonLines.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform_wx/WxText.h"

namespace velquist::ui {

using app::ComparisonRow;

bool ComparisonLines::Show(std::vector<ComparisonRow> rows)
{
  const auto lines = LinesOf(rows);
  const auto same = [](const Line& one, const Line& other) {
    return one.group == other.group && one.slot == other.slot;
  };
  std::size_t first = 0;  // of those that go and of those that come in their place
  auto gone = lines_.size();
  auto come = lines.size();
  for (; gone > 0 && come > 0 && same(lines_[first], lines[first]); --gone, --come) ++first;
  while (gone > 0 && come > 0 && same(lines_[first + gone - 1], lines[first + come - 1])) {
    --gone;
    --come;
  }
  // One by one, so that the table stays at its place. What it is told of it may ask for at once.
  const auto at = static_cast<std::ptrdiff_t>(first);
  for (std::size_t i = 0; i < gone; ++i) {
    lines_.erase(lines_.begin() + at);
    RowDeleted(static_cast<unsigned>(first));
  }
  const auto before = std::exchange(rows_, std::move(rows));
  all_differ_ = std::ranges::all_of(rows_, &ComparisonRow::differs);
  std::vector<unsigned> changed;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const auto line = i < first ? i : i + come;
    const int old = std::exchange(lines_[i], lines[line]).row;
    if (old >= 0 &&
        before[static_cast<std::size_t>(old)] != rows_[static_cast<std::size_t>(lines[line].row)])
      changed.push_back(static_cast<unsigned>(line));
  }
  for (std::size_t i = first; i < first + come; ++i) {
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(i), lines[i]);
    RowInserted(static_cast<unsigned>(i));
  }
  for (const auto line : changed) RowChanged(line);
  return gone > 0 || come > 0;
}

std::vector<ComparisonLines::Line> ComparisonLines::LinesOf(const std::vector<ComparisonRow>& rows)
{
  std::vector<Line> lines;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const auto& group = rows[row].group;
    if (row == 0 || group != rows[row - 1].group) lines.push_back({group, -1, -1});
    lines.push_back({group, static_cast<int>(row), rows[row].slot});
  }
  return lines;
}

const ComparisonRow* ComparisonLines::RowOf(unsigned line) const
{
  const int row = line < lines_.size() ? lines_[line].row : -1;
  return row < 0 ? nullptr : &rows_[static_cast<std::size_t>(row)];
}

std::vector<int> ComparisonLines::DifferingSlots(unsigned line) const
{
  if (line >= lines_.size()) return {};
  const auto* const row = RowOf(line);
  if (row == nullptr) return DifferingSlotsOfGroup(line);
  return row->differs ? std::vector{row->slot} : std::vector<int>();
}

std::vector<int> ComparisonLines::DifferingSlotsOfGroup(unsigned line) const
{
  std::vector<int> slots;
  if (line >= lines_.size()) return slots;
  for (const auto& row : rows_)
    if (row.differs && row.group == lines_[line].group) slots.push_back(row.slot);
  return slots;
}

ComparisonLines::Mark ComparisonLines::MarkOf(unsigned line) const
{
  if (line >= lines_.size()) return {};
  const auto* const row = RowOf(line);
  return {lines_[line].group, row == nullptr ? -1 : row->slot, line};
}

unsigned ComparisonLines::Find(const Mark& mark) const
{
  for (unsigned line = 0; line < lines_.size(); ++line) {
    const auto other = MarkOf(line);
    if (other.group == mark.group && other.slot == mark.slot) return line;
  }
  return std::min(mark.line, std::max(GetCount(), 1U) - 1);
}

void ComparisonLines::GetValueByRow(wxVariant& value, unsigned line, unsigned column) const
{
  const auto* const row = RowOf(line);
  if (row == nullptr) {
    const bool named = column == kParameter && line < lines_.size();
    value = named ? platform::FromText(lines_[line].group) : wxString();
    return;
  }
  const std::array<const std::string*, kColumns> texts = {&row->parameter, &row->reference,
                                                          &row->now, &row->added};
  const wxString text = platform::FromText(*texts.at(column));
  value = column == kParameter ? "    " + text : text;
}

/// What a frame is called is set off, and what differs among rows that do not.
bool ComparisonLines::GetAttrByRow(unsigned line, unsigned column, wxDataViewItemAttr& attr) const
{
  const auto* const row = RowOf(line);
  const bool difference = column == kNow || column == kAdded;
  const bool set_off = row == nullptr || (!all_differ_ && row->differs && difference);
  if (set_off) attr.SetBold(true);
  return set_off;
}

}  // namespace velquist::ui
