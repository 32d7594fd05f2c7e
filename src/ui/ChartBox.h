// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bitmap.h>
#include <wx/window.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/MainWindow.h"

namespace velquist::ui {

/// What a chart shows in a picture of some size, pixels.
struct ChartSource {
  const charts::PictureRecorder* recorded = nullptr;  ///< in the size of its box
  wxSize designed;  ///< of the box at which letters have their usual height
  std::function<charts::PictureRecorder(double width, double height)> picture;
  /// The picture of the reference.
  std::function<charts::PictureRecorder(double width, double height)> outlines;
  /// The text to show for a place in the picture; empty for none.
  std::function<std::string(double width, double height, double x, double y)> read;
};

/// The source of the row `chart`; `window` outlives it.
[[nodiscard]] ChartSource SourceOf(const app::MainWindow& window, const app::ControlDesign& chart);

/// A picture box that shows a chart, beneath it the outlines of what the reference would, and a
/// cross hair with what both say there: at the pointer, or where the keys have moved it. In a box
/// larger than designed the chart is enlarged with its letters.
class ChartBox final : public wxWindow {
 public:
  ChartBox(wxWindow* parent, wxWindowID id, const wxString& name, ChartSource source);

  /// Repaints when there is another picture than the one painted last, or another reference.
  void BringInLine(const std::shared_ptr<const void>& reference);

  /// Where the cross hair is; nothing without one.
  [[nodiscard]] std::optional<wxPoint> CrossHair() const;
  /// The text beside it; empty when there is none.
  [[nodiscard]] const std::string& Reading() const noexcept { return reading_; }
  /// How much the picture shown is enlarged.
  [[nodiscard]] double Zoom() const;

 private:
  void OnPaint();
  void Draw(wxDC& dc) const;
  const wxBitmap& Painted();
  void OnPointer(std::optional<wxPoint> pointer);
  void OnKey(wxKeyEvent& event);
  void OnFocus(bool has_focus);
  void Read();
  /// Of the picture as it is drawn before it is enlarged.
  [[nodiscard]] wxRealPoint PictureSize() const;
  /// The plot box as it is shown.
  [[nodiscard]] wxRect Plot() const;

  ChartSource source_;
  std::shared_ptr<const void> reference_;  ///< that the picture painted last was made with
  unsigned version_ = 0;                   ///< of the picture painted last
  wxBitmap painted_;                       ///< kept beneath a cross hair
  std::optional<wxPoint> pointer_;
  std::optional<wxPoint> keyed_;  ///< where the keys have moved it, while the box has the focus
  std::string reading_;           ///< shown beside the cross hair
};

}  // namespace velquist::ui
