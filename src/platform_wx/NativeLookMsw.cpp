// SPDX-License-Identifier: MIT
#include <wx/gdicmn.h>
#include <wx/msw/wrapwin.h>

#include <algorithm>
#include <map>
#include <utility>

#include "platform_wx/NativeLook.h"

namespace velquist::platform {
namespace {

void AddStyle(const wxWindow& control, LONG_PTR style)
{
  const HWND window = control.GetHWND();
  ::SetWindowLongPtrW(window, GWL_STYLE, ::GetWindowLongPtrW(window, GWL_STYLE) | style);
}

/// Has `control` paint itself where a frame lies over it. Whether it did not before.
bool PaintUnderFrames(const wxWindow& control)
{
  const HWND window = control.GetHWND();
  const LONG_PTR style = ::GetWindowLongPtrW(window, GWL_STYLE);
  if ((style & WS_CLIPSIBLINGS) == 0) return false;
  ::SetWindowLongPtrW(window, GWL_STYLE, style & ~LONG_PTR{WS_CLIPSIBLINGS});
  return true;
}

bool IsFrame(const wxWindow& control)
{
  return dynamic_cast<const wxStaticBox*>(&control) != nullptr;
}

class LabelledFrame final : public wxStaticBox {
 public:
  LabelledFrame(wxWindow* parent, wxWindowID id, const wxString& name)
      : wxStaticBox(parent, id, wxString(), wxDefaultPosition, wxSize(1, 1), 0, name)
  {
  }

  /// Where it paints over what stands in it: without a label, no more than its line, which the
  /// system puts in the middle of one.
  void GetBordersForSizer(int* top, int* other) const override
  {
    constexpr int kLine = 2;
    wxStaticBox::GetBordersForSizer(top, other);
    if (GetLabel().empty()) *top = GetCharHeight() / 2 + kLine;
  }

 protected:
  /// As the toolkit does, but without asking the system for each neighbour: all are the toolkit's
  /// own, and none is a frame that lies in this one.
  WXHRGN MSWGetRegionWithoutChildren() override
  {
    RECT own;
    ::GetWindowRect(GetHWND(), &own);
    HRGN const region = ::CreateRectRgn(own.left, own.top, own.right + 1, own.bottom + 1);
    for (const wxWindow* const each : GetParent()->GetChildren()) {
      if (IsFrame(*each)) continue;
      const HWND neighbour = each->GetHWND();
      RECT place;
      if (!::IsWindowVisible(neighbour) || !::GetWindowRect(neighbour, &place) ||
          !::RectInRegion(region, &place))
        continue;
      if (PaintUnderFrames(*each))
        ::SetWindowPos(neighbour, nullptr, 0, 0, 0, 0,
                       SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
      HRGN const covered = ::CreateRectRgnIndirect(&place);
      ::CombineRgn(region, region, covered, RGN_DIFF);
      ::DeleteObject(covered);
    }
    return region;
  }
};

}  // namespace

wxString LetterFace(const wxString& face)
{
  return face;
}

wxFont LetterFont(const wxDC& dc, const wxString& face, double pixels)
{
  constexpr double kPointsPerInch = 72;
  return wxFont(wxFontInfo(pixels * kPointsPerInch / dc.GetPPI().y).FaceName(face));
}

wxFont ControlFont(const wxString& face, int pixels)
{
  // A font that is another is compared with the one that a control has, and the system's display is
  // asked for its resolution each time.
  static std::map<std::pair<wxString, int>, wxFont> fonts;
  const auto [found, first] = fonts.try_emplace({face, pixels});
  if (first) found->second = wxFont(wxFontInfo(wxSize(0, pixels)).FaceName(face));
  return found->second;
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

void ExpectLetters(wxWindow& panel, const wxFont& font)
{
  panel.SetFont(font);
}

void SetLetters(wxWindow& control, const wxFont& font)
{
  if (dynamic_cast<wxChoice*>(&control) == nullptr) {
    control.SetFont(font);
    return;
  }
  const wxRect place = control.GetRect();
  if (!control.SetFont(font)) return;
  control.SetSize(place, wxSIZE_FORCE);  // it has taken its height from the letters
  control.Refresh();
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

void ChangeButtonsAtOnce(wxTopLevelWindow&)
{
  // The system's buttons paint themselves beside what the program does.
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

wxStaticBox* MakeFrame(wxWindow* parent, wxWindowID id, const wxString& name)
{
  auto* const frame = new LabelledFrame(parent, id, name);
  AddStyle(*frame, WS_CLIPSIBLINGS);  // it fills its inside without regard to what is above it
  return frame;
}

void AllowCutLabel(wxWindow&)
{
  // Labels are always cut at the control's edge.
}

void PutBehindSiblings(wxWindow& frame)
{
  // Before anything is shown, where it is no more than a mark: later each would be laid out anew.
  for (const wxWindow* const each : frame.GetParent()->GetChildren())
    if (each != &frame && !IsFrame(*each)) PaintUnderFrames(*each);
}

void KeepSiblingsOff(const wxWindow& window, const wxRect& place)
{
  // The toolkit's frames take the style from their neighbours that would say so.
  for (const wxWindow* const each : window.GetParent()->GetChildren()) {
    if (each == &window) continue;
    const HWND sibling = each->GetHWND();
    const wxRect own = each->GetRect();
    if (!own.Intersects(place)) {
      RECT had;
      if (::GetWindowRgnBox(sibling, &had) != ERROR) ::SetWindowRgn(sibling, nullptr, TRUE);
      continue;
    }
    const wxRect covered = place.Intersect(own);
    HRGN const left = ::CreateRectRgn(0, 0, own.width, own.height);
    HRGN const out =
        ::CreateRectRgn(covered.GetLeft() - own.x, covered.GetTop() - own.y,
                        covered.GetRight() + 1 - own.x, covered.GetBottom() + 1 - own.y);
    ::CombineRgn(left, left, out, RGN_DIFF);
    ::DeleteObject(out);
    ::SetWindowRgn(sibling, left, TRUE);  // which owns it now
  }
}

void CentreVertically(wxStaticText& label)
{
  AddStyle(label, SS_CENTERIMAGE);
}

void SetMnemonicTarget(wxStaticText&, wxWindow&)
{
  // The system goes to the control behind the label.
}

void SetItems(wxChoice& list, const wxArrayString& items)
{
  if (list.IsEmpty())
    list.Append(items);  // nothing is to be cleared, for which it would be laid out once more
  else
    list.Set(items);
}

}  // namespace velquist::platform
