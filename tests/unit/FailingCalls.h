// SPDX-License-Identifier: MIT
// What comes of a save when one of the system's calls fails.
#pragma once

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

namespace velquist::testing {

enum class Outcome {
  kSaved,        ///< there is another way, or it does not matter
  kNotSaved,     ///< told; the old file is whole, and nothing is left behind
  kSavedAndTold  ///< the new file stands, but may not last a power failure
};

struct FailingCall {
  std::string_view name;  ///< as SystemCalls writes it down
  std::vector<int> errors;
  Outcome outcome = Outcome::kNotSaved;
};

#ifdef _WIN32

inline bool IsWindowsOwn(std::string_view call)
{
  return !call.starts_with('_');
}

inline const std::vector<FailingCall>& FailingCalls()
{
  using enum Outcome;
  static const std::vector<FailingCall> calls = {
      {"_wopen", {EACCES, ENOENT, ENOSPC, EIO, EMFILE}, kNotSaved},
      {"_write", {ENOSPC, EIO, EACCES, EBADF}, kNotSaved},
      {"SetFileSecurityW", {ERROR_ACCESS_DENIED, ERROR_INVALID_FUNCTION, ERROR_DISK_FULL}, kSaved},
      {"SetFileInformationByHandle",
       {ERROR_ACCESS_DENIED, ERROR_DISK_FULL, ERROR_IO_DEVICE, ERROR_WRITE_PROTECT},
       kNotSaved},
      {"_commit", {EIO, ENOSPC, EBADF}, kNotSaved},
      {"_close", {EIO, ENOSPC, EBADF}, kNotSaved},
      {"ReplaceFileW",
       {ERROR_DISK_FULL, ERROR_IO_DEVICE, ERROR_WRITE_PROTECT, ERROR_PATH_NOT_FOUND,
        ERROR_UNEXP_NET_ERR},
       kNotSaved},
      // Another program holds the file for a moment; once it is gone the next try succeeds.
      {"ReplaceFileW",
       {ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, ERROR_ACCESS_DENIED,
        ERROR_UNABLE_TO_REMOVE_REPLACED, ERROR_UNABLE_TO_MOVE_REPLACEMENT},
       kSaved},
      {"ReplaceFileW",
       {ERROR_UNABLE_TO_MOVE_REPLACEMENT_2, ERROR_INVALID_FUNCTION, ERROR_NOT_SUPPORTED,
        ERROR_CALL_NOT_IMPLEMENTED},
       kSaved},
      {"MoveFileExW through",
       {ERROR_DISK_FULL, ERROR_IO_DEVICE, ERROR_WRITE_PROTECT, ERROR_PATH_NOT_FOUND},
       kNotSaved},
      {"MoveFileExW through", {ERROR_SHARING_VIOLATION, ERROR_ACCESS_DENIED}, kSaved},
  };
  return calls;
}

#else

inline bool IsWindowsOwn(std::string_view /*call*/)
{
  return false;
}

inline const std::vector<FailingCall>& FailingCalls()
{
  using enum Outcome;
  // Not all file systems know what a file has beside its bytes, and not all users may give it.
  static const std::vector<int> not_here = {ENOTSUP, ENOSYS, EPERM, EINVAL, EACCES};
  static const std::vector<FailingCall> calls = {
      {"open to read", {EIO, EMFILE, ENFILE, ENOMEM, EACCES}, kNotSaved},
      {"read", {EIO, ENOMEM, EBADF}, kNotSaved},
      {"close to read", {EIO, EINTR}, kSaved},
      {"open nameless", {EOPNOTSUPP, EISDIR, ENOENT, EINVAL, EIO, EMFILE, EINTR}, kSaved},
      {"open new", {ENOSPC, EDQUOT, EROFS, EIO, ENOENT, EACCES, EMFILE, ENAMETOOLONG}, kNotSaved},
      {"write", {ENOSPC, EDQUOT, EIO, EFBIG, ENOMEM, EROFS}, kNotSaved},
      {"fchown", {EIO, EROFS, EDQUOT, ENOSPC, ENOENT}, kNotSaved},
      {"fchown", not_here, kSaved},
      {"fchmod", {EIO, EROFS, EDQUOT, ENOSPC, ENOENT}, kNotSaved},
      {"fchmod", not_here, kSaved},
      {"fsetxattr", {EIO, EROFS, EDQUOT, ENOSPC, ENOENT}, kNotSaved},
      {"fsetxattr", not_here, kSaved},
      {"fremovexattr", {EIO, EROFS, EDQUOT, ENOSPC}, kNotSaved},
      {"fsync", {EIO, ENOSPC, EDQUOT, EROFS, EINVAL}, kNotSaved},
      {"linkat", {EIO, ENOENT, EPERM, EACCES, EROFS, ENOSPC, EDQUOT, EEXIST, EXDEV}, kSaved},
      {"close", {EIO, ENOSPC, EDQUOT}, kNotSaved},
      {"rename", {EIO, ENOSPC, EDQUOT, EROFS, ENOENT, EACCES, EPERM, EBUSY}, kNotSaved},
      {"open directory", {EIO, ENOENT, EMFILE}, kSavedAndTold},
      {"open directory", not_here, kSaved},
      {"fsync directory", {EIO, ENOSPC, EDQUOT, EROFS}, kSavedAndTold},
      {"fsync directory", not_here, kSaved},
      {"close directory", {EIO}, kSaved},
      {"", {EINTR}, kSaved},  // whatever call it is: the call is made again
  };
  return calls;
}

#endif

inline std::error_code ReasonWhy(std::string_view call, int error)
{
  return {error, IsWindowsOwn(call) ? std::system_category() : std::generic_category()};
}

}  // namespace velquist::testing
