// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "platform/FileSystem.h"

namespace velquist::app {

/// The file that is open, as it was when it was read or written last.
struct OpenFile {
  std::string path;  ///< empty for a default setup
  std::optional<platform::FileStamp> stamp;
  std::optional<platform::FileStamp> told;  ///< a change that the user knows of

  void Remember(const platform::FileSystem& files, const std::string& read_or_written);
  /// Another program has changed it since. A file that is gone is not changed.
  [[nodiscard]] bool IsChangedOnDisk(const platform::FileSystem& files) const;
};

}  // namespace velquist::app
