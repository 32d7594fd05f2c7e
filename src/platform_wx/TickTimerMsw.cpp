// SPDX-License-Identifier: MIT
#include "platform_wx/TickTimer.h"

namespace velquist::platform {

void TickTimer::StartOnce(int milliseconds)
{
  interval_ = milliseconds;
  timer_.StartOnce(milliseconds);
}

void TickTimer::Stop()
{
  timer_.Stop();
}

bool TickTimer::IsRunning() const
{
  return timer_.IsRunning();
}

}  // namespace velquist::platform
