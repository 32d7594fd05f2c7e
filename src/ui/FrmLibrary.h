// SPDX-License-Identifier: MIT
#pragma once

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dataview.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/Library.h"
#include "app/LibraryPreview.h"
#include "ui/ComparisonLines.h"
#include "ui/LibraryLines.h"
#include "ui/SideWindow.h"

namespace velquist::ui {

/// The setups of all installations: found while the user goes on, sorted, narrowed by words, each
/// compared with the one being edited, opened, made the reference, exported, shown in its folder.
class FrmLibrary final : public SideWindow {
 public:
  explicit FrmLibrary(const Setting& setting);

  void BringInLine() override;

  [[nodiscard]] app::Library& Library() noexcept { return library_; }

 private:
  wxSizer* MakeFilterRow(wxPanel* panel);
  wxWindow* MakeTables(wxPanel* panel);
  wxSizer* MakeProgressRow(wxPanel* panel);
  wxSizer* MakeButtons(wxPanel* panel);
  void MakeColumns();
  void BindEvents();
  void OnKey(wxKeyEvent& event);
  void OnIdle(wxIdleEvent& event);

  void ShowAll();
  void ShowRows();
  void ShowOrder();
  void ShowTitles();
  void ShowPreview();
  void ShowProgress();

  void Scan();
  void StopOrScan();
  void ChooseOrder();
  void ChooseColumns();
  void GoToFilter();
  void GoToTable();
  void Select(const std::shared_ptr<const app::LibraryRow>& row);
  void TakeSelection();
  /// Gives the program an event about the chosen setup, if there is one.
  void Use(const std::function<void(const std::string& path)>& event);
  void Open();
  void CompareWith();
  void Export();
  void ShowInFolder();

  [[nodiscard]] wxString TitleOf(int column) const;

  app::Library library_;
  app::LibraryPreviews previews_;
  std::shared_ptr<const app::LibraryRow> selected_;
  unsigned changes_ = 0;      ///< of the library, as shown
  std::vector<int> columns_;  ///< as made

  wxTextCtrl* filter_ = nullptr;
  wxChoice* order_ = nullptr;
  wxCheckBox* descending_ = nullptr;
  wxSplitterWindow* panes_ = nullptr;
  wxDataViewCtrl* table_ = nullptr;
  wxObjectDataPtr<LibraryLines> lines_;
  wxStaticText* difference_count_ = nullptr;
  wxDataViewCtrl* preview_ = nullptr;
  wxObjectDataPtr<ComparisonLines> differences_;
  wxStaticText* progress_ = nullptr;
  wxButton* stop_ = nullptr;
  std::vector<wxButton*> commands_;  ///< on the chosen setup
};

}  // namespace velquist::ui
