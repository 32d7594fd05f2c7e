// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/SaveCalls.h"
#include "platform/SystemFiles.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;
using Error = std::error_code;

/// Scanners and indexers open files for a moment.
constexpr int kTries = 10;
constexpr DWORD kPause = 50;  // milliseconds

/// What the new file takes over by itself: all else comes with its taking the old one's place.
constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                  FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

Error LastError()
{
  return {static_cast<int>(::GetLastError()), std::system_category()};
}

Error ErrorOf(int result)
{
  return result == 0 ? Error{} : Error{errno, std::generic_category()};
}

Error Nothing(const fs::path& /*old*/, int /*file*/)
{
  return {};
}

Error OpenNew(const fs::path& path, int& file)
{
  file = ::_wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
                  _S_IREAD | _S_IWRITE);
  return ErrorOf(file < 0 ? -1 : 0);
}

Error Write(int file, std::span<const std::byte> bytes, std::size_t& written)
{
  constexpr std::size_t kMost = 1U << 20U;
  const auto count =
      ::_write(file, bytes.data(), static_cast<unsigned>(std::min(bytes.size(), kMost)));
  written = count < 0 ? 0 : static_cast<std::size_t>(count);
  return ErrorOf(count < 0 ? -1 : 0);
}

HANDLE HandleOf(int file)
{
  // The runtime library gives handles as numbers. NOLINTNEXTLINE(performance-no-int-to-ptr)
  return reinterpret_cast<HANDLE>(::_get_osfhandle(file));
}

/// Here too, not by taking the old file's place alone: that may fail and become a plain renaming.
/// What the user may not read or give stays with the file system.
Error KeepAccessList(const fs::path& old, int file)
{
  DWORD size = 0;
  ::GetFileSecurityW(old.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<std::byte> list(size);
  if (size == 0 ||
      !::GetFileSecurityW(old.c_str(), DACL_SECURITY_INFORMATION, list.data(), size, &size))
    return {};
  std::wstring name(::GetFinalPathNameByHandleW(HandleOf(file), nullptr, 0, 0), L'\0');
  ::GetFinalPathNameByHandleW(HandleOf(file), name.data(), static_cast<DWORD>(name.size()), 0);
  (void)::SetFileSecurityW(name.c_str(), DACL_SECURITY_INFORMATION, list.data());
  return {};
}

Error KeepAttributes(const fs::path& old, int file)
{
  const auto attributes = ::GetFileAttributesW(old.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return {};
  FILE_BASIC_INFO kept{};  // times of 0 stay as they are
  kept.FileAttributes = attributes & kKeptAttributes;
  if (kept.FileAttributes == 0) kept.FileAttributes = FILE_ATTRIBUTE_NORMAL;
  if (::SetFileInformationByHandle(HandleOf(file), FileBasicInfo, &kept, sizeof kept)) return {};
  return LastError();
}

bool IsThere(const fs::path& path)
{
  return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool Move(const fs::path& from, const fs::path& to)
{
  return ::MoveFileExW(from.c_str(), to.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

/// Puts a file in the place of another, whose access list and streams it gets.
bool Replace(const fs::path& from, const fs::path& to)
{
  if (!IsThere(to)) return Move(from, to);
  if (::ReplaceFileW(to.c_str(), from.c_str(), nullptr, 0, nullptr, nullptr)) return true;
  switch (::GetLastError()) {
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT_2:  // the old file has made room already
    case ERROR_INVALID_NAME:                  // what Wine says of some long paths
    case ERROR_INVALID_FUNCTION:              // file systems that know no more than names
    case ERROR_NOT_SUPPORTED:
    case ERROR_CALL_NOT_IMPLEMENTED: return Move(from, to);
    default: return false;
  }
}

bool PassesSoon(DWORD error)
{
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
         error == ERROR_ACCESS_DENIED || error == ERROR_UNABLE_TO_REMOVE_REPLACED ||
         error == ERROR_UNABLE_TO_MOVE_REPLACEMENT;
}

Error Rename(const fs::path& from, const fs::path& to)
{
  for (int tries = 1;; ++tries) {
    if (Replace(from, to)) return {};
    const auto error = LastError();
    if (tries == kTries || !PassesSoon(static_cast<DWORD>(error.value()))) return error;
    ::Sleep(kPause);
  }
}

bool IsRunning(unsigned long process)
{
  const auto handle = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process);
  if (handle == nullptr) return ::GetLastError() != ERROR_INVALID_PARAMETER;
  DWORD code = 0;
  const bool running = ::GetExitCodeProcess(handle, &code) == 0 || code == STILL_ACTIVE;
  ::CloseHandle(handle);
  return running;
}

}  // namespace

SaveCalls SystemSaveCalls()
{
  return {
      .open_nameless = [](const fs::path& /*directory*/,
                          int& /*file*/) { return make_error_code(std::errc::not_supported); },
      .open_new = OpenNew,
      .write = Write,
      .keep_owner = Nothing,
      .keep_rights = Nothing,
      .keep_access_list = KeepAccessList,
      .keep_attributes = KeepAttributes,
      .flush = [](int file) { return ErrorOf(::_commit(file)); },
      .give_name =
          [](int /*file*/, const fs::path& /*path*/) {
            return make_error_code(std::errc::not_supported);
          },
      .close = [](int file) { return ErrorOf(::_close(file)); },
      .rename = Rename,
      .flush_directory = [](const fs::path& /*directory*/) { return Error{}; },
      .remove =
          [](const fs::path& path) { return ::DeleteFileW(path.c_str()) ? Error{} : LastError(); },
      .is_running = IsRunning,
  };
}

unsigned long ProcessNumber()
{
  return ::GetCurrentProcessId();
}

std::error_code MayReplace(const fs::path& file)
{
  const auto attributes = ::GetFileAttributesW(file.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
    return std::make_error_code(std::errc::permission_denied);
  return {};
}

fs::path BehindLinks(const fs::path& path, std::error_code& /*error*/)
{
  return SpelledAsOnDisk(Lengthened(path));
}

}  // namespace velquist::platform
