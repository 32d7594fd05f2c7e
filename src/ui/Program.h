// SPDX-License-Identifier: MIT
#pragma once

#include <wx/app.h>

#include <optional>
#include <string>
#include <vector>

#include "app/MainWindow.h"
#include "platform/CommandLine.h"
#include "platform/EmbeddedResources.h"
#include "platform/HostFileSystem.h"
#include "platform_wx/WxPictureLoader.h"
#include "platform_wx/WxSystem.h"
#include "ui/ProgramDialogs.h"

namespace velquist::ui {

/// The whole program: the real things outside it, the main window's state, and the window.
class Program final : public wxApp {
 public:
  explicit Program(platform::CommandLine command_line);

  bool OnInit() override;
  /// Tells what an event of the toolkit throws, and goes on; the events of the program itself catch
  /// theirs before.
  bool OnExceptionInMainLoop() override;
  /// The same for what was put off until later, which the toolkit does not catch everywhere.
  void ProcessPendingEvents() override;

 private:
  [[nodiscard]] std::string ProgramDirectory() const;
  [[nodiscard]] std::vector<std::string> CopyOptions() const;
  [[nodiscard]] std::optional<wxPoint> Corner() const;

  platform::CommandLine command_line_;
  platform::HostFileSystem files_;
  platform::EmbeddedResources resources_;
  ProgramDialogs dialogs_;
  platform::WxProcess process_;
  platform::WxFileManager file_manager_;
  platform::WxClock clock_;
  platform::WxRandom random_;
  platform::WxScreen screen_;
  platform::WxPictureLoader pictures_;
  std::optional<app::MainWindow> window_;
};

}  // namespace velquist::ui
