// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <span>
#include <string>

namespace velquist::cli {

/// The files that one call writes. Names of one directory that differ in letter case alone are one,
/// as they are to the window and to the game: no twin is made beside a file that is there.
class NewFiles {
 public:
  /// Puts `bytes` into the file of that path, whole or not at all, and gives the path with the name
  /// as it is spelled on the disk. A file that exists is written over when that is asked for, but
  /// none that this call has written. Throws FileError.
  std::string Write(const std::string& path, std::span<const std::byte> bytes, bool over_existing);

 private:
  struct Entry {
    std::string name;
    bool is_ours = false;
  };
  /// By what is equal for names that are one.
  using Directory = std::map<std::string, Entry>;

  Directory& DirectoryOf(const std::filesystem::path& file);

  std::map<std::filesystem::path, Directory> directories_;  ///< as they were when first written to
};

}  // namespace velquist::cli
