// SPDX-License-Identifier: MIT
#include "runner/window/WindowSystem.h"

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/modalhook.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform_wx/WxText.h"
#include "runner/Driver.h"

namespace velquist::runner {
namespace {

constexpr int kMostEvents = 10000;  ///< in one go; more means that they breed

/// Lets the program's own forms through and closes every other box, which nobody would answer.
class BoxWatch final : public wxModalDialogHook {
 public:
  std::string unexpected;
  bool through = false;

 protected:
  int Enter(wxDialog* dialog) override
  {
    if (through || dialog->GetName().StartsWith("Frm")) return wxID_NONE;
    unexpected = platform::ToText(dialog->GetTitle());
    return wxID_CANCEL;
  }
};

BoxWatch* box_watch = nullptr;

void OnAssert(const wxString& file, int line, const wxString&, const wxString& condition,
              const wxString& message)
{
  std::fprintf(stderr, "%s:%d: %s: %s\n", platform::ToText(file).c_str(), line,
               platform::ToText(condition).c_str(), platform::ToText(message).c_str());
  std::abort();
}

#ifndef _WIN32
/// No desktop services are needed, and none are asked for.
void KeepToOurselves()
{
  ::setenv("NO_AT_BRIDGE", "1", 0);
  ::setenv("GSETTINGS_BACKEND", "memory", 0);
}
#else
void KeepToOurselves() {}
#endif

}  // namespace

void LetWindowSystemWork()
{
  auto* const loop = wxEventLoopBase::GetActive();
  wxTheApp->ProcessPendingEvents();
  for (int events = 0; loop->Pending() && events < kMostEvents; ++events) loop->Dispatch();
  wxTheApp->ProcessIdle();
  if (box_watch->unexpected.empty()) return;
  const std::string title = std::exchange(box_watch->unexpected, {});
  throw std::runtime_error("unexpected box \"" + title + "\"");
}

void LetBoxesThrough(bool through)
{
  box_watch->through = through;
}

int RunWithWindowSystem(const std::function<int()>& body)
{
  KeepToOurselves();
  wxSetAssertHandler(OnAssert);
  wxApp::SetInstance(new wxApp);
  char program[] = "velquist_scenario";
  char* words[] = {program, nullptr};
  int count = 1;
  bool up = false;
  {
    const wxLogNull quiet;
    up = wxEntryStart(count, words);
  }
  if (!up) {
    std::fprintf(stderr, "velquist_scenario: no display to show the window on\n");
    return 2;
  }
  wxTheApp->SetExitOnFrameDelete(false);
  int result = 0;
  {
    BoxWatch watch;
    watch.Register();
    box_watch = &watch;
    wxEventLoop loop;
    const wxEventLoopActivator active(&loop);
    result = body();
    box_watch = nullptr;
  }
  wxEntryCleanup();
  return result;
}

}  // namespace velquist::runner
