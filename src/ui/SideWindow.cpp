// SPDX-License-Identifier: MIT
#include "ui/SideWindow.h"

#include <wx/display.h>
#include <wx/menu.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform_wx/NativeLook.h"
#include "platform_wx/ProgramIcons.h"
#include "platform_wx/Spoken.h"

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
  platform::ChangeButtonsAtOnce(*this);
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

wxButton* SideWindow::MakeButton(wxWindow* parent, const char* name, const char* caption,
                                 const char* tip, const char* spoken)
{
  auto* const button = new wxButton(parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0,
                                    wxDefaultValidator, name);
  button->SetToolTip(tip);
  platform::SetSpoken(*button, spoken, tip);
  return button;
}

wxSize SideWindow::OfDesktop(int percent) const
{
  const wxSize desktop = wxDisplay(GetParent()).GetClientArea().GetSize();
  return desktop * percent / 100;
}

void SideWindow::TakeSize(wxSize client, wxSize least, Side side)
{
  // With room for the title, which has no size before it is shown.
  constexpr int kMostPercent = 92;
  client.DecTo(OfDesktop(kMostPercent));
  least.DecTo(client);
  SetMinClientSize(least);
  platform::SetFirstClientSize(*this, client);
  CentreOnParent();
  if (side == Side::kRight) {
    const wxRect around = GetParent()->GetScreenRect();
    Move(std::max(around.GetRight() - GetSize().x, around.x), GetPosition().y);
  }
  StepAside();
}

void SideWindow::StepAside()
{
  constexpr int kStep = 28;
  const wxRect desktop = wxDisplay(GetParent()).GetClientArea();
  const wxPoint at = GetPosition();
  const auto hides = [this](const wxWindow* other) {
    return other != this && other->IsTopLevel() && other->IsShown() &&
           (std::abs((other->GetPosition() - GetPosition()).x) < kStep / 2 ||
            GetRect().Contains(other->GetRect()));
  };
  for (const int right : {FromDIP(kStep), -FromDIP(kStep)}) {
    Move(at);
    for (;;) {
      if (std::ranges::none_of(GetParent()->GetChildren(), hides)) return;
      const wxRect moved(GetPosition() + wxPoint(right, FromDIP(kStep)), GetSize());
      if (!desktop.Contains(moved)) break;
      Move(moved.GetPosition());
    }
  }
  Move(at);  // there is no room to step aside
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
