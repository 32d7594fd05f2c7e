// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "Nothing.h"
#include "runner/Play.h"

namespace velquist::testing {

/// A setup of the example installation, with the year that it is for.
struct Example {
  std::string path;  ///< below examples/GPL
  std::string year;  ///< as in the list of mod years
};

/// The setups that examples/README.md lists.
[[nodiscard]] std::vector<Example> Examples();

enum class WithBuffer { kNo, kYes };

/// Everything that the program keeps and shows, one item a line, for comparing before and after.
[[nodiscard]] std::string Everything(const app::MainWindow& window, WithBuffer with_buffer);

/// The program without its window, on real files in a directory of its own, played by pieces of
/// scenario script. Every dialog must be announced.
class ScriptedEditor {
 public:
  /// Without the window, unless another driver is given.
  explicit ScriptedEditor(std::unique_ptr<runner::Driver> driver = runner::MakeModelDriver());

  /// The window may still be painted while it goes: before what it shows.
  ~ScriptedEditor() { driver_->Stop(); }
  ScriptedEditor(const ScriptedEditor&) = delete;
  ScriptedEditor& operator=(const ScriptedEditor&) = delete;

  /// Plays the lines of a script. The first that fails is a failure of the test, as is a dialog
  /// that was announced and has not come at the end of the piece.
  void Play(const std::string& script);

  /// Plays a game installation of all mod years with the track monza of the player Jim, and starts.
  void StartWithGame();

  /// Copies the example installation and starts for the first time on it.
  void StartWithExamples();
  /// Opens a setup of it, answering the mod year question where there is one.
  void Open(const Example& example);

  [[nodiscard]] const app::MainWindow& Window() const { return driver_->Window(); }
  [[nodiscard]] std::string Everything(WithBuffer with_buffer) const
  {
    return testing::Everything(Window(), with_buffer);
  }

  /// What `dump` and `print` have put out so far.
  [[nodiscard]] std::string Output() const { return out_.str(); }

  /// The host path of a script's path.
  [[nodiscard]] std::filesystem::path Path(const std::string& path) const;
  [[nodiscard]] runner::World& World() noexcept { return world_; }

 private:
  runner::World world_;
  std::unique_ptr<runner::Driver> driver_;
  runner::ScriptedPlatform outside_;
  NoResources resources_;
  std::ostringstream out_;
  runner::Play play_;
};

}  // namespace velquist::testing
