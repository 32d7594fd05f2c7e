// SPDX-License-Identifier: MIT
#include "platform/FileHead.h"

#include <memory>

#include "platform/SystemFiles.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace velquist::platform {

namespace fs = std::filesystem;

#ifdef _WIN32

namespace {

std::error_code LastError()
{
  return {static_cast<int>(::GetLastError()), std::system_category()};
}

using Handle = std::unique_ptr<void, decltype(&::CloseHandle)>;

std::uint64_t Whole(DWORD high, DWORD low)
{
  return std::uint64_t{high} << 32U | low;
}

}  // namespace

std::error_code ReadHead(const fs::path& path, std::size_t most, FileHead& head)
{
  std::error_code error;
  const auto status = StatusOf(path, error);
  if (!fs::exists(status)) return error;
  if (fs::is_directory(status)) return std::make_error_code(std::errc::is_a_directory);
  const auto opened = ::CreateFileW(Lengthened(path).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened == INVALID_HANDLE_VALUE) return LastError();
  const Handle file(opened, ::CloseHandle);
  if (::GetFileType(file.get()) != FILE_TYPE_DISK)
    return std::make_error_code(std::errc::invalid_argument);
  BY_HANDLE_FILE_INFORMATION facts;
  if (!::GetFileInformationByHandle(file.get(), &facts)) return LastError();
  // The system counts steps of 100 ns since 1601.
  constexpr std::int64_t kStepsTo1970 = 116'444'736'000'000'000;
  const auto steps = static_cast<std::int64_t>(
      Whole(facts.ftLastWriteTime.dwHighDateTime, facts.ftLastWriteTime.dwLowDateTime));
  head.stamp = {Whole(facts.nFileSizeHigh, facts.nFileSizeLow), (steps - kStepsTo1970) * 100};
  head.bytes.resize(most);
  std::size_t length = 0;
  for (;;) {
    DWORD count = 0;
    if (!::ReadFile(file.get(), head.bytes.data() + length, static_cast<DWORD>(most - length),
                    &count, nullptr))
      return LastError();
    length += count;
    if (count == 0 || length == most) break;
  }
  head.bytes.resize(length);
  return {};
}

std::optional<DirectoryIdentity> IdentityOfDirectory(const fs::path& path)
{
  const auto opened = ::CreateFileW(Lengthened(path).c_str(), 0,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (opened == INVALID_HANDLE_VALUE) return std::nullopt;
  const Handle directory(opened, ::CloseHandle);
  BY_HANDLE_FILE_INFORMATION facts;
  if (!::GetFileInformationByHandle(directory.get(), &facts)) return std::nullopt;
  return DirectoryIdentity{facts.dwVolumeSerialNumber,
                           Whole(facts.nFileIndexHigh, facts.nFileIndexLow)};
}

#else

std::error_code ReadHead(const fs::path& path, std::size_t most, FileHead& head)
{
  const auto last_error = [] { return std::error_code(errno, std::generic_category()); };
  const auto close = [](const int* file) { ::close(*file); };
  // A pipe that nobody writes to would be waited for.
  int file = -1;
  do file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  while (file < 0 && errno == EINTR);
  if (file < 0) return last_error();
  const std::unique_ptr<const int, decltype(close)> open(&file, close);
  struct stat status {};
  if (::fstat(file, &status) != 0) return last_error();
  if (S_ISDIR(status.st_mode)) return std::make_error_code(std::errc::is_a_directory);
  if (!S_ISREG(status.st_mode)) return std::make_error_code(std::errc::invalid_argument);
  constexpr std::int64_t kSecond = 1'000'000'000;
  head.stamp = {static_cast<std::uint64_t>(status.st_size),
                status.st_mtim.tv_sec * kSecond + status.st_mtim.tv_nsec};
  head.bytes.resize(most);
  std::size_t length = 0;
  while (length < most) {
    const auto count = ::read(file, head.bytes.data() + length, most - length);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return last_error();
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
  }
  head.bytes.resize(length);
  return {};
}

std::optional<DirectoryIdentity> IdentityOfDirectory(const fs::path& path)
{
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return std::nullopt;
  return DirectoryIdentity{std::uint64_t{status.st_dev}, std::uint64_t{status.st_ino}};
}

#endif

}  // namespace velquist::platform
