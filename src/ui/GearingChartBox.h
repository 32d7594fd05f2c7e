// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bitmap.h>
#include <wx/window.h>

#include <functional>
#include <optional>
#include <string>

#include "app/GearingTable.h"
#include "charts/PictureRecorder.h"

namespace velquist::ui {

/// One chart of the gearing, as large as its window, with a cursor at a road speed that the arrow
/// keys move, and beside cursor or pointer what there is at that speed.
class GearingChartBox final : public wxWindow {
 public:
  /// The user wants the cursor at that speed, which may lie outside the chart.
  using Moved = std::function<void(double speed)>;

  GearingChartBox(wxWindow* parent, const wxString& name, app::GearingChart chart, Moved moved);

  /// Shows `view`, which stays where it is while it is shown.
  void ShowView(const app::GearingView& view);
  void ShowCursor(double speed);

  /// The picture as recorded for the size of the box.
  [[nodiscard]] const charts::PictureRecorder& Recorded();
  [[nodiscard]] wxBitmap Painted();

  /// What stands beside the pointer, else at the cursor while the box has the focus; else empty.
  [[nodiscard]] std::string Reading() const;

 private:
  [[nodiscard]] charts::PlotBox Plot() const;
  /// The road speed that the cursor is at.
  [[nodiscard]] double Cursor() const noexcept { return cursor_.value_or(0); }
  /// The road speed that the pointer is at.
  [[nodiscard]] std::optional<double> PointedSpeed() const;
  void OnPaint();
  void OnPointer(std::optional<wxPoint> pointer);
  void OnKey(wxKeyEvent& event);

  app::GearingChart chart_;
  Moved moved_;
  const app::GearingView* view_ = nullptr;
  charts::PictureRecorder recorded_;
  bool is_recorded_ = false;      ///< for the size that the box has had
  wxBitmap painted_;              ///< what is recorded; none where it is to be painted anew
  std::optional<double> cursor_;  ///< where it was moved to
  std::optional<wxPoint> pointer_;
};

}  // namespace velquist::ui
