// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "app/MainWindow.h"
#include "platform/Errors.h"
#include "runner/ScriptedPlatform.h"

/// The whole program without a window and without a disk, for tests and benchmarks.
namespace velquist::testing {

/// Files by their paths, letter case and kind of separator not counting. A directory is there when
/// a file is below it.
class MemoryFiles final : public platform::FileSystem {
 public:
  void Put(std::string_view path, std::string text) { files_[Key(path)] = {Path(path), text}; }
  void Put(std::string_view path, std::span<const std::byte> bytes)
  {
    Put(path, std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
  }

  [[nodiscard]] bool Exists(std::string_view path) const override
  {
    auto key = Key(path);
    if (key.ends_with('/')) key.pop_back();
    if (files_.contains(key)) return true;
    const auto below = files_.lower_bound(key + "/");
    return below != files_.end() && below->first.starts_with(key + "/");
  }
  [[nodiscard]] std::vector<std::byte> ReadWhole(std::string_view path) const override
  {
    const auto found = files_.find(Key(path));
    if (found == files_.end()) throw FileError(std::string(path), "no such file");
    const auto bytes = std::as_bytes(std::span(found->second.text));
    return {bytes.begin(), bytes.end()};
  }
  void WriteOver(std::string_view path, std::span<const std::byte> bytes) override
  {
    auto& text = files_[Key(path)].text;
    const std::string tail = text.substr(std::min(text.size(), bytes.size()));
    Put(path, bytes);
    text += tail;
  }
  void WriteText(std::string_view path, std::string_view text) override
  {
    Put(path, std::string(text));
  }
  [[nodiscard]] std::vector<std::string> ListSubdirectories(std::string_view directory,
                                                            std::size_t most) const override
  {
    auto key = Key(directory);
    if (!key.ends_with('/')) key += '/';
    std::vector<std::string> names;
    for (const auto& [path, file] : files_) {
      if (!path.starts_with(key)) continue;
      const auto end = path.find('/', key.size());
      if (end == std::string::npos) continue;
      auto name = file.path.substr(key.size(), end - key.size());
      if (names.size() < most && std::ranges::find(names, name) == names.end())
        names.push_back(std::move(name));
    }
    return names;
  }

 private:
  struct File {
    std::string path;
    std::string text;
  };

  static std::string Path(std::string_view path)
  {
    std::string slashed(path);
    std::ranges::replace(slashed, '\\', '/');
    return slashed;
  }
  static std::string Key(std::string_view path)
  {
    auto key = Path(path);
    for (char& c : key)
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return key;
  }

  std::map<std::string, File> files_;
};

class NoResources final : public platform::Resources {
 public:
  [[nodiscard]] std::string Help() const override { return {}; }
  [[nodiscard]] std::vector<std::byte> Picture() const override { return {}; }
};

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
      files.Put("/program/" + entry.path().filename().string(),
                std::string(std::istreambuf_iterator<char>(stream), {}));
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
    window_ = std::make_unique<app::MainWindow>(
        app::Outside{files, platform_.dialogs, platform_.process, platform_.clock, platform_.random,
                     platform_.screen, platform_.pictures, resources_, "/program"});
    window_->Form_Load("");
    if (window_->Ended() || !UnexpectedDialog().empty())
      throw std::runtime_error("the program did not start: " + UnexpectedDialog());
  }

  [[nodiscard]] app::MainWindow& Window() { return *window_; }
  /// The first dialog that came, empty when none did.
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
