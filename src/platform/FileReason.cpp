// SPDX-License-Identifier: MIT
#include "platform/FileReason.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "platform/Errors.h"
#include "platform/Paths.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#endif

namespace velquist::platform {
namespace {

struct Reason {
  int code;
  std::string_view words;
};

constexpr std::string_view kOpen = "It is open in another program";
constexpr std::string_view kReadOnly = "The disk is read-only";
constexpr std::string_view kNoRoom = "There is no room left on the disk";
constexpr std::string_view kGone = "The folder is gone";
constexpr std::string_view kNoRight = "You have no right to it, or it is read-only";

// clang-format off
#ifdef _WIN32
constexpr std::array<Reason, 10> kReasons = {{
    {ERROR_SHARING_VIOLATION, kOpen},
    {ERROR_LOCK_VIOLATION, kOpen},
    {ERROR_UNABLE_TO_REMOVE_REPLACED, kOpen},
    {ERROR_UNABLE_TO_MOVE_REPLACEMENT, kOpen},
    {ERROR_WRITE_PROTECT, kReadOnly},
    {ERROR_ACCESS_DENIED, kNoRight},
    {ERROR_DISK_FULL, kNoRoom},
    {ERROR_HANDLE_DISK_FULL, kNoRoom},
    {ERROR_PATH_NOT_FOUND, kGone},
    {ERROR_BAD_NETPATH, kGone},
}};

bool IsOfSystem(const std::error_code& error)
{
  return error.category() == std::system_category();
}
#else
constexpr std::array<Reason, 8> kReasons = {{
    {EACCES, kNoRight},
    {EPERM, kNoRight},
    {ENOSPC, kNoRoom},
    {EBUSY, kOpen},
    {ETXTBSY, kOpen},
    {EROFS, kReadOnly},
    {EDQUOT, kNoRoom},
    {ESTALE, kGone},
}};

bool IsOfSystem(const std::error_code& error)
{
  return error.category() == std::generic_category() || error.category() == std::system_category();
}
#endif
// clang-format on

}  // namespace

std::string ReasonOf(const std::error_code& error)
{
  if (IsOfSystem(error))
    for (const auto& reason : kReasons)
      if (reason.code == error.value()) return std::string(reason.words);
  if (error == std::errc::permission_denied) return std::string(kNoRight);
  if (error == std::errc::no_space_on_device) return std::string(kNoRoom);
  return error.message();
}

std::string ToldPath(std::string_view path)
{
  std::string text(path);
  std::ranges::replace_if(text, IsSeparator,
                          static_cast<char>(std::filesystem::path::preferred_separator));
  return text;
}

void FailFile(std::string_view path, const std::error_code& error)
{
  throw FileError(std::string(path), ReasonOf(error));
}

}  // namespace velquist::platform
