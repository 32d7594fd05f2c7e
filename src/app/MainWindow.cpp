// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "app/Choosing.h"
#include "app/EventEntry.h"
#include "app/FormControlSettings.h"
#include "platform/Errors.h"
#include "platform/Paths.h"

namespace velquist::app {

using platform::Buttons;
using platform::Icon;

namespace {

/// The control when it is of one of the kinds.
Control* FindOf(MainForm& form, std::string_view name, int index,
                std::initializer_list<ControlKind> kinds) noexcept
{
  Control* control = form.Find(name, index);
  const bool is_one =
      control != nullptr && std::ranges::find(kinds, control->design->kind) != kinds.end();
  return is_one ? control : nullptr;
}

}  // namespace

MainWindow::MainWindow(Outside outside) : outside_(std::move(outside)) {}

bool MainWindow::Click(std::string_view name, int index, bool repeated)
{
  const Control* control = FindOf(form_, name, index, {ControlKind::kButton, ControlKind::kMenu});
  if (control == nullptr || control->design->event == nullptr || ended_) return false;
  const Flag held(repeated_, repeated);
  Event([&] { Fire(*this, *control); });
  return true;
}

bool MainWindow::Check(std::string_view name, int index, bool checked)
{
  Control* box = FindOf(form_, name, index, {ControlKind::kCheck, ControlKind::kOption});
  if (box == nullptr || ended_) return false;
  Event([&] { AllOrNothing([&] { SetChecked(*this, form_, *box, checked); }); });
  return true;
}

bool MainWindow::Select(std::string_view name, int index, int selection)
{
  Control* list = FindOf(form_, name, index, {ControlKind::kList});
  if (list == nullptr || ended_) return false;
  Event([&] { AllOrNothing([&] { Choose(*this, *list, selection); }); });
  return true;
}

void MainWindow::Tell(std::string_view text, Icon icon)
{
  outside_.dialogs.ShowMessage(text, icon, Buttons::kOk);
}

/// Shows what was done to a file, which its own name and its directory's tell.
void MainWindow::Say(std::string_view done, std::string_view path)
{
  form_.status.assign(done).append(" ");
  if (const auto directory = platform::FileNameOf(platform::DirectoryOf(path)); !directory.empty())
    form_.status.append(directory).append("/");
  form_.status.append(platform::FileNameOf(path));
}

void MainWindow::SideWindowClosed(SideWindowState MainForm::*window)
{
  Event([&] { (form_.*window).open = false; });
}

void MainWindow::EndWith(std::string_view text, Icon icon)
{
  Tell(text, icon);
  throw ProgramEnd{};
}

bool MainWindow::CloseRequested()
{
  Event([&] { MayClose(); });
  return ended_;
}

void MainWindow::Tick()
{
  Event([&] { marquee_.Move(); });
}

int MainWindow::UntilTick() const
{
  return marquee_.UntilTick();
}

void MainWindow::Resized(int client_width, int client_height)
{
  Event([&] {
    const int marquee_width = form_.Picture1.place.width;
    ScaleControls(form_, {static_cast<float>(client_width) / kDesignClientWidth,
                          static_cast<float>(client_height) / kDesignClientHeight});
    LayOut();
    marquee_.Resized(marquee_width);
  });
}

}  // namespace velquist::app
