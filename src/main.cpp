// SPDX-License-Identifier: MIT
#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/stdpaths.h>

#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/MainWindow.h"
#include "platform/CommandLine.h"
#include "platform/EmbeddedResources.h"
#include "platform/Errors.h"
#include "platform/HostFileSystem.h"
#include "platform/ProgramDirectory.h"
#include "platform_wx/WxPictureLoader.h"
#include "platform_wx/WxSystem.h"
#include "platform_wx/WxText.h"
#include "ui/FitToDesktop.h"
#include "ui/FrmMain.h"
#include "ui/ProgramDialogs.h"

namespace velquist {
namespace {

constexpr int kStartUpFailed = 1;
constexpr int kNoDisplay = 2;

constexpr int kBeside = 40;  ///< pixels from one window's corner to that of its copy

/// The whole program: the real things outside it, the main window's state, and the window.
class Program final : public wxApp {
 public:
  explicit Program(platform::CommandLine command_line)
      : command_line_(std::move(command_line)),
        dialogs_(resources_),
        process_([this] { return CopyOptions(); }),
        pictures_(files_, resources_)
  {
    SetAppName("velquist");
    SetAppDisplayName("Velquist");
  }

  bool OnInit() override
  {
    try {
      window_.emplace(app::Outside{files_, dialogs_, process_, clock_, random_, screen_, pictures_,
                                   resources_, ProgramDirectory()});
    } catch (const FileError& error) {
      dialogs_.ShowMessage(error.Path() + "\n" + error.Reason() + ".", platform::Icon::kCritical,
                           platform::Buttons::kOk);
      return false;
    }
    window_->Form_Load(command_line_.text);
    if (window_->Ended()) return false;
    // No window of the program has anything to do when it is idle.
    wxIdleEvent::SetMode(wxIDLE_PROCESS_SPECIFIED);
    wxUpdateUIEvent::SetMode(wxUPDATE_UI_PROCESS_SPECIFIED);
    auto* const frame = new ui::FrmMain(*window_, screen_, pictures_);
    dialogs_.SetOwner(frame);
    ui::FitToDesktop(*frame, Corner());
    frame->Show();
    frame->RunMarquee();
    return true;
  }

  /// What an event of the window throws; those of the program itself are caught before.
  bool OnExceptionInMainLoop() override
  {
    std::string reason = "something unexpected happened";
    try {
      throw;
    } catch (const std::exception& error) {
      reason = error.what();
    } catch (...) {
    }
    dialogs_.ShowMessage("This cannot be done: " + reason + ".", platform::Icon::kExclamation,
                         platform::Buttons::kOk);
    return true;
  }

 private:
  [[nodiscard]] std::string ProgramDirectory() const
  {
    if (command_line_.program_directory) return *command_line_.program_directory;
    const auto executable = platform::ToText(wxStandardPaths::Get().GetExecutablePath());
    return platform::ProgramDirectory(platform::HostPath(executable),
                                      platform::EnvironmentVariable);
  }

  /// What a second copy must be told to use the same files and to leave this window in sight.
  [[nodiscard]] std::vector<std::string> CopyOptions() const
  {
    std::vector<std::string> options;
    if (command_line_.program_directory)
      options.push_back("--program-directory=" + *command_line_.program_directory);
    if (const auto* const frame = GetTopWindow()) {
      const wxPoint beside = frame->GetPosition() + wxPoint(kBeside, kBeside);
      options.push_back("--window-at=" + std::to_string(beside.x) + "," + std::to_string(beside.y));
    }
    return options;
  }

  /// Where the window shall stand, if that was said.
  [[nodiscard]] std::optional<wxPoint> Corner() const
  {
    const auto& at = command_line_.window_at;
    return at ? std::optional(wxPoint(at->left, at->top)) : std::nullopt;
  }

  platform::CommandLine command_line_;
  platform::HostFileSystem files_;
  platform::EmbeddedResources resources_;
  ui::ProgramDialogs dialogs_;
  platform::WxProcess process_;
  platform::WxClock clock_;
  platform::WxRandom random_;
  platform::WxScreen screen_;
  platform::WxPictureLoader pictures_;
  std::optional<app::MainWindow> window_;
};

int Run(int argc, char** argv)
{
#ifdef NDEBUG
  wxDisableAsserts();  // the toolkit's own, which would ask the user what to do
#endif
  wxApp::SetInstance(new Program(platform::ReadCommandLine(argc, argv)));
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
