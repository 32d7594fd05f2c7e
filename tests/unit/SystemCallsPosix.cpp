// SPDX-License-Identifier: MIT
#ifndef _WIN32

#include <dirent.h>
#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <map>
#include <string>

#include "SystemCalls.h"

// The linker's names. NOLINTBEGIN(*-reserved-identifier,cert-dcl*,readability-identifier-naming)
extern "C" {
int __real_open(const char* path, int flags, mode_t mode);
ssize_t __real_read(int file, void* bytes, size_t size);
ssize_t __real_write(int file, const void* bytes, size_t size);
int __real_fchown(int file, uid_t user, gid_t group);
int __real_fchmod(int file, mode_t mode);
int __real_fsetxattr(int file, const char* name, const void* value, size_t size, int flags);
int __real_fremovexattr(int file, const char* name);
int __real_fsync(int file);
int __real_linkat(int from_directory, const char* from, int to_directory, const char* to,
                  int flags);
int __real_close(int file);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* path);
dirent* __real_readdir(DIR* directory);
}

namespace {

using velquist::testing::SystemCalls;

/// What the files that were opened under watch are opened for.
std::map<int, std::string> opened;

std::string PurposeOf(int flags)
{
  if ((flags & O_TMPFILE) == O_TMPFILE) return " nameless";
  if ((flags & O_DIRECTORY) != 0) return " directory";
  return (flags & O_ACCMODE) == O_RDONLY ? " to read" : " new";
}

std::string NamedFor(const char* name, int file)
{
  const auto found = opened.find(file);
  if (found == opened.end() || found->second == " nameless" || found->second == " new") return name;
  return name + found->second;
}

/// Does the call unless it is to fail.
template <class Call>
auto Do(const std::string& name, const Call& call) -> decltype(call())
{
  auto* const calls = SystemCalls::Watching();
  if (calls == nullptr || !calls->Fails(name)) return call();
  errno = calls->error;
  return -1;
}

size_t AtOnce(size_t size)
{
  const auto* const calls = SystemCalls::Watching();
  return calls == nullptr ? size : std::min(size, calls->at_once);
}

}  // namespace

extern "C" {

int __wrap_open(const char* path, int flags, ...)
{
  va_list arguments;
  va_start(arguments, flags);
  const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  const mode_t mode = makes ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  const auto purpose = PurposeOf(flags);
  const int file = Do("open" + purpose, [&] {
    const auto* const calls = SystemCalls::Watching();
    if (calls == nullptr || calls->has_nameless || (flags & O_TMPFILE) != O_TMPFILE)
      return __real_open(path, flags, mode);
    errno = EOPNOTSUPP;
    return -1;
  });
  if (file >= 0 && SystemCalls::Watching() != nullptr) opened[file] = purpose;
  return file;
}

ssize_t __wrap_read(int file, void* bytes, size_t size)
{
  return Do("read", [&] { return __real_read(file, bytes, AtOnce(size)); });
}

ssize_t __wrap_write(int file, const void* bytes, size_t size)
{
  return Do("write", [&] { return __real_write(file, bytes, AtOnce(size)); });
}

int __wrap_fchown(int file, uid_t user, gid_t group)
{
  return Do("fchown", [&] { return __real_fchown(file, user, group); });
}

int __wrap_fchmod(int file, mode_t mode)
{
  return Do("fchmod", [&] { return __real_fchmod(file, mode); });
}

int __wrap_fsetxattr(int file, const char* name, const void* value, size_t size, int flags)
{
  return Do("fsetxattr", [&] { return __real_fsetxattr(file, name, value, size, flags); });
}

int __wrap_fremovexattr(int file, const char* name)
{
  return Do("fremovexattr", [&] { return __real_fremovexattr(file, name); });
}

int __wrap_fsync(int file)
{
  return Do(NamedFor("fsync", file), [&] { return __real_fsync(file); });
}

int __wrap_linkat(int from_directory, const char* from, int to_directory, const char* to, int flags)
{
  return Do("linkat", [&] { return __real_linkat(from_directory, from, to_directory, to, flags); });
}

/// The file is closed, whatever the call says.
int __wrap_close(int file)
{
  if (SystemCalls::Watching() == nullptr) return __real_close(file);
  const auto name = NamedFor("close", file);
  opened.erase(file);
  const int closed = __real_close(file);
  const int reason = errno;
  return Do(name, [&] {
    errno = reason;
    return closed;
  });
}

int __wrap_rename(const char* from, const char* to)
{
  return Do("rename", [&] { return __real_rename(from, to); });
}

int __wrap_unlink(const char* path)
{
  return Do("unlink", [&] { return __real_unlink(path); });
}

dirent* __wrap_readdir(DIR* directory)
{
  auto* const entry = __real_readdir(directory);
  const auto* const calls = SystemCalls::Watching();
  if (entry != nullptr && calls != nullptr && !calls->tells_kinds) entry->d_type = DT_UNKNOWN;
  return entry;
}
}
// NOLINTEND(*-reserved-identifier,cert-dcl*,readability-identifier-naming)

#endif
