// SPDX-License-Identifier: MIT
#include "ui/Program.h"

#include <wx/stdpaths.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

#include "app/FormControlSettings.h"
#include "platform/Errors.h"
#include "platform/FileReason.h"
#include "platform/ProgramDirectory.h"
#include "platform_wx/WxText.h"
#include "ui/FitToDesktop.h"
#include "ui/FrmMain.h"

namespace velquist::ui {
namespace {

constexpr int kBeside = 40;  ///< pixels from one window's corner to that of its copy

/// The box of the car's picture in a window for that screen.
wxSize CarPictureSize(const platform::Screen& screen)
{
  const auto rows = app::FormControlSettings();
  const auto scale = app::ScaleFor(screen.Width(), screen.Height());
  const auto box =
      std::ranges::find(rows, app::Shape::kCarPicture, &app::ControlDesign::shape)->place;
  return {static_cast<int>(std::ceil(static_cast<float>(box.width) * scale.fx)),
          static_cast<int>(std::ceil(static_cast<float>(box.height) * scale.fy))};
}

}  // namespace

Program::Program(platform::CommandLine command_line)
    : command_line_(std::move(command_line)),
      dialogs_(resources_),
      process_([this] { return CopyOptions(); }),
      pictures_(files_, resources_)
{
  SetAppName("velquist");
  SetAppDisplayName("Velquist");
}

bool Program::OnInit()
{
  try {
    window_.emplace(app::Outside{files_, dialogs_, process_, file_manager_, clock_, random_,
                                 screen_, pictures_, resources_, ProgramDirectory()});
  } catch (const FileError& error) {
    dialogs_.ShowMessage(platform::ToldPath(error.Path()) + "\n" + error.Reason() + ".",
                         platform::Icon::kCritical, platform::Buttons::kOk);
    return false;
  }
  pictures_.Expect(CarPictureSize(screen_));
  window_->Form_Load(command_line_.text);
  if (window_->Ended()) return false;
  // No window of the program has anything to do when it is idle.
  wxIdleEvent::SetMode(wxIDLE_PROCESS_SPECIFIED);
  wxUpdateUIEvent::SetMode(wxUPDATE_UI_PROCESS_SPECIFIED);
  auto* const frame = new FrmMain(*window_, screen_, pictures_);
  dialogs_.SetOwner(frame);
  FitToDesktop(*frame, Corner());
  frame->Show();
  frame->RunMarquee();
  return true;
}

bool Program::OnExceptionInMainLoop()
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

void Program::ProcessPendingEvents()
{
  for (;;) {
    try {
      wxApp::ProcessPendingEvents();
      return;
    } catch (...) {
      OnExceptionInMainLoop();  // what threw does not wait any more
    }
  }
}

std::string Program::ProgramDirectory() const
{
  if (command_line_.program_directory) return *command_line_.program_directory;
  const auto executable = platform::ToText(wxStandardPaths::Get().GetExecutablePath());
  return platform::ProgramDirectory(platform::HostPath(executable), platform::EnvironmentVariable);
}

/// What a second copy must be told to use the same files and to leave this window in sight.
std::vector<std::string> Program::CopyOptions() const
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
std::optional<wxPoint> Program::Corner() const
{
  const auto& at = command_line_.window_at;
  return at ? std::optional(wxPoint(at->left, at->top)) : std::nullopt;
}

}  // namespace velquist::ui
