// SPDX-License-Identifier: MIT
#include "platform/HostPath.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <system_error>
#include <tuple>

#include "platform/Errors.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "platform/SystemFiles.h"
#include "platform/TextEncoding.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 2> kGameNames = {"Players", "Setups"};

bool IsGameName(std::string_view name) noexcept
{
  return std::ranges::find(kGameNames, name) != kGameNames.end();
}

#ifndef _WIN32

bool IsThere(const fs::path& path)
{
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error)) && !error;
}

bool IsAscii(std::string_view text) noexcept
{
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// What is equal for names that differ in letter case alone.
std::string NameKey(std::string_view name)
{
  return FoldCase(InUtf8(name));
}

bool IsDirectory(const fs::path& path)
{
  std::error_code unknown;
  return fs::is_directory(path, unknown);
}

/// The entries of `directory` that `name` may mean, in the order of the rule.
std::vector<std::string> Entries(const fs::path& directory, std::string_view name, bool is_there)
{
  const bool ascii = IsAscii(name);
  const auto key = NameKey(name);
  std::vector<std::string> entries;
  ListNames(directory.empty() ? "." : directory, Listed::kAll, [&](std::string_view entry) {
    // No other letter folds to one of ASCII, and none of those changes the length.
    if ((!ascii || entry.size() == name.size()) && NameKey(entry) == key)
      entries.emplace_back(entry);
    return true;
  });
  // What cannot be listed, or is known to the system under more names than it lists.
  if (entries.empty() && is_there) entries.emplace_back(name);
  if (entries.size() > 1)
    std::ranges::sort(entries, {}, [&](const std::string& entry) {
      return std::tuple(!IsDirectory(directory / entry), !IsGameName(entry), entry);
    });
  return entries;
}

/// Goes down the parts of a path, first by the rule first.
class Search {
 public:
  Search(std::string_view whole, std::size_t most)
      : most_(most), is_directory_(!whole.empty() && IsSeparator(whole.back()))
  {
    std::string above = !whole.empty() && IsSeparator(whole.front()) ? "/" : "";
    const fs::path start = above;
    for (std::string_view rest = whole; !rest.empty();) {
      const auto end = rest.find_first_of("\\/");
      const auto part = rest.substr(0, end);
      rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
      if (part.empty()) continue;
      if (players_ == parts_.size() && !SamePathText(part, kGameNames[0])) {
        if (players_ > 0) above += '/';
        above += part;
        ++players_;
      }
      parts_.push_back(part);
    }
    deepest_ = start;
    // Mostly what lies above is there as spelled, which one look tells.
    const auto parent = above.substr(0, above.rfind('/') + 1);
    if (IsThere(above))
      Descend(above, players_);
    else if (players_ > 0 && IsThere(parent))
      Descend(parent, players_ - 1);
    else
      Descend(start, 0);
    if (!found_.empty()) return;
    for (; depth_ < parts_.size(); ++depth_) deepest_ /= parts_[depth_];
    found_.push_back(std::move(deepest_));
  }

  [[nodiscard]] std::vector<fs::path>& Found() { return found_; }

 private:
  void Descend(const fs::path& host, std::size_t depth)
  {
    if (depth > depth_) {
      depth_ = depth;
      deepest_ = host;
    }
    if (depth == parts_.size()) {
      found_.push_back(host);
      return;
    }
    const auto part = parts_[depth];
    const bool is_there = IsThere(host / part);
    const bool is_one = depth < players_ || part == "." || part == "..";
    if (is_one && is_there) return Descend(host / part, depth + 1);
    std::string_view first;
    if (!is_one) {
      const bool is_directory = is_there && IsDirectory(host / part);
      // To look for others beside it would cost a listing of all players.
      if (most_ > 1 && is_directory && !IsGamePart(part)) return Descend(host / part, depth + 1);
      const bool may_be_file = depth + 1 == parts_.size() && !is_directory_;
      if (may_be_file && is_there && !is_directory)
        first = part;
      else
        first = GameName(host, part);
    }
    if (!first.empty()) {
      Descend(host / first, depth + 1);
      if (found_.size() == most_) return;
    }
    for (const auto& entry : Entries(host, part, is_there)) {
      if (entry == first) continue;
      Descend(host / entry, depth + 1);
      if (found_.size() == most_) return;
    }
  }

  static bool IsGamePart(std::string_view part)
  {
    return std::ranges::any_of(kGameNames,
                               [part](std::string_view name) { return SamePathText(part, name); });
  }

  /// The game's own spelling of the part where a directory has it; else empty.
  static std::string_view GameName(const fs::path& host, std::string_view part)
  {
    for (const auto name : kGameNames)
      if (SamePathText(part, name) && IsDirectory(host / name)) return name;
    return {};
  }

  std::size_t most_;
  bool is_directory_;  ///< a separator ends the path
  std::vector<std::string_view> parts_;
  std::size_t players_ = 0;  ///< the part from which on the rule holds
  std::vector<fs::path> found_;
  fs::path deepest_;  ///< the first of those with the most parts that are there
  std::size_t depth_ = 0;
};

#endif

}  // namespace

void CheckPath(std::string_view path)
{
  if (path.find('\0') != std::string_view::npos)
    throw FileError(std::string(path), "A path cannot hold a NUL character");
}

bool ComesFirst(std::string_view a, std::string_view b) noexcept
{
  return std::tuple(!IsGameName(a), a) < std::tuple(!IsGameName(b), b);
}

#ifdef _WIN32

fs::path HostPath(std::string_view path)
{
  CheckPath(path);
  return Lengthened(PathFromText(path));
}

std::vector<fs::path> HostPaths(std::string_view path)
{
  return {HostPath(path)};
}

#else

fs::path HostPath(std::string_view path)
{
  CheckPath(path);
  return std::move(Search(path, 1).Found().front());
}

std::vector<fs::path> HostPaths(std::string_view path)
{
  CheckPath(path);
  return std::move(Search(path, std::string_view::npos).Found());
}

#endif

}  // namespace velquist::platform
