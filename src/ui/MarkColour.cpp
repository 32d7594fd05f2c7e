// SPDX-License-Identifier: MIT
#include "ui/MarkColour.h"

#include <wx/dataview.h>
#include <wx/settings.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "platform_wx/NativeLook.h"

namespace velquist::ui {
namespace {

constexpr double kReadable = 4.5;

/// Relative luminance of a colour of the screen.
double Luminance(const wxColour& colour)
{
  const auto linear = [](unsigned char part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.Red()) + 0.7152 * linear(colour.Green()) +
         0.0722 * linear(colour.Blue());
}

}  // namespace

double Contrast(const wxColour& one, const wxColour& other)
{
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

wxColour MarkColour(const wxColour& background)
{
  const std::array<wxColour, 3> colours = {wxColour(0, 60, 150), wxColour(150, 195, 255), *wxWHITE};
  const auto* const readable = std::ranges::find_if(
      colours, [&](const wxColour& colour) { return Contrast(colour, background) >= kReadable; });
  return readable == colours.end() ? *wxBLACK : *readable;
}

wxColour OtherRowColour(const wxColour& background)
{
  // The toolkit's own is half as bright as white text on black.
  constexpr int kDarker = 97;  // percent
  constexpr int kLighter = 115;
  return background.ChangeLightness(background.GetLuminance() > 0.5 ? kDarker : kLighter);
}

void TellRowsApart(wxDataViewCtrl& table)
{
  const auto tell = [&table] {
    table.SetAlternateRowColour(OtherRowColour(table.GetBackgroundColour()));
  };
  table.Bind(wxEVT_SYS_COLOUR_CHANGED, [tell](wxSysColourChangedEvent& event) {
    event.Skip();
    tell();
  });
  tell();
}

void SetMarked(wxWindow& window, bool marked)
{
  const wxFont font = window.GetFont();
  if (marked)
    platform::SetOwnLetters(window, font.Bold(),
                            MarkColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE)));
  else
    platform::SetOwnLetters(window, font.GetBaseFont(), wxColour());
}

}  // namespace velquist::ui
