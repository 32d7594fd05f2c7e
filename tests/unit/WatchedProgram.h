// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Nothing.h"
#include "platform/HostFileSystem.h"
#include "runner/ScriptedPlatform.h"
#include "runner/World.h"

namespace velquist::testing {

/// The files of this machine, every access written down. Writing can be turned off: what would be
/// written is then only written down.
class WatchedFiles final : public platform::FileSystem {
 public:
  [[nodiscard]] bool Exists(std::string_view path) const override { return files_.Exists(path); }
  [[nodiscard]] std::vector<std::byte> ReadWhole(std::string_view path) const override
  {
    read.emplace_back(path);
    log.emplace_back("read " + std::string(path));
    return files_.ReadWhole(path);
  }
  void WriteOver(std::string_view path, std::span<const std::byte> bytes) override
  {
    written.emplace_back(path);
    if (writing) files_.WriteOver(path, bytes);
  }
  void WriteText(std::string_view path, std::string_view text) override
  {
    written.emplace_back(path);
    if (writing) files_.WriteText(path, text);
  }
  [[nodiscard]] std::vector<std::string> ListSubdirectories(std::string_view directory,
                                                            std::size_t most) const override
  {
    listed.emplace_back(directory);
    log.emplace_back("list " + std::string(directory));
    return files_.ListSubdirectories(directory, most);
  }
  [[nodiscard]] std::optional<platform::FileStamp> Stamp(std::string_view path) const override
  {
    return files_.Stamp(path);
  }
  [[nodiscard]] std::optional<std::string> NameOnDisk(std::string_view path) const override
  {
    return files_.NameOnDisk(path);
  }
  [[nodiscard]] std::string HostText(std::string_view path) const override
  {
    return files_.HostText(path);
  }

  bool writing = true;
  mutable std::vector<std::string> read;
  mutable std::vector<std::string> listed;
  mutable std::vector<std::string> log;  ///< reads and lists in order
  std::vector<std::string> written;

 private:
  platform::HostFileSystem files_;
};

/// Writes every message down and answers OK or Yes; other dialogs are cancelled unless a test says
/// more.
class RecordingDialogs final : public app::Dialogs {
 public:
  struct Message {
    std::string text;
    platform::Icon icon;
    friend bool operator==(const Message&, const Message&) = default;
  };

  platform::Answer ShowMessage(std::string_view text, platform::Icon icon,
                               platform::Buttons buttons) override
  {
    messages.push_back({std::string(text), icon});
    return buttons == platform::Buttons::kOk ? platform::Answer::kOk : platform::Answer::kYes;
  }
  std::optional<std::string> AskOpenFile(const platform::OpenRequest& /*request*/) override
  {
    return chosen;
  }
  std::optional<std::string> AskSaveFile(const platform::SaveRequest& /*request*/) override
  {
    return std::nullopt;
  }
  std::optional<int> AskModYear(app::ModYearForm /*form*/, std::string_view /*message*/) override
  {
    if (while_asked_for_mod_year) while_asked_for_mod_year();
    return std::nullopt;
  }
  void ShowInstallDelete(app::InstallDeleteForm& /*form*/) override {}
  void ShowHelp() override {}

  std::vector<Message> messages;
  std::optional<std::string> chosen;  ///< in the open dialog
  std::function<void()> while_asked_for_mod_year;
};

/// The program without its window on watched files: a directory of its own with the shipped files
/// and the game installation GPL.
class WatchedProgram {
 public:
  WatchedProgram();

  /// Drops the program that runs and starts a new one.
  app::MainWindow& Start(std::string_view command_line = {});

  /// Writes the settings file: seven header numbers, GPL as the current and the
  /// only installation.
  void WriteSettings(std::string_view numbers = "0,0,0,0,0,0,0");
  void WriteSettingsText(std::string_view text);

  [[nodiscard]] std::string Game() const { return world.Names().game; }
  [[nodiscard]] std::string SettingsPath() const
  {
    return world.Names().program + "\\Velquist Program Settings.ini";
  }
  [[nodiscard]] static RecordingDialogs::Message NotValid();
  [[nodiscard]] static RecordingDialogs::Message Bad();
  [[nodiscard]] static RecordingDialogs::Message Corrupted();

  runner::World world;
  WatchedFiles files;
  RecordingDialogs dialogs;
  std::unique_ptr<app::MainWindow> window;

 private:
  runner::Announcements announcements_;
  runner::ScriptedProcess process_{announcements_};
  runner::ScriptedFileManager file_manager_{announcements_};
  runner::ScriptedClock clock_;
  runner::ScriptedRandom random_;
  runner::ScriptedScreen screen_;
  runner::PictureSizes pictures_;
  NoResources resources_;
};

}  // namespace velquist::testing
