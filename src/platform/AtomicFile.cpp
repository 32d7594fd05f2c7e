// SPDX-License-Identifier: MIT
#include "platform/AtomicFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

#include "platform/Errors.h"
#include "platform/SystemFiles.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <sys/stat.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(std::string_view shown_path, const std::error_code& error)
{
  throw FileError(std::string(shown_path), error.message());
}

std::error_code LastError()
{
  return {errno, std::generic_category()};
}

// What the standard library has no words for, or not the same on both systems.
#ifdef _WIN32

int OpenNew(const fs::path& path)
{
  return ::_wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
}
bool WriteSome(int file, std::span<const std::byte>& bytes)
{
  const auto written = ::_write(
      file, bytes.data(), static_cast<unsigned>(std::min<std::size_t>(bytes.size(), 1U << 20)));
  if (written < 0) return false;
  bytes = bytes.subspan(static_cast<std::size_t>(written));
  return true;
}
bool Flush(int file)
{
  return ::_commit(file) == 0;
}
bool Close(int file)
{
  return ::_close(file) == 0;
}
int ProcessNumber()
{
  return ::_getpid();
}
std::error_code MayWrite(const fs::path& target)
{
  const auto attributes = ::GetFileAttributesW(target.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
    return std::make_error_code(std::errc::permission_denied);
  return {};
}
void KeepOwner(const fs::path&, int) {}
std::error_code Rename(const fs::path& from, const fs::path& to)
{
  if (::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
    return {};
  return {static_cast<int>(::GetLastError()), std::system_category()};
}
void Remove(const fs::path& path)
{
  ::DeleteFileW(path.c_str());
}
void FlushDirectory(const fs::path&) {}
/// Links are not told from files here.
fs::path BehindLinks(const fs::path& path, std::string_view)
{
  return Lengthened(path);
}

#else

int OpenNew(const fs::path& path)
{
  return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
}
bool WriteSome(int file, std::span<const std::byte>& bytes)
{
  const auto written = ::write(file, bytes.data(), bytes.size());
  if (written < 0) return errno == EINTR;
  bytes = bytes.subspan(static_cast<std::size_t>(written));
  return true;
}
bool Flush(int file)
{
  return ::fsync(file) == 0;
}
bool Close(int file)
{
  return ::close(file) == 0;
}
int ProcessNumber()
{
  return ::getpid();
}
/// A file that its owner made read-only is kept from everybody, whatever rights the user has.
std::error_code MayWrite(const fs::path& target)
{
  struct stat status {};
  if (::stat(target.c_str(), &status) != 0) return {};
  if ((status.st_mode & S_IWUSR) == 0 ||
      ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
    return std::make_error_code(std::errc::permission_denied);
  return {};
}
/// Permissions and, where that is allowed, owner and group of the old file.
void KeepOwner(const fs::path& target, int file)
{
  struct stat status {};
  if (::stat(target.c_str(), &status) != 0) return;
  if (::fchown(file, status.st_uid, status.st_gid) != 0) errno = 0;
  if (::fchmod(file, status.st_mode & 07777U) != 0) errno = 0;
}
std::error_code Rename(const fs::path& from, const fs::path& to)
{
  return ::rename(from.c_str(), to.c_str()) == 0 ? std::error_code{} : LastError();
}
void Remove(const fs::path& path)
{
  ::unlink(path.c_str());
}
void FlushDirectory(const fs::path& directory)
{
  const int file =
      ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return;
  ::fsync(file);
  ::close(file);
}
/// Where the links that start at `path` end; the last one's target need not exist.
fs::path BehindLinks(fs::path path, std::string_view shown_path)
{
  constexpr int kMostLinks = 40;
  std::error_code error;
  for (int links = 0; fs::is_symlink(path, error); ++links) {
    if (links == kMostLinks)
      Fail(shown_path, std::make_error_code(std::errc::too_many_symbolic_link_levels));
    const auto next = fs::read_symlink(path, error);
    if (error) Fail(shown_path, error);
    path = path.parent_path() / next;
  }
  return path;
}

#endif

/// Removes the temporary file unless it was renamed.
struct Temporary {
  fs::path path;
  int file = -1;
  bool done = false;

  Temporary() = default;
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;
  ~Temporary()
  {
    if (file >= 0) Close(file);
    if (!done && !path.empty()) Remove(path);
  }
};

/// A file beside the target that did not exist before.
void OpenBeside(const fs::path& target, std::string_view shown_path, Temporary& temporary)
{
  for (int attempt = 0;; ++attempt) {
    auto path = target.parent_path() /
                (".velquist-" + std::to_string(ProcessNumber()) + "-" + std::to_string(attempt));
    temporary.file = OpenNew(path);
    if (temporary.file >= 0) {
      temporary.path = std::move(path);
      return;
    }
    if (errno != EEXIST) Fail(shown_path, LastError());
  }
}

}  // namespace

void WriteAtomically(const fs::path& target, std::span<const std::byte> bytes,
                     std::string_view shown_path)
{
  const fs::path real = BehindLinks(target, shown_path);
  std::error_code error;
  const auto status = StatusOf(real, error);
  if (fs::is_directory(status)) Fail(shown_path, std::make_error_code(std::errc::is_a_directory));
  if (!fs::is_regular_file(status) && status.type() != fs::file_type::not_found)
    Fail(shown_path, error ? error : std::make_error_code(std::errc::invalid_argument));
  if (const auto refused = MayWrite(real)) Fail(shown_path, refused);

  Temporary temporary;
  OpenBeside(real, shown_path, temporary);
  while (!bytes.empty())
    if (!WriteSome(temporary.file, bytes)) Fail(shown_path, LastError());
  KeepOwner(real, temporary.file);
  if (!Flush(temporary.file)) Fail(shown_path, LastError());
  const bool closed = Close(temporary.file);
  temporary.file = -1;
  if (!closed) Fail(shown_path, LastError());
  if (const auto failed = Rename(temporary.path, real)) Fail(shown_path, failed);
  temporary.done = true;
  FlushDirectory(real.parent_path());
}

}  // namespace velquist::platform
