// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include <algorithm>
#include <utility>

#include "app/EventEntry.h"
#include "app/FormControlSettings.h"
#include "platform/Errors.h"

namespace velquist::app {

using platform::Buttons;
using platform::Icon;

/// A control that something happens on, and what.
struct MainWindow::Clickable {
  std::string_view name;
  void (*handler)(MainWindow& window, int index);
};

MainWindow::MainWindow(Outside outside) : outside_(std::move(outside)) {}

void MainWindow::Fire(const Control& control)
{
  using Window = MainWindow;
  static constexpr std::array kHandlers = {
      Clickable{"CmdInc", [](Window& w, int i) { w.Step_Click(i, edit::Direction::kIncrease); }},
      Clickable{"CmdDec", [](Window& w, int i) { w.Step_Click(i, edit::Direction::kDecrease); }},
      Clickable{"Combo1", [](Window& w, int i) { w.Combo1_Click(i); }},
      Clickable{"Combo2", [](Window& w, int) { w.Combo2_Click(); }},
      Clickable{"Combo3", [](Window& w, int) { w.Combo3_Click(); }},
      Clickable{"Combo4", [](Window& w, int) { w.Combo4_Click(); }},
      Clickable{"Combo5", [](Window& w, int) { w.Combo5_Click(); }},
      Clickable{"Combo6", [](Window& w, int) { w.Combo6_Click(); }},
      Clickable{"Combo7", [](Window& w, int) { w.Combo7_Click(); }},
      Clickable{"OptUnits", [](Window& w, int) { w.OptUnits_Click(); }},
      Clickable{"AsymmetricCheck", [](Window& w, int) { w.AsymmetricCheck_Click(); }},
      Clickable{"FineCheck", [](Window& w, int) { w.FineCheck_Click(); }},
      Clickable{"RollBarConstTotal", [](Window& w, int) { w.RollBarConstTotal_Click(); }},
      Clickable{"SpringStiffnessProportional",
                [](Window& w, int) { w.SpringStiffnessProportional_Click(); }},
      Clickable{"MnuNew", [](Window& w, int) { w.MnuNew_Click(); }},
      Clickable{"MnuOpen", [](Window& w, int) { w.MnuOpen_Click(); }},
      Clickable{"MnuSave", [](Window& w, int) { w.MnuSave_Click(); }},
      Clickable{"MnuSaveAs", [](Window& w, int) { w.MnuSaveAs_Click(); }},
      Clickable{"MnuRevert", [](Window& w, int) { w.MnuRevert_Click(); }},
      Clickable{"MnuExport", [](Window& w, int) { w.MnuExport_Click(); }},
      Clickable{"MnuExit", [](Window& w, int) { w.MayClose(); }},
      Clickable{"MnuImportChassis", [](Window& w, int) { w.MnuImportChassis_Click(); }},
      Clickable{"MnuImportDrivetrain", [](Window& w, int) { w.MnuImportDrivetrain_Click(); }},
      Clickable{"MnuReverse", [](Window& w, int) { w.MnuReverse_Click(); }},
      Clickable{"MnuShortFormat", [](Window& w, int) { w.MnuFormat_Click(false); }},
      Clickable{"MnuLongFormat", [](Window& w, int) { w.MnuFormat_Click(true); }},
      Clickable{"MnuAddInstall", [](Window& w, int) { w.MnuAddInstall_Click(); }},
      Clickable{"MnuDeleteInstall", [](Window& w, int) { w.MnuDeleteInstall_Click(); }},
      Clickable{"MnuHelp2", [](Window& w, int) { w.MnuHelp2_Click(); }},
      Clickable{"MnuAbout", [](Window& w, int) { w.MnuAbout_Click(); }},
  };
  const auto found = std::ranges::find(kHandlers, control.design->name, &Clickable::name);
  if (found != kHandlers.end()) found->handler(*this, control.design->index);
}

bool MainWindow::Click(std::string_view name, int index)
{
  const Control* control = std::as_const(form_).Find(name, index);
  if (control == nullptr || ended_) return false;
  Event([&] { Fire(*control); });
  return true;
}

bool MainWindow::Check(std::string_view name, int index, bool checked)
{
  Control* box = form_.Find(name, index);
  if (box == nullptr || box->design == nullptr || ended_) return false;
  Event([&] { AllOrNothing([&] { SetChecked(*box, checked); }); });
  return true;
}

bool MainWindow::Select(std::string_view name, int index, int selection)
{
  Control* list = form_.Find(name, index);
  if (list == nullptr || list->design == nullptr || ended_) return false;
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
    for (auto& option : form_.OptUnits) option.checked = false;
    checked = true;
  }
  box.checked = checked;
  Fire(box);
}

void MainWindow::Tell(std::string_view text, Icon icon)
{
  outside_.dialogs.ShowMessage(text, icon, Buttons::kOk);
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
