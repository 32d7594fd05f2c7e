// SPDX-License-Identifier: MIT
#include "platform_wx/WxDialogs.h"

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/msgdlg.h>

#include "platform/FileDialogText.h"
#include "platform/HostFileSystem.h"
#include "platform/Paths.h"
#include "platform_wx/FrmInstallDelete.h"
#include "platform_wx/FrmModYear.h"
#include "platform_wx/NativeLook.h"
#include "platform_wx/WxText.h"

namespace velquist::platform {
namespace {

constexpr char kCaption[] = "Velquist";

long IconStyle(Icon icon)
{
  switch (icon) {
    case Icon::kExclamation: return wxICON_EXCLAMATION;
    case Icon::kQuestion: return wxICON_QUESTION;
    case Icon::kCritical: return wxICON_ERROR;
    case Icon::kInformation: break;
  }
  return wxICON_INFORMATION;
}

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

}  // namespace

Answer WxDialogs::ShowMessage(std::string_view text, Icon icon, Buttons buttons)
{
  const bool asks = buttons == Buttons::kYesNo;
  const int pressed =
      ShowMessageBox(owner_, FromText(text), kCaption, (asks ? wxYES_NO : wxOK) | IconStyle(icon));
  if (!asks) return Answer::kOk;
  return pressed == wxID_YES ? Answer::kYes : Answer::kNo;
}

std::optional<std::string> WxDialogs::AskOpenFile(const OpenRequest& request)
{
  const auto start =
      request.start.empty() ? DialogStart{request.directory, {}} : SplitStart(request.start);
  wxFileDialog box(owner_, "Open", ExistingDirectory(start.directory), FromText(start.name),
                   SystemOpenFilter(request.filter), wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  box.SetFilterIndex(request.filter_index - 1);
  if (box.ShowModal() != wxID_OK) return std::nullopt;
  return ToText(box.GetPath());
}

std::optional<std::string> WxDialogs::AskSaveFile(const SaveRequest& request)
{
  auto start = SplitStart(request.start);
  wxString directory = ExistingDirectory(start.directory);
  wxString name = FromText(start.name);
  for (;;) {
    wxFileDialog box(owner_, "Save As", directory, name, SystemFilter(request.filter),
                     wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (box.ShowModal() != wxID_OK) return std::nullopt;
    const auto chosen = ToText(box.GetPath());
    // The dialog has asked about the name as typed, which may not be the one that is written.
    const auto written = WithExtension(chosen, request.extension);
    const wxFileName file(FromText(written));
    if (SamePathText(written, chosen) || !file.FileExists()) return chosen;
    const auto question =
        "\"" + file.GetFullName() + "\" already exists.\nDo you want to replace it?";
    if (ShowMessageBox(owner_, question, kCaption, wxYES_NO | wxNO_DEFAULT | wxICON_EXCLAMATION) ==
        wxID_YES)
      return chosen;
    directory = file.GetPath();
    name = file.GetFullName();
  }
}

std::optional<int> WxDialogs::AskModYear(ModYearForm form, std::string_view message)
{
  FrmModYear dialog(owner_, form, message);
  return dialog.Ask();
}

void WxDialogs::ShowInstallDelete(InstallDeleteForm& form)
{
  FrmInstallDelete dialog(owner_, form);
  dialog.ShowModal();
}

void WxDialogs::ShowHelp()
{
  if (help_) {
    help_->Iconize(false);
    help_->Raise();
    return;
  }
  help_ = new FrmHelp(owner_, resources_.Help());
  help_->Show();
}

}  // namespace velquist::platform
