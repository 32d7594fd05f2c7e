// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "app/LibraryTable.h"
#include "edit/CarSetup.h"
#include "platform/FileSystem.h"

namespace velquist::app {

/// How the main window shows values.
struct ShownAs {
  int units = 0;      ///< 0 = English, 1 = metric
  bool fine = false;  ///< with the decimals of fine steps
  friend bool operator==(const ShownAs&, const ShownAs&) = default;
};

/// The values of setups as the main window would show them.
class LibraryValues {
 public:
  LibraryValues(const platform::FileSystem& files, std::string program_directory);

  /// One for each slot; empty ones for what the setup's car does not have and for what the file
  /// does not tell.
  [[nodiscard]] std::vector<LibraryValue> Of(const library::Row& setup, std::span<const int> slots,
                                             const ShownAs& as);

 private:
  /// Null where its data files cannot be read.
  edit::CarSetup* CarOf(data::ModYear year);

  const platform::FileSystem& files_;
  std::string program_directory_;
  std::map<data::ModYear, std::unique_ptr<edit::CarSetup>> cars_;
};

/// The parameter slots that can be columns, in their own order: all that a user edits.
[[nodiscard]] std::vector<int> LibrarySlots();

}  // namespace velquist::app
