// SPDX-License-Identifier: MIT
#include "ui/SideWindows.h"

#include <utility>

#include "ui/FrmCompare.h"
#include "ui/FrmGearing.h"
#include "ui/FrmLibrary.h"

namespace velquist::ui {
namespace {

struct Row {
  app::SideWindowState app::MainForm::*state;
  SideWindow* (*make)(const SideWindow::Setting& setting);
};

template <class Window>
SideWindow* Make(const SideWindow::Setting& setting)
{
  return new Window(setting);
}

/// One row a window.
constexpr std::array<Row, 3> kRows = {{
    {&app::MainForm::compare, Make<FrmCompare>},
    {&app::MainForm::gearing, Make<FrmGearing>},
    {&app::MainForm::library, Make<FrmLibrary>},
}};

}  // namespace

SideWindows::SideWindows(SideWindow::Setting setting)
    : setting_(std::move(setting)), places_(kRows.size())
{
}

void SideWindows::BringInLine()
{
  for (std::size_t row = 0; row < kRows.size(); ++row) {
    const auto& state = setting_.window.Form().*kRows[row].state;
    auto& [window, asked] = places_[row];
    const bool asked_again = std::exchange(asked, state.asked) != state.asked;
    if (!state.open) {
      if (window != nullptr && window->IsShown()) {
        window->Hide();
        setting_.parent->Raise();
      }
      continue;
    }
    if (window == nullptr) window = kRows[row].make(setting_);
    window->BringInLine();
    if (!asked_again) continue;
    window->Show();
    window->Raise();
  }
}

}  // namespace velquist::ui
