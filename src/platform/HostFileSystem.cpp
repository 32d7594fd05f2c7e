// SPDX-License-Identifier: MIT
#include "platform/HostFileSystem.h"

#include <algorithm>
#include <fstream>
#include <optional>

#include "platform/AtomicFile.h"
#include "platform/Errors.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "platform/SystemFiles.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;

#ifndef _WIN32

bool IsThere(const fs::path& path)
{
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error)) && !error;
}

/// The entry of `directory` that differs from `name` in letter case alone.
std::optional<fs::path> OtherCase(const fs::path& directory, std::string_view name)
{
  const auto folded = FoldCase(name);
  std::optional<fs::path> other;
  ListNames(directory.empty() ? "." : directory, Listed::kAll, [&](std::string_view entry) {
    if (entry.size() < 4 * name.size() + 4 && FoldCase(entry) == folded) other = entry;
    return !other;
  });
  return other;
}

#endif

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

[[noreturn]] void Fail(std::string_view path, const std::error_code& error)
{
  throw FileError(std::string(path), error.message());
}

}  // namespace

fs::path HostPath(std::string_view path)
{
#ifdef _WIN32
  return Lengthened(PathFromText(path));
#else
  std::string whole(path);
  std::ranges::replace(whole, '\\', '/');
  if (IsThere(whole)) return whole;
  fs::path host = whole.starts_with('/') ? "/" : "";
  for (std::string_view rest = whole; !rest.empty();) {
    const auto end = rest.find('/');
    const auto part = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (part.empty()) continue;
    const auto as_spelled = host / part;
    const auto other = IsThere(as_spelled) ? std::nullopt : OtherCase(host, part);
    host = other ? host / *other : as_spelled;
  }
  return host;
#endif
}

bool HostFileSystem::Exists(std::string_view path) const
{
  const auto name = FileNameOf(path);
  if (name.find_first_of("*?") != std::string_view::npos)
    return ExistsMatching(HostPath(path.substr(0, path.size() - name.size())), name);
  std::error_code error;
  const auto status = StatusOf(HostPath(path), error);
  return fs::exists(status) && (!name.empty() || fs::is_directory(status));
}

std::vector<std::byte> HostFileSystem::ReadWhole(std::string_view path) const
{
  const auto host = HostPath(path);
  std::error_code error;
  const auto status = StatusOf(host, error);
  if (!fs::exists(status)) Fail(path, error);
  if (fs::is_directory(status)) Fail(path, std::make_error_code(std::errc::is_a_directory));
  if (!fs::is_regular_file(status)) Fail(path, std::make_error_code(std::errc::invalid_argument));
  std::ifstream file(host, std::ios::binary);
  if (!file) Fail(path, std::make_error_code(std::errc::permission_denied));
  const auto size = file.seekg(0, std::ios::end).tellg();
  if (size < 0) Fail(path, std::make_error_code(std::errc::io_error));
  file.seekg(0);
  std::vector<std::byte> bytes;
  try {
    bytes.resize(static_cast<std::size_t>(size));
  } catch (const std::exception&) {
    Fail(path, std::make_error_code(std::errc::not_enough_memory));
  }
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (file.bad() || file.gcount() != size) Fail(path, std::make_error_code(std::errc::io_error));
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
  ListNames(HostPath(directory), Listed::kDirectories, [&](std::string_view name) {
    if (names.size() < most) names.emplace_back(name);
    return names.size() < most;
  });
  return names;
}

}  // namespace velquist::platform
