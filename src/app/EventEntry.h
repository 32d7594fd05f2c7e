// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include "app/MainWindow.h"
#include "platform/Errors.h"

/// How an event is entered and what happens when it cannot be carried out. Included by the sources
/// of MainWindow alone.
namespace velquist::app {

/// What there was before a command.
struct MainWindow::Before {
  Globals globals;
  MainForm form;
};

/// Runs a command from the user. What it throws ends here.
template <class Command>
void MainWindow::Event(Command&& command)
{
  if (ended_) return;
  try {
    std::forward<Command>(command)();
  } catch (const ProgramEnd&) {
    ended_ = true;
  } catch (const BoundsError&) {
    Tell(
        "This cannot be done: the setup or one of the program's data files is damaged or "
        "incomplete.  Nothing was changed.",
        platform::Icon::kExclamation);
  } catch (const FileError& error) {
    Tell(error.Path() + "\n" + error.Reason() + ".", platform::Icon::kExclamation);
  }
}

/// Runs a part of a command that changes everything or nothing.
template <class Command>
void MainWindow::AllOrNothing(Command&& command)
{
  Before before{globals_, form_};
  try {
    std::forward<Command>(command)();
  } catch (const ProgramEnd&) {
    throw;
  } catch (...) {
    globals_ = std::move(before.globals);
    form_ = std::move(before.form);
    throw;
  }
}

}  // namespace velquist::app
