// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/SaveCalls.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;
using Error = std::error_code;

constexpr const char* kAccessList = "system.posix_acl_access";

Error LastError()
{
  return {errno, std::generic_category()};
}

Error ErrorOf(int result)
{
  return result == 0 ? Error{} : LastError();
}

/// The file system does not know the thing, or the user may not do it: a save goes on without.
/// EOPNOTSUPP is ENOTSUP here.
bool IsNoMatter(int error)
{
  return error == ENOTSUP || error == ENOSYS || error == EPERM || error == EINVAL ||
         error == EACCES;
}

Error ErrorThatMatters(int result)
{
  return result == 0 || IsNoMatter(errno) ? Error{} : LastError();
}

/// Looks at the old file; nothing where there is none.
std::optional<struct stat> StatusOfOld(const fs::path& old, Error& error)
{
  struct stat status {};
  if (::stat(old.c_str(), &status) == 0) return status;
  if (errno != ENOENT) error = LastError();
  return std::nullopt;
}

/// The attribute's value; nothing where the file has none.
std::optional<std::vector<char>> Attribute(const fs::path& file, const char* name, Error& error)
{
  std::vector<char> value;
  for (;;) {
    const auto size = ::getxattr(file.c_str(), name, nullptr, 0);
    if (size >= 0) {
      value.resize(static_cast<std::size_t>(size));
      const auto got = ::getxattr(file.c_str(), name, value.data(), value.size());
      if (got >= 0) {
        value.resize(static_cast<std::size_t>(got));
        return value;
      }
      if (errno == ERANGE) continue;  // it has grown meanwhile
    }
    if (errno != ENODATA && errno != ENOENT && !IsNoMatter(errno)) error = LastError();
    return std::nullopt;
  }
}

Error OpenNameless(const fs::path& directory, int& file)
{
  file = ::open(directory.empty() ? "." : directory.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC,
                S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH);
  return file < 0 ? LastError() : Error{};
}

Error OpenNew(const fs::path& path, int& file)
{
  file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH);
  return file < 0 ? LastError() : Error{};
}

Error Write(int file, std::span<const std::byte> bytes, std::size_t& written)
{
  const auto count = ::write(file, bytes.data(), bytes.size());
  written = count < 0 ? 0 : static_cast<std::size_t>(count);
  return count < 0 ? LastError() : Error{};
}

/// Whoever may not give a file away may still give it to one of his groups.
Error KeepOwner(const fs::path& old, int file)
{
  Error error;
  const auto status = StatusOfOld(old, error);
  if (!status || ::fchown(file, status->st_uid, status->st_gid) == 0) return error;
  if (!IsNoMatter(errno)) return LastError();
  return ErrorThatMatters(::fchown(file, static_cast<uid_t>(-1), status->st_gid));
}

/// With an access list the group's bits are the list's mask, which would give the group more than
/// it has: they come with the list. A group that the file cannot be given gets what all have.
Error KeepRights(const fs::path& old, int file)
{
  Error error;
  const auto status = StatusOfOld(old, error);
  if (!status) return error;
  struct stat fresh {};
  if (::fstat(file, &fresh) != 0) return LastError();
  auto mode = status->st_mode & 07777U;
  if (fresh.st_uid != status->st_uid) mode &= ~static_cast<mode_t>(S_ISUID);
  if (fresh.st_gid != status->st_gid) {
    mode &= ~static_cast<mode_t>(S_ISGID);
    mode &= ~static_cast<mode_t>(S_IRWXG) | (mode & S_IRWXO) << 3U;
  }
  if (Attribute(old, kAccessList, error)) mode &= ~static_cast<mode_t>(S_IRWXG);
  if (error) return error;
  return ErrorThatMatters(::fchmod(file, mode));
}

Error KeepAccessList(const fs::path& old, int file)
{
  Error error;
  const auto status = StatusOfOld(old, error);
  if (!status) return error;
  const auto list = Attribute(old, kAccessList, error);
  if (error) return error;
  if (list) return ErrorThatMatters(::fsetxattr(file, kAccessList, list->data(), list->size(), 0));
  // One that the directory gave the new file is not the old file's; the rights stay as they are.
  if (::fgetxattr(file, kAccessList, nullptr, 0) < 0) return {};
  return ErrorThatMatters(::fremovexattr(file, kAccessList));
}

Error KeepAttributes(const fs::path& old, int file)
{
  const auto size = ::listxattr(old.c_str(), nullptr, 0);
  if (size < 0) return errno == ENOENT ? Error{} : ErrorThatMatters(-1);
  std::string names(static_cast<std::size_t>(size), '\0');
  const auto got = ::listxattr(old.c_str(), names.data(), names.size());
  if (got < 0) return ErrorThatMatters(-1);
  names.resize(static_cast<std::size_t>(got));
  for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) {
    const char* const name = names.c_str() + at;
    if (!std::string_view(name).starts_with("user.")) continue;
    Error error;
    const auto value = Attribute(old, name, error);
    if (!error && value)
      error = ErrorThatMatters(::fsetxattr(file, name, value->data(), value->size(), 0));
    if (error) return error;
  }
  return {};
}

/// The system has no call that names an open file for users without rights but this way round.
Error GiveName(int file, const fs::path& path)
{
  const auto open = "/proc/self/fd/" + std::to_string(file);
  return ErrorOf(::linkat(AT_FDCWD, open.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW));
}

/// Directories of some file systems cannot be flushed, and some that can be changed not be opened.
Error FlushDirectory(const fs::path& directory)
{
  const int file =
      ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return ErrorThatMatters(-1);
  const auto error = ErrorThatMatters(::fsync(file));
  ::close(file);
  return error;
}

}  // namespace

SaveCalls SystemSaveCalls()
{
  return {
      .open_nameless = OpenNameless,
      .open_new = OpenNew,
      .write = Write,
      .keep_owner = KeepOwner,
      .keep_rights = KeepRights,
      .keep_access_list = KeepAccessList,
      .keep_attributes = KeepAttributes,
      .flush = [](int file) { return ErrorOf(::fsync(file)); },
      .give_name = GiveName,
      .close = [](int file) { return ErrorOf(::close(file)); },
      .rename = [](const fs::path& from,
                   const fs::path& to) { return ErrorOf(::rename(from.c_str(), to.c_str())); },
      .flush_directory = FlushDirectory,
      .remove = [](const fs::path& path) { return ErrorOf(::unlink(path.c_str())); },
      .is_running =
          [](unsigned long process) {
            return ::kill(static_cast<pid_t>(process), 0) == 0 || errno != ESRCH;
          },
  };
}

unsigned long ProcessNumber()
{
  return static_cast<unsigned long>(::getpid());
}

std::error_code MayReplace(const fs::path& file)
{
  struct stat status {};
  if (::stat(file.c_str(), &status) != 0) return {};
  // What its owner made read-only is kept from everybody, whatever rights the user has.
  if ((status.st_mode & S_IWUSR) == 0) return std::make_error_code(std::errc::permission_denied);
  return ErrorOf(::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS));
}

fs::path BehindLinks(const fs::path& path, std::error_code& error)
{
  constexpr int kMostLinks = 40;
  std::error_code unknown;
  auto end = path;
  for (int links = 0; fs::is_symlink(end, unknown); ++links) {
    if (links == kMostLinks) {
      error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
      return end;
    }
    const auto next = fs::read_symlink(end, error);
    if (error) return end;
    end = end.parent_path() / next;
  }
  return end;
}

}  // namespace velquist::platform
