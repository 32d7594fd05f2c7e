// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

namespace velquist::ui {

/// A dot that is there while the setup has changes that are not saved. Hidden at first.
class UnsavedMark final : public wxWindow {
 public:
  explicit UnsavedMark(wxWindow* parent);

  [[nodiscard]] bool AcceptsFocus() const override { return false; }

 private:
  void OnPaint();
};

}  // namespace velquist::ui
