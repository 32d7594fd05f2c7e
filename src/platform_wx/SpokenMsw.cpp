// SPDX-License-Identifier: MIT
#include <wx/access.h>
#include <wx/msw/wrapwin.h>

#include "platform_wx/Spoken.h"

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

void Announce(wxWindow& line, const wxString&)
{
  // The system's line tells its text itself when it is asked.
  ::NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, line.GetHWND(), OBJID_CLIENT, 1);
}

}  // namespace velquist::platform
