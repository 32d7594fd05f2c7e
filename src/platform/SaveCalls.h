// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <span>
#include <system_error>

namespace velquist::platform {

/// What a save asks of the system, one call each, in the order of its steps. A call returns no
/// error or the reason why it failed.
struct SaveCalls {
  using Path = std::filesystem::path;
  using Error = std::error_code;

  /// Opens a file without a name in `directory`, which vanishes unless it gets one. Fails where the
  /// system has no such files.
  std::function<Error(const Path& directory, int& file)> open_nameless;
  /// Opens a new file; fails with file_exists when the name is taken.
  std::function<Error(const Path& path, int& file)> open_new;
  std::function<Error(int file, std::span<const std::byte> bytes, std::size_t& written)> write;

  // Each gives `file` what the file `old` has, as far as the user may; an `old` that is not there
  // gives nothing.
  std::function<Error(const Path& old, int file)> keep_owner;
  std::function<Error(const Path& old, int file)> keep_rights;
  std::function<Error(const Path& old, int file)> keep_access_list;
  std::function<Error(const Path& old, int file)> keep_attributes;

  std::function<Error(int file)> flush;
  /// Names a file that was opened without one; fails with file_exists when the name is taken.
  std::function<Error(int file, const Path& path)> give_name;
  std::function<Error(int file)> close;  ///< the file is closed, error or not
  std::function<Error(const Path& from, const Path& to)> rename;  ///< over what is there
  std::function<Error(const Path& directory)> flush_directory;
  std::function<Error(const Path& path)> remove;

  /// For files that a program left: true while a process of that number runs.
  std::function<bool(unsigned long process)> is_running;
};

/// The calls of this system.
[[nodiscard]] SaveCalls SystemSaveCalls();

/// The number of this process.
[[nodiscard]] unsigned long ProcessNumber();

/// Why an existing file must not be replaced: its owner made it read-only, or the user may not
/// write it.
[[nodiscard]] std::error_code MayReplace(const std::filesystem::path& file);

/// Where the links that start at `path` end; the last one's target need not exist. Where links are
/// not told from files it is `path`, with its file named as the disk spells it.
[[nodiscard]] std::filesystem::path BehindLinks(const std::filesystem::path& path,
                                                std::error_code& error);

}  // namespace velquist::platform
