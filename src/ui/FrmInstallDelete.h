// SPDX-License-Identifier: MIT
#pragma once

#include <wx/choice.h>
#include <wx/dialog.h>

#include "app/Dialogs.h"

namespace velquist::ui {

/// Takes installations off the list: the list `Combo1`, `DeleteButton`, and `CancelButton` to go.
class FrmInstallDelete final : public wxDialog {
 public:
  FrmInstallDelete(wxWindow* parent, app::InstallDeleteForm& form);

 private:
  /// Shows the form's items and selection, and goes when the form says so.
  void ShowForm();

  app::InstallDeleteForm& form_;
  wxChoice* list_ = nullptr;
};

}  // namespace velquist::ui
