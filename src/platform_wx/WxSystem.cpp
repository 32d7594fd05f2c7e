// SPDX-License-Identifier: MIT
#include "platform_wx/WxSystem.h"

#include <wx/display.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include <chrono>

#include "platform/Errors.h"
#include "platform/Paths.h"
#include "platform_wx/WxText.h"

namespace velquist::platform {

void WxProcess::Start(std::string_view /*path*/)
{
  const wxString program = wxStandardPaths::Get().GetExecutablePath();
  std::vector<wxWCharBuffer> texts{program.wc_str()};
  for (const auto& option : options_()) texts.emplace_back(FromText(option).wc_str());
  std::vector<const wchar_t*> words(texts.begin(), texts.end());
  words.push_back(nullptr);
  if (wxExecute(words.data(), wxEXEC_ASYNC) == 0)
    throw FileError(ToText(program), "the program could not be started");
}

#ifdef _WIN32
/// Its exit code says nothing.
void WxFileManager::Show(std::string_view path)
{
  const wxString file = FromText(path);
  if (wxExecute("explorer /select,\"" + file + "\"", wxEXEC_ASYNC) == 0)
    throw FileError(std::string(path), "The file manager could not be started");
}
#else
void WxFileManager::Show(std::string_view path)
{
  const auto directory = DirectoryOf(path);
  if (!wxLaunchDefaultApplication(FromText(directory)))
    throw FileError(std::string(directory), "The file manager could not be started");
}
#endif

std::uint64_t WxClock::TickCount() const
{
  using namespace std::chrono;
  return static_cast<std::uint64_t>(
      duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

double WxRandom::Next()
{
  return std::generate_canonical<double, 53>(engine_);
}

int WxScreen::Width() const
{
  return wxDisplay(0U).GetGeometry().GetWidth();
}

int WxScreen::Height() const
{
  return wxDisplay(0U).GetGeometry().GetHeight();
}

}  // namespace velquist::platform
