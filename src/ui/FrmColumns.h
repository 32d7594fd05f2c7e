// SPDX-License-Identifier: MIT
#pragma once

#include <wx/arrstr.h>
#include <wx/checklst.h>
#include <wx/dialog.h>

#include <vector>

namespace velquist::ui {

/// Asks which values are columns of the library.
class FrmColumns final : public wxDialog {
 public:
  /// `checked` are places among `names`.
  FrmColumns(wxWindow* parent, const wxArrayString& names, const std::vector<int>& checked);

  [[nodiscard]] std::vector<int> Checked() const;

 private:
  wxCheckListBox* list_;
};

}  // namespace velquist::ui
