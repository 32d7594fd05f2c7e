// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace velquist::platform {

/// Where a file dialog starts.
struct DialogStart {
  std::string directory;
  std::string name;
};

/// Splits "directory\name"; a name with `*` or `?` is a pattern and left out.
[[nodiscard]] DialogStart SplitStart(std::string_view start);

/// The same filter for a system that tells upper from lower case: "*.lp1;" becomes
/// "*.[lL][pP]1". Empty patterns are dropped; the names of the filters stay.
[[nodiscard]] std::string AnyCaseFilter(std::string_view filter);

}  // namespace velquist::platform
