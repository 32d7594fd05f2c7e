// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/LibraryScan.h"
#include "app/LibraryTable.h"
#include "app/LibraryValues.h"
#include "app/MainWindow.h"
#include "library/Tables.h"

namespace velquist::app {

/// All setups of the installations that are registered. It is filled and brought up to date bit by
/// bit, in the time that the user leaves.
class Library {
 public:
  explicit Library(const MainWindow& window);

  /// Looks at all files from now on, anew. The rows stay until that is done; where there are none
  /// they are shown as they are found.
  void Scan();
  /// Ends the scan under way; what it has found first stays.
  void Stop();
  /// Follows the main window: other units are shown, other installations scanned.
  void BringInLine();

  /// Does a part of what is to be done, until `enough` says so, at least one file. False when all
  /// is done.
  bool Work(const std::function<bool()>& enough);
  /// Does all of it.
  void Finish();

  /// There is something to be done.
  [[nodiscard]] bool IsBusy() { return scan_ || table_.NextWithoutValues(); }
  [[nodiscard]] bool IsScanning() const noexcept { return scan_.has_value(); }
  /// The last scan was stopped, so that files may be missing.
  [[nodiscard]] bool IsStopped() const noexcept { return stopped_; }
  /// "1,234 setups so far...", "1,234 setups in 3 installations, 12 with a problem", and "45 shown
  /// of" before that while a filter hides some.
  [[nodiscard]] std::string Progress() const;

  [[nodiscard]] LibraryTable& Table() noexcept { return table_; }
  [[nodiscard]] const LibraryTable& Table() const noexcept { return table_; }
  /// Another number whenever rows or values of the table have changed by a scan.
  [[nodiscard]] unsigned Changes() const noexcept { return changes_; }

 private:
  void ShowFound();
  void EndScan();

  const MainWindow& window_;
  library::Tables tables_;
  LibraryValues values_;
  LibraryTable table_;
  ShownAs shown_as_;
  std::vector<std::string> installations_;  ///< of the last scan
  std::size_t installation_count_ = 0;      ///< of those that are there
  std::shared_ptr<const KnownFiles> known_ = std::make_shared<KnownFiles>();
  std::optional<LibraryScan> scan_;
  bool grows_ = false;  ///< what the scan finds is shown at once
  bool stopped_ = false;
  unsigned changes_ = 0;
};

/// "1,234 setups".
[[nodiscard]] std::string SetupCount(std::size_t count);

}  // namespace velquist::app
