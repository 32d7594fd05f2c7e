// SPDX-License-Identifier: MIT
#include "app/Library.h"

#include <utility>

#include "edit/Display.h"

namespace velquist::app {
namespace {

std::string NumberText(std::size_t number)
{
  return edit::FormatNumber(static_cast<double>(number), 0);
}

std::string Counted(std::size_t count, std::string_view what)
{
  return NumberText(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

ShownAs ShownBy(const MainWindow& window)
{
  return {window.State().Units, window.Car().Options().fine};
}

}  // namespace

std::string SetupCount(std::size_t count)
{
  return Counted(count, "setup");
}

Library::Library(const MainWindow& window)
    : window_(window),
      tables_(window.Surroundings().files, window.Surroundings().program_directory),
      values_(window.Surroundings().files, window.Surroundings().program_directory),
      shown_as_(ShownBy(window))
{
}

void Library::Scan()
{
  installations_ = window_.Form().Combo7.items;
  stopped_ = false;
  grows_ = table_.RowCount() == 0 || (grows_ && scan_);
  scan_.emplace(installations_, tables_, known_);
}

void Library::Stop()
{
  if (!scan_) return;
  stopped_ = true;
  EndScan();
}

void Library::BringInLine()
{
  if (const auto as = ShownBy(window_); as != shown_as_) {
    shown_as_ = as;
    if (!table_.ValueSlots().empty()) {
      table_.SetValueSlots(table_.ValueSlots());
      ++changes_;
    }
  }
  if (window_.Form().Combo7.items != installations_) Scan();
}

bool Library::Work(const std::function<bool()>& enough)
{
  while (scan_) {
    if (!scan_->Step()) {
      EndScan();
      break;
    }
    if (!enough()) continue;
    if (grows_) ShowFound();
    return true;
  }
  bool valued = false;
  while (const auto row = table_.NextWithoutValues()) {
    table_.SetValues(*row, values_.Of(table_.RowAt(*row).Setup(), table_.ValueSlots(), shown_as_));
    valued = true;
    if (enough()) break;
  }
  if (!valued) return false;
  const bool all = !table_.NextWithoutValues();
  if (all) table_.Arrange();
  ++changes_;
  return !all;
}

void Library::Finish()
{
  while (Work([] { return false; })) {
  }
}

void Library::ShowFound()
{
  table_.SetRows(scan_->Rows());
  installation_count_ = scan_->InstallationCount();
  ++changes_;
}

/// Of a scan that was stopped what was shown stays, and is known.
void Library::EndScan()
{
  if (!stopped_ || grows_) {
    ShowFound();
    known_ = scan_->Seen();
  }
  grows_ = false;
  scan_.reset();
}

std::string Library::Progress() const
{
  if (scan_) return SetupCount(scan_->Rows().size()) + " so far...";
  if (stopped_) return "Stopped: " + SetupCount(table_.RowCount()) + ", there may be more";
  std::string text;
  if (table_.Count() < table_.RowCount()) text = NumberText(table_.Count()) + " shown of ";
  text += SetupCount(table_.RowCount()) + " in " + Counted(installation_count_, "installation");
  if (const auto problems = table_.ProblemCount(); problems > 0)
    text += ", " + NumberText(problems) + " with a problem";
  return text;
}

}  // namespace velquist::app
