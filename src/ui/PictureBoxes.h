// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/panel.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/MainForm.h"
#include "charts/PictureRecorder.h"
#include "platform_wx/WxPictureLoader.h"

namespace velquist::ui {

/// A picture box that shows what a recorder has recorded, beneath it the outlines of what the
/// reference would, and beside the pointer what both say there.
class ChartBox final : public wxWindow {
 public:
  /// The text to show for a place in the box; empty for none.
  using Read = std::function<std::string(double x, double y)>;

  /// The picture of the reference.
  using Outline = std::function<charts::PictureRecorder()>;

  ChartBox(wxWindow* parent, wxWindowID id, const wxString& name,
           const charts::PictureRecorder& picture, Read read, Outline outline);

  /// Repaints when there is another picture than the one painted last, or another reference.
  void BringInLine(const std::shared_ptr<const void>& reference);

  /// The text beside the pointer; empty when there is none.
  [[nodiscard]] const std::string& Reading() const noexcept { return reading_; }

  [[nodiscard]] bool AcceptsFocus() const override { return false; }

 private:
  void OnPaint();
  void OnPointer(std::optional<wxPoint> pointer);

  const charts::PictureRecorder& picture_;
  Read read_;
  Outline outline_;
  charts::PictureRecorder outlines_;
  std::shared_ptr<const void> reference_;  ///< that they are of
  unsigned outlined_ = 0;                  ///< version of the picture that they are for
  unsigned version_ = 0;                   ///< of the picture in `painted_`
  wxBitmap painted_;                       ///< kept beneath a reading
  std::optional<wxPoint> pointer_;
  std::string reading_;  ///< shown beside the pointer
};

/// The picture of the car, as large as the box allows, in the middle.
class CarPictureBox final : public wxPanel {
 public:
  CarPictureBox(wxWindow* parent, wxWindowID id, const wxString& name,
                platform::WxPictureLoader& pictures);

  /// Shows the picture at `path`, the built-in one when it is empty or cannot be shown.
  void ShowPicture(const std::string& path);

  [[nodiscard]] bool AcceptsFocus() const override { return false; }

 private:
  void OnPaint();

  platform::WxPictureLoader& pictures_;
  std::string path_;
  wxImage Picture2_;   ///< the picture as it was read
  wxBitmap Picture3_;  ///< the picture as it is shown
  wxSize shown_for_;   ///< the box's size in device pixels that `Picture3_` was made for
};

/// The box that the marquee runs through. It paints the quotation itself and, where the system lets
/// it, at once: a label of the toolkit's costs several times as much at every step.
class MarqueeBox final : public wxPanel {
 public:
  MarqueeBox(wxWindow* parent, wxWindowID id, const wxString& name, const app::Control& quotation);

  /// Shows the quotation's text and place as they are now.
  void BringInLine();

  /// The text shown, and its place in the box.
  [[nodiscard]] const std::string& Text() const noexcept { return text_; }
  [[nodiscard]] wxRect TextRect() const noexcept { return at_; }

  [[nodiscard]] bool AcceptsFocus() const override { return false; }

 private:
  void OnPaint();
  void OnColoursChanged();
  [[nodiscard]] const wxBitmap& Painted();

  const app::Control& quotation_;
  std::string text_;  ///< as last shown
  wxRect at_;         ///< of the quotation in the box, as last shown
  wxBitmap painted_;  ///< the quotation; none when it is to be painted anew
};

}  // namespace velquist::ui
