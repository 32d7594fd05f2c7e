// SPDX-License-Identifier: MIT
#ifdef _WIN32

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>

#include "SystemCalls.h"

namespace {

using velquist::testing::SystemCalls;

bool Fails(const char* name)
{
  auto* const calls = SystemCalls::Watching();
  return calls != nullptr && calls->Fails(name);
}

int Failed()
{
  errno = SystemCalls::Watching()->error;
  return -1;
}

BOOL Refused()
{
  ::SetLastError(static_cast<DWORD>(SystemCalls::Watching()->error));
  return FALSE;
}

}  // namespace

// Calls of other libraries go through a pointer that the linker fills.
// The linker's names. NOLINTBEGIN(*-reserved-identifier,cert-dcl*,readability-identifier-naming)
extern "C" {

extern int (*__real___imp__wopen)(const wchar_t* path, int flags, ...);
extern decltype(&::_write) __real___imp__write;
extern decltype(&::_commit) __real___imp__commit;
extern decltype(&::_close) __real___imp__close;
extern decltype(&::SetFileSecurityW) __real___imp_SetFileSecurityW;
extern decltype(&::SetFileInformationByHandle) __real___imp_SetFileInformationByHandle;
extern decltype(&::ReplaceFileW) __real___imp_ReplaceFileW;
extern decltype(&::MoveFileExW) __real___imp_MoveFileExW;
extern decltype(&::DeleteFileW) __real___imp_DeleteFileW;

static int Open(const wchar_t* path, int flags, ...)
{
  va_list arguments;
  va_start(arguments, flags);
  const int rights = (flags & _O_CREAT) != 0 ? va_arg(arguments, int) : 0;
  va_end(arguments);
  return Fails("_wopen") ? Failed() : __real___imp__wopen(path, flags, rights);
}

static int Write(int file, const void* bytes, unsigned size)
{
  if (Fails("_write")) return Failed();
  const auto* const calls = SystemCalls::Watching();
  const auto most =
      calls == nullptr ? std::size_t{size} : std::min<std::size_t>(size, calls->at_once);
  return __real___imp__write(file, bytes, static_cast<unsigned>(most));
}

static int Commit(int file)
{
  return Fails("_commit") ? Failed() : __real___imp__commit(file);
}

/// The file is closed, whatever the call says.
static int Close(int file)
{
  const int closed = __real___imp__close(file);
  return Fails("_close") ? Failed() : closed;
}

static BOOL WINAPI SetSecurity(LPCWSTR path, SECURITY_INFORMATION what, PSECURITY_DESCRIPTOR list)
{
  return Fails("SetFileSecurityW") ? Refused() : __real___imp_SetFileSecurityW(path, what, list);
}

static BOOL WINAPI SetInformation(HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, LPVOID info,
                                  DWORD size)
{
  return Fails("SetFileInformationByHandle")
             ? Refused()
             : __real___imp_SetFileInformationByHandle(file, kind, info, size);
}

static BOOL WINAPI Replace(LPCWSTR old, LPCWSTR with, LPCWSTR backup, DWORD flags, LPVOID exclude,
                           LPVOID reserved)
{
  return Fails("ReplaceFileW")
             ? Refused()
             : __real___imp_ReplaceFileW(old, with, backup, flags, exclude, reserved);
}

static BOOL WINAPI Move(LPCWSTR from, LPCWSTR to, DWORD flags)
{
  return Fails((flags & MOVEFILE_WRITE_THROUGH) != 0 ? "MoveFileExW through" : "MoveFileExW")
             ? Refused()
             : __real___imp_MoveFileExW(from, to, flags);
}

static BOOL WINAPI Delete(LPCWSTR path)
{
  return Fails("DeleteFileW") ? Refused() : __real___imp_DeleteFileW(path);
}

int (*__wrap___imp__wopen)(const wchar_t* path, int flags, ...) = Open;
decltype(&::_write) __wrap___imp__write = Write;
decltype(&::_commit) __wrap___imp__commit = Commit;
decltype(&::_close) __wrap___imp__close = Close;
decltype(&::SetFileSecurityW) __wrap___imp_SetFileSecurityW = SetSecurity;
decltype(&::SetFileInformationByHandle) __wrap___imp_SetFileInformationByHandle = SetInformation;
decltype(&::ReplaceFileW) __wrap___imp_ReplaceFileW = Replace;
decltype(&::MoveFileExW) __wrap___imp_MoveFileExW = Move;
decltype(&::DeleteFileW) __wrap___imp_DeleteFileW = Delete;
}
// NOLINTEND(*-reserved-identifier,cert-dcl*,readability-identifier-naming)

#endif
