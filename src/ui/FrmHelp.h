// SPDX-License-Identifier: MIT
#pragma once

#include <wx/button.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <string_view>

namespace velquist::ui {

/// Shows the manual in `Text1`. Ctrl+F opens a search bar, F3 goes on to the next place, Escape
/// closes the bar and then the window.
class FrmHelp final : public wxFrame {
 public:
  FrmHelp(wxWindow* parent, std::string_view manual);

 private:
  void MakeSearchBar();
  void BindKeys();
  void ShowSearchBar(bool shown);
  void FindNext(bool forward);
  /// Everything in proportion to the client area; the text leaves room for the search bar.
  void PlaceControls();

  wxPanel* panel_ = nullptr;
  wxTextCtrl* text_ = nullptr;
  wxPanel* bar_ = nullptr;
  wxTextCtrl* wanted_ = nullptr;
  wxStaticText* result_ = nullptr;
  wxString searched_;  ///< the manual in lower case
  static constexpr long kNowhere = -1;
  long found_ = kNowhere;  ///< where what was found last begins and ends
  long found_end_ = kNowhere;
};

}  // namespace velquist::ui
