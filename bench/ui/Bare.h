// SPDX-License-Identifier: MIT
#pragma once

#ifndef _WIN32
#include <glib.h>
#endif

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/menu.h>

#include <map>
#include <string_view>

#include "app/FormControlSettings.h"
#include "platform_wx/WxText.h"

namespace velquist::bench {

/// What every program with a window has: a frame as large as the editor's, with its menus. Nothing
/// happens in it.
inline wxFrame* MakeFrame()
{
  auto* const frame = new wxFrame(nullptr, wxID_ANY, "Bare");
  auto* const bar = new wxMenuBar;
  std::map<std::string_view, wxMenu*> menus;
  for (const auto& design : app::FormControlSettings()) {
    if (design.kind != app::ControlKind::kMenu) continue;
    const wxString caption = platform::FromText(design.caption);
    if (design.event == nullptr) {
      menus[design.name] = new wxMenu;
      if (design.frame.empty())
        bar->Append(menus[design.name], caption);
      else
        menus[design.frame]->AppendSubMenu(menus[design.name], caption);
    } else {
      menus[design.frame]->Append(wxID_ANY, caption);
    }
  }
  frame->SetMenuBar(bar);
  frame->SetClientSize(app::kDesignClientWidth, app::kDesignClientHeight);
  return frame;
}

/// Shows the frame that `make` makes until the program is ended from outside.
template <class Make>
class Program final : public wxApp {
 public:
  explicit Program(Make make) : make_(make) {}

  bool OnInit() override
  {
    make_()->Show();
    return true;
  }

 private:
  Make make_;
};

/// The places are narrower than the theme would have some controls, which nobody is told here.
inline void BeQuiet()
{
#ifndef _WIN32
  g_log_set_writer_func(
      [](GLogLevelFlags, const GLogField*, gsize, gpointer) { return G_LOG_WRITER_HANDLED; },
      nullptr, nullptr);
#endif
}

template <class Make>
int Run(int argc, char** argv, Make make)
{
  BeQuiet();
  wxApp::SetInstance(new Program(make));
  return wxEntry(argc, argv);
}

}  // namespace velquist::bench
