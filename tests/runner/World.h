// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "runner/Script.h"

namespace velquist::runner {

/// The files that a script plays with: a new directory with the program directory in it, removed
/// with this object. A relative path means one below it; a path is found without regard to letter
/// case. What does not work throws std::runtime_error.
class World {
 public:
  /// `program_files` is the directory of what ships beside the program.
  explicit World(const std::filesystem::path& program_files);
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  [[nodiscard]] const Places& Names() const noexcept { return places_; }
  /// Leaves the directory when this object goes.
  void Keep() noexcept { kept_ = true; }

  /// The absolute path as the host writes it, for the program.
  [[nodiscard]] std::string Native(std::string_view path) const;
  /// `text` with every path below the directory as the host writes it.
  [[nodiscard]] std::string NativeText(std::string_view text) const;
  /// Equal, either separator counting as the same in paths below the directory.
  [[nodiscard]] bool SameText(std::string_view a, std::string_view b) const;

  [[nodiscard]] bool Exists(std::string_view path) const;
  [[nodiscard]] std::vector<std::byte> Read(std::string_view path) const;

  // Changes; only below the directory.
  void MakeDirectory(std::string_view path);
  void Write(std::string_view path, std::span<const std::byte> bytes);
  /// A file into a directory that is there goes under its own name; files that are there are
  /// replaced.
  void Copy(std::string_view from, std::string_view to);
  void Remove(std::string_view path);

 private:
  [[nodiscard]] std::filesystem::path Find(std::string_view path) const;
  [[nodiscard]] std::filesystem::path FindToChange(std::string_view path) const;

  std::filesystem::path root_;
  Places places_;
  bool kept_ = false;
};

}  // namespace velquist::runner
