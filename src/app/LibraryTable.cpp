// SPDX-License-Identifier: MIT
#include "app/LibraryTable.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <utility>

#include "platform/LetterCase.h"

namespace velquist::app {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsIn(std::string_view text, std::string_view word)
{
  return text.find(word) != std::string_view::npos;
}

int CompareValues(const LibraryValue& a, const LibraryValue& b)
{
  if (!a.number || !b.number)
    return static_cast<int>(!a.number.has_value()) - static_cast<int>(!b.number.has_value());
  return static_cast<int>(*a.number > *b.number) - static_cast<int>(*a.number < *b.number);
}

}  // namespace

LibraryFilter::LibraryFilter(std::string_view text)
{
  for (;;) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    if (text.empty()) return;
    const auto word = text.substr(0, text.find_first_of(kBlanks));
    text.remove_prefix(word.size());
    const auto colon = word.find(':');
    const auto column =
        colon == std::string_view::npos ? std::nullopt : LibraryColumnOf(word.substr(0, colon));
    words_.push_back({platform::FoldCase(column ? word.substr(colon + 1) : word), column});
  }
}

bool LibraryFilter::Admits(const LibraryRow& row, std::string_view folded_values) const
{
  return std::ranges::all_of(words_, [&](const Word& word) {
    if (word.column) return IsIn(row.FoldedCell(*word.column), word.folded);
    return IsIn(row.Folded(), word.folded) || IsIn(folded_values, word.folded);
  });
}

void LibraryTable::SetRows(LibraryRows rows)
{
  std::unordered_map<const LibraryRow*, Line*> before;
  if (!slots_.empty())
    for (auto& line : lines_) before.emplace(line.row.get(), &line);
  std::vector<Line> lines;
  lines.reserve(rows.size());
  problems_ = 0;
  for (auto& row : rows) {
    if (row->Setup().problem) ++problems_;
    if (const auto same = before.find(row.get()); same != before.end())
      lines.push_back(std::move(*same->second));
    else
      lines.push_back({.row = std::move(row)});
  }
  lines_ = std::move(lines);
  values_done_ = 0;
  Arrange();
}

void LibraryTable::SetFilter(std::string_view text)
{
  filter_text_ = text;
  filter_ = LibraryFilter(text);
  Narrow();
}

void LibraryTable::SortBy(Order order)
{
  std::erase_if(orders_, [&](const Order& other) { return other.column == order.column; });
  orders_.push_back(order);
  Sort();
  Narrow();
}

void LibraryTable::Unsort()
{
  orders_.clear();
  Arrange();
}

void LibraryTable::Heading_Click(int column)
{
  const auto now = SortedBy();
  SortBy({column, now && now->column == column && !now->descending});
}

std::optional<LibraryTable::Order> LibraryTable::SortedBy() const
{
  return orders_.empty() ? std::nullopt : std::optional(orders_.back());
}

void LibraryTable::SetValueSlots(std::vector<int> slots)
{
  slots_ = std::move(slots);
  std::erase_if(orders_, [&](const Order& order) {
    return order.column >= kFirstValueColumn && !ValueAt(order.column);
  });
  for (auto& line : lines_) line = {.row = std::move(line.row)};
  values_done_ = 0;
  Arrange();
}

std::vector<int> LibraryTable::Columns() const
{
  std::vector<int> columns(kProblemColumn);
  std::iota(columns.begin(), columns.end(), 0);
  for (const int slot : slots_) columns.push_back(kFirstValueColumn + slot);
  columns.push_back(kProblemColumn);
  return columns;
}

std::optional<std::size_t> LibraryTable::NextWithoutValues()
{
  if (slots_.empty()) return std::nullopt;
  while (values_done_ < lines_.size() && lines_[values_done_].has_values) ++values_done_;
  return values_done_ < lines_.size() ? std::optional(values_done_) : std::nullopt;
}

void LibraryTable::SetValues(std::size_t number, std::vector<LibraryValue> values)
{
  auto& line = lines_.at(number);
  line.has_values = true;
  line.values = std::move(values);
  line.folded_values.clear();
  for (const auto& value : line.values) line.folded_values += platform::FoldCase(value.text) + '\n';
}

void LibraryTable::Arrange()
{
  Sort();
  Narrow();
}

void LibraryTable::Sort()
{
  sorted_.resize(lines_.size());
  std::iota(sorted_.begin(), sorted_.end(), std::size_t{0});
  if (orders_.empty()) return;
  std::ranges::stable_sort(sorted_, [this](std::size_t a, std::size_t b) {
    for (auto order = orders_.rbegin(); order != orders_.rend(); ++order) {
      const int compared = Compare(lines_[a], lines_[b], order->column);
      if (compared != 0) return order->descending ? compared > 0 : compared < 0;
    }
    return false;
  });
}

void LibraryTable::Narrow()
{
  shown_.clear();
  for (const auto number : sorted_) {
    const auto& line = lines_[number];
    if (filter_.Admits(*line.row, line.folded_values)) shown_.push_back(number);
  }
}

std::optional<std::size_t> LibraryTable::ValueAt(int column) const
{
  const auto found = std::ranges::find(slots_, column - kFirstValueColumn);
  if (column < kFirstValueColumn || found == slots_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - slots_.begin());
}

int LibraryTable::Compare(const Line& a, const Line& b, int column) const
{
  if (column < kFirstValueColumn) return CompareInColumn(*a.row, *b.row, column);
  const auto at = ValueAt(column);
  static const LibraryValue kNone;
  const auto value = [&](const Line& line) -> const LibraryValue& {
    return at && *at < line.values.size() ? line.values[*at] : kNone;
  };
  return CompareValues(value(a), value(b));
}

const std::string& LibraryTable::Cell(std::size_t line, int column) const
{
  static const std::string kNone;
  const auto& shown = lines_.at(shown_.at(line));
  if (column < kFirstValueColumn) return shown.row->Cell(column);
  const auto at = ValueAt(column);
  return at && *at < shown.values.size() ? shown.values[*at].text : kNone;
}

std::optional<std::size_t> LibraryTable::Find(std::string_view path) const
{
  const auto found = std::ranges::find(
      shown_, path, [this](std::size_t number) { return std::string_view(RowAt(number).Path()); });
  if (found == shown_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - shown_.begin());
}

}  // namespace velquist::app
