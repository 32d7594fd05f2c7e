// SPDX-License-Identifier: MIT
// How long the library's window takes with ten thousand setups: from the menu to the first rows on
// the screen, and for each letter of the filter. Told, not judged, for machines differ; by hand:
//   scripts/with-display build/dev/tests/window/velquist_window_tests
//     --gtest_also_run_disabled_tests --gtest_filter='LibrarySpeed.*'
#include <gtk/gtk.h>
#include <wx/app.h>

#include <chrono>
#include <iostream>
#include <string>

#include "LibraryWindow.h"

namespace velquist::testing {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kPlayers = 40;
constexpr int kTracks = 25;
constexpr int kSetupsOfATrack = 10;
constexpr unsigned kSetups = 10'000;

double Milliseconds(Clock::time_point since)
{
  return std::chrono::duration<double, std::milli>(Clock::now() - since).count();
}

class LibrarySpeed : public LibraryWindow {
 protected:
  void StartWithTenThousand()
  {
    std::string script = "file $G/gpla66.ini text \"\"\n";
    for (int player = 0; player < kPlayers; ++player)
      for (int track = 0; track < kTracks; ++track) {
        const auto directory =
            "$G/Players/p" + std::to_string(player) + "/Setups/t" + std::to_string(track);
        script += "dir " + directory + "\n";
        for (int setup = 0; setup < kSetupsOfATrack; ++setup)
          script +=
              "setup " + directory + "/s" + std::to_string(setup) + ".lp1 long" + kSetupValues;
      }
    editor.Play(script);
    Start();
  }
  /// One event, as the toolkit's own loop takes it.
  static void TakeAnEvent()
  {
    gtk_main_iteration_do(FALSE);
    wxTheApp->ProcessIdle();
  }
};

TEST_F(LibrarySpeed, DISABLED_OfTheFirstRowsAndOfALetter)
{
  StartWithTenThousand();
  for (const char* const time : {"first", "second", "third"}) {
    const auto chosen = Clock::now();
    ASSERT_TRUE(Frame().GetMenus().Choose("MnuLibrary"));
    while (!IsOpen() || Lines("Setups").GetCount() == 0) TakeAnEvent();
    Table().Update();
    std::cout << time << " time: " << Lines("Setups").GetCount() << " rows on the screen after "
              << Milliseconds(chosen) << " ms";
    while (Library().Library().IsBusy()) TakeAnEvent();
    std::cout << ", all after " << Milliseconds(chosen) << " ms\n";
    ASSERT_EQ(Lines("Setups").GetCount(), kSetups);
    LetTimePass(300);
    for (const char* const words : {"p", "p1", "p12", "p12 t", "p12 t2"}) {
      const auto typed = Clock::now();
      Filter(words);
      std::cout << "  \"" << words << "\": " << Lines("Setups").GetCount() << " rows after "
                << Milliseconds(typed) << " ms";
      Table().Update();
      while (gtk_events_pending()) TakeAnEvent();
      std::cout << ", nothing left to do after " << Milliseconds(typed) << " ms\n";
    }
    EXPECT_EQ(Lines("Setups").GetCount(), 60U);
    Filter("");
    Library().Close();
    LetTimePass(200);
  }
}

}  // namespace
}  // namespace velquist::testing
