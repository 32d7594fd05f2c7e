// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileHead.h"

namespace velquist::library {

/// A file that a walk came to.
struct FoundFile {
  std::string path;
  bool is_named = false;  ///< one of the paths that the walk began with, there or not
};

/// The path with a separator at its end, as it begins the paths of all that is below it.
[[nodiscard]] std::string AsDirectory(std::string path);

/// What was skipped, and why.
using Tell = std::function<void(std::string_view path, std::string_view reason)>;

/// Goes through everything below some paths, each as spelled, one file at a call, in rising order
/// of the paths' bytes. Links are followed, but not back to a directory above. A directory that
/// cannot be listed is told and skipped.
class Walk {
 public:
  /// Paths below another one of them are left out.
  Walk(const std::vector<std::string>& paths, Tell tell);

  [[nodiscard]] std::optional<FoundFile> Next();

 private:
  /// Names in a directory, with a separator behind those of directories, in falling order.
  struct Directory {
    std::string path;  ///< with a separator at its end; empty for the paths given
    std::optional<platform::DirectoryIdentity> identity;
    std::vector<std::string> names;
  };

  void Enter(std::string path);

  Tell tell_;
  std::vector<Directory> open_;
};

}  // namespace velquist::library
