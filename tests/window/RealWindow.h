// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <wx/image.h>
#include <wx/modalhook.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ScriptedEditor.h"
#include "app/FormControlSettings.h"
#include "ui/FrmMain.h"

namespace velquist::testing {

struct ScreenSize {
  int width;
  int height;
};

/// While it lives, text of the system is that many times as large as usual.
class SystemText {
 public:
  explicit SystemText(double scale);
  ~SystemText();
  SystemText(const SystemText&) = delete;
  SystemText& operator=(const SystemText&) = delete;
};

/// The program with its real window on a game installation of all mod years.
class RealWindow : public ::testing::Test {
 protected:
  RealWindow() : editor(runner::MakeWindowDriver()) {}

  /// Starts on a screen of that size.
  void Start(ScreenSize screen = {1280, 1024});

  [[nodiscard]] ui::FrmMain& Frame() const;
  /// The widget of a row of the layout; null for menus and for the text of the marquee.
  [[nodiscard]] wxWindow* Widget(const app::ControlDesign& design) const;
  [[nodiscard]] wxWindow* Widget(const char* name) const;

  /// What is on the screen of a widget, without its border.
  [[nodiscard]] static wxImage Seen(wxWindow& widget);
  /// The same as red, green and blue of every pixel.
  [[nodiscard]] std::vector<unsigned char> Pixels(const char* name) const;

  ScriptedEditor editor;
};

/// Looks when a box comes up.
class AtBox final : public wxModalDialogHook {
 public:
  explicit AtBox(std::function<void()> look) : look_(std::move(look)) { Register(); }
  ~AtBox() override { Unregister(); }

 private:
  int Enter(wxDialog* /*box*/) override
  {
    look_();
    return wxID_NONE;
  }

  std::function<void()> look_;
};

/// The user works with it.
[[nodiscard]] bool IsInteractive(const app::ControlDesign& design);

/// "CmdInc(4)".
[[nodiscard]] std::string NameOf(const app::ControlDesign& design);

/// Lets the window system work until `done` or for `milliseconds`; what `done` says at the end.
bool WaitUntil(const std::function<bool()>& done, int milliseconds = 5000);
void LetTimePass(int milliseconds);

}  // namespace velquist::testing
