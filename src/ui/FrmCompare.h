// SPDX-License-Identifier: MIT
#pragma once

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dataview.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <string_view>
#include <vector>

#include "ui/ComparisonLines.h"
#include "ui/SideWindow.h"

namespace velquist::ui {

/// The setup beside its reference, row by row, while the user goes on in the main window. Takes
/// values from the reference, copies the table, chooses the reference.
class FrmCompare final : public SideWindow {
 public:
  explicit FrmCompare(const Setting& setting);

  void BringInLine() override;

 private:
  wxSizer* MakeReferenceRow(wxPanel* panel);
  void MakeTable(wxPanel* panel);
  wxSizer* MakeButtons(wxPanel* panel);
  void BindEvents();
  void OnKey(wxKeyEvent& event);

  void ShowReference();
  void ShowRows();
  void ShowSummary();
  void EnableButtons();
  void Choose(std::string_view item);
  [[nodiscard]] std::vector<unsigned> SelectedLines() const;
  void Select(const std::vector<ComparisonLines::Mark>& marks);
  /// The slots that differ in the selected rows, or in their frames.
  [[nodiscard]] std::vector<int> SelectedSlots(bool whole_groups) const;
  void Take(const std::vector<int>& slots);
  [[nodiscard]] bool TableHasFocus() const;
  void Copy();

  wxChoice* reference_ = nullptr;
  wxButton* file_ = nullptr;
  wxCheckBox* differences_only_ = nullptr;
  wxDataViewCtrl* table_ = nullptr;
  wxObjectDataPtr<ComparisonLines> lines_;
  wxStaticText* summary_ = nullptr;
  wxButton* take_selected_ = nullptr;
  wxButton* take_group_ = nullptr;
  wxButton* take_all_ = nullptr;
  wxButton* copy_ = nullptr;
};

}  // namespace velquist::ui
