// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>

#include <memory>
#include <vector>

#include "app/LibraryTable.h"

namespace velquist::ui {

/// The lines of the library as a native table shows them. Column numbers are those of the library.
class LibraryLines final : public wxDataViewVirtualListModel {
 public:
  explicit LibraryLines(const app::LibraryTable& table) : table_(table) {}

  /// Shows what the table has now. False when the setups are the same in the same order, and so the
  /// selection is still right.
  bool BringInLine();

  [[nodiscard]] unsigned GetCount() const override { return static_cast<unsigned>(shown_.size()); }
  [[nodiscard]] unsigned GetColumnCount() const override { return 0; }
  [[nodiscard]] wxString GetColumnType(unsigned) const override { return "string"; }
  void GetValueByRow(wxVariant& value, unsigned line, unsigned column) const override;
  bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }

 private:
  const app::LibraryTable& table_;
  std::vector<std::shared_ptr<const app::LibraryRow>> shown_;
};

}  // namespace velquist::ui
