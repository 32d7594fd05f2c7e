// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace velquist::app {

/// The file that is open, as it was before it was read or when it was written last.
struct OpenFile {
  std::string path;  ///< empty for a default setup
  std::optional<platform::FileStamp> stamp;
  std::optional<platform::FileStamp> told;  ///< a change that the user knows of

  /// The file as it is now. Throws FileError for what is no path.
  [[nodiscard]] static OpenFile AsItIs(const platform::FileSystem& files, const std::string& path);
  /// `other` leads to it, however it is spelled.
  [[nodiscard]] bool IsAt(const platform::FileSystem& files, std::string_view other) const;
  /// Another program has changed it since. A file that is gone is not changed.
  [[nodiscard]] bool IsChangedOnDisk(const platform::FileSystem& files) const;
};

}  // namespace velquist::app
