// SPDX-License-Identifier: MIT
#include <glib.h>

#include "platform_wx/TickTimer.h"

namespace velquist::platform {

void TickTimer::StartOnce(int milliseconds)
{
  Stop();
  interval_ = milliseconds;
  const auto run = [](gpointer self) -> gboolean {
    auto& timer = *static_cast<TickTimer*>(self);
    timer.source_ = 0;
    timer.Send();
    return G_SOURCE_REMOVE;
  };
  source_ = g_timeout_add(static_cast<guint>(milliseconds), run, this);
}

void TickTimer::Stop()
{
  if (source_ != 0) g_source_remove(source_);
  source_ = 0;
}

bool TickTimer::IsRunning() const
{
  return source_ != 0;
}

}  // namespace velquist::platform
