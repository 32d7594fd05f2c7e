// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/panel.h>

#include <string>

#include "app/MainForm.h"
#include "platform_wx/KeptPicture.h"
#include "platform_wx/WxPictureLoader.h"

namespace velquist::ui {

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
  void Paint(wxDC& dc, wxPoint at) const;
  [[nodiscard]] const platform::KeptPicture& Painted();

  const app::Control& quotation_;
  std::string text_;               ///< as last shown
  wxRect at_;                      ///< of the quotation in the box, as last shown
  platform::KeptPicture painted_;  ///< the quotation, once it has run
};

}  // namespace velquist::ui
