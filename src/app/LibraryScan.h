// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "app/LibraryRow.h"
#include "library/Tables.h"
#include "library/Walk.h"
#include "platform/FileHead.h"
#include "platform/FileSystem.h"

namespace velquist::app {

/// What a scan has found out about files, so that the next one need not read them again.
class KnownFiles {
 public:
  struct Known {
    platform::FileStamp stamp;
    std::shared_ptr<const LibraryRow> row;  ///< null for what is no setup
  };

  void Add(const std::string& path, Known known);
  /// Null where the file is not known, or is another one by now.
  [[nodiscard]] const Known* Find(const std::string& path, const std::string& installation) const;

 private:
  std::unordered_map<std::string, Known> files_;
};

/// Goes through the setups of installations, one file at a step, in rising order of the paths'
/// bytes.
class LibraryScan {
 public:
  /// Installations as the installation list spells them; two that are one directory count once.
  /// `known` are the files of the last scan.
  LibraryScan(const std::vector<std::string>& installations, library::Tables& tables,
              std::shared_ptr<const KnownFiles> known);

  /// Looks at the next file. False when there is none any more.
  bool Step();

  [[nodiscard]] const LibraryRows& Rows() const noexcept { return rows_; }
  /// Installations whose Players directory is there.
  [[nodiscard]] std::size_t InstallationCount() const noexcept { return installation_count_; }
  /// All that has been looked at.
  [[nodiscard]] std::shared_ptr<const KnownFiles> Seen() const { return seen_; }

 private:
  struct Root {
    std::string directory;     ///< Players, with a separator at its end
    std::string installation;  ///< as shown
  };

  [[nodiscard]] const std::string& InstallationOf(const std::string& path) const;
  /// Of files whose paths differ in letter case alone those stay that a path leads to.
  void Add(std::shared_ptr<const LibraryRow> row);

  library::Tables& tables_;
  std::shared_ptr<const KnownFiles> known_;
  std::shared_ptr<KnownFiles> seen_ = std::make_shared<KnownFiles>();
  std::vector<Root> roots_;
  std::size_t installation_count_ = 0;
  std::optional<library::Walk> walk_;
  LibraryRows rows_;
  std::unordered_map<std::string, std::string>
      paths_;  ///< of all rows, by the same in small letters
};

}  // namespace velquist::app
