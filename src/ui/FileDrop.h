// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dnd.h>

#include <functional>
#include <utility>

namespace velquist::ui {

/// Takes one file that is dropped on a window.
class FileDrop final : public wxFileDropTarget {
 public:
  explicit FileDrop(std::function<void(const wxString&)> dropped) : dropped_(std::move(dropped)) {}

  bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& files) override
  {
    if (files.size() != 1) return false;
    dropped_(files[0]);
    return true;
  }

 private:
  std::function<void(const wxString&)> dropped_;
};

}  // namespace velquist::ui
