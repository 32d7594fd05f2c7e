// SPDX-License-Identifier: MIT
#include "ui/ForText.h"

#include <cmath>

#include "platform_wx/NativeLook.h"

namespace velquist::ui {

int ForText(const wxWindow& window, int usual)
{
  return static_cast<int>(std::lround(usual * platform::TextScale(window)));
}

wxSize ForText(const wxWindow& window, wxSize usual)
{
  return {ForText(window, usual.x), ForText(window, usual.y)};
}

}  // namespace velquist::ui
