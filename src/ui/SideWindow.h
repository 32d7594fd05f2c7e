// SPDX-License-Identifier: MIT
#pragma once

#include <wx/button.h>
#include <wx/frame.h>

#include <functional>

#include "app/MainWindow.h"

namespace velquist::ui {

constexpr int kUsualPercent = 72;  ///< of the desktop, of a window for much

/// A window beside the main one, which stays open while the user goes on there and shows after each
/// event what has come of it. Escape closes it; the shortcuts of the main window's menus work in
/// it.
class SideWindow : public wxFrame {
 public:
  /// Gives an event to the program as the main window does: not while another one is under way, and
  /// all windows are brought in line afterwards.
  using Give = std::function<void(const std::function<void()>& event)>;

  /// What a side window is made with.
  struct Setting {
    wxFrame* parent = nullptr;  ///< the main window, which it goes away with
    app::MainWindow& window;
    Give give;
  };

  /// `state` says whether it is open.
  SideWindow(const Setting& setting, app::SideWindowState app::MainForm::*state,
             const wxString& title, const wxString& name);

  /// Shows what differs from the last time. Called after each event while the window is open.
  virtual void BringInLine() = 0;

 protected:
  /// A button that has its tip said, too, and is called `spoken` where its caption does not say it.
  static wxButton* MakeButton(wxWindow* parent, const char* name, const char* caption,
                              const char* tip, const char* spoken = "");
  /// Over the main window: in its middle, or at its right edge.
  enum class Side { kMiddle, kRight };
  /// Makes the client area that large, and never smaller than `least`, or as large as the desktop
  /// allows.
  void TakeSize(wxSize client, wxSize least, Side side = Side::kMiddle);
  /// That part of the desktop.
  [[nodiscard]] wxSize OfDesktop(int percent) const;

  [[nodiscard]] app::MainWindow& Program() const { return window_; }
  void GiveEvent(const std::function<void()>& event) const { give_(event); }

 private:
  /// Down and to the right of windows beside the main one that it would cover, while there is room;
  /// else to the left.
  void StepAside();
  void OnClose(wxCloseEvent& event);

  app::MainWindow& window_;
  Give give_;
  app::SideWindowState app::MainForm::*state_;
};

}  // namespace velquist::ui
