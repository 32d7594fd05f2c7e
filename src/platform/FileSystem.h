// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velquist::platform {

/// What tells that a file was changed since it was read: two stamps of it differ.
struct FileStamp {
  std::uint64_t size = 0;     ///< bytes
  std::int64_t modified = 0;  ///< nanoseconds since 1970, as exact as the file system keeps it
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// All access to files. A path is UTF-8 text whose parts are separated by `\` or `/`; the
/// implementation maps it to the host. Every failure throws FileError, and so does a path with a
/// NUL character in any call.
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

  /// Names of the directories in `directory`, by name without regard to case, without "." and "..",
  /// the first `most` of them. A directory that cannot be listed has none.
  [[nodiscard]] virtual std::vector<std::string> ListSubdirectories(std::string_view directory,
                                                                    std::size_t most) const = 0;

  /// The stamp of the file at `path`; nothing where there is no file.
  [[nodiscard]] virtual std::optional<FileStamp> Stamp(std::string_view path) const = 0;

  /// The name of the file or directory that `path` leads to, as the disk spells it, which may
  /// differ from that of `path` in letter case; nothing where nothing is there.
  [[nodiscard]] virtual std::optional<std::string> NameOnDisk(std::string_view path) const = 0;

  /// The path as this machine would spell it, in the letter case of what is there; for messages.
  [[nodiscard]] virtual std::string HostText(std::string_view path) const = 0;
};

}  // namespace velquist::platform
