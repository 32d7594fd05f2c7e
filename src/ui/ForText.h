// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

namespace velquist::ui {

constexpr int kGap = 8;  ///< between controls, pixels at 96 dpi

/// `usual` pixels, or more where the system's text is larger than usual.
[[nodiscard]] int ForText(const wxWindow& window, int usual);
[[nodiscard]] wxSize ForText(const wxWindow& window, wxSize usual);

}  // namespace velquist::ui
