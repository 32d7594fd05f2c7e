// SPDX-License-Identifier: MIT
#include <wx/access.h>
#include <wx/msgdlg.h>
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

wxFont LetterFont(const wxString& face, int pixels)
{
  return wxFont(wxFontInfo(wxSize(0, pixels)).FaceName(face));
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

void AllowCutLabel(wxWindow&)
{
  // Labels are always cut at the control's edge.
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

int ShowMessageBox(wxWindow* owner, const wxString& text, const wxString& caption, long style)
{
  // The toolkit's own boxes show no icon beside a question.
  UINT wanted = (style & wxYES_NO) != 0 ? MB_YESNO : MB_OK;
  if ((style & wxNO_DEFAULT) != 0) wanted |= MB_DEFBUTTON2;
  switch (style & wxICON_MASK) {
    case wxICON_EXCLAMATION: wanted |= MB_ICONEXCLAMATION; break;
    case wxICON_QUESTION: wanted |= MB_ICONQUESTION; break;
    case wxICON_ERROR: wanted |= MB_ICONERROR; break;
    default: wanted |= MB_ICONINFORMATION; break;
  }
  if (owner == nullptr) wanted |= MB_TASKMODAL;
  switch (::MessageBoxW(owner != nullptr ? owner->GetHWND() : nullptr, text.wc_str(),
                        caption.wc_str(), wanted)) {
    case IDYES: return wxID_YES;
    case IDNO: return wxID_NO;
    default: return wxID_OK;
  }
}

void ReportEveryChoice(wxChoice& list)
{
  list.Bind(wxEVT_MOUSEWHEEL, [](wxMouseEvent&) {});
}

}  // namespace velquist::platform
