// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>
#include <wx/panel.h>

#include <cstddef>
#include <functional>
#include <vector>

#include "app/MainWindow.h"
#include "platform_wx/TickTimer.h"
#include "platform_wx/WxPictureLoader.h"
#include "ui/ChartBox.h"
#include "ui/DifferenceCount.h"
#include "ui/DifferenceTexts.h"
#include "ui/LargerLetters.h"
#include "ui/Menus.h"
#include "ui/PictureBoxes.h"
#include "ui/RowKeys.h"
#include "ui/SideWindows.h"
#include "ui/UnsavedMark.h"
#include "ui/ValueField.h"
#include "ui/ValueTips.h"
#include "ui/Widgets.h"

namespace velquist::ui {

/// The main window on the screen: hands what the user does to app::MainWindow and shows what its
/// form says afterwards. Goes away when the program has ended.
class FrmMain final : public wxFrame {
 public:
  /// `window` is started and has not ended; it and `pictures` outlive this window. The client
  /// area is that of the layout on `screen`.
  FrmMain(app::MainWindow& window, const platform::Screen& screen,
          platform::WxPictureLoader& pictures);

  /// Lets the time run for the marquee; without it only timer events given to the window do.
  void RunMarquee();

  bool Show(bool show = true) override;
  [[nodiscard]] const Menus& GetMenus() const { return menus_; }
  [[nodiscard]] const platform::TickTimer& MarqueeTimer() const { return timer_; }

 private:
  void MakeWidgets(platform::WxPictureLoader& pictures);
  wxWindow* MakeWindow(const app::ControlDesign& design, wxWindowID id,
                       platform::WxPictureLoader& pictures);
  /// A key pressed before another is chosen must not drop the setup.
  void FocusFirstStepButton();
  void BindEvents();

  /// Gives `event` to the program, unless one is under way, and shows what came of it.
  void Handle(const std::function<void()>& event);
  /// False when another event is under way or the window is going.
  bool Give(const std::function<void()>& event);
  void ShowChanges();
  void MakeStatusLine();
  /// Where the setup stands: unsaved or saved, where to, and what was done last.
  void ShowFile();
  /// Has everything placed anew when the client area has another size.
  void LayOut();
  void SetTimer();

  void OnButton(wxCommandEvent& event);
  void OnChosen(wxCommandEvent& event);
  void OnChecked(wxCommandEvent& event);
  void OnTick();
  void OnSize(wxSizeEvent& event);
  void OnClose(wxCloseEvent& event);

  [[nodiscard]] const app::ControlDesign* DesignOf(int id) const;
  void TakeUserChange(const wxCommandEvent& event);

  app::MainWindow& window_;
  wxPanel* panel_ = nullptr;
  wxWindow* file_label_ = nullptr;
  Menus menus_;
  SideWindows beside_;
  std::vector<ControlWidget> widgets_;
  LargerLetters larger_letters_{widgets_};
  RowKeys keys_{*this, [this](int slot) { field_.Open(slot); }};
  ValueField field_;
  ValueTips tips_{window_};
  DifferenceTexts differences_;
  DifferenceCount* count_ = nullptr;
  std::vector<ChartBox*> charts_;
  CarPictureBox* car_ = nullptr;
  MarqueeBox* marquee_ = nullptr;
  UnsavedMark* unsaved_ = nullptr;
  std::string status_;     ///< as last shown
  std::string save_path_;  ///< that the file label's tool tip tells
  platform::TickTimer timer_;
  bool marquee_runs_ = false;
  wxSize laid_out_for_;    ///< client area that the places in the form are for
  bool handling_ = false;  ///< an event is under way, which may have a box on the screen
};

}  // namespace velquist::ui
