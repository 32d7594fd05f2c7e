// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Errors.h"
#include "platform/FileSystem.h"
#include "platform/Paths.h"

namespace velquist::testing {

/// Files in memory by their paths, letter case of ASCII letters and kind of separator not counting.
/// A directory is there when a file is below it.
class MemoryFiles final : public platform::FileSystem {
 public:
  void Put(std::string_view path, std::string_view text)
  {
    auto& file = files_[std::string(path)];
    file.text = text;
    ++file.writes;
  }
  void Put(std::string_view path, std::span<const std::byte> bytes)
  {
    Put(path, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
  }
  void Remove(std::string_view path)
  {
    if (const auto found = files_.find(path); found != files_.end()) files_.erase(found);
  }
  /// From now on the path exists and cannot be read.
  void MakeUnreadable(std::string_view path) { unreadable_.emplace(path); }

  [[nodiscard]] bool Exists(std::string_view path) const override
  {
    std::string below(path);
    if (!below.ends_with('/') && !below.ends_with('\\')) below += '/';
    const auto file = files_.lower_bound(below);
    return files_.contains(path) || unreadable_.contains(path) ||
           (file != files_.end() && IsBelow(file->first, below));
  }
  [[nodiscard]] std::vector<std::byte> ReadWhole(std::string_view path) const override
  {
    const auto found = files_.find(path);
    if (found == files_.end() || unreadable_.contains(path))
      throw FileError(std::string(path), "cannot be read");
    const auto bytes = std::as_bytes(std::span(found->second.text));
    return {bytes.begin(), bytes.end()};
  }
  void WriteOver(std::string_view path, std::span<const std::byte> bytes) override
  {
    auto& file = files_[std::string(path)];
    file.text.replace(0, bytes.size(), reinterpret_cast<const char*>(bytes.data()), bytes.size());
    ++file.writes;
  }
  void WriteText(std::string_view path, std::string_view text) override { Put(path, text); }
  [[nodiscard]] std::vector<std::string> ListSubdirectories(std::string_view directory,
                                                            std::size_t most) const override
  {
    std::string below(directory);
    if (!below.ends_with('/') && !below.ends_with('\\')) below += '/';
    std::vector<std::string> names;
    for (auto file = files_.lower_bound(below); file != files_.end() && IsBelow(file->first, below);
         ++file) {
      const auto end = file->first.find_first_of("/\\", below.size());
      if (end == std::string::npos) continue;
      auto name = file->first.substr(below.size(), end - below.size());
      if (names.size() < most && std::ranges::find(names, name) == names.end())
        names.push_back(std::move(name));
    }
    return names;
  }
  [[nodiscard]] std::optional<platform::FileStamp> Stamp(std::string_view path) const override
  {
    const auto found = files_.find(path);
    if (found == files_.end()) return std::nullopt;
    return platform::FileStamp{found->second.text.size(), found->second.writes};
  }
  [[nodiscard]] std::optional<std::string> NameOnDisk(std::string_view path) const override
  {
    if (!Exists(path)) return std::nullopt;
    return std::string(platform::FileNameOf(HostText(path)));
  }
  [[nodiscard]] std::string HostText(std::string_view path) const override
  {
    const auto found = files_.lower_bound(path);
    const bool there = found != files_.end() &&
                       (found->first.size() == path.size() || IsBelow(found->first, path));
    return there ? found->first.substr(0, path.size()) : std::string(path);
  }

 private:
  struct File {
    std::string text;
    std::int64_t writes = 0;  ///< in place of a time
  };
  static char Folded(char c)
  {
    if (c == '\\') return '/';
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  struct Before {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const
    {
      return std::ranges::lexicographical_compare(a, b, {}, Folded, Folded);
    }
  };
  static bool IsBelow(std::string_view path, std::string_view directory)
  {
    return path.size() > directory.size() &&
           std::ranges::equal(path.substr(0, directory.size()), directory, {}, Folded, Folded);
  }

  std::map<std::string, File, Before> files_;
  std::set<std::string, Before> unreadable_;
};

}  // namespace velquist::testing
