// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>

#include <string_view>
#include <vector>

#include "app/ComparisonTable.h"

namespace velquist::ui {

/// The lines of the comparison as a native table shows them: those of a frame beneath a line that
/// names it.
class ComparisonLines final : public wxDataViewVirtualListModel {
 public:
  enum Column : unsigned { kParameter, kReference, kNow, kAdded, kColumns };

  /// Shows these rows. False when the lines are still those of the same slots, and so the table's
  /// selection is still right.
  bool Show(std::vector<app::ComparisonRow> rows);

  /// The slots of a line that differ: its own, or those of its frame.
  [[nodiscard]] std::vector<int> DifferingSlots(unsigned line) const;
  /// The same of the line's whole frame.
  [[nodiscard]] std::vector<int> DifferingSlotsOfGroup(unsigned line) const;
  /// Tells a line from all others, and finds it again among other lines; its own number where it is
  /// gone, or the last one.
  struct Mark {
    std::string_view group;
    int slot = -1;  ///< -1 for the line that names the frame
    unsigned line = 0;
  };
  [[nodiscard]] Mark MarkOf(unsigned line) const;
  [[nodiscard]] unsigned Find(const Mark& mark) const;

  [[nodiscard]] const std::vector<app::ComparisonRow>& Rows() const noexcept { return rows_; }

  [[nodiscard]] unsigned GetCount() const override { return static_cast<unsigned>(lines_.size()); }
  [[nodiscard]] unsigned GetColumnCount() const override { return kColumns; }
  [[nodiscard]] wxString GetColumnType(unsigned) const override { return "string"; }
  void GetValueByRow(wxVariant& value, unsigned line, unsigned column) const override;
  bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }
  bool GetAttrByRow(unsigned line, unsigned column, wxDataViewItemAttr& attr) const override;

 private:
  struct Line {
    std::string_view group;
    int row = -1;   ///< of `rows_`; -1 for the line that names the frame
    int slot = -1;  ///< of the row
  };

  [[nodiscard]] static std::vector<Line> LinesOf(const std::vector<app::ComparisonRow>& rows);
  [[nodiscard]] const app::ComparisonRow* RowOf(unsigned line) const;

  std::vector<app::ComparisonRow> rows_;
  std::vector<Line> lines_;
  bool all_differ_ = true;
};

}  // namespace velquist::ui
