// SPDX-License-Identifier: MIT
#include "RealWindow.h"

#include <gtk/gtk.h>
#include <wx/bitmap.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

#include <chrono>
#include <stdexcept>
#include <thread>

#include "platform_wx/WxText.h"
#include "runner/window/WindowSystem.h"
#include "ui/Widgets.h"

namespace velquist::testing {

using app::ControlKind;

namespace {

constexpr double kUsualResolution = 96;

}  // namespace

SystemText::SystemText(double scale)
{
  gdk_screen_set_resolution(gdk_screen_get_default(), kUsualResolution * scale);
}

SystemText::~SystemText()
{
  gdk_screen_set_resolution(gdk_screen_get_default(), kUsualResolution);
}

void RealWindow::Start(ScreenSize screen)
{
  // Names as long as the game's own longest ones.
  editor.Play(
      "dir $G/Players/Jean-Pierre_Bosteile/Setups/nurburgring_24h\n"
      "screen " +
      std::to_string(screen.width) + " " + std::to_string(screen.height) + "\n");
  editor.StartWithGame();
}

ui::FrmMain& RealWindow::Frame() const
{
  auto* const frame = dynamic_cast<ui::FrmMain*>(wxWindow::FindWindowByName("FrmMain"));
  if (frame == nullptr) throw std::runtime_error("there is no main window");
  return *frame;
}

wxWindow* RealWindow::Widget(const app::ControlDesign& design) const
{
  if (design.kind == ControlKind::kMenu) return nullptr;
  return wxWindow::FindWindowByName(ui::WindowName(design), &Frame());
}

wxWindow* RealWindow::Widget(const char* name) const
{
  return wxWindow::FindWindowByName(name, &Frame());
}

wxImage RealWindow::Seen(wxWindow& widget)
{
  const auto area = widget.GetClientSize();
  wxClientDC screen(&widget);
  wxBitmap shown(area.x, area.y);
  wxMemoryDC memory(shown);
  memory.Blit(0, 0, area.x, area.y, &screen, 0, 0);
  memory.SelectObject(wxNullBitmap);
  return shown.ConvertToImage();
}

std::vector<unsigned char> RealWindow::Pixels(const char* name) const
{
  const auto image = Seen(*Widget(name));
  const auto bytes = static_cast<std::size_t>(image.GetWidth() * image.GetHeight()) * 3;
  return {image.GetData(), image.GetData() + bytes};
}

bool IsInteractive(const app::ControlDesign& design)
{
  return design.kind == ControlKind::kButton || design.kind == ControlKind::kList ||
         design.kind == ControlKind::kCheck || design.kind == ControlKind::kOption;
}

std::string NameOf(const app::ControlDesign& design)
{
  return platform::ToText(ui::WindowName(design));
}

bool WaitUntil(const std::function<bool()>& done, int milliseconds)
{
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (!done() && std::chrono::steady_clock::now() < end) {
    runner::LetWindowSystemWork();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return done();
}

void LetTimePass(int milliseconds)
{
  (void)WaitUntil([] { return false; }, milliseconds);
}

}  // namespace velquist::testing
