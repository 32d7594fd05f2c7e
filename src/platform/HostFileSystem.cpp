// SPDX-License-Identifier: MIT
#include "platform/HostFileSystem.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <tuple>

#include "platform/AtomicFile.h"
#include "platform/FileReason.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "platform/SystemFiles.h"
#include "platform/TextEncoding.h"

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
  const auto host = HostPath(path);
  std::error_code error;
  const auto status = StatusOf(host, error);
  if (!fs::exists(status)) FailFile(path, error);
  if (fs::is_directory(status)) FailFile(path, std::make_error_code(std::errc::is_a_directory));
  if (!fs::is_regular_file(status))
    FailFile(path, std::make_error_code(std::errc::invalid_argument));
  std::ifstream file(host, std::ios::binary);
  if (!file) FailFile(path, std::make_error_code(std::errc::permission_denied));
  const auto size = file.seekg(0, std::ios::end).tellg();
  if (size < 0) FailFile(path, std::make_error_code(std::errc::io_error));
  file.seekg(0);
  std::vector<std::byte> bytes;
  try {
    bytes.resize(static_cast<std::size_t>(size));
  } catch (const std::exception&) {
    FailFile(path, std::make_error_code(std::errc::not_enough_memory));
  }
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (file.bad() || file.gcount() != size)
    FailFile(path, std::make_error_code(std::errc::io_error));
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
  struct Name {
    std::string key;
    bool is_game_name;
    std::string text;
  };
  std::vector<Name> found;
  for (const auto& host : HostPaths(directory)) {
    const auto first = static_cast<std::ptrdiff_t>(found.size());
    ListNames(host, Listed::kDirectories, [&](std::string_view name) {
      found.push_back({OrderKey(InUtf8(name)), IsGameName(name), std::string(name)});
      return true;
    });
    // Of names that lead to one directory the first is listed, which it is found under.
    std::sort(found.begin() + first, found.end(), [](const Name& a, const Name& b) {
      return std::tie(a.key, b.is_game_name, a.text) < std::tie(b.key, a.is_game_name, b.text);
    });
    if (first > 0) std::ranges::stable_sort(found, {}, &Name::key);
  }
  std::vector<std::string> names;
  const std::string* last = nullptr;
  for (auto& name : found) {
    if (names.size() == most) break;
    if (last == nullptr || name.key != *last) names.push_back(std::move(name.text));
    last = &name.key;
  }
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
