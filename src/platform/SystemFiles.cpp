// SPDX-License-Identifier: MIT
#include "platform/SystemFiles.h"

#include <memory>

#ifdef _WIN32
#include <windows.h>

#include <fstream>
#else
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <span>
#endif

namespace velquist::platform {

namespace fs = std::filesystem;

namespace {

std::error_code MakeRoom(std::vector<std::byte>& bytes, std::size_t size)
{
  try {
    bytes.resize(size);
    return {};
  } catch (const std::exception&) {
    return std::make_error_code(std::errc::not_enough_memory);
  }
}

}  // namespace

#ifdef _WIN32

// The standard library ends in calls of the C runtime here, of which some refuse every name with a
// `?`, so every lengthened one, and others cut what is beyond the classic limit. Its conversions
// throw at what is not valid.

namespace {

constexpr std::wstring_view kPrefix = L"\\\\?\\";
constexpr std::wstring_view kNetworkPrefix = L"\\\\?\\UNC\\";
constexpr std::wstring_view kNetwork = L"\\\\";

std::string Narrow(std::wstring_view wide)
{
  const auto convert = [wide](char* to, int size) {
    return ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), to, size,
                                 nullptr, nullptr);
  };
  std::string text(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
  convert(text.data(), static_cast<int>(text.size()));
  return text;
}

std::error_code LastError()
{
  return {static_cast<int>(::GetLastError()), std::system_category()};
}

}  // namespace

fs::path PathFromText(std::string_view text)
{
  const auto convert = [text](wchar_t* to, int size) {
    return ::MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), to, size);
  };
  std::wstring wide(static_cast<std::size_t>(convert(nullptr, 0)), L'\0');
  convert(wide.data(), static_cast<int>(wide.size()));
  return {wide};
}

std::string PathText(const fs::path& path)
{
  const std::wstring_view whole = path.native();
  if (whole.starts_with(kNetworkPrefix))
    return Narrow(std::wstring(kNetwork).append(whole.substr(kNetworkPrefix.size())));
  // Other names with the prefix, such as those of volumes, have no plain form.
  if (whole.starts_with(kPrefix) && whole.find(L':') == kPrefix.size() + 1)
    return Narrow(whole.substr(kPrefix.size()));
  return Narrow(whole);
}

fs::path Lengthened(const fs::path& path)
{
  // A temporary file beside the target must still fit.
  constexpr std::size_t kShortEnough = 220;
  const auto& text = path.native();
  if (text.size() < kShortEnough || text.starts_with(kPrefix)) return path;
  const auto plain = fs::path(path).make_preferred().native();
  // The library knows no servers: it would take one of the two separators away.
  const bool network = plain.starts_with(kNetwork);
  if (!network && !path.is_absolute()) return path;
  const fs::path rest(network ? plain.substr(kNetwork.size()) : plain);
  return std::wstring(network ? kNetworkPrefix : kPrefix).append(rest.lexically_normal().native());
}

fs::path SpelledAsOnDisk(const fs::path& path)
{
  const auto whole = Lengthened(path);
  std::wstring spelled(::GetLongPathNameW(whole.c_str(), nullptr, 0), L'\0');
  const auto size =
      ::GetLongPathNameW(whole.c_str(), spelled.data(), static_cast<DWORD>(spelled.size()));
  if (size == 0 || size >= spelled.size()) {
    // Nothing is there: what lies above it may be.
    const bool has_parent = path.has_relative_path() && path.has_parent_path();
    return has_parent ? SpelledAsOnDisk(path.parent_path()) / path.filename() : path;
  }
  spelled.resize(size);
  return spelled;
}

fs::file_status StatusOf(const fs::path& path, std::error_code& error)
{
  error.clear();
  // A separator at the end would hide a file.
  const bool has_name = path.has_filename() || !path.has_relative_path();
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!::GetFileAttributesExW(Lengthened(has_name ? path : path.parent_path()).c_str(),
                              GetFileExInfoStandard, &data)) {
    error = std::make_error_code(std::errc::no_such_file_or_directory);
    return fs::file_status(fs::file_type::not_found);
  }
  const bool is_directory = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return fs::file_status(is_directory ? fs::file_type::directory : fs::file_type::regular);
}

std::error_code ReadFile(const fs::path& path, std::vector<std::byte>& bytes)
{
  std::error_code error;
  const auto status = StatusOf(path, error);
  if (!fs::exists(status)) return error;
  if (fs::is_directory(status)) return std::make_error_code(std::errc::is_a_directory);
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::make_error_code(std::errc::permission_denied);
  const auto size = file.seekg(0, std::ios::end).tellg();
  if (size < 0) return std::make_error_code(std::errc::io_error);
  file.seekg(0);
  if (const auto no_room = MakeRoom(bytes, static_cast<std::size_t>(size))) return no_room;
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (file.bad() || file.gcount() != size) return std::make_error_code(std::errc::io_error);
  return {};
}

std::optional<FileStamp> StampOf(const fs::path& path)
{
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!::GetFileAttributesExW(Lengthened(path).c_str(), GetFileExInfoStandard, &data) ||
      (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
    return std::nullopt;
  const auto whole = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32U | low; };
  // The system counts steps of 100 ns since 1601.
  constexpr std::int64_t kStepsTo1970 = 116'444'736'000'000'000;
  const auto steps = static_cast<std::int64_t>(
      whole(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime));
  return FileStamp{whole(data.nFileSizeHigh, data.nFileSizeLow), (steps - kStepsTo1970) * 100};
}

std::error_code MakeDirectories(const fs::path& path)
{
  std::error_code missing;
  const auto status = StatusOf(path, missing);
  if (fs::is_directory(status)) return {};
  if (fs::exists(status)) return std::make_error_code(std::errc::not_a_directory);
  if (path.has_relative_path())
    if (const auto error = MakeDirectories(path.parent_path())) return error;
  if (::CreateDirectoryW(Lengthened(path).c_str(), nullptr) ||
      ::GetLastError() == ERROR_ALREADY_EXISTS)
    return {};
  return LastError();
}

std::error_code ListNames(const fs::path& directory, Listed listed,
                          const std::function<bool(std::string_view name)>& take)
{
  if (directory.empty()) return std::make_error_code(std::errc::no_such_file_or_directory);
  WIN32_FIND_DATAW entry;
  const auto found = ::FindFirstFileW((Lengthened(directory) / L"*").c_str(), &entry);
  if (found == INVALID_HANDLE_VALUE) return LastError();
  const std::unique_ptr<void, decltype(&::FindClose)> open(found, ::FindClose);
  do {
    const std::wstring_view name = entry.cFileName;
    if (name == L"." || name == L"..") continue;
    if (listed == Listed::kDirectories && (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
      continue;
    if (!take(Narrow(name))) return {};
  } while (::FindNextFileW(found, &entry));
  return ::GetLastError() == ERROR_NO_MORE_FILES ? std::error_code() : LastError();
}

#else

fs::path PathFromText(std::string_view text)
{
  return text;
}

std::string PathText(const fs::path& path)
{
  return path.native();
}

fs::path Lengthened(const fs::path& path)
{
  return path;
}

fs::path SpelledAsOnDisk(const fs::path& path)
{
  return path;
}

fs::file_status StatusOf(const fs::path& path, std::error_code& error)
{
  return fs::status(path, error);
}

std::error_code ReadFile(const fs::path& path, std::vector<std::byte>& bytes)
{
  const auto last_error = [] { return std::error_code(errno, std::generic_category()); };
  const auto close = [](const int* file) { ::close(*file); };
  // A pipe that nobody writes to would be waited for.
  int file = -1;
  do file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  while (file < 0 && errno == EINTR);
  if (file < 0) return last_error();
  const std::unique_ptr<const int, decltype(close)> open(&file, close);
  struct stat status {};
  if (::fstat(file, &status) != 0) return last_error();
  if (S_ISDIR(status.st_mode)) return std::make_error_code(std::errc::is_a_directory);
  if (!S_ISREG(status.st_mode)) return std::make_error_code(std::errc::invalid_argument);
  if (const auto no_room = MakeRoom(bytes, static_cast<std::size_t>(status.st_size)))
    return no_room;
  for (std::span<std::byte> rest = bytes; !rest.empty();) {
    const auto count = ::read(file, rest.data(), rest.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return last_error();
    if (count == 0) return std::make_error_code(std::errc::io_error);
    rest = rest.subspan(static_cast<std::size_t>(count));
  }
  return {};
}

std::optional<FileStamp> StampOf(const fs::path& path)
{
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  constexpr std::int64_t kSecond = 1'000'000'000;
  return FileStamp{static_cast<std::uint64_t>(status.st_size),
                   status.st_mtim.tv_sec * kSecond + status.st_mtim.tv_nsec};
}

std::error_code MakeDirectories(const fs::path& path)
{
  std::error_code error;
  fs::create_directories(path, error);
  return error;
}

// The system's own calls: a start lists hundreds of names and needs no path of each.
std::error_code ListNames(const fs::path& directory, Listed listed,
                          const std::function<bool(std::string_view name)>& take)
{
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(directory.c_str()), ::closedir);
  if (!open) return {errno, std::generic_category()};
  for (;;) {
    errno = 0;
    const dirent* const entry = ::readdir(open.get());
    if (entry == nullptr) return {errno, std::generic_category()};
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    if (listed == Listed::kDirectories) {
      // Links, and all entries of file systems that do not tell, are looked at themselves.
      bool is_directory = entry->d_type == DT_DIR;
      if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
        struct stat status {};
        is_directory = ::fstatat(::dirfd(open.get()), entry->d_name, &status, 0) == 0 &&
                       S_ISDIR(status.st_mode);
      }
      if (!is_directory) continue;
    }
    if (!take(name)) return {};
  }
}

#endif

}  // namespace velquist::platform
