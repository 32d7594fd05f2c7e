// SPDX-License-Identifier: MIT
#include <wx/gdicmn.h>
#include <wx/msw/wrapwin.h>

#include <algorithm>

#include "platform_wx/NativeLook.h"

namespace velquist::platform {
wxString LetterFace(const wxString& face)
{
  return face;
}

wxFont LetterFont(const wxString& face, double pixels)
{
  constexpr double kPointsPerInch = 72;
  return wxFont(wxFontInfo(pixels * kPointsPerInch / wxGetDisplayPPI().y).FaceName(face));
}

wxFont ControlFont(const wxString& face, int pixels)
{
  return wxFont(wxFontInfo(wxSize(0, pixels)).FaceName(face));
}

double TextScale(const wxWindow& window)
{
  constexpr double kUsualResolution = 96;
  constexpr DWORD kUsualPercent = 100;
  DWORD percent = kUsualPercent;
  DWORD size = sizeof percent;
  // It stays as it is where the system has no such setting.
  (void)::RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Accessibility", L"TextScaleFactor",
                       RRF_RT_REG_DWORD, nullptr, &percent, &size);
  const double set = static_cast<double>(std::max(percent, kUsualPercent)) / kUsualPercent;
  return std::max(window.GetDPI().y / kUsualResolution * set, 1.0);
}

void SetLetters(wxWindow& control, const wxFont& font)
{
  control.SetFont(font);
}

void SetOwnLetters(wxWindow& control, const wxFont& font, const wxColour& colour)
{
  control.SetForegroundColour(colour);
  control.SetFont(font);
  control.Refresh();  // the colour alone has nothing painted
}

int TenthsOfMillimeter(const wxWindow& text, int pixels)
{
  constexpr int kTenthsPerInch = 254;
  return pixels * kTenthsPerInch / text.GetDPI().x;
}

void AllowSmallControls(wxWindow&)
{
  // Controls have any size here.
}

void SetFirstClientSize(wxTopLevelWindow& window, wxSize size)
{
  window.SetClientSize(size);
}

bool HasLostFocus(const wxWindow& window)
{
  auto* const focused = wxWindow::FindFocus();
  return focused == nullptr || (window.IsDescendant(focused) &&
                                (!focused->IsShownOnScreen() || !focused->AcceptsFocus()));
}

bool PaintsAtOnce()
{
  return true;
}

wxStaticBox* MakeFrame(wxWindow* parent, wxWindowID id, const wxString& name)
{
  return new wxStaticBox(parent, id, wxString(), wxDefaultPosition, wxSize(1, 1), 0, name);
}

void AllowCutLabel(wxWindow&)
{
  // Labels are always cut at the control's edge.
}

void PutBehindSiblings(wxWindow&)
{
  // What was made first is behind the others already.
}

void CentreVertically(wxStaticText& label)
{
  const HWND window = label.GetHWND();
  ::SetWindowLongPtrW(window, GWL_STYLE, ::GetWindowLongPtrW(window, GWL_STYLE) | SS_CENTERIMAGE);
}

void SetMnemonicTarget(wxStaticText&, wxWindow&)
{
  // The system goes to the control behind the label.
}

void SetItems(wxChoice& list, const wxArrayString& items)
{
  list.Set(items);
}

}  // namespace velquist::platform
