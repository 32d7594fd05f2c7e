// SPDX-License-Identifier: MIT
#include <wx/msw/wrapwin.h>

#include "platform_wx/ProgramIcons.h"

namespace velquist::platform {

wxIconBundle ProgramIcons()
{
  return wxIconBundle("velquist", ::GetModuleHandleW(nullptr));
}

}  // namespace velquist::platform
