// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include <algorithm>
#include <utility>

#include "app/EventEntry.h"
#include "app/FormControlSettings.h"
#include "platform/Errors.h"
#include "platform/Paths.h"

namespace velquist::app {

using platform::Buttons;
using platform::Icon;

MainWindow::MainWindow(Outside outside) : outside_(std::move(outside)) {}

/// Nothing happens on a row without an event.
void MainWindow::Fire(const Control& control)
{
  control.design->event(*this, control.design->index);
}

Control* MainWindow::FindOf(std::string_view name, int index,
                            std::initializer_list<ControlKind> kinds) noexcept
{
  Control* control = form_.Find(name, index);
  const bool is_one =
      control != nullptr && std::ranges::find(kinds, control->design->kind) != kinds.end();
  return is_one ? control : nullptr;
}

bool MainWindow::Click(std::string_view name, int index, bool repeated)
{
  const Control* control = FindOf(name, index, {ControlKind::kButton, ControlKind::kMenu});
  if (control == nullptr || control->design->event == nullptr || ended_) return false;
  const Flag held(repeated_, repeated);
  Event([&] { Fire(*control); });
  return true;
}

bool MainWindow::Check(std::string_view name, int index, bool checked)
{
  Control* box = FindOf(name, index, {ControlKind::kCheck, ControlKind::kOption});
  if (box == nullptr || ended_) return false;
  Event([&] { AllOrNothing([&] { SetChecked(*box, checked); }); });
  return true;
}

bool MainWindow::Select(std::string_view name, int index, int selection)
{
  Control* list = FindOf(name, index, {ControlKind::kList});
  if (list == nullptr || ended_) return false;
  Event([&] { AllOrNothing([&] { Choose(*list, selection); }); });
  return true;
}

void MainWindow::Choose(Control& list, int index)
{
  if (index < 0 || static_cast<std::size_t>(index) >= list.items.size())
    throw BoundsError("selection " + std::to_string(index));
  list.selection = index;
  list.text = list.items[static_cast<std::size_t>(index)];
  Fire(list);
}

bool MainWindow::ChooseText(Control& list, std::string_view text)
{
  const auto found = std::ranges::find(list.items, text);
  if (found == list.items.end()) {
    list.selection = -1;
    list.text.clear();
    return false;
  }
  Choose(list, static_cast<int>(found - list.items.begin()));
  return true;
}

void MainWindow::ChooseOrAdd(Control& list, const std::string& name)
{
  if (std::ranges::find(list.items, name) == list.items.end()) list.items.push_back(name);
  ChooseText(list, name);
}

void MainWindow::SetChecked(Control& box, bool checked)
{
  if (box.design->kind == ControlKind::kOption) {
    for (auto& option : box.design->member.places(form_)) option.checked = false;
    checked = true;
  }
  box.checked = checked;
  Fire(box);
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

void MainWindow::AskFor(SideWindowState MainForm::*window)
{
  auto& state = form_.*window;
  state.open = true;
  ++state.asked;
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

std::string MainWindow::HostText(std::string_view path) const
{
  return outside_.files.HostText(path);
}

bool MainWindow::CloseRequested()
{
  Event([&] { MayClose(); });
  return ended_;
}

void MainWindow::FileDropped(std::string_view path)
{
  Event([&] {
    if (SaveFirst()) OpenPath(std::string(path));
  });
}

void MainWindow::Tick()
{
  Event([&] { MoveMarquee(); });
}

void MainWindow::Resized(int client_width, int client_height)
{
  Event([&] {
    const int marquee_width = form_.Picture1.place.width;
    ScaleControls(form_, {static_cast<float>(client_width) / kDesignClientWidth,
                          static_cast<float>(client_height) / kDesignClientHeight});
    LayOut();
    ResizeMarquee(marquee_width);
  });
}

}  // namespace velquist::app
