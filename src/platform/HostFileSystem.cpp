// SPDX-License-Identifier: MIT
#include "platform/HostFileSystem.h"

#include <algorithm>
#include <fstream>
#include <memory>
#include <optional>

#ifndef _WIN32
#include <dirent.h>
#include <sys/stat.h>
#endif

#include "platform/AtomicFile.h"
#include "platform/Errors.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32

fs::path FromText(std::string_view text)
{
  return {std::u8string(text.begin(), text.end())};
}

/// Absolute paths beyond the classic limit need the prefix that lifts it. A temporary file beside
/// the target must still fit.
fs::path Lengthened(const fs::path& path)
{
  constexpr std::size_t kShortEnough = 220;
  const auto& text = path.native();
  if (text.size() < kShortEnough || text.starts_with(L"\\\\?\\") || !path.is_absolute())
    return path;
  auto whole = path.lexically_normal().make_preferred().native();
  if (whole.starts_with(L"\\\\")) return fs::path(L"\\\\?\\UNC" + whole.substr(1));
  return fs::path(L"\\\\?\\" + whole);
}

#else

bool IsThere(const fs::path& path)
{
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error)) && !error;
}

/// The entry of `directory` that differs from `name` in letter case alone.
std::optional<fs::path> OtherCase(const fs::path& directory, std::string_view name)
{
  std::error_code error;
  const auto folded = FoldCase(name);
  for (fs::directory_iterator entry(directory.empty() ? fs::path(".") : directory, error), end;
       !error && entry != end; entry.increment(error)) {
    const auto entry_name = entry->path().filename().string();
    if (entry_name.size() < 4 * name.size() + 4 && FoldCase(entry_name) == folded)
      return entry->path().filename();
  }
  return std::nullopt;
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
  std::error_code error;
  for (fs::directory_iterator entry(directory.empty() ? fs::path(".") : directory, error), end;
       !error && entry != end; entry.increment(error))
    if (Matches(wanted, FoldCase(PathText(entry->path().filename())))) return true;
  return false;
}

[[noreturn]] void Fail(std::string_view path, const std::error_code& error)
{
  throw FileError(std::string(path), error.message());
}

}  // namespace

std::string PathText(const fs::path& path)
{
  const auto text = path.u8string();
  return {text.begin(), text.end()};
}

fs::path HostPath(std::string_view path)
{
#ifdef _WIN32
  return Lengthened(FromText(path));
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
  const auto status = fs::status(HostPath(path), error);
  return fs::exists(status) && (!name.empty() || fs::is_directory(status));
}

std::vector<std::byte> HostFileSystem::ReadWhole(std::string_view path) const
{
  const auto host = HostPath(path);
  std::error_code error;
  const auto status = fs::status(host, error);
  if (!fs::exists(status)) Fail(path, error);
  if (fs::is_directory(status)) Fail(path, std::make_error_code(std::errc::is_a_directory));
  if (!fs::is_regular_file(status)) Fail(path, std::make_error_code(std::errc::invalid_argument));
  std::ifstream file(host, std::ios::binary);
  if (!file) Fail(path, std::make_error_code(std::errc::permission_denied));
  const auto size = fs::file_size(host, error);
  if (error) Fail(path, error);
  std::vector<std::byte> bytes;
  try {
    bytes.resize(static_cast<std::size_t>(size));
  } catch (const std::exception&) {
    Fail(path, std::make_error_code(std::errc::not_enough_memory));
  }
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (file.bad() || static_cast<std::uintmax_t>(file.gcount()) != size)
    Fail(path, std::make_error_code(std::errc::io_error));
  return bytes;
}

void HostFileSystem::WriteOver(std::string_view path, std::span<const std::byte> bytes)
{
  std::vector<std::byte> whole(bytes.begin(), bytes.end());
  const auto host = HostPath(path);
  std::error_code error;
  if (fs::exists(host, error)) {
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

#ifdef _WIN32

std::vector<std::string> HostFileSystem::ListSubdirectories(std::string_view directory,
                                                            std::size_t most) const
{
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(HostPath(directory), error), end;
       !error && entry != end && names.size() < most; entry.increment(error)) {
    std::error_code gone;
    if (entry->is_directory(gone)) names.push_back(PathText(entry->path().filename()));
  }
  return names;
}

#else

// The system's own calls: a start lists hundreds of names and needs no path of each.
std::vector<std::string> HostFileSystem::ListSubdirectories(std::string_view directory,
                                                            std::size_t most) const
{
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(HostPath(directory).c_str()),
                                                 ::closedir);
  if (!open) return names;
  while (const dirent* entry = names.size() < most ? ::readdir(open.get()) : nullptr) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    // Links, and all entries of file systems that do not tell, are looked at themselves.
    bool is_directory = entry->d_type == DT_DIR;
    if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
      struct stat status {};
      is_directory =
          ::fstatat(::dirfd(open.get()), entry->d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
    }
    if (is_directory) names.emplace_back(name);
  }
  return names;
}

#endif

}  // namespace velquist::platform
