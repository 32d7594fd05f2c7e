// SPDX-License-Identifier: MIT
#include <wx/access.h>
#include <wx/msw/wrapwin.h>

#include "platform_wx/NativeLook.h"

namespace velquist::platform {
namespace {

/// Adds a name and a description to what the system tells about a control.
class Spoken final : public wxAccessible {
 public:
  explicit Spoken(wxWindow* window) : wxAccessible(window) {}

  void Set(const wxString& name, const wxString& description)
  {
    name_ = name;
    description_ = description;
  }

  wxAccStatus GetName(int child, wxString* name) override { return Tell(child, name_, name); }

  wxAccStatus GetDescription(int child, wxString* description) override
  {
    return Tell(child, description_, description);
  }

 private:
  static wxAccStatus Tell(int child, const wxString& text, wxString* told)
  {
    if (child != wxACC_SELF || text.empty()) return wxACC_NOT_IMPLEMENTED;
    *told = text;
    return wxACC_OK;
  }

  wxString name_;
  wxString description_;
};

}  // namespace

wxString LetterFace(const wxString& face)
{
  return face;
}

wxFont LetterFont(const wxString& face, int pixels)
{
  return wxFont(wxFontInfo(wxSize(0, pixels)).FaceName(face));
}

void SetLetters(wxWindow& control, const wxFont& font)
{
  control.SetFont(font);
}

void SetOwnLetters(wxWindow& control, const wxFont& font, const wxColour& colour)
{
  control.SetFont(font);
  control.SetForegroundColour(colour);
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

bool PaintsAtOnce()
{
  return true;
}

void SetSpoken(wxWindow& control, const wxString& name, const wxString& description)
{
  auto* spoken = dynamic_cast<Spoken*>(control.GetAccessible());
  if (spoken == nullptr) {
    if (name.empty() && description.empty()) return;
    spoken = new Spoken(&control);
    control.SetAccessible(spoken);
  }
  spoken->Set(name, description);
}

wxStaticBox* MakeFrame(wxWindow* parent, wxWindowID id, const wxString& name)
{
  return new wxStaticBox(parent, id, wxString(), wxDefaultPosition, wxSize(1, 1), 0, name);
}

void Announce(wxWindow& line, const wxString&)
{
  // The system's line tells its text itself when it is asked.
  ::NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, line.GetHWND(), OBJID_CLIENT, 1);
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
