// SPDX-License-Identifier: MIT
#include <wx/uiaction.h>

#include <stdexcept>
#include <utility>

#include "RealWindow.h"
#include "setup/SlotTable.h"

namespace velquist::testing {
namespace {

class StepButtons : public RealWindow {
 protected:
  void Press(const char* button)
  {
    Frame().Raise();
    LetTimePass(300);
    const auto at = Widget(button)->GetScreenRect();
    mouse_.MouseMove(at.x + at.width / 2, at.y + at.height / 2);
    LetTimePass(100);
    mouse_.MouseDown();
  }
  void Release()
  {
    mouse_.MouseUp();
    LetTimePass(200);
  }
  /// Returns the value before.
  float HoldForFourSteps()
  {
    const float before = Value(4);
    Press("CmdInc(4)");
    EXPECT_TRUE(WaitUntil([&] { return Value(4) >= before + 4 * 5; }));
    return before;
  }
  float ValueThatStays()
  {
    const float now = Value(4);
    LetTimePass(300);
    EXPECT_EQ(Value(4), now);
    return now;
  }
  [[nodiscard]] float Value(int slot) const { return editor.Window().Car().Value(slot); }

  wxUIActionSimulator mouse_;
};

TEST_F(StepButtons, AStepThatThrowsLeavesItsButtonToAnswerThePressOnce)
{
  Start();
  auto& button = *Widget("CmdInc(0)");
  bool throws = true;
  button.Bind(wxEVT_BUTTON, [&](wxCommandEvent& event) {
    if (std::exchange(throws, false)) throw std::runtime_error("no step");
    event.Skip();
  });
  const float before = Value(0);
  wxMouseEvent press(wxEVT_LEFT_DOWN);
  press.SetEventObject(&button);
  EXPECT_THROW(button.GetEventHandler()->ProcessEvent(press), std::runtime_error);
  wxCommandEvent click(wxEVT_BUTTON, button.GetId());  // the system's own of that press
  click.SetEventObject(&button);
  button.ProcessWindowEvent(click);
  EXPECT_EQ(Value(0), before);
}

TEST_F(StepButtons, AClickOfTheMouseIsOneStep)
{
  Start();
  const float before = Value(0);
  Press("CmdInc(0)");
  Release();
  EXPECT_EQ(Value(0), before + 1);
}

TEST_F(StepButtons, EachClickIsAStepOfItsOwnToUndo)
{
  Start();
  const float before = Value(0);
  for (int click = 0; click < 2; ++click) {
    Press("CmdInc(0)");
    Release();
  }
  EXPECT_EQ(Value(0), before + 2);
  editor.Play("click MnuUndo\n");
  EXPECT_EQ(Value(0), before + 1);
}

TEST_F(StepButtons, OfAllKeysTheSpaceBarAloneIsAStep)
{
  Start();
  Frame().Raise();
  Widget("CmdInc(0)")->SetFocus();
  ASSERT_TRUE(WaitUntil([&] { return Frame().IsActive() && Widget("CmdInc(0)")->HasFocus(); }));
  const float before = Value(0);
  mouse_.Char('X');
  mouse_.Char(WXK_SPACE, wxMOD_CONTROL);
  LetTimePass(300);
  EXPECT_EQ(Value(0), before);
  mouse_.Char(WXK_SPACE);
  EXPECT_TRUE(WaitUntil([&] { return Value(0) == before + 1; }));
}

TEST_F(StepButtons, AHeldStepButtonGoesOnUntilItIsReleased)
{
  Start();
  HoldForFourSteps();
  Release();
  ValueThatStays();
}

TEST_F(StepButtons, AHeldStepButtonStopsWhereAnythingElseGetsTheFocus)
{
  Start();
  HoldForFourSteps();
  Widget("FineCheck")->SetFocus();
  LetTimePass(100);
  ValueThatStays();
  Release();
}

TEST_F(StepButtons, AHeldStepButtonStopsThoughItsReleaseIsNotToldToIt)
{
  Start();
  auto& button = *Widget("CmdInc(4)");
  button.Bind(wxEVT_LEFT_UP, [](wxMouseEvent&) {});
  HoldForFourSteps();
  Release();
  ValueThatStays();
}

TEST_F(StepButtons, AHeldStepButtonWaitsWhileThePointerIsBesideIt)
{
  Start();
  HoldForFourSteps();
  const auto at = Widget("CmdInc(4)")->GetScreenRect();
  mouse_.MouseMove(at.x + at.width / 2, at.y + 4 * at.height);
  LetTimePass(200);
  const float beside = ValueThatStays();
  mouse_.MouseMove(at.x + at.width / 2, at.y + at.height / 2);
  EXPECT_TRUE(WaitUntil([&] { return Value(4) > beside; }));
  Release();
}

TEST_F(StepButtons, AHeldStepButtonIsUndoneAtOnce)
{
  Start();
  const float before = HoldForFourSteps();
  Release();
  EXPECT_TRUE(Frame().GetMenus().Choose("MnuUndo"));
  EXPECT_EQ(Value(4), before);
  EXPECT_EQ(editor.Window().Car().UndoText(), "");
}

TEST_F(StepButtons, AHeldStepButtonIsPressedNoMoreOnceTheLimitIsReached)
{
  Start();
  int presses = 0;
  Widget("CmdDec(4)")->Bind(wxEVT_BUTTON, [&](wxCommandEvent& event) {
    ++presses;
    event.Skip();
  });
  Press("CmdDec(4)");
  EXPECT_TRUE(WaitUntil([&] { return Value(4) <= 40; }, 30000));
  LetTimePass(300);
  const int needed = presses;
  LetTimePass(300);
  EXPECT_EQ(presses, needed);
  Release();
}

TEST_F(StepButtons, AHeldStepButtonGoesOnInFineStepsAsFarAsTheLimit)
{
  Start();
  editor.Play("check FineCheck\n");
  const float before = Value(setup::kWheelRate);
  Press("CmdDec(4)");
  EXPECT_TRUE(WaitUntil([&] { return Value(setup::kWheelRate) != before; }));
  EXPECT_EQ(Value(setup::kWheelRate), before - 1);
  EXPECT_TRUE(WaitUntil([&] { return Value(setup::kWheelRate) <= 40; }, 30000));
  LetTimePass(200);
  Release();
  EXPECT_EQ(Value(setup::kWheelRate), 40);
}

}  // namespace
}  // namespace velquist::testing
