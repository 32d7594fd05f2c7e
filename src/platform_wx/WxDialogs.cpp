// SPDX-License-Identifier: MIT
#include "platform_wx/WxDialogs.h"

#include <wx/filedlg.h>
#include <wx/filename.h>

#include "platform/FileDialogText.h"
#include "platform/HostFileSystem.h"
#include "platform/Paths.h"
#include "platform/ProgramDirectory.h"
#include "platform/SystemFiles.h"
#include "platform/WinePrefixes.h"
#include "platform_wx/MessageBox.h"
#include "platform_wx/WxText.h"

namespace velquist::platform {
namespace {

/// The filter as the system's dialog takes it.
wxString SystemFilter(const std::string& filter)
{
#ifdef __WXMSW__
  return FromText(filter);
#else
  return FromText(AnyCaseFilter(filter));
#endif
}

/// The filter of an open dialog. Where a pattern cannot be typed as a name, a last filter shows
/// the files that no other does.
wxString SystemOpenFilter(const std::string& filter)
{
#ifdef __WXMSW__
  return SystemFilter(filter);
#else
  return SystemFilter(filter) + "|All Files|*";
#endif
}

/// The directory, or the nearest one above it that exists.
wxString ExistingDirectory(std::string_view directory)
{
  for (auto nearest = directory; !nearest.empty(); nearest = DirectoryOf(nearest)) {
    const wxString host = FromText(PathText(HostPath(nearest)));
    if (wxFileName::DirExists(host)) return host;
  }
  return {};
}

/// Where there are none since programs of Windows run by themselves, none are looked for.
std::vector<WinePrefix> PrefixesOfUser()
{
#ifdef __WXMSW__
  return {};
#else
  return WinePrefixes(EnvironmentVariable, HostFileSystem());
#endif
}

}  // namespace

Answer WxDialogs::ShowMessage(std::string_view text, Icon icon, Buttons buttons)
{
  return ShowMessageBox(owner_, FromText(text), kMessageTitle, icon, buttons);
}

std::optional<std::string> WxDialogs::AskOpenFile(const OpenRequest& request)
{
  const auto prefixes = request.of_game ? PrefixesOfUser() : std::vector<WinePrefix>{};
  auto start =
      request.start.empty() ? DialogStart{request.directory, {}} : SplitStart(request.start);
  if (!prefixes.empty()) start.directory = prefixes.front().drive;
  const long hidden = request.of_game ? wxFD_SHOW_HIDDEN : 0;
  wxFileDialog box(owner_, FromText(request.title), ExistingDirectory(start.directory),
                   FromText(start.name), SystemOpenFilter(request.filter),
                   wxFD_OPEN | wxFD_FILE_MUST_EXIST | hidden);
  box.SetFilterIndex(request.filter_index - 1);
  for (const auto& prefix : prefixes)
    box.AddShortcut(FromText(PathText(HostPath(prefix.directory))), wxFD_SHORTCUT_BOTTOM);
  if (box.ShowModal() != wxID_OK) return std::nullopt;
  return ToText(box.GetPath());
}

std::optional<std::string> WxDialogs::AskSaveFile(const SaveRequest& request)
{
  const auto start = SplitStart(request.start);
  wxString directory = ExistingDirectory(start.directory);
  wxString name = FromText(start.name);
  for (;;) {
    wxFileDialog box(owner_, FromText(request.title), directory, name, SystemFilter(request.filter),
                     wxFD_SAVE);
    if (box.ShowModal() != wxID_OK) return std::nullopt;
    const auto chosen = ToText(box.GetPath());
    // The system's own question would be about the name as typed, which is not the file that is
    // written.
    const auto written = HostPath(WithExtension(chosen, request.extension));
    std::error_code error;
    if (StatusOf(written, error).type() == std::filesystem::file_type::not_found || error)
      return chosen;
    const auto question =
        "\"" + PathText(written.filename()) + "\" already exists.\nDo you want to replace it?";
    if (ShowMessage(question, Icon::kExclamation, Buttons::kNoYes) == Answer::kYes) return chosen;
    directory = box.GetDirectory();
    name = box.GetFilename();
  }
}

}  // namespace velquist::platform
