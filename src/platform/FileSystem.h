// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velquist::platform {

/// All access to files. A path is UTF-8 text whose parts are separated by `\` or `/`; the
/// implementation maps it to the host. Every failure throws FileError.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// True for an existing file or directory; `*` and `?` in the last part match as a pattern.
  [[nodiscard]] virtual bool Exists(std::string_view path) const = 0;

  [[nodiscard]] virtual std::vector<std::byte> ReadWhole(std::string_view path) const = 0;

  /// Writes `bytes` from the start of the file. What an existing longer file holds behind them
  /// stays. All or nothing: after a failure the old file is whole.
  virtual void WriteOver(std::string_view path, std::span<const std::byte> bytes) = 0;

  /// Replaces the file by `text`; all or nothing as well.
  virtual void WriteText(std::string_view path, std::string_view text) = 0;

  /// Names of the directories in `directory`, in the order the system reports them, without "."
  /// and "..", `most` names at most. A directory that cannot be listed has none.
  [[nodiscard]] virtual std::vector<std::string> ListSubdirectories(std::string_view directory,
                                                                    std::size_t most) const = 0;
};

}  // namespace velquist::platform
