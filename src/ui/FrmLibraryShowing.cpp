// SPDX-License-Identifier: MIT
// What the library's window shows, and what it does with the setup that is chosen.
#include <wx/app.h>
#include <wx/utils.h>

#include <algorithm>
#include <chrono>
#include <utility>

#include "app/ComparisonTable.h"
#include "platform_wx/NativeLook.h"
#include "platform_wx/Spoken.h"
#include "platform_wx/WxText.h"
#include "ui/FrmColumns.h"
#include "ui/FrmLibrary.h"

namespace velquist::ui {
namespace {

using platform::FromText;

constexpr auto kSlice = std::chrono::milliseconds(20);

}  // namespace

void FrmLibrary::BringInLine()
{
  library_.BringInLine();
  ShowTitles();
  ShowAll();
  if (library_.IsBusy()) wxWakeUpIdle();
}

/// A slice of what is to be done, so that keys and pointer are never kept waiting.
void FrmLibrary::OnIdle(wxIdleEvent& event)
{
  event.Skip();
  if (!IsShown()) return;
  if (library_.IsBusy()) {
    const auto end = std::chrono::steady_clock::now() + kSlice;
    if (library_.Work([end] { return std::chrono::steady_clock::now() >= end; }))
      event.RequestMore();
    ShowAll();
  } else if (library_.Changes() != changes_) {
    ShowAll();
  }
}

void FrmLibrary::ShowAll()
{
  if (std::exchange(changes_, library_.Changes()) != library_.Changes()) {
    ShowRows();
    table_->Refresh();
  }
  ShowPreview();
  ShowProgress();
}

void FrmLibrary::ShowRows()
{
  const auto chosen = selected_;  // which other lines may take away
  if (lines_->BringInLine()) {
    const auto line = chosen ? library_.Table().Find(chosen->Path()) : std::nullopt;
    // What the words lead to can be opened at once.
    const bool narrowed = !library_.Table().Filter().empty();
    Select(line       ? library_.Table().SharedAt(*line)
           : narrowed ? library_.Table().SharedAt(0)
                      : nullptr);
  } else if (selected_ != nullptr) {
    if (const auto line = library_.Table().Find(selected_->Path()))
      selected_ = library_.Table().SharedAt(*line);
  }
  ShowPreview();
  ShowProgress();
}

void FrmLibrary::ShowOrder()
{
  wxArrayString items;
  items.Add("Path");
  for (const int column : columns_) items.Add(TitleOf(column));
  if (order_->GetStrings() != items) {
    platform::SetItems(*order_, items);
    order_->GetParent()->Layout();  // as high as its items
  }
  const auto order = library_.Table().SortedBy();
  const auto place = order ? std::ranges::find(columns_, order->column) - columns_.begin() + 1 : 0;
  order_->SetSelection(static_cast<int>(place));
  descending_->SetValue(order && order->descending);
  descending_->Enable(order.has_value());
  for (unsigned at = 0; at < table_->GetColumnCount(); ++at) {
    auto* const column = table_->GetColumn(at);
    if (order && static_cast<int>(column->GetModelColumn()) == order->column)
      column->SetSortOrder(!order->descending);
    else if (column->IsSortKey())
      column->UnsetAsSortKey();
  }
}

/// In other units values have other headings.
void FrmLibrary::ShowTitles()
{
  for (unsigned at = 0; at < table_->GetColumnCount(); ++at) {
    auto* const column = table_->GetColumn(at);
    const wxString title = TitleOf(static_cast<int>(column->GetModelColumn()));
    if (column->GetTitle() != title) column->SetTitle(title);
  }
}

void FrmLibrary::ShowPreview()
{
  auto preview = previews_.Of(selected_);
  const wxString text = FromText(preview.text);
  if (difference_count_->GetLabelText() != text) difference_count_->SetLabelText(text);
  differences_->Show(std::move(preview.rows));
  for (auto* const button : commands_) button->Enable(selected_ != nullptr);
}

void FrmLibrary::ShowProgress()
{
  const wxString label = FromText(library_.Progress());
  if (progress_->GetLabelText() != label) progress_->SetLabelText(label);
  const bool scanning = library_.IsScanning();
  const wxString caption = scanning ? "&Stop" : "&Scan Again";
  if (stop_->GetLabel() == caption) return;
  stop_->SetLabel(caption);
  const wxString tip = scanning ? "Stop looking for setups (Escape)" : "Look for setups again (F5)";
  stop_->SetToolTip(tip);
  platform::SetSpoken(*stop_, {}, tip);
  platform::Announce(*progress_, label);
}

void FrmLibrary::Scan()
{
  library_.Scan();
  ShowProgress();
  wxWakeUpIdle();
}

void FrmLibrary::StopOrScan()
{
  if (!library_.IsScanning()) return Scan();
  library_.Stop();
  ShowAll();
}

void FrmLibrary::ChooseOrder()
{
  const int chosen = order_->GetSelection();
  if (chosen > 0)
    library_.Table().SortBy(
        {columns_.at(static_cast<std::size_t>(chosen - 1)), descending_->GetValue()});
  else
    library_.Table().Unsort();
  ShowRows();
  ShowOrder();
}

void FrmLibrary::ChooseColumns()
{
  const auto slots = app::LibrarySlots();
  const auto& now = library_.Table().ValueSlots();
  wxArrayString names;
  std::vector<int> checked;
  for (const int slot : slots) {
    if (std::ranges::find(now, slot) != now.end())
      checked.push_back(static_cast<int>(names.size()));
    names.Add(FromText(app::ParameterName(Program().Form(), slot)));
  }
  FrmColumns question(this, names, checked);
  if (question.ShowModal() != wxID_OK) return;
  std::vector<int> chosen;
  for (const int place : question.Checked())
    chosen.push_back(slots.at(static_cast<std::size_t>(place)));
  library_.Table().SetValueSlots(std::move(chosen));
  MakeColumns();
  ShowOrder();
  ShowRows();
  wxWakeUpIdle();
}

void FrmLibrary::GoToFilter()
{
  filter_->SetFocus();
  filter_->SelectAll();
}

void FrmLibrary::GoToTable()
{
  if (library_.Table().Count() == 0) return;
  table_->SetFocus();
  if (selected_ == nullptr) Select(library_.Table().SharedAt(0));
  ShowPreview();
}

/// Nothing for no setup.
void FrmLibrary::Select(const std::shared_ptr<const app::LibraryRow>& row)
{
  selected_ = row;
  const auto line = row ? library_.Table().Find(row->Path()) : std::nullopt;
  if (!line) return table_->UnselectAll();
  const auto item = lines_->GetItem(static_cast<unsigned>(*line));
  table_->SetCurrentItem(item);
  table_->Select(item);
  table_->EnsureVisible(item);
}

void FrmLibrary::TakeSelection()
{
  const auto item = table_->GetSelection();
  selected_ = item.IsOk() ? library_.Table().SharedAt(lines_->GetRow(item)) : nullptr;
  ShowPreview();
}

void FrmLibrary::Use(const std::function<void(const std::string& path)>& event)
{
  if (selected_ == nullptr) return;
  const wxBusyCursor busy;
  const std::string path = selected_->Path();
  GiveEvent([&] { event(path); });
  if (IsShown()) Raise();  // a box has given the focus to the main window
}

void FrmLibrary::Open()
{
  Use([this](const std::string& path) { Program().FileDropped(path); });
}

void FrmLibrary::CompareWith()
{
  Use([this](const std::string& path) { Program().LibraryReference(path); });
}

void FrmLibrary::Export()
{
  Use([this](const std::string& path) { Program().LibraryExport(path); });
}

void FrmLibrary::ShowInFolder()
{
  Use([this](const std::string& path) { Program().LibraryShow(path); });
}

wxString FrmLibrary::TitleOf(int column) const
{
  return FromText(column < app::kFirstValueColumn
                      ? std::string(app::LibraryHeading(column))
                      : app::ParameterName(Program().Form(), column - app::kFirstValueColumn));
}

}  // namespace velquist::ui
