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
  const bool same_slots =
      std::ranges::equal(rows, rows_, {}, &ComparisonRow::slot, &ComparisonRow::slot);
  const auto before = std::exchange(rows_, std::move(rows));
  all_differ_ = std::ranges::all_of(rows_, &ComparisonRow::differs);
  if (same_slots) {
    for (unsigned line = 0; line < lines_.size(); ++line) {
      const int row = lines_[line].row;
      if (row < 0) continue;
      const auto at = static_cast<std::size_t>(row);
      if (before[at] != rows_[at]) RowChanged(line);
    }
    return false;
  }
  lines_.clear();
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (row == 0 || rows_[row].group != rows_[row - 1].group)
      lines_.push_back({rows_[row].group, -1});
    lines_.push_back({rows_[row].group, static_cast<int>(row)});
  }
  Reset(GetCount());
  return true;
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
