// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace velquist::cli {

enum class Align { kLeft, kRight };

/// Rows of texts in columns that are as wide as their longest text, two blanks apart.
class TextTable {
 public:
  explicit TextTable(std::vector<Align> columns) : columns_(std::move(columns)) {}
  /// Cells that are left out at the end are empty.
  void Add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
  void Write(std::ostream& out, std::string_view indent) const;

 private:
  std::vector<Align> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace velquist::cli
