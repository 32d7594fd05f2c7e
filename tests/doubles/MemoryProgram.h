// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "MemoryFiles.h"
#include "Nothing.h"
#include "app/MainWindow.h"
#include "runner/ScriptedPlatform.h"

/// The whole program without a window and without a disk, for tests and benchmarks.
namespace velquist::testing {

/// What the settings file says, besides the one installation, its first player and first track.
struct SavedSettings {
  data::ModYear ModYearIndex = data::ModYear::k1967;
  int chassis = 0;
  int formula = 0;
  int units = 0;
};

/// The program in "/program" with the installation "/GPL", which has all mods.
class MemoryProgram {
 public:
  MemoryFiles files;

  MemoryProgram()
  {
    for (const auto* marker :
         {"gpl_ai.ini", "gpla65.ini", "gpla66.ini", "gpla69.ini", "gplaGT.ini"})
      files.Put(std::string("/GPL/") + marker, std::string());
    files.Put("/GPL/Players/Jim/Setups/monza/note.txt", std::string());
  }

  /// Puts what ships beside the program into "/program".
  void PutShippedFiles(const std::filesystem::path& directory)
  {
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream stream(entry.path(), std::ios::binary);
      std::ostringstream content;
      content << stream.rdbuf();
      files.Put("/program/" + entry.path().filename().string(), content.str());
    }
  }

  /// Starts anew. Throws std::runtime_error when the program does not come up.
  void Start(const SavedSettings& saved = {})
  {
    const auto number = [](int n) { return std::to_string(n) + "\r\n"; };
    files.Put("/program/Velquist Program Settings.ini",
              "\"/GPL\"\r\n" + number(0) + number(data::NumberOf(saved.ModYearIndex)) + number(0) +
                  number(saved.chassis) + number(saved.formula) + number(0) + number(saved.units) +
                  "\"/GPL\"\r\n");
    window_ = std::make_unique<app::MainWindow>(app::Outside{
        files, platform_.dialogs, platform_.process, platform_.file_manager, platform_.clock,
        platform_.random, platform_.screen, platform_.pictures, resources_, "/program"});
    window_->Form_Load("");
    if (window_->Ended() || !UnexpectedDialog().empty())
      throw std::runtime_error("the program did not start: " + UnexpectedDialog());
  }

  [[nodiscard]] app::MainWindow& Window() { return *window_; }
  /// The next dialog, and its answer.
  void Announce(runner::Dialog dialog) { platform_.announcements.Announce(0, std::move(dialog)); }
  /// The first dialog that came unannounced, empty when none did.
  [[nodiscard]] std::string UnexpectedDialog() const
  {
    const auto& failed = platform_.announcements.Failed();
    return failed ? failed->what() : "";
  }

 private:
  std::unique_ptr<runner::Driver> driver_ = runner::MakeModelDriver();
  runner::ScriptedPlatform platform_{[](std::string_view a, std::string_view b) { return a == b; },
                                     *driver_};
  NoResources resources_;
  std::unique_ptr<app::MainWindow> window_;
};

}  // namespace velquist::testing
