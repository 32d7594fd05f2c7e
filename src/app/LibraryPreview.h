// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/ComparisonTable.h"
#include "app/LibraryRow.h"
#include "app/MainWindow.h"

namespace velquist::app {

/// What differs between the setup being edited and one of the library.
struct LibraryPreview {
  std::vector<ComparisonRow> rows;  ///< the setup of the library is their reference
  std::string text;                 ///< what is said above them: how many, or why there are none
};

/// Reads a setup of the library when another one is chosen, or its file has changed, and compares
/// it with what is edited now.
class LibraryPreviews {
 public:
  explicit LibraryPreviews(const MainWindow& window) : window_(window) {}

  /// Of a mod year that the file leaves open the current one, else the most likely one. Null for no
  /// setup.
  [[nodiscard]] LibraryPreview Of(const std::shared_ptr<const LibraryRow>& row);

 private:
  void Read();

  const MainWindow& window_;
  std::shared_ptr<const LibraryRow> row_;  ///< that was read
  data::ModYear year_{};                   ///< current one when it was
  std::optional<edit::Reference> setup_;
  std::string trouble_;
};

}  // namespace velquist::app
