// SPDX-License-Identifier: MIT
#pragma once

#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/notebook.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <array>
#include <string_view>

#include "app/GearingTable.h"
#include "ui/GearingChartBox.h"
#include "ui/SideWindow.h"

namespace velquist::ui {

/// The car's gears while the user goes on in the main window: thrust and engine speed against road
/// speed, the table of gears, and what the numbers show. Plus and minus step the selected gear.
class FrmGearing final : public SideWindow {
 public:
  explicit FrmGearing(const Setting& setting);

  void BringInLine() override;

  /// What is shown; that of the last time while the window is closed.
  [[nodiscard]] const app::GearingView& View() const noexcept { return view_; }

 private:
  void MakeCharts(wxPanel* panel);
  void MakeTable(wxPanel* panel);
  wxSizer* MakeButtons(wxPanel* panel);
  void BindEvents();
  void OnKey(wxKeyEvent& event);
  /// Letters grow with the window.
  void ScaleLetters();

  void FitTable();
  void ShowRows();
  void ShowRemarks();
  void MoveCursor(double speed);
  /// Shows `text` in the line under the charts and has it spoken.
  void Say(std::string_view text);
  void StepGear(std::string_view button);
  [[nodiscard]] GearingChartBox& ShownChart() const;

  wxPanel* panel_ = nullptr;
  wxStaticText* heading_ = nullptr;
  wxNotebook* pages_ = nullptr;
  std::array<GearingChartBox*, 2> charts_{};
  wxStaticText* reading_ = nullptr;
  wxDataViewListCtrl* table_ = nullptr;
  wxTextCtrl* remarks_ = nullptr;
  app::GearingInput input_;  ///< that `view_` was made from
  app::GearingView view_;
  double cursor_ = 0;          ///< road speed, mph or km/h
  bool reads_cursor_ = false;  ///< the line under the charts says what there is at the cursor
  int letters_ = 0;            ///< pixels
};

}  // namespace velquist::ui
