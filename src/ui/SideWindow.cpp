// SPDX-License-Identifier: MIT
#include "ui/SideWindow.h"

#include <wx/menu.h>

#include <vector>

#include "platform_wx/ProgramIcons.h"

namespace velquist::ui {
namespace {

void AddShortcuts(const wxMenu& menu, std::vector<wxAcceleratorEntry>& shortcuts)
{
  for (const auto* const item : menu.GetMenuItems()) {
    if (item->GetSubMenu() != nullptr) AddShortcuts(*item->GetSubMenu(), shortcuts);
    if (const auto* const accelerator = item->GetAccel()) {
      shortcuts.push_back(*accelerator);
      shortcuts.back().Set(accelerator->GetFlags(), accelerator->GetKeyCode(), item->GetId());
    }
  }
}

wxAcceleratorTable ShortcutsOf(const wxMenuBar& bar)
{
  std::vector<wxAcceleratorEntry> shortcuts;
  for (std::size_t menu = 0; menu < bar.GetMenuCount(); ++menu)
    AddShortcuts(*bar.GetMenu(menu), shortcuts);
  return {static_cast<int>(shortcuts.size()), shortcuts.data()};
}

}  // namespace

SideWindow::SideWindow(const Setting& setting, app::SideWindowState app::MainForm::*state,
                       const wxString& title, const wxString& name)
    : wxFrame(setting.parent, wxID_ANY, title, wxDefaultPosition, wxDefaultSize,
              wxDEFAULT_FRAME_STYLE | wxFRAME_FLOAT_ON_PARENT, name),
      window_(setting.window),
      give_(setting.give),
      state_(state)
{
  SetIcons(platform::ProgramIcons());
  SetAcceleratorTable(ShortcutsOf(*setting.parent->GetMenuBar()));
  Bind(wxEVT_MENU,
       [this](wxCommandEvent& event) { GetParent()->GetEventHandler()->ProcessEvent(event); });
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_ESCAPE && event.GetModifiers() == wxMOD_NONE)
      Close();
    else
      event.Skip();
  });
  Bind(wxEVT_CLOSE_WINDOW, &SideWindow::OnClose, this);
}

/// It stays as it is for the next time; the main window has the focus again.
void SideWindow::OnClose(wxCloseEvent& event)
{
  if (!event.CanVeto()) {
    Destroy();
    return;
  }
  event.Veto();
  GiveEvent([this] { window_.SideWindowClosed(state_); });
}

}  // namespace velquist::ui
