// SPDX-License-Identifier: MIT
// The real program as it is started, in its own main loop: what an event of the toolkit throws past
// the window's guard is told, and the user goes on with his edits.
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/button.h>
#include <wx/display.h>
#include <wx/init.h>
#include <wx/stattext.h>
#include <wx/timer.h>
#include <wx/utils.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "NativeBox.h"
#include "app/Flag.h"
#include "platform_wx/TickTimer.h"
#include "runner/SourceDirectory.h"
#include "runner/World.h"
#include "ui/FrmMain.h"
#include "ui/Program.h"

namespace velquist::testing {

/// The environment variable with the file that a copy of this program writes.
constexpr const char* kReport = "VELQUIST_TOLD_OPTIONS";

namespace {

/// What a user does in the main loop, one thing after the other, each when the one before is over
/// and no box is on the screen. Boxes are written down and answered with their default button or,
/// where it is a question, with Yes.
class User final : public wxTimer {
 public:
  using Action = std::function<void()>;

  explicit User(std::vector<Action> actions) : actions_(std::move(actions))
  {
    constexpr int kMilliseconds = 50;
    Start(kMilliseconds);
  }
  void Notify() override
  {
    constexpr int kMostTries = 600;
    if (++looks_ == kMostTries) {
      ADD_FAILURE() << "the program does not end";
      std::exit(1);
    }
    if (GtkWidget* const box = ShownBox(); box != nullptr) {
      Answer(box);
    } else if (!waiting_ && !acting_ && next_ < actions_.size()) {
      // Behind this event: no timer fires while what it has brought about is under way.
      waiting_ = true;
      wxTheApp->CallAfter([this] {
        waiting_ = false;
        const app::Flag under_way(acting_, true);
        const auto& action = actions_[next_++];
        action();
      });
    }
  }
  [[nodiscard]] const std::vector<std::string>& Told() const { return told_; }
  [[nodiscard]] bool IsDone() const { return next_ == actions_.size(); }

 private:
  static GtkWidget* ShownBox()
  {
    GtkWidget* found = nullptr;
    GList* const windows = gtk_window_list_toplevels();
    for (const GList* entry = windows; entry != nullptr; entry = entry->next)
      if (GTK_IS_DIALOG(entry->data) && gtk_widget_get_mapped(GTK_WIDGET(entry->data)) != FALSE)
        found = GTK_WIDGET(entry->data);
    g_list_free(windows);
    return found;
  }
  void Answer(GtkWidget* box)
  {
    told_.emplace_back(gtk_label_get_text(LabelsIn(box).front()));
    auto* const dialog = GTK_DIALOG(box);
    const bool asks = gtk_dialog_get_widget_for_response(dialog, GTK_RESPONSE_YES) != nullptr;
    gtk_dialog_response(dialog, asks ? GTK_RESPONSE_YES : GTK_RESPONSE_OK);
  }

  std::vector<Action> actions_;
  std::size_t next_ = 0;
  bool waiting_ = false;  ///< an action is put off until this event is over
  bool acting_ = false;
  std::vector<std::string> told_;
  int looks_ = 0;
};

class ProgramRuns : public ::testing::Test {
 protected:
  ProgramRuns() : world_(SourceDirectory() / "assets" / "program")
  {
    const auto& game = world_.Names().game;
    setup_ = game + "/Players/Jim/Setups/monza/fast.lp1";
    for (const char* marker : {"/gpl_ai.ini", "/gpla66.ini"}) world_.Write(game + marker, {});
    world_.Copy(world_.Names().program + "/66 Velquist Default.vqset", setup_);
    const std::string settings = '"' + game + "\",0,2,0,0,0,0,0,\"" + game + '"';
    world_.Write(world_.Names().program + "/Velquist Program Settings.ini",
                 std::as_bytes(std::span(settings)));
  }

  /// Runs the program until it ends by itself, and lets the user do this in it.
  void Run(const std::vector<User::Action>& actions)
  {
    wxApp::SetInstance(new ui::Program(
        {.text = setup_, .program_directory = world_.Names().program, .window_at = window_at_}));
    char name[] = "velquist";
    char* words[] = {name, nullptr};
    int count = 1;
    ASSERT_TRUE(wxEntryStart(count, words));
    ASSERT_TRUE(wxTheApp->CallOnInit());
    asked_for_ = wxTheApp->GetTopWindow()->GetRect();
    {
      User user(actions);
      EXPECT_EQ(wxTheApp->OnRun(), 0);
      EXPECT_TRUE(user.IsDone());
      told_ = user.Told();
    }
    wxTheApp->OnExit();
    wxEntryCleanup();
  }
  static wxWindow& Widget(const char* name)
  {
    return *wxWindow::FindWindowByName(name, wxTheApp->GetTopWindow());
  }
  static std::string Rate() { return Widget("Label1(4)").GetLabel().utf8_string(); }
  static void Step()
  {
    wxCommandEvent press(wxEVT_BUTTON, Widget("CmdInc(4)").GetId());
    press.SetEventObject(&Widget("CmdInc(4)"));
    Widget("CmdInc(4)").HandleWindowEvent(press);
  }

  runner::World world_;
  std::string setup_;
  std::optional<platform::ScreenPlace> window_at_;
  wxRect asked_for_;  ///< of the window, before the window manager has a part in it
  std::vector<std::string> told_;
};

bool WaitForFile(const std::string& path)
{
  for (int look = 0; look < 200 && !std::filesystem::exists(path); ++look) wxMilliSleep(50);
  return std::filesystem::exists(path);
}

constexpr const char* kQuit =
    "You have made changes that are not saved.  Do you still want to quit?";

TEST_F(ProgramRuns, OnAfterExceptionsThatNoEventOfItsOwnCatches)
{
  std::string before;
  std::string edited;
  std::string later;
  std::optional<wxTimer> timer;  // which the toolkit must be up for
  std::optional<wxEvtHandler> owner;
  std::optional<platform::TickTimer> ticks;
  Run({
      [&] {
        before = Rate();
        Step();
        edited = Rate();
      },
      [&] {
        Widget("Label1(4)").Bind(wxEVT_LEFT_UP, [](wxMouseEvent&) {
          throw std::runtime_error("the mouse was wrong");
        });
        wxMouseEvent up(wxEVT_LEFT_UP);
        Widget("Label1(4)").HandleWindowEvent(up);
      },
      [&] {
        timer.emplace();
        timer->Bind(wxEVT_TIMER, [](wxTimerEvent&) { throw 42; });
        timer->StartOnce(1);
      },
      [] { wxTheApp->CallAfter([] { throw std::runtime_error("what came later was wrong"); }); },
      [&] {
        owner.emplace();
        owner->Bind(platform::EVT_TICK,
                    [](wxCommandEvent&) { throw std::runtime_error("the tick was wrong"); });
        ticks.emplace(*owner);
        ticks->StartOnce(1);
      },
      [&] {
        EXPECT_EQ(Rate(), edited);
        Step();
        later = Rate();
      },
      [] { wxTheApp->GetTopWindow()->Close(); },
  });
  EXPECT_NE(edited, before);
  EXPECT_NE(later, edited);
  EXPECT_EQ(told_, (std::vector<std::string>{
                       "This cannot be done: the mouse was wrong.",
                       "This cannot be done: something unexpected happened.",
                       "This cannot be done: what came later was wrong.",
                       "This cannot be done: the tick was wrong.",
                       kQuit,
                   }));
}

TEST_F(ProgramRuns, InAWindowWithinTheDesktop)
{
  wxRect window;
  wxRect desktop;
  Run({
      [&] {
        window = wxTheApp->GetTopWindow()->GetRect();
        desktop = wxDisplay(0U).GetClientArea();
      },
      [] { wxTheApp->GetTopWindow()->Close(); },
  });
  EXPECT_GT(window.width, 0);
  EXPECT_LE(window.width, desktop.width);
  EXPECT_LE(window.height, desktop.height);
}

TEST_F(ProgramRuns, InAWindowThatAsksForTheMiddleOfTheDesktop)
{
  Run({[] { wxTheApp->GetTopWindow()->Close(); }});
  const wxRect middle = asked_for_.CentreIn(wxDisplay(0U).GetClientArea());
  EXPECT_EQ(asked_for_, middle) << asked_for_.x << " " << asked_for_.y;
}

TEST_F(ProgramRuns, InAWindowThatAsksForTheCornerThatWasTold)
{
  window_at_ = {60, 50};
  Run({[] { wxTheApp->GetTopWindow()->Close(); }});
  EXPECT_EQ(asked_for_.GetPosition(), wxPoint(60, 50)) << asked_for_.x << " " << asked_for_.y;
}

TEST_F(ProgramRuns, ASecondTimeInTheSameDirectoryBesideTheFirstWindow)
{
  const auto report = world_.Names().program + "/told";
  ::setenv(kReport, report.c_str(), 1);
  wxPoint at;
  Run({
      [&] {
        at = wxTheApp->GetTopWindow()->GetPosition();
        auto* const frame = dynamic_cast<ui::FrmMain*>(wxTheApp->GetTopWindow());
        ASSERT_NE(frame, nullptr);
        EXPECT_TRUE(frame->GetMenus().Choose("MnuNew"));
      },
      [&] { EXPECT_TRUE(WaitForFile(report)); },
      [] { wxTheApp->GetTopWindow()->Close(); },
  });
  ::unsetenv(kReport);
  std::string words;
  std::ifstream file(report);
  for (std::string word; std::getline(file, word);) words += word + "\n";
  EXPECT_EQ(words, "--program-directory=" + world_.Names().program + "\n--window-at=" +
                       std::to_string(at.x + 40) + "," + std::to_string(at.y + 40) + "\n");
}

}  // namespace
}  // namespace velquist::testing

int main(int argc, char** argv)
{
  // The copy that a test starts says what it was told.
  if (const char* const report = std::getenv(velquist::testing::kReport); report != nullptr) {
    const std::string whole = std::string(report) + ".part";
    std::ofstream file(whole);
    for (int word = 1; word < argc; ++word) file << argv[word] << '\n';
    file.close();
    std::filesystem::rename(whole, report);
    return 0;
  }
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
