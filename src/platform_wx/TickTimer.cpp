// SPDX-License-Identifier: MIT
#include "platform_wx/TickTimer.h"

namespace velquist::platform {

wxDEFINE_EVENT(EVT_TICK, wxCommandEvent);

TickTimer::TickTimer(wxEvtHandler& owner) : owner_(owner) {}

TickTimer::~TickTimer()
{
  Stop();
}

void TickTimer::Send() const
{
  wxCommandEvent event(EVT_TICK);
  owner_.SafelyProcessEvent(event);  // the system above knows no exceptions
}

}  // namespace velquist::platform
