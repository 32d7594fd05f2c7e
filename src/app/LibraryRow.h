// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "library/Row.h"

namespace velquist::app {

/// What a column of the library shows: one of these, or from kFirstValueColumn on the value of a
/// parameter slot.
enum LibraryColumn : int {
  kFileColumn,
  kTrackColumn,
  kPlayerColumn,
  kInstallationColumn,
  kYearColumn,
  kChassisColumn,
  kFormulaColumn,
  kDateColumn,
  kProblemColumn,
  kFirstValueColumn
};
inline constexpr std::size_t kPlainColumns = kFirstValueColumn;

/// "Track". Of plain columns alone.
[[nodiscard]] std::string_view LibraryHeading(int column);

/// The plain column of that name, letter case not counting.
[[nodiscard]] std::optional<int> LibraryColumnOf(std::string_view name);

/// A setup of the library. It never changes: one whose file has changed is another row.
class LibraryRow {
 public:
  /// `installation` is the one below whose Players directory it was found.
  LibraryRow(library::Row setup, std::string installation);

  [[nodiscard]] const library::Row& Setup() const noexcept { return setup_; }
  [[nodiscard]] const std::string& Path() const noexcept { return setup_.file.path; }
  [[nodiscard]] const std::string& Installation() const { return Cell(kInstallationColumn); }

  /// Of a plain column.
  [[nodiscard]] const std::string& Cell(int column) const
  {
    return cells_.at(static_cast<std::size_t>(column));
  }
  /// The same in small letters.
  [[nodiscard]] std::string_view FoldedCell(int column) const;
  /// All of those, with line feeds between them.
  [[nodiscard]] const std::string& Folded() const noexcept { return folded_; }

 private:
  library::Row setup_;
  std::array<std::string, kPlainColumns> cells_;
  std::string folded_;
  std::array<std::size_t, kPlainColumns + 1> starts_{};  ///< of the cells in `folded_`, and its end
};

using LibraryRows = std::vector<std::shared_ptr<const LibraryRow>>;

/// Below, equal to or above 0 as `a` comes before `b` in a column. What is not known comes last.
[[nodiscard]] int CompareInColumn(const LibraryRow& a, const LibraryRow& b, int column);

}  // namespace velquist::app
