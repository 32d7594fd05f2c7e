// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

#include <stdexcept>
#include <string>
#include <string_view>

#include "runner/Driver.h"
#include "ui/PictureBoxes.h"

/// The widgets of a window as a user sees and uses them.
namespace velquist::runner {

/// The name of a widget: with its index, unless that is negative.
[[nodiscard]] std::string NameText(std::string_view name, int index);

/// The widget of that name; throws when it is not there.
template <typename Widget = wxWindow>
Widget& Get(wxWindow* around, const std::string& name)
{
  auto* const found = wxWindow::FindWindowByName(name, around);
  auto* const widget = dynamic_cast<Widget*>(found);
  if (widget == nullptr) throw std::runtime_error("the window has no widget " + name);
  return *widget;
}

/// What the toolkit sends when the user has done something to `widget`.
void Send(wxWindow& widget, wxEventType type, int value, const wxString& text = {});

/// What the toolkit sends first when a key is pressed in `widget`.
void SendKey(wxWindow& widget, int key);

/// Presses the button of that name; throws when a user could not.
void Press(wxWindow* around, const std::string& name);

/// Chooses an item of the list of that name; throws when it has none there.
void Choose(wxWindow* around, const std::string& name, int position);

/// How the widget looks, with its place within the client area of `top`.
[[nodiscard]] SeenControl Look(const wxWindow& widget, const wxWindow* top);

/// The label that the box of the marquee paints.
[[nodiscard]] SeenControl LookAtMarquee(const ui::MarqueeBox& box, const wxWindow* top);

}  // namespace velquist::runner
