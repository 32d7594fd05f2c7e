// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bitmap.h>
#include <wx/dc.h>
#include <wx/window.h>

#include <memory>

namespace velquist::platform {

/// A picture that is drawn many times in the same window. It is kept by what draws the screen,
/// which may be another process: so it is sent there once.
class KeptPicture {
 public:
  KeptPicture() = default;  ///< none
  /// `window` is on the screen.
  KeptPicture(const wxWindow& window, const wxBitmap& picture);

  [[nodiscard]] bool IsOk() const { return kept_ != nullptr; }
  [[nodiscard]] double GetScaleFactor() const { return scale_; }
  void Draw(wxDC& dc, wxPoint at) const;
  /// Draws over what `window` shows; false on a system where that can be done while it paints
  /// alone.
  [[nodiscard]] bool DrawAtOnce(wxWindow& window, wxPoint at) const;

 private:
  struct Kept;

  std::shared_ptr<const Kept> kept_;
  double scale_ = 1;
};

}  // namespace velquist::platform
