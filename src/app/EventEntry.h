// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "app/Flag.h"
#include "app/MainWindow.h"
#include "platform/Errors.h"
#include "platform/FileReason.h"

/// How an event is entered and what happens when it cannot be carried out. Included by the sources
/// of MainWindow alone.
namespace velquist::app {

/// What is told of a setup file whose values cannot be used, or that cannot be read.
inline constexpr std::string_view kWrongFile =
    "There is something wrong with this setup file.  Please select another file.";

/// What there was before a command.
struct MainWindow::Before {
  edit::CarSnapshot car;
  Globals globals;
  MainForm form;
};

/// Runs a command from the user. What it throws ends here; the command itself has gone back by
/// then to where it was.
template <class Command>
void MainWindow::Event(Command&& command)
{
  if (ended_) return;
  try {
    std::forward<Command>(command)();
  } catch (const ProgramEnd&) {
    ended_ = true;
  } catch (const BoundsError&) {
    const auto file = std::string(std::exchange(incomplete_data_file_, {}));
    Tell(file.empty() ? std::string("This cannot be done: the setup or one of the program's data "
                                    "files is damaged or incomplete.  Nothing was changed.")
                      : "This cannot be done: the data file " +
                            outside_.files.HostText(outside_.program_directory + "\\" + file) +
                            " is incomplete.  Nothing was changed.",
         platform::Icon::kExclamation);
  } catch (const FileError& error) {
    Tell(platform::ToldPath(error.Path()) + "\n" + error.Reason() + ".",
         platform::Icon::kExclamation);
  } catch (const std::exception& error) {
    Tell(std::string("This cannot be done: ") + error.what() + ".  Nothing was changed.",
         platform::Icon::kExclamation);
  }
  showing_.ShowHistory();
}

/// Runs a part of a command that changes everything or nothing.
template <class Command>
void MainWindow::AllOrNothing(Command&& command)
{
  Before before{car_.Snapshot(), globals_, form_};
  try {
    std::forward<Command>(command)();
  } catch (const ProgramEnd&) {
    throw;
  } catch (...) {
    GoBack(std::move(before));
    throw;
  }
}

inline void MainWindow::GoBack(Before before)
{
  car_.Restore(std::move(before.car));
  globals_ = std::move(before.globals);
  form_ = std::move(before.form);
}

}  // namespace velquist::app
