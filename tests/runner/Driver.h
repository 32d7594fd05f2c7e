// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/Dialogs.h"
#include "app/Library.h"
#include "app/MainWindow.h"

namespace velquist::runner {

/// A control as the user sees it at this moment.
struct SeenControl {
  app::ControlKind kind = app::ControlKind::kLabel;
  std::string text;  ///< without mnemonic and shortcut; of a list: the selected item
  std::vector<std::string> items;
  int selection = -1;
  bool shown = true;    ///< itself and every frame or menu around it
  bool enabled = true;  ///< its own state, whatever the frame around it
  bool checked = false;
  app::Place place;
  bool marked = false;  ///< set off because it differs from the reference
};

/// Plays a user on the program, either on the main window's state alone or on the real window.
class Driver {
 public:
  virtual ~Driver() = default;

  /// A new program with these interfaces, through the whole start-up.
  virtual void Start(const app::Outside& outside, std::string_view command_line) = 0;
  /// Drops the program without a close request.
  virtual void Stop() = 0;
  [[nodiscard]] virtual bool Running() const = 0;

  /// Nothing when the program has no such control. `index` is -1 for a single control.
  [[nodiscard]] virtual std::optional<SeenControl> Seen(std::string_view name, int index) = 0;
  [[nodiscard]] virtual std::string Caption() = 0;
  /// What was done last.
  [[nodiscard]] virtual std::string Status() = 0;

  /// The caller has made sure that the control is there, shown and enabled.
  /// False when nothing happens on it.
  [[nodiscard]] virtual bool Click(std::string_view name, int index) = 0;
  virtual void Check(std::string_view name, int index, bool checked) = 0;
  virtual void Select(std::string_view name, int index, int position) = 0;
  /// Types a number for the value of a slot; what it is refused with, nothing when it is taken.
  [[nodiscard]] virtual std::string Type(int slot, const std::string& text) = 0;
  virtual void Close() = 0;
  /// Lets the program do what has fallen due.
  virtual void Tick() = 0;
  /// The window gets the focus.
  virtual void Focus() = 0;

  /// All setups; as its window has them sorted and filtered while that is open.
  [[nodiscard]] virtual app::Library& Library() = 0;
  /// What the user types and presses in the library's window, which must be open.
  virtual void FilterLibrary(std::string_view text) = 0;
  virtual void SortLibrary(int column) = 0;
  enum class LibraryCommand { kOpen, kReference, kExport, kShow };
  /// `path` is among those shown.
  virtual void UseOfLibrary(LibraryCommand command, const std::string& path) = 0;

  /// Our own forms, answered as the script says. The model has no forms and passes the answer on;
  /// the window shows the real form and presses the real buttons.
  virtual std::optional<int> AnswerModYear(app::ModYearForm form, std::string_view message,
                                           std::optional<int> button);
  struct DeleteStep {
    enum class Kind { kSelect, kDelete, kCancel } kind = Kind::kCancel;
    int position = 0;  ///< of kSelect
  };
  virtual void AnswerInstallDelete(app::InstallDeleteForm& form,
                                   const std::vector<DeleteStep>& steps);
  virtual void AnswerHelp();

  /// The program's state below the window; only while the program runs.
  [[nodiscard]] virtual const app::MainWindow& Window() const = 0;
};

[[nodiscard]] std::unique_ptr<Driver> MakeModelDriver();
/// The real window; the toolkit must have been initialised.
[[nodiscard]] std::unique_ptr<Driver> MakeWindowDriver();
/// Initialises the toolkit, runs `body`, shuts the toolkit down and returns what `body` did.
/// Without a display it says so on standard error and returns 2.
int RunWithWindowSystem(const std::function<int()>& body);

}  // namespace velquist::runner
