// SPDX-License-Identifier: MIT
#include "WatchedProgram.h"
#include "runner/SourceDirectory.h"

#include <filesystem>

namespace velquist::testing {

WatchedProgram::WatchedProgram()
    : world(velquist::testing::SourceDirectory() / "assets" / "program"),
      announcements_(
          [this](std::string_view a, std::string_view b) { return world.SameText(a, b); }),
      pictures_(files)
{
}

app::MainWindow& WatchedProgram::Start(std::string_view command_line)
{
  files.read.clear();
  files.listed.clear();
  files.log.clear();
  files.written.clear();
  dialogs.messages.clear();
  window = std::make_unique<app::MainWindow>(app::Outside{files, dialogs, process_, file_manager_,
                                                          clock_, random_, screen_, pictures_,
                                                          resources_, world.Names().program});
  window->Form_Load(command_line);
  return *window;
}

void WatchedProgram::WriteSettings(std::string_view numbers)
{
  std::string text = "\"" + Game() + "\",";
  text.append(numbers).append(",\"").append(Game()).append("\"\r\n");
  WriteSettingsText(text);
}

void WatchedProgram::WriteSettingsText(std::string_view text)
{
  world.Write(SettingsPath(), std::as_bytes(std::span(text)));
}

RecordingDialogs::Message WatchedProgram::NotValid()
{
  return {
      "Your saved Velquist Program Settings.ini file is not valid.  Please "
      "delete any existing "
      "file and restart the program to try again.",
      platform::Icon::kInformation};
}

RecordingDialogs::Message WatchedProgram::Bad()
{
  return {
      "The Velquist Program Settings.ini file is bad.\rDelete your program "
      "settings .ini file "
      "and restart the program to try again.",
      platform::Icon::kCritical};
}

RecordingDialogs::Message WatchedProgram::Corrupted()
{
  return {
      "Your saved Velquist Program Settings.ini file is probably "
      "corrupted.  Please delete the "
      "file and restart Velquist.",
      platform::Icon::kCritical};
}

}  // namespace velquist::testing
