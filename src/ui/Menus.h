// SPDX-License-Identifier: MIT
#pragma once

#include <wx/menu.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/MainForm.h"

namespace velquist::ui {

/// The menu bar, built from the rows of the layout that are menus; a row is an entry of the menu
/// that its frame names.
class Menus {
 public:
  /// The entry of row N of the layout has the window id `first_id` + N.
  Menus(const app::MainForm& form, int first_id);

  /// The bar for the window to take over.
  [[nodiscard]] wxMenuBar* Bar() const { return bar_; }

  /// Brings the entries in line with the form. A hidden entry is taken out of its menu.
  void BringInLine();

  /// An entry as it stands in the menus.
  struct Seen {
    std::string text;
    bool shown = false;
    bool enabled = false;
    bool checked = false;
  };
  /// The entry of that name, nothing when there is none.
  [[nodiscard]] std::optional<Seen> Look(std::string_view name) const;
  /// Chooses the entry of that name, which is shown, as the user does. False when all it does is
  /// open a menu.
  [[nodiscard]] bool Choose(std::string_view name) const;

 private:
  struct Entry {
    const app::Control* control = nullptr;
    wxMenu* parent = nullptr;    ///< null in the bar
    wxMenu* menu = nullptr;      ///< what it opens, null for a command
    wxMenuItem* item = nullptr;  ///< null in the bar
    bool shown = true;
    std::string text;  ///< as last shown
  };

  [[nodiscard]] const Entry* Find(std::string_view name) const;
  void Add(const app::Control& control, int id);
  void ShowEntry(Entry& entry, bool shown);

  wxMenuBar* bar_;
  std::vector<Entry> entries_;
};

}  // namespace velquist::ui
