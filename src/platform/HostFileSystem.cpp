// SPDX-License-Identifier: MIT
#include "platform/HostFileSystem.h"

#include <algorithm>
#include <optional>

#include "platform/AtomicFile.h"
#include "platform/FileReason.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "platform/SystemFiles.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;

/// Matches one name against a pattern of `*` and `?`, without regard to letter case.
bool Matches(std::string_view pattern, std::string_view name)
{
  std::size_t p = 0;
  std::size_t n = 0;
  std::optional<std::size_t> star;
  std::size_t star_name = 0;
  while (n < name.size()) {
    if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
      ++p;
      ++n;
    } else if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      star_name = n;
    } else if (star) {
      p = *star + 1;
      n = ++star_name;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

bool ExistsMatching(const fs::path& directory, std::string_view pattern)
{
  const auto wanted = FoldCase(pattern == "*.*" ? "*" : pattern);
  bool exists = false;
  ListNames(directory.empty() ? "." : directory, Listed::kAll, [&](std::string_view entry) {
    exists = Matches(wanted, FoldCase(entry));
    return !exists;
  });
  return exists;
}

}  // namespace

bool HostFileSystem::Exists(std::string_view path) const
{
  CheckPath(path);
  const auto name = FileNameOf(path);
  if (name.find_first_of("*?") != std::string_view::npos)
    return std::ranges::any_of(
        HostPaths(path.substr(0, path.size() - name.size())),
        [name](const fs::path& directory) { return ExistsMatching(directory, name); });
  std::error_code error;
  const auto status = StatusOf(HostPath(path), error);
  return fs::exists(status) && (!name.empty() || fs::is_directory(status));
}

std::vector<std::byte> HostFileSystem::ReadWhole(std::string_view path) const
{
  std::vector<std::byte> bytes;
  if (const auto error = platform::ReadFile(HostPath(path), bytes)) FailFile(path, error);
  return bytes;
}

void HostFileSystem::WriteOver(std::string_view path, std::span<const std::byte> bytes)
{
  std::vector<std::byte> whole(bytes.begin(), bytes.end());
  const auto host = HostPath(path);
  std::error_code error;
  if (fs::exists(StatusOf(host, error))) {
    const auto old = ReadWhole(path);
    if (old.size() > whole.size())
      whole.insert(whole.end(), old.begin() + static_cast<std::ptrdiff_t>(whole.size()), old.end());
  }
  WriteAtomically(host, whole, path);
}

void HostFileSystem::WriteText(std::string_view path, std::string_view text)
{
  WriteAtomically(HostPath(path), std::as_bytes(std::span(text)), path);
}

std::vector<std::string> HostFileSystem::ListSubdirectories(std::string_view directory,
                                                            std::size_t most) const
{
  std::vector<std::string> names;
  for (const auto& host : HostPaths(directory)) {
    const auto before = static_cast<std::ptrdiff_t>(names.size());
    ListNames(host, Listed::kDirectories, [&](std::string_view name) {
      names.emplace_back(name);
      return true;
    });
    std::sort(names.begin() + before, names.end(), [](const auto& a, const auto& b) {
      const auto order = CompareNames(a, b);
      return order != 0 ? order < 0 : ComesFirst(a, b);
    });
    std::inplace_merge(names.begin(), names.begin() + before, names.end(),
                       [](const auto& a, const auto& b) { return CompareNames(a, b) < 0; });
  }
  // Of names that lead to one directory the first stays, which it is found under.
  const auto same = [](const auto& a, const auto& b) { return CompareNames(a, b) == 0; };
  names.erase(std::unique(names.begin(), names.end(), same), names.end());
  if (names.size() > most) names.resize(most);
  return names;
}

std::optional<FileStamp> HostFileSystem::Stamp(std::string_view path) const
{
  return StampOf(HostPath(path));
}

std::optional<std::string> HostFileSystem::NameOnDisk(std::string_view path) const
{
  if (!Exists(path)) return std::nullopt;
  return PathText(SpelledAsOnDisk(HostPath(path)).filename());
}

std::string HostFileSystem::HostText(std::string_view path) const
{
  return PathText(SpelledAsOnDisk(HostPath(path)).make_preferred());
}

}  // namespace velquist::platform
