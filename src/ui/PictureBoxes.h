// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bitmap.h>
#include <wx/panel.h>

#include <string>

#include "app/PictureRecorder.h"
#include "platform/wx/WxPictureLoader.h"

namespace velquist::ui {

/// A picture box that shows what a recorder has recorded.
class ChartBox final : public wxWindow {
 public:
  ChartBox(wxWindow* parent, wxWindowID id, const wxString& name,
           const app::PictureRecorder& picture);

  /// Repaints when there is another picture than the one painted last.
  void BringInLine();

 private:
  void OnPaint();

  const app::PictureRecorder& picture_;
  unsigned version_ = 0;  ///< of the picture painted last
};

/// The picture of the car, as large as the box allows without more than doubling it.
class CarPictureBox final : public wxPanel {
 public:
  CarPictureBox(wxWindow* parent, wxWindowID id, const wxString& name,
                platform::WxPictureLoader& pictures);

  /// Shows the picture at `path`, the built-in one when it is empty or cannot be shown.
  void ShowPicture(const std::string& path);

 private:
  void OnPaint();

  platform::WxPictureLoader& pictures_;
  std::string path_;
  wxBitmap scaled_;
  wxSize scaled_for_;  ///< the box's size in device pixels that `scaled_` was made for
};

/// The box that the marquee runs through.
class MarqueeBox final : public wxPanel {
 public:
  MarqueeBox(wxWindow* parent, wxWindowID id, const wxString& name);
};

}  // namespace velquist::ui
