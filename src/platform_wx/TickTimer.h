// SPDX-License-Identifier: MIT
#pragma once

#include <wx/event.h>

#ifdef _WIN32
#include <wx/timer.h>
#endif

namespace velquist::platform {

wxDECLARE_EVENT(EVT_TICK, wxCommandEvent);

/// A timer for what happens many times a second. Behind each event of a usual one the toolkit asks
/// every window whether it has something left to do, on systems where it can be told not to.
class TickTimer {
 public:
  /// Sends `owner` an EVT_TICK each time.
  explicit TickTimer(wxEvtHandler& owner);
  ~TickTimer();
  TickTimer(const TickTimer&) = delete;
  TickTimer& operator=(const TickTimer&) = delete;

  /// The one event comes after so many milliseconds, at least 1, and not at the time told before.
  void StartOnce(int milliseconds);
  void Stop();

  [[nodiscard]] bool IsRunning() const;
  [[nodiscard]] int Interval() const { return interval_; }  ///< milliseconds, as last started

 private:
  void Send() const;

  wxEvtHandler& owner_;
  int interval_ = 0;
#ifdef _WIN32
  class Timer final : public wxTimer {
   public:
    explicit Timer(const TickTimer& ticks) : ticks_(ticks) {}
    void Notify() override { ticks_.Send(); }

   private:
    const TickTimer& ticks_;
  };
  Timer timer_{*this};
#else
  unsigned source_ = 0;  ///< of the main loop; 0 while there is none
#endif
};

}  // namespace velquist::platform
