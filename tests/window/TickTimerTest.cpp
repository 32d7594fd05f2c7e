// SPDX-License-Identifier: MIT
#include "platform_wx/TickTimer.h"

#include <wx/app.h>
#include <wx/evtloop.h>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

using platform::EVT_TICK;
using platform::TickTimer;

class TickTimers : public ::testing::Test {
 protected:
  TickTimers()
  {
    owner_.Bind(EVT_TICK, [this](wxCommandEvent&) { ++ticks_; });
  }

  wxEvtHandler owner_;
  TickTimer timer_{owner_};
  int ticks_ = 0;
};

TEST_F(TickTimers, SendOneEventEachTimeTheyAreStarted)
{
  EXPECT_FALSE(timer_.IsRunning());
  timer_.StartOnce(20);
  EXPECT_TRUE(timer_.IsRunning());
  EXPECT_EQ(timer_.Interval(), 20);
  EXPECT_TRUE(WaitUntil([&] { return ticks_ == 1; }));
  EXPECT_FALSE(timer_.IsRunning());
  LetTimePass(60);
  EXPECT_EQ(ticks_, 1);
}

TEST_F(TickTimers, StartedAgainSendNothingAtTheTimeToldBefore)
{
  timer_.StartOnce(1);
  timer_.StartOnce(100);
  LetTimePass(40);
  EXPECT_EQ(ticks_, 0);
  EXPECT_TRUE(WaitUntil([&] { return ticks_ == 1; }));
}

TEST_F(TickTimers, StoppedSendNothing)
{
  timer_.StartOnce(1);
  timer_.Stop();
  EXPECT_FALSE(timer_.IsRunning());
  LetTimePass(40);
  EXPECT_EQ(ticks_, 0);
}

TEST_F(TickTimers, AreStoppedWhenTheyEnd)
{
  TickTimer(owner_).StartOnce(1);
  LetTimePass(40);
  EXPECT_EQ(ticks_, 0);
}

TEST_F(TickTimers, AskNoWindowWhetherItHasSomethingLeftToDo)
{
  int asked = 0;
  const auto count = [&](wxIdleEvent& event) {
    ++asked;
    event.Skip();
  };
  wxTheApp->Bind(wxEVT_IDLE, count);
  wxEventLoop loop;
  constexpr int kTicks = 50;
  owner_.Bind(EVT_TICK, [&](wxCommandEvent& event) {
    event.Skip();
    if (ticks_ + 1 < kTicks)
      timer_.StartOnce(2);
    else
      loop.ScheduleExit();
  });
  timer_.StartOnce(2);
  loop.Run();
  wxTheApp->Unbind(wxEVT_IDLE, count);
  EXPECT_EQ(ticks_, kTicks);
  EXPECT_LT(asked, kTicks / 5);
}

}  // namespace
}  // namespace velquist::testing
