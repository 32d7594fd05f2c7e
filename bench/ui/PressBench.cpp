// SPDX-License-Identifier: MIT
// From what the user does until it is painted, in the whole program on its own display. Painted is
// when the window's next frame is done, all of whose parts are laid out and drawn by then, and the
// display's server has answered that it has carried out what it was sent. The window rests between
// two of them, so that no frame waits for the one before.
#include <gtk/gtk.h>
#include <wx/choice.h>
#include <wx/evtloop.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/menu.h>
#include <wx/radiobut.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "platform/CommandLine.h"
#include "ui/FrmMain.h"
#include "ui/Program.h"

namespace {

using namespace velquist;

constexpr int kPresses = 1000;
constexpr int kOthers = 60;

/// The frames of a window on the screen.
class Frames {
 public:
  explicit Frames(const wxWindow& window) : clock_(gtk_widget_get_frame_clock(window.GetHandle()))
  {
    handler_ = g_signal_connect(
        clock_, "after-paint",
        G_CALLBACK(+[](GdkFrameClock*, gpointer frames) { ++*static_cast<int*>(frames); }),
        &count_);
  }
  ~Frames() { g_signal_handler_disconnect(clock_, handler_); }
  Frames(const Frames&) = delete;
  Frames& operator=(const Frames&) = delete;

  [[nodiscard]] int Count() const { return count_; }

 private:
  GdkFrameClock* clock_;
  gulong handler_ = 0;
  int count_ = 0;
};

double ProcessorMilliseconds()
{
  timespec now{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

void Work()
{
  auto* const loop = wxEventLoopBase::GetActive();
  wxTheApp->ProcessPendingEvents();
  while (loop->Pending()) loop->Dispatch();
  wxTheApp->ProcessIdle();
}

void Rest()
{
  for (int i = 0; i < 5; ++i) {
    Work();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  Work();
}

/// Does it `count` times and prints what it takes until the frame after `done` is painted.
class Bench {
 public:
  explicit Bench(wxWindow& frame) : frame_(frame) {}

  void Run(
      const char* name, int count, const std::function<void(int turn)>& act,
      const std::function<bool()>& done = [] { return true; })
  {
    constexpr int kWarm = 6;
    std::vector<double> elapsed;
    std::vector<double> processor;
    for (int turn = -kWarm; turn < count; ++turn) {
      Rest();
      const Frames frames(frame_);
      const auto began = std::chrono::steady_clock::now();
      const double began_processor = ProcessorMilliseconds();
      act(turn);
      while (!done()) Work();
      const int before = frames.Count();
      while (frames.Count() == before) Work();
      gdk_display_sync(gdk_display_get_default());
      if (turn < 0) continue;
      processor.push_back(ProcessorMilliseconds() - began_processor);
      elapsed.push_back(
          std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - began)
              .count());
    }
    const auto at = [count](std::vector<double>& values, double part) {
      std::ranges::sort(values);
      return values[static_cast<std::size_t>(part * (count - 1))];
    };
    std::printf("%-30s %8.2f %8.2f %12.2f %8.2f\n", name, at(elapsed, 0.5), at(elapsed, 0.99),
                at(processor, 0.5), at(processor, 0.99));
    std::fflush(stdout);
  }

 private:
  wxWindow& frame_;
};

wxWindow& Named(const char* name)
{
  wxWindow* const found = wxWindow::FindWindowByName(name);
  if (found == nullptr) {
    std::fprintf(stderr, "there is no %s\n", name);
    std::exit(1);
  }
  return *found;
}

void Press(const char* name)
{
  wxWindow& button = Named(name);
  for (const auto type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP}) {
    wxMouseEvent event(type);
    event.SetEventObject(&button);
    button.ProcessWindowEvent(event);
  }
}

void Choose(const char* name, int position)
{
  auto& list = static_cast<wxChoice&>(Named(name));
  position %= static_cast<int>(list.GetCount());
  list.SetSelection(position);
  wxCommandEvent event(wxEVT_CHOICE, list.GetId());
  event.SetEventObject(&list);
  event.SetInt(position);
  list.ProcessWindowEvent(event);
}

void Units(const char* name)
{
  auto& option = static_cast<wxRadioButton&>(Named(name));
  option.SetValue(true);
  wxCommandEvent event(wxEVT_RADIOBUTTON, option.GetId());
  event.SetEventObject(&option);
  event.SetInt(1);
  option.ProcessWindowEvent(event);
}

void Compare(wxFrame& frame)
{
  wxCommandEvent event(wxEVT_MENU, frame.GetMenuBar()->FindMenuItem("Edit", "Compare..."));
  frame.ProcessWindowEvent(event);
  for (int i = 0; i < 10; ++i) Rest();
}

enum class From { kReference, kBeyond };

/// Up and down again, from the value of the reference, so that the value is marked at each step up,
/// or from the next one, so that it stays marked.
void Steps(Bench& bench, const char* name, const char* slot, From from)
{
  const std::string up = std::string("CmdInc(") + slot + ")";
  const std::string down = std::string("CmdDec(") + slot + ")";
  if (from == From::kBeyond) Press(up.c_str());
  bench.Run(name, kPresses, [&](int turn) { Press(turn % 2 == 0 ? up.c_str() : down.c_str()); });
  if (from == From::kBeyond) Press(down.c_str());
}

void MeasureAll(wxFrame& frame)
{
  for (int i = 0; i < 20; ++i) Rest();
  Bench bench(frame);
  std::printf("%-30s %17s %21s\n%-30s %8s %8s %12s %8s\n", "from the press until painted, ms",
              "elapsed", "processor", "", "median", "99 %", "median", "99 %");
  bench.Run("units", kOthers,
            [](int turn) { Units(turn % 2 == 0 ? "OptUnits(0)" : "OptUnits(1)"); });
  Units("OptUnits(0)");
  bench.Run("chassis", kOthers, [](int turn) { Choose("Combo3", turn + 100); });
  Choose("Combo3", 0);
  bench.Run("year", kOthers, [](int turn) { Choose("Combo2", turn + 100); });
  Choose("Combo2", 0);
  const wxSize client = frame.GetClientSize();
  wxWindow& chart = Named("PictureChart");
  wxSize before;
  bench.Run(
      "resize", kOthers,
      [&](int turn) {
        before = chart.GetSize();
        frame.SetClientSize(client - wxSize(turn % 2 == 0 ? 120 : 0, turn % 2 == 0 ? 90 : 0));
      },
      [&] { return chart.GetSize() != before; });
  frame.SetClientSize(client);
  Steps(bench, "plain step", "4", From::kBeyond);
  Steps(bench, "gear", "43", From::kBeyond);
  Steps(bench, "plain step, marked", "4", From::kReference);
  Steps(bench, "gear, marked", "43", From::kReference);
  Compare(frame);
  Steps(bench, "plain step, compared", "4", From::kReference);
  Steps(bench, "gear, compared", "43", From::kReference);
}

}  // namespace

int main(int argc, char** argv)
{
  wxApp::SetInstance(new ui::Program(platform::ReadCommandLine(argc, argv)));
  int own_words = 1;
  if (!wxEntryStart(own_words, argv) || !wxTheApp->CallOnInit()) {
    std::fputs("the program does not start\n", stderr);
    return 1;
  }
  {
    wxEventLoop loop;
    const wxEventLoopActivator active(&loop);
    MeasureAll(*dynamic_cast<wxFrame*>(wxWindow::FindWindowByName("FrmMain")));
  }
  std::fflush(stdout);
  std::_Exit(0);
}
