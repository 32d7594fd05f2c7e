// SPDX-License-Identifier: MIT
#include <wx/init.h>
#include <wx/log.h>

#include <cstdio>

#include "platform/CommandLine.h"
#include "ui/Program.h"

namespace velquist {
namespace {

constexpr int kStartUpFailed = 1;
constexpr int kNoDisplay = 2;

int Run(int argc, char** argv)
{
#ifdef NDEBUG
  wxDisableAsserts();  // the toolkit's own, which would ask the user what to do
#endif
  wxApp::SetInstance(new ui::Program(platform::ReadCommandLine(argc, argv)));
  int own_words = 1;  // the toolkit gets the program's name alone
  bool up = false;
  {
    const wxLogNull quiet;
    up = wxEntryStart(own_words, argv);
  }
  if (!up) {
    std::fputs("velquist: there is no display to open the window on\n", stderr);
    return kNoDisplay;
  }
  int result = kStartUpFailed;
  if (wxTheApp->CallOnInit()) {
    result = wxTheApp->OnRun();
    wxTheApp->OnExit();
  }
  wxEntryCleanup();
  return result;
}

}  // namespace
}  // namespace velquist

int main(int argc, char** argv)
{
  return velquist::Run(argc, argv);
}
