// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/LibraryRow.h"

namespace velquist::app {

/// A value of a setup as the main window would show it.
struct LibraryValue {
  std::string text;              ///< empty where the setup has none
  std::optional<double> number;  ///< that it is sorted by
  friend bool operator==(const LibraryValue&, const LibraryValue&) = default;
};

/// The words that narrow the library. Each must occur in a cell of a row, letter case not counting;
/// "year:1967" in that column's cell. What stands before a colon and is no plain column's name is a
/// part of its word.
class LibraryFilter {
 public:
  LibraryFilter() = default;
  explicit LibraryFilter(std::string_view text);

  /// `folded_values` are the texts of added columns in small letters, with line feeds between them.
  [[nodiscard]] bool Admits(const LibraryRow& row, std::string_view folded_values) const;

 private:
  struct Word {
    std::string folded;
    std::optional<int> column;
  };
  std::vector<Word> words_;
};

/// The setups of the library as they are sorted and filtered, with the values that the user wants
/// to see. At first they stand in the order that they are given in.
class LibraryTable {
 public:
  /// Takes other rows. Values of rows that stay are kept.
  void SetRows(LibraryRows rows);
  [[nodiscard]] std::size_t RowCount() const noexcept { return lines_.size(); }
  [[nodiscard]] std::size_t ProblemCount() const noexcept { return problems_; }

  void SetFilter(std::string_view text);
  [[nodiscard]] const std::string& Filter() const noexcept { return filter_text_; }

  struct Order {
    int column = 0;
    bool descending = false;
    friend bool operator==(const Order&, const Order&) = default;
  };
  /// Rows that are equal in the column stay in the order that they are in.
  void SortBy(Order order);
  /// In the order that they were given in.
  void Unsort();
  /// By the column, or the other way where the rows are sorted by it already.
  void Heading_Click(int column);
  /// What the rows are sorted by; nothing for the order that they were given in.
  [[nodiscard]] std::optional<Order> SortedBy() const;

  /// The parameter slots whose values are columns. All values are missing then.
  void SetValueSlots(std::vector<int> slots);
  [[nodiscard]] const std::vector<int>& ValueSlots() const noexcept { return slots_; }
  /// All columns from the left to the right, the problem last.
  [[nodiscard]] std::vector<int> Columns() const;
  /// The next row, by number, whose values are missing; nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> NextWithoutValues();
  [[nodiscard]] const LibraryRow& RowAt(std::size_t number) const { return *lines_.at(number).row; }
  /// One value for each slot. They are sorted and filtered by at the next Arrange().
  void SetValues(std::size_t number, std::vector<LibraryValue> values);

  /// Sorts and filters anew.
  void Arrange();

  /// The rows shown.
  [[nodiscard]] std::size_t Count() const noexcept { return shown_.size(); }
  [[nodiscard]] const LibraryRow& At(std::size_t line) const { return RowAt(shown_.at(line)); }
  /// The same to keep; null behind the last line.
  [[nodiscard]] std::shared_ptr<const LibraryRow> SharedAt(std::size_t line) const
  {
    return line < Count() ? lines_.at(shown_.at(line)).row : nullptr;
  }
  [[nodiscard]] const std::string& Cell(std::size_t line, int column) const;
  /// The line of the setup with that path.
  [[nodiscard]] std::optional<std::size_t> Find(std::string_view path) const;

 private:
  struct Line {
    std::shared_ptr<const LibraryRow> row{};
    bool has_values = false;
    std::vector<LibraryValue> values{};
    std::string folded_values{};
  };

  void Sort();
  void Narrow();
  [[nodiscard]] int Compare(const Line& a, const Line& b, int column) const;
  /// Place of a column's slot among those shown; nothing for a plain column and one not shown.
  [[nodiscard]] std::optional<std::size_t> ValueAt(int column) const;

  std::vector<Line> lines_;
  std::size_t problems_ = 0;
  std::size_t values_done_ = 0;  ///< all before it have values
  std::vector<int> slots_;
  std::vector<Order> orders_;  ///< the last one counts first
  std::vector<std::size_t> sorted_;
  std::vector<std::size_t> shown_;
  std::string filter_text_;
  LibraryFilter filter_;
};

}  // namespace velquist::app
